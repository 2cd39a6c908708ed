// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "photos/photoasset.h"

namespace Vorel {

namespace {

const PhotoKindText &textOf(PhotoKind kind)
{
    for (const PhotoKindText &text : photoKindTexts)
        if (text.kind == kind)
            return text;
    return photoKindTexts[0];
}

} // namespace

QString photoKindName(PhotoKind kind) { return QLatin1String(textOf(kind).name); }

QString photoKindBadge(PhotoKind kind) { return QLatin1String(textOf(kind).badge); }

std::optional<PhotoKind> photoKindFromName(const QString &name)
{
    for (const PhotoKindText &text : photoKindTexts)
        if (name == QLatin1String(text.name))
            return text.kind;
    return std::nullopt;
}

} // namespace Vorel
