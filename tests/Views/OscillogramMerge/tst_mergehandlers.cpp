#include "MergeRecords.h"
#include "RecordCompare.h"
#include "SaverFixture.h"

#include "Model/ClcOscillogram.h"
#include "Savers/ComtradeSaver.h"
#include "Views/OscillogramMerge/HorisontalMergeHandler.h"
#include "Views/OscillogramMerge/OscillogramMergeTask.h"
#include "Views/OscillogramMerge/VerticalMergeHandler.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace MergeRecords;

namespace {
const QString notOnScale = QStringLiteral(" (Не соответствует временной шкале!)");

struct Outcome
{
    QSharedPointer<SimpleOscillogram> merged;
    QSharedPointer<Exception> failure;
    QList<QPair<QString, double>> progress;
};

// Every channel of each record, analogue then digital, records in the order given.
void addAllChannels(OscillogramMergeTask& task, const QList<QSharedPointer<SimpleOscillogram>>& records)
{
    for (const auto& record : records) {
        task.addOscillogram(record);
        for (int c = 0; c < record->countOfAnalogChannels(); ++c)
            task.addMergeItem(QSharedPointer<MergeItem>::create(record, record->analogChannel(c), c));
        for (int c = 0; c < record->countOfDigitalChannels(); ++c)
            task.addMergeItem(QSharedPointer<MergeItem>::create(record, record->digitalChannel(c), c));
    }
}

// Runs the task on this thread, as the pool would.
Outcome run(OscillogramMergeTask& task)
{
    Outcome outcome;
    QObject::connect(&task, &TaskBase::progressChanged, [&outcome](const QString& stage, double fraction) {
        outcome.progress.append({ stage, fraction });
    });
    QObject::connect(
        &task, &TaskBase::error, [&outcome](QSharedPointer<Exception> e) { outcome.failure = e; });
    task.run();
    if (!outcome.failure)
        outcome.merged = task.result().dynamicCast<SimpleOscillogram>();
    return outcome;
}

// The records given in the order of `records`, their channels in the order of `itemRecords` (by
// default the same).
Outcome merge(int type, int mode, const QList<QSharedPointer<SimpleOscillogram>>& records,
    QList<QSharedPointer<SimpleOscillogram>> itemRecords = {})
{
    OscillogramMergeTask task;
    task.setOscillogramName(QStringLiteral("Объединенная"));
    task.setMergeType(type);
    task.setVerticalMergeMode(mode);
    if (itemRecords.isEmpty())
        itemRecords = records;
    OscillogramMergeTask items;
    addAllChannels(items, itemRecords);
    for (const auto& record : records)
        task.addOscillogram(record);
    for (const auto& item : items.mergeItems())
        task.addMergeItem(item);
    return run(task);
}

// One source of a merge by channels as the test expects it: the record's description and its
// shift, worked out in the test from the alignment's arithmetic.
struct Placed
{
    Description description;
    int shift;
};

// Every target channel, row by row, against the source's sample (shift + r) × rate ÷ target rate,
// truncated and read by the rule of merged records (before the start the last, behind the end the
// first sample).
void verifyJoinedRows(const Oscillogram& merged, const QList<Placed>& sources, double targetRate, int rows)
{
    QCOMPARE(merged.countOfSamples(), rows);
    int analog = 0;
    int digital = 0;
    for (const Placed& source : sources) {
        const Description& d = source.description;
        for (int c = 0; c < d.types.size(); ++c, ++analog) {
            for (int r = 0; r < rows; ++r) {
                const int sample = wrapped(int((source.shift + r) * d.rate / targetRate), d.samples);
                if (rawOf(merged, analog, r) != rawValue(d.id, c, sample))
                    QFAIL(qPrintable(QStringLiteral("channel %1 row %2: %3 instead of %4")
                                         .arg(analog)
                                         .arg(r)
                                         .arg(rawOf(merged, analog, r))
                                         .arg(rawValue(d.id, c, sample))));
            }
        }
        for (int c = 0; c < d.digitals; ++c, ++digital) {
            for (int r = 0; r < rows; ++r) {
                const int sample = wrapped(int((source.shift + r) * d.rate / targetRate), d.samples);
                QCOMPARE(bitOf(merged, digital, r), bitValue(d.id, c, sample));
            }
        }
    }
    QCOMPARE(merged.countOfAnalogChannels(), analog);
    QCOMPARE(merged.countOfDigitalChannels(), digital);
}

QString cmr(const PreciseDateTime& time)
{
    return QString::fromStdString(time.toCMRString());
}

void compareFailures(const QList<QSharedPointer<Failure>>& actual, const QList<QPair<QString, int>>& expected)
{
    QCOMPARE(actual.size(), expected.size());
    for (int f = 0; f < expected.size(); ++f) {
        QCOMPARE(actual[f]->reason(), expected[f].first);
        QCOMPARE(actual[f]->blockNum(), expected[f].second);
    }
}
} // namespace

