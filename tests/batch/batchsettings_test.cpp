// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Batch settings: what an empty or hand-edited store loads as.
#include <functional>

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "batch/batchsettings.h"
#include "core/preferences.h"

using namespace Vorel;

namespace {

struct LoadCase {
    const char *name;
    std::function<void(Preferences &)> store;
    std::function<void(BatchSettings &)> expect; // applied to the defaults
    std::optional<BatchCropSettings> lastCrop;
    std::optional<BatchResizeSettings> lastResize;
};

void set(Preferences &p, const char *key, double value) { p.setNumber(QString::fromLatin1(key), value); }

TEST(BatchSettings, LoadsFromTheStore)
{
    const LoadCase cases[] = {
        {"emptyStore", [](Preferences &) {}, [](BatchSettings &) {}},
        {"storedZeroSizesAndSpatialGiveDefaults",
         [](Preferences &p) {
             for (const char *key : {"batch.resizeW", "batch.resizeH", "spatialPhoto.fov", "spatialPhoto.adj",
                                     "spatialPhoto.stb"})
                 set(p, key, 0);
             set(p, "spatialPhoto.adj", -3);
         },
         [](BatchSettings &) {}},
        {"outOfRangeIndexesFallBackToFirstCase",
         [](Preferences &p) {
             set(p, "batch.inputFormat", 9);
             set(p, "batch.outputFormat", -1);
             set(p, "batch.fileFormat", 4);
             set(p, "batch.resizeMode", 3);
         },
         [](BatchSettings &) {}},
        {"lastCasesAndFractionalCrop",
         [](Preferences &p) {
             set(p, "batch.inputFormat", 3);
             set(p, "batch.outputFormat", 7);
             set(p, "batch.fileFormat", 3);
             set(p, "batch.resizeMode", 2);
             set(p, "batch.cropX", 10.9); // the crop command stores what it measured
             set(p, "batch.cropW", 640.5);
             p.setFlag(QStringLiteral("batch.autoAdjColLeft"), true);
         },
         [](BatchSettings &s) {
             s.inputFormat = BatchInputFormat::mpo;
             s.outputFormat = BatchOutputFormat::imageBorder;
             s.fileFormat = BatchFileFormat::heic;
             s.resizeMode = ResizeMode::letterbox;
             s.cropX = 10;
             s.cropW = 640;
             s.autoAdjColLeft = true;
         }},
        {"viewerChoicesWin",
         [](Preferences &p) {
             set(p, "batch.cropW", 5);
             set(p, "batch.resizeW", 800);
         },
         [](BatchSettings &s) {
             s.cropX = 1, s.cropY = 2, s.cropW = 3, s.cropH = 4;
             s.resizeW = 100, s.resizeH = 50, s.resizeMode = ResizeMode::cropFit;
         },
         BatchCropSettings{1, 2, 3, 4}, BatchResizeSettings{100, 50, ResizeMode::cropFit}},
    };
    for (const LoadCase &c : cases) {
        QTemporaryDir dir;
        Preferences preferences(dir.filePath(QStringLiteral("prefs.ini")));
        c.store(preferences);
        BatchSettings expected;
        c.expect(expected);
        EXPECT_EQ(BatchSettings::load(preferences, c.lastCrop, c.lastResize), expected) << c.name;
    }
}

} // namespace
