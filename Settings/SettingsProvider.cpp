#include "Settings/SettingsProvider.h"

#include <QSettings>
#include <QStandardPaths>

QSettings* SettingsProvider::settings()
{
    // Destroyed with the static data, which writes out what was set and not yet synced.
    static QSettings instance(fileName(), QSettings::IniFormat);
    return &instance;
}

QString SettingsProvider::fileName()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + QStringLiteral("/Korvane")
        + QStringLiteral(".ini");
}
