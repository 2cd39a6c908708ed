// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The bordered picture of the pair being worked on: what the border mode shows, saves and
// projects, and what `vorel-cli convert --output border` writes.
#pragma once

#include <optional>

#include <QImage>

#include "border/imagebordersettings.h"

namespace Vorel {

class StereoImageProcessor;

// Composes the processor's adjusted pair (from the preview copies when `useCache` allows it);
// none without a pair or when composition fails.
std::optional<QImage> composeBorderedPair(const StereoImageProcessor &processor, const ImageBorderSettings &settings,
                                          bool useCache);

} // namespace Vorel
