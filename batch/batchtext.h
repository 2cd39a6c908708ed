// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The translation context of the batch run's texts outside its widgets: BatchText::tr("...").
#pragma once

#include <QCoreApplication>

namespace Vorel {

struct BatchText {
    Q_DECLARE_TR_FUNCTIONS(BatchProcessor)
};

} // namespace Vorel
