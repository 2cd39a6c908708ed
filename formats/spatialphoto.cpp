// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
//
// libheif encodes and decodes the two images; the stereo pair group ('ster' in 'grpl') and the
// camera properties it does not know are added to and read from the meta box here.
#include "formats/spatialphoto.h"

#include <cmath>
#include <cstdio>
#include <set>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include "formats/cameraexif.h"
#include "formats/cameraproperties.h"
#include "formats/colourprofile.h"
#include "formats/heifboxes.h"
#include "formats/heifimage.h"
#include "formats/heifmetaedit.h"
#include "formats/imagewriter.h"
#include "formats/srgbconversion.h"

namespace Vorel {

namespace {

using namespace Heif;

constexpr double pi = 3.141592653589793;

void require(bool condition)
{
    if (!condition)
        throw MalformedBoxes{};
}

std::vector<heif_item_id> topLevelImages(heif_context *context)
{
    std::vector<heif_item_id> ids(static_cast<size_t>(heif_context_get_number_of_top_level_images(context)));
    heif_context_get_list_of_top_level_image_IDs(context, ids.data(), int(ids.size()));
    return ids;
}

// The meta box's children, with the file they are spans of.
struct Meta {
    explicit Meta(const QByteArray &file) : bytes(file)
    {
        const std::vector<BoxSpan> top = readBoxes(bytes, 0, bytes.size());
        const BoxSpan &meta = requireBox(top, "meta");
        children = readBoxes(bytes, meta.payload + 4, meta.end);
    }
    const QByteArray &bytes;
    std::vector<BoxSpan> children;
};

// The entities of the first stereo pair group, left first; none without such a group.
std::optional<std::vector<quint32>> stereoGroup(const Meta &meta)
{
    const BoxSpan *grpl = findBox(meta.children, "grpl");
    if (!grpl)
        return std::nullopt;
    for (const EntityGroup &group : readEntityGroups(meta.bytes, *grpl))
        if (group.type == "ster")
            return group.entities;
    return std::nullopt;
}

// The group's left and right entities when both are images of the file; otherwise the first
// two images, deliberately.
std::pair<quint32, quint32> leftAndRight(const Meta &meta, const std::vector<heif_item_id> &images)
{
    const std::vector<quint32> entities = stereoGroup(meta).value_or(std::vector<quint32>{});
    const std::set<quint32> known(images.begin(), images.end());
    if (entities.size() >= 2 && known.count(entities[0]) && known.count(entities[1]))
        return {entities[0], entities[1]};
    return {images[0], images[1]};
}

// Each property box of `item`, in association order.
std::vector<QByteArray> propertiesOf(const Meta &meta, quint32 item)
{
    const BoxSpan &iprp = requireBox(meta.children, "iprp");
    const std::vector<BoxSpan> children = readBoxes(meta.bytes, iprp.payload, iprp.end);
    const BoxSpan &ipco = requireBox(children, "ipco");
    const std::vector<BoxSpan> properties = readBoxes(meta.bytes, ipco.payload, ipco.end);
    std::vector<QByteArray> result;
    for (const BoxSpan &child : children) {
        if (child.type != "ipma")
            continue;
        for (const auto &[id, list] : readPropertyAssociations(meta.bytes, child).entries)
            if (id == item)
                for (const PropertyAssociation &a : list)
                    if (a.index >= 1 && a.index <= properties.size()) {
                        const BoxSpan &p = properties[a.index - 1];
                        result.push_back(meta.bytes.mid(p.start, p.end - p.start));
                    }
    }
    return result;
}

bool isTransformative(const QByteArray &type) { return type == "clap" || type == "irot" || type == "imir"; }

// iprp with the camera properties appended to ipco and associated (not essential) with the
// two images, before any transformative property of theirs; then the stereo pair group.
QByteArray spatialProperties(const Meta &meta, const BoxSpan &iprp, quint32 left, quint32 right,
                             const std::vector<QByteArray> &leftProperties,
                             const std::vector<QByteArray> &rightProperties)
{
    const std::vector<BoxSpan> children = readBoxes(meta.bytes, iprp.payload, iprp.end);
    const BoxSpan &ipco = requireBox(children, "ipco");
    const std::vector<BoxSpan> properties = readBoxes(meta.bytes, ipco.payload, ipco.end);
    QByteArray ipcoPayload = meta.bytes.mid(ipco.payload, ipco.end - ipco.payload);
    quint16 count = quint16(properties.size());
    const auto append = [&](const std::vector<QByteArray> &boxes) {
        std::vector<PropertyAssociation> added;
        for (const QByteArray &box : boxes) {
            ipcoPayload += box;
            added.push_back({false, ++count});
        }
        return added;
    };
    const std::vector<PropertyAssociation> forLeft = append(leftProperties), forRight = append(rightProperties);
    require(count < 0x7FFF);

    QByteArray payload;
    for (const BoxSpan &child : children) {
        if (child.type == "ipco") {
            payload += makeBox("ipco", ipcoPayload);
        } else if (child.type == "ipma") {
            PropertyAssociations associations = readPropertyAssociations(meta.bytes, child);
            for (auto &[id, list] : associations.entries) {
                if (id != left && id != right)
                    continue;
                const auto firstTransform = std::find_if(list.begin(), list.end(), [&](const PropertyAssociation &a) {
                    return a.index >= 1 && a.index <= properties.size() && isTransformative(properties[a.index - 1].type);
                });
                const std::vector<PropertyAssociation> &added = id == left ? forLeft : forRight;
                list.insert(firstTransform, added.begin(), added.end());
                require(list.size() <= 255);
            }
            payload += writePropertyAssociations(associations);
        } else {
            payload += meta.bytes.mid(child.start, child.end - child.start);
        }
    }
    return makeBox("iprp", payload);
}

// The stereo pair group, with an id no item uses.
QByteArray stereoPairGroup(const Meta &meta, quint32 left, quint32 right)
{
    quint32 largest = 0;
    for (const auto &item : readItemInfos(meta.bytes, requireBox(meta.children, "iinf")))
        largest = std::max(largest, item.first);
    QByteArray fields(16, '\0');
    putBigEndian(fields, 0, 4, largest + 1);
    putBigEndian(fields, 4, 4, 2);
    putBigEndian(fields, 8, 4, left);
    putBigEndian(fields, 12, 4, right);
    return makeBox("grpl", makeFullBox("ster", 0, 0, fields));
}

QImage evenOpaque(const QImage &image)
{
    const QImage opaque = image.convertToFormat(QImage::Format_RGB32);
    const int w = opaque.width() & ~1, h = opaque.height() & ~1;
    return w == opaque.width() && h == opaque.height() ? opaque : opaque.copy(0, 0, w, h);
}

// An eye and its Exif item; the left eye's is the one readers of the primary image show.
Handle encodeEye(heif_context *context, const QImage &eye, const QByteArray &cameraExif)
{
    Handle handle = encodeImage(context, eye, lossyQuality);
    const QByteArray exif = exifForWrittenPicture(cameraExif, eye.size());
    if (handle && !exif.isEmpty() &&
        heif_context_add_exif_metadata(context, handle.get(), exif.constData(), int(exif.size())).code != heif_error_Ok)
        return {};
    return handle;
}

QByteArray encodePair(const QImage &left, const QImage &right, int adj, double fov, double stb,
                      const QByteArray &cameraExif)
{
    const Context context(heif_context_alloc());
    const Handle leftHandle = encodeEye(context.get(), left, cameraExif);
    const Handle rightHandle = encodeEye(context.get(), right, cameraExif);
    if (!leftHandle || !rightHandle)
        return {};
    heif_context_set_primary_image(context.get(), leftHandle.get());
    const std::optional<QByteArray> encoded = writeContext(context.get());
    const std::vector<heif_item_id> images = topLevelImages(context.get());
    if (!encoded || images.size() != 2)
        return {};

    const double w = left.width(), h = left.height();
    const double f = (w / 2) / std::tan(fov / 180 * pi * 0.5);
    // The principal point is deliberately (2W, 2H), not the image centre: files written so
    // are what the rest of the workflow expects.
    const CameraIntrinsics intrinsics{f, 2 * w, 2 * h};
    const QByteArray sharedIntrinsics = intrinsicsProperty(intrinsics, left.width(), left.height());
    const QByteArray disparity = disparityProperty(adj);
    try {
        const Meta meta(*encoded);
        const BoxSpan &iprp = requireBox(meta.children, "iprp");
        const QByteArray replacement =
            spatialProperties(meta, iprp, images[0], images[1], {positionProperty(0), sharedIntrinsics, disparity},
                              {positionProperty(stb), sharedIntrinsics, disparity}) +
            stereoPairGroup(meta, images[0], images[1]);
        return replaceMetaChild(*encoded, iprp, replacement);
    } catch (const MalformedBoxes &) {
        return {};
    }
}

} // namespace

void writeSpatialPhoto(const QImage &left, const QImage &right, const QString &path, int adj, double fov, double stb,
                       const QByteArray &cameraExif)
{
    std::fprintf(stderr, "%s\n%d\n%s\n", qPrintable(QString::number(fov, 'g', QLocale::FloatingPointShortest)), adj,
                 qPrintable(QString::number(stb, 'g', QLocale::FloatingPointShortest)));
    const QImage leftEye = evenOpaque(left), rightEye = evenOpaque(right);
    if (leftEye.isNull() || rightEye.isNull())
        throw SpatialPhotoError(SpatialPhotoError::invalidImage);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) // as saveFileAtomically, for a full disk
        throw SpatialPhotoError(SpatialPhotoError::cannotCreateDestination, path);
    const QByteArray bytes = encodePair(leftEye, rightEye, adj, fov, stb, cameraExif);
    if (bytes.isEmpty() || file.write(bytes) != bytes.size() || !file.commit()) {
        const bool accessible = QFileInfo(QFileInfo(path).absolutePath()).isWritable();
        std::fprintf(stderr, "FAILED: destinationURL accessible? %s\n", accessible ? "true" : "false");
        throw SpatialPhotoError(SpatialPhotoError::finalizationFailed, path);
    }
}

