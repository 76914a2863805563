#include "SineRecords.h"

#include "Calc/CalcModule.h"
#include "Settings/KorvaneSettings.h"
#include "Views/AChanParItem.h"
#include "Views/AChanParItemFrame.h"
#include "Views/AChanParListView.h"
#include "Views/AChanParModel.h"
#include "Views/AChanPlotListView.h"
#include "Views/AnalogToolBar.h"
#include "Views/ChanParItem.h"
#include "Views/ChannelPlotView.h"
#include "Views/ClcAChanParModel.h"
#include "Views/Commands/ViewCommands.h"
#include "Views/DChanParListView.h"
#include "Views/DChanPlotListView.h"
#include "Views/DigitalChannelNameItem.h"
#include "Views/DigitalToolBar.h"
#include "Views/OscillogramViewModel.h"
#include "Settings/ColorStyle.h"
#include "Views/ParValueWidget.h"
#include "Views/RowAndSplitter.h"
#include "Views/RowColors.h"
#include "Views/SignalNameWidget.h"
#include "Views/Splitter.h"

#include <QDragEnterEvent>
#include <QFontMetrics>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QUndoStack>

#include <cmath>

using namespace SineRecords;

namespace {
using Rows = AListHelper::Rows;

// The default font's line height, from which the row heights are made.
int fontHeight()
{
    return QFontMetrics(QFont()).height();
}

// Angles compared on the circle.
double angleDifference(double a, double b)
{
    return std::remainder(a - b, 360.0);
}

// Two lists of each kind around one view model, as the record view has them.
struct Lists
{
    Lists()
        : file(dir.filePath(QStringLiteral("Korvane.ini")), QSettings::IniFormat)
        , settings(QSharedPointer<KorvaneSettings>::create(&file))
        , model(QSharedPointer<OscillogramViewModel>::create())
    {
        // The calculator whose phase is that of a sine at the window's first sample; the default
        // two periods make a window of 160 samples at 4 kHz.
        settings->setVarType(2);
        model->setAllSettings(settings);
        for (ScrollArea* list : all()) {
            list->resize(500, 400);
            list->show();
        }
        aPar.setOscillogramViewModel(model);
        aPlot.setOscillogramViewModel(model);
        dPar.setOscillogramViewModel(model);
        dPlot.setOscillogramViewModel(model);
        for (ScrollArea* list : all())
            list->setUndoStack(&stack);
    }
    QList<ScrollArea*> all() { return { &aPar, &aPlot, &dPar, &dPlot }; }
    void open(const QSharedPointer<Oscillogram>& record) { model->setOscillogram(record); }

