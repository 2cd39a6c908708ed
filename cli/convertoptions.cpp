// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/convertoptions.h"

#include <algorithm>
#include <functional>
#include <vector>

#include "formats/spatialphotosettings.h"

namespace Vorel {

namespace {

struct InputKindName {
    const char *name;
    StereoFileKind kind;
    bool separate;
};

constexpr InputKindName inputKinds[] = {
    {"sbs", StereoFileKind::sideBySide, false},
    {"spatial", StereoFileKind::spatial, false},
    {"separate", StereoFileKind::sideBySide, true},
    {"mpo", StereoFileKind::mpo, false},
};

std::vector<double> numberList(const QString &option, const QString &value, qsizetype count)
{
    const QStringList parts = value.split(QLatin1Char(','));
    if (parts.size() != count)
        throw UsageError{QStringLiteral("%1 expects %2 comma-separated numbers").arg(option).arg(count)};
    std::vector<double> numbers;
    for (const QString &part : parts) {
        bool ok = false;
        const double number = part.trimmed().toDouble(&ok);
        if (!ok)
            throw UsageError{QStringLiteral("%1: \"%2\" is not a number").arg(option, part)};
        numbers.push_back(number);
    }
    return numbers;
}

struct OptionRule {
    const char *name;
    bool takesValue;
    std::function<void(ConvertOptions &, const QString &)> apply;
};

const std::vector<OptionRule> &optionRules()
{
    static const std::vector<OptionRule> rules{
        {"--input", true,
         [](ConvertOptions &o, const QString &v) {
             for (const InputKindName &k : inputKinds)
                 if (v == QLatin1String(k.name)) {
                     o.inputKind = k.kind;
                     o.separateInput = k.separate;
                     return;
                 }
             throw UsageError{QStringLiteral("unknown input format \"%1\"").arg(v)};
         }},
        {"--output", true,
         [](ConvertOptions &o, const QString &v) {
             o.spatialOutput = v == QLatin1String("spatial");
             if (o.spatialOutput)
                 return;
             for (const DisplayModeInfo &info : displayModes)
                 if (v == QLatin1String(info.cliName.data(), info.cliName.size())) {
                     o.output = info.mode;
                     return;
                 }
             throw UsageError{QStringLiteral("unknown output format \"%1\"").arg(v)};
         }},
        {"--swap", false, [](ConvertOptions &o, const QString &) { o.swap = true; }},
        {"--auto-align", false, [](ConvertOptions &o, const QString &) { o.autoAlign = true; }},
        {"--color-ref", true,
         [](ConvertOptions &o, const QString &v) {
             if (v != QLatin1String("left") && v != QLatin1String("right"))
                 throw UsageError{QStringLiteral("--color-ref expects left or right, not \"%1\"").arg(v)};
             o.colourReferenceRight = v == QLatin1String("right");
         }},
        {"--adjust", true,
         [](ConvertOptions &o, const QString &v) {
             const std::vector<double> n = numberList(QStringLiteral("--adjust"), v, 4);
             o.adjustment = StereoAdjustment{n[0], n[1], n[2], n[3]};
         }},
        {"--crop", true,
         [](ConvertOptions &o, const QString &v) {
             const std::vector<double> n = numberList(QStringLiteral("--crop"), v, 4);
             if (n[0] < 0 || n[1] < 0 || n[2] < 1 || n[3] < 1)
                 throw UsageError{QStringLiteral("--crop expects X,Y at least 0 and W,H at least 1")};
             o.crop = QRect(int(n[0]), int(n[1]), int(n[2]), int(n[3]));
         }},
        {"--resize", true,
         [](ConvertOptions &o, const QString &v) {
             QStringList parts = v.split(QLatin1Char(','));
             ResizeMode mode = ResizeMode::stretch;
             if (parts.size() == 3) {
                 const QString name = parts.takeLast();
                 const std::pair<const char *, ResizeMode> modes[] = {
                     {"stretch", ResizeMode::stretch}, {"crop-fit", ResizeMode::cropFit}, {"letterbox", ResizeMode::letterbox}};
                 const auto found = std::find_if(std::begin(modes), std::end(modes),
                                                 [&](const auto &m) { return name == QLatin1String(m.first); });
                 if (found == std::end(modes))
                     throw UsageError{QStringLiteral("--resize: unknown mode \"%1\"").arg(name)};
                 mode = found->second;
             }
             const std::vector<double> n = numberList(QStringLiteral("--resize"), parts.join(QLatin1Char(',')), 2);
             if (n[0] < 1 || n[1] < 1)
                 throw UsageError{QStringLiteral("--resize expects a width and height of at least 1")};
             o.resize = ConvertOptions::Resize{int(n[0]), int(n[1]), mode};
         }},
        {"--fov", true,
         [](ConvertOptions &o, const QString &v) {
             o.fov = parseFieldOfView(v);
             if (!o.fov)
                 throw UsageError{QStringLiteral("--fov expects degrees between 0 and 180, not \"%1\"").arg(v)};
         }},
        {"--disparity-adj", true,
         [](ConvertOptions &o, const QString &v) {
             o.disparityAdjustment = parseDisparityAdjustment(v);
             if (!o.disparityAdjustment)
                 throw UsageError{QStringLiteral("--disparity-adj expects an integer, not \"%1\"").arg(v)};
         }},
        {"--stereo-base", true,
         [](ConvertOptions &o, const QString &v) {
             o.stereoBase = parseStereoBase(v);
             if (!o.stereoBase)
                 throw UsageError{QStringLiteral("--stereo-base expects metres above 0, not \"%1\"").arg(v)};
         }},
        {"--yes", false, [](ConvertOptions &o, const QString &) { o.overwrite = true; }},
    };
    return rules;
}

} // namespace

ConvertOptions parseConvertOptions(const QStringList &arguments)
{
    ConvertOptions options;
    QStringList positional;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments[i];
        if (!argument.startsWith(QLatin1String("--")) || argument == QLatin1String("--")) {
            positional << argument;
            continue;
        }
        QString name = argument, value;
        if (const qsizetype eq = argument.indexOf(QLatin1Char('=')); eq > 0) {
            name = argument.left(eq);
            value = argument.mid(eq + 1);
        }
        const OptionRule *rule = nullptr;
        for (const OptionRule &candidate : optionRules())
            if (name == QLatin1String(candidate.name))
                rule = &candidate;
        if (!rule)
            throw UsageError{QStringLiteral("unknown option %1").arg(name)};
        if (rule->takesValue && value.isNull()) {
            if (++i >= arguments.size())
                throw UsageError{QStringLiteral("%1 needs a value").arg(name)};
            value = arguments[i];
        }
        rule->apply(options, value);
    }
    if (positional.size() == 3)
        options.separateInput = true;
    const qsizetype expected = options.separateInput ? 3 : 2;
    if (positional.size() != expected)
        throw UsageError{options.separateInput ? QStringLiteral("a separate pair needs LEFT RIGHT OUTPUT")
                                               : QStringLiteral("expected INPUT [RIGHT] OUTPUT")};
    options.input = positional.first();
    if (options.separateInput)
        options.right = positional[1];
    options.outputPath = positional.last();
    return options;
}

