#include "SaverFixture.h"
#include "Savers/WaveSaver.h"

#include <QSignalSpy>
#include <QTest>
#include <QTextCodec>
#include <QThread>

namespace {
// The least saver: it records the thread it ran on and whether a cancel was seen there.
class ProbeSaver : public WaveSaver
{
public:
    using WaveSaver::WaveSaver;
    QThread* ranOn = nullptr;
    bool sawCancel = false;

protected:
    void saveOsc() override
    {
        ranOn = QThread::currentThread();
        sawCancel = checkCancel();
        emit finishProgress();
    }
};

MeasureItem range(int start, int finish)
{
    MeasureItem item;
    item.setStartSampleNumber(start);
    item.setFinishSampleNumber(finish);
    return item;
}
} // namespace

class TestWaveSaver : public QObject
{
    Q_OBJECT
private slots:
    void constructorFields()
    {
        const auto record = KorvaneTest::makeSaverRecord({});
        ProbeSaver saver(QStringLiteral("/tmp/out/запись.zip"), record, true, false);
        QCOMPARE(saver.fileName(), QStringLiteral("/tmp/out/запись.zip"));
        QVERIFY(saver.errorString().isEmpty());
        QVERIFY(!saver.isOk());
        QVERIFY(saver.onlySelectedChannels());
        QVERIFY(!saver.useTimeRange());
        QVERIFY(saver.timeRange() == MeasureItem());
        QVERIFY(saver.codec());
        QCOMPARE(saver.codec()->name(), QByteArray("windows-1251"));
        QCOMPARE(saver.countSamples(), 200);
    }

    void setCodecStoresWhatItFinds()
    {
        ProbeSaver saver(QStringLiteral("x.zip"), KorvaneTest::makeSaverRecord({}), false, false);
        saver.setCodec(QStringLiteral("UTF-8"));
        QCOMPARE(saver.codec()->mibEnum(), 106);
        saver.setCodec(QStringLiteral("no such codec"));
        QVERIFY(saver.codec() == nullptr);
    }

    void setTimeRange_data()
    {
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("finish");
        QTest::newRow("rising range is kept") << 20 << 120;
        QTest::newRow("reversed range is swapped") << 120 << 20;
    }
    void setTimeRange()
    {
        QFETCH(int, start);
        QFETCH(int, finish);
        ProbeSaver saver(QStringLiteral("x.zip"), KorvaneTest::makeSaverRecord({}), false, true);
        MeasureItem item = range(start, finish);
        item.setComplete(true);
        saver.setTimeRange(item);
        QCOMPARE(saver.timeRange().startSampleNumber(), 20);
        QCOMPARE(saver.timeRange().finishSampleNumber(), 120);
        QVERIFY(saver.timeRange().isComplete());
    }

    void timeRangeCountsAndTimes()
    {
        const auto record = KorvaneTest::makeSaverRecord({});
        ProbeSaver saver(QStringLiteral("x.zip"), record, false, true);
        saver.setTimeRange(range(30, 130));
        QCOMPARE(saver.countSamples(), 100);
        QCOMPARE(saver.timeOfCurrentSample(0), record->dateTime(30));
        QCOMPARE(saver.timeOfCurrentSample(5), record->dateTime(35));
        QCOMPARE(saver.timeBegin(), record->dateTime(30));
        // The trigger stays the record's even when the range leaves it out.
        saver.setTimeRange(range(100, 150));
        QCOMPARE(saver.timeTrigger(), record->triggerTime());
        // 1000 Hz: the range's first sample is 100 ms after the record's begin.
        QCOMPARE(record->beginTime().uSecsTo(saver.timeBegin()), 100000LL);
    }

    void withoutTimeRangeTheRangeIsIgnored()
    {
        const auto record = KorvaneTest::makeSaverRecord({});
        ProbeSaver saver(QStringLiteral("x.zip"), record, false, false);
        saver.setTimeRange(range(30, 130));
        QVERIFY(!saver.useTimeRange());
        QCOMPARE(saver.countSamples(), 200);
        QCOMPARE(saver.timeBegin(), record->beginTime());
        QCOMPARE(saver.timeOfCurrentSample(7), record->dateTime(7));
    }

    void countIsTakenAtConstruction()
    {
        auto record = KorvaneTest::makeSaverRecord({});
        ProbeSaver saver(QStringLiteral("x.zip"), record, false, false);
        KorvaneTest::SaverRecordDescription shorter;
        shorter.samples = 80;
        record->setData(KorvaneTest::makeSaverRecord(shorter)->data());
        QCOMPARE(saver.countSamples(), 200);
    }

    void saveProcessRunsOnTheCallingThread()
    {
        ProbeSaver saver(QStringLiteral("x.zip"), KorvaneTest::makeSaverRecord({}), false, false);
        QSignalSpy finished(&saver, &WaveSaver::finishProgress);
        saver.saveProcess();
        QCOMPARE(finished.count(), 1);
        QCOMPARE(saver.ranOn, QThread::currentThread());
        QVERIFY(!saver.sawCancel);
    }

    void checkCancelAsksTheSaversThread()
    {
        ProbeSaver saver(QStringLiteral("x.zip"), KorvaneTest::makeSaverRecord({}), false, false);
        QThread thread;
        saver.moveToThread(&thread);
        connect(&thread, &QThread::started, &saver, [&thread]() { thread.requestInterruption(); });
        connect(&thread, &QThread::started, &saver, &WaveSaver::saveProcess);
        QSignalSpy finished(&saver, &WaveSaver::finishProgress);
        // The thread ends itself when the save is over, so nothing races with the spy.
        connect(
            &saver, &WaveSaver::finishProgress, &saver, [&thread]() { thread.quit(); }, Qt::DirectConnection);
        thread.start();
        QVERIFY(thread.wait(5000));
        QCOMPARE(finished.count(), 1);
        QCOMPARE(saver.ranOn, &thread);
        QVERIFY(saver.sawCancel);
    }
};

QTEST_GUILESS_MAIN(TestWaveSaver)
#include "tst_wavesaver.moc"
