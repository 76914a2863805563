#include "PlotRecords.h"
#include "Views/Commands/UndoCommands.h"
#include "Views/OscillogramViewModel.h"

#include <QLabel>
#include <QSignalSpy>
#include <QSplitter>
#include <QTest>
#include <QUndoStack>

namespace {
constexpr double fourThirds = 4.0 / 3.0;

// Two analogue and one discrete channel, 1000 samples at 1000 Hz, trigger at sample 100.
QSharedPointer<OscillogramViewModel> makeModel()
{
    auto model = QSharedPointer<OscillogramViewModel>::create();
    model->setOscillogram(PlotRecords::makeRecord(2, 1, 1000, 100));
    return model;
}

// A shown splitter of two labels, so that its sizes are real.
QSplitter* makeSplitter(QWidget* parent, Qt::Orientation orientation)
{
    auto* splitter = new QSplitter(orientation, parent);
    splitter->addWidget(new QLabel(QStringLiteral("a")));
    splitter->addWidget(new QLabel(QStringLiteral("b")));
    return splitter;
}
} // namespace

class TestUndoCommands : public QObject
{
    Q_OBJECT
private slots:
    void idsOfTheMergingCommands();

    void triggerMovesAndComesBack();
    void heightFollowsFactorAndDelta_data();
    void heightFollowsFactorAndDelta();
    void heightRunOnOneChannelUndoesInOneStep();
    void heightOnTwoChannelsAlternatingUndoesInFourSteps();
    void magnitudeTwiceThenUndoOnce();
    void decreaseMagnitude();
    void fitMagnitudeAndBack();
    void resetChannelAndBack();
    void hideAndShowAgain();
    void appendMarkerKeepsTheMomentOfTheClick();
    void appendMarkerRefusedWhereOneStands();
    void clearMarkersAndBack();

    void lrSplitterRunUndoesToTheEndOfTheFirstMove();
    void lrSplittersOfTwoViewsDoNotMerge();
    void adSplitterSetsBothAndMerges();

    void stackDropsTheOldestBeyondItsLimit();
    void missingChannelChangesNothing();
    void commandsWithoutModelDoNothing();
    void commandsActOnANewRecordByNumber();
};

void TestUndoCommands::idsOfTheMergingCommands()
{
    const auto model = makeModel();
    QSplitter a;
    QSplitter b;
    QCOMPARE(SetChanHCommand(model, 0, 0, 1.0).id(), 0);
    QCOMPARE(LRSplitterCommand(&a).id(), 1);
    QCOMPARE(ADSplitterCommand(&a, &b, {}).id(), 2);
    QCOMPARE(ChangeTriggerCommand(model, 0).id(), -1);
    QCOMPARE(SetChanMagCommand(model, 0, 2.0).id(), -1);
    QCOMPARE(FitChanMagCommand(model, 0).id(), -1);
    QCOMPARE(ResetChanCommand(model, 0).id(), -1);
    QCOMPARE(HideChanCommand(model, 0).id(), -1);
    QCOMPARE(AppendMarkerCommand(model).id(), -1);
    QCOMPARE(ClearMarkersCommand(model).id(), -1);
}

void TestUndoCommands::triggerMovesAndComesBack()
{
    const auto model = makeModel();
    const auto record = model->oscillogram();
    const PreciseDateTime before = record->triggerTime();
    QUndoStack stack;
    ViewCommands commands(&stack);
    commands.setOscillogramViewModel(model);
    QSignalSpy spy(model.data(), &OscillogramViewModel::triggerTimeChanged);

    commands.slotSetTriggerTime(300);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(record->countOfPreFailureSamples(), 300);
    QCOMPARE(record->countOfPostFailureSamples(), 700);
    // 200 samples at 1000 Hz after the old trigger.
    QCOMPARE(before.uSecsTo(record->triggerTime()), 200000LL);

    stack.undo();
    QCOMPARE(spy.count(), 2);
    QCOMPARE(record->countOfPreFailureSamples(), 100);
    QCOMPARE(before.uSecsTo(record->triggerTime()), 0LL);

    stack.redo();
    QCOMPARE(spy.count(), 3);
    QCOMPARE(record->countOfPreFailureSamples(), 300);
}

