// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Test helper: whole files read and written, test data copied into a scratch folder, the output
// of the outside programs that read our files independently, and how far two pictures differ.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ostream>

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

// Readable texts and lists in failure messages.
inline void PrintTo(const QString &text, std::ostream *os)
{
    *os << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList &list, std::ostream *os)
{
    *os << list.join(QStringLiteral(", ")).toStdString();
}

namespace Vorel::TestSupport {

// A path under tests/data.
inline QString testData(const QString &relative)
{
    return QStringLiteral(VOREL_TEST_DATA "/") + relative;
}

// Empty when the file cannot be read.
inline QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline bool writeAll(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// The test data file `relative` copied into `dir` under `name` (its own name by default); the
// copy's path, or an empty string when the copy failed.
inline QString copiedInto(const QTemporaryDir &dir, const QString &relative, const QString &name = {})
{
    const QString path = dir.filePath(name.isEmpty() ? QFileInfo(relative).fileName() : name);
    return QFile::copy(testData(relative), path) ? path : QString();
}

// What a program writes to its standard output, run to its end.
inline QByteArray runProgram(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(120000);
    return process.readAllStandardOutput();
}

// exiftool's numeric JSON for `arguments` (tags to show, then files): one object per file.
inline QJsonArray exiftoolJson(const QStringList &arguments)
{
    const QStringList json = { QStringLiteral("-json"), QStringLiteral("-n") };
    return QJsonDocument::fromJson(runProgram(QStringLiteral("exiftool"), json + arguments)).array();
}

// How many bytes differ between two blocks of the same size.
inline int changedBytes(const QByteArray &a, const QByteArray &b)
{
    int changed = 0;
    for (qsizetype i = 0; i < std::min(a.size(), b.size()); ++i)
        changed += a[i] != b[i];
    return changed;
}

// How far two pictures of the same size are apart, over the red, green and blue of every pixel.
struct PixelDifference {
    double mean; // absolute difference
    double psnr; // peak signal-to-noise ratio in dB, infinite when equal
    int largest;
};

inline PixelDifference pixelDifference(const QImage &a, const QImage &b)
{
    double sum = 0, squares = 0;
    int largest = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            for (const int delta : { qRed(p) - qRed(q), qGreen(p) - qGreen(q), qBlue(p) - qBlue(q) }) {
                sum += std::abs(delta);
                squares += delta * delta;
                largest = std::max(largest, std::abs(delta));
            }
        }
    const double values = 3.0 * a.width() * a.height();
    return { sum / values, 10 * std::log10(255.0 * 255.0 * values / squares), largest };
}

} // namespace Vorel::TestSupport
