// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Rendering speed of the stereo pair core: full-size adjusted render (against two bilinear
// cv::warpPerspective calls when OpenCV is there, and each warp kernel alone) and Dubois
// anaglyph of a 24-megapixel pair, slider re-render from the preview cache, open-render-save
// of a large side-by-side JPEG, and the anaglyphs and layouts of a 12-megapixel pair. Run pinned to one core (`taskset -c 0`) for
// single-core figures.
#include <algorithm>
#include <array>
#include <cstring>
#include <random>
#include <vector>

#include <QDir>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#ifdef VOREL_BENCH_WITH_OPENCV
#include <opencv2/imgproc.hpp>
#endif

#include "core/anaglyphrows.h"
#include "core/displaycomposition.h"
#include "core/homographywarp.h"
#include "core/largebuffer.h"
#include "core/parallelrows.h"
#include "core/stereoimageprocessor.h"
#include "core/stereointake.h"
#include "core/stereolayouts.h"
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
// Time: wall clock; CPU: all threads of the process (the warp runs on both cores).
BENCHMARK(BM_Render24MP)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

void BM_DuboisAnaglyph24MP(benchmark::State &state)
{
    StereoImageProcessor &proc = pair24();
    for (auto _ : state)
        benchmark::DoNotOptimize(proc.renderAnaglyph(2, false));
}
BENCHMARK(BM_DuboisAnaglyph24MP)->Unit(benchmark::kMillisecond)->UseRealTime();

// The same Dubois anaglyph composed from the adjusted pair's row bands as they are warped: no
// full-size warped pictures, only the output.
void BM_DuboisAnaglyphStreamed24MP(benchmark::State &state)
{
    StereoImageProcessor &proc = pair24();
    const AnaglyphDetail::AnaglyphRow dubois = AnaglyphDetail::anaglyphRow(2);
    for (auto _ : state) {
        QImage output;
        streamAdjustedPair(
            *proc.leftOriginal, *proc.rightOriginal, proc.adjustment,
            [&](QSize size) {
                output = newLargeImage(size.width(), size.height(), QImage::Format_RGB32);
                return !output.isNull();
            },
            [&](int64_t first, int64_t count, const uint8_t *left, const uint8_t *right, int64_t stride) {
                for (int64_t y = 0; y < count; ++y)
                    dubois(reinterpret_cast<const uint32_t *>(left + y * stride),
                           reinterpret_cast<const uint32_t *>(right + y * stride),
                           reinterpret_cast<uint32_t *>(output.scanLine(int(first + y))), output.width());
            });
        benchmark::DoNotOptimize(output.constBits());
    }
}
BENCHMARK(BM_DuboisAnaglyphStreamed24MP)->Unit(benchmark::kMillisecond)->UseRealTime();

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
BENCHMARK(BM_OpenCvTwoWarps24MP)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();
#endif

