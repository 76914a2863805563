#include "Settings/ColorStyle.h"
#include "Views/DiaMarkersTable.h"
#include "Views/MarkersTableModel.h"
#include "Views/Painters/Markers.h"
#include "Views/Painters/TimeLayers.h"
#include "Views/TimeMeasureMode.h"

#include <QSignalSpy>
#include <QTableView>
#include <QTest>

namespace {
constexpr QRgb blank = 0xFF000000;

Markers::Item item(int sample, const QString& time = QString())
{
    Markers::Item marker;
    marker.sampleNumber = sample;
    marker.time = time;
    return marker;
}

QList<int> samplesOf(const Markers& markers)
{
    QList<int> samples;
    for (const auto& marker : markers.items())
        samples << marker.sampleNumber;
    return samples;
}

MeasureItem measure(int start, int finish, bool complete, bool saved)
{
    MeasureItem m;
    m.setStartSampleNumber(start);
    m.setFinishSampleNumber(finish);
    m.setComplete(complete);
    m.setSaved(saved);
    return m;
}

// Two channels with two and one parameters, two markers.
QSharedPointer<Markers> filledMarkers()
{
    auto markers = QSharedPointer<Markers>::create();
    markers->setTableChannels({ 0, 3 });
    markers->setChannelTitles({ QStringLiteral("1. Ua"), QStringLiteral("4. Ib") });
    markers->setShortNames(
        { { 0, { QStringLiteral("U"), QStringLiteral("F") } }, { 3, { QStringLiteral("I") } } });
    markers->setLongNames({ { 0, { QStringLiteral("Действующее"), QStringLiteral("Частота") } },
        { 3, { QStringLiteral("Ток") } } });
    markers->setParameterCounts({ { 0, 2 }, { 3, 1 } });
    Markers::Item first = item(10, QStringLiteral("-5.00"));
    first.values[0] = QVariantList { 57.7351, QStringLiteral("н/д") };
    first.values[3] = QVariantList { 1.5 };
    Markers::Item second = item(40, QStringLiteral("25.00"));
    second.values[0] = QVariantList { 60.0, 50.0 };
    second.values[3] = QVariantList { 2 };
    markers->append(second);
    markers->append(first);
    return markers;
}
} // namespace

class TestMarkers : public QObject
{
    Q_OBJECT
private slots:
    void measureItemStartsEmpty();
    void measureItemSwapAndCompare();
    void startAppendsAndEmits();
    void twoStartsKeepTheFirst();
    void finishCompletesAndEmits();
    void finishAtTheStartLeavesNothing();
    void finishWhenIdleIsIgnored();
    void newStartReplacesTheUnsavedMeasure();
    void savedMeasureSurvivesALaterStart();
    void saveOnEmptyListStillEmits();
    void removeLastReturnsToIdle();
    void removeOnEmptyListDoesNothing();
    void resetAndSetKeepTheState();
    void finishBeforeStartStaysSo();

    void markersStayInSampleOrder();
    void removeFindsBySample();
    void containsAndClear();
    void markerLineAndBox();
    void markerLeftOfTheViewDrawsNothing();
    void markerWithoutChannelDrawsOnlyItsLine();
    void valueTexts_data();
    void valueTexts();

    void tableModelLayout();
    void dialogBuildsItsTable();
};

void TestMarkers::measureItemStartsEmpty()
{
    const MeasureItem m;
    QCOMPARE(m.startSampleNumber(), 0);
    QCOMPARE(m.finishSampleNumber(), 0);
    QVERIFY(!m.isComplete());
    QVERIFY(!m.isSaved());
}

void TestMarkers::measureItemSwapAndCompare()
{
    MeasureItem m = measure(3, 8, true, false);
    m.swapSamples();
    QCOMPARE(m.startSampleNumber(), 8);
    QCOMPARE(m.finishSampleNumber(), 3);
    QVERIFY(m == measure(8, 3, true, false));
    QVERIFY(!(m == measure(8, 3, true, true)));
    QVERIFY(!(m == measure(8, 3, false, false)));
}

void TestMarkers::startAppendsAndEmits()
{
    TimeMeasureMode mode;
    QSignalSpy updated(&mode, &TimeMeasureMode::updated);
    mode.startMeasure(5);
    QCOMPARE(updated.count(), 1);
    QVERIFY(mode.inProgress());
    QCOMPARE(mode.measures(), QList<MeasureItem> { measure(5, 0, false, false) });
}

void TestMarkers::twoStartsKeepTheFirst()
{
    TimeMeasureMode mode;
    mode.startMeasure(5);
    QSignalSpy updated(&mode, &TimeMeasureMode::updated);
    mode.startMeasure(9);
    QCOMPARE(updated.count(), 0);
    QCOMPARE(mode.measures(), QList<MeasureItem> { measure(5, 0, false, false) });
}

