#include "Views/AnalogToolBar.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTest>

namespace {
// Every icon the record view, its tool bars, menus and the print preview ask for, by the name
// under ":/icons/" without ".svg"; each has an active form ending in "_2".
const QStringList iconNames { // The record view's tool bar and the context menu of analogue rows.
    "ic_save", "ic_saveAs", "ic_exportCsv", "Emblem-notice", "ic_sett", "ic_settings", "ic_print",
    "ic_x_scale_increase", "ic_x_scale_decrease", "ic_x_scale_fit", "ic_compact_mode", "ic_full_mode",
    "ic_primary", "ic_secondary", "ic_time_measure_start", "ic_time_measure_finish",
    "ic_time_measure_remove_latest", "ic_time_measure_remove_all", "ic_marker_add", "ic_marker_remove_all",
    "ic_markers", "ic_channel_selection_advanced", "ic_channel_selection_show_selected_channels",
    "ic_channel_selection_show_all_channels", "ic_channel_selection_discretes",
    "ic_channel_selection_clear_selection", "ic_list", "ic_marker_set_trigger_time", "ic_leftArr",
    "ic_rightArr", "ic_select_signals_form", "ic-mdiff", "ic_hodograph", "ic_gdf", "ic_calcSig",
    "ic_merge_osc", "ic_vectorDiagram", "ic_vecDiagram", "ic_spectrum", "ic_sig_behavior",
    // The rows and their tool bars.
    "ic_digital_invert", "ic_anomaly_inf", "plus", "minus", "ic_row_lower", "ic_row_higher",
    "ic_fit_magnitude", "ic_reset_channel", "ic_hide_channel", "ic_invert",
    // The print preview.
    "ic_fitToWidth", "ic_fitInView", "ic_zoomOut", "ic_zoomIn", "ic_firstPage", "ic_prevPage", "ic_nextPage",
    "ic_lastPage", "ic_portrait", "ic_landscape", "ic_printOptions", "ic_printerOptions"
};

QImage render(const QString& file, int size)
{
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QSvgRenderer renderer(file);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

// Share of the pixels that are drawn at all.
double coverage(const QImage& image)
{
    int drawn = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            drawn += qAlpha(image.pixel(x, y)) > 0;
    }
    return double(drawn) / (image.width() * image.height());
}
} // namespace

class TestIcons : public QObject
{
    Q_OBJECT
private slots:
    // The icons are compiled into the library; using one of its classes makes sure it is loaded.
    void initTestCase() { AnalogToolBar bar; }
    void everyIconHasBothForms_data();
    void everyIconHasBothForms();
    void sheetOfAllIcons();
};

void TestIcons::everyIconHasBothForms_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : iconNames)
        QTest::newRow(qPrintable(name)) << name;
}

void TestIcons::everyIconHasBothForms()
{
    QFETCH(QString, name);
    for (const QString& file :
        { QStringLiteral(":/icons/%1.svg").arg(name), QStringLiteral(":/icons/%1_2.svg").arg(name) }) {
        QVERIFY2(QFile::exists(file), qPrintable(file));
        QSvgRenderer renderer(file);
        QVERIFY2(renderer.isValid(), qPrintable(file));
        QCOMPARE(renderer.defaultSize(), QSize(24, 24));
        // Something is drawn at 16 pixels.
        const double share = coverage(render(file, 16));
        QVERIFY2(share > 0.08, qPrintable(file));
    }
    // The active form differs from the plain one.
    QVERIFY(render(QStringLiteral(":/icons/%1.svg").arg(name), 24)
        != render(QStringLiteral(":/icons/%1_2.svg").arg(name), 24));
}

// With KORVANE_ICON_SHEET set to a file name, writes all icons at 16 and 24 pixels into one
// picture, plain and active forms side by side, to look at them.
void TestIcons::sheetOfAllIcons()
{
    const QString target = qEnvironmentVariable("KORVANE_ICON_SHEET");
    if (target.isEmpty())
        QSKIP("KORVANE_ICON_SHEET is not set");
    const int columns = 6;
    const int cell = 84;
    const int rows = (iconNames.size() + columns - 1) / columns;
    QImage sheet(columns * cell, rows * cell, QImage::Format_ARGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    QFont font;
    font.setPixelSize(8);
    painter.setFont(font);
    for (int i = 0; i < iconNames.size(); ++i) {
        const QPoint origin((i % columns) * cell, (i / columns) * cell);
        const QString plain = QStringLiteral(":/icons/%1.svg").arg(iconNames[i]);
        const QString active = QStringLiteral(":/icons/%1_2.svg").arg(iconNames[i]);
        painter.drawImage(origin + QPoint(6, 6), render(plain, 16));
        painter.drawImage(origin + QPoint(28, 6), render(active, 16));
        painter.drawImage(origin + QPoint(6, 28), render(plain, 24));
        painter.drawImage(origin + QPoint(36, 28), render(active, 24));
        painter.drawText(QRect(origin + QPoint(2, 58), QSize(cell - 4, 24)),
            Qt::AlignLeft | Qt::TextWrapAnywhere, iconNames[i]);
    }
    painter.end();
    QVERIFY(sheet.save(target));
}

QTEST_MAIN(TestIcons)
#include "tst_icons.moc"
