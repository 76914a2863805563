#include "Settings/Translation.h"

#include "Settings/KorvaneSettings.h"

#include <QCoreApplication>
#include <QTranslator>

namespace {
const QString sourceLanguage = QStringLiteral("ru");

// The one translator of the library: installing another language removes it first.
QTranslator*& installedTranslator()
{
    static QTranslator* translator = nullptr;
    return translator;
}

void removeInstalled()
{
    QTranslator*& translator = installedTranslator();
    if (!translator)
        return;
    QCoreApplication::removeTranslator(translator);
    delete translator;
    translator = nullptr;
}
} // namespace

namespace KorvaneTranslation {
bool install(const QString& languageCode)
{
    if (!QCoreApplication::instance())
        return false;
    removeInstalled();
    if (languageCode.isEmpty() || languageCode == sourceLanguage)
        return true;
    auto translator = new QTranslator;
    if (!translator->load(QStringLiteral(":/translations/korvane_%1.qm").arg(languageCode))
        || !QCoreApplication::installTranslator(translator)) {
        delete translator;
        return false;
    }
    installedTranslator() = translator;
    return true;
}

bool install(const KorvaneSettings& settings)
{
    return install(settings.languageCode());
}
} // namespace KorvaneTranslation
