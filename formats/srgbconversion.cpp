// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/srgbconversion.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include <QColorSpace>

#include <lcms2.h>

#include "core/parallelrows.h"
#include "formats/matrixshaper.h"

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

// Opaque pixels go through the tables of a matrix/TRC profile, or else a general transform;
// premultiplied ones, rare, through a transform of their own made on first use.
struct ProfileTransforms {
    QByteArray profile;
    bool isSrgb = false; // unreadable, not RGB, or moving no level of any colour by more than one
    std::optional<MatrixShaperToSrgb> tables;
    Transform opaque, premultiplied;

    void convertOpaque(uint8_t *bgrx, int64_t n) const
    {
        if (tables)
            tables->convert(bgrx, n);
        else
            cmsDoTransform(opaque.get(), bgrx, bgrx, static_cast<cmsUInt32Number>(n));
    }
};

using Profile = std::unique_ptr<void, ProfileDeleter>;

Profile openProfile(const QByteArray &icc)
{
    return Profile(cmsOpenProfileFromMem(icc.constData(), static_cast<cmsUInt32Number>(icc.size())));
}

Transform makeTransform(void *source, cmsUInt32Number format)
{
    if (!source || cmsGetColorSpace(source) != cmsSigRgbData)
        return nullptr;
    const Profile srgb(cmsCreate_sRGBProfile());
    // No cache: the transform is shared by the threads that convert the rows of one picture.
    void *transform = cmsCreateTransform(source, format, srgb.get(), format, INTENT_PERCEPTUAL,
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

bool mapsOntoItself(const ProfileTransforms &entry)
{
    static const std::vector<QRgb> probes = probeColours();
    std::vector<QRgb> mapped = probes;
    entry.convertOpaque(reinterpret_cast<uint8_t *>(mapped.data()), static_cast<int64_t>(mapped.size()));
    const auto near = [](int a, int b) { return std::abs(a - b) <= 1; };
    return std::equal(probes.begin(), probes.end(), mapped.begin(), [&](QRgb p, QRgb q) {
        return near(qRed(p), qRed(q)) && near(qGreen(p), qGreen(q)) && near(qBlue(p), qBlue(q));
    });
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
        const Profile source = openProfile(icc);
        entry->tables = MatrixShaperToSrgb::fromProfile(source.get());
        if (!entry->tables)
            entry->opaque = makeTransform(source.get(), TYPE_BGRA_8);
        entry->isSrgb = (!entry->tables && !entry->opaque) || mapsOntoItself(*entry);
        if (entries.size() >= largestCacheEntries)
            entries.erase(entries.begin());
        entries.push_back(entry);
        return entry;
    }

    Transform premultiplied(ProfileTransforms &entry)
    {
        const std::lock_guard guard(lock);
        if (!entry.premultiplied)
            entry.premultiplied = makeTransform(openProfile(entry.profile).get(), TYPE_BGRA_8_PREMUL);
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
    const Transform premultiplied = alpha ? cache().premultiplied(*entry) : nullptr;
    if (alpha && !premultiplied)
        return image;
    const bool tagged = image.colorSpace().isValid();
    image.convertTo(alpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    if (image.isNull())
        return image;
    const int64_t width = image.width(), height = image.height();
    uchar *const pixels = image.bits(); // detached here, before the rows are shared out
    const auto stride = static_cast<cmsUInt32Number>(image.bytesPerLine());
    const auto convertRows = [&](int64_t first, int64_t end) {
        for (int64_t y = first; y < end; ++y) {
            uchar *row = pixels + y * stride;
            if (premultiplied)
                cmsDoTransform(premultiplied.get(), row, row, static_cast<cmsUInt32Number>(width));
            else
                entry->convertOpaque(row, width);
        }
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