void TestUndoCommands::heightFollowsFactorAndDelta_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("delta");
    QTest::addColumn<double>("factor");
    QTest::addColumn<int>("expected");
    // new = trunc(old * factor) + delta.
    QTest::newRow("increase button, 0.75 of 101 truncated") << 101 << 0 << 0.75 << 75;
    QTest::newRow("decrease button, 4/3 of 101 truncated") << 101 << 0 << fourThirds << 134;
    QTest::newRow("drag of the edge by 17") << 101 << 17 << 1.0 << 118;
    QTest::newRow("drag of the edge by -20") << 101 << -20 << 1.0 << 81;
}

void TestUndoCommands::heightFollowsFactorAndDelta()
{
    QFETCH(int, start);
    QFETCH(int, delta);
    QFETCH(double, factor);
    QFETCH(int, expected);
    const auto model = makeModel();
    model->setChanRowMinHeight(1, 10);
    model->setChanRowHeight(1, start);
    QUndoStack stack;
    QSignalSpy spy(model.data(), &OscillogramViewModel::channelRowHeightChanged);

    stack.push(new SetChanHCommand(model, 1, delta, factor));
    QCOMPARE(model->chanRowHeight(1), expected);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.last().at(0).toInt(), 1);
    QCOMPARE(spy.last().at(1).toInt(), expected);

    stack.undo();
    QCOMPARE(model->chanRowHeight(1), start);
    QCOMPARE(spy.last().at(1).toInt(), start);

    stack.redo();
    QCOMPARE(model->chanRowHeight(1), expected);
}

void TestUndoCommands::heightRunOnOneChannelUndoesInOneStep()
{
    const auto model = makeModel();
    const int start = model->chanRowHeight(0);
    QUndoStack stack;
    ViewCommands commands(&stack);
    commands.setOscillogramViewModel(model);

    commands.slotChannelHeight(0, 5);
    commands.slotChannelHeight(0, 7);
    commands.slotChannelHeight(0, 9);
    QCOMPARE(model->chanRowHeight(0), start + 21);
    QCOMPARE(stack.count(), 1);

    stack.undo();
    QCOMPARE(model->chanRowHeight(0), start);
    QVERIFY(!stack.canUndo());
    stack.redo();
    QCOMPARE(model->chanRowHeight(0), start + 21);
}

void TestUndoCommands::heightOnTwoChannelsAlternatingUndoesInFourSteps()
{
    const auto model = makeModel();
    const int start = model->chanRowHeight(0);
    QCOMPARE(model->chanRowHeight(1), start);
    QUndoStack stack;
    ViewCommands commands(&stack);
    commands.setOscillogramViewModel(model);

    commands.slotChannelHeight(0, 5);
    commands.slotChannelHeight(1, 5);
    commands.slotChannelHeight(0, 5);
    commands.slotChannelHeight(1, 5);
    QCOMPARE(stack.count(), 4);

    const QList<QPair<int, int>> afterEachUndo { { start + 10, start + 5 }, { start + 5, start + 5 },
        { start + 5, start }, { start, start } };
    for (const auto& heights : afterEachUndo) {
        stack.undo();
        QCOMPARE(model->chanRowHeight(0), heights.first);
        QCOMPARE(model->chanRowHeight(1), heights.second);
    }
    QVERIFY(!stack.canUndo());
}

