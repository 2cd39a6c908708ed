// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Rendering speed of the stereo pair core: full-size adjusted render and Dubois anaglyph of
// a 24-megapixel pair, slider re-render from the preview cache, and open-render-save of a
// large side-by-side JPEG. Run pinned to one core (`taskset -c 0`) for single-core figures.
#include <cstring>
#include <random>

#include <QDir>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#ifdef VOREL_BENCH_WITH_OPENCV
#include <opencv2/imgproc.hpp>
#endif

#include "core/displaycomposition.h"
#include "core/stereoimageprocessor.h"
#include "core/stereointake.h"
#include "formats/imagewriter.h"
#include "plainloops.h"

using namespace Vorel;

namespace {

constexpr StereoAdjustment typicalAdjustment{1.0, 0.5, 1.0, 2.0};

// A photo-like test card: smooth gradients plus a little noise, so codecs do real work.
QImage testCard(int w, int h, unsigned seed)
{
    QImage image(w, h, QImage::Format_RGB32);
    std::mt19937 rng(seed);
    for (int y = 0; y < h; ++y) {
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < w; ++x)
            row[x] = qRgb((x * 255 / w + (rng() & 15)) & 255, (y * 255 / h + (rng() & 15)) & 255,
                          ((x + y) & 255) ^ (rng() & 7));
    }
    return image;
}

StereoImageProcessor &pair24()
{
    static StereoImageProcessor proc = [] {
        StereoImageProcessor p;
        p.loadPair(testCard(6000, 4000, 1), testCard(6000, 4000, 2), false);
        p.adjustment = typicalAdjustment;
        return p;
    }();
    return proc;
}

void BM_Render24MP(benchmark::State &state)
{
    StereoImageProcessor &proc = pair24();
    for (auto _ : state)
        benchmark::DoNotOptimize(proc.render(false));
}
BENCHMARK(BM_Render24MP)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_DuboisAnaglyph24MP(benchmark::State &state)
{
    StereoImageProcessor &proc = pair24();
    for (auto _ : state)
        benchmark::DoNotOptimize(proc.renderAnaglyph(2, false));
}
BENCHMARK(BM_DuboisAnaglyph24MP)->Unit(benchmark::kMillisecond)->UseRealTime();

#ifdef VOREL_BENCH_WITH_OPENCV
// The yardstick: two bilinear cv::warpPerspective calls with the same matrices on the same pair.
void BM_OpenCvTwoWarps24MP(benchmark::State &state)
{
    const StereoImageProcessor &proc = pair24();
    const auto [l, r] = adjustedCorners(6000, 4000, typicalAdjustment);
    const CornerPoints frame{{{0, 0}, {6000, 0}, {6000, 4000}, {0, 4000}}};
    const PerspectiveMatrix ml = *perspectiveTransform(frame, l), mr = *perspectiveTransform(frame, r);
    const cv::Mat left(4000, 6000, CV_8UC4, const_cast<uchar *>(proc.leftOriginal->constBits()));
    const cv::Mat right(4000, 6000, CV_8UC4, const_cast<uchar *>(proc.rightOriginal->constBits()));
    cv::Mat outL, outR;
    for (auto _ : state) {
        cv::warpPerspective(left, outL, cv::Mat(3, 3, CV_64F, const_cast<double *>(ml.data())), left.size());
        cv::warpPerspective(right, outR, cv::Mat(3, 3, CV_64F, const_cast<double *>(mr.data())), right.size());
        benchmark::DoNotOptimize(outL.data);
        benchmark::DoNotOptimize(outR.data);
    }
}
BENCHMARK(BM_OpenCvTwoWarps24MP)->Unit(benchmark::kMillisecond)->UseRealTime();
#endif

// A slider drag on the adjustment page: every step re-renders from the ~1600 px preview copies.
void BM_SliderRenderFromPreviewCache(benchmark::State &state)
{
    StereoImageProcessor proc;
    proc.loadPair(testCard(6000, 4000, 1), testCard(6000, 4000, 2), false);
    proc.nTab = StereoImageProcessor::previewTab;
    proc.makePreviewCache(1600, 1600);
    double step = 0;
    for (auto _ : state) {
        proc.adjustment = {step, 0.5, 1.0, 2.0};
        step = step > 5 ? 0 : step + 0.1;
        benchmark::DoNotOptimize(proc.render(true));
    }
}
BENCHMARK(BM_SliderRenderFromPreviewCache)->Unit(benchmark::kMillisecond)->UseRealTime();

