// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/iccprofiles.h"

#include <memory>

#include <lcms2.h>

namespace Vorel {

namespace {

struct ProfileDeleter {
    void operator()(void *profile) const { cmsCloseProfile(profile); }
};
struct CurveDeleter {
    void operator()(cmsToneCurve *curve) const { cmsFreeToneCurve(curve); }
};

std::unique_ptr<cmsToneCurve, CurveDeleter> toneCurve(ToneCurve curve)
{
    // Parametric type 4: Y = ((a X + b) ^ g) for X >= d, else c X.
    switch (curve.kind) {
    case ToneCurve::srgb: {
        const cmsFloat64Number p[] = {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
        return std::unique_ptr<cmsToneCurve, CurveDeleter>(cmsBuildParametricToneCurve(nullptr, 4, p));
    }
    case ToneCurve::rec709: {
        const cmsFloat64Number p[] = {1 / 0.45, 1 / 1.099, 0.099 / 1.099, 1 / 4.5, 0.081};
        return std::unique_ptr<cmsToneCurve, CurveDeleter>(cmsBuildParametricToneCurve(nullptr, 4, p));
    }
    case ToneCurve::power:
        break;
    }
    return std::unique_ptr<cmsToneCurve, CurveDeleter>(cmsBuildGamma(nullptr, curve.gamma));
}

} // namespace

QByteArray rgbIccProfile(const Chromaticities &c, ToneCurve curve)
{
    const cmsCIExyY white{c.whiteX, c.whiteY, 1};
    const cmsCIExyYTRIPLE primaries{{c.redX, c.redY, 1}, {c.greenX, c.greenY, 1}, {c.blueX, c.blueY, 1}};
    const auto tone = toneCurve(curve);
    if (!tone)
        return {};
    cmsToneCurve *curves[3] = {tone.get(), tone.get(), tone.get()};
    const std::unique_ptr<void, ProfileDeleter> profile(cmsCreateRGBProfile(&white, &primaries, curves));
    cmsUInt32Number size = 0;
    if (!profile || !cmsSaveProfileToMem(profile.get(), nullptr, &size) || size == 0)
        return {};
    QByteArray bytes(static_cast<qsizetype>(size), Qt::Uninitialized);
    if (!cmsSaveProfileToMem(profile.get(), bytes.data(), &size))
        return {};
    return bytes;
}

QByteArray adobeRgbIccProfile()
{
    static const QByteArray profile =
        rgbIccProfile({0.3127, 0.3290, 0.64, 0.33, 0.21, 0.71, 0.15, 0.06}, {ToneCurve::power, 563.0 / 256});
    return profile;
}

} // namespace Vorel
