// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/pipelineoptions.h"

#include <QCoreApplication>

#include "formats/spatialphotosettings.h"
#include "cli/clitext.h"

namespace Vorel {

namespace {

constexpr std::array<BatchChoice<ResizeMode>, 3> resizeModes{{
    {ResizeMode::stretch, "stretch", "Stretch"},
    {ResizeMode::cropFit, "crop-fit", "Crop to fit"},
    {ResizeMode::letterbox, "letterbox", "Letterbox"},
}};

template <typename Enum, size_t N> QString choiceList(const std::array<BatchChoice<Enum>, N> &choices)
{
    QStringList names;
    for (const BatchChoice<Enum> &choice : choices)
        names << QString::fromLatin1(choice.cliName.data(), qsizetype(choice.cliName.size()));
    return names.join(QLatin1Char('|'));
}

template <typename Enum, size_t N>
Enum namedChoice(const std::array<BatchChoice<Enum>, N> &choices, const QString &option, const QString &value)
{
    if (const std::optional<Enum> choice = batchChoiceNamed(choices, value))
        return *choice;
    throw UsageError{CliText::tr("%1 expects %2, not \"%3\"").arg(option, choiceList(choices), value)};
}

std::vector<double> numberList(const QString &option, const QString &value, qsizetype count)
{
    const QStringList parts = value.split(QLatin1Char(','));
    if (parts.size() != count)
        throw UsageError{CliText::tr("%1 expects %2 comma-separated numbers").arg(option).arg(count)};
    std::vector<double> numbers;
    for (const QString &part : parts) {
        bool ok = false;
        numbers.push_back(part.trimmed().toDouble(&ok));
        if (!ok)
            throw UsageError{CliText::tr("%1: \"%2\" is not a number").arg(option, part)};
    }
    return numbers;
}

template <typename T> T checked(const std::optional<T> &value, const char *expectation, const QString &text)
{
    if (!value)
        throw UsageError{CliText::tr(expectation).arg(text)};
    return *value;
}

Shard parseShard(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('/'));
    bool indexOk = false, countOk = false;
    const Shard shard{parts.value(0).toInt(&indexOk), parts.value(1).toInt(&countOk)};
    if (parts.size() != 2 || !indexOk || !countOk || shard.count < 1 || shard.index < 0 || shard.index >= shard.count)
        throw UsageError{CliText::tr("--shard expects I/N with 0 <= I < N, not \"%1\"").arg(text)};
    return shard;
}

using Edit = std::function<void(BatchSettings &)>;

struct OptionRule {
    QString name;
    QString valueName; // empty for a switch
    bool batchOnly;
    const char *help;
    std::function<void(PipelineOptions &, const QString &)> apply;
};

// Options that change the settings record go through `settingEdits`, so that they override
// whichever settings the command starts from.
std::function<void(PipelineOptions &, const QString &)> editing(std::function<Edit(const QString &)> makeEdit)
{
    return [makeEdit](PipelineOptions &o, const QString &value) { o.settingEdits.push_back(makeEdit(value)); };
}

const std::vector<OptionRule> &optionRules()
{
    static const std::vector<OptionRule> rules{
        {QStringLiteral("--input"), choiceList(batchInputFormats), false,
         QT_TRANSLATE_NOOP("VorelCli",
                           "how each input holds its pair (batch default: sbs; convert\n"
                           "default: as the window opens the file, two inputs a pair)"),
         [](PipelineOptions &o, const QString &v) {
             const BatchInputFormat format = namedChoice(batchInputFormats, QStringLiteral("--input"), v);
             o.inputGiven = true;
             o.settingEdits.push_back([format](BatchSettings &s) { s.inputFormat = format; });
         }},
        {QStringLiteral("--output"), choiceList(batchOutputFormats), false,
         QT_TRANSLATE_NOOP("VorelCli",
                           "what to write (default: sbs); border: framed as last set\n"
                           "up in the window; separate: NAME_L and NAME_R files;\n"
                           "mpo and jps: always JPEG data, left view first in an\n"
                           "MPO, right view first in a JPS"),
         editing([](const QString &v) -> Edit {
             const BatchOutputFormat format = namedChoice(batchOutputFormats, QStringLiteral("--output"), v);
             return [format](BatchSettings &s) { s.outputFormat = format; };
         })},
        {QStringLiteral("--format"), choiceList(batchFileFormats), true,
         QT_TRANSLATE_NOOP("VorelCli",
                           "file format of the outputs (default: jpg; spatial\n"
                           "output is always heic)"),
         editing([](const QString &v) -> Edit {
             const BatchFileFormat format = namedChoice(batchFileFormats, QStringLiteral("--format"), v);
             return [format](BatchSettings &s) { s.fileFormat = format; };
         })},
        {QStringLiteral("--pair-by-name"),
         {},
         true,
         QT_TRANSLATE_NOOP("VorelCli",
                           "separate input: pair NAME_L with NAME_R, NAME-left with\n"
                           "NAME-right (any case) and l/NAME with r/NAME instead of\n"
                           "consecutive files"),
         editing([](const QString &) -> Edit { return [](BatchSettings &s) { s.pairByName = true; }; })},
        {QStringLiteral("--strip-metadata"),
         {},
         false,
         QT_TRANSLATE_NOOP("VorelCli",
                           "write no camera Exif (date, camera, lens, exposure, GPS)\n"
                           "into the outputs"),
         editing([](const QString &) -> Edit { return [](BatchSettings &s) { s.stripMetadata = true; }; })},
        {QStringLiteral("--swap"),
         {},
         false,
         QT_TRANSLATE_NOOP("VorelCli", "exchange left and right"),
         editing([](const QString &) -> Edit { return [](BatchSettings &s) { s.swapLR = true; }; })},
        {QStringLiteral("--auto-align"),
         {},
         false,
         QT_TRANSLATE_NOOP("VorelCli",
                           "align the views automatically (a pair without matches\n"
                           "is written unaligned, with a warning)"),
         editing([](const QString &) -> Edit { return [](BatchSettings &s) { s.autoAdj = true; }; })},
        {QStringLiteral("--color-ref"), QStringLiteral("left|right"), false,
         QT_TRANSLATE_NOOP("VorelCli",
                           "match the colours of the other view to this one, which\n"
                           "stays unchanged (left and right as shown, after --swap)"),
         editing([](const QString &v) -> Edit {
             if (v != QLatin1String("left") && v != QLatin1String("right"))
                 throw UsageError{CliText::tr("--color-ref expects left or right, not \"%1\"").arg(v)};
             // Set, the colour-matching flag leaves the view shown on the right unchanged,
             // swapped or not (it corrects the left original unless it equals the swap flag).
             const bool rightStays = v == QLatin1String("right");
             return [rightStays](BatchSettings &s) {
                 s.autoAdjCol = true;
                 s.autoAdjColLeft = rightStays;
             };
         })},
        {QStringLiteral("--adjust"), QStringLiteral("H,V,ROT,SCALE"), false,
         QT_TRANSLATE_NOOP("VorelCli",
                           "manual adjustment: offsets in percent of the width,\n"
                           "rotation in degrees, scale in percent"),
         editing([](const QString &v) -> Edit {
             const std::vector<double> n = numberList(QStringLiteral("--adjust"), v, 4);
             return [n](BatchSettings &s) {
                 s.manualAdj = true;
                 s.manualH = n[0];
                 s.manualV = n[1];
                 s.manualRot = n[2];
                 s.manualScale = n[3];
             };
         })},
        {QStringLiteral("--crop"), QStringLiteral("X,Y,W,H"), false,
         QT_TRANSLATE_NOOP("VorelCli",
                           "cut this rectangle (pixels of the adjusted pair) from\n"
                           "both views"),
         editing([](const QString &v) -> Edit {
             const std::vector<double> n = numberList(QStringLiteral("--crop"), v, 4);
             if (n[0] < 0 || n[1] < 0 || n[2] < 1 || n[3] < 1)
                 throw UsageError{CliText::tr("--crop expects X,Y at least 0 and W,H at least 1")};
             return [n](BatchSettings &s) {
                 s.cropEnabled = true;
                 s.cropX = int(n[0]);
                 s.cropY = int(n[1]);
                 s.cropW = int(n[2]);
                 s.cropH = int(n[3]);
             };
         })},
        {QStringLiteral("--resize"), QStringLiteral("W,H[,") + choiceList(resizeModes) + QLatin1Char(']'), false,
         QT_TRANSLATE_NOOP("VorelCli", "bring both views to W x H (default: stretch)"),
         editing([](const QString &v) -> Edit {
             QStringList parts = v.split(QLatin1Char(','));
             const ResizeMode mode = parts.size() == 3
                                         ? namedChoice(resizeModes, QStringLiteral("--resize"), parts.takeLast())
                                         : ResizeMode::stretch;
             const std::vector<double> n = numberList(QStringLiteral("--resize"), parts.join(QLatin1Char(',')), 2);
             if (n[0] < 1 || n[1] < 1)
                 throw UsageError{CliText::tr("--resize expects a width and height of at least 1")};
             return [n, mode](BatchSettings &s) {
                 s.resizeEnabled = true;
                 s.resizeW = int(n[0]);
                 s.resizeH = int(n[1]);
                 s.resizeMode = mode;
             };
         })},
        {QStringLiteral("--fov"), QStringLiteral("F"), false,
         QT_TRANSLATE_NOOP("VorelCli", "spatial output: horizontal field of view in degrees"),
         editing([](const QString &v) -> Edit {
             const double fov =
                 checked(parseFieldOfView(v),
                         QT_TRANSLATE_NOOP("VorelCli", "--fov expects degrees between 0 and 180, not \"%1\""), v);
             return [fov](BatchSettings &s) { s.spatialFov = fov; };
         })},
        {QStringLiteral("--disparity-adj"), QStringLiteral("N"), false,
         QT_TRANSLATE_NOOP("VorelCli", "spatial output: disparity adjustment"), editing([](const QString &v) -> Edit {
             const int adj =
                 checked(parseDisparityAdjustment(v),
                         QT_TRANSLATE_NOOP("VorelCli", "--disparity-adj expects an integer, not \"%1\""), v);
             return [adj](BatchSettings &s) { s.spatialAdj = adj; };
         })},
        {QStringLiteral("--stereo-base"), QStringLiteral("M"), false,
         QT_TRANSLATE_NOOP("VorelCli", "spatial output: stereo base in metres"), editing([](const QString &v) -> Edit {
             const double stb =
                 checked(parseStereoBase(v),
                         QT_TRANSLATE_NOOP("VorelCli", "--stereo-base expects metres above 0, not \"%1\""), v);
             return [stb](BatchSettings &s) { s.spatialStb = stb; };
         })},
        {QStringLiteral("--yes"),
         {},
         false,
         QT_TRANSLATE_NOOP("VorelCli", "overwrite existing outputs"),
         [](PipelineOptions &o, const QString &) { o.overwrite = true; }},
        {QStringLiteral("--stored"),
         {},
         true,
         QT_TRANSLATE_NOOP("VorelCli",
                           "start from the settings the batch window saved last\n"
                           "(else from the defaults); the options given override them"),
         [](PipelineOptions &o, const QString &) { o.stored = true; }},
        {QStringLiteral("--shard"), QStringLiteral("I/N"), true,
         QT_TRANSLATE_NOOP("VorelCli",
                           "process only the jobs whose position in the job list is\n"
                           "I modulo N (I from 0 to N-1): N shards make one full run"),
         [](PipelineOptions &o, const QString &v) { o.shard = parseShard(v); }},
        {QStringLiteral("--skip-existing"),
         {},
         true,
         QT_TRANSLATE_NOOP("VorelCli", "skip a job whose outputs all exist (resume a run)"),
         [](PipelineOptions &o, const QString &) { o.skipExisting = true; }},
        {QStringLiteral("--log"), QStringLiteral("FILE"), true,
         QT_TRANSLATE_NOOP("VorelCli", "append one JSON line per finished job to FILE"),
         [](PipelineOptions &o, const QString &v) { o.logPath = v; }},
        {QStringLiteral("--dry-run"),
         {},
         true,
         QT_TRANSLATE_NOOP("VorelCli", "list the jobs and their outputs on stdout, write nothing"),
         [](PipelineOptions &o, const QString &) { o.dryRun = true; }},
    };
    return rules;
}

const OptionRule &ruleNamed(const QString &name, CliCommand command)
{
    for (const OptionRule &rule : optionRules())
        if (rule.name == name) {
            if (rule.batchOnly && command != CliCommand::batch)
                throw UsageError{CliText::tr("%1 is an option of vorel-cli batch").arg(name)};
            return rule;
        }
    throw UsageError{CliText::tr("unknown option %1").arg(name)};
}

} // namespace

