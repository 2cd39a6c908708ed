// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The options of `vorel-cli convert`, parsed from the command line into one value.
#pragma once

#include <optional>

#include <QRect>
#include <QString>
#include <QStringList>

#include "core/stereointake.h"
#include "core/pairresize.h"
#include "core/stereotypes.h"

namespace Vorel {

struct ConvertOptions {
    StereoFileKind inputKind = StereoFileKind::byExtension;
    bool separateInput = false; // --input separate, or two inputs given
    DisplayMode output = DisplayMode::sbs;
    bool spatialOutput = false; // --output spatial, with these parameters where given
    std::optional<double> fov;
    std::optional<int> disparityAdjustment;
    std::optional<double> stereoBase;
    bool swap = false;
    bool autoAlign = false;
    std::optional<bool> colourReferenceRight; // --color-ref: the side that stays unchanged
    std::optional<StereoAdjustment> adjustment;
    std::optional<QRect> crop; // pixels of the adjusted pair
    struct Resize {
        int width, height;
        ResizeMode mode;
    };
    std::optional<Resize> resize;
    bool overwrite = false;

    QString input;
    QString right; // second input of a separate pair
    QString outputPath;
};

// Thrown for anything the user typed wrong; the text is shown above the usage.
struct UsageError {
    QString message;
};

ConvertOptions parseConvertOptions(const QStringList &arguments);
QString convertUsage();

} // namespace Vorel