class TestMergeHandlers : public QObject
{
    Q_OBJECT
private slots:
    void firstReportPlacesRecordsByTheirBegin();
    void triggerTimeMakesTriggersCoincide();
    void astronomicalTimeKeepsTrueTimes();
    void firstFailureMakesFailuresCoincide();
    void higherRateIsThinnedToTheLowest();
    void unknownModeBehavesAsFirstReport();
    void unknownMergeTypeHasNoHandler();
    void gluingWithAndWithoutGaps();
    void gluingReadsChannelsByNumber();
    void gluingTakesFailuresAtTheirOffsets();
    void gluingAFasterRecordCopiesItsSampleCount();
    void recordOfAnotherKindIsRefused();
    void stagesAreReportedInOrder();
    void cancelAtEachStage_data();
    void cancelAtEachStage();
    void mergedRecordSavedAndOpenedEqualsItself();
    void setupGluingChannelsTakesTheEarliestRecord();
};

void TestMergeHandlers::firstReportPlacesRecordsByTheirBegin()
{
    // B begins 0.1 s after A and overlaps it. COMTRADE records take their counts from their times:
    // after the trigger is set to the earliest begin, A has 0 samples before it and B −200 (0.1 s
    // at 2000 Hz). At the target rate of 1000 Hz: preCount = max(0, −100) = 0, postCount =
    // max(500, (800 + 200) / 2) = 500, so 500 rows; shifts 0 and −100.
    Description a;
    a.id = 1;
    a.rate = 1000.0;
    a.samples = 500;
    a.types = { DT::Int16, DT::Float };
    a.digitals = 1;
    a.pre = 200;
    a.comtrade = true;
    a.prefix = QStringLiteral("A");
    a.failures = { { QStringLiteral("пуск A"), 250 }, { QStringLiteral("далеко"), 600 },
        { QStringLiteral("после"), 300 } };
    a.lines = QStringList { QStringLiteral("Л1") };
    Description b;
    b.id = 2;
    b.rate = 2000.0;
    b.samples = 800;
    b.types = { DT::Double, DT::Int32, DT::Int16 };
    b.digitals = 2;
    b.begin = at(100000);
    b.pre = 300;
    b.comtrade = true;
    b.prefix = QStringLiteral("B");
    b.failures = { { QStringLiteral("пуск B"), 300 } };
    b.lines = QStringList { QStringLiteral("Л1"), QStringLiteral("Л2") };
    // Given later one first: the task sorts by begin time.
    const auto recordA = make(a);
    const auto recordB = make(b);
    const Outcome outcome = merge(0, 0, { recordB, recordA }, { recordA, recordB });
    QVERIFY(!outcome.failure);
    const auto merged = outcome.merged;
    QCOMPARE(merged->sampleRate(), 1000.0);
    verifyJoinedRows(*merged, { { a, 0 }, { b, -100 } }, 1000.0, 500);
    QCOMPARE(cmr(merged->triggerTime()), cmr(t0()));
    QCOMPARE(merged->countOfPreFailureSamples(), 0);
    QCOMPARE(merged->countOfPostFailureSamples(), 500);
    QCOMPARE(merged->filename(), QStringLiteral("Объединенная"));
    QCOMPARE(merged->stationName(), QStringLiteral("ПС A"));
    QCOMPARE(merged->deviceName(), QStringLiteral("Регистратор A"));
    QCOMPARE(merged->getOscNameFromHeader(), QStringLiteral("A"));

    // Parts: each source's own begin, and its shift as first sample.
    const QList<MergedWave> parts = merged->mergedWaves();
    QCOMPARE(parts.size(), 2);
    QCOMPARE(cmr(parts[0].beginTime), cmr(t0()));
    QCOMPARE(parts[0].sampleOffset, 0);
    QCOMPARE(cmr(parts[1].beginTime), cmr(at(100000)));
    QCOMPARE(parts[1].sampleOffset, 100);
    QCOMPARE(parts[0].analogNumbers, (QVector<unsigned short> { 0, 1 }));
    QCOMPARE(parts[0].digitalNumbers, (QVector<unsigned short> { 0 }));
    QCOMPARE(parts[1].analogNumbers, (QVector<unsigned short> { 2, 3, 4 }));
    QCOMPARE(parts[1].digitalNumbers, (QVector<unsigned short> { 1, 2 }));

    // A: 250 × 1000 / 1000 + 0 = 250; 600 lies beyond the 500 rows and ends A's walk, so "после"
    // is not taken. B: 300 × 1000 / 2000 + 100 = 250 again, which gives no second entry.
    compareFailures(merged->failures(), { { QStringLiteral("пуск A"), 250 } });

    QCOMPARE(merged->lines().size(), 2);
    QCOMPARE(merged->lines()[0]->name(), QStringLiteral("Л1"));
    QCOMPARE(merged->lines()[1]->name(), QStringLiteral("Л2"));
    QCOMPARE(merged->rasObjects().size(), 1);
    QCOMPARE(merged->rasObjects()[0].devices.size(), 1);
    QCOMPARE(merged->rasObjects()[0].devices[0].recordingDeviceId, QStringLiteral("Korvane"));
    QCOMPARE(merged->rasObjects()[0].devices[0].lines.size(), 2);

    // Channels keep names and types; columns count up per storage type.
    const QStringList names { "A1", "A2", "B1", "B2", "B3" };
    const QList<DT::DataType> types { DT::Int16, DT::Float, DT::Double, DT::Int32, DT::Int16 };
    const QList<int> columns { 0, 0, 0, 0, 1 };
    for (int c = 0; c < names.size(); ++c) {
        QCOMPARE(merged->analogChannel(c)->name(), names[c]);
        QCOMPARE(merged->analogChannel(c)->dataType(), types[c]);
        QCOMPARE(merged->analogChannel(c)->dataOffset(), columns[c]);
        QCOMPARE(merged->analogChannel(c)->data(), merged->data());
    }
    QCOMPARE(merged->analogChannel(1)->multiplier(), 1.5);
    QCOMPARE(merged->digitalChannel(2)->name(), QStringLiteral("BD2"));
    QCOMPARE(merged->digitalChannel(2)->dataOffset(), 2);
}

