// The library's first host: opens the record named on the command line and prints what it holds.

#include "Model/EasyLibKorvane.h"
#include "RecordSummary.h"

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    EasyLibKorvane::initialize();
    QTextStream out(stdout);
    QTextStream err(stderr);
    const QStringList arguments = app.arguments();
    if (arguments.size() < 2) {
        err << "Usage: korvane RECORD\n";
        return 2;
    }
    QString errorText;
    const auto record = EasyLibKorvane::open(arguments.at(1), errorText);
    if (!record) {
        err << (errorText.isEmpty() ? QStringLiteral("Не удалось открыть файл") : errorText) << '\n';
        return 1;
    }
    out << recordSummary(*record);
    return 0;
}
