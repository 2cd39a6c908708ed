// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/pngorientation.h"

#include <algorithm>
#include <vector>

#include "formats/jpegsegments.h" // some writers put the JPEG-style Exif signature in front of eXIf data
#include "formats/pngchunks.h"
#include "formats/textorientation.h"
#include "formats/tifforientation.h"

namespace Vorel {

namespace {

using namespace Png;

struct Chunk {
    qsizetype start; // offset of the length field
    qsizetype length; // data length
    QByteArray type;
};

bool hasChunk(const std::vector<Chunk> &chunks, const char *type)
{
    return std::any_of(chunks.begin(), chunks.end(), [&](const Chunk &c) { return c.type == type; });
}

// Every chunk up to and including IEND, CRCs checked; none when the structure is broken.
std::optional<std::vector<Chunk>> readChunks(const QByteArray &file)
{
    if (!file.startsWith(signature))
        return std::nullopt;
    std::vector<Chunk> chunks;
    qsizetype at = signature.size();
    while (chunks.empty() || chunks.back().type != "IEND") {
        if (at + chunkOverhead > file.size())
            return std::nullopt;
        const quint32 length = bigEndian32(file, at);
        if (length > maxChunkLength || at + chunkOverhead + length > file.size())
            return std::nullopt;
        if (crc32(file.constData() + at + 4, 4 + length) != bigEndian32(file, at + 8 + length))
            return std::nullopt;
        chunks.push_back({at, length, file.mid(at + 4, 4)});
        at += chunkOverhead + length;
    }
    if (chunks.front().type != "IHDR" || !hasChunk(chunks, "IDAT"))
        return std::nullopt;
    return chunks;
}

// The eXIf data with the new orientation, keeping an "Exif\0\0" prefix if the file had one.
std::optional<QByteArray> exifDataWithOrientation(const QByteArray &data, int orientation)
{
    const qsizetype prefix = data.startsWith(exifSignature) ? exifSignature.size() : 0;
    const std::optional<QByteArray> tiff = tiffWithOrientation(data.mid(prefix), orientation);
    if (!tiff)
        return std::nullopt;
    return data.left(prefix) + *tiff;
}

// A text chunk with the orientation copies it may carry updated: ImageMagick's raw Exif
// profile in tEXt, an uncompressed XMP packet in iTXt.
QByteArray textWithOrientation(const QByteArray &type, const QByteArray &data, int orientation)
{
    const qsizetype keywordEnd = data.indexOf('\0');
    const QByteArray keyword = data.left(keywordEnd);
    if (type == "tEXt" && keyword == "Raw profile type exif")
        return data.left(keywordEnd + 1) + rawExifProfileWithOrientation(data.mid(keywordEnd + 1), orientation);
    // iTXt: keyword \0 compression-flag method language \0 translated-keyword \0 text
    if (type != "iTXt" || keyword != "XML:com.adobe.xmp" || data.mid(keywordEnd + 1, 1) != QByteArray(1, '\0'))
        return data;
    const qsizetype languageEnd = data.indexOf('\0', keywordEnd + 3);
    const qsizetype textStart = languageEnd < 0 ? -1 : data.indexOf('\0', languageEnd + 1) + 1;
    if (textStart <= 0)
        return data;
    return data.left(textStart) + xmpWithOrientation(data.mid(textStart), orientation);
}

} // namespace

std::optional<QByteArray> pngWithOrientation(const QByteArray &file, int orientation)
{
    const std::optional<std::vector<Chunk>> chunks = readChunks(file);
    if (!chunks)
        return std::nullopt;
    const auto dataOf = [&](const Chunk &c) { return file.mid(c.start + 8, c.length); };

    // Rebuild from the back so that earlier offsets stay valid.
    QByteArray result = file;
    qsizetype firstIdat = -1;
    for (auto it = chunks->rbegin(); it != chunks->rend(); ++it) {
        const qsizetype chunkSize = chunkOverhead + it->length;
        if (it->type == "IDAT")
            firstIdat = it->start;
        if (it->type == "eXIf") {
            const std::optional<QByteArray> data = exifDataWithOrientation(dataOf(*it), orientation);
            if (!data)
                return std::nullopt;
            result.replace(it->start, chunkSize, makeChunk("eXIf", *data));
        } else if (it->type == "orNT" && it->length == 1) {
            result.replace(it->start, chunkSize, makeChunk("orNT", QByteArray(1, char(orientation))));
        } else if (it->type == "tEXt" || it->type == "iTXt") {
            result.replace(
                it->start, chunkSize, makeChunk(it->type, textWithOrientation(it->type, dataOf(*it), orientation)));
        }
    }
    if (!hasChunk(*chunks, "eXIf"))
        result.insert(firstIdat, makeChunk("eXIf", minimalTiffWithOrientation(orientation)));
    return result;
}

} // namespace Vorel
