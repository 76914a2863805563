#pragma once

#include "../SineRecords.h"
#include "Model/EasyLibKorvane.h"
#include "Settings/KorvaneSettings.h"
#include "Settings/SettingsProvider.h"
#include "Views/AChanPlotListView.h"
#include "Views/OscillogramView.h"
#include "Views/OscillogramViewModel.h"

#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <QPrinter>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

#include <memory>

// A record view on screen with a record of sines, and a PDF printer of A4 landscape without
// margins at the screen's resolution: the page the print tests lay rows out on.
struct PrintFixture
{
    QSharedPointer<KorvaneSettings> settings;
    QSharedPointer<SimpleOscillogram> record;
    std::unique_ptr<OscillogramView> view;
    QPrinter printer { QPrinter::ScreenResolution };

    PrintFixture(int analog, int digital, int samples)
    {
        QStandardPaths::setTestModeEnabled(true);
        EasyLibKorvane::initialize();
        settings = QSharedPointer<KorvaneSettings>::create(SettingsProvider::settings());
        view = std::make_unique<OscillogramView>(settings);
        QVector<SineRecords::Sine> sines;
        for (int c = 0; c < analog; ++c)
            sines << SineRecords::Sine { 100.0, 30.0 * c };
        record = SineRecords::record(sines, digital, samples);
        view->setOscillogram(record);
        view->initByDefault();
        view->resize(1000, 700);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        QTest::qWait(20);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF()));
    }

    OscillogramViewModel& model() const { return *view->oscillogramViewModel(); }
    int plotListWidth() const { return view->aChanPlotList()->viewport()->width(); }

    // The name column by its rule: the widest "number. name - unit" in bold, and 10 pixels.
    int expectedNameWidth() const
    {
        QFont bold;
        bold.setWeight(QFont::Bold);
        const QFontMetrics metrics(bold);
        int widest = 0;
        for (int c = 0; c < record->countOfAnalogChannels(); ++c) {
            const auto channel = record->analogChannel(c);
            widest = qMax(widest,
                metrics.horizontalAdvance(QStringLiteral("%1. %2 - %3")
                                              .arg(channel->physNum())
                                              .arg(channel->name(), channel->unit())));
        }
        for (int c = 0; c < record->countOfDigitalChannels(); ++c) {
            const auto channel = record->digitalChannel(c);
            widest = qMax(widest,
                metrics.horizontalAdvance(
                    QStringLiteral("%1. %2").arg(channel->physNum()).arg(channel->name())));
        }
        return widest + 10;
    }
};

// The PDF tools of poppler, run on a written file.
namespace PdfTools {
inline int pageCount(const QString& pdf)
{
    QProcess info;
    info.start(QStringLiteral("pdfinfo"), { pdf });
    if (!info.waitForFinished(30000))
        return -1;
    for (const QString& line : QString::fromUtf8(info.readAllStandardOutput()).split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("Pages:")))
            return line.mid(6).trimmed().toInt();
    }
    return -1;
}

// The page (counted from 1) as an image at 96 dots an inch, the resolution the page was laid out at.
inline QImage pageImage(const QString& pdf, int page, const QString& folder)
{
    const QString prefix = folder + QStringLiteral("/page");
    QProcess render;
    render.start(QStringLiteral("pdftoppm"),
        { QStringLiteral("-r"), QStringLiteral("96"), QStringLiteral("-png"), QStringLiteral("-singlefile"),
            QStringLiteral("-f"), QString::number(page), QStringLiteral("-l"), QString::number(page), pdf,
            prefix });
    if (!render.waitForFinished(30000))
        return QImage();
    return QImage(prefix + QStringLiteral(".png"));
}

inline bool available()
{
    return !QStandardPaths::findExecutable(QStringLiteral("pdfinfo")).isEmpty()
        && !QStandardPaths::findExecutable(QStringLiteral("pdftoppm")).isEmpty();
}
} // namespace PdfTools
