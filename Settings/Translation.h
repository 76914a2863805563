#pragma once

#include "korvane_export.h"

#include <QString>

class KorvaneSettings;

// The interface language of the library and of its host. The texts are written in Russian; any
// other language comes from a translation compiled into the library (":/translations/korvane_<code>.qm").
// A host calls install() once its QCoreApplication exists and before it builds any window, since
// the widgets take their texts when they are made.
namespace KorvaneTranslation {
// Installs the translation for the language code ("ru", "en"), replacing the one installed before.
// "ru" and an unknown code leave the Russian texts. False when the code names a language whose
// translation cannot be loaded, or when there is no application yet.
KORVANE_EXPORT bool install(const QString& languageCode);
// The same for the language the user chose in the settings ("Language/LanguageCode").
KORVANE_EXPORT bool install(const KorvaneSettings& settings);
} // namespace KorvaneTranslation
