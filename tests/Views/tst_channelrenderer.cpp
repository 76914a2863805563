// The renderer of channel pictures by itself: what a scene asks for lands in the pixels, and
// drawing through the view model leaves the model as it was.
#include "PlotRecords.h"

#include "Settings/ColorStyle.h"
#include "Views/OscillogramViewModel.h"
#include "Views/Painters/ChannelRenderer.h"

#include <QTest>

class TestChannelRenderer : public QObject
{
    Q_OBJECT
private slots:
    void sceneWithoutRecordIsBackgroundOnly()
    {
        ChannelRenderer::Scene scene;
        scene.background = 0xFF102030;
        PlotDrawInfo info;
        info.drawCurrentSample = false;
        const QImage image = ChannelRenderer().render(scene, { 0, 1 }, 30, 20, info);
        QCOMPARE(image.size(), QSize(30, 20));
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 30; ++x)
                QCOMPARE(image.pixel(x, y), QRgb(0xFF102030));
        }
    }

    void emptySizeGivesNullImage()
    {
        ChannelRenderer renderer;
        QVERIFY(renderer.render({}, {}, 0, 10, PlotDrawInfo()).isNull());
        QVERIFY(renderer.render({}, {}, 10, -1, PlotDrawInfo()).isNull());
    }

    void currentSampleLineStandsAtItsPixel()
    {
        // Sample 30 from start 10 at 2 pixels a sample: x = 40, a line three pixels wide.
        const auto& style = KV::Cfg::ColorStyle::current();
        ChannelRenderer::Scene scene;
        scene.oscillogram = PlotRecords::record(QVector<short>(100, 0), {});
        scene.background = 0xFF000000;
        scene.startSample = 10;
        scene.xScale = 2.0;
        scene.currentSample = 30;
        scene.hasFocus = true;
        PlotDrawInfo info;
        info.drawTimeGrid = false;
        info.drawTrigger = false;
        const QImage image = ChannelRenderer().render(scene, {}, 80, 10, info);
        QCOMPARE(image.pixel(38, 5), QRgb(0xFF000000));
        QCOMPARE(image.pixel(39, 5), style.currentSampleLine);
        QCOMPARE(image.pixel(40, 0), style.currentSampleLine);
        QCOMPARE(image.pixel(41, 9), style.currentSampleLine);
        QCOMPARE(image.pixel(42, 5), QRgb(0xFF000000));
    }

    void markersOnlyOnAPictureOfOneAnalogueChannel_data()
    {
        QTest::addColumn<QList<int>>("channels");
        QTest::addColumn<bool>("asked");
        QTest::addColumn<bool>("drawn");
        // Two analogue channels, so channel 2 is the first discrete one.
        QTest::newRow("one analogue channel") << QList<int> { 0 } << true << true;
        QTest::newRow("not asked for") << QList<int> { 0 } << false << false;
        QTest::newRow("two channels") << QList<int> { 0, 1 } << true << false;
        QTest::newRow("a discrete channel") << QList<int> { 2 } << true << false;
        QTest::newRow("no channel") << QList<int> {} << true << false;
    }

    void markersOnlyOnAPictureOfOneAnalogueChannel()
    {
        QFETCH(QList<int>, channels);
        QFETCH(bool, asked);
        QFETCH(bool, drawn);
        PlotDrawInfo info;
        info.drawMarkers = asked;
        QCOMPARE(ChannelRenderer::drawsMarkers(info, channels, 2), drawn);
    }

    void drawingLeavesTheModelsMarkersAsTheyAre()
    {
        OscillogramViewModel model;
        model.setOscillogram(PlotRecords::record(QVector<short>(50, 100), {}));
        model.appendMarker(model.makeMarkerItem(20));
        const QSharedPointer<Markers> markers = model.markers();
        const int channelBefore = markers->channel();
        QVERIFY(!model.channelPlot({ 0 }, 50, 40).isNull());
        QCOMPARE(markers->channel(), channelBefore);
        QCOMPARE(markers->items().size(), 1);
    }
};

QTEST_MAIN(TestChannelRenderer)
#include "tst_channelrenderer.moc"