void TestUndoCommands::magnitudeTwiceThenUndoOnce()
{
    const auto model = makeModel();
    QCOMPARE(model->chanMag(0), 1.0);
    QUndoStack stack;
    ViewCommands commands(&stack);
    commands.setOscillogramViewModel(model);
    QSignalSpy spy(model.data(), &OscillogramViewModel::chanMagChanged);

    commands.slotIncMag(0);
    commands.slotIncMag(0);
    QCOMPARE(stack.count(), 2);
    QCOMPARE(model->chanMag(0), fourThirds * fourThirds);

    stack.undo();
    QCOMPARE(model->chanMag(0), fourThirds);
    QCOMPARE(spy.count(), 3);
    QCOMPARE(spy.last().at(0).toInt(), 0);
    QCOMPARE(spy.last().at(1).toDouble(), fourThirds);

    stack.redo();
    QCOMPARE(model->chanMag(0), fourThirds * fourThirds);
}

void TestUndoCommands::decreaseMagnitude()
{
    const auto model = makeModel();
    QUndoStack stack;
    ViewCommands commands(&stack);
    commands.setOscillogramViewModel(model);

    commands.slotDecMag(1);
    QCOMPARE(model->chanMag(1), 0.75);
    QCOMPARE(model->chanMag(0), 1.0);
    stack.undo();
    QCOMPARE(model->chanMag(1), 1.0);
}

void TestUndoCommands::fitMagnitudeAndBack()
{
    const auto model = makeModel();
    model->setChanMag(1, 2.5);
    QUndoStack stack;
    ViewCommands commands(&stack);
    commands.setOscillogramViewModel(model);
    QSignalSpy spy(model.data(), &OscillogramViewModel::chanMagChanged);

    commands.slotFitMag(1);
    QCOMPARE(model->chanMag(1), 1.0);
    QCOMPARE(spy.count(), 1);
    stack.undo();
    QCOMPARE(model->chanMag(1), 2.5);
    QCOMPARE(spy.count(), 2);
    stack.redo();
    QCOMPARE(model->chanMag(1), 1.0);
}

void TestUndoCommands::resetChannelAndBack()
{
    const auto model = makeModel();
    model->setChanMag(0, 3.0);
    model->setChanRowHeight(0, 250);
    QUndoStack stack;
    ViewCommands commands(&stack);
    commands.setOscillogramViewModel(model);
    QSignalSpy heights(model.data(), &OscillogramViewModel::channelRowHeightChanged);
    QSignalSpy mags(model.data(), &OscillogramViewModel::chanMagChanged);

    commands.slotReset(0);
    QCOMPARE(model->chanMag(0), 1.0);
    QCOMPARE(model->chanRowHeight(0), OscillogramViewModel::defaultRowHeight());
    QCOMPARE(heights.count(), 1);
    QCOMPARE(mags.count(), 1);

    stack.undo();
    QCOMPARE(model->chanMag(0), 3.0);
    QCOMPARE(model->chanRowHeight(0), 250);
    QCOMPARE(heights.count(), 2);
    QCOMPARE(mags.count(), 2);
}

void TestUndoCommands::hideAndShowAgain()
{
    const auto model = makeModel();
    QUndoStack stack;
    ViewCommands commands(&stack);
    commands.setOscillogramViewModel(model);
    QSignalSpy spy(model.data(), &OscillogramViewModel::channelRowsFilterChanged);

    commands.slotHide(2);
    QVERIFY(!model->isChannelVisible(2));
    QVERIFY(model->isChannelVisible(1));
    QCOMPARE(spy.count(), 1);

    stack.undo();
    QVERIFY(model->isChannelVisible(2));
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.last().at(0).value<QVector<bool>>(), QVector<bool>({ true, true, true }));

    stack.redo();
    QVERIFY(!model->isChannelVisible(2));
}