    QTemporaryDir dir;
    QSettings file;
    QSharedPointer<KorvaneSettings> settings;
    QSharedPointer<OscillogramViewModel> model;
    QUndoStack stack;
    AChanParListView aPar;
    AChanPlotListView aPlot;
    DChanParListView dPar;
    DChanPlotListView dPlot;
};

Rows rowsOf(const ScrollArea& list)
{
    return list.listHelper()->rows();
}

QList<int> plotChannels(const AChanPlotListView& list)
{
    QList<int> channels;
    for (int i = 0; i < list.rowCount(); ++i)
        channels << list.channelsInItem(i);
    return channels;
}

QStringList panelTexts(const AChanParListView& list, int channel)
{
    const AChanParItem* item
        = static_cast<AChanParAndSplitter*>(list.itemAttachedToDescriptor(channel))->item();
    return item->frame(channel)->valueWidget()->texts();
}

// Drags the channel over the widget at y and drops it there, as Qt delivers a drop.
bool dropOn(QWidget* target, int channel, int y)
{
    QScopedPointer<QMimeData> data(ChannelMime::make(channel));
    const QPoint at(target->width() / 2, y);
    QDragEnterEvent enter(at, Qt::MoveAction, data.data(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent drop(at, Qt::MoveAction, data.data(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &drop);
    return drop.isAccepted();
}

// The record view's wiring of the row lists to its undo commands.
void connectCommands(Lists& lists, ViewCommands& commands)
{
    commands.setOscillogramViewModel(lists.model);
    for (ScrollArea* list : lists.all()) {
        QObject::connect(list, &ScrollArea::sigChannelHeight, &commands, &ViewCommands::slotChannelHeight);
        QObject::connect(list, &ScrollArea::sigIncMag, &commands, &ViewCommands::slotIncMag);
        QObject::connect(list, &ScrollArea::sigDecMag, &commands, &ViewCommands::slotDecMag);
        QObject::connect(list, &ScrollArea::sigIncH, &commands, &ViewCommands::slotIncH);
        QObject::connect(list, &ScrollArea::sigDecH, &commands, &ViewCommands::slotDecH);
        QObject::connect(list, &ScrollArea::sigFitMag, &commands, &ViewCommands::slotFitMag);
        QObject::connect(list, &ScrollArea::sigReset, &commands, &ViewCommands::slotReset);
        QObject::connect(list, &ScrollArea::sigHide, &commands, &ViewCommands::slotHide);
    }
}

void click(QWidget* bar, const char* name)
{
    auto* button = bar->findChild<QToolButton*>(QLatin1String(name));
    QVERIFY2(button, name);
    button->click();
}

// The pointer at y pixels below where the press was; the handle itself moves with its row.
void dragSplitter(Splitter* splitter, const QPoint& pressedAt, int y)
{
    const QPoint global = pressedAt + QPoint(0, y);
    QMouseEvent move(QEvent::MouseMove, splitter->mapFromGlobal(global), global, Qt::NoButton, Qt::LeftButton,
        Qt::NoModifier);
    QApplication::sendEvent(splitter, &move);
}

QVariantList valuesAt(Lists& lists, int channel, int sample)
{
    lists.model->setCurrentSample(sample);
    return lists.aPar.getAnalogValues(channel);
}
} // namespace

class TestRowLists : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { qRegisterMetaType<DRAG_POS>(); }
    void init() { KV::Cfg::ColorStyle::setCurrent(1); }

    void rowsInRecordOrderWithTheirHeights();
    void panelShowsTheSineAtTheCurrentSample();
    void movingTheCurrentSampleUpdatesThePanel();
    void secondaryValuesScaleTheAmplitudes();
    void selectedParametersChooseTheRows();
    void stateTwoChannelShowsOneParameterRow();
    void rowCountByNormalState_data();
    void rowCountByNormalState();
    void clcChannelShowsItsThreeColumns();
    void panelDropMovesTheRowInBothListsAndUndoRestores();
    void dropBelowTheLastRowMovesToTheEnd();
    void plotDropOverlaysAndSplitSeparates();
    void discreteDropOnADiscretePlotMovesTheRow();
    void discreteDragOverAnAnaloguePlotShowsNoMark();
    void analogueDragOverAPlotMarksTheHalf();
    void discreteNames_data();
    void discreteNames();
    void discreteStateMarks();
    void analogueNames_data();
    void analogueNames();
    void hidingAllChannelsOfATwoChannelRowHidesTheRow();
    void rowHeightsFollowTheModel();
    void splitterReportsTheDeltaAndStopsAtTheMinimum();
    void compactAndFullModeHeights();
    void compactPanelShowsTheChosenParameter();
    void listsOfAKindScrollTogether();
    void dragPixmapIsTheRowPicture();
    void plotContextMenuOffersTheAnomalyReport();
    void plotContextMenuStaysClosedAfterADragZoom();
    void panelContextMenuShowsTheToolBar();
    void calculatedChannelsKeepTheRowsAndComeLast();
    void markersTakeThePanelsValues();
    void clickOnAPanelSelectsTheChannel();
    void discreteInvertFromTheNameMenu();
    void toolBarButtonsGoThroughTheUndoStack();
    void splitterDragUndoesInOneStep();
    void discreteToolBarInvertsWhileHovered();
};

void TestRowLists::rowsInRecordOrderWithTheirHeights()
{
    Lists lists;
    lists.open(record({ { 100.0, 0.0 }, { 50.0, 0.0 }, { 10.0, 0.0 } }, 2));
    QCOMPARE(lists.aPar.rowCount(), 3);
    QCOMPARE(lists.aPlot.rowCount(), 3);
    QCOMPARE(lists.aPar.containedChannelIds(), std::vector<int>({ 0, 1, 2 }));
    QCOMPARE(plotChannels(lists.aPlot), QList<int>({ 0, 1, 2 }));
    // Discrete channels are numbered after the analogue ones.
    QCOMPARE(lists.dPar.containedChannelIds(), std::vector<int>({ 3, 4 }));
    QCOMPARE(lists.dPlot.containedChannelIds(), std::vector<int>({ 3, 4 }));
    // An analogue row is five lines of the default font and one pixel high, stacked without gaps.
    const int analogue = 5 * fontHeight() + 1;
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(lists.aPar.rowWidget(i)->geometry().top(), i * analogue);
        QCOMPARE(lists.aPar.rowWidget(i)->height(), analogue);
        QCOMPARE(lists.aPlot.rowWidget(i)->geometry().top(), i * analogue);
        QCOMPARE(lists.aPlot.rowWidget(i)->height(), analogue);
    }
    // A discrete row: one line of text and a little air.
    const int discrete = fontHeight() + 6;
    QCOMPARE(
        lists.dPar.rowWidget(1)->geometry(), QRect(0, discrete, lists.dPar.viewport()->width(), discrete));
    QCOMPARE(lists.dPlot.rowWidget(1)->geometry().top(), discrete);
    QCOMPARE(lists.aPar.contentHeight(), 3 * analogue);
    QCOMPARE(lists.model->aParModels().size(), 3);
}

void TestRowLists::panelShowsTheSineAtTheCurrentSample()
{
    Lists lists;
    lists.open(record({ { 100.0, 30.0 } }, 0));
    // Sample 400 is five whole periods in; the window of 160 samples begins at sample 240.
    const QVariantList values = valuesAt(lists, 0, 400);
    QCOMPARE(
        lists.aPar.aChanParModel(0)->parameterNames(false), QStringList({ "А", "Э", "Э1", "Ч", "Ф", "АЦП" }));
    QCOMPARE(values.size(), 6);
    // The instantaneous value of 100 V · cos 30°, stored as the code 8660 of 0.01 V.
    QCOMPARE(values[5].toInt(), 8660);
    QVERIFY(qAbs(values[0].toDouble() - 86.60) < 1e-9);
    // Effective values of a 100 V peak: 100 / √2, within the 0.005 V of the codes' rounding.
    QVERIFY(qAbs(values[1].toDouble() - 100.0 / std::sqrt(2.0)) < 0.01);
    QVERIFY(qAbs(values[2].toDouble() - 100.0 / std::sqrt(2.0)) < 0.01);
    QVERIFY(qAbs(values[3].toDouble() - 50.0) < 0.01);
    // The window starts three periods in, where the cosine is at 30°: a sine at 120°.
    QVERIFY2(qAbs(angleDifference(values[4].toDouble(), 120.0)) < 0.05, qPrintable(values[4].toString()));
    const QStringList texts = panelTexts(lists.aPar, 0);
    QCOMPARE(texts.value(0), QStringLiteral("А = 86.600 В"));
    QCOMPARE(texts.value(5), QStringLiteral("АЦП = 8660"));
    QVERIFY(
        texts.value(3).startsWith(QStringLiteral("Ч = ")) && texts.value(3).endsWith(QStringLiteral(" Гц")));
    QVERIFY(texts.value(4).endsWith(QStringLiteral("°")));
}

void TestRowLists::movingTheCurrentSampleUpdatesThePanel()
{
    Lists lists;
    lists.open(record({ { 100.0, 30.0 } }, 0));
    const QVariantList before = valuesAt(lists, 0, 400);
    // A quarter of a period later the cosine stands at 120°: -50 V, and the phase has turned by 90°.
    lists.model->setCurrentSample(420);
    const QStringList texts = panelTexts(lists.aPar, 0);
    QCOMPARE(texts.value(0), QStringLiteral("А = -50.000 В"));
    const QVariantList after = lists.aPar.getAnalogValues(0);
    QVERIFY(qAbs(angleDifference(after[4].toDouble() - before[4].toDouble(), 90.0)) < 0.05);
    QVERIFY(qAbs(after[1].toDouble() - before[1].toDouble()) < 0.01);
    // Negative values take the style's colour of negative values.
    const auto colors = lists.aPar.aChanParModel(0)->valueColors(after);
    QCOMPARE(colors[0], RowColors::current().negativeValue);
    QCOMPARE(colors[1], RowColors::current().positiveValue);
}

void TestRowLists::secondaryValuesScaleTheAmplitudes()
{
    Lists lists;
    auto rec = record({ { 100.0, 30.0 } }, 0);
    // Stored in primary values of a 1000 / 100 transformer.
    rec->analogChannel(0)->setPrimary(1000.0);
    rec->analogChannel(0)->setSecondary(100.0);
    lists.open(rec);
    const QVariantList primary = valuesAt(lists, 0, 400);
    lists.model->setPrimSecMode(AnalogChannel::Secondary);
    const QVariantList secondary = lists.aPar.getAnalogValues(0);
    for (int i : { 0, 1, 2 })
        QVERIFY(qAbs(secondary[i].toDouble() - primary[i].toDouble() / 10.0) < 1e-9);
    // Frequency, phase and the converter's code are the same on both sides.
    for (int i : { 3, 4, 5 })
        QCOMPARE(secondary[i], primary[i]);
    QCOMPARE(panelTexts(lists.aPar, 0).value(0), QStringLiteral("А = 8.660 В"));
}

void TestRowLists::selectedParametersChooseTheRows()
{
    Lists lists;
    lists.settings->setSelectedParameters({ true, false, false, true, false, false });
    lists.open(record({ { 100.0, 0.0 } }, 0));
    QCOMPARE(lists.aPar.aChanParModel(0)->parameterNames(false), QStringList({ "А", "Ч" }));
    QCOMPARE(lists.aPar.aChanParModel(0)->parameterNames(true), QStringList({ "Ампл. значение", "Частота" }));
    QCOMPARE(panelTexts(lists.aPar, 0).size(), 2);
}

void TestRowLists::stateTwoChannelShowsOneParameterRow()
{
    Lists lists;
    auto rec = record({ { 100.0, 0.0 } }, 0);
    rec->analogChannel(0)->setNormalState(2);
    lists.open(rec);
    AChanParModel* model = lists.aPar.aChanParModel(0);
    QCOMPARE(model->parameterNames(false), QStringList({ "А" }));
    QCOMPARE(model->rowCount(), 1);
    lists.model->setCurrentSample(0);
    QCOMPARE(panelTexts(lists.aPar, 0), QStringList({ "А = 100.000 В" }));
}

void TestRowLists::rowCountByNormalState_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("rows");
    QTest::newRow("state 0") << 0 << 3;
    QTest::newRow("state 1") << 1 << 3;
    QTest::newRow("state 2") << 2 << 1;
    QTest::newRow("state 3") << 3 << 3;
    QTest::newRow("state 4") << 4 << 0;
}

