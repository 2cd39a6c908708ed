// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Speed of the bordered picture: a 24-megapixel pair composed in each layout (the LR/RL grid
// is a canvas of about 100 megapixels), with the default settings and with rounded corners.
// Run pinned to one core (`taskset -c 0`) for single-core figures.
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

} // namespace

BENCHMARK_MAIN();
