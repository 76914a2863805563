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
    // Each test starts with a fresh record, stack and producer of commands.
    void init();
    void cleanup();

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

private:
    QSharedPointer<OscillogramViewModel> m_model;
    QScopedPointer<QUndoStack> m_stack;
    QScopedPointer<ViewCommands> m_commands;
};

void TestUndoCommands::init()
{
    m_model = makeModel();
    m_stack.reset(new QUndoStack);
    m_commands.reset(new ViewCommands(m_stack.data()));
    m_commands->setOscillogramViewModel(m_model);
}

void TestUndoCommands::cleanup()
{
    m_commands.reset();
    m_stack.reset();
    m_model.reset();
}

void TestUndoCommands::idsOfTheMergingCommands()
{
    QSplitter a;
    QSplitter b;
    QCOMPARE(SetChanHCommand(m_model, 0, 0, 1.0).id(), 0);
    QCOMPARE(LRSplitterCommand(&a).id(), 1);
    QCOMPARE(ADSplitterCommand(&a, &b, {}).id(), 2);
    QCOMPARE(ChangeTriggerCommand(m_model, 0).id(), -1);
    QCOMPARE(SetChanMagCommand(m_model, 0, 2.0).id(), -1);
    QCOMPARE(FitChanMagCommand(m_model, 0).id(), -1);
    QCOMPARE(ResetChanCommand(m_model, 0).id(), -1);
    QCOMPARE(HideChanCommand(m_model, 0).id(), -1);
    QCOMPARE(AppendMarkerCommand(m_model).id(), -1);
    QCOMPARE(ClearMarkersCommand(m_model).id(), -1);
}

void TestUndoCommands::triggerMovesAndComesBack()
{
    const auto record = m_model->oscillogram();
    const PreciseDateTime before = record->triggerTime();
    QSignalSpy spy(m_model.data(), &OscillogramViewModel::triggerTimeChanged);

    m_commands->slotSetTriggerTime(300);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(record->countOfPreFailureSamples(), 300);
    QCOMPARE(record->countOfPostFailureSamples(), 700);
    // 200 samples at 1000 Hz after the old trigger.
    QCOMPARE(before.uSecsTo(record->triggerTime()), 200000LL);

    m_stack->undo();
    QCOMPARE(spy.count(), 2);
    QCOMPARE(record->countOfPreFailureSamples(), 100);
    QCOMPARE(before.uSecsTo(record->triggerTime()), 0LL);

    m_stack->redo();
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
    m_model->setChanRowMinHeight(1, 10);
    m_model->setChanRowHeight(1, start);
    QSignalSpy spy(m_model.data(), &OscillogramViewModel::channelRowHeightChanged);

    m_stack->push(new SetChanHCommand(m_model, 1, delta, factor));
    QCOMPARE(m_model->chanRowHeight(1), expected);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.last().at(0).toInt(), 1);
    QCOMPARE(spy.last().at(1).toInt(), expected);

    m_stack->undo();
    QCOMPARE(m_model->chanRowHeight(1), start);
    QCOMPARE(spy.last().at(1).toInt(), start);

    m_stack->redo();
    QCOMPARE(m_model->chanRowHeight(1), expected);
}

void TestUndoCommands::heightRunOnOneChannelUndoesInOneStep()
{
    const int start = m_model->chanRowHeight(0);

    m_commands->slotChannelHeight(0, 5);
    m_commands->slotChannelHeight(0, 7);
    m_commands->slotChannelHeight(0, 9);
    QCOMPARE(m_model->chanRowHeight(0), start + 21);
    QCOMPARE(m_stack->count(), 1);

    m_stack->undo();
    QCOMPARE(m_model->chanRowHeight(0), start);
    QVERIFY(!m_stack->canUndo());
    m_stack->redo();
    QCOMPARE(m_model->chanRowHeight(0), start + 21);
}