ImagePair readSpatialPhoto(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw SpatialPhotoError(SpatialPhotoError::cannotOpenFile, path);
    const QByteArray bytes = file.readAll();
    const Context context = openContext(bytes);
    if (!context)
        throw SpatialPhotoError(SpatialPhotoError::cannotOpenFile, path);
    const std::vector<heif_item_id> images = topLevelImages(context.get());
    if (images.size() < 2)
        throw SpatialPhotoError(
            SpatialPhotoError::notASpatialPhoto,
            QCoreApplication::translate("SpatialPhotoError", "Does not contain two or more images (count=%1)")
                .arg(images.size()));
    std::pair<quint32, quint32> ids;
    try {
        const Meta meta(bytes);
        if (!stereoGroup(meta))
            throw SpatialPhotoError(SpatialPhotoError::notASpatialPhoto,
                                    QCoreApplication::translate("SpatialPhotoError", "No stereo pair group found"));
        ids = leftAndRight(meta, images);
    } catch (const MalformedBoxes &) {
        throw SpatialPhotoError(
            SpatialPhotoError::notASpatialPhoto,
            QCoreApplication::translate("SpatialPhotoError", "The container property cannot be retrieved."));
    }
    QByteArray profile; // an eye without a colour profile of its own is taken to share the left eye's
    const auto decode = [&](quint32 id) -> std::optional<QImage> {
        heif_image_handle *raw = nullptr;
        if (heif_context_get_image_handle(context.get(), id, &raw).code != heif_error_Ok)
            return std::nullopt;
        const Handle handle(raw);
        if (QByteArray own = heifColourProfile(handle.get()); !own.isEmpty())
            profile = std::move(own);
        const std::optional<QImage> image = decodeHandle(handle.get());
        return image ? std::optional(convertedToSrgb(*image, profile)) : std::nullopt;
    };
    const std::optional<QImage> left = decode(ids.first), right = decode(ids.second);
    if (!left || !right)
        throw SpatialPhotoError(SpatialPhotoError::imageExtractionFailed);
    return {*left, *right};
}

