// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// `vorel-cli convert`: open a pair as the main window does, run the processing chain and
// write what the window would save in the chosen display mode.
#pragma once

#include <QString>

namespace Vorel {

struct ConvertOptions;

// Thrown when the work fails; the text names the file concerned.
struct ConvertError {
    QString message;
};

void runConvert(const ConvertOptions &options);

} // namespace Vorel
