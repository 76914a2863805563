#include "ModalDialogs.h"
#include "PrintFixture.h"

#include "Model/ProgressDialog.h"
#include "Views/DChanParListView.h"
#include "Views/DChanPlotListView.h"
#include "Views/Print/OscPrintOptions.h"
#include "Views/Print/PagePrinter.h"
#include "Views/Print/PrintGeometry.h"
#include "Views/Print/PrintOscillogramManager.h"
#include "Views/TimeMeasureMode.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>

namespace {
const QRgb headColour = qRgb(192, 220, 243);

// The time ranges a print walks: the first begins at the range's first sample, each next one a
// page's samples further, while it begins within the range.
QVector<int> rangeStarts(int first, int last, int firstAcross, int nextAcross)
{
    QVector<int> starts { first };
    for (int start = first + firstAcross; start <= last; start += nextAcross)
        starts << start;
    return starts;
}

bool isColoured(QRgb pixel)
{
    const int spread = qMax(qMax(qRed(pixel), qGreen(pixel)), qBlue(pixel))
        - qMin(qMin(qRed(pixel), qGreen(pixel)), qBlue(pixel));
    return spread > 60;
}

bool near(QRgb a, QRgb b, int tolerance)
{
    return qAbs(qRed(a) - qRed(b)) <= tolerance && qAbs(qGreen(a) - qGreen(b)) <= tolerance
        && qAbs(qBlue(a) - qBlue(b)) <= tolerance;
}

QImage pageOf(const PagePrinter& pages, int page)
{
    QImage image(pages.pageWidth(), pages.pageHeight(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    pages.paintPage(painter, page);
    return image;
}

// Two analogue rows of a whole page each: two pages high, so that a page stands for half the
// samples across. Gives the plot's width on a page with names.
int layOutTwoPagesHigh(PrintFixture& fixture, PagePrinter& pages)
{
    fixture.model().setChanRowHeight(0, 3000);
    fixture.model().setChanRowHeight(1, 3000);
    pages.setPrinter(&fixture.printer);
    return fixture.printer.width() - (fixture.expectedNameWidth() + 2);
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
} // namespace

class TestPagePrinter : public QObject
{
    Q_OBJECT
private slots:
    void rowsBreakOntoPagesByTheirPrintedHeights();
    void pageCountsForRangesAndScales_data();
    void pageCountsForRangesAndScales();
    void namesOnTheFirstRangeOnlyWidenTheLaterPlots();
    void optionsRefuseMoreThan300Pages();
    void rowsLowerThanAPageNeverWarn();
    void automaticScaleOfALongRecord();
    void markersAndMeasuresOnPaperAsAsked();
    void pdfOfARecordReadBack();
    void cancelInTheMiddle_data();
    void cancelInTheMiddle();
    void painterThatCannotBeginIsReported();
    void targetThatCannotBeWrittenIsReported();

private:
    // Writes the pages to the printer's PDF; Cancel is pressed once the first page is out when
    // cancel is set.
    bool writePdf(PagePrinter& pages, bool cancel, double* lastProgress = nullptr);
};

void TestPagePrinter::rowsBreakOntoPagesByTheirPrintedHeights()
{
    PrintFixture fixture(3, 2, 4000);
    fixture.model().setChanRowHeight(0, 100);
    fixture.model().setChanRowHeight(1, 200);
    // Far higher than any page: cut to the page's height.
    fixture.model().setChanRowHeight(2, 3000);
    PagePrinter pages(fixture.view.get());
    pages.setPrinter(&fixture.printer);
    const int pageWidth = fixture.printer.width();
    const int pageHeight = fixture.printer.height();
    QCOMPARE(pages.pageWidth(), pageWidth);
    const int listWidth = fixture.plotListWidth();
    QVERIFY(listWidth > 0);
    // r = trunc(h * P / w), at least 50 for analogue and 25 for discrete rows, at most Q.
    QVector<int> expected;
    expected << qMax(int(100.0 * pageWidth / listWidth), 50) << qMax(int(200.0 * pageWidth / listWidth), 50)
             << pageHeight;
    const int digitalHeight = fixture.view->dChanParList()->rowHeight(0);
    const int digitalWidth = fixture.view->dChanPlotList()->viewport()->width();
    expected << qMax(int(double(digitalHeight) * pageWidth / digitalWidth), 25);
    expected << expected.last();
    QCOMPARE(pages.printedRowHeights(), expected);
    // The first two rows fit under the head; the cut row stands alone; the discrete rows follow it.
    QVERIFY(25 + expected[0] + expected[1] <= pageHeight);
    QVERIFY(25 + expected[3] + expected[4] <= pageHeight);
    QCOMPARE(pages.rowBreaks(), (QVector<ushort> { 2, 3 }));
    QCOMPARE(pages.groupCount(), 3);
    QCOMPARE(pages.nameWidth(), fixture.expectedNameWidth());
    // A hidden row is not printed.
    fixture.model().setChannelVisible(2, false);
    pages.setPrinter(&fixture.printer);
    QCOMPARE(pages.printedRowHeights().size(), 4);
    QCOMPARE(pages.rowBreaks(), QVector<ushort>());
}

void TestPagePrinter::pageCountsForRangesAndScales_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<bool>("measure");
    QTest::newRow("whole record at 1.0") << 1.0 << false;
    QTest::newRow("whole record at 0.25") << 0.25 << false;
    QTest::newRow("whole record at 2.5") << 2.5 << false;
    QTest::newRow("whole record at 50") << 50.0 << false;
    QTest::newRow("measure at 1.0") << 1.0 << true;
    QTest::newRow("measure at 5.0") << 5.0 << true;
    QTest::newRow("measure at 0.025") << 0.025 << true;
}

void TestPagePrinter::pageCountsForRangesAndScales()
{
    QFETCH(double, scale);
    QFETCH(bool, measure);
    PrintFixture fixture(2, 1, 6000);
    // Two rows of half a page each and the discrete row: two row groups.
    const int listWidth = fixture.plotListWidth();
    const int halfPage = (fixture.printer.height() / 2) * listWidth / fixture.printer.width() + 1;
    fixture.model().setChanRowHeight(0, halfPage);
    fixture.model().setChanRowHeight(1, halfPage);
    PagePrinter pages(fixture.view.get());
    PrintContent content;
    content.xScale = scale;
    if (measure) {
        content.firstSample = 1500;
        content.lastSample = 3200;
    }
    pages.setContent(content);
    pages.setPrinter(&fixture.printer);
    QCOMPARE(pages.groupCount(), 2);
    const int plotWidth = fixture.printer.width() - (fixture.expectedNameWidth() + 2);
    const int across = PrintGeometry::samplesAcrossPage(plotWidth, scale);
    const QVector<int> starts = rangeStarts(content.firstSample, measure ? 3200 : 5999, across, across);
    QCOMPARE(pages.pageCount(), starts.size() * 2);
    for (int page = 0; page < pages.pageCount(); ++page)
        QCOMPARE(pages.pageFirstSample(page), starts.at(page / 2));
}

void TestPagePrinter::namesOnTheFirstRangeOnlyWidenTheLaterPlots()
{
    PrintFixture fixture(1, 0, 6000);
    PagePrinter pages(fixture.view.get());
    PrintContent content;
    content.isNameAllPages = false;
    pages.setContent(content);
    pages.setPrinter(&fixture.printer);
    const int narrow = fixture.printer.width() - (fixture.expectedNameWidth() + 2);
    const int wide = fixture.printer.width();
    QCOMPARE(pages.pageCount(), rangeStarts(0, 5999, narrow, wide).size());
    QVERIFY(pages.pageHasNames(0));
    QVERIFY(!pages.pageHasNames(1));
    QCOMPARE(pages.pageFirstSample(1), narrow);
    QCOMPARE(pages.pageFirstSample(2), narrow + wide);
    // The second page has no name column: its time line starts at the page's left edge.
    const QImage second = pageOf(pages, 1);
    QCOMPARE(second.pixel(2, 3), headColour);
    const QImage first = pageOf(pages, 0);
    QCOMPARE(first.pixel(fixture.expectedNameWidth() + 1, 3), qRgb(255, 255, 255));
}

void TestPagePrinter::optionsRefuseMoreThan300Pages()
{
    PrintFixture fixture(2, 0, 200000);
    PagePrinter pages(fixture.view.get());
    const int plotWidth = layOutTwoPagesHigh(fixture, pages);
    const int perPage = PrintGeometry::samplesAcrossPage(plotWidth, 1.0) / 2;
    QCOMPARE(pages.samplesPerPage(1.0, true), perPage);
    // Two measures: one of 301 pages, one just short of it.
    QList<MeasureItem> measures;
    for (int length : { 301 * perPage, 301 * perPage - 1 }) {
        MeasureItem item;
        item.setStartSampleNumber(100);
        item.setFinishSampleNumber(100 + length - 1);
        item.setComplete(true);
        item.setSaved(true);
        measures << item;
    }
    fixture.model().setTimeMeasures(measures);
    OscPrintOptions options(fixture.view.get());
    options.setPagePrinter(&pages);
    auto* range = options.findChild<QComboBox*>(QStringLiteral("cb_measuresRange"));
    QVERIFY(range);
    QCOMPARE(range->count(), 3);
    QCOMPARE(range->itemText(0), QStringLiteral("Вся осциллограмма"));
    QCOMPARE(range->itemText(1),
        QStringLiteral("%1 — %2 нс")
            .arg(fixture.model().getTimePosition(100),
                fixture.model().getTimePosition(100 + 301 * perPage - 1)));

    range->setCurrentIndex(1);
    SeenBox seen;
    closeNextMessageBox(seen);
    options.open();
    options.accept();
    QCOMPARE(seen.title, QStringLiteral("Параметры печати"));
    QCOMPARE(seen.text,
        QStringLiteral(
            "<center><b>При масштабе x1 печать осциллограммы составит более 300 страниц</b><br><br>"
            "Уменьшите масштаб</center>"));
    QCOMPARE(seen.icon, QMessageBox::Warning);
    QVERIFY(options.isVisible());
    QCOMPARE(options.result(), 0);

    // 300 pages and some samples: no warning, the dialog accepts.
    range->setCurrentIndex(2);
    QVERIFY(options.pageLimitWarning().isEmpty());
    options.accept();
    QCOMPARE(options.result(), int(QDialog::Accepted));

    // The whole record at 0.5 is within the limit; at 2.5 it is not, and the text says x2.5.
    range->setCurrentIndex(0);
    options.setScalePosition(4);
    QVERIFY(options.pageLimitWarning().isEmpty());
    options.setScalePosition(6);
    QVERIFY(options.pageLimitWarning().contains(QStringLiteral("При масштабе x2.5 печать")));
}

void TestPagePrinter::rowsLowerThanAPageNeverWarn()
{
    PrintFixture fixture(1, 1, 2000000);
    PagePrinter pages(fixture.view.get());
    pages.setPrinter(&fixture.printer);
    QCOMPARE(pages.samplesPerPage(50.0, true), 0);
    OscPrintOptions options(fixture.view.get());
    options.setPagePrinter(&pages);
    options.setScalePosition(9);
    QVERIFY(options.pageLimitWarning().isEmpty());
    options.accept();
    QCOMPARE(options.result(), int(QDialog::Accepted));
    // The pages themselves are many: the limit looks at the rows' height only.
    pages.setOptions(&options);
    QVERIFY(pages.pageCount() > PrintGeometry::pageLimit);
    QCOMPARE(pages.automaticScalePosition(), PrintGeometry::startScalePosition);
}

void TestPagePrinter::automaticScaleOfALongRecord()
{
    PrintFixture fixture(2, 0, 400000);
    PagePrinter pages(fixture.view.get());
    const int plotWidth = layOutTwoPagesHigh(fixture, pages);
    QVERIFY(plotWidth < 1300);
    // 400000 / (W/2) > 615 pages at 1.0; at 0.5: 400000 / W > 307; at 0.25: 400000 / (2W) <= 300.
    QVERIFY(400000 / (plotWidth / 2) > 300);
    QVERIFY(400000 / (2 * plotWidth / 2) > 300);
    QVERIFY(400000 / (4 * plotWidth / 2) <= 300);
    QCOMPARE(pages.automaticScalePosition(), 3);
}

void TestPagePrinter::markersAndMeasuresOnPaperAsAsked()
{
    PrintFixture fixture(1, 0, 4000);
    fixture.model().appendMarker(fixture.model().makeMarkerItem(700));
    MeasureItem measure;
    measure.setStartSampleNumber(100);
    measure.setFinishSampleNumber(500);
    measure.setComplete(true);
    measure.setSaved(true);
    fixture.model().setTimeMeasures({ measure });
    PagePrinter pages(fixture.view.get());
    pages.setPrinter(&fixture.printer);
    const int left = pages.nameWidth() + 2;
    // At 1.0 sample s of the first page stands at pixel s right of the name column. The upper
    // part of the time line holds the marker and the measure lines, nothing else around them.
    const auto headPixel = [&](const QImage& page, int sample) { return page.pixel(left + sample, 4); };
    const QImage with = pageOf(pages, 0);
    QVERIFY(headPixel(with, 700) != headColour);
    QVERIFY(headPixel(with, 100) != headColour);
    QCOMPARE(headPixel(with, 200), headColour);
    PrintContent bare;
    bare.isPrintMarkers = false;
    bare.isPrintMeasures = false;
    pages.setContent(bare);
    const QImage without = pageOf(pages, 0);
    QCOMPARE(headPixel(without, 700), headColour);
    QCOMPARE(headPixel(without, 100), headColour);
}

bool TestPagePrinter::writePdf(PagePrinter& pages, bool cancel, double* lastProgress)
{
    PrintOscillogramManager manager(new PagePrinter(pages), nullptr);
    whenModalOpens([cancel, lastProgress](QWidget* modal) {
        auto* progress = qobject_cast<ProgressDialog*>(modal);
        if (!progress)
            return;
        QObject::connect(progress, &ProgressDialog::progressShown, progress,
            [progress, cancel, lastProgress](const QString&, double percent) {
                if (lastProgress)
                    *lastProgress = percent;
                if (cancel && percent > 0.0)
                    progress->reject();
            });
    });
    return manager.start();
}

void TestPagePrinter::pdfOfARecordReadBack()
{
    if (!PdfTools::available())
        QSKIP("pdfinfo and pdftoppm (poppler-utils) are not installed");
    PrintFixture fixture(2, 2, 3000);
    fixture.model().setChanRowHeight(0, 120);
    fixture.model().setChanRowHeight(1, 3000);
    QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("record.pdf"));
    fixture.printer.setOutputFileName(target);
    PagePrinter pages(fixture.view.get());
    pages.setPrinter(&fixture.printer);
    // Row 1 is cut to the page: groups [0], [1], [2, 3].
    QCOMPARE(pages.rowBreaks(), (QVector<ushort> { 1, 2 }));
    const int plotWidth = fixture.printer.width() - (fixture.expectedNameWidth() + 2);
    const int ranges = rangeStarts(0, 2999, plotWidth, plotWidth).size();
    QVERIFY(writePdf(pages, false));
    QCOMPARE(fixture.printer.outputFileName(), target);
    QCOMPARE(PdfTools::pageCount(target), ranges * 3);

    const QImage page = PdfTools::pageImage(target, 1, folder.path());
    QVERIFY(!page.isNull());
    // The paper in whole pixels of 96 dpi; the page's height in points rounds either way.
    QCOMPARE(page.width(), fixture.printer.width());
    QVERIFY(qAbs(page.height() - fixture.printer.height()) <= 1);
    const int nameWidth = pages.nameWidth();
    // The pictures of a page go into the PDF as JPEG: colours are compared within a few steps.
    const int tolerance = 12;
    // The head: the name column's box and the time line's background above the rows.
    QVERIFY(near(page.pixel(5, 5), headColour, tolerance));
    QVERIFY(near(page.pixel(nameWidth + 2 + 20, 4), headColour, tolerance));
    QVERIFY(near(page.pixel(page.width() - 5, 4), headColour, tolerance));
    // Row 0 below the head: its trace lies in its band, right of the name column, and the band's
    // last pixels but one carry the grey line that closes the row.
    const int rowHeight = pages.printedRowHeights().at(0);
    int tracePixels = 0;
    int traceTop = page.height();
    int traceBottom = 0;
    for (int y = 25; y < 25 + rowHeight - 2; ++y) {
        for (int x = nameWidth + 2; x < page.width(); ++x) {
            if (isColoured(page.pixel(x, y))) {
                ++tracePixels;
                traceTop = qMin(traceTop, y);
                traceBottom = qMax(traceBottom, y);
            }
        }
    }
    QVERIFY2(tracePixels > page.width(), qPrintable(QString::number(tracePixels)));
    // A sine of full amplitude reaches near both edges of its band.
    QVERIFY(traceTop < 25 + rowHeight / 4);
    QVERIFY(traceBottom > 25 + rowHeight * 3 / 4);
    // The closing line is grey; the page's JPEG pictures spread a one-pixel line over its
    // neighbours, so the darkest pixel around it is looked for.
    int darkest = 255;
    for (int y = 25 + rowHeight - 4; y <= 25 + rowHeight; ++y) {
        const QRgb pixel = page.pixel(page.width() / 2 + 3, y);
        QVERIFY(!isColoured(pixel));
        darkest = qMin(darkest, qGray(pixel));
    }
    QVERIFY2(darkest < 200, qPrintable(QString::number(darkest)));
    // No trace in the name column: only dark text on white.
    for (int y = 25; y < 25 + rowHeight - 2; ++y) {
        for (int x = 0; x < nameWidth - 2; ++x)
            QVERIFY(!isColoured(page.pixel(x, y)));
    }
    // Below the only row of the first page there is nothing.
    QVERIFY(near(page.pixel(page.width() / 2, 25 + rowHeight + 20), qRgb(255, 255, 255), tolerance));
}

void TestPagePrinter::cancelInTheMiddle_data()
{
    QTest::addColumn<QByteArray>("oldTarget");
    QTest::newRow("an old file stays as it was") << QByteArray("the old file");
    QTest::newRow("no file before, none after") << QByteArray();
}

void TestPagePrinter::cancelInTheMiddle()
{
    QFETCH(QByteArray, oldTarget);
    // Enough pages that Cancel comes in the middle.
    PrintFixture fixture(8, 0, 400000);
    QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("record.pdf"));
    if (!oldTarget.isEmpty())
        writeFile(target, oldTarget);
    fixture.printer.setOutputFileName(target);
    PagePrinter pages(fixture.view.get());
    pages.setPrinter(&fixture.printer);
    QVERIFY(pages.pageCount() > 100);
    double progress = 0.0;
    QVERIFY(!writePdf(pages, true, &progress));
    QVERIFY(progress > 0.0 && progress < 1.0);
    QCOMPARE(QFile::exists(target), !oldTarget.isEmpty());
    QCOMPARE(readFile(target), oldTarget);
    // Nothing else in the folder: no partial file beside the target.
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), oldTarget.isEmpty() ? 0 : 1);
    // The printer points at the target again, for the next try.
    QCOMPARE(fixture.printer.outputFileName(), target);
}