SpatialParameters readSpatialParameters(const QByteArray &file)
{
    SpatialParameters result;
    const Context context = openContext(file);
    if (!context)
        return result;
    const std::vector<heif_item_id> images = topLevelImages(context.get());
    if (images.size() < 2)
        return result;
    try {
        const Meta meta(file);
        const auto [left, right] = leftAndRight(meta, images);
        heif_image_handle *raw = nullptr;
        if (heif_context_get_image_handle(context.get(), left, &raw).code != heif_error_Ok)
            return result;
        const Handle handle(raw);
        // The coded size the intrinsics refer to, before any transform.
        const int w = heif_image_handle_get_ispe_width(handle.get()), h = heif_image_handle_get_ispe_height(handle.get());
        std::optional<double> leftX, rightX;
        for (const QByteArray &box : propertiesOf(meta, left)) {
            if (const std::optional<CameraIntrinsics> intrinsics = readIntrinsics(box, w, h); intrinsics && !result.fov)
                result.fov = 2 * std::atan(w / (2 * intrinsics->focalLength)) * 180 / pi;
            if (const std::optional<qint32> adj = readDisparity(box); adj && !result.adj)
                result.adj = *adj;
            if (const std::optional<double> x = readPositionX(box); x && !leftX)
                leftX = x;
        }
        for (const QByteArray &box : propertiesOf(meta, right))
            if (const std::optional<double> x = readPositionX(box); x && !rightX)
                rightX = x;
        if (leftX && rightX)
            result.stb = std::fabs(*rightX - *leftX);
    } catch (const MalformedBoxes &) {
    }
    return result;
}

} // namespace Vorel