void TestUndoCommands::heightOnTwoChannelsAlternatingUndoesInFourSteps()
{
    const int start = m_model->chanRowHeight(0);
    QCOMPARE(m_model->chanRowHeight(1), start);

    m_commands->slotChannelHeight(0, 5);
    m_commands->slotChannelHeight(1, 5);
    m_commands->slotChannelHeight(0, 5);
    m_commands->slotChannelHeight(1, 5);
    QCOMPARE(m_stack->count(), 4);

    const QList<QPair<int, int>> afterEachUndo { { start + 10, start + 5 }, { start + 5, start + 5 },
        { start + 5, start }, { start, start } };
    for (const auto& heights : afterEachUndo) {
        m_stack->undo();
        QCOMPARE(m_model->chanRowHeight(0), heights.first);
        QCOMPARE(m_model->chanRowHeight(1), heights.second);
    }
    QVERIFY(!m_stack->canUndo());
}

void TestUndoCommands::magnitudeTwiceThenUndoOnce()
{
    QCOMPARE(m_model->chanMag(0), 1.0);
    QSignalSpy spy(m_model.data(), &OscillogramViewModel::chanMagChanged);

    m_commands->slotIncMag(0);
    m_commands->slotIncMag(0);
    QCOMPARE(m_stack->count(), 2);
    QCOMPARE(m_model->chanMag(0), fourThirds * fourThirds);

    m_stack->undo();
    QCOMPARE(m_model->chanMag(0), fourThirds);
    QCOMPARE(spy.count(), 3);
    QCOMPARE(spy.last().at(0).toInt(), 0);
    QCOMPARE(spy.last().at(1).toDouble(), fourThirds);

    m_stack->redo();
    QCOMPARE(m_model->chanMag(0), fourThirds * fourThirds);
}

void TestUndoCommands::decreaseMagnitude()
{

    m_commands->slotDecMag(1);
    QCOMPARE(m_model->chanMag(1), 0.75);
    QCOMPARE(m_model->chanMag(0), 1.0);
    m_stack->undo();
    QCOMPARE(m_model->chanMag(1), 1.0);
}

void TestUndoCommands::fitMagnitudeAndBack()
{
    m_model->setChanMag(1, 2.5);
    QSignalSpy spy(m_model.data(), &OscillogramViewModel::chanMagChanged);

    m_commands->slotFitMag(1);
    QCOMPARE(m_model->chanMag(1), 1.0);
    QCOMPARE(spy.count(), 1);
    m_stack->undo();
    QCOMPARE(m_model->chanMag(1), 2.5);
    QCOMPARE(spy.count(), 2);
    m_stack->redo();
    QCOMPARE(m_model->chanMag(1), 1.0);
}

void TestUndoCommands::resetChannelAndBack()
{
    m_model->setChanMag(0, 3.0);
    m_model->setChanRowHeight(0, 250);
    QSignalSpy heights(m_model.data(), &OscillogramViewModel::channelRowHeightChanged);
    QSignalSpy mags(m_model.data(), &OscillogramViewModel::chanMagChanged);

    m_commands->slotReset(0);
    QCOMPARE(m_model->chanMag(0), 1.0);
    QCOMPARE(m_model->chanRowHeight(0), OscillogramViewModel::defaultRowHeight());
    QCOMPARE(heights.count(), 1);
    QCOMPARE(mags.count(), 1);

    m_stack->undo();
    QCOMPARE(m_model->chanMag(0), 3.0);
    QCOMPARE(m_model->chanRowHeight(0), 250);
    QCOMPARE(heights.count(), 2);
    QCOMPARE(mags.count(), 2);
}

void TestUndoCommands::hideAndShowAgain()
{
    QSignalSpy spy(m_model.data(), &OscillogramViewModel::channelRowsFilterChanged);

    m_commands->slotHide(2);
    QVERIFY(!m_model->isChannelVisible(2));
    QVERIFY(m_model->isChannelVisible(1));
    QCOMPARE(spy.count(), 1);

    m_stack->undo();
    QVERIFY(m_model->isChannelVisible(2));
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.last().at(0).value<QVector<bool>>(), QVector<bool>({ true, true, true }));

    m_stack->redo();
    QVERIFY(!m_model->isChannelVisible(2));
}

