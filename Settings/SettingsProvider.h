#pragma once

#include "korvane_export.h"

class QSettings;
class QString;

// The process-wide settings file: one QSettings, made on first use and kept until the process ends.
class KORVANE_EXPORT SettingsProvider
{
public:
    static QSettings* settings();
    // The ini file: the writable application configuration folder, "/Korvane" and ".ini".
    static QString fileName();
};
