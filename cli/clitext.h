// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The translation context of every vorel-cli text: CliText::tr("...").
#pragma once

#include <QCoreApplication>

namespace Vorel {

struct CliText {
    Q_DECLARE_TR_FUNCTIONS(VorelCli)
};

} // namespace Vorel
