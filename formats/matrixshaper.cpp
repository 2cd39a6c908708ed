// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/matrixshaper.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include <lcms2.h>

#if defined(__SSE2__)
#include <immintrin.h>
#endif

namespace Vorel {

namespace {

using Matrix = std::array<std::array<double, 3>, 3>;

struct ProfileDeleter {
    void operator()(void *profile) const { cmsCloseProfile(profile); }
};
struct CurveDeleter {
    void operator()(cmsToneCurve *curve) const { cmsFreeToneCurve(curve); }
};

// Columns: the PCS XYZ of the red, green and blue colorants.
std::optional<Matrix> colorants(cmsHPROFILE profile)
{
    const cmsTagSignature tags[3] = {cmsSigRedColorantTag, cmsSigGreenColorantTag, cmsSigBlueColorantTag};
    Matrix m{};
    for (int c = 0; c < 3; ++c) {
        const auto *xyz = static_cast<const cmsCIEXYZ *>(cmsReadTag(profile, tags[c]));
        if (!xyz)
            return std::nullopt;
        m[0][c] = xyz->X;
        m[1][c] = xyz->Y;
        m[2][c] = xyz->Z;
    }
    return m;
}

std::optional<Matrix> inverse(const Matrix &m)
{
    const double det = m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
                       m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
                       m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
    if (!std::isfinite(det) || std::abs(det) < 1e-9)
        return std::nullopt;
    Matrix r;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) {
            const int i1 = (j + 1) % 3, i2 = (j + 2) % 3, j1 = (i + 1) % 3, j2 = (i + 2) % 3;
            r[i][j] = (m[i1][j1] * m[i2][j2] - m[i1][j2] * m[i2][j1]) / det;
        }
    return r;
}

Matrix product(const Matrix &a, const Matrix &b)
{
    Matrix p{};
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            for (int k = 0; k < 3; ++k)
                p[i][j] += a[i][k] * b[k][j];
    return p;
}

constexpr float lastStep = MatrixShaperToSrgb::encodeSteps - 1;

// Colours outside the sRGB gamut are clipped to its surface.
inline MatrixShaperToSrgb::Float4 clampToTable(MatrixShaperToSrgb::Float4 v)
{
#if defined(__SSE2__)
    return _mm_min_ps(_mm_max_ps(v, _mm_setzero_ps()), _mm_set1_ps(lastStep));
#else
    const MatrixShaperToSrgb::Float4 zero{}, top = zero + lastStep;
    v = v < zero ? zero : v;
    return v > top ? top : v;
#endif
}

} // namespace

std::optional<MatrixShaperToSrgb> MatrixShaperToSrgb::fromProfile(void *profile)
{
    if (!profile || !cmsIsMatrixShaper(profile) || cmsGetColorSpace(profile) != cmsSigRgbData)
        return std::nullopt;
    const std::unique_ptr<void, ProfileDeleter> srgb(cmsCreate_sRGBProfile());
    const std::optional<Matrix> source = colorants(profile), target = colorants(srgb.get());
    const std::optional<Matrix> toTarget = target ? inverse(*target) : std::nullopt;
    const auto *srgbCurve = static_cast<const cmsToneCurve *>(cmsReadTag(srgb.get(), cmsSigRedTRCTag));
    if (!source || !toTarget || !srgbCurve)
        return std::nullopt;
    const Matrix m = product(*toTarget, *source); // source linear RGB -> linear sRGB
    const cmsTagSignature curves[3] = {cmsSigRedTRCTag, cmsSigGreenTRCTag, cmsSigBlueTRCTag};
    MatrixShaperToSrgb tables;
    for (int c = 0; c < 3; ++c) {
        const auto *curve = static_cast<const cmsToneCurve *>(cmsReadTag(profile, curves[c]));
        if (!curve)
            return std::nullopt;
        for (int level = 0; level < 256; ++level) {
            const double linear = cmsEvalToneCurveFloat(curve, static_cast<cmsFloat32Number>(level / 255.0));
            // In steps of the encoding table, the rounding half step added once, with red.
            const double rounding = c == 0 ? 0.5 : 0;
            tables.contribution[c][level] = Float4{static_cast<float>(m[0][c] * linear * lastStep + rounding),
                                                   static_cast<float>(m[1][c] * linear * lastStep + rounding),
                                                   static_cast<float>(m[2][c] * linear * lastStep + rounding), 0};
        }
    }
    const std::unique_ptr<cmsToneCurve, CurveDeleter> encoding(cmsReverseToneCurve(srgbCurve));
    if (!encoding)
        return std::nullopt;
    tables.encode.resize(encodeSteps);
    for (int i = 0; i < encodeSteps; ++i) {
        const double v = cmsEvalToneCurveFloat(encoding.get(), static_cast<cmsFloat32Number>(i / double(encodeSteps - 1)));
        tables.encode[i] = static_cast<uint8_t>(std::clamp(std::floor(v * 255 + 0.5), 0.0, 255.0));
    }
    return tables;
}

void MatrixShaperToSrgb::convert(uint8_t *p, int64_t n) const
{
    using Int4 = int32_t __attribute__((vector_size(16)));
    const auto &r = contribution[0], &g = contribution[1], &b = contribution[2];
    const uint8_t *table = encode.data();
    // Byte loads and stores: fewer instructions than taking a 32-bit pixel apart and back.
    for (int64_t i = 0; i < n; ++i, p += 4) {
        const Int4 at = __builtin_convertvector(clampToTable(r[p[2]] + g[p[1]] + b[p[0]]), Int4);
        p[2] = table[at[0]];
        p[1] = table[at[1]];
        p[0] = table[at[2]];
    }
}

} // namespace Vorel