void TestMergeHandlers::triggerTimeMakesTriggersCoincide()
{
    // A: 1000 Hz, 300 samples, 100 before its trigger at t0. B: 4000 Hz, 1200 samples, 800 before
    // its trigger five seconds later, 200 at the target rate of 1000 Hz. preCount = 200, postCount
    // = max(200, 400 / 4) = 200: 400 rows. Shifts: A 100 − 200 = −100, B 0. B reads every fourth
    // sample and ends at row 300, after which it repeats its first sample.
    Description a;
    a.id = 3;
    a.samples = 300;
    a.types = { DT::Int16 };
    a.digitals = 1;
    a.begin = at(-100000);
    a.pre = 100;
    a.prefix = QStringLiteral("A");
    Description b;
    b.id = 4;
    b.rate = 4000.0;
    b.samples = 1200;
    b.types = { DT::Float, DT::Int16 };
    b.begin = at(5000000 - 200000);
    b.pre = 800;
    b.prefix = QStringLiteral("B");
    const Outcome outcome = merge(0, 1, { make(a), make(b) });
    QVERIFY(!outcome.failure);
    const auto merged = outcome.merged;
    verifyJoinedRows(*merged, { { a, -100 }, { b, 0 } }, 1000.0, 400);
    // Behind its end B repeats its first value.
    QCOMPARE(rawOf(*merged, 1, 399), rawValue(4, 0, 0));
    QCOMPARE(merged->countOfPreFailureSamples(), 200);
    QCOMPARE(cmr(merged->triggerTime()), cmr(t0()));
    // Parts: the target's begin plus (|shift| − failureSample) / rate: A −0.1 s, B −0.2 s.
    const QList<MergedWave> parts = merged->mergedWaves();
    QCOMPARE(parts.size(), 2);
    QCOMPARE(cmr(parts[0].beginTime), cmr(at(-100000)));
    QCOMPARE(parts[0].sampleOffset, 100);
    QCOMPARE(cmr(parts[1].beginTime), cmr(at(-200000)));
    QCOMPARE(parts[1].sampleOffset, 0);
    // Only the sources after the first are flagged as fitting, so the first one's channels carry
    // the note. Kept as the merge has always done it.
    QCOMPARE(merged->analogChannel(0)->name(), QStringLiteral("A1") + notOnScale);
    QCOMPARE(merged->digitalChannel(0)->name(), QStringLiteral("AD1") + notOnScale);
    QCOMPARE(merged->analogChannel(1)->name(), QStringLiteral("B1"));
}

