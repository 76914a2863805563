// The library's first host: opens the record named on the command line, or the sample record
// the build makes, and prints what it holds.

#include "Loaders/ComtradeLoader.h"
#include "Model/EasyLibKorvane.h"
#include "RecordSummary.h"
#include "Settings/KorvaneSettings.h"

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    EasyLibKorvane::initialize();
    // COMTRADE is read as the user chose in the settings, compatibly unless turned off.
    ComtradeLoader::setDefaultCompatible(KorvaneSettings().isCompatibleLoading());
    QTextStream out(stdout);
    QTextStream err(stderr);
    const QStringList arguments = app.arguments();
    const QString file = arguments.size() > 1 ? arguments.at(1) : QStringLiteral(KORVANE_SAMPLE_RECORD);
    QString errorText;
    const auto record = EasyLibKorvane::open(file, errorText);
    if (!record) {
        err << (errorText.isEmpty() ? QStringLiteral("Не удалось открыть файл") : errorText) << '\n';
        return 1;
    }
    out << recordSummary(*record);
    return 0;
}
