#include "Model/AnalogChannel.h"
#include "Model/ComtradeChannels.h"
#include "Model/DigitalChannel.h"
#include "Model/OscillogramData.h"

#include <QTest>

#include <limits>

namespace {
// Two int16 columns over three samples: column 0 is 1, -4, 7 and column 1 is 10, 10, 10.
QSharedPointer<OscillogramData> twoInt16Columns()
{
    OscillogramDataBuilder builder;
    builder.reserve(0, 0, 0, 2, 0, 3);
    for (short value : { 1, 10, -4, 10, 7, 10 })
        builder.appendInt16Value(value);
    return builder.build();
}

QSharedPointer<AnalogChannel> int16Channel(const QSharedPointer<OscillogramData>& data, int column)
{
    auto channel = QSharedPointer<AnalogChannel>::create();
    channel->setData(data);
    channel->setDataType(DT::Int16);
    channel->setDataOffset(column);
    return channel;
}
} // namespace

class TestOscillogramData : public QObject
{
    Q_OBJECT
private slots:
    void layoutIsSampleMajorPerType()
    {
        OscillogramDataBuilder builder;
        builder.reserve(1, 2, 1, 0, 3, 2);
        builder.floatAnalogValues() << 1.5f << 2.5f << 3.5f << 4.5f;
        builder.appendDoubleValue(-1.0);
        builder.appendDoubleValue(-2.0);
        builder.appendInt32Value(100000);
        builder.appendInt32Value(-100000);
        builder.setDigitalChannelValue(1, 2, true);
        const auto data = builder.build();
        QCOMPARE(data->floatChannelValue(1, 0), 3.5f);
        QCOMPARE(data->floatChannelValue(1, 1), 4.5f);
        QCOMPARE(data->floatValueIndex(1, 1), 3);
        QCOMPARE(data->doubleChannelValue(1, 0), -2.0);
        QCOMPARE(data->int32ChannelValue(0, 0), 100000);
        QVERIFY(data->digitalChannelValue(1, 2));
        QVERIFY(!data->digitalChannelValue(0, 2));
        QCOMPARE(data->digitalValueIndex(1, 2), 5);
        QCOMPARE(data->countOfAnalogChannels(), 4);
        QCOMPARE(data->countOfSamples(), 2);
    }

    void reserveFixesCapacity()
    {
        OscillogramDataBuilder builder;
        QVERIFY(builder.reserve(0, 3, 0, 0, 5, 1000));
        QVERIFY(builder.floatAnalogValues().capacity() >= 3000);
        const float* before = builder.floatAnalogValues().constData();
        for (int i = 0; i < 3000; ++i)
            builder.appendFloatValue(float(i));
        QCOMPARE(builder.floatAnalogValues().constData(), before);
        QCOMPARE(builder.digitalValues().size(), 5000);
    }

    // Products of columns and samples are formed in 64 bits; a block that one container cannot
    // hold (2^31 bytes, or 2^31 bits) is refused with nothing reserved.
    void reserveRefusesBlocksBeyondAContainer_data()
    {
        QTest::addColumn<QList<int>>("counts");
        // 40,000 x 60,000 = 2.4e9 values: the product passes the int range itself.
        QTest::newRow("int16, product beyond int") << QList<int> { 0, 0, 0, 40000, 0, 60000 };
        // 2^29 doubles are 2^32 bytes, though the count itself is an int.
        QTest::newRow("double, bytes beyond a container") << QList<int> { 1 << 14, 0, 0, 0, 0, 1 << 15 };
        QTest::newRow("digital, bits beyond int") << QList<int> { 0, 0, 0, 0, 65536, 65536 };
        QTest::newRow("negative count") << QList<int> { 0, 0, 0, -1, 0, 10 };
    }

