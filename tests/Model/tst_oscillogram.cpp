#include "Model/ComtradeOscillogram.h"
#include "Model/OscillogramData.h"
#include "Model/Oscillograms.h"

#include <QSignalSpy>
#include <QTest>

namespace {
// 1 kHz, 10 samples, one int16 analogue and two digital channels, trigger at 12:00:00.000000 UTC.
QSharedPointer<SimpleOscillogram> simpleRecord()
{
    OscillogramDataBuilder builder;
    builder.reserve(0, 0, 0, 1, 2, 10);
    for (short s = 0; s < 10; ++s)
        builder.appendInt16Value(s);
    const auto data = builder.build();
    auto record = QSharedPointer<SimpleOscillogram>::create();
    record->setData(data);
    record->setSampleRate(1000.0);
    auto analog = QSharedPointer<AnalogChannel>::create();
    analog->setData(data);
    analog->setDataType(DT::Int16);
    record->addAnalogChannel(analog);
    QList<QSharedPointer<DigitalChannel>> digitals;
    for (int c = 0; c < 2; ++c) {
        auto digital = QSharedPointer<DigitalChannel>::create();
        digital->setData(data);
        digital->setDataOffset(c);
        digitals.append(digital);
    }
    record->setDigitalChannels(digitals);
    record->setTriggerTime(PreciseDateTime(2020, 6, 1, 12, 0, 0, 0, 0));
    record->setCountOfPreFailureSamples(4);
    record->setCountOfPostFailureSamples(6);
    return record;
}

// A COMTRADE record at 2 kHz whose first value is at 12:00:00 and trigger at 12:00:00.005.
QSharedPointer<ComtradeOscillogram> comtradeRecord()
{
    auto record = QSharedPointer<ComtradeOscillogram>::create();
    record->setSampleRate(2000.0);
    record->setCountOfSamples(100);
    record->setFirstValueTime(PreciseDateTime(2020, 6, 1, 12, 0, 0, 0, 0));
    record->setTriggerTime(PreciseDateTime(2020, 6, 1, 12, 0, 0, 5000, 0));
    return record;
}

QSharedPointer<Oscillogram> emptyRecord()
{
    return QSharedPointer<SimpleOscillogram>::create();
}
} // namespace

class TestOscillogram : public QObject
{
    Q_OBJECT
private slots:
    void channelIndexing()
    {
        const auto record = simpleRecord();
        QCOMPARE(record->countOfChannels(), 3);
        QVERIFY(record->channel(-1).isNull());
        QCOMPARE(record->channel(0).data(), static_cast<Channel*>(record->analogChannel(0).data()));
        QCOMPARE(record->channel(2).data(), static_cast<Channel*>(record->digitalChannel(1).data()));
        QVERIFY(record->isValidAnalogChannel(0));
        QVERIFY(!record->isValidAnalogChannel(1));
        // Signed comparison: negative indices count as valid, callers must not rely on it.
        QVERIFY(record->isValidDigitalChannel(-1));
        QCOMPARE(record->waveType(), 1);
        QCOMPARE(record->countOfSamples(), 10);
    }

    void beginAndEndFromTrigger()
    {
        const auto record = simpleRecord();
        // 4 samples before the trigger at 1 ms each; the last of 6 after it is 5 ms later.
        QCOMPARE(record->beginTime().toUSecsSinceEpoch(), record->triggerTime().toUSecsSinceEpoch() - 4000);
        QCOMPARE(record->endTime().toUSecsSinceEpoch(), record->triggerTime().toUSecsSinceEpoch() + 5000);
        QCOMPARE(record->dateTime(3).toUSecsSinceEpoch(), record->beginTime().toUSecsSinceEpoch() + 3000);
        QCOMPARE(record->tsFromBeginTime(7), 7000);
        QCOMPARE(record->timeForSample(2, 5), 3.0);
        QCOMPARE(record->timeBetweenSamples(5, 2), -3.0);
    }

    void tsFromBeginTimeRounds()
    {
        const auto record = simpleRecord();
        record->setSampleRate(3000.0);
        // 1/3000 s is 333.33 us; two samples are 666.67 us and round to 667.
        QCOMPARE(record->tsFromBeginTime(2), 667);
    }

