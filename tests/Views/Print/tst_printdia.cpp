#include "ModalDialogs.h"
#include "PrintFixture.h"

#include "Views/OscillogramViewActions.h"
#include "Views/Print/OscPrintOptions.h"
#include "Views/Print/PagePrinter.h"
#include "Views/Print/PrintDia.h"
#include "Views/Print/PrintPreviewWidget.h"
#include "Views/Print/PrinterOptions.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPrinterInfo>
#include <QPushButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>

namespace {
QStringList describe(const QList<QAction*>& actions)
{
    QStringList rows;
    for (QAction* action : actions) {
        if (action->isSeparator())
            rows << QStringLiteral("|");
        else if (!action->objectName().isEmpty())
            rows << action->objectName() + QLatin1Char('\t') + action->text() + QLatin1Char('\t')
                    + action->shortcut().toString();
    }
    return rows;
}

// Chooses the PDF entry of the printer dialog with that file.
void choosePdf(PrinterOptions& options, const QString& path)
{
    auto* printers = options.findChild<QComboBox*>(QStringLiteral("cb_printer"));
    printers->setCurrentIndex(printers->count() - 1);
    options.findChild<QLineEdit*>(QStringLiteral("le_path"))->setText(path);
}
} // namespace

class TestPrintDia : public QObject
{
    Q_OBJECT
private slots:
    void toolBarAndTitle();
    void printWithoutPrinterIsRefused();
    void marginsAreLimitedToAQuarterOfThePage();
    void pdfFromTheDialog();
    void pageNavigationKeepsTheNumberCurrent();
    void orientationLaysThePagesOutAgain();
    void printOptionsChangeThePages();
    void previewPaintsItsPages();
    void viewActionOpensThePreview();
};

void TestPrintDia::toolBarAndTitle()
{
    PrintFixture fixture(2, 1, 3000);
    PrintDia dialog(fixture.view.get());
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Предпросмотр печати"));
    auto* bar = dialog.findChild<QToolBar*>();
    QVERIFY(bar);
    const QStringList expected {
        QStringLiteral("fitToWidth\tПо ширине\t"),
        QStringLiteral("fitInView\tНа всю страницу\t"),
        QStringLiteral("zoomOut\tУменьшить\tCtrl+Down"),
        QStringLiteral("zoomIn\tУвеличить\tCtrl+Up"),
        QStringLiteral("|"),
        QStringLiteral("firstPage\tПервая страница\tCtrl+Shift+Left"),
        QStringLiteral("prevPage\tПредыдущая страница\t"),
        QStringLiteral("nextPage\tСледующая страница\t"),
        QStringLiteral("lastPage\tПоследняя страница\tCtrl+Shift+Right"),
        QStringLiteral("|"),
        QStringLiteral("portrait\tКнижная\t"),
        QStringLiteral("landscape\tАльбомная\t"),
        QStringLiteral("|"),
        QStringLiteral("printOptions\tНастройки печати осциллограммы\tCtrl+O"),
        QStringLiteral("printerOptions\tНастройки принтера\tCtrl+P"),
    };
    QCOMPARE(describe(bar->actions()), expected);
    for (QAction* action : bar->actions()) {
        if (!action->objectName().isEmpty())
            QVERIFY2(!action->icon().pixmap(16, 16).isNull(), qPrintable(action->objectName()));
    }
    auto* print = dialog.findChild<QPushButton*>(QStringLiteral("pb_print"));
    QVERIFY(print);
    QCOMPARE(print->text(), QStringLiteral("Печать"));
    QVERIFY(dialog.findChild<QLabel*>(QStringLiteral("l_printInfo"))->minimumWidth() >= 825);
    // The zoom shows the view's factor with one decimal.
    dialog.preview()->setZoomFactor(0.5);
    dialog.slotZoomIn();
    QCOMPARE(
        dialog.findChild<QComboBox*>(QStringLiteral("zoomFactor"))->currentText(), QStringLiteral("62.5%"));
    // Fitting the width makes the page as wide as the view, with room around it.
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    dialog.action(QStringLiteral("fitToWidth"))->trigger();
    const double fitted = dialog.preview()->zoomFactor();
    const double paperWidth
        = dialog.printer()->pageLayout().fullRectPixels(dialog.printer()->resolution()).width();
    const int viewport = dialog.preview()->graphicsView()->viewport()->width();
    QVERIFY(fitted * paperWidth < viewport);
    QVERIFY(fitted * paperWidth > viewport * 0.9);
    // A whole page in the view is smaller still on a landscape-shaped view.
    dialog.action(QStringLiteral("fitInView"))->trigger();
    QVERIFY(dialog.preview()->zoomFactor() <= fitted);
    QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("pageTotal"))->text(),
        QStringLiteral("/ %1").arg(dialog.pagePrinter()->pageCount()));
}

