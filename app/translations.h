// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The user's language for both programs: Vorel's own texts and Qt's.
#pragma once

class QCoreApplication;

namespace Vorel {

// Installs the translations that match the system locale (LANGUAGE, LC_ALL, LC_MESSAGES,
// LANG); a language without a translation keeps the English texts. Call once, before any
// window or text is made.
void installTranslations(QCoreApplication &app);

} // namespace Vorel