void TestUndoCommands::appendMarkerKeepsTheMomentOfTheClick()
{
    const auto model = makeModel();
    model->setCurrentSample(350);
    QUndoStack stack;
    QSignalSpy spy(model.data(), &OscillogramViewModel::repaintWave);

    auto* command = new AppendMarkerCommand(model);
    // The item is made with the command, before the current sample moves on.
    model->setCurrentSample(600);
    stack.push(command);
    QCOMPARE(model->markers()->items().size(), 1);
    QCOMPARE(model->markers()->items().first().sampleNumber, 350);
    // 250 samples after the trigger at 1000 Hz, two decimals.
    QCOMPARE(model->markers()->items().first().time, QStringLiteral("250.00"));
    QCOMPARE(spy.count(), 1);

    stack.undo();
    QVERIFY(model->markers()->items().isEmpty());
    QCOMPARE(spy.count(), 2);

    stack.redo();
    QVERIFY(model->markers()->contains(350));
}

void TestUndoCommands::appendMarkerRefusedWhereOneStands()
{
    const auto model = makeModel();
    QUndoStack stack;
    ViewCommands commands(&stack);
    commands.setOscillogramViewModel(model);

    model->setCurrentSample(120);
    commands.slotAppendMarker();
    commands.slotAppendMarker();
    QCOMPARE(stack.count(), 1);
    QCOMPARE(model->markers()->items().size(), 1);

    model->setCurrentSample(80);
    commands.slotAppendMarker();
    QCOMPARE(stack.count(), 2);
    QCOMPARE(model->markers()->items().size(), 2);
    QCOMPARE(model->markers()->items().first().sampleNumber, 80);
}

void TestUndoCommands::clearMarkersAndBack()
{
    const auto model = makeModel();
    model->appendMarker(model->makeMarkerItem(200));
    model->appendMarker(model->makeMarkerItem(500));
    const QList<Markers::Item> before = model->markers()->items();
    QUndoStack stack;
    ViewCommands commands(&stack);
    commands.setOscillogramViewModel(model);
    QSignalSpy spy(model.data(), &OscillogramViewModel::repaintWave);

    commands.slotClearMarkers();
    QVERIFY(model->markers()->items().isEmpty());
    QCOMPARE(spy.count(), 1);

    stack.undo();
    QCOMPARE(model->markers()->items(), before);
    QCOMPARE(spy.count(), 2);

    stack.redo();
    QVERIFY(model->markers()->items().isEmpty());
}

void TestUndoCommands::lrSplitterRunUndoesToTheEndOfTheFirstMove()
{
    QWidget window;
    QSplitter* splitter = makeSplitter(&window, Qt::Horizontal);
    splitter->resize(400, 100);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QUndoStack stack;
    ViewCommands commands(&stack);

    // Each command is made after its move, as in the slot of splitterMoved.
    splitter->setSizes({ 100, 300 });
    const QList<int> firstMove = splitter->sizes();
    commands.slotLRSplitterMoved(splitter);
    splitter->setSizes({ 150, 250 });
    commands.slotLRSplitterMoved(splitter);
    splitter->setSizes({ 220, 180 });
    const QList<int> lastMove = splitter->sizes();
    commands.slotLRSplitterMoved(splitter);
    QCOMPARE(stack.count(), 1);
    QCOMPARE(splitter->sizes(), lastMove);

    stack.undo();
    QCOMPARE(splitter->sizes(), firstMove);
    stack.redo();
    QCOMPARE(splitter->sizes(), lastMove);
}

void TestUndoCommands::lrSplittersOfTwoViewsDoNotMerge()
{
    QSplitter a;
    QSplitter b;
    QUndoStack stack;
    stack.push(new LRSplitterCommand(&a));
    stack.push(new LRSplitterCommand(&b));
    stack.push(new LRSplitterCommand(&b));
    QCOMPARE(stack.count(), 2);
}