void TestRowLists::rowCountByNormalState()
{
    QFETCH(int, state);
    QFETCH(int, rows);
    Lists lists;
    auto rec = record({ { 100.0, 0.0 } }, 0);
    rec->analogChannel(0)->setNormalState(short(state));
    lists.open(rec);
    QCOMPARE(lists.aPar.aChanParModel(0)->rowCount(), rows);
}

void TestRowLists::clcChannelShowsItsThreeColumns()
{
    // Three doubles a row: minimum, maximum and average of each interval.
    OscillogramDataBuilder builder;
    builder.reserve(3, 0, 0, 0, 0, 2);
    builder.doubleAnalogValues() = { -1.5, 2.5, 0.25, -3.0, 4.0, 0.5 };
    builder.setCountOfSamples(2);
    auto channel = QSharedPointer<AnalogChannel>::create();
    channel->setData(builder.build());
    channel->setDataType(DT::Double);
    channel->setDataCount(3);
    channel->setMultiplier(2.0);
    channel->setUnit(QStringLiteral("кВ"));
    ClcAChanParModel model(nullptr, channel, 0);
    QCOMPARE(model.parameterNames(false), QStringList({ "Min", "Max", "Avg" }));
    QCOMPARE(model.parameterUnits(), QStringList({ "кВ", "кВ", "кВ" }));
    QCOMPARE(model.parameterValues(1), QVariantList({ -6.0, 8.0, 1.0 }));
    QCOMPARE(model.rowCount(), 3);
}

