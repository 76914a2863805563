// The batch host: korvane-convert [--strict] [--store] SOURCE DESTINATION converts a record
// without a window. --store keeps the samples of a COMTRADE archive uncompressed. On failure
// the reason goes to the error output and the exit code is 1.

#include "Model/EasyLibKorvane.h"
#include "Savers/Converter.h"
#include "Settings/KorvaneSettings.h"
#include "Settings/Translation.h"
#include "apps/ReadingOption.h"

#include <QCoreApplication>
#include <QStringList>
#include <QTextStream>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    EasyLibKorvane::initialize();
    // The reasons of a failure come in the language the user chose in the settings.
    KorvaneTranslation::install(KorvaneSettings());
    QString error;
    QStringList args = applyReadingOption(app.arguments().mid(1));
    const bool store = args.removeAll(QStringLiteral("--store")) > 0;
    if (Converter::convertOsc(args, error, store))
        return 0;
    QTextStream err(stderr);
    err.setCodec("UTF-8");
    err << error << '\n';
    return 1;
}
