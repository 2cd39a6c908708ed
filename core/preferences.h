// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The per-user preferences store: flat dotted keys in one INI file. A missing number
// reads 0, a missing flag false, missing text and data empty.
#pragma once

#include <memory>

#include <QByteArray>
#include <QString>

class QSettings;

namespace Vorel {

class Preferences {
public:
    // The user's store (~/.config/Vorel/Vorel.ini).
    Preferences();
    // A store in the given INI file (tests, isolated runs).
    explicit Preferences(const QString &iniPath);
    ~Preferences();
    Preferences(const Preferences &) = delete;
    Preferences &operator=(const Preferences &) = delete;

    bool contains(const QString &key) const;
    double number(const QString &key) const;
    int integer(const QString &key) const;
    bool flag(const QString &key) const;
    QString text(const QString &key) const;
    QByteArray data(const QString &key) const;

    void setNumber(const QString &key, double value);
    void setInteger(const QString &key, int value);
    void setFlag(const QString &key, bool value);
    void setText(const QString &key, const QString &value);
    void setData(const QString &key, const QByteArray &value);
    void remove(const QString &key);
    void sync();

    // The INI file behind the store. Another Preferences on it (for instance on a worker
    // thread, where this object must not be used) sees this one's changes at once.
    QString fileName() const;

private:
    std::unique_ptr<QSettings> settings;
};

} // namespace Vorel