void TestPrintDia::printWithoutPrinterIsRefused()
{
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        QSKIP("a system printer is present and chosen by default");
    PrintFixture fixture(1, 0, 1000);
    PrintDia dialog(fixture.view.get());
    QVERIFY(!dialog.printerOptions()->hasPrinter());
    QCOMPARE(dialog.statusText(), QStringLiteral("Выбран принтер: "));
    SeenBox seen;
    closeNextMessageBox(seen);
    dialog.slotPrint();
    QCOMPARE(seen.title, QStringLiteral("Ошибка печати"));
    QCOMPARE(seen.text, QStringLiteral("Выберете принтер в окне \"Настройки принтера\""));
    QCOMPARE(seen.icon, QMessageBox::Critical);
}

void TestPrintDia::marginsAreLimitedToAQuarterOfThePage()
{
    QPrinter printer(QPrinter::ScreenResolution);
    printer.setPageLayout(
        QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(300, 300, 300, 300)));
    PrinterOptions options(printer, QString());
    auto box
        = [&options](const char* name) { return options.findChild<QDoubleSpinBox*>(QLatin1String(name)); };
    // A4 is 210 by 297 mm.
    QCOMPARE(box("sb_left")->maximum(), 52.5);
    QCOMPARE(box("sb_right")->maximum(), 52.5);
    QCOMPARE(box("sb_top")->maximum(), 74.25);
    QCOMPARE(box("sb_bottom")->maximum(), 74.25);
    QCOMPARE(box("sb_left")->minimum(), 0.0);
    QCOMPARE(box("sb_left")->suffix(), QStringLiteral("мм"));
    // Lying on its side the page swaps the limits.
    options.findChild<QToolButton*>(QStringLiteral("tb_landscape"))->click();
    QCOMPARE(box("sb_left")->maximum(), 74.25);
    QCOMPARE(box("sb_top")->maximum(), 52.5);
    // A5 (148 by 210 mm) on its side: 210/4 and 148/4.
    auto* sizes = options.findChild<QComboBox*>(QStringLiteral("cb_pageSize"));
    sizes->setCurrentIndex(sizes->findData(int(QPageSize::A5)));
    QCOMPARE(box("sb_left")->maximum(), 52.5);
    QCOMPARE(box("sb_top")->maximum(), 37.0);
    box("sb_top")->setValue(100.0);
    QCOMPARE(box("sb_top")->value(), 37.0);
    QCOMPARE(options.pageLayout().margins().top(), 37.0);
    // Colour or grey goes to the printer with the rest.
    options.findChild<QCheckBox*>(QStringLiteral("cb_isColorPrint"))->setChecked(false);
    options.applyTo(printer);
    QCOMPARE(printer.colorMode(), QPrinter::GrayScale);
    QCOMPARE(printer.pageLayout().pageSize().id(), QPageSize::A5);
    QCOMPARE(printer.pageLayout().orientation(), QPageLayout::Landscape);
    options.findChild<QCheckBox*>(QStringLiteral("cb_isColorPrint"))->setChecked(true);
    options.applyTo(printer);
    QCOMPARE(printer.colorMode(), QPrinter::Color);
}

void TestPrintDia::pdfFromTheDialog()
{
    if (!PdfTools::available())
        QSKIP("pdfinfo is not installed");
    PrintFixture fixture(2, 1, 3000);
    fixture.view->setOscillogramViewName(QStringLiteral("feeder-7.cfg"));
    QVERIFY(PrintDia::defaultPdfPath(*fixture.view).endsWith(QStringLiteral("/feeder-7.pdf")));
    PrintDia dialog(fixture.view.get());
    QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("out.pdf"));
    whenModalOpens([target](QWidget* modal) {
        if (auto* options = qobject_cast<PrinterOptions*>(modal)) {
            choosePdf(*options, target);
            options->accept();
        }
    });
    dialog.slotPrinterOptions();
    QCOMPARE(dialog.statusText(), QStringLiteral("Печать в файл: %1").arg(target));
    const int pages = dialog.pagePrinter()->pageCount();
    dialog.open();
    dialog.slotPrint();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(PdfTools::pageCount(target), pages);
}