QString convertUsage()
{
    return QStringLiteral(
        "usage: vorel-cli convert [options] INPUT [RIGHT] OUTPUT\n"
        "  --input sbs|spatial|separate|mpo   how INPUT holds the pair (default: by extension;\n"
        "                                     two inputs are a separate left/right pair)\n"
        "  --output sbs|half-sbs|anaglyph-gray|anaglyph-color|anaglyph-dubois|border|spatial\n"
        "                                     what to write (default: sbs)\n"
        "  --fov F --disparity-adj N --stereo-base M\n"
        "                                     spatial output: horizontal field of view (degrees),\n"
        "                                     disparity adjustment, stereo base (metres); default:\n"
        "                                     the values last used in the window\n"
        "  --swap                             exchange left and right\n"
        "  --auto-align                       align the pair automatically (vertical offset, rotation,\n"
        "                                     size, keystone, horizontal placement)\n"
        "  --color-ref left|right             match the colours of the other image to this one\n"
        "  --adjust H,V,ROT,SCALE             manual adjustment (percent of width, degrees, percent)\n"
        "  --crop X,Y,W,H                     cut this rectangle (pixels of the adjusted pair) from both views\n"
        "  --resize W,H[,stretch|crop-fit|letterbox]\n"
        "                                     bring both views to W x H (default: stretch)\n"
        "  --yes                              overwrite OUTPUT without asking\n"
        "The extension of OUTPUT picks the encoding: jpg/jpeg, png, tif/tiff, heic, bmp (else PNG).\n");
}

} // namespace Vorel
