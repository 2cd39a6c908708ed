// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Speed of the bordered picture: a 24-megapixel pair composed in each layout (the LR/RL grid
// is a canvas of about 100 megapixels), with the default settings and with rounded corners,
// beside the yardstick: memcpy of the views the canvas shows into a buffer made beforehand.
// Run pinned to one core (`taskset -c 0`) for single-core figures.
#include <cstring>
#include <vector>

#include <QImage>

#include <benchmark/benchmark.h>

#include "border/imageborderprocessor.h"

using namespace Vorel;

namespace {

// Smooth gradients: drawing cost does not depend on the content, only on the sizes.
QImage gradient(int w, int h, int shift)
{
    QImage image(w, h, QImage::Format_RGB32);
    for (int y = 0; y < h; ++y) {
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < w; ++x)
            row[x] = qRgb((x + shift) & 255, (y + shift) & 255, (x + y) & 255);
    }
    return image;
}

const QImage &left24() { static const QImage image = gradient(6000, 4000, 0); return image; }
const QImage &right24() { static const QImage image = gradient(6000, 4000, 7); return image; }

void BM_Compose24MP(benchmark::State &state)
{
    ImageBorderSettings settings;
    settings.layoutKind = static_cast<BorderLayoutKind>(state.range(0));
    settings.cornerRadiusPercent = static_cast<double>(state.range(1));
    const ImageBorderProcessor processor;
    left24();
    right24();
    for (auto _ : state)
        benchmark::DoNotOptimize(processor.compose(left24(), right24(), settings));
    state.SetLabel(settings.cornerRadiusPercent > 0 ? "round corners" : "square corners");
}
// Arguments: layout code (0 sbs, 1 lrl, 2 lrrl), corner radius in percent.
BENCHMARK(BM_Compose24MP)
    ->Args({0, 0})
    ->Args({1, 0})
    ->Args({2, 0})
    ->Args({2, 3})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// Argument: number of views on the canvas (2 sbs, 3 lrl, 4 lrrl).
void BM_MemcpyViews24MP(benchmark::State &state)
{
    const QImage *views[2] = {&left24(), &right24()};
    const size_t bytes = size_t(left24().sizeInBytes());
    std::vector<uint8_t> canvas(bytes * size_t(state.range(0)));
    for (auto _ : state) {
        for (int i = 0; i < state.range(0); ++i)
            std::memcpy(canvas.data() + bytes * size_t(i), views[i % 2]->constBits(), bytes);
        benchmark::DoNotOptimize(canvas.data());
    }
}
BENCHMARK(BM_MemcpyViews24MP)->Arg(2)->Arg(3)->Arg(4)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
