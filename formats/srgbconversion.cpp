// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/srgbconversion.h"

#include <memory>
#include <mutex>
#include <vector>

#include <QColorSpace>

#include <lcms2.h>

#include "core/parallelrows.h"

namespace Vorel {

namespace {

constexpr int largestCacheEntries = 8;    // distinct profiles in one session are few
constexpr int64_t parallelPixels = 1 << 20; // below this, splitting costs more than it gains

struct TransformDeleter {
    void operator()(void *transform) const { cmsDeleteTransform(transform); }
};
struct ProfileDeleter {
    void operator()(void *profile) const { cmsCloseProfile(profile); }
};
using Transform = std::shared_ptr<void>;

// Opaque pixels and premultiplied ones need a transform each; both are made on first use.
struct ProfileTransforms {
    QByteArray profile;
    bool isSrgb = false; // unreadable, not RGB, or indistinguishable from sRGB in 8 bits
    Transform opaque, premultiplied;
};

Transform makeTransform(const QByteArray &icc, cmsUInt32Number format)
{
    const std::unique_ptr<void, ProfileDeleter> source(
        cmsOpenProfileFromMem(icc.constData(), static_cast<cmsUInt32Number>(icc.size())));
    if (!source || cmsGetColorSpace(source.get()) != cmsSigRgbData)
        return nullptr;
    const std::unique_ptr<void, ProfileDeleter> srgb(cmsCreate_sRGBProfile());
    // No cache: the transform is shared by the threads that convert the rows of one picture.
    void *transform = cmsCreateTransform(source.get(), format, srgb.get(), format, INTENT_PERCEPTUAL,
                                         cmsFLAGS_NOCACHE | cmsFLAGS_COPY_ALPHA);
    return transform ? Transform(transform, TransformDeleter()) : nullptr;
}

// Every level of every primary and of grey, and a coarse grid of the whole cube.
std::vector<QRgb> probeColours()
{
    std::vector<QRgb> colours;
    for (int v = 0; v < 256; ++v)
        for (QRgb c : {qRgb(v, 0, 0), qRgb(0, v, 0), qRgb(0, 0, v), qRgb(v, v, v)})
            colours.push_back(c);
    for (int r = 0; r < 256; r += 17)
        for (int g = 0; g < 256; g += 17)
            for (int b = 0; b < 256; b += 17)
                colours.push_back(qRgb(r, g, b));
    return colours;
}

bool mapsOntoItself(void *transform)
{
    static const std::vector<QRgb> probes = probeColours();
    std::vector<QRgb> mapped(probes.size());
    cmsDoTransform(transform, probes.data(), mapped.data(), static_cast<cmsUInt32Number>(probes.size()));
    return mapped == probes;
}

// The cache, newest entry last.
struct TransformCache {
    std::mutex lock;
    std::vector<std::shared_ptr<ProfileTransforms>> entries;

    std::shared_ptr<ProfileTransforms> find(const QByteArray &icc)
    {
        const std::lock_guard guard(lock);
        for (const auto &entry : entries)
            if (entry->profile == icc)
                return entry;
        auto entry = std::make_shared<ProfileTransforms>();
        entry->profile = icc;
        entry->opaque = makeTransform(icc, TYPE_BGRA_8);
        entry->isSrgb = !entry->opaque || mapsOntoItself(entry->opaque.get());
        if (entries.size() >= largestCacheEntries)
            entries.erase(entries.begin());
        entries.push_back(entry);
        return entry;
    }

    Transform premultiplied(ProfileTransforms &entry)
    {
        const std::lock_guard guard(lock);
        if (!entry.premultiplied)
            entry.premultiplied = makeTransform(entry.profile, TYPE_BGRA_8_PREMUL);
        return entry.premultiplied;
    }
};

TransformCache &cache()
{
    static TransformCache *transforms = new TransformCache; // used by decoding threads until exit
    return *transforms;
}

} // namespace

QImage convertedToSrgb(QImage image, const QByteArray &iccProfile)
{
    if (image.isNull() || iccProfile.isEmpty())
        return image;
    const std::shared_ptr<ProfileTransforms> entry = cache().find(iccProfile);
    if (entry->isSrgb)
        return image;
    const bool alpha = image.hasAlphaChannel();
    const Transform transform = alpha ? cache().premultiplied(*entry) : entry->opaque;
    if (!transform)
        return image;
    const bool tagged = image.colorSpace().isValid();
    image.convertTo(alpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    if (image.isNull())
        return image;
    const int64_t width = image.width(), height = image.height();
    uchar *const pixels = image.bits(); // detached here, before the rows are shared out
    const auto stride = static_cast<cmsUInt32Number>(image.bytesPerLine());
    const auto convertRows = [&](int64_t first, int64_t end) {
        uchar *rows = pixels + first * stride;
        cmsDoTransformLineStride(transform.get(), rows, rows, static_cast<cmsUInt32Number>(width),
                                 static_cast<cmsUInt32Number>(end - first), stride, stride, 0, 0);
    };
    if (width * height >= parallelPixels)
        parallelRows(height, convertRows);
    else
        convertRows(0, height);
    if (tagged)
        image.setColorSpace(QColorSpace(QColorSpace::SRgb));
    return image;
}

} // namespace Vorel