void TestMergeHandlers::astronomicalTimeKeepsTrueTimes()
{
    // A: 1000 Hz from t0, 1000 samples. B: 500 Hz from t0 + 0.2 s, 400 samples. The target begins
    // at B's begin; both triggers move there: A then has 200 samples before it, B none. At 500 Hz:
    // scaledPre 100 and 0, preCount 0; scaledPost 400 and 400, totalCount 400. Shifts 100 and 0.
    Description a;
    a.id = 5;
    a.samples = 1000;
    a.types = { DT::Int32 };
    a.pre = 300;
    a.comtrade = true;
    a.prefix = QStringLiteral("A");
    a.failures = { { QStringLiteral("a"), 500 } };
    Description b;
    b.id = 6;
    b.rate = 500.0;
    b.samples = 400;
    b.types = { DT::Double };
    b.digitals = 1;
    b.begin = at(200000);
    b.pre = 150;
    b.comtrade = true;
    b.prefix = QStringLiteral("B");
    const auto recordA = make(a);
    const auto recordB = make(b);
    const Outcome outcome = merge(0, 2, { recordA, recordB });
    QVERIFY(!outcome.failure);
    const auto merged = outcome.merged;
    verifyJoinedRows(*merged, { { a, 100 }, { b, 0 } }, 500.0, 400);
    // The sources themselves now show the target's begin as their trigger.
    QCOMPARE(cmr(recordA->triggerTime()), cmr(at(200000)));
    QCOMPARE(cmr(recordB->triggerTime()), cmr(at(200000)));
    QCOMPARE(recordA->countOfPreFailureSamples(), 200);
    const QList<MergedWave> parts = merged->mergedWaves();
    QCOMPARE(parts.size(), 2);
    for (const MergedWave& part : parts) {
        QCOMPARE(cmr(part.beginTime), cmr(at(200000)));
        QCOMPARE(part.sampleOffset, 0);
    }
    // (500 + 0) × 500 / 1000 + 0 = 250.
    compareFailures(merged->failures(), { { QStringLiteral("a"), 250 } });
    QCOMPARE(merged->analogChannel(0)->name(), QStringLiteral("A1"));
    QCOMPARE(merged->analogChannel(1)->name(), QStringLiteral("B1"));
}

void TestMergeHandlers::firstFailureMakesFailuresCoincide()
{
    // A: 600 samples from t0, first failure at 250. B: 500 samples from t0 + 1 s, first failure
    // at 100. The failures become the triggers: pre 250 and 100, post 350 and 400. preCount =
    // min = 100, postCount = min = 350, 450 rows; failureSample 100; shifts 150 and 0.
    Description a;
    a.id = 7;
    a.samples = 600;
    a.types = { DT::Int16, DT::Int16 };
    a.pre = 100;
    a.comtrade = true;
    a.prefix = QStringLiteral("A");
    a.failures = { { QStringLiteral("КЗ"), 250 } };
    Description b;
    b.id = 8;
    b.samples = 500;
    b.types = { DT::Float };
    b.begin = at(1000000);
    b.comtrade = true;
    b.prefix = QStringLiteral("B");
    b.failures = { { QStringLiteral("КЗ B"), 100 } };
    const Outcome outcome = merge(0, 3, { make(a), make(b) });
    QVERIFY(!outcome.failure);
    const auto merged = outcome.merged;
    verifyJoinedRows(*merged, { { a, 150 }, { b, 0 } }, 1000.0, 450);
    QCOMPARE(merged->countOfPreFailureSamples(), 100);
    const QList<MergedWave> parts = merged->mergedWaves();
    QCOMPARE(parts.size(), 2);
    // The target's begin (A's, t0) less failureSample / rate, 0.1 s.
    QCOMPARE(cmr(parts[0].beginTime), cmr(at(-100000)));
    QCOMPARE(parts[0].sampleOffset, 0);
    QCOMPARE(parts[0].handlerValue, -150);
    QCOMPARE(parts[1].handlerValue, 0);
    // A: (250 − 150) × 1 + 0 = 100; B: (100 + 0) = 100, the same sample: one entry.
    compareFailures(merged->failures(), { { QStringLiteral("КЗ"), 100 } });
    QCOMPARE(merged->analogChannel(0)->name(), QStringLiteral("A1"));
    QCOMPARE(merged->analogChannel(2)->name(), QStringLiteral("B1") + notOnScale);
}