    void setTriggerTimeBySample()
    {
        const auto record = simpleRecord();
        const PreciseDateTime sixth = record->dateTime(6);
        record->setTriggerTime(6);
        QCOMPARE(record->triggerTime(), sixth);
        QCOMPARE(record->countOfPreFailureSamples(), 6);
        QCOMPARE(record->countOfPostFailureSamples(), 4);
    }

    void mergedWavesGiveTimesOfTheirPart()
    {
        const auto record = simpleRecord();
        MergedWave first;
        first.beginTime = PreciseDateTime(2020, 6, 1, 10, 0, 0, 0, 0);
        first.sampleOffset = 0;
        MergedWave second;
        second.beginTime = PreciseDateTime(2020, 6, 1, 11, 0, 0, 0, 0);
        second.sampleOffset = 5;
        record->setMergedWaves({ first, second });
        QCOMPARE(record->dateTime(3).toUSecsSinceEpoch(), first.beginTime.toUSecsSinceEpoch() + 3000);
        QCOMPARE(record->dateTime(7).toUSecsSinceEpoch(), second.beginTime.toUSecsSinceEpoch() + 2000);
        second.sampleOffset = 2;
        first.sampleOffset = 1;
        record->setMergedWaves({ first, second });
        QCOMPARE(record->dateTime(0), PreciseDateTime());
    }

    void headerNameLabel()
    {
        const auto record = simpleRecord();
        record->setHeaderFileContent(QStringLiteral("Станция 1\nНаименование файла:  КЗ на линии \nКонец"));
        QCOMPARE(record->getOscNameFromHeader(), QStringLiteral("КЗ на линии"));
        QCOMPARE(
            record->headerContent(), QStringLiteral("Станция 1\nНаименование файла:  КЗ на линии \nКонец"));
        const auto other = simpleRecord();
        other->setHeaderFileContent(QStringLiteral("наименование файла: lower case\n"));
        QVERIFY(other->getOscNameFromHeader().isEmpty());
    }

    void selectionAndColours()
    {
        const auto record = simpleRecord();
        record->digitalChannel(0)->setIsSelected(true);
        QCOMPARE(record->selectedChannels(), (std::vector<bool> { false, true, false }));
        record->analogChannel(0)->setCustomColor(QColor(255, 0, 0, 255));
        const auto colours = record->customColorsAsRgbaVector();
        QCOMPARE(colours.size(), size_t(3));
        QCOMPARE(colours[0], (std::vector<unsigned short> { 65535, 0, 0, 65535 }));
        QVERIFY(colours[1].empty());
    }

    void comtradePreFailureFromTimes()
    {
        const auto record = comtradeRecord();
        // 5 ms at 2 kHz.
        QCOMPARE(record->countOfPreFailureSamples(), 10);
        QCOMPARE(record->countOfPostFailureSamples(), 90);
        QCOMPARE(record->beginTime(), PreciseDateTime(2020, 6, 1, 12, 0, 0, 0, 0));
        record->setTriggerTime(record->beginTime());
        QCOMPARE(record->countOfPreFailureSamples(), 0);
        record->setTriggerTime(record->beginTime().addUSec(-1000));
        QCOMPARE(record->countOfPreFailureSamples(), -2);
    }

    void comtradePreFailureWithMergedWaves()
    {
        const auto record = comtradeRecord();
        MergedWave first;
        first.beginTime = PreciseDateTime(2020, 6, 1, 11, 0, 0, 0, 0);
        MergedWave second;
        second.beginTime = PreciseDateTime(2020, 6, 1, 12, 0, 0, 2000, 0);
        second.sampleOffset = 40;
        record->setMergedWaves({ first, second });
        // The trigger is 3 ms after the second part's start: 6 samples at 2 kHz.
        QCOMPARE(record->countOfPreFailureSamples(), 46);
        // A trigger before every part takes the last part.
        record->setTriggerTime(PreciseDateTime(2020, 6, 1, 10, 0, 0, 0, 0));
        QCOMPARE(record->countOfPreFailureSamples(), 40 + qRound(-(2 * 3600 * 1e6 + 2000) * 2000 / 1e6));
    }