void TestRowLists::panelDropMovesTheRowInBothListsAndUndoRestores()
{
    Lists lists;
    lists.open(record({ { 100.0, 0.0 }, { 50.0, 0.0 }, { 10.0, 0.0 } }, 0));
    QWidget* target = lists.aPar.chanParItemInOrder(2);
    // Channel 0 onto the lower half of the row of channel 2: after it.
    QVERIFY(dropOn(target, 0, target->height() - 2));
    QCOMPARE(rowsOf(lists.aPar), Rows({ { 1 }, { 2 }, { 0 } }));
    QCOMPARE(plotChannels(lists.aPlot), QList<int>({ 1, 2, 0 }));
    QCOMPARE(lists.aPlot.rowWidget(2)->geometry().top(), 2 * lists.aPlot.rowHeight(0));
    QCOMPARE(lists.model->aParModels().first()->channelNumber(), 1);
    QCOMPARE(lists.stack.count(), 1);
    // Channel 2 onto the upper half of the row of channel 1: before it.
    target = lists.aPar.chanParItemInOrder(0);
    QVERIFY(dropOn(target, 2, 2));
    QCOMPARE(rowsOf(lists.aPar), Rows({ { 2 }, { 1 }, { 0 } }));
    lists.stack.undo();
    lists.stack.undo();
    QCOMPARE(rowsOf(lists.aPar), Rows({ { 0 }, { 1 }, { 2 } }));
    QCOMPARE(plotChannels(lists.aPlot), QList<int>({ 0, 1, 2 }));
    lists.stack.redo();
    QCOMPARE(plotChannels(lists.aPlot), QList<int>({ 1, 2, 0 }));
}

void TestRowLists::dropBelowTheLastRowMovesToTheEnd()
{
    Lists lists;
    lists.open(record({ { 100.0, 0.0 }, { 50.0, 0.0 } }, 0));
    QVERIFY(dropOn(lists.aPar.viewport(), 0, lists.aPar.viewport()->height() - 2));
    QCOMPARE(rowsOf(lists.aPar), Rows({ { 1 }, { 0 } }));
}

void TestRowLists::plotDropOverlaysAndSplitSeparates()
{
    Lists lists;
    lists.open(record({ { 100.0, 0.0 }, { 50.0, 0.0 }, { 10.0, 0.0 } }, 0));
    ChannelPlotView* plot = lists.aPlot.fromLayoutIndexToPlot(0);
    QVERIFY(dropOn(plot, 2, 5));
    QCOMPARE(rowsOf(lists.aPar), Rows({ { 0, 2 }, { 1 } }));
    QCOMPARE(rowsOf(lists.aPlot), Rows({ { 0, 2 }, { 1 } }));
    QCOMPARE(lists.aPlot.fromLayoutIndexToPlot(0)->channels(), QList<int>({ 0, 2 }));
    QCOMPARE(lists.aPar.countPanelsInChannel(2), 2);
    QCOMPARE(lists.aPar.chanParItemInOrder(0)->countPanels(), 2);
    // The joined row makes room for the second panel, in both lists.
    QCOMPARE(lists.aPar.rowHeight(0), AChanParListView::fullRowHeight(2));
    QCOMPARE(lists.aPlot.rowHeight(0), AChanParListView::fullRowHeight(2));
    QList<int> order;
    for (AChanParModel* model : lists.model->aParModels())
        order << model->channelNumber();
    QCOMPARE(order, QList<int>({ 0, 2, 1 }));

    // "Разделить канал" puts the last channel of the row into a row of its own below it.
    QScopedPointer<QMenu> menu(lists.aPar.chanParItemInOrder(0)->makeContextMenu());
    QAction* split = menu->actions().value(1);
    QCOMPARE(split->text(), QStringLiteral("Разделить канал"));
    QVERIFY(split->isEnabled());
    split->trigger();
    QCOMPARE(rowsOf(lists.aPlot), Rows({ { 0 }, { 2 }, { 1 } }));
    lists.stack.undo();
    QCOMPARE(rowsOf(lists.aPlot), Rows({ { 0, 2 }, { 1 } }));
    lists.stack.undo();
    QCOMPARE(rowsOf(lists.aPlot), Rows({ { 0 }, { 1 }, { 2 } }));
    QScopedPointer<QMenu> single(lists.aPar.chanParItemInOrder(0)->makeContextMenu());
    QVERIFY(!single->actions().value(1)->isEnabled());
}

void TestRowLists::discreteDropOnADiscretePlotMovesTheRow()
{
    Lists lists;
    lists.open(record({ { 100.0, 0.0 } }, 3));
    ChannelPlotView* plot = lists.dPlot.fromLayoutIndexToPlot(2);
    QVERIFY(dropOn(plot, 1, plot->height() - 1));
    QCOMPARE(rowsOf(lists.dPlot), Rows({ { 2 }, { 3 }, { 1 } }));
    QCOMPARE(rowsOf(lists.dPar), Rows({ { 2 }, { 3 }, { 1 } }));
    // The analogue lists do not take discrete rows.
    QCOMPARE(rowsOf(lists.aPar), Rows({ { 0 } }));
}