void TestMergeHandlers::higherRateIsThinnedToTheLowest()
{
    // 1000 and 4000 samples a second, triggers aligned, no shift: row r of the second source is
    // its sample 4r.
    Description a;
    a.id = 9;
    a.samples = 300;
    a.pre = 100;
    a.prefix = QStringLiteral("A");
    Description b;
    b.id = 10;
    b.rate = 4000.0;
    b.samples = 1200;
    b.pre = 400;
    b.prefix = QStringLiteral("B");
    const Outcome outcome = merge(0, 1, { make(a), make(b) });
    QVERIFY(!outcome.failure);
    QCOMPARE(outcome.merged->sampleRate(), 1000.0);
    QCOMPARE(outcome.merged->countOfSamples(), 300);
    for (int r = 0; r < 300; ++r)
        QCOMPARE(rawOf(*outcome.merged, 1, r), rawValue(10, 0, 4 * r));
}

void TestMergeHandlers::unknownModeBehavesAsFirstReport()
{
    auto handler = OscillogramMergeTask::createHandler(0, 7);
    QVERIFY(dynamic_cast<FirstReportMergeHandler*>(handler.get()));
    QVERIFY(dynamic_cast<TriggerTimeMergeHandler*>(OscillogramMergeTask::createHandler(0, 1).get()));
    QVERIFY(dynamic_cast<AstronomicalTimeMergeHandler*>(OscillogramMergeTask::createHandler(0, 2).get()));
    QVERIFY(dynamic_cast<FirstFailureMergeHandler*>(OscillogramMergeTask::createHandler(0, 3).get()));
    QVERIFY(dynamic_cast<HorisontalMergeHandler*>(OscillogramMergeTask::createHandler(1, 2).get()));

    Description a;
    a.id = 11;
    a.samples = 200;
    a.comtrade = true;
    a.prefix = QStringLiteral("A");
    Description b = a;
    b.id = 12;
    b.begin = at(50000);
    b.prefix = QStringLiteral("B");
    const Outcome seven = merge(0, 7, { make(a), make(b) });
    QVERIFY(!seven.failure);
    // As mode 0: B 50 samples later, so 250 rows with shifts 0 and −50.
    verifyJoinedRows(*seven.merged, { { a, 0 }, { b, -50 } }, 1000.0, 250);
}

void TestMergeHandlers::unknownMergeTypeHasNoHandler()
{
    QVERIFY(!OscillogramMergeTask::createHandler(2, 0));
    QVERIFY(!OscillogramMergeTask::createHandler(-1, 0));
    Description a;
    const auto record = make(a);
    OscillogramMergeTask task;
    task.setMergeType(2);
    addAllChannels(task, { record });
    const Outcome outcome = run(task);
    QVERIFY(outcome.failure);
    QVERIFY(!task.handler());
    QVERIFY(!outcome.merged);
}

void TestMergeHandlers::gluingWithAndWithoutGaps()
{
    // A: 200 samples from t0, so it ends at t0 + 199 ms; B begins 50 ms after that: a gap of
    // 1000 / 1000000 × 50000 = 50 rows. C begins exactly at B's end, a gap of 0.
    Description a;
    a.id = 13;
    a.samples = 200;
    a.types = { DT::Int16, DT::Float };
    a.digitals = 1;
    a.prefix = QStringLiteral("A");
    a.lines = QStringList { QStringLiteral("ЛА") };
    Description b = a;
    b.id = 14;
    b.samples = 100;
    b.begin = at(249000);
    b.prefix = QStringLiteral("B");
    b.lines = QStringList { QStringLiteral("ЛБ") };
    Description c = a;
    c.id = 15;
    c.samples = 150;
    c.begin = at(348000);
    c.prefix = QStringLiteral("C");
    const auto recordA = make(a);
    RAS_OBJECT object;
    object.stationName = QStringLiteral("Станция A");
    recordA->setRasObjects({ object });
    OscillogramMergeTask task;
    task.setMergeType(1);
    task.setOscillogramName(QStringLiteral("Склеенная"));
    for (const auto& record : { make(c), recordA, make(b) })
        task.addOscillogram(record);
    task.setupGluingChannels();
    const Outcome outcome = run(task);
    QVERIFY(!outcome.failure);
    const auto merged = outcome.merged;
    const auto* handler = static_cast<HorisontalMergeHandler*>(task.handler());
    QCOMPARE(handler->gaps(), (QList<int> { 50, 0, 0 }));
    // Rows: A 200 + 50, B 100, C 150.
    QCOMPARE(merged->countOfSamples(), 500);
    for (int r = 0; r < 500; ++r) {
        for (int ch = 0; ch < 2; ++ch) {
            double expected;
            if (r < 200)
                expected = rawValue(13, ch, r);
            else if (r < 250)
                expected = rawValue(13, ch, 0); // the gap repeats A's first sample
            else if (r < 350)
                expected = rawValue(14, ch, r - 250);
            else
                expected = rawValue(15, ch, r - 350);
            QCOMPARE(rawOf(*merged, ch, r), expected);
        }
        // The discrete channel is there but never set.
        QCOMPARE(bitOf(*merged, 0, r), false);
    }
    QCOMPARE(merged->countOfDigitalChannels(), 1);
    QCOMPARE(merged->digitalChannel(0)->name(), QStringLiteral("AD1"));
    const QList<MergedWave> parts = merged->mergedWaves();
    QCOMPARE(parts.size(), 3);
    const QList<int> offsets { 0, 250, 350 };
    const QList<qint64> begins { 0, 249000, 348000 };
    for (int p = 0; p < 3; ++p) {
        QCOMPARE(parts[p].sampleOffset, offsets[p]);
        QCOMPARE(cmr(parts[p].beginTime), cmr(at(begins[p])));
        QCOMPARE(parts[p].analogNumbers, (QVector<unsigned short> { 0, 1 }));
        QCOMPARE(parts[p].digitalNumbers, (QVector<unsigned short> { 0 }));
    }
    // The times of the parts lead the record's time stamps.
    QCOMPARE(cmr(merged->dateTime(260)), cmr(at(259000)));
    QCOMPARE(merged->countOfPreFailureSamples(), 0);
    QCOMPARE(cmr(merged->triggerTime()), cmr(t0()));
    QCOMPARE(merged->lines().size(), 1);
    QCOMPARE(merged->lines()[0]->name(), QStringLiteral("ЛА"));
    QCOMPARE(merged->rasObjects().size(), 1);
    QCOMPARE(merged->rasObjects()[0].stationName, QStringLiteral("Станция A"));
}