void TestMarkers::finishCompletesAndEmits()
{
    TimeMeasureMode mode;
    mode.startMeasure(5);
    QSignalSpy updated(&mode, &TimeMeasureMode::updated);
    mode.finishMeasure(12);
    QCOMPARE(updated.count(), 1);
    QVERIFY(!mode.inProgress());
    QCOMPARE(mode.measures(), QList<MeasureItem> { measure(5, 12, true, false) });
}

void TestMarkers::finishAtTheStartLeavesNothing()
{
    TimeMeasureMode mode;
    mode.startMeasure(5);
    QSignalSpy updated(&mode, &TimeMeasureMode::updated);
    mode.finishMeasure(5);
    QCOMPARE(updated.count(), 1);
    QVERIFY(!mode.inProgress());
    QVERIFY(mode.measures().isEmpty());
}

void TestMarkers::finishWhenIdleIsIgnored()
{
    TimeMeasureMode mode;
    QSignalSpy updated(&mode, &TimeMeasureMode::updated);
    mode.finishMeasure(5);
    QCOMPARE(updated.count(), 0);
    QVERIFY(mode.measures().isEmpty());
}

void TestMarkers::newStartReplacesTheUnsavedMeasure()
{
    TimeMeasureMode mode;
    mode.startMeasure(5);
    mode.finishMeasure(12);
    mode.startMeasure(20);
    QCOMPARE(mode.measures(), QList<MeasureItem> { measure(20, 0, false, false) });
}

void TestMarkers::savedMeasureSurvivesALaterStart()
{
    TimeMeasureMode mode;
    mode.startMeasure(5);
    mode.saveLastMeasure();
    QVERIFY(mode.inProgress());
    QCOMPARE(mode.measures(), QList<MeasureItem> { measure(5, 0, false, true) });
    mode.finishMeasure(12);
    mode.startMeasure(20);
    QCOMPARE(
        mode.measures(), (QList<MeasureItem> { measure(5, 12, true, true), measure(20, 0, false, false) }));
}

void TestMarkers::saveOnEmptyListStillEmits()
{
    TimeMeasureMode mode;
    QSignalSpy updated(&mode, &TimeMeasureMode::updated);
    mode.saveLastMeasure();
    QCOMPARE(updated.count(), 1);
    QVERIFY(mode.measures().isEmpty());
}

void TestMarkers::removeLastReturnsToIdle()
{
    TimeMeasureMode mode;
    mode.startMeasure(5);
    QSignalSpy updated(&mode, &TimeMeasureMode::updated);
    mode.removeLastMeasure();
    QCOMPARE(updated.count(), 1);
    QVERIFY(!mode.inProgress());
    QVERIFY(mode.measures().isEmpty());
    // Idle again: a new start is taken.
    mode.startMeasure(7);
    QCOMPARE(mode.measures(), QList<MeasureItem> { measure(7, 0, false, false) });
}

void TestMarkers::removeOnEmptyListDoesNothing()
{
    TimeMeasureMode mode;
    QSignalSpy updated(&mode, &TimeMeasureMode::updated);
    mode.removeLastMeasure();
    QCOMPARE(updated.count(), 0);
}

void TestMarkers::resetAndSetKeepTheState()
{
    TimeMeasureMode mode;
    mode.startMeasure(5);
    QSignalSpy updated(&mode, &TimeMeasureMode::updated);
    mode.resetMeasures();
    QCOMPARE(updated.count(), 1);
    QVERIFY(mode.measures().isEmpty());
    QVERIFY(mode.inProgress());
    mode.setMeasures({ measure(1, 2, true, true) });
    QCOMPARE(updated.count(), 2);
    QVERIFY(mode.inProgress());
    QCOMPARE(mode.measures(), QList<MeasureItem> { measure(1, 2, true, true) });
}

void TestMarkers::finishBeforeStartStaysSo()
{
    TimeMeasureMode mode;
    mode.startMeasure(30);
    mode.finishMeasure(10);
    QCOMPARE(mode.measures(), QList<MeasureItem> { measure(30, 10, true, false) });
}

void TestMarkers::markersStayInSampleOrder()
{
    Markers markers;
    markers.append(item(30));
    markers.append(item(10));
    markers.append(item(20));
    markers.append(item(40));
    QCOMPARE(samplesOf(markers), (QList<int> { 10, 20, 30, 40 }));
}

void TestMarkers::removeFindsBySample()
{
    Markers markers;
    markers.setItems({ item(10), item(20), item(30) });
    markers.remove(item(20, QStringLiteral("другое время")));
    QCOMPARE(samplesOf(markers), (QList<int> { 10, 30 }));
    markers.remove(item(25));
    QCOMPARE(samplesOf(markers), (QList<int> { 10, 30 }));
}

void TestMarkers::containsAndClear()
{
    Markers markers;
    markers.append(item(10));
    QVERIFY(markers.contains(10));
    QVERIFY(!markers.contains(11));
    markers.setChannelTitles({ QStringLiteral("1. Ua") });
    markers.clear();
    QVERIFY(markers.items().isEmpty());
    QVERIFY(markers.channelTitles().isEmpty());
}

