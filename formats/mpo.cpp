// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/mpo.h"

namespace Vorel {

QString MpoError::description() const
{
    return errorCode == invalidFile ? QStringLiteral("Invalid MPO file")
                                    : QStringLiteral("Failed to extract MPO images");
}

std::pair<QImage, QImage> extractMPO(const QString &)
{
    throw MpoError(MpoError::invalidFile);
}

} // namespace Vorel