void TestMergeHandlers::gluingReadsChannelsByNumber()
{
    // B has a third channel and its second is 16-bit where A's is float: channel 1 of B fills
    // the float column, channel 0 of B fills "A1" whatever B calls it, and B3 goes nowhere.
    Description a;
    a.id = 16;
    a.samples = 10;
    a.types = { DT::Int16, DT::Float };
    a.prefix = QStringLiteral("A");
    Description b;
    b.id = 17;
    b.samples = 10;
    b.types = { DT::Double, DT::Int16, DT::Int16 };
    b.begin = at(10000);
    b.prefix = QStringLiteral("B");
    OscillogramMergeTask task;
    task.setMergeType(1);
    task.addOscillogram(make(a));
    task.addOscillogram(make(b));
    task.setupGluingChannels();
    const Outcome outcome = run(task);
    QVERIFY(!outcome.failure);
    const auto merged = outcome.merged;
    QCOMPARE(merged->countOfAnalogChannels(), 2);
    // A ends at 9 ms and B begins at 10 ms: a gap of one row.
    QCOMPARE(merged->countOfSamples(), 21);
    for (int j = 0; j < 10; ++j) {
        QCOMPARE(rawOf(*merged, 0, 11 + j), rawValue(17, 0, j));
        QCOMPARE(rawOf(*merged, 1, 11 + j), rawValue(17, 1, j));
    }
    QCOMPARE(rawOf(*merged, 0, 10), rawValue(16, 0, 0));
}

void TestMergeHandlers::gluingTakesFailuresAtTheirOffsets()
{
    Description a;
    a.id = 18;
    a.samples = 100;
    a.prefix = QStringLiteral("A");
    a.failures = { { QStringLiteral("a"), 10 } };
    Description b = a;
    b.id = 19;
    b.begin = at(99000);
    b.prefix = QStringLiteral("B");
    b.failures = { { QStringLiteral("b"), 5 }, { QStringLiteral("b2"), 90 } };
    const Outcome outcome = merge(1, 0, { make(a), make(b) });
    QVERIFY(!outcome.failure);
    // B begins at A's last sample: no gap. Its failures at 100 + 5 and 100 + 90.
    QCOMPARE(outcome.merged->countOfSamples(), 200);
    compareFailures(outcome.merged->failures(),
        { { QStringLiteral("a"), 10 }, { QStringLiteral("b"), 105 }, { QStringLiteral("b2"), 190 } });
}

