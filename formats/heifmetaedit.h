// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Growing or shrinking the meta box of a HEIF file while keeping every item's data where its
// location says it is.
#pragma once

#include <QByteArray>

#include "formats/heifboxes.h"

namespace Vorel::Heif {

// The file with the meta child `child` (a span of `file`) replaced by `replacement`, of any
// size. Item data stored after meta moves with the change, so those iloc offsets shift; meta's
// own size follows. Throws MalformedBoxes when a location cannot be moved (no room in its
// field, data inside meta, or track-based boxes whose chunk offsets this does not follow).
QByteArray replaceMetaChild(const QByteArray &file, const BoxSpan &child, const QByteArray &replacement);

} // namespace Vorel::Heif
