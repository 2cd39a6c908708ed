// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Starting a batch run from the window: list the input files, ask before overwriting, then open
// the progress window and run the jobs on a worker.
#pragma once

#include <functional>

#include <QStringList>

class QWidget;

namespace Vorel {

class BatchProgressViewController;
class Preferences;
struct BatchSettings;

// The questions a run may ask, replaceable so tests can answer them.
struct BatchRunPrompts {
    std::function<void(const QString &)> alert; // empty: a warning box on the parent
    // True lets the run overwrite these existing output names; empty asks with askOverwrite.
    std::function<bool(const QStringList &existingNames)> confirmOverwrite;
};

// The overwrite question: the names as overwriteQuestion lists them, "Overwrite" (the only
// button that lets the run start) and "Cancel".
bool askOverwrite(QWidget *parent, const QStringList &existingNames);

// Runs `settings` (the run works on its own copy). `preferences` is the store the image-border
// output takes its frame from. Returns the progress window, which deletes itself (and the
// processor) when closed after the run, or null when nothing was started.
BatchProgressViewController *runBatch(const BatchSettings &settings, const Preferences &preferences,
                                      const BatchRunPrompts &prompts, QWidget *parent);

} // namespace Vorel