void TestMergeHandlers::gluingAFasterRecordCopiesItsSampleCount()
{
    // A: 2000 Hz, 100 samples, its last at t0 + 49.5 ms; B: 1000 Hz, 50 samples from t0 + 50 ms.
    // The gap is 2000 / 1000000 × 500 = 1 row. At the target rate of 1000 Hz A's row j reads its
    // sample 2j, so from row 50 on it reads behind its end and repeats its first sample; its rows
    // are still its 100 samples and the gap, as the gluing has always counted them. The estimate
    // for the reservation is 100 × 1000 / 2000 + 1 + 50 = 101 rows.
    Description a;
    a.id = 22;
    a.rate = 2000.0;
    a.samples = 100;
    a.prefix = QStringLiteral("A");
    Description b = a;
    b.id = 23;
    b.rate = 1000.0;
    b.samples = 50;
    b.begin = at(50000);
    OscillogramMergeTask task;
    task.setMergeType(1);
    task.addOscillogram(make(a));
    task.addOscillogram(make(b));
    task.setupGluingChannels();
    const Outcome outcome = run(task);
    QVERIFY(!outcome.failure);
    QCOMPARE(task.handler()->totalCount(), 101);
    QCOMPARE(outcome.merged->countOfSamples(), 151);
    for (int r = 0; r < 151; ++r) {
        const double expected
            = r < 50 ? rawValue(22, 0, 2 * r) : (r < 101 ? rawValue(22, 0, 0) : rawValue(23, 0, r - 101));
        QCOMPARE(rawOf(*outcome.merged, 0, r), expected);
    }
    QCOMPARE(outcome.merged->mergedWaves()[1].sampleOffset, 101);
}

void TestMergeHandlers::recordOfAnotherKindIsRefused()
{
    Description a;
    a.pre = 40;
    const auto record = make(a);
    const PreciseDateTime trigger = record->triggerTime();
    auto other = QSharedPointer<ClcOscillogram>::create();
    OscillogramMergeTask task;
    task.setMergeType(0);
    task.setVerticalMergeMode(2);
    addAllChannels(task, { record });
    task.addOscillogram(other);
    const Outcome outcome = run(task);
    QVERIFY(outcome.failure);
    QVERIFY(outcome.failure.dynamicCast<IllegalArgumentException>());
    QCOMPARE(outcome.failure->message(),
        QStringLiteral(
            "Эта версия поддерживает объединение только осциллограмм Wv2, Comtrade и осциллограмм, "
            "обединенных из Wv2 или Comtrade."));
    // Refused before the handler moved any trigger.
    QCOMPARE(cmr(record->triggerTime()), cmr(trigger));
    QCOMPARE(record->countOfPreFailureSamples(), 40);
}

void TestMergeHandlers::stagesAreReportedInOrder()
{
    Description a;
    a.samples = 3000;
    const Outcome outcome = merge(0, 0, { make(a) });
    QVERIFY(!outcome.failure);
    QStringList stages;
    for (const auto& report : outcome.progress) {
        if (stages.isEmpty() || stages.last() != report.first)
            stages.append(report.first);
    }
    QCOMPARE(stages,
        (QStringList { "Расчет параметров склейки", "Выделение памяти", "Склейка", "Объединение",
            "Подготовка результата" }));
}

void TestMergeHandlers::cancelAtEachStage_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("stage");
    for (const char* stage : { "Расчет параметров склейки", "Выделение памяти", "Склейка", "Объединение",
             "Подготовка результата" })
        QTest::newRow(stage) << 0 << QString::fromUtf8(stage);
    QTest::newRow("gluing, copy") << 1 << QStringLiteral("Склейка");
}

void TestMergeHandlers::cancelAtEachStage()
{
    QFETCH(int, type);
    QFETCH(QString, stage);
    Description a;
    a.samples = 5000;
    Description b = a;
    b.id = 2;
    b.begin = at(5000000);
    OscillogramMergeTask task;
    task.setMergeType(type);
    addAllChannels(task, { make(a), make(b) });
    QSignalSpy completed(&task, &TaskBase::completed);
    int reportsAfterCancel = 0;
    QObject::connect(&task, &TaskBase::progressChanged, [&](const QString& reported, double) {
        if (task.isCancelled())
            ++reportsAfterCancel;
        if (reported == stage)
            task.cancel();
    });
    const Outcome outcome = run(task);
    QVERIFY(outcome.failure.dynamicCast<CancelledException>());
    QCOMPARE(completed.count(), 0);
    QVERIFY(!outcome.merged);
    // A copy stops within a thousandth of its rows.
    QVERIFY(reportsAfterCancel <= 2);
}

