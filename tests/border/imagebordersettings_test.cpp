// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <functional>

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "border/imagebordersettings.h"
#include "core/preferences.h"

using namespace Vorel;

namespace {

struct LoadCase {
    const char *name;
    std::function<void(Preferences &)> store;
    std::function<void(ImageBorderSettings &)> expect; // applied to the defaults
};

TEST(ImageBorderSettings, LoadFollowsThePresenceRules)
{
    const LoadCase cases[] = {
        {"emptyStore", [](Preferences &) {}, [](ImageBorderSettings &) {}},
        {"layoutSbs", [](Preferences &p) { p.setInteger(QStringLiteral("ib.layoutKind"), 0); },
         [](ImageBorderSettings &s) { s.layoutKind = BorderLayoutKind::sbs; }},
        {"layoutLrl", [](Preferences &p) { p.setInteger(QStringLiteral("ib.layoutKind"), 1); },
         [](ImageBorderSettings &s) { s.layoutKind = BorderLayoutKind::lrl; }},
        {"unknownLayout", [](Preferences &p) { p.setInteger(QStringLiteral("ib.layoutKind"), 7); },
         [](ImageBorderSettings &) {}},
        // A stored false or 0 is a value, not an absence.
        {"storedFalseAndZero",
         [](Preferences &p) {
             p.setFlag(QStringLiteral("ib.useBorder"), false);
             p.setFlag(QStringLiteral("ib.useFusionDots"), false);
             p.setNumber(QStringLiteral("ib.borderWidthPercent"), 0);
             p.setNumber(QStringLiteral("ib.fusionDotSizePercent"), -2.5);
         },
         [](ImageBorderSettings &s) {
             s.useBorder = false;
             s.useFusionDots = false;
             s.borderWidthPercent = 0;
             s.fusionDotSizePercent = -2.5;
         }},
        {"redAloneDecidesColour", [](Preferences &p) { p.setNumber(QStringLiteral("ib.borderColor.r"), 0.5); },
         [](ImageBorderSettings &s) { s.borderColor = {0.5, 0, 0, 0}; }},
        {"colourWithoutRedIsDefault",
         [](Preferences &p) {
             p.setNumber(QStringLiteral("ib.fusionDotColor.g"), 1);
             p.setNumber(QStringLiteral("ib.fusionDotColor.a"), 1);
         },
         [](ImageBorderSettings &) {}},
    };
    for (const LoadCase &c : cases) {
        QTemporaryDir dir;
        Preferences preferences(dir.filePath(QStringLiteral("prefs.ini")));
        c.store(preferences);
        ImageBorderSettings expected;
        c.expect(expected);
        EXPECT_EQ(ImageBorderSettings::load(preferences), expected) << c.name;
    }
}

TEST(ImageBorderSettings, SaveThenLoadKeepsEveryValueExactly)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("prefs.ini"));
    ImageBorderSettings s;
    s.layoutKind = BorderLayoutKind::lrl;
    s.useBorder = false;
    s.borderWidthPercent = 1.0 / 3;
    s.borderColor = {0.1, 0.2, 0.3, 0.123456789};
    s.cornerRadiusPercent = -4;
    s.borderBlur = 1.26;
    s.useFusionDots = false;
    s.fusionDotColor = {0.9, 0.8, 0.7, 0.6};
    s.fusionDotSizePercent = 12.5;
    {
        Preferences preferences(path);
        s.save(preferences);
    }
    EXPECT_EQ(ImageBorderSettings::load(Preferences(path)), s);
}

} // namespace
