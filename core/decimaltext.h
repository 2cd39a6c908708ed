// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers typed into fields: exactly what the text says, or none.
#pragma once

#include <optional>

#include <QString>

namespace Vorel {

// An optional "+" or "-", then digits only; an empty text is none.
std::optional<int> parseDecimalInteger(const QString &text);
// A decimal number without surrounding blanks.
std::optional<double> parseDecimalNumber(const QString &text);

} // namespace Vorel
