// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/textorientation.h"

#include <vector>

#include "formats/tifforientation.h"

namespace Vorel {

namespace {

const QByteArray exifSignature("Exif\0\0", 6);
constexpr int profileHeaderLines = 3; // "\n", "exif\n", "<length>\n"

int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

bool isUpperHex(char c)
{
    return c >= 'A' && c <= 'F';
}

// Writes digits in the case the profile already uses.
char hexDigit(int value, bool upperCase)
{
    return "0123456789abcdef0123456789ABCDEF"[value + (upperCase ? 16 : 0)];
}

} // namespace

QByteArray xmpWithOrientation(const QByteArray &packet, int orientation)
{
    static const QByteArray property("tiff:Orientation");
    QByteArray result = packet;
    for (qsizetype at = result.indexOf(property); at >= 0; at = result.indexOf(property, at + 1)) {
        // tiff:Orientation="6" or '6' (attribute), or <tiff:Orientation>6</ (element).
        qsizetype digit = at + property.size();
        if (result.mid(digit, 2) == "=\"" || result.mid(digit, 2) == "='")
            digit += 2;
        else if (result.mid(digit, 1) == ">")
            digit += 1;
        else
            continue;
        const char next = digit + 1 < result.size() ? result[digit + 1] : '\0';
        if (digit < result.size() && result[digit] >= '0' && result[digit] <= '9'
            && (next == '"' || next == '\'' || next == '<'))
            result[digit] = char('0' + orientation);
    }
    return result;
}

QByteArray rawExifProfileWithOrientation(const QByteArray &text, int orientation)
{
    qsizetype at = 0;
    for (int line = 0; line < profileHeaderLines; ++line) {
        at = text.indexOf('\n', at);
        if (at < 0)
            return text;
        ++at;
    }
    // Decode the hex digits, remembering where each byte's first digit sits in the text.
    QByteArray bytes;
    std::vector<qsizetype> positions;
    bool upperCase = false;
    for (; at < text.size(); ++at) {
        if (text[at] == '\n' || text[at] == ' ')
            continue;
        if (at + 1 >= text.size() || hexValue(text[at]) < 0 || hexValue(text[at + 1]) < 0)
            return text;
        upperCase = upperCase || isUpperHex(text[at]) || isUpperHex(text[at + 1]);
        bytes.append(char(hexValue(text[at]) << 4 | hexValue(text[at + 1])));
        positions.push_back(at++);
    }
    const qsizetype tiffStart = bytes.startsWith(exifSignature) ? exifSignature.size() : 0;
    const std::optional<QByteArray> tiff = tiffWithOrientation(bytes.mid(tiffStart), orientation);
    if (!tiff || tiff->size() != bytes.size() - tiffStart)
        return text;
    QByteArray result = text;
    for (qsizetype i = 0; i < tiff->size(); ++i) {
        const auto value = static_cast<quint8>((*tiff)[i]);
        if (value == static_cast<quint8>(bytes[tiffStart + i]))
            continue;
        const qsizetype digit = positions[std::size_t(tiffStart + i)];
        result[digit] = hexDigit(value >> 4, upperCase);
        result[digit + 1] = hexDigit(value & 0xF, upperCase);
    }
    return result;
}

} // namespace Vorel