void TestPagePrinter::painterThatCannotBeginIsReported()
{
    PrintFixture fixture(1, 0, 1000);
    QTemporaryDir folder;
    // A target without a file name: the temporary file would be the folder itself.
    const QString target = folder.path() + QLatin1Char('/');
    fixture.printer.setOutputFileName(target);
    PagePrinter pages(fixture.view.get());
    pages.setPrinter(&fixture.printer);
    SeenBox seen;
    closeNextMessageBox(seen);
    PrintOscillogramManager manager(new PagePrinter(pages), nullptr);
    QVERIFY(!manager.start());
    QCOMPARE(seen.title, QStringLiteral("Ошибка печати"));
    QCOMPARE(seen.text, QStringLiteral("Возможная проблема с настройками принтера"));
    QCOMPARE(seen.icon, QMessageBox::Critical);
    QCOMPARE(fixture.printer.outputFileName(), target);
}

void TestPagePrinter::targetThatCannotBeWrittenIsReported()
{
    PrintFixture fixture(1, 0, 1000);
    QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("no-such-folder/record.pdf"));
    fixture.printer.setOutputFileName(target);
    PagePrinter pages(fixture.view.get());
    pages.setPrinter(&fixture.printer);
    SeenBox seen;
    closeNextMessageBox(seen);
    QVERIFY(!writePdf(pages, false));
    QCOMPARE(seen.title, QStringLiteral("Ошибка печати"));
    QCOMPARE(seen.text, QStringLiteral("Не удалось записать файл PDF: %1").arg(target));
    QVERIFY(!QFile::exists(target));
}

QTEST_MAIN(TestPagePrinter)
#include "tst_pageprinter.moc"
