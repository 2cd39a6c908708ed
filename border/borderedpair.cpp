// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "border/borderedpair.h"

#include "border/imageborderprocessor.h"
#include "core/stereoimageprocessor.h"

namespace Vorel {

std::optional<QImage> composeBorderedPair(const StereoImageProcessor &processor, const ImageBorderSettings &settings,
                                          bool useCache)
{
    const std::optional<ImagePair> pair = processor.render(useCache);
    if (!pair)
        return std::nullopt;
    return ImageBorderProcessor().compose(pair->left, pair->right, settings);
}

} // namespace Vorel
