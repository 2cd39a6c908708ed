// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Speed of the automatic alignment and colour matching on real photographs: keypoints of an
// 800x600 and a 1282x1110 image, matching 3000 x 3000 keypoints, the estimator, a whole
// alignment of a 12-megapixel pair, and colour matching of a 24-megapixel pair against one read
// of both its views.
// Run pinned to one core (`taskset -c 0`) for single-core figures.
#include <algorithm>
#include <atomic>

#include <benchmark/benchmark.h>

#ifdef VOREL_BENCH_WITH_OPENCV_SIFT
#include <opencv2/features2d.hpp>
#endif

#include "align/analysisimage.h"
#include "align/autoalign.h"
#include "align/colormatching.h"
#include "align/keypointmatcher.h"
#include "align/sift.h"
#include "core/displaycomposition.h"
#include "core/parallelrows.h"
#include "formats/imagereader.h"

using namespace Vorel;

namespace {

QImage photo(const char *name)
{
    return loadCorrectImageOriented(QString(VOREL_TEST_DATA "/stereo/") + name).value_or(QImage());
}

SiftImage<uint8_t> gray(const QImage &image, int64_t w, int64_t h)
{
    return grayImage(resampleBilinear(image, w, h));
}

const SiftImage<uint8_t> &photo800x600()
{
    static const SiftImage<uint8_t> image = gray(photo("Panasonic-DMC-GX8-left.jpg"), 800, 600);
    return image;
}

const SiftImage<uint8_t> &aloe()
{
    static const SiftImage<uint8_t> image = gray(photo("aloeL.jpg"), 1282, 1110);
    return image;
}

void siftOn(benchmark::State &state, const SiftImage<uint8_t> &image)
{
    size_t count = 0;
    for (auto _ : state)
        count = computeSiftFeatures(image).size();
    state.counters["keypoints"] = static_cast<double>(count);
}

void BM_Sift800x600Photo(benchmark::State &state) { siftOn(state, photo800x600()); }
void BM_Sift1282x1110Aloe(benchmark::State &state) { siftOn(state, aloe()); }
BENCHMARK(BM_Sift800x600Photo)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Sift1282x1110Aloe)->Unit(benchmark::kMillisecond);

#ifdef VOREL_BENCH_WITH_OPENCV_SIFT
// The yardstick: OpenCV's SIFT with default parameters on the same image.
void BM_OpenCvSift800x600Photo(benchmark::State &state)
{
    const SiftImage<uint8_t> &image = photo800x600();
    const cv::Mat mat(static_cast<int>(image.h), static_cast<int>(image.w), CV_8UC1,
                      const_cast<uint8_t *>(image.data.data()));
    cv::Ptr<cv::SIFT> sift = cv::SIFT::create();
    std::vector<cv::KeyPoint> keypoints;
    cv::Mat descriptors;
    for (auto _ : state) {
        keypoints.clear();
        sift->detectAndCompute(mat, cv::noArray(), keypoints, descriptors);
    }
    state.counters["keypoints"] = static_cast<double>(keypoints.size());
}
BENCHMARK(BM_OpenCvSift800x600Photo)->Unit(benchmark::kMillisecond);
#endif

void BM_MatchKeypoints3000(benchmark::State &state)
{
    static const auto lists = [] {
        std::vector<SiftKeypoint> left = computeSiftFeatures(gray(photo("aloeL.jpg"), 800, 692));
        std::vector<SiftKeypoint> right = computeSiftFeatures(gray(photo("aloeR.jpg"), 800, 692));
        left.resize(std::min<size_t>(left.size(), 3000));
        right.resize(std::min<size_t>(right.size(), 3000));
        return std::pair{left, right};
    }();
    size_t count = 0;
    for (auto _ : state)
        count = matchKeypoints(lists.first, lists.second).size();
    state.counters["matches"] = static_cast<double>(count);
}
BENCHMARK(BM_MatchKeypoints3000)->Unit(benchmark::kMillisecond);

void BM_EstimatorOnRealPair(benchmark::State &state)
{
    static const AlignmentEstimator table =
        *findCorrespondences(photo("Panasonic-DMC-GX8-left.jpg"), photo("Panasonic-DMC-GX8-right.jpg"));
    for (auto _ : state) {
        AlignmentEstimator estimator = table;
        benchmark::DoNotOptimize(estimator.estimate());
    }
    state.counters["points"] = static_cast<double>(table.points().size());
}
BENCHMARK(BM_EstimatorOnRealPair)->Unit(benchmark::kMillisecond);

void BM_AutoAlign12Megapixels(benchmark::State &state)
{
    static const QImage left = photo("Panasonic-DMC-GX8-left.jpg").scaled(4000, 3000).convertToFormat(QImage::Format_RGB32);
    static const QImage right =
        photo("Panasonic-DMC-GX8-right.jpg").scaled(4000, 3000).convertToFormat(QImage::Format_RGB32);
    for (auto _ : state)
        benchmark::DoNotOptimize(autoAlign(left, right));
}
BENCHMARK(BM_AutoAlign12Megapixels)->Unit(benchmark::kMillisecond)->Iterations(3);

// A 24-megapixel pair as the window holds it (32-bit pixels), scaled from a real stereo pair.
struct Pair24Megapixels {
    QImage reference = photo("aloeL.jpg").scaled(6000, 4000).convertToFormat(QImage::Format_RGB32);
    QImage target = photo("aloeR.jpg").scaled(6000, 4000).convertToFormat(QImage::Format_RGB32);
};

const Pair24Megapixels &pair24Megapixels()
{
    static const Pair24Megapixels pair;
    return pair;
}

// The yardstick: one read of both views, 64-bit words summed over the rows on every core.
void BM_ReadBothViews24Megapixels(benchmark::State &state)
{
    const QImage *views[] = {&pair24Megapixels().reference, &pair24Megapixels().target};
    const int64_t h = views[0]->height();
    for (auto _ : state) {
        std::atomic<uint64_t> total = 0;
        parallelRows(2 * h, [&](int64_t first, int64_t end) {
            uint64_t sum = 0;
            for (int64_t row = first; row < end; ++row) {
                const QImage &view = *views[row / h];
                const auto *words = reinterpret_cast<const uint64_t *>(view.constScanLine(static_cast<int>(row % h)));
                const int64_t count = view.bytesPerLine() / 8;
                for (int64_t i = 0; i < count; ++i)
                    sum += words[i];
            }
            total += sum;
        });
        benchmark::DoNotOptimize(total.load());
    }
}
BENCHMARK(BM_ReadBothViews24Megapixels)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

// The product's path: both views as 32-bit images, the corrected target a new image.
void BM_MatchColors24Megapixels(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(matchColors(pair24Megapixels().reference, pair24Megapixels().target));
}
BENCHMARK(BM_MatchColors24Megapixels)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

void BM_MatchColorsRgbBuffers24Megapixels(benchmark::State &state)
{
    static const RgbBuffer reference = *imageToRGB(pair24Megapixels().reference);
    static const RgbBuffer target = *imageToRGB(pair24Megapixels().target);
    for (auto _ : state)
        benchmark::DoNotOptimize(matchColors(reference, target));
}
BENCHMARK(BM_MatchColorsRgbBuffers24Megapixels)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

} // namespace

BENCHMARK_MAIN();
