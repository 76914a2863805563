// The viewer an engineer runs: a window with one tab per record named on the command line, opened
// from the "Файл" menu or dropped on it.
//   korvane [RECORD...]                 the window
//   korvane --summary [RECORD]          what the record holds, as text (the sample record by default)
//   korvane --grab PICTURE [RECORD...]  the window with the records, saved as a picture, and the
//                                       records' summaries; for runs without a screen

#include "MainWindow.h"
#include "RecordSummary.h"
#include "WindowPicture.h"

#include "Loaders/ComtradeLoader.h"
#include "Model/EasyLibKorvane.h"
#include "Settings/KorvaneSettings.h"
#include "Settings/Translation.h"

#include <QApplication>
#include <QTextStream>

namespace {
// Every mode speaks the language and reads COMTRADE as the user chose in the settings: compatibly
// unless turned off.
void startLibrary()
{
    EasyLibKorvane::initialize();
    const KorvaneSettings settings;
    KorvaneTranslation::install(settings);
    ComtradeLoader::setDefaultCompatible(settings.isCompatibleLoading());
}

int printSummary(const QString& file)
{
    QTextStream out(stdout);
    QTextStream err(stderr);
    QString errorText;
    const auto record = EasyLibKorvane::open(file, errorText);
    if (!record) {
        err << (errorText.isEmpty() ? QStringLiteral("Не удалось открыть файл %1").arg(file) : errorText)
            << '\n';
        return 1;
    }
    out << recordSummary(*record);
    return 0;
}

int runSummary(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    startLibrary();
    const QStringList arguments = app.arguments();
    return printSummary(arguments.size() > 2 ? arguments.at(2) : QStringLiteral(KORVANE_SAMPLE_RECORD));
}

int runGrab(int argc, char* argv[])
{
    QApplication app(argc, argv);
    startLibrary();
    const QStringList arguments = app.arguments();
    if (arguments.size() < 3) {
        QTextStream(stderr) << "korvane --grab PICTURE [RECORD...]\n";
        return 2;
    }
    const QStringList records = arguments.mid(3);
    // Each record is read once without widgets first: a bad one is reported here, and no message
    // box waits for a click that no one can give.
    for (const QString& record : records)
        if (printSummary(record) != 0)
            return 1;
    auto settings = QSharedPointer<KorvaneSettings>::create();
    MainWindow window(settings);
    window.show();
    for (const QString& record : records)
        window.openRecord(record);
    if (!grabWhenLoaded(window, arguments.at(2)))
        return 1;
    QTextStream(stdout) << QStringLiteral("Снимок окна: ") << arguments.at(2) << '\n';
    return 0;
}
} // namespace

int main(int argc, char* argv[])
{
    const QString mode = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (mode == QLatin1String("--summary"))
        return runSummary(argc, argv);
    if (mode == QLatin1String("--grab"))
        return runGrab(argc, argv);
    QApplication app(argc, argv);
    startLibrary();
    auto settings = QSharedPointer<KorvaneSettings>::create();
    MainWindow window(settings);
    window.show();
    for (const QString& record : app.arguments().mid(1))
        window.openRecord(record);
    return app.exec();
}
