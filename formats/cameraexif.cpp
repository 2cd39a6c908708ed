// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/cameraexif.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include <QFile>

#include <exiv2/exiv2.hpp>
#include <libheif/heif.h>

#include "formats/heifimage.h"
#include "formats/jpegsegments.h"

namespace Vorel {

namespace {

const QByteArray pngSignature("\x89PNG\r\n\x1a\n", 8);

bool isTiffBlock(QByteArrayView block)
{
    return block.startsWith(QByteArrayView("II*\0", 4)) || block.startsWith(QByteArrayView("MM\0*", 4));
}

// The TIFF block of an Exif payload; some writers keep the JPEG-style "Exif\0\0" in front
// (a few with "Exif\0\xFF").
const QByteArrayView exifName("Exif\0", 5);

QByteArray tiffBlock(QByteArray payload)
{
    if (payload.startsWith(exifName))
        payload.remove(0, exifSignature.size());
    return isTiffBlock(payload) ? payload : QByteArray();
}

quint32 bigEndian(const QByteArray &bytes, qsizetype at, int width)
{
    quint32 value = 0;
    for (int i = 0; i < width; ++i)
        value = value << 8 | quint8(bytes[at + i]);
    return value;
}

// Reads `length` bytes only when the file has them, so a lying length allocates nothing.
QByteArray readExactly(QFile &file, qint64 length)
{
    return length <= file.size() - file.pos() ? file.read(length) : QByteArray();
}

// Chunk headers up to IEND, skipping every chunk's data without reading it.
QByteArray pngExif(QFile &file)
{
    file.seek(pngSignature.size());
    for (;;) {
        const QByteArray head = file.read(8);
        if (head.size() < 8)
            return {};
        const qint64 length = bigEndian(head, 0, 4);
        const QByteArray type = head.mid(4);
        if (type == "eXIf")
            return tiffBlock(readExactly(file, length));
        if (type == "IEND" || !file.seek(file.pos() + length + 4))
            return {};
    }
}

// The primary image's Exif item: a u32 offset to the TIFF header, counted after itself, then the data.
QByteArray heifExif(const QString &path)
{
    Heif::Context context(heif_context_alloc());
    if (heif_context_read_from_file(context.get(), QFile::encodeName(path).constData(), nullptr).code != heif_error_Ok)
        return {};
    heif_image_handle *raw = nullptr;
    if (heif_context_get_primary_image_handle(context.get(), &raw).code != heif_error_Ok)
        return {};
    const Heif::Handle handle(raw);
    heif_item_id id = 0;
    if (heif_image_handle_get_list_of_metadata_block_IDs(handle.get(), "Exif", &id, 1) < 1)
        return {};
    QByteArray item(qsizetype(heif_image_handle_get_metadata_size(handle.get(), id)), '\0');
    if (item.size() < 4 || heif_image_handle_get_metadata(handle.get(), id, item.data()).code != heif_error_Ok)
        return {};
    const qint64 offset = bigEndian(item, 0, 4);
    return offset <= item.size() - 4 ? tiffBlock(item.mid(4 + offset)) : QByteArray();
}

QByteArray encodeExif(const Exiv2::ExifData &exif, Exiv2::ByteOrder order)
{
    Exiv2::Blob blob;
    Exiv2::ExifParser::encode(blob, order, exif);
    return QByteArray(reinterpret_cast<const char *>(blob.data()), qsizetype(blob.size()));
}

QByteArray tiffExif(const QString &path)
{
    Exiv2::Image::AutoPtr image = Exiv2::ImageFactory::open(QFile::encodeName(path).toStdString());
    if (!image.get())
        return {};
    image->readMetadata();
    return image->exifData().empty() ? QByteArray() : encodeExif(image->exifData(), image->byteOrder());
}

// Tags that describe the layout or colour of the source file rather than the scene: they
// would be wrong for any picture we write.
constexpr std::array sourceFileTags = {
    "Exif.Image.NewSubfileType", "Exif.Image.SubfileType", "Exif.Image.ImageWidth", "Exif.Image.ImageLength",
    "Exif.Image.BitsPerSample", "Exif.Image.Compression", "Exif.Image.PhotometricInterpretation",
    "Exif.Image.FillOrder", "Exif.Image.StripOffsets", "Exif.Image.SamplesPerPixel", "Exif.Image.RowsPerStrip",
    "Exif.Image.StripByteCounts", "Exif.Image.PlanarConfiguration", "Exif.Image.Predictor",
    "Exif.Image.TileWidth", "Exif.Image.TileLength", "Exif.Image.TileOffsets", "Exif.Image.TileByteCounts",
    "Exif.Image.SubIFDs", "Exif.Image.ExtraSamples", "Exif.Image.SampleFormat", "Exif.Image.JPEGTables",
    "Exif.Image.JPEGInterchangeFormat", "Exif.Image.JPEGInterchangeFormatLength", "Exif.Image.YCbCrSubSampling",
    "Exif.Image.XMLPacket", "Exif.Image.InterColorProfile", "Exif.Image.TransferFunction",
    "Exif.Image.WhitePoint", "Exif.Image.PrimaryChromaticities", "Exif.Photo.Gamma",
    "Exif.Photo.CompressedBitsPerPixel"};

// IFDs other than the main picture's: the thumbnail, sub-images, and MP tags.
bool isOtherPicturesGroup(const std::string &group)
{
    return group == "Thumbnail" || group == "MpfInfo" || group == "Image2" || group == "Image3" ||
           group == "PanaRaw" || group.rfind("SubImage", 0) == 0 || group.rfind("SubThumb", 0) == 0;
}

template <typename Predicate> void eraseIf(Exiv2::ExifData &exif, Predicate predicate)
{
    for (auto it = exif.begin(); it != exif.end();)
        it = predicate(*it) ? exif.erase(it) : std::next(it);
}

} // namespace

QByteArray readCameraExif(const QString &path)
{
    try {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return {};
        const QByteArray magic = file.peek(12);
        if (magic.startsWith("\xFF\xD8"))
            return tiffBlock(readJpegSegment(file, markerApp1, exifName).value_or(QByteArray()));
        if (magic.startsWith(pngSignature))
            return pngExif(file);
        if (isTiffBlock(magic))
            return tiffExif(path);
        if (magic.mid(4, 4) == "ftyp")
            return heifExif(path);
        return {};
    } catch (...) { // exiv2's errors, or running out of memory on a hostile file
        return {};
    }
}

QByteArray exifForWrittenPicture(const QByteArray &source, QSize size)
{
    if (source.isEmpty())
        return {};
    try {
        Exiv2::ExifData exif;
        const Exiv2::ByteOrder order = Exiv2::ExifParser::decode(
            exif, reinterpret_cast<const Exiv2::byte *>(source.constData()), uint32_t(source.size()));
        if (exif.empty())
            return {};
        eraseIf(exif, [](const Exiv2::Exifdatum &tag) {
            return isOtherPicturesGroup(tag.groupName()) ||
                   std::find(sourceFileTags.begin(), sourceFileTags.end(), tag.key()) != sourceFileTags.end();
        });
        // Our pixels are upright and converted to sRGB on intake.
        exif["Exif.Image.Orientation"] = uint16_t(1);
        exif["Exif.Photo.ColorSpace"] = uint16_t(1);
        if (exif.findKey(Exiv2::ExifKey("Exif.Iop.InteroperabilityIndex")) != exif.end())
            exif["Exif.Iop.InteroperabilityIndex"] = std::string("R98");
        exif["Exif.Photo.PixelXDimension"] = uint32_t(size.width());
        exif["Exif.Photo.PixelYDimension"] = uint32_t(size.height());
        QByteArray block = encodeExif(exif, order);
        if (block.size() > maxExifBlockSize) { // a maker note too large for one JPEG segment
            eraseIf(exif, [](const Exiv2::Exifdatum &tag) {
                return tag.key() == "Exif.Photo.MakerNote" || Exiv2::ExifTags::isMakerGroup(tag.groupName());
            });
            block = encodeExif(exif, order);
        }
        return block.size() <= maxExifBlockSize ? block : QByteArray();
    } catch (...) {
        return {};
    }
}

} // namespace Vorel