    void reserveRefusesBlocksBeyondAContainer()
    {
        QFETCH(QList<int>, counts);
        OscillogramDataBuilder builder;
        QVERIFY(!builder.reserve(counts[0], counts[1], counts[2], counts[3], counts[4], counts[5]));
        QCOMPARE(builder.int16AnalogValues().capacity(), 0);
        QCOMPARE(builder.doubleAnalogValues().capacity(), 0);
        QCOMPARE(builder.digitalValues().size(), 0);
    }

    void readsFarBeyondTheEndGiveZero()
    {
        const auto data = twoInt16Columns();
        // sample x columns would pass the int range: still a read beyond the end.
        QCOMPARE(data->int16ChannelValue(std::numeric_limits<int>::max(), 1), short(0));
    }

    void extremesPerColumn()
    {
        const auto data = twoInt16Columns();
        QCOMPARE(data->int16MinValue(0), short(-4));
        QCOMPARE(data->int16MaxValue(0), short(7));
        QCOMPARE(data->int16MinValue(1), short(10));
        QCOMPARE(data->int16MaxValue(1), short(10));
    }

    void readsBeyondTheEndGiveZero()
    {
        const auto data = twoInt16Columns();
        QCOMPARE(data->int16ChannelValue(3, 0), short(0));
        QCOMPARE(data->int16ChannelValue(-1, 0), short(0));
        // Only the flat index is checked: column 2 of sample 0 lands on column 0 of sample 1.
        QCOMPARE(data->int16ChannelValue(0, 2), short(-4));
        QCOMPARE(data->doubleChannelValue(0, 0), 0.0);
    }

    void shortDataWithTrueCount()
    {
        OscillogramDataBuilder builder;
        builder.reserve(0, 0, 0, 1, 0, 10);
        builder.appendInt16Value(5);
        builder.appendInt16Value(-3);
        builder.setCountOfSamples(2);
        const auto data = builder.build();
        QCOMPARE(data->countOfSamples(), 2);
        QCOMPARE(data->int16ChannelValue(5, 0), short(0));
        QCOMPARE(data->int16MinValue(0), short(-3));
        QCOMPARE(data->int16MaxValue(0), short(5));
    }

    void missingValuesCountAsZeroInTheScan()
    {
        OscillogramDataBuilder builder;
        builder.reserve(0, 0, 0, 1, 0, 3);
        builder.appendInt16Value(5);
        builder.appendInt16Value(6);
        const auto data = builder.build();
        QCOMPARE(data->int16MinValue(0), short(0));
        QCOMPARE(data->int16MaxValue(0), short(6));
    }

    void emptyRecordKeepsZeroExtremes()
    {
        OscillogramDataBuilder builder;
        builder.reserve(1, 0, 0, 0, 0, 0);
        const auto data = builder.build();
        QCOMPARE(data->doubleMinValue(0), 0.0);
        QCOMPARE(data->doubleMaxValue(0), 0.0);
    }

    void digitalSetBeyondTheBlockIsIgnored()
    {
        OscillogramDataBuilder builder;
        builder.reserve(0, 0, 0, 0, 2, 2);
        builder.setDigitalChannelValue(2, 0, true);
        builder.setDigitalChannelValue(0, -1, true);
        const auto data = builder.build();
        QCOMPARE(data->digitalValues().count(true), 0);
    }