void TestMergeHandlers::mergedRecordSavedAndOpenedEqualsItself()
{
    Description a;
    // Loaded records keep all their analogue channels in one storage type, and the saver reads
    // the whole set by channel index, which is the column only then.
    a.id = 20;
    a.samples = 300;
    a.types = { DT::Float, DT::Float };
    a.digitals = 2;
    a.pre = 100;
    a.comtrade = true;
    a.prefix = QStringLiteral("A");
    a.failures = { { QStringLiteral("пуск"), 120 } };
    a.lines = QStringList { QStringLiteral("Л1") };
    Description b = a;
    b.id = 21;
    b.rate = 2000.0;
    b.samples = 500;
    b.types = { DT::Float };
    b.digitals = 1;
    b.begin = at(30000);
    b.prefix = QStringLiteral("B");
    const Outcome outcome = merge(0, 0, { make(a), make(b) });
    QVERIFY(!outcome.failure);
    const auto merged = outcome.merged;

    QTemporaryDir dir;
    const auto saveAndOpen = [&dir](const QSharedPointer<SimpleOscillogram>& record, const QString& name) {
        ComtradeSaver saver(dir.filePath(name), record, false, false);
        saver.setCodec(QStringLiteral("UTF-8"));
        saver.setComtradeFormat(3);
        saver.setNewTz(0);
        saver.setObjList(record->rasObjects());
        saver.saveProcess();
        return KorvaneTest::loadComtrade(dir.filePath(name));
    };
    const KorvaneTest::LoadedRecord first = saveAndOpen(merged, QStringLiteral("merged.zip"));
    QVERIFY2(first.record, qPrintable(first.error));
    QCOMPARE(first.record->countOfSamples(), merged->countOfSamples());
    QCOMPARE(first.record->countOfAnalogChannels(), merged->countOfAnalogChannels());
    QCOMPARE(first.record->countOfDigitalChannels(), merged->countOfDigitalChannels());
    QCOMPARE(first.record->sampleRate(), merged->sampleRate());
    for (int c = 0; c < merged->countOfAnalogChannels(); ++c) {
        QCOMPARE(first.record->analogChannel(c)->name(), merged->analogChannel(c)->name());
        // The file may hold another raw number for the same value: physical values are what a
        // record means, and they come back within the float's rounding.
        const auto saved = first.record->analogChannel(c);
        const auto original = merged->analogChannel(c);
        for (int s = 0; s < merged->countOfSamples(); ++s) {
            const double expected = original->getRealValue(rawOf(*merged, c, s));
            QVERIFY(
                qAbs(saved->getRealValue(rawOf(*first.record, c, s)) - expected) <= 1e-6 * qAbs(expected));
        }
    }
    for (int c = 0; c < merged->countOfDigitalChannels(); ++c) {
        for (int s = 0; s < merged->countOfSamples(); ++s)
            QCOMPARE(bitOf(*first.record, c, s), bitOf(*merged, c, s));
    }
    const QList<MergedWave> parts = first.record->mergedWaves();
    QCOMPARE(parts.size(), merged->mergedWaves().size());
    for (int p = 0; p < parts.size(); ++p) {
        QCOMPARE(cmr(parts[p].beginTime), cmr(merged->mergedWaves()[p].beginTime));
        QCOMPARE(parts[p].sampleOffset, merged->mergedWaves()[p].sampleOffset);
        QCOMPARE(parts[p].analogNumbers, merged->mergedWaves()[p].analogNumbers);
        QCOMPARE(parts[p].digitalNumbers, merged->mergedWaves()[p].digitalNumbers);
    }
    QCOMPARE(first.record->failures().size(), merged->failures().size());
    for (int s = 0; s < merged->countOfSamples(); s += 37)
        QCOMPARE(cmr(first.record->dateTime(s)), cmr(merged->dateTime(s)));

    // Saved once more from what was opened: the same record again.
    const KorvaneTest::LoadedRecord second = saveAndOpen(first.record, QStringLiteral("again.zip"));
    QVERIFY2(second.record, qPrintable(second.error));
    KorvaneTest::compareRecords(*first.record, *second.record);
}

void TestMergeHandlers::setupGluingChannelsTakesTheEarliestRecord()
{
    Description a;
    a.types = { DT::Int16, DT::Double };
    a.digitals = 2;
    a.begin = at(1000000);
    a.prefix = QStringLiteral("A");
    Description b;
    b.id = 2;
    b.prefix = QStringLiteral("B");
    OscillogramMergeTask task;
    task.addOscillogram(make(a));
    task.addOscillogram(make(b));
    task.setupGluingChannels();
    QCOMPARE(task.oscillograms().first()->filename(), QStringLiteral("B.cfg"));
    QCOMPARE(task.mergeItems().size(), 1);
    QCOMPARE(task.mergeItems()[0]->channel()->name(), QStringLiteral("B1"));
    QCOMPARE(task.countOfOscillograms(), 2);
}

QTEST_MAIN(TestMergeHandlers)
#include "tst_mergehandlers.moc"