void TestRowLists::discreteDragOverAnAnaloguePlotShowsNoMark()
{
    Lists lists;
    lists.open(record({ { 100.0, 0.0 }, { 50.0, 0.0 } }, 1));
    ChannelPlotView* plot = lists.aPlot.fromLayoutIndexToPlot(0);
    QSignalSpy selected(plot, &ChannelPlotView::sigDragChannelSelected);
    QVERIFY(!dropOn(plot, 2, 5));
    QVERIFY(!plot->isDragSelected());
    QCOMPARE(selected.count(), 0);
    QCOMPARE(rowsOf(lists.aPlot), Rows({ { 0 }, { 1 } }));
    QVERIFY(!dropOn(lists.aPar.chanParItemInOrder(0), 2, 5));
}

void TestRowLists::analogueDragOverAPlotMarksTheHalf()
{
    Lists lists;
    lists.open(record({ { 100.0, 0.0 }, { 50.0, 0.0 } }, 0));
    ChannelPlotView* plot = lists.aPlot.fromLayoutIndexToPlot(0);
    QSignalSpy relayed(lists.model.data(), &OscillogramViewModel::sigDragSelectedChannel);
    QScopedPointer<QMimeData> data(ChannelMime::make(1));
    QDragEnterEvent enter(
        QPoint(10, plot->height() - 3), Qt::MoveAction, data.data(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(plot, &enter);
    QVERIFY(enter.isAccepted());
    QVERIFY(plot->isDragSelected());
    QCOMPARE(plot->dragSelectedPos(), DRAG_POS_LOWER);
    QCOMPARE(relayed.count(), 1);
    QCOMPARE(relayed.first().at(0).toInt(), 0);
    // The mark: a line of the drag colour 5 pixels above the lower edge.
    const QImage picture = plot->grab().toImage();
    QCOMPARE(picture.pixelColor(plot->width() / 2, plot->height() - 5), RowColors::current().dragMark);
    QDragLeaveEvent leave;
    QApplication::sendEvent(plot, &leave);
    QVERIFY(!plot->isDragSelected());
}

void TestRowLists::discreteNames_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QString>("name");
    QTest::newRow("id 12 with a line") << 12 << QStringList { "ВЛ 1" } << QStringLiteral("(ВЛ 1) 12. Пуск");
    QTest::newRow("id 9999 is still shown") << 9999 << QStringList() << QStringLiteral("() 9999. Пуск");
    QTest::newRow("id 10000 has no number") << 10000 << QStringList() << QStringLiteral("() Пуск");
    QTest::newRow("id -1 has no number") << -1 << QStringList { "А", "Б" } << QStringLiteral("(А, Б) Пуск");
}

void TestRowLists::discreteNames()
{
    QFETCH(int, id);
    QFETCH(QStringList, lines);
    QFETCH(QString, name);
    DigitalChannel channel;
    channel.setPhysNum(id);
    channel.setLineNames(lines);
    channel.setName(QStringLiteral("Пуск"));
    DigitalChannelNameItem item(QSharedPointer<OscillogramViewModel>::create());
    item.setName(channel);
    QCOMPARE(item.name(), name);
    QCOMPARE(item.toolTip(), name);
}

void TestRowLists::discreteStateMarks()
{
    Lists lists;
    auto rec = record({}, 2);
    rec->digitalChannel(1)->setNormalState(true);
    lists.open(rec);
    QCOMPARE(lists.dPar.chanParItemInOrder(0)->nameItem()->stateMark(), QStringLiteral("Н.О."));
    QCOMPARE(lists.dPar.chanParItemInOrder(1)->nameItem()->stateMark(), QStringLiteral("Н.З."));
}

void TestRowLists::analogueNames_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QString>("name");
    QTest::newRow("id and line") << 5 << QStringList { "ВЛ 110" } << QStringLiteral("ВЛ 110 5. Ua - кВ");
    QTest::newRow("id 1000 is shown") << 1000 << QStringList() << QStringLiteral("1000. Ua - кВ");
    QTest::newRow("id 1001 is not") << 1001 << QStringList() << QStringLiteral("Ua - кВ");
}

void TestRowLists::analogueNames()
{
    QFETCH(int, id);
    QFETCH(QStringList, lines);
    QFETCH(QString, name);
    AnalogChannel channel;
    channel.setPhysNum(id);
    channel.setLineNames(lines);
    channel.setName(QStringLiteral("Ua"));
    channel.setUnit(QStringLiteral("кВ"));
    QCOMPARE(SignalNameWidget::nameText(channel, true), name);
}

void TestRowLists::hidingAllChannelsOfATwoChannelRowHidesTheRow()
{
    Lists lists;
    lists.open(record({ { 100.0, 0.0 }, { 50.0, 0.0 }, { 10.0, 0.0 } }, 0));
    QVERIFY(dropOn(lists.aPlot.fromLayoutIndexToPlot(0), 1, 5));
    const int joined = AChanParListView::fullRowHeight(2);
    const int single = OscillogramViewModel::defaultRowHeight();
    lists.model->setChannelVisible(0, false);
    QVERIFY(lists.aPlot.isRowVisible(0));
    QVERIFY(lists.aPar.isRowVisible(0));
    lists.model->setChannelVisible(1, false);
    QVERIFY(!lists.aPlot.isRowVisible(0));
    QVERIFY(!lists.aPar.isRowVisible(0));
    QCOMPARE(lists.aPlot.contentHeight(), single);
    // The row of channel 2 moves up into the room.
    QCOMPARE(lists.aPar.rowWidget(1)->geometry().top(), 0);
    lists.model->resetChannelRowsFilter();
    QVERIFY(lists.aPar.isRowVisible(0));
    QCOMPARE(lists.aPar.rowWidget(1)->geometry().top(), joined);
}