void TestUndoCommands::appendMarkerKeepsTheMomentOfTheClick()
{
    m_model->setCurrentSample(350);
    QSignalSpy spy(m_model.data(), &OscillogramViewModel::repaintWave);

    auto* command = new AppendMarkerCommand(m_model);
    // The item is made with the command, before the current sample moves on.
    m_model->setCurrentSample(600);
    m_stack->push(command);
    QCOMPARE(m_model->markers()->items().size(), 1);
    QCOMPARE(m_model->markers()->items().first().sampleNumber, 350);
    // 250 samples after the trigger at 1000 Hz, two decimals.
    QCOMPARE(m_model->markers()->items().first().time, QStringLiteral("250.00"));
    QCOMPARE(spy.count(), 1);

    m_stack->undo();
    QVERIFY(m_model->markers()->items().isEmpty());
    QCOMPARE(spy.count(), 2);

    m_stack->redo();
    QVERIFY(m_model->markers()->contains(350));
}

void TestUndoCommands::appendMarkerRefusedWhereOneStands()
{

    m_model->setCurrentSample(120);
    m_commands->slotAppendMarker();
    m_commands->slotAppendMarker();
    QCOMPARE(m_stack->count(), 1);
    QCOMPARE(m_model->markers()->items().size(), 1);

    m_model->setCurrentSample(80);
    m_commands->slotAppendMarker();
    QCOMPARE(m_stack->count(), 2);
    QCOMPARE(m_model->markers()->items().size(), 2);
    QCOMPARE(m_model->markers()->items().first().sampleNumber, 80);
}

void TestUndoCommands::clearMarkersAndBack()
{
    m_model->appendMarker(m_model->makeMarkerItem(200));
    m_model->appendMarker(m_model->makeMarkerItem(500));
    const QList<Markers::Item> before = m_model->markers()->items();
    QSignalSpy spy(m_model.data(), &OscillogramViewModel::repaintWave);

    m_commands->slotClearMarkers();
    QVERIFY(m_model->markers()->items().isEmpty());
    QCOMPARE(spy.count(), 1);

    m_stack->undo();
    QCOMPARE(m_model->markers()->items(), before);
    QCOMPARE(spy.count(), 2);

    m_stack->redo();
    QVERIFY(m_model->markers()->items().isEmpty());
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
    m_stack->setUndoLimit(undoStackLimit);

    // Lowering and raising in turn: after the first command the amplitude is 0.75.
    for (int i = 0; i < 501; ++i)
        i % 2 == 0 ? m_commands->slotDecMag(0) : m_commands->slotIncMag(0);
    QCOMPARE(m_stack->count(), 500);
    while (m_stack->canUndo())
        m_stack->undo();
    // The first command was dropped, so its change stays.
    QCOMPARE(m_model->chanMag(0), 0.75);
}

void TestUndoCommands::missingChannelChangesNothing()
{
    QSignalSpy mags(m_model.data(), &OscillogramViewModel::chanMagChanged);
    QSignalSpy filter(m_model.data(), &OscillogramViewModel::channelRowsFilterChanged);

    m_commands->slotIncMag(9);
    m_commands->slotFitMag(-1);
    m_commands->slotHide(9);
    m_stack->undo();
    m_stack->undo();
    m_stack->undo();
    QCOMPARE(mags.count(), 0);
    QCOMPARE(filter.count(), 0);
    QCOMPARE(m_model->chanMag(9), 0.0);
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
    m_commands->slotIncMag(1);
    QCOMPARE(m_model->chanMag(1), fourThirds);

    // The stack outlives the record: its commands act on the same number of the next one.
    m_model->setOscillogram(PlotRecords::makeRecord(3, 0, 500, 10));
    QCOMPARE(m_model->chanMag(1), 1.0);
    m_stack->redo();
    m_stack->undo();
    QCOMPARE(m_model->chanMag(1), 1.0);
    m_stack->redo();
    QCOMPARE(m_model->chanMag(1), fourThirds);
}

QTEST_MAIN(TestUndoCommands)
#include "tst_undocommands.moc"