// The warp kernels alone, each forced (0 scalar, 1 AVX2, 2 AVX-512), on the typical
// adjustment's pair: two region warps of the common area into reused outputs.
void BM_WarpKernel24MP(benchmark::State &state)
{
    const WarpKernel kernel = std::array{WarpKernel::scalar, WarpKernel::avx2, WarpKernel::avx512}[state.range(0)];
    if (!warpKernelAvailable(kernel)) {
        state.SkipWithError("this processor does not run the kernel");
        return;
    }
    const StereoImageProcessor &proc = pair24();
    const auto [l, r] = adjustedCorners(6000, 4000, typicalAdjustment);
    const CornerPoints frame{{{0, 0}, {6000, 0}, {6000, 4000}, {0, 4000}}};
    const PerspectiveMatrix ml = *perspectiveTransform(frame, l), mr = *perspectiveTransform(frame, r);
    // The common area, as adjustPair cuts it.
    const float leftBound = std::max({0.0f, l[0].x, l[3].x, r[0].x, r[3].x});
    const float topBound = std::max({0.0f, l[0].y, l[1].y, r[0].y, r[1].y});
    const float rightBound = std::min({6000.0f, l[1].x, l[2].x, r[1].x, r[2].x});
    const float bottomBound = std::min({4000.0f, l[2].y, l[3].y, r[2].y, r[3].y});
    const int64_t x0 = int64_t(leftBound), y0 = int64_t(topBound);
    const int64_t w = int64_t(rightBound - leftBound), h = int64_t(bottomBound - topBound);
    const PixelLayout source{6000, 4000, 6000 * 4, 4, 3}, target{w, h, w * 4, 4, 3};
    std::vector<uint32_t> outL(size_t(w * h)), outR(size_t(w * h));
    for (auto _ : state) {
        warpPerspectiveRegion(proc.leftOriginal->constBits(), source, ml, x0, y0, w, h,
                              reinterpret_cast<uint8_t *>(outL.data()), target, 0xff000000u, {kernel, true});
        warpPerspectiveRegion(proc.rightOriginal->constBits(), source, mr, x0, y0, w, h,
                              reinterpret_cast<uint8_t *>(outR.data()), target, 0xff000000u, {kernel, true});
        benchmark::DoNotOptimize(outL.data());
        benchmark::DoNotOptimize(outR.data());
    }
    state.counters["MP/s"] =
        benchmark::Counter(double(2 * w * h) * 1e-6, benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(BM_WarpKernel24MP)
    ->Arg(0)
    ->Arg(1)
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime();

// Nothing adjusted: the solved matrices are exactly the identity, so the render is a row copy
// (arg 1); arg 0 computes the same bytes through the per-pixel kernel, for comparison.
void BM_RenderIdentity24MP(benchmark::State &state)
{
    const StereoImageProcessor &proc = pair24();
    const PerspectiveMatrix identity{1, 0, 0, 0, 1, 0, 0, 0, 1};
    const PixelLayout layout{6000, 4000, 6000 * 4, 4, 3};
    std::vector<uint32_t> outL(6000 * 4000), outR(6000 * 4000);
    const WarpOptions options{WarpKernel::automatic, state.range(0) == 1};
    for (auto _ : state) {
        warpPerspectiveRegion(proc.leftOriginal->constBits(), layout, identity, 0, 0, 6000, 4000,
                              reinterpret_cast<uint8_t *>(outL.data()), layout, 0xff000000u, options);
        warpPerspectiveRegion(proc.rightOriginal->constBits(), layout, identity, 0, 0, 6000, 4000,
                              reinterpret_cast<uint8_t *>(outR.data()), layout, 0xff000000u, options);
        benchmark::DoNotOptimize(outL.data());
        benchmark::DoNotOptimize(outR.data());
    }
}
BENCHMARK(BM_RenderIdentity24MP)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

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

// The new display pictures on a 12-megapixel pair, in time per pixel of one view: every matrix
// anaglyph beside the red-cyan Dubois kernel they share, the layouts beside memcpy of the same
// bytes over both cores (one view's bytes for the anaglyphs and interlaced pictures, both views'
// for over/under).
constexpr int width12MP = 4000, height12MP = 3000;

const ImagePair &pair12()
{
    static const ImagePair pair{testCard(width12MP, height12MP, 1), testCard(width12MP, height12MP, 2)};
    return pair;
}

void perViewPixel(benchmark::State &state)
{
    state.counters["per_px"] = benchmark::Counter(double(width12MP) * height12MP,
                                                  benchmark::Counter::kIsIterationInvariantRate |
                                                      benchmark::Counter::kInvert);
}

// Other work on the machine only ever adds time: with repetitions, the fastest run is the figure.
double fastest(const std::vector<double> &runs) { return *std::min_element(runs.begin(), runs.end()); }

void BM_Anaglyph12MP(benchmark::State &state)
{
    const ImagePair &pair = pair12();
    for (auto _ : state)
        benchmark::DoNotOptimize(composeAnaglyph(pair.left, pair.right, int(state.range(0))));
    perViewPixel(state);
}
BENCHMARK(BM_Anaglyph12MP)
    ->ArgName("kind")
    ->DenseRange(AnaglyphKind::duboisRedCyan, AnaglyphKind::optimised)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->ComputeStatistics("min", fastest);

void BM_Layout12MP(benchmark::State &state)
{
    const ImagePair &pair = pair12();
    for (auto _ : state)
        benchmark::DoNotOptimize(composeLayout(pair.left, pair.right, StereoLayout(state.range(0))));
    perViewPixel(state);
}
// 0 over/under, 1 half over/under, 2 row interlace, 3 column interlace, 4 checkerboard.
BENCHMARK(BM_Layout12MP)
    ->ArgName("layout")
    ->DenseRange(0, 4)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->ComputeStatistics("min", fastest);

void BM_MemcpyViews12MP(benchmark::State &state)
{
    const ImagePair &pair = pair12();
    const QImage *views[2] = {&pair.left, &pair.right};
    const int64_t count = state.range(0);
    const size_t rowBytes = size_t(width12MP) * 4;
    for (auto _ : state) {
        QImage out = newLargeImage(width12MP, int(height12MP * count), QImage::Format_RGB32);
        parallelRows(height12MP, [&](int64_t begin, int64_t end) {
            for (int64_t i = 0; i < count; ++i)
                for (int64_t y = begin; y < end; ++y)
                    std::memcpy(out.scanLine(int(i * height12MP + y)), views[i]->constScanLine(int(y)), rowBytes);
        });
        benchmark::DoNotOptimize(out.constBits());
    }
    perViewPixel(state);
}
BENCHMARK(BM_MemcpyViews12MP)
    ->ArgName("views")
    ->Arg(1)
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->ComputeStatistics("min", fastest);

} // namespace

BENCHMARK_MAIN();