void TestUndoCommands::adSplitterSetsBothAndMerges()
{
    QWidget window;
    QSplitter* list = makeSplitter(&window, Qt::Vertical);
    QSplitter* image = makeSplitter(&window, Qt::Vertical);
    list->setGeometry(0, 0, 100, 300);
    image->setGeometry(100, 0, 100, 300);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    // Sizes that add up to the room the splitters have beside their handles.
    const QList<int> before = list->sizes();
    const int room = before[0] + before[1];
    image->setSizes(before);
    const QList<int> firstMove { room - 100, 100 };
    const QList<int> secondMove { room - 60, 60 };
    QUndoStack stack;
    ViewCommands commands(&stack);

    commands.slotADSplitterMoved(list, image, firstMove);
    QCOMPARE(list->sizes(), firstMove);
    QCOMPARE(image->sizes(), firstMove);
    commands.slotADSplitterMoved(list, image, secondMove);
    QCOMPARE(stack.count(), 1);
    QCOMPARE(image->sizes(), secondMove);

    stack.undo();
    QCOMPARE(list->sizes(), before);
    QCOMPARE(image->sizes(), before);
    stack.redo();
    QCOMPARE(list->sizes(), secondMove);

    // Another pair of splitters starts a step of its own.
    commands.slotADSplitterMoved(image, list, firstMove);
    QCOMPARE(stack.count(), 2);
}

void TestUndoCommands::stackDropsTheOldestBeyondItsLimit()
{
    QCOMPARE(undoStackLimit, 500);
    const auto model = makeModel();
    QUndoStack stack;
    stack.setUndoLimit(undoStackLimit);
    ViewCommands commands(&stack);
    commands.setOscillogramViewModel(model);

    // Lowering and raising in turn: after the first command the amplitude is 0.75.
    for (int i = 0; i < 501; ++i)
        i % 2 == 0 ? commands.slotDecMag(0) : commands.slotIncMag(0);
    QCOMPARE(stack.count(), 500);
    while (stack.canUndo())
        stack.undo();
    // The first command was dropped, so its change stays.
    QCOMPARE(model->chanMag(0), 0.75);
}

void TestUndoCommands::missingChannelChangesNothing()
{
    const auto model = makeModel();
    QUndoStack stack;
    ViewCommands commands(&stack);
    commands.setOscillogramViewModel(model);
    QSignalSpy mags(model.data(), &OscillogramViewModel::chanMagChanged);
    QSignalSpy filter(model.data(), &OscillogramViewModel::channelRowsFilterChanged);

    commands.slotIncMag(9);
    commands.slotFitMag(-1);
    commands.slotHide(9);
    stack.undo();
    stack.undo();
    stack.undo();
    QCOMPARE(mags.count(), 0);
    QCOMPARE(filter.count(), 0);
    QCOMPARE(model->chanMag(9), 0.0);
}

void TestUndoCommands::commandsWithoutModelDoNothing()
{
    QUndoStack stack;
    ViewCommands commands(&stack);
    commands.slotIncMag(0);
    commands.slotChannelHeight(0, 3);
    commands.slotReset(0);
    commands.slotHide(0);
    commands.slotSetTriggerTime(5);
    commands.slotAppendMarker();
    commands.slotClearMarkers();
    QCOMPARE(stack.count(), 7);
    while (stack.canUndo())
        stack.undo();
    QCOMPARE(stack.index(), 0);
}

void TestUndoCommands::commandsActOnANewRecordByNumber()
{
    const auto model = makeModel();
    QUndoStack stack;
    ViewCommands commands(&stack);
    commands.setOscillogramViewModel(model);
    commands.slotIncMag(1);
    QCOMPARE(model->chanMag(1), fourThirds);

    // The stack outlives the record: its commands act on the same number of the next one.
    model->setOscillogram(PlotRecords::makeRecord(3, 0, 500, 10));
    QCOMPARE(model->chanMag(1), 1.0);
    stack.redo();
    stack.undo();
    QCOMPARE(model->chanMag(1), 1.0);
    stack.redo();
    QCOMPARE(model->chanMag(1), fourThirds);
}

QTEST_MAIN(TestUndoCommands)
#include "tst_undocommands.moc"
