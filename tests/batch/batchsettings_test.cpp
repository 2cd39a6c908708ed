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
    std::vector<std::pair<const char *, double>> stored;
    std::function<void(BatchSettings &)> expect; // applied to the defaults
    std::optional<BatchCropSettings> lastCrop;
    std::optional<BatchResizeSettings> lastResize;
    const char *flag = nullptr; // stored as true
};

TEST(BatchSettings, LoadsFromTheStore)
{
    const LoadCase cases[] = {
        {"emptyStore", {}, [](BatchSettings &) {}},
        {"storedZeroSizesAndSpatialGiveDefaults",
         {{"batch.resizeW", 0}, {"batch.resizeH", 0}, {"spatialPhoto.fov", 0}, {"spatialPhoto.adj", -3},
          {"spatialPhoto.stb", 0}},
         [](BatchSettings &) {}},
        {"outOfRangeIndexesFallBackToFirstCase",
         {{"batch.inputFormat", 9}, {"batch.outputFormat", -1}, {"batch.fileFormat", 4}, {"batch.resizeMode", 3}},
         [](BatchSettings &) {}},
        {"lastCasesAndFractionalCrop", // the crop command stores what it measured
         {{"batch.inputFormat", 3}, {"batch.outputFormat", 7}, {"batch.fileFormat", 3}, {"batch.resizeMode", 2},
          {"batch.cropX", 10.9}, {"batch.cropW", 640.5}},
         [](BatchSettings &s) {
             s.inputFormat = BatchInputFormat::mpo;
             s.outputFormat = BatchOutputFormat::imageBorder;
             s.fileFormat = BatchFileFormat::heic;
             s.resizeMode = ResizeMode::letterbox;
             s.cropX = 10;
             s.cropW = 640;
             s.autoAdjColLeft = true;
         },
         {}, {}, "batch.autoAdjColLeft"},
        {"viewerChoicesWin", {{"batch.cropW", 5}, {"batch.resizeW", 800}},
         [](BatchSettings &s) {
             s.cropX = 1, s.cropY = 2, s.cropW = 3, s.cropH = 4;
             s.resizeW = 100, s.resizeH = 50, s.resizeMode = ResizeMode::cropFit;
         },
         BatchCropSettings{1, 2, 3, 4}, BatchResizeSettings{100, 50, ResizeMode::cropFit}},
    };
    for (const LoadCase &c : cases) {
        QTemporaryDir dir;
        Preferences preferences(dir.filePath(QStringLiteral("prefs.ini")));
        for (const auto &[key, value] : c.stored)
            preferences.setNumber(QString::fromLatin1(key), value);
        if (c.flag)
            preferences.setFlag(QString::fromLatin1(c.flag), true);
        BatchSettings expected;
        c.expect(expected);
        EXPECT_EQ(BatchSettings::load(preferences, c.lastCrop, c.lastResize), expected) << c.name;
    }
}

} // namespace
