// Renders a record without a screen: one row per channel, the whole record across the width,
// drawn by the same call that paints the plots of the record view.
//
//   korvane-render [--strict] RECORD OUTPUT.png [WIDTH] [ROW HEIGHT]

#include "Model/EasyLibKorvane.h"
#include "RecordPicture.h"
#include "apps/ReadingOption.h"

#include <QGuiApplication>
#include <QTextStream>

namespace {
int positiveArgument(const QStringList& arguments, int index, int fallback)
{
    if (arguments.size() <= index)
        return fallback;
    bool ok = false;
    const int value = arguments.at(index).toInt(&ok);
    return ok && value > 0 ? value : -1;
}
} // namespace

int main(int argc, char* argv[])
{
    // No window is ever shown; the offscreen platform gives fonts for the value labels.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    EasyLibKorvane::initialize();
    QTextStream err(stderr);
    const QStringList arguments = applyReadingOption(app.arguments());
    if (arguments.size() < 3) {
        err << "usage: korvane-render [--strict] RECORD OUTPUT.png [WIDTH] [ROW HEIGHT]\n";
        return 2;
    }
    const int width = positiveArgument(arguments, 3, 1600);
    const int rowHeight = positiveArgument(arguments, 4, 80);
    if (width <= 0 || rowHeight <= 0) {
        err << "WIDTH and ROW HEIGHT must be positive numbers\n";
        return 2;
    }
    QString errorText;
    const auto record = EasyLibKorvane::open(arguments.at(1), errorText);
    if (!record) {
        err << (errorText.isEmpty() ? QStringLiteral("Не удалось открыть файл") : errorText) << '\n';
        return 1;
    }
    const QImage picture = recordPicture(record, width, rowHeight);
    if (picture.isNull() || !picture.save(arguments.at(2), "PNG")) {
        err << "cannot write " << arguments.at(2) << '\n';
        return 1;
    }
    return 0;
}
