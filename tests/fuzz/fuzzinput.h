// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// What the fuzz targets share: the input as Qt bytes, as a file for readers that take a path,
// and a check that stops the run so that the fuzzer keeps the input.
#pragma once

#include <cstddef>
#include <cstdint>

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

namespace Vorel::Fuzz {

inline QByteArray bytes(const uint8_t *data, size_t size)
{
    return QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size));
}

inline void check(bool condition)
{
    if (!condition)
        __builtin_trap();
}

// A folder of this process, removed at exit; every run reuses its file names.
inline const QString &folder()
{
    static const QTemporaryDir dir;
    static const QString path = dir.path();
    return path;
}

// `contents` written as folder()/`name`, replacing the last run's file; its path.
inline QString writeFile(const QByteArray &contents, const QString &name)
{
    const QString path = folder() + QLatin1Char('/') + name;
    QFile file(path);
    check(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(contents) == contents.size());
    return path;
}

} // namespace Vorel::Fuzz