    void countsByType_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("columns");
        QTest::addColumn<int>("size");
        QTest::newRow("none") << 0 << 0 << 0;
        QTest::newRow("int16") << 1 << 4 << 8;
        QTest::newRow("int32") << 2 << 3 << 6;
        QTest::newRow("float") << 3 << 2 << 4;
        QTest::newRow("double") << 4 << 1 << 2;
        QTest::newRow("digital counts bits") << 5 << 5 << 10;
        QTest::newRow("unknown type 6") << 6 << 0 << 0;
    }

    void countsByType()
    {
        QFETCH(int, type);
        QFETCH(int, columns);
        QFETCH(int, size);
        OscillogramDataBuilder builder;
        builder.reserve(1, 2, 3, 4, 5, 2);
        builder.doubleAnalogValues().resize(2);
        builder.floatAnalogValues().resize(4);
        builder.int32AnalogValues().resize(6);
        builder.int16AnalogValues().resize(8);
        const auto data = builder.build();
        QCOMPARE(data->countOfChannelsOfType(DT::DataType(type)), columns);
        QCOMPARE(data->dataSizeOfType(DT::DataType(type)), size);
    }

    void setValueInPlace()
    {
        OscillogramDataBuilder builder;
        builder.reserve(0, 0, 0, 2, 0, 2);
        builder.int16AnalogValues().resize(4);
        builder.setInt16ChannelValue(1, 1, 9);
        const auto data = builder.build();
        QCOMPARE(data->int16ChannelValue(1, 1), short(9));
        QCOMPARE(data->int16ChannelValue(1, 0), short(0));
    }

    void analogChannelReadsAndScales()
    {
        const auto channel = int16Channel(twoInt16Columns(), 0);
        channel->setMultiplier(0.5);
        channel->setOffsetAdder(2.0);
        QCOMPARE(channel->getValue(2), 7.0);
        QCOMPARE(channel->getRealValue(channel->getValue(1)), -4 * 0.5 + 2.0);
        QCOMPARE(channel->minValue(), -4.0);
        QCOMPARE(channel->maxValue(), 7.0);
    }

    void invertedChannelMirrorsWithinItsRange()
    {
        OscillogramDataBuilder builder;
        builder.reserve(0, 0, 0, 1, 0, 3);
        for (short value : { -5, 15, 3 })
            builder.appendInt16Value(value);
        const auto channel = int16Channel(builder.build(), 0);
        channel->setIsInverted(true);
        QCOMPARE(channel->getValue(1), -5.0);
        QCOMPARE(channel->getValue(0), 15.0);
        QCOMPARE(channel->getValue(2), 7.0);
    }

    void channelOfNoTypeReadsZero()
    {
        auto channel = int16Channel(twoInt16Columns(), 0);
        channel->setDataType(DT::None);
        QCOMPARE(channel->getValue(0), 0.0);
        QCOMPARE(channel->minValue(), 0.0);
        QCOMPARE(channel->maxValue(), 0.0);
    }

    void digitalChannelReadsBitsAndInverts()
    {
        OscillogramDataBuilder builder;
        builder.reserve(0, 0, 0, 0, 3, 2);
        builder.setDigitalChannelValue(0, 1, true);
        builder.setDigitalChannelValue(1, 2, true);
        const auto data = builder.build();
        DigitalChannel channel;
        QCOMPARE(channel.dataType(), DT::Digital);
        channel.setData(data);
        channel.setDataOffset(1);
        QVERIFY(channel.value(0));
        QVERIFY(!channel.value(1));
        QCOMPARE(channel.getValue(0, 1), 1.0);
        channel.setIsInverted(true);
        QVERIFY(!channel.value(0));
        QVERIFY(channel.testBit(4));
    }

    void copyIsDetachedFromStore()
    {
        auto channel = int16Channel(twoInt16Columns(), 1);
        channel->setName(QStringLiteral("Ia"));
        channel->setPhysNum(7);
        channel->setCustomColor(Qt::red);
        channel->setUnit(QStringLiteral("A"));
        const AnalogChannel copy(*channel);
        QVERIFY(copy.data().isNull());
        QVERIFY(!copy.getCustomColor().has_value());
        QCOMPARE(copy.name(), QStringLiteral("Ia"));
        QCOMPARE(copy.physNum(), 7);
        QCOMPARE(copy.dataOffset(), 1);
        QCOMPARE(copy.unit(), QStringLiteral("A"));
    }

    void psChar()
    {
        AnalogChannel channel;
        QCOMPARE(channel.psChar(), 'P');
        channel.setPs(AnalogChannel::Secondary);
        QCOMPARE(channel.psChar(), 'S');
        channel.setPs(AnalogChannel::PrimaryOrSecondary(7));
        QCOMPARE(channel.psChar(), 'P');
    }

    void findTypeByName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("chanType");
        QTest::addColumn<int>("phase");
        QTest::newRow("Uab_2 is a line voltage") << "Uab_2" << 7 << 0;
        QTest::newRow("Ubus has no word boundary") << "Ubus" << 2 << 2;
        QTest::newRow("UCA upper case") << "UCA" << 9 << 0;
        QTest::newRow("Ic feeder") << "Ic feeder" << 6 << 3;
        QTest::newRow("Cyrillic never matches") << QStringLiteral("Ток фазы А") << 0 << 5;
    }

    void findTypeByName()
    {
        QFETCH(QString, name);
        QFETCH(int, chanType);
        QFETCH(int, phase);
        AnalogChannel channel;
        channel.setName(name);
        channel.setPhaseNumber(5);
        channel.setChanType(3);
        channel.findTypeByName();
        QCOMPARE(channel.chanType(), chanType);
        QCOMPARE(channel.phaseNumber(), phase);
    }

    void setCMRChanType_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("phase");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("chanType");
        QTest::newRow("current phase 2") << 1 << 2 << "x" << 5;
        QTest::newRow("current without phase") << 1 << 0 << "Ia" << 0;
        QTest::newRow("voltage phase 3") << 2 << 3 << "x" << 3;
        QTest::newRow("voltage phase 4") << 2 << 4 << "x" << 0;
        QTest::newRow("other with phase looks at the name") << 0 << 1 << "Ubc" << 8;
        QTest::newRow("other without phase") << 0 << 0 << "Ubc" << 0;
        QTest::newRow("unknown type leaves it") << 7 << 1 << "Ubc" << 9;
    }

    void setCMRChanType()
    {
        QFETCH(int, type);
        QFETCH(int, phase);
        QFETCH(QString, name);
        QFETCH(int, chanType);
        AnalogChannel channel;
        channel.setName(name);
        channel.setPhaseNumber(phase);
        channel.setChanType(9);
        channel.setCMRChanType(type);
        QCOMPARE(channel.cmrChanType(), type);
        QCOMPARE(channel.chanType(), chanType);
    }

    void definePhaseAndTypeNames()
    {
        const int phases[] = { 0, 1, 2, 3, 1, 2, 3, 0, 0, 0 };
        const char* names[] = { "Unknown", "Ua", "Ub", "Uc", "Ia", "Ib", "Ic", "Uab", "Ubc", "Uca" };
        for (int type = 0; type < 10; ++type) {
            AnalogChannel channel;
            channel.setChanType(type);
            channel.setPhaseNumber(9);
            channel.definePhase();
            QCOMPARE(channel.phaseNumber(), phases[type]);
            QCOMPARE(channel.chanTypeName(), QString::fromLatin1(names[type]));
        }
    }

    void phaseIdentification_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("phase");
        QTest::newRow("number 2") << "2" << 2;
        QTest::newRow("number 4 out of range") << "4" << 0;
        QTest::newRow("AB gives a") << "AB" << 1;
        QTest::newRow("cb gives b") << "cb" << 2;
        QTest::newRow("C") << "C" << 3;
        QTest::newRow("N has no phase") << "N" << 0;
    }

    void phaseIdentification()
    {
        QFETCH(QString, text);
        QFETCH(int, phase);
        ComtradeAnalogChannel channel;
        channel.setPhaseIdentification(text);
        QCOMPARE(channel.phaseIdentification(), text);
        QCOMPARE(channel.phaseNumber(), phase);
    }

    void comtradeDefaults()
    {
        ComtradeAnalogChannel analog;
        QCOMPARE(analog.index(), -1);
        QCOMPARE(analog.lowerLimit(), -1.0);
        QCOMPARE(analog.upperLimit(), 1.0);
        QCOMPARE(analog.dataCount(), 0);
        ComtradeDigitalChannel digital;
        digital.setY(true);
        QVERIFY(digital.normalState());
        QCOMPARE(digital.index(), -1);
    }
};

QTEST_GUILESS_MAIN(TestOscillogramData)
#include "tst_oscillogramdata.moc"
