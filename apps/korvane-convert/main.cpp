// The batch host: korvane-convert [--strict] SOURCE DESTINATION converts a record without a
// window. On failure the reason goes to the error output and the exit code is 1.

#include "Model/EasyLibKorvane.h"
#include "Savers/Converter.h"
#include "Settings/KorvaneSettings.h"
#include "Settings/Translation.h"
#include "apps/ReadingOption.h"

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    EasyLibKorvane::initialize();
    // The reasons of a failure come in the language the user chose in the settings.
    KorvaneTranslation::install(KorvaneSettings());
    QString error;
    if (Converter::convertOsc(applyReadingOption(app.arguments().mid(1)), error))
        return 0;
    QTextStream err(stderr);
    err.setCodec("UTF-8");
    err << error << '\n';
    return 1;
}