// Open an 8000x3000 side-by-side JPEG (decode + split + render) and save it as a Dubois JPEG.
void BM_OpenSideBySideSaveDuboisJpeg(benchmark::State &state)
{
    QTemporaryDir dir;
    const QString input = dir.filePath(QStringLiteral("sbs.jpg"));
    const QString output = dir.filePath(QStringLiteral("dubois.jpg"));
    if (!writeImage(testCard(8000, 3000, 3), input)) {
        state.SkipWithError("cannot write the input JPEG");
        return;
    }
    for (auto _ : state) {
        StereoImageProcessor proc;
        openEntry(proc, {input, {}});
        const std::optional<QImage> anaglyph = proc.renderAnaglyph(2, false);
        benchmark::DoNotOptimize(anaglyph && writeImage(*anaglyph, output));
    }
}
BENCHMARK(BM_OpenSideBySideSaveDuboisJpeg)->Unit(benchmark::kMillisecond)->UseRealTime();

// The compose steps alone on the 24-megapixel views, each beside its yardstick: the same
// anaglyph formula as a plain loop compiled with -O3 -march=native, and memcpy of the bytes the
// squeeze and the side-by-side composition move. Argument: anaglyph kind.
void BM_ComposeAnaglyph24MP(benchmark::State &state)
{
    const StereoImageProcessor &proc = pair24();
    for (auto _ : state)
        benchmark::DoNotOptimize(composeAnaglyph(*proc.leftOriginal, *proc.rightOriginal, int(state.range(0))));
}
BENCHMARK(BM_ComposeAnaglyph24MP)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_PlainAnaglyphLoop24MP(benchmark::State &state)
{
    const StereoImageProcessor &proc = pair24();
    const QImage &a = *proc.leftOriginal, &b = *proc.rightOriginal;
    QImage out(a.size(), QImage::Format_RGB32);
    for (auto _ : state) {
        Bench::plainAnaglyphLoop(reinterpret_cast<const uint32_t *>(a.constBits()),
                                 reinterpret_cast<const uint32_t *>(b.constBits()),
                                 reinterpret_cast<uint32_t *>(out.bits()), int64_t(a.width()) * a.height(),
                                 int(state.range(0)));
        benchmark::DoNotOptimize(out.constBits());
    }
}
BENCHMARK(BM_PlainAnaglyphLoop24MP)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_HalfWidth24MP(benchmark::State &state)
{
    const StereoImageProcessor &proc = pair24();
    for (auto _ : state)
        benchmark::DoNotOptimize(halfWidth(*proc.leftOriginal));
}
BENCHMARK(BM_HalfWidth24MP)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_SideBySide24MP(benchmark::State &state)
{
    const StereoImageProcessor &proc = pair24();
    for (auto _ : state)
        benchmark::DoNotOptimize(composeSideBySide(*proc.leftOriginal, *proc.rightOriginal));
}
BENCHMARK(BM_SideBySide24MP)->Unit(benchmark::kMillisecond)->UseRealTime();

// memcpy of one view (argument 1) or of both (argument 2) into a buffer made beforehand.
void BM_MemcpyViews24MP(benchmark::State &state)
{
    const StereoImageProcessor &proc = pair24();
    const QImage *views[2] = {&*proc.leftOriginal, &*proc.rightOriginal};
    const size_t bytes = size_t(views[0]->sizeInBytes());
    std::vector<uint8_t> out(bytes * 2);
    for (auto _ : state) {
        for (int i = 0; i < state.range(0); ++i)
            std::memcpy(out.data() + bytes * i, views[i]->constBits(), bytes);
        benchmark::DoNotOptimize(out.data());
    }
}
BENCHMARK(BM_MemcpyViews24MP)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
