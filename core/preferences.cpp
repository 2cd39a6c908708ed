// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/preferences.h"

#include <QSettings>

namespace Vorel {

Preferences::Preferences()
    : settings(std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Vorel"),
                                           QStringLiteral("Vorel")))
{
}

Preferences::Preferences(const QString &iniPath)
    : settings(std::make_unique<QSettings>(iniPath, QSettings::IniFormat))
{
}

Preferences::~Preferences() = default;

bool Preferences::contains(const QString &key) const { return settings->contains(key); }
double Preferences::number(const QString &key) const { return settings->value(key, 0.0).toDouble(); }
int Preferences::integer(const QString &key) const { return settings->value(key, 0).toInt(); }
bool Preferences::flag(const QString &key) const { return settings->value(key, false).toBool(); }
QString Preferences::text(const QString &key) const { return settings->value(key).toString(); }
QByteArray Preferences::data(const QString &key) const { return settings->value(key).toByteArray(); }

void Preferences::setNumber(const QString &key, double value) { settings->setValue(key, value); }
void Preferences::setInteger(const QString &key, int value) { settings->setValue(key, value); }
void Preferences::setFlag(const QString &key, bool value) { settings->setValue(key, value); }
void Preferences::setText(const QString &key, const QString &value) { settings->setValue(key, value); }
void Preferences::setData(const QString &key, const QByteArray &value) { settings->setValue(key, value); }
void Preferences::remove(const QString &key) { settings->remove(key); }
void Preferences::sync() { settings->sync(); }
QString Preferences::fileName() const { return settings->fileName(); }

} // namespace Vorel