    void eventTriggeredRecord()
    {
        const auto record = comtradeRecord();
        record->setIsEventTriggeredOsc(true);
        record->timeStamps() = { 0, 150, 400 };
        record->setTriggerTime(PreciseDateTime(2020, 6, 1, 13, 0, 0, 0, 0));
        QCOMPARE(record->triggerTime(), record->beginTime());
        QCOMPARE(record->countOfPreFailureSamples(), 0);
        QCOMPARE(record->dateTime(1).toUSecsSinceEpoch(), record->beginTime().toUSecsSinceEpoch() + 150);
        QCOMPARE(record->dateTime(9), record->beginTime());
        QCOMPARE(record->endTime().toUSecsSinceEpoch(), record->beginTime().toUSecsSinceEpoch() + 400);
        QCOMPARE(record->timeForSample(2, 1), 150.0);
        QCOMPARE(record->timeBetweenSamples(2, 1), 250.0);
        QCOMPARE(record->timeBetweenSamples(2, 7), 400.0);
        QCOMPARE(record->timeBetweenSamples(8, 7), 0.0);
        QCOMPARE(record->timeStamp(-1), 0LL);
    }

    void utcRule_data()
    {
        QTest::addColumn<int>("version");
        QTest::addColumn<int>("timeCode");
        QTest::addColumn<int>("localCode");
        QTest::addColumn<bool>("utc");
        QTest::newRow("1999 never") << 1999 << 0 << 0 << false;
        QTest::newRow("2013 both zero") << 2013 << 0 << 0 << true;
        QTest::newRow("2013 local differs, time zero") << 2013 << 0 << 3 << true;
        QTest::newRow("2013 equal non-zero") << 2013 << 3 << 3 << false;
        QTest::newRow("2013 time code non-zero") << 2013 << 3 << 0 << false;
    }

    void utcRule()
    {
        QFETCH(int, version);
        QFETCH(int, timeCode);
        QFETCH(int, localCode);
        QFETCH(bool, utc);
        ComtradeOscillogram record;
        record.setVersion(ComtradeVersion(version));
        record.setTimeCode(timeCode);
        record.setLocalCode(localCode);
        QCOMPARE(record.isSetToUtc(), utc);
        QCOMPARE(record.isComtrade2013(), version == 2013);
    }

    void comtradeDefaults()
    {
        ComtradeOscillogram record;
        QCOMPARE(record.version().value(), 1991);
        QCOMPARE(record.lineFrequency(), 50.0);
        QCOMPARE(record.timestampMultiplier(), 1.0);
        QCOMPARE(record.dataFormat().value(), 0);
        QVERIFY(!record.isEventTriggeredOsc());
        record.setRecordingDeviceId(QStringLiteral("REL-7"));
        QCOMPARE(record.deviceName(), QStringLiteral("REL-7"));
    }

    void registryNamesRepeatedKeys()
    {
        Oscillograms* registry = Oscillograms::instance();
        QSignalSpy changes(registry, &Oscillograms::changed);
        const auto a = emptyRecord(), b = emptyRecord(), c = emptyRecord();
        registry->add(QStringLiteral("fault.cfg"), a);
        registry->add(QStringLiteral("fault.cfg"), b);
        registry->add(QStringLiteral("fault.cfg"), c);
        QCOMPARE(changes.count(), 3);
        QCOMPARE(registry->get(QStringLiteral("fault.cfg")), a);
        QCOMPARE(registry->get(QStringLiteral("fault.cfg(2)")), b);
        QCOMPARE(registry->get(QStringLiteral("fault.cfg(3)")), c);
        QCOMPARE(registry->key(c), QStringLiteral("fault.cfg(3)"));
        QVERIFY(registry->get(QStringLiteral("other")).isNull());

        const auto d = emptyRecord();
        registry->changeOscillogram(b, d);
        QCOMPARE(registry->get(QStringLiteral("fault.cfg(2)")), d);
        registry->changeOscillogram(d, {});
        QCOMPARE(registry->get(QStringLiteral("fault.cfg(2)")), d);

        registry->remove(a);
        registry->remove(c);
        registry->remove(d);
        QVERIFY(registry->isEmpty());
        QCOMPARE(changes.count(), 7);
    }
};

QTEST_GUILESS_MAIN(TestOscillogram)
#include "tst_oscillogram.moc"