void TestMarkers::markerLineAndBox()
{
    KV::Cfg::ColorStyle::setCurrent(1);
    const auto& style = KV::Cfg::ColorStyle::current();
    auto markers = filledMarkers();
    markers->setStartSample(5);
    markers->setXScale(2.0);
    markers->setChannel(0);
    PixelBuffer buffer(200, 80);
    BackgroundFill fill;
    fill.setColor(blank);
    fill.paint(buffer);
    markers->paint(buffer);
    // Marker at 10: x = 10; marker at 40: x = 70.
    QCOMPARE(buffer.pixel(10, 79), style.markerLine);
    QCOMPARE(buffer.pixel(70, 79), style.markerLine);
    QCOMPARE(buffer.pixel(11, 79), blank);
    // The box starts at L = 16: frame at row 4 inside its rounding, fill below it.
    const int h = QFontMetrics(QFont()).height();
    QCOMPARE(buffer.pixel(16 + 10, 4), style.markerBoxFrame);
    bool filled = false;
    for (int y = 5; y < 5 + 2 * h; ++y)
        filled = filled || buffer.pixel(16 + 3, y) == style.markerBoxFill;
    QVERIFY(filled);
    // Below the box of two rows nothing is drawn.
    QCOMPARE(buffer.pixel(16 + 10, 4 + 2 * h + 3), blank);
}

void TestMarkers::markerLeftOfTheViewDrawsNothing()
{
    auto markers = filledMarkers();
    markers->setStartSample(11);
    markers->setXScale(1.0);
    markers->setChannel(0);
    markers->setItems({ markers->items().first() });
    PixelBuffer buffer(100, 60);
    BackgroundFill fill;
    fill.setColor(blank);
    fill.paint(buffer);
    markers->paint(buffer);
    for (qint64 i = 0; i < buffer.pixelCapacity(); ++i)
        QCOMPARE(buffer.data()[i], blank);
}

void TestMarkers::markerWithoutChannelDrawsOnlyItsLine()
{
    auto markers = filledMarkers();
    markers->setChannel(-1);
    PixelBuffer buffer(100, 60);
    BackgroundFill fill;
    fill.setColor(blank);
    fill.paint(buffer);
    markers->paint(buffer);
    int changed = 0;
    for (int y = 0; y < 60; ++y) {
        for (int x = 0; x < 100; ++x)
            changed += buffer.pixel(x, y) != blank;
    }
    QCOMPARE(changed, 2 * 60);
}

void TestMarkers::valueTexts_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("double with three decimals") << QVariant(57.7351) << QStringLiteral("57.735");
    QTest::newRow("whole double") << QVariant(50.0) << QStringLiteral("50.000");
    QTest::newRow("integer as it is") << QVariant(2) << QStringLiteral("2");
    QTest::newRow("text as it is") << QVariant(QStringLiteral("н/д")) << QStringLiteral("н/д");
}

void TestMarkers::valueTexts()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    QCOMPARE(Markers::valueText(value), text);
}

void TestMarkers::tableModelLayout()
{
    const auto markers = filledMarkers();
    MarkersTableModel model(markers);
    QCOMPARE(model.columnCount(), 3);
    QCOMPARE(model.rowCount(), 4);
    auto text = [&](int row, int column) { return model.data(model.index(row, column)).toString(); };
    QCOMPARE(text(0, 0), QStringLiteral("Время"));
    QCOMPARE(text(0, 1), QStringLiteral("-5.00"));
    QCOMPARE(text(0, 2), QStringLiteral("25.00"));
    QCOMPARE(text(1, 0), QStringLiteral("1. Ua - Действующее"));
    QCOMPARE(text(2, 0), QStringLiteral("1. Ua - Частота"));
    QCOMPARE(text(3, 0), QStringLiteral("4. Ib - Ток"));
    QCOMPARE(text(1, 1), QStringLiteral("57.735"));
    QCOMPARE(text(2, 1), QStringLiteral("н/д"));
    QCOMPARE(text(1, 2), QStringLiteral("60.000"));
    QCOMPARE(text(3, 1), QStringLiteral("1.500"));
    QCOMPARE(text(3, 2), QStringLiteral("2"));
}

void TestMarkers::dialogBuildsItsTable()
{
    DiaMarkersTable dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Таблица маркеров"));
    dialog.setMarkers(filledMarkers());
    auto* table = dialog.findChild<QTableView*>(QStringLiteral("tv_mTable"));
    QVERIFY(table);
    QCOMPARE(table->model(), static_cast<QAbstractItemModel*>(dialog.model()));
    QCOMPARE(table->model()->columnCount(), 3);
}

QTEST_MAIN(TestMarkers)
#include "tst_markers.moc"
