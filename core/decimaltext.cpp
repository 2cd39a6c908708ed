// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/decimaltext.h"

#include <QRegularExpression>

namespace Vorel {

std::optional<int> parseDecimalInteger(const QString &text)
{
    static const QRegularExpression integer(QStringLiteral("^[+-]?[0-9]+$"));
    bool ok = false;
    const int value = text.toInt(&ok);
    return ok && integer.match(text).hasMatch() ? std::optional(value) : std::nullopt;
}

std::optional<double> parseDecimalNumber(const QString &text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok || text != text.trimmed()) // toDouble ignores surrounding blanks; a typed value may not have them
        return std::nullopt;
    return value;
}

} // namespace Vorel
