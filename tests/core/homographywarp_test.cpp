// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The warp kernels (scalar, AVX2, AVX-512: whichever this processor runs) against the scalar
// formula written out here, bit for bit, over random matrices, sizes and regions; and the row
// copy of identity and integer translations against the general path.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <random>
#include <string>
#include <vector>

#include <sys/mman.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "core/displaycomposition.h"
#include "core/homographywarp.h"
#include "tests/core/noiseimage.h"
#include "tests/core/referencewarp.h"

using namespace Vorel;
using TestReference::noiseImage;
using TestReference::referenceWarp;

namespace {

std::vector<uint8_t> noise(size_t bytes, unsigned seed)
{
    std::mt19937 rng(seed);
    std::vector<uint8_t> data(bytes);
    for (uint8_t &b : data)
        b = static_cast<uint8_t>(rng());
    return data;
}

// The matrix mapping the frame corners onto moved corners (the kernels only need some matrix).
PerspectiveMatrix frameTo(double w, double h, const double (&to)[4][2])
{
    const CornerPoints frame{{{0, 0}, {float(w), 0}, {float(w), float(h)}, {0, float(h)}}};
    CornerPoints moved;
    for (int i = 0; i < 4; ++i)
        moved[size_t(i)] = {float(to[i][0]), float(to[i][1])};
    return perspectiveTransform(frame, moved).value();
}

// Random matrices of every kind the kernels treat differently: mild perspective (the display
// adjustments), strong perspective with the horizon inside the frame (|w'| < 1e-12 and
// negative w'), affine ones with an exact (0, 0, 1) last row (no division), mirrored and
// rotated ones (pixels not in increasing memory order), magnifications and reductions.
std::vector<PerspectiveMatrix> randomMatrices(int64_t w, int64_t h, unsigned seed)
{
    std::mt19937 rng(seed);
    std::uniform_real_distribution<double> unit(-1, 1);
    const double W = double(w), H = double(h);
    std::vector<PerspectiveMatrix> matrices;
    for (int i = 0; i < 6; ++i) { // mild: corners moved by a few percent
        double to[4][2] = {{0, 0}, {W, 0}, {W, H}, {0, H}};
        for (auto &p : to) {
            p[0] += unit(rng) * 0.04 * W;
            p[1] += unit(rng) * 0.04 * H;
        }
        matrices.push_back(frameTo(W, H, to));
    }
    for (int i = 0; i < 3; ++i) { // strong perspective
        double to[4][2] = {{0, 0}, {W, 0}, {W, H}, {0, H}};
        for (auto &p : to) {
            p[0] += unit(rng) * 0.6 * W;
            p[1] += unit(rng) * 0.6 * H;
        }
        matrices.push_back(frameTo(W, H, to));
    }
    const double angle = unit(rng) * 3.2, scale = 1 + unit(rng) * 0.5;
    const double c = std::cos(angle) * scale, s = std::sin(angle) * scale;
    matrices.push_back({c, -s, W * unit(rng), s, c, H * unit(rng), 0, 0, 1});   // rotation, exact affine
    matrices.push_back({-1, 0, W - 1, 0, 1, 0, 0, 0, 1});                        // mirror
    matrices.push_back({0, 1, 0, 1, 0, 0, 0, 0, 1});                             // transpose
    matrices.push_back({0.37, 0.01, 2.5, -0.02, 0.41, 1.25, 0, 0, 1});           // magnified ~2.6x
    matrices.push_back({2.9, 0.2, -3, 0.1, 3.1, -1, 0, 0, 1});                   // reduced ~3x
    matrices.push_back({1, 0, 0.5, 0, 1, -0.25, 0, 0, 1});                       // half-pixel shift
    matrices.push_back({1, 0, 0, 0, 1, 0, -1.0 / std::max(W, 2.0), 0, 1});       // horizon at x = W
    matrices.push_back({1.01, 0.002, -3, -0.003, 0.99, 2, 1e-5, -2e-5, 1});     // display-like
    return matrices;
}

struct Frame {
    int64_t w, h;
};

struct Region {
    int64_t x0, y0, width, height;
};

const char *name(WarpKernel kernel) { return std::array{"automatic", "scalar", "avx2", "avx512"}[size_t(kernel)]; }

// The kernels this processor runs, the automatic choice first.
std::vector<WarpKernel> runnableKernels()
{
    std::vector<WarpKernel> kernels;
    for (const WarpKernel kernel : {WarpKernel::automatic, WarpKernel::scalar, WarpKernel::avx2, WarpKernel::avx512})
        if (warpKernelAvailable(kernel))
            kernels.push_back(kernel);
    return kernels;
}

// One warp of the region; empty when the warp refuses, as the reference is for a singular
// matrix. Bytes between output rows are not the warp's: they are zeroed like the reference's.
std::vector<uint8_t> warped(const uint8_t *source, const PixelLayout &src, const PerspectiveMatrix &m, const Region &r,
                            const PixelLayout &dst, uint32_t background, WarpOptions options)
{
    std::vector<uint8_t> out(static_cast<size_t>(r.height * dst.rowStride), 0xcd);
    if (!warpPerspectiveRegion(source, src, m, r.x0, r.y0, r.width, r.height, out.data(), dst, background, options))
        return {};
    for (int64_t y = 0; y < r.height; ++y)
        std::fill_n(out.begin() + y * dst.rowStride + r.width * dst.pixelStride,
                    dst.rowStride - r.width * dst.pixelStride, 0);
    return out;
}

// Empty when the pictures are equal, else where they first differ: a failure that says which
// pixel and byte is far easier to chase than two dumped buffers.
std::string difference(const std::vector<uint8_t> &have, const std::vector<uint8_t> &want, const PixelLayout &dst)
{
    if (have.size() != want.size())
        return std::to_string(have.size()) + " bytes instead of " + std::to_string(want.size());
    const auto at = std::mismatch(have.begin(), have.end(), want.begin()).first;
    if (at == have.end())
        return {};
    const int64_t i = at - have.begin();
    return "pixel (" + std::to_string(i % dst.rowStride / dst.pixelStride) + "," + std::to_string(i / dst.rowStride) +
           ") byte " + std::to_string(i % dst.pixelStride) + ": " + std::to_string(have[size_t(i)]) + " instead of " +
           std::to_string(want[size_t(i)]);
}

class WarpKernelTable : public testing::TestWithParam<Frame> {};

// Every kernel this processor runs equals the formula on every byte, over the whole frame and
// over regions reaching outside it, with padded source rows and two backgrounds.
TEST_P(WarpKernelTable, EveryKernelEqualsTheScalarFormula)
{
    const Frame f = GetParam();
    const PixelLayout src{f.w, f.h, f.w * 4 + 8, 4, 3};
    const std::vector<uint8_t> source = noise(static_cast<size_t>(f.h * src.rowStride), unsigned(f.w * 31 + f.h));
    const Region regions[] = {
        {0, 0, f.w, f.h}, {f.w / 3, f.h / 4, f.w - f.w / 3, (f.h + 1) / 2}, {-5, -3, f.w + 11, f.h + 7}};
    for (const PerspectiveMatrix &m : randomMatrices(f.w, f.h, unsigned(f.w + 7 * f.h)))
        for (const Region &r : regions)
            for (const uint32_t background : {0xff000000u, 0x5a3c1e07u}) {
                const PixelLayout dst{r.width, r.height, r.width * 4 + 4, 4, 3};
                const std::vector<uint8_t> want =
                    referenceWarp(source, src, m, r.x0, r.y0, r.width, r.height, dst, background);
                for (const WarpKernel kernel : runnableKernels())
                    ASSERT_EQ(difference(warped(source.data(), src, m, r, dst, background, {kernel, false}), want, dst),
                              "")
                        << name(kernel) << " region " << r.x0 << "," << r.y0 << " " << r.width << "x" << r.height
                        << "; " << testing::PrintToString(m);
            }
}

INSTANTIATE_TEST_SUITE_P(Sizes, WarpKernelTable,
                         testing::Values(Frame{1, 1}, Frame{2, 2}, Frame{1, 7}, Frame{9, 1}, Frame{3, 5},
                                         Frame{7, 4}, Frame{17, 9}, Frame{33, 21}, Frame{63, 40}, Frame{129, 131},
                                         Frame{301, 199}),
                         [](const testing::TestParamInfo<Frame> &info) {
                             return std::to_string(info.param.w) + "x" + std::to_string(info.param.h);
                         });

// A large display-like pair over both cores: rows split in blocks, same bytes as one core's
// formula; the source rows are a column view of a wider picture (row stride of twice the width).
TEST(WarpKernelTable, LargeDisplayWarpEqualsTheFormula)
{
    const int64_t w = 1531, h = 1027;
    const PixelLayout wide{2 * w, h, 2 * w * 4, 4, 3};
    const std::vector<uint8_t> picture = noise(static_cast<size_t>(h * wide.rowStride), 99);
    const PixelLayout right{w, h, wide.rowStride, 4, 3};
    std::vector<uint8_t> view(picture.begin() + w * 4, picture.end()); // columns w .. 2w-1
    const double to[4][2] = {{9.5, -7.25}, {w + 3.75, 4.5}, {w - 12.0, h + 6.125}, {-4.0, h - 2.5}};
    const PerspectiveMatrix m = frameTo(double(w), double(h), to);
    const Region r{10, 15, w - 20, h - 30};
    const PixelLayout dst{r.width, r.height, r.width * 4, 4, 3};
    const std::vector<uint8_t> want = referenceWarp(view, right, m, r.x0, r.y0, r.width, r.height, dst, 0xff000000u);
    for (const WarpKernel kernel : runnableKernels())
        EXPECT_EQ(difference(warped(view.data(), right, m, r, dst, 0xff000000u, {kernel, true}), want, dst), "")
            << name(kernel);
}

// Pixels in guarded memory: the page before the first byte and the page after the last byte
// cannot be read, so a kernel that reads outside the picture (a vector load past its last
// pixel, say) crashes the test.
class GuardedPixels {
public:
    GuardedPixels(size_t bytes, bool endAtGuard)
    {
        const size_t page = size_t(sysconf(_SC_PAGESIZE));
        const size_t inner = (bytes + page - 1) / page * page;
        span_ = inner + 2 * page;
        auto *base = static_cast<uint8_t *>(mmap(nullptr, span_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        mapping_ = base;
        mprotect(base + page, inner, PROT_READ | PROT_WRITE);
        data_ = endAtGuard ? base + page + inner - bytes : base + page;
        const std::vector<uint8_t> values = noise(bytes, unsigned(bytes));
        std::copy(values.begin(), values.end(), data_);
        bytes_ = bytes;
    }
    ~GuardedPixels() { munmap(mapping_, span_); }
    const uint8_t *data() const { return data_; }
    std::vector<uint8_t> copy() const { return std::vector<uint8_t>(data_, data_ + bytes_); }

private:
    void *mapping_ = nullptr;
    uint8_t *data_ = nullptr;
    size_t span_ = 0, bytes_ = 0;
};

// Regions along the last and first source rows and columns, at every alignment of the eight-
// pixel blocks, with sub-pixel shifts: every kernel stays inside the picture's bytes (the last
// row has no padding here) and equals the formula.
TEST(WarpKernelTable, KernelsReadOnlyThePicturesBytes)
{
    const int64_t w = 45, h = 7;
    const PixelLayout src{w, h, w * 4, 4, 3};
    const size_t bytes = size_t((h - 1) * src.rowStride + w * 4);
    const PerspectiveMatrix shifts[] = {{1, 0, 0.5, 0, 1, 0.75, 0, 0, 1},
                                        {1, 0, -0.5, 0, 1, -0.25, 0, 0, 1},
                                        {0.999, 0, 0.01, 0, 1, 0.5, 1e-6, 0, 1},
                                        {-1, 0, w - 1.5, 0, -1, h - 1.5, 0, 0, 1}};
    const PixelLayout dst{w, h, w * 4, 4, 3};
    const uint32_t black = 0xff000000u;
    for (const bool endAtGuard : {true, false}) {
        const GuardedPixels pixels(bytes, endAtGuard);
        for (const PerspectiveMatrix &m : shifts)
            for (int64_t x0 = -16; x0 <= 16; ++x0) {
                const Region r{x0, 0, w, h};
                const std::vector<uint8_t> want = referenceWarp(pixels.copy(), src, m, x0, 0, w, h, dst, black);
                for (const WarpKernel kernel : runnableKernels())
                    EXPECT_EQ(difference(warped(pixels.data(), src, m, r, dst, black, {kernel, false}), want, dst), "")
                        << name(kernel) << " x0 " << x0 << "; " << testing::PrintToString(m);
            }
    }
}

TEST(WarpKernelTable, AutomaticTakesTheWidestKernelAndScalarAlwaysRuns)
{
    EXPECT_TRUE(warpKernelAvailable(WarpKernel::scalar));
    EXPECT_TRUE(warpKernelAvailable(WarpKernel::automatic));
#if defined(__x86_64__)
    EXPECT_EQ(warpKernelAvailable(WarpKernel::avx2), bool(__builtin_cpu_supports("avx2")));
    if (!warpKernelAvailable(WarpKernel::avx512))
        std::printf("note: this processor does not run the AVX-512 kernel; it was not checked\n");
#endif
}

// Identity and integer translations: the row copy equals the general path of every kernel on
// every byte (the last row and column black, pixels outside the source black), for 4-byte,
// RGB and gray layouts. Anything short of an exact translation takes the general path.
TEST(WarpRowCopy, IdentityAndIntegerTranslationsEqualTheGeneralPath)
{
    for (const PerspectiveMatrix &m : {PerspectiveMatrix{1, 0, 0.5, 0, 1, 0, 0, 0, 1},
                                       PerspectiveMatrix{1, 0, 3, 0, 1, 0, 1e-300, 0, 1},
                                       PerspectiveMatrix{1 + 1e-16 * 2, 0, 0, 0, 1, 0, 0, 0, 1}})
        EXPECT_FALSE(warpCopiesRows(m)) << testing::PrintToString(m);
    const int64_t w = 203, h = 77;
    const PerspectiveMatrix translations[] = {{1, 0, 0, 0, 1, 0, 0, 0, 1},    {1, 0, 12, 0, 1, 0, 0, 0, 1},
                                              {1, 0, -7, 0, 1, 3, 0, 0, 1},   {1, 0, 0, 0, 1, -40, 0, 0, 1},
                                              {1, 0, 250, 0, 1, 0, 0, 0, 1},  {1, 0, -1, 0, 1, -1, 0, 0, 1},
                                              {1, -0.0, 5, 0, 1, 2, -0.0, 0, 1}};
    for (const PerspectiveMatrix &m : translations) {
        EXPECT_TRUE(warpCopiesRows(m)) << testing::PrintToString(m);
        for (const int pixelStride : {4, 3, 1}) {
            const int channels = pixelStride == 4 ? 3 : pixelStride;
            const PixelLayout src{w, h, w * pixelStride + (pixelStride == 4 ? 4 : 0), pixelStride, channels};
            const std::vector<uint8_t> source = noise(static_cast<size_t>(h * src.rowStride), 5);
            const uint32_t background = pixelStride == 4 ? 0xff000000u : 0;
            for (const int64_t x0 : {int64_t{0}, int64_t{-9}, int64_t{31}}) {
                const Region r{x0, x0 / 3, w - 20, h - 5};
                const PixelLayout dst{r.width, r.height, r.width * pixelStride, pixelStride, channels};
                const std::string where = "stride " + std::to_string(pixelStride) + " x0 " + std::to_string(x0) + " " +
                                          testing::PrintToString(m);
                const auto copied = warped(source.data(), src, m, r, dst, background, {WarpKernel::automatic, true});
                const auto want = referenceWarp(source, src, m, r.x0, r.y0, r.width, r.height, dst, background);
                EXPECT_EQ(difference(copied, want, dst), "") << where;
                for (const WarpKernel kernel : runnableKernels()) {
                    const auto computed = warped(source.data(), src, m, r, dst, background, {kernel, false});
                    EXPECT_EQ(difference(computed, copied, dst), "") << name(kernel) << " " << where;
                }
            }
        }
    }
}

TEST(WarpRowCopy, SingularMatrixWritesNothing)
{
    const PixelLayout layout{4, 4, 16, 4, 3};
    std::vector<uint8_t> source(64, 7), out(64, 0xee);
    EXPECT_FALSE(warpPerspectiveRegion(source.data(), layout, {1, 2, 3, 2, 4, 6, 0, 0, 1}, 0, 0, 4, 4, out.data(),
                                       layout, 0xff000000u));
    EXPECT_EQ(out, std::vector<uint8_t>(64, 0xee));
}

// The band stream of the adjusted pair carries exactly adjustPair's pixels, every row once.
TEST(StreamAdjustedPair, BandsEqualAdjustPair)
{
    const struct {
        int w, h;
        StereoAdjustment a;
    } cases[] = {{1, 1, {}},
                 {97, 61, {}},
                 {97, 61, {3, -2, 0, 0}},
                 {640, 480, {1, 0.5, 0.3, 0.5}},
                 {1203, 517, {-2.5, 1.25, -7, 12}},
                 {300, 200, {250, 0, 0, 0}}};
    for (const auto &c : cases) {
        const QImage left = noiseImage(c.w, c.h, 1), right = noiseImage(c.w, c.h, 2);
        const std::optional<ImagePair> pair = adjustPair(left, right, c.a);
        QImage streamedLeft, streamedRight;
        std::vector<int> seen;
        std::mutex lock;
        const bool streamed = streamAdjustedPair(
            left, right, c.a,
            [&](QSize size) {
                streamedLeft = QImage(size, QImage::Format_RGB32);
                streamedRight = QImage(size, QImage::Format_RGB32);
                seen.assign(size_t(size.height()), 0);
                return true;
            },
            [&](int64_t first, int64_t count, const uint8_t *l, const uint8_t *r, int64_t stride) {
                const size_t bytes = size_t(streamedLeft.width()) * 4;
                for (int64_t y = 0; y < count; ++y) {
                    std::memcpy(streamedLeft.scanLine(int(first + y)), l + y * stride, bytes);
                    std::memcpy(streamedRight.scanLine(int(first + y)), r + y * stride, bytes);
                }
                const std::lock_guard guard(lock);
                for (int64_t y = first; y < first + count; ++y)
                    ++seen[size_t(y)];
            });
        ASSERT_EQ(streamed, bool(pair)) << c.w << "x" << c.h;
        if (!pair)
            continue;
        EXPECT_EQ(seen, std::vector<int>(seen.size(), 1));
        EXPECT_TRUE(streamedLeft == pair->left) << c.w << "x" << c.h;
        EXPECT_TRUE(streamedRight == pair->right) << c.w << "x" << c.h;
    }
}

TEST(StreamAdjustedPair, GivingUpAtTheSizeStreamsNothing)
{
    const QImage image = noiseImage(50, 40, 3);
    int bands = 0;
    EXPECT_FALSE(streamAdjustedPair(
        image, image, {}, [](QSize size) { return size != QSize(50, 40); },
        [&](int64_t, int64_t, const uint8_t *, const uint8_t *, int64_t) { ++bands; }));
    EXPECT_EQ(bands, 0);
    EXPECT_FALSE(streamAdjustedPair(image, noiseImage(50, 41, 3), {}, [](QSize) { return true; },
                                    [&](int64_t, int64_t, const uint8_t *, const uint8_t *, int64_t) { ++bands; }));
    EXPECT_EQ(bands, 0);
}

} // namespace