BatchSettings PipelineOptions::settings(BatchSettings base) const
{
    for (const std::function<void(BatchSettings &)> &edit : settingEdits)
        edit(base);
    return base;
}

PipelineOptions parsePipelineOptions(const QStringList &arguments, CliCommand command)
{
    PipelineOptions options;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments[i];
        if (!argument.startsWith(QLatin1String("--")) || argument == QLatin1String("--")) {
            options.positional << argument;
            continue;
        }
        const qsizetype eq = argument.indexOf(QLatin1Char('='));
        const OptionRule &rule = ruleNamed(eq > 0 ? argument.left(eq) : argument, command);
        QString value = eq > 0 ? argument.mid(eq + 1) : QString();
        if (!rule.valueName.isEmpty() && value.isNull()) {
            if (++i >= arguments.size())
                throw UsageError{CliText::tr("%1 needs a value").arg(rule.name)};
            value = arguments[i];
        }
        rule.apply(options, value);
    }
    return options;
}

// A long list of choices broken after a "|" so that no line passes the terminal's width; the
// lines after the first start under the list's first character.
QString wrappedChoices(const QString &choices, qsizetype column)
{
    constexpr qsizetype width = 100;
    QString wrapped;
    qsizetype lineStart = -column;
    for (const QString &choice : choices.split(QLatin1Char('|'))) {
        const bool first = wrapped.isEmpty();
        if (!first && wrapped.size() - lineStart + 1 + choice.size() > width - column) {
            wrapped += QLatin1String("|\n") + QString(column, QLatin1Char(' '));
            lineStart = wrapped.size();
        } else if (!first) {
            wrapped += QLatin1Char('|');
        }
        wrapped += choice;
    }
    return wrapped;
}

QString optionsHelp(CliCommand command)
{
    constexpr qsizetype helpColumn = 37;
    const QString indent(helpColumn, QLatin1Char(' '));
    QString help;
    for (const OptionRule &rule : optionRules()) {
        if (rule.batchOnly && command != CliCommand::batch)
            continue;
        QString head = QStringLiteral("  ") + rule.name;
        if (!rule.valueName.isEmpty())
            head += QLatin1Char(' ') + wrappedChoices(rule.valueName, head.size() + 1);
        head = head.size() < helpColumn ? head.leftJustified(helpColumn) : head + QLatin1Char('\n') + indent;
        help +=
            head + CliText::tr(rule.help).replace(QLatin1Char('\n'), QLatin1Char('\n') + indent) + QLatin1Char('\n');
    }
    return help;
}

} // namespace Vorel