void TestPrintDia::pageNavigationKeepsTheNumberCurrent()
{
    PrintFixture fixture(1, 0, 8000);
    PrintDia dialog(fixture.view.get());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const int count = dialog.preview()->pageCount();
    QVERIFY(count >= 3);
    auto* number = dialog.findChild<QLineEdit*>(QStringLiteral("pageNumber"));
    dialog.action(QStringLiteral("lastPage"))->trigger();
    QCOMPARE(number->text(), QString::number(count));
    dialog.action(QStringLiteral("firstPage"))->trigger();
    QCOMPARE(number->text(), QStringLiteral("1"));
    dialog.action(QStringLiteral("nextPage"))->trigger();
    QCOMPARE(number->text(), QStringLiteral("2"));
    dialog.action(QStringLiteral("prevPage"))->trigger();
    QCOMPARE(number->text(), QStringLiteral("1"));
    number->setText(QStringLiteral("3"));
    dialog.slotPageNum();
    QCOMPARE(dialog.preview()->currentPage(), 2);
    QCOMPARE(number->text(), QStringLiteral("3"));
}

void TestPrintDia::orientationLaysThePagesOutAgain()
{
    PrintFixture fixture(1, 0, 8000);
    PrintDia dialog(fixture.view.get());
    QVERIFY(dialog.action(QStringLiteral("landscape"))->isChecked());
    const int landscapeWidth = dialog.pagePrinter()->pageWidth();
    dialog.action(QStringLiteral("portrait"))->trigger();
    QVERIFY(dialog.action(QStringLiteral("portrait"))->isChecked());
    QCOMPARE(dialog.printer()->pageLayout().orientation(), QPageLayout::Portrait);
    QVERIFY(dialog.pagePrinter()->pageWidth() < landscapeWidth);
    QCOMPARE(dialog.preview()->pageCount(), dialog.pagePrinter()->pageCount());
}

void TestPrintDia::printOptionsChangeThePages()
{
    PrintFixture fixture(1, 0, 8000);
    PrintDia dialog(fixture.view.get());
    QCOMPARE(dialog.pagePrinter()->content().xScale, 1.0);
    const int atOne = dialog.pagePrinter()->pageCount();
    whenModalOpens([](QWidget* modal) {
        if (auto* options = qobject_cast<OscPrintOptions*>(modal)) {
            auto* scale = options->findChild<QSlider*>(QStringLiteral("hs_oscScale"));
            scale->setValue(3);
            QCOMPARE(
                options->findChild<QLabel*>(QStringLiteral("l_scaleText"))->text(), QStringLiteral("x0.25"));
            options->accept();
        }
    });
    dialog.slotPrintOptions();
    QCOMPARE(dialog.pagePrinter()->content().xScale, 0.25);
    QVERIFY(dialog.pagePrinter()->pageCount() < atOne);
    QCOMPARE(dialog.preview()->pageCount(), dialog.pagePrinter()->pageCount());
}

void TestPrintDia::previewPaintsItsPages()
{
    PrintFixture fixture(1, 0, 3000);
    PrintDia dialog(fixture.view.get());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    dialog.preview()->setZoomFactor(1.0);
    dialog.preview()->setCurrentPage(0);
    const QImage shot = dialog.preview()->graphicsView()->viewport()->grab().toImage();
    // The page's head in the preview: the light blue of the time line, on white paper.
    int headPixels = 0;
    int whitePixels = 0;
    for (int y = 0; y < shot.height(); ++y) {
        for (int x = 0; x < shot.width(); ++x) {
            const QRgb pixel = shot.pixel(x, y);
            headPixels += pixel == qRgb(192, 220, 243);
            whitePixels += pixel == qRgb(255, 255, 255);
        }
    }
    QVERIFY(headPixels > 1000);
    QVERIFY(whitePixels > 10000);
}

void TestPrintDia::viewActionOpensThePreview()
{
    PrintFixture fixture(1, 0, 1000);
    fixture.view->showToolbar();
    QAction* print = fixture.view->action(ViewAction::Print);
    QVERIFY(print);
    QCOMPARE(print->shortcut().toString(), QStringLiteral("Alt+P"));
    QVERIFY(fixture.view->toolBar()->actions().contains(print));
    QString seen;
    whenModalOpens([&seen](QWidget* modal) {
        seen = modal->windowTitle();
        qobject_cast<QDialog*>(modal)->reject();
    });
    print->trigger();
    QCOMPARE(seen, QStringLiteral("Предпросмотр печати"));
}

QTEST_MAIN(TestPrintDia)
#include "tst_printdia.moc"