void TestRowLists::rowHeightsFollowTheModel()
{
    Lists lists;
    lists.open(record({ { 100.0, 0.0 }, { 50.0, 0.0 } }, 0));
    lists.model->setChanRowHeight(0, 150);
    QCOMPARE(lists.aPar.rowHeight(0), 150);
    QCOMPARE(lists.aPlot.rowHeight(0), 150);
    QCOMPARE(lists.aPlot.rowWidget(0)->height(), 150);
    QCOMPARE(lists.aPlot.rowWidget(1)->geometry().top(), 150);
    // The plot inside the row keeps the handle below it.
    auto* plotRow = static_cast<AChanPlotAndSplitter*>(lists.aPlot.rowWidget(0));
    QCOMPARE(plotRow->plot()->height(), 150 - Splitter::handleHeight);
}

void TestRowLists::splitterReportsTheDeltaAndStopsAtTheMinimum()
{
    Lists lists;
    lists.open(record({ { 100.0, 0.0 } }, 0));
    auto* row = static_cast<AChanPlotAndSplitter*>(lists.aPlot.rowWidget(0));
    Splitter* splitter = row->splitter();
    QCOMPARE(splitter->minPanelHeight(), OscillogramViewModel::defaultRowMinHeight());
    QSignalSpy heights(&lists.aPlot, &ScrollArea::sigChannelHeight);
    QTest::mousePress(splitter, Qt::LeftButton, Qt::NoModifier, QPoint(5, 1));
    QMouseEvent down(QEvent::MouseMove, QPoint(5, 21), splitter->mapToGlobal(QPoint(5, 21)), Qt::NoButton,
        Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(splitter, &down);
    QCOMPARE(heights.count(), 1);
    QCOMPARE(heights.first(), QVariantList({ 0, 20 }));
    // Far up: the row may shrink only to its minimum.
    QMouseEvent up(QEvent::MouseMove, QPoint(5, -1000), splitter->mapToGlobal(QPoint(5, -1000)), Qt::NoButton,
        Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(splitter, &up);
    QCOMPARE(heights.count(), 2);
    QCOMPARE(heights.last().at(1).toInt(), OscillogramViewModel::defaultRowMinHeight() - row->height());
}

void TestRowLists::compactAndFullModeHeights()
{
    const int h = fontHeight();
    QCOMPARE(AChanParListView::compactRowHeight(1), 2 * h + 1);
    QCOMPARE(AChanParListView::compactRowHeight(3), 3 * (2 * h + 1));
    QCOMPARE(AChanParListView::fullRowHeight(1), OscillogramViewModel::defaultRowHeight());
    // Each panel beyond the first adds its name line and three value rows.
    QCOMPARE(AChanParListView::fullRowHeight(2), 5 * h + 1 + 4 * h + 1);
}

void TestRowLists::compactPanelShowsTheChosenParameter()
{
    Lists lists;
    // The frequency (parameter 3) is the one the compact panels keep.
    lists.settings->setSelectedParameterForCompactMode(KorvaneSettings::Frequency);
    lists.open(record({ { 100.0, 0.0 }, { 50.0, 0.0 } }, 0));
    lists.model->setCurrentSample(400);
    lists.aPar.setCompactMode(0);
    const QStringList texts = panelTexts(lists.aPar, 0);
    QCOMPARE(texts.size(), 1);
    QVERIFY(texts.first().startsWith(QStringLiteral("Ч = 50.0")));
    lists.aPar.updateHeight(0, AChanParListView::compactRowHeight(1));
    lists.aPlot.updateHeight(0, AChanParListView::compactRowHeight(1));
    QCOMPARE(lists.aPlot.rowWidget(1)->geometry().top(), 2 * fontHeight() + 1);
    QCOMPARE(panelTexts(lists.aPar, 1).size(), 6);
    lists.aPar.setFullMode(0);
    QCOMPARE(panelTexts(lists.aPar, 0).size(), 6);
}

void TestRowLists::listsOfAKindScrollTogether()
{
    Lists lists;
    lists.open(record(QVector<Sine>(12, { 10.0, 0.0 }), 0));
    QVERIFY(lists.aPlot.verticalScrollBar()->maximum() > 0);
    lists.aPlot.verticalScrollBar()->setValue(lists.aPlot.verticalScrollBar()->singleStep());
    const int step = OscillogramViewModel::defaultRowHeight();
    QCOMPARE(lists.model->analogVerticalScrollValue(), step);
    QCOMPARE(lists.aPar.verticalScrollBar()->value(), step);
    QCOMPARE(lists.aPar.rowWidget(1)->geometry().top(), 0);
    QCOMPARE(lists.aPlot.rowWidget(0)->geometry().top(), -step);
}

void TestRowLists::dragPixmapIsTheRowPicture()
{
    Lists lists;
    lists.open(record({ { 100.0, 0.0 } }, 0));
    AChanParItem* item = lists.aPar.chanParItemInOrder(0);
    const QImage pixmap = item->plot().toImage().convertToFormat(QImage::Format_ARGB32);
    const int h = item->height();
    QCOMPARE(pixmap.height(), h);
    // Right of the names: the channel's own plot, as the view model renders it.
    const QImage plot = lists.model->channelPlot({ 0 }, pixmap.width() - item->width(), h);
    QCOMPARE(pixmap.copy(item->width(), 0, plot.width(), h), plot);
    // The names are on white.
    QCOMPARE(pixmap.pixelColor(1, 1), QColor(Qt::white));
}

void TestRowLists::plotContextMenuOffersTheAnomalyReport()
{
    Lists lists;
    lists.open(record({ { 100.0, 0.0 } }, 0));
    Anomaly anomaly;
    anomaly.getAnomalyData() << AnomalyData(100, 200);
    anomaly.getAnomalyText() = QStringLiteral("Скачок");
    lists.model->setAnomalyHash({ { 0, anomaly } });
    ChannelPlotView* plot = lists.aPlot.fromLayoutIndexToPlot(0);
    QSignalSpy clicked(lists.model.data(), &OscillogramViewModel::sigRightMouseClicked);
    QSignalSpy report(lists.model.data(), &OscillogramViewModel::sigAnomalyReport);
    // At scale 1.0 from sample 0, pixel 150 is sample 150, inside the span.
    QScopedPointer<QMenu> menu(plot->makeContextMenu(150));
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(menu->actions().size(), 1);
    QCOMPARE(menu->actions().first()->text(), QStringLiteral("Информация об аномалии"));
    menu->actions().first()->trigger();
    QCOMPARE(report.count(), 1);
    const QString text = report.first().at(0).toString();
    QVERIFY(text.startsWith(QStringLiteral("Канал: 0. U1\n")));
    QVERIFY(text.contains(QStringLiteral("Скачок")));
    QScopedPointer<QMenu> outside(plot->makeContextMenu(300));
    QVERIFY(outside->actions().isEmpty());
}

void TestRowLists::plotContextMenuStaysClosedAfterADragZoom()
{
    Lists lists;
    lists.open(record({ { 100.0, 0.0 } }, 0));
    ChannelPlotView* plot = lists.aPlot.fromLayoutIndexToPlot(0);
    plot->slotScaledChanged(true);
    QVERIFY(!plot->makeContextMenu(10));
    QScopedPointer<QMenu> next(plot->makeContextMenu(10));
    QVERIFY(next);
}

void TestRowLists::panelContextMenuShowsTheToolBar()
{
    Lists lists;
    lists.open(record({ { 100.0, 0.0 }, { 50.0, 0.0 } }, 0));
    QSignalSpy toolBar(lists.model.data(), &OscillogramViewModel::sigSetVisibleToolBar);
    QScopedPointer<QMenu> menu(lists.aPar.chanParItemInOrder(1)->makeContextMenu());
    QCOMPARE(menu->actions().first()->text(), QStringLiteral("Показать панель инструментов"));
    menu->actions().first()->trigger();
    QCOMPARE(toolBar.count(), 1);
    QCOMPARE(toolBar.first(), QVariantList({ true, 1 }));
}

void TestRowLists::calculatedChannelsKeepTheRowsAndComeLast()
{
    Lists lists;
    lists.open(record({ { 100.0, 0.0 }, { 50.0, 0.0 } }, 2));
    QVERIFY(dropOn(lists.aPlot.fromLayoutIndexToPlot(0), 1, 5));
    QVERIFY(dropOn(lists.dPar.chanParItemInOrder(0), 3, 2));
    QCOMPARE(rowsOf(lists.dPar), Rows({ { 3 }, { 2 } }));
    // The same record with one computed analogue channel more.
    lists.model->setCalcOscillogram(record({ { 100.0, 0.0 }, { 50.0, 0.0 }, { 20.0, 0.0 } }, 2));
    QCOMPARE(rowsOf(lists.aPar), Rows({ { 0, 1 }, { 2 } }));
    QCOMPARE(rowsOf(lists.aPlot), Rows({ { 0, 1 }, { 2 } }));
    // The discrete channels are numbered one further on.
    QCOMPARE(rowsOf(lists.dPlot), Rows({ { 4 }, { 3 } }));
}

void TestRowLists::markersTakeThePanelsValues()
{
    Lists lists;
    lists.open(record({ { 100.0, 30.0 }, { 50.0, 0.0 } }, 0));
    lists.model->setCurrentSample(400);
    const Markers::Item item = lists.model->makeMarkerItem();
    QCOMPARE(item.values.value(0), lists.aPar.getAnalogValues(0));
    QCOMPARE(item.values.value(1), lists.aPar.getAnalogValues(1));
    QCOMPARE(item.values.value(0).value(5).toInt(), 8660);
}

void TestRowLists::clickOnAPanelSelectsTheChannel()
{
    Lists lists;
    lists.open(record({ { 100.0, 0.0 } }, 1));
    AChanParItem* item = lists.aPar.chanParItemInOrder(0);
    QTest::mouseClick(item, Qt::LeftButton, Qt::NoModifier, QPoint(20, 5));
    QVERIFY(lists.model->isChannelSelected(0));
    QVERIFY(item->frame(0)->grab().toImage().pixelColor(10, item->frame(0)->height() - 2)
        == RowColors::current().selectedPanel);
    ChanParItem* discrete = lists.dPar.chanParItemInOrder(0);
    QTest::mouseClick(discrete, Qt::LeftButton, Qt::NoModifier, QPoint(20, 5));
    QVERIFY(lists.model->isChannelSelected(1));
    QTest::mouseClick(discrete, Qt::LeftButton, Qt::NoModifier, QPoint(20, 5));
    QVERIFY(!lists.model->isChannelSelected(1));
}

void TestRowLists::discreteInvertFromTheNameMenu()
{
    Lists lists;
    auto rec = record({}, 1);
    lists.open(rec);
    QSignalSpy repaint(lists.model.data(), &OscillogramViewModel::repaintWave);
    QScopedPointer<QMenu> menu(lists.dPar.chanParItemInOrder(0)->nameItem()->makeContextMenu());
    QCOMPARE(menu->actions().first()->text(), QStringLiteral("Инвертировать сигнал"));
    menu->actions().first()->trigger();
    QVERIFY(rec->digitalChannel(0)->isInverted());
    QCOMPARE(repaint.count(), 1);
}

void TestRowLists::toolBarButtonsGoThroughTheUndoStack()
{
    Lists lists;
    ViewCommands commands(&lists.stack);
    connectCommands(lists, commands);
    lists.open(record({ { 100.0, 0.0 }, { 50.0, 0.0 } }, 0));
    QVERIFY(!lists.aPlot.toolBar(1));
    QScopedPointer<QMenu> menu(lists.aPar.chanParItemInOrder(1)->makeContextMenu());
    menu->actions().first()->trigger();
    AnalogToolBar* bar = lists.aPlot.toolBar(1);
    QVERIFY(bar && bar->isVisible());
    // At the top right of the row's plot.
    const ChannelPlotView* plot = lists.aPlot.fromLayoutIndexToPlot(1);
    QCOMPARE(bar->parentWidget(), plot);
    QCOMPARE(bar->geometry().right(), plot->width() - 3);

    const int height = OscillogramViewModel::defaultRowHeight();
    click(bar, "pb_increaseMagnitude");
    QCOMPARE(lists.model->chanMag(1), 4.0 / 3.0);
    // "Уменьшить область отображения": three quarters of the height, truncated.
    click(bar, "pb_increaseHeight");
    QCOMPARE(lists.aPar.rowHeight(1), int(height * 0.75));
    QCOMPARE(lists.aPlot.rowHeight(1), int(height * 0.75));
    click(bar, "pb_resetChannel");
    QCOMPARE(lists.model->chanMag(1), 1.0);
    QCOMPARE(lists.aPlot.rowHeight(1), height);
    QSignalSpy filter(lists.model.data(), &OscillogramViewModel::channelRowsFilterChanged);
    click(bar, "pb_hideChannel");
    QVERIFY(!lists.aPar.isRowVisible(1));
    QVERIFY(!lists.aPlot.isRowVisible(1));
    QCOMPARE(lists.stack.count(), 4);
    lists.stack.undo();
    QVERIFY(lists.aPar.isRowVisible(1));
    QVERIFY(lists.aPlot.isRowVisible(1));
    QCOMPARE(filter.count(), 2);
    lists.stack.undo();
    QCOMPARE(lists.aPlot.rowHeight(1), int(height * 0.75));
    QCOMPARE(lists.model->chanMag(1), 4.0 / 3.0);
    click(bar, "pb_inverted");
    QVERIFY(lists.model->oscillogram()->analogChannel(1)->isInverted());

    // Leaving the row puts the tool bar away.
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(lists.aPlot.fromLayoutIndexToPlot(1), &leave);
    QVERIFY(!bar->isVisible());
}

void TestRowLists::splitterDragUndoesInOneStep()
{
    Lists lists;
    ViewCommands commands(&lists.stack);
    connectCommands(lists, commands);
    lists.open(record({ { 100.0, 0.0 }, { 50.0, 0.0 } }, 0));
    Splitter* splitter = static_cast<AChanParAndSplitter*>(lists.aPar.rowWidget(0))->splitter();
    const QPoint pressedAt = splitter->mapToGlobal(QPoint(5, 0));
    QTest::mousePress(splitter, Qt::LeftButton, Qt::NoModifier, QPoint(5, 0));
    for (int y : { 10, 20, 30 })
        dragSplitter(splitter, pressedAt, y);
    const int height = OscillogramViewModel::defaultRowHeight();
    QCOMPARE(lists.model->chanRowHeight(0), height + 30);
    QCOMPARE(lists.aPlot.rowHeight(0), height + 30);
    QCOMPARE(lists.aPar.rowWidget(1)->geometry().top(), height + 30);
    QCOMPARE(lists.stack.count(), 1);
    lists.stack.undo();
    QCOMPARE(lists.aPlot.rowHeight(0), height);
}

void TestRowLists::discreteToolBarInvertsWhileHovered()
{
    Lists lists;
    auto rec = record({ { 100.0, 0.0 } }, 2);
    lists.open(rec);
    ChanParItem* item = lists.dPar.chanParItemInOrder(1);
    QVERIFY(!item->toolBar()->isVisible());
    QEvent enter(QEvent::Enter);
    QApplication::sendEvent(item, &enter);
    QVERIFY(item->toolBar()->isVisible());
    QCOMPARE(item->toolBar()->geometry().right(), item->width() - 1);
    QSignalSpy repaint(lists.model.data(), &OscillogramViewModel::repaintWave);
    click(item->toolBar(), "pb_invert");
    QVERIFY(rec->digitalChannel(1)->isInverted());
    QVERIFY(!rec->digitalChannel(0)->isInverted());
    QCOMPARE(repaint.count(), 1);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(item, &leave);
    QVERIFY(!item->toolBar()->isVisible());
}

QTEST_MAIN(TestRowLists)
#include "tst_rowlists.moc"
