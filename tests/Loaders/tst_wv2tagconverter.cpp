#include "Loaders/Wv2TagConverter.h"
#include "Wv2FileWriter.h"

#include <QTest>
#include <QTextCodec>

using namespace KorvaneTest;

namespace {
WAVE_TAGACHANNEL analogTag(const Wv2AnalogLayout& layout)
{
    return WAVE_TAGACHANNEL::decode(Wv2FileWriter::analogBody(layout).constData());
}

QByteArray cp1251(const QString& text)
{
    return QTextCodec::codecForName("CP1251")->fromUnicode(text);
}
} // namespace

class TestWv2TagConverter : public QObject
{
    Q_OBJECT
private slots:
    void analogChannelTakesEveryField()
    {
        Wv2AnalogLayout layout;
        layout.physNum = 17;
        layout.lineBitMask = 0x0005;
        layout.normalState = -3;
        layout.shortName = cp1251(QStringLiteral("Ua1"));
        layout.fullName = cp1251(QStringLiteral("Напряжение фазы А"));
        layout.phaseNumber = 1;
        layout.typeCode = 100;
        layout.unit = 1;
        layout.power = 3;
        layout.multiplier = 0.5;
        layout.valueOffset = -8.0;
        layout.adcDelay = 2.5;
        layout.primary = 110000.0;
        layout.secondary = 100.0;
        const auto channel = Wv2TagConverter::convert(analogTag(layout));

        QCOMPARE(channel->shortName(), QStringLiteral("Ua1"));
        QCOMPARE(channel->fullName(), QStringLiteral("Напряжение фазы А"));
        QCOMPARE(channel->name(), QStringLiteral("Ua1 (Напряжение фазы А)"));
        QCOMPARE(channel->getLineBitMask(), quint16(0x0005));
        QCOMPARE(channel->multiplier(), 0.5);
        // The file's offset is in raw units: the record's adder is in physical ones.
        QCOMPARE(channel->offsetAdder(), -4.0);
        QCOMPARE(channel->unit(), QStringLiteral("кВ"));
        QCOMPARE(channel->primary(), 110000.0);
        QCOMPARE(channel->secondary(), 100.0);
        QCOMPARE(channel->phaseNumber(), 1);
        QCOMPARE(channel->adcDelay(), 2.5);
        QCOMPARE(int(channel->dataType()), int(DT::Int16));
        QCOMPARE(channel->dataCount(), 1);
        QCOMPARE(channel->physNum(), 17);
        QCOMPARE(channel->normalState(), short(-3));
        QCOMPARE(channel->chanType(), 1);
    }

    void shortNameOfFullWidthKeepsAllBytes()
    {
        Wv2AnalogLayout layout;
        layout.shortName = "ABCDEFGHIJKLMNOP"; // 16 bytes, no NUL
        layout.fullName = "full";
        const auto channel = Wv2TagConverter::convert(analogTag(layout));
        QCOMPARE(channel->shortName(), QStringLiteral("ABCDEFGHIJKLMNOP"));
        // The full name that follows is not run into.
        QCOMPARE(channel->name(), QStringLiteral("ABCDEFGHIJKLMNOP (full)"));
    }

    void unitTexts_data()
    {
        QTest::addColumn<int>("unit");
        QTest::addColumn<int>("power");
        QTest::addColumn<QString>("set");
        QTest::addColumn<QString>("got");

        QTest::newRow("volt") << 1 << 0 << "В"
                              << "В";
        QTest::newRow("ampere") << 2 << 0 << "А"
                                << "А";
        QTest::newRow("watt") << 3 << 0 << "Вт"
                              << "Вт";
        QTest::newRow("ohm") << 4 << 0 << "Ом"
                             << "Ом";
        QTest::newRow("hertz") << 5 << 0 << "Гц"
                               << "Гц";
        QTest::newRow("degree") << 6 << 0 << "°"
                                << "°";
        QTest::newRow("var") << 7 << 0 << "вар"
                             << "вар";
        QTest::newRow("volt-ampere") << 8 << 0 << "ВА"
                                     << "ВА";
        QTest::newRow("milliampere") << 2 << -3 << "мА"
                                     << "мА";
        QTest::newRow("kilovolt") << 1 << 3 << "кВ"
                                  << "кВ";
        QTest::newRow("megawatt") << 3 << 6 << "МВт"
                                  << "МВт";
        QTest::newRow("gigaohm") << 4 << 9 << "ГОм"
                                 << "ГОм";
        QTest::newRow("micro only when set") << 2 << -6 << "мкА"
                                             << "А";
        QTest::newRow("unknown power gives no prefix") << 1 << 2 << "В"
                                                       << "В";
        QTest::newRow("unknown code gives no name") << 9 << 3 << "к"
                                                    << "к";
        QTest::newRow("code zero, power zero") << 0 << 0 << ""
                                               << "";
    }

    void unitTexts()
    {
        QFETCH(int, unit);
        QFETCH(int, power);
        QFETCH(QString, set);
        QFETCH(QString, got);
        const UNIT_TYPE type { quint16(unit), qint16(power) };
        Wv2AnalogChannel channel;
        channel.setUnitType(type);
        QCOMPARE(channel.unit(), set);
        QCOMPARE(Wv2AnalogChannel::getUnitType(type), got);
        QCOMPARE(Wv2TagConverter::getUnitType(type), got);
    }

    void unitFieldIsLowUnitHighPower()
    {
        const UNIT_TYPE type = UNIT_TYPE::fromRaw(0xFFFD0002u);
        QCOMPARE(int(type.unit), 2);
        QCOMPARE(int(type.power), -3);
    }

    void channelTypes_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<int>("phase");
        QTest::addColumn<int>("expected");

        QTest::newRow("0 is unknown") << 0 << 1 << 0;
        QTest::newRow("1 is unknown") << 1 << 2 << 0;
        QTest::newRow("100 phase A is Ua") << 100 << 1 << 1;
        QTest::newRow("102 phase B is Ub") << 102 << 2 << 2;
        QTest::newRow("104 phase C is Uc") << 104 << 3 << 3;
        QTest::newRow("104 without phase") << 104 << 0 << 0;
        QTest::newRow("101 phase 4") << 101 << 4 << 0;
        QTest::newRow("200 phase A is Ia") << 200 << 1 << 4;
        QTest::newRow("203 phase B is Ib") << 203 << 2 << 5;
        QTest::newRow("204 phase C is Ic") << 204 << 3 << 6;
        QTest::newRow("201 without phase") << 201 << 0 << 0;
        QTest::newRow("300") << 300 << 1 << 0;
        QTest::newRow("303") << 303 << 1 << 0;
        QTest::newRow("800") << 800 << 1 << 0;
        QTest::newRow("803") << 803 << 1 << 0;
        QTest::newRow("900") << 900 << 1 << 0;
        QTest::newRow("903") << 903 << 1 << 0;
        QTest::newRow("1000") << 1000 << 1 << 0;
        QTest::newRow("1001 is Ub") << 1001 << 1 << 2;
        QTest::newRow("1002 is Uc") << 1002 << 1 << 3;
        QTest::newRow("1003 is Ia") << 1003 << 0 << 4;
        QTest::newRow("1004 is Ib") << 1004 << 0 << 5;
        QTest::newRow("1005 is Ic") << 1005 << 0 << 6;
        QTest::newRow("1006") << 1006 << 1 << 0;
        QTest::newRow("1008") << 1008 << 1 << 0;
    }

    void channelTypes()
    {
        QFETCH(int, code);
        QFETCH(int, phase);
        QFETCH(int, expected);
        Wv2AnalogChannel channel;
        channel.AnalogChannel::setChanType(9);
        channel.setPhaseNumber(phase);
        channel.setChanType(code);
        QCOMPARE(channel.chanType(), expected);
    }

    void unknownChannelTypeCodesLeaveTheType_data()
    {
        QTest::addColumn<int>("code");
        QTest::newRow("2") << 2;
        QTest::newRow("99") << 99;
        QTest::newRow("105") << 105;
        QTest::newRow("199") << 199;
        QTest::newRow("205") << 205;
        QTest::newRow("304") << 304;
        QTest::newRow("799") << 799;
        QTest::newRow("804") << 804;
        QTest::newRow("904") << 904;
        QTest::newRow("999") << 999;
        QTest::newRow("1009") << 1009;
        QTest::newRow("-1") << -1;
    }

    void unknownChannelTypeCodesLeaveTheType()
    {
        QFETCH(int, code);
        Wv2AnalogChannel channel;
        channel.AnalogChannel::setChanType(8);
        channel.setPhaseNumber(1);
        channel.setChanType(code);
        QCOMPARE(channel.chanType(), 8);
    }

    void digitalChannel()
    {
        Wv2DigitalLayout layout;
        layout.physNum = 42;
        layout.normalState = 2;
        layout.shortName = "Q1";
        layout.fullName = cp1251(QStringLiteral("Выключатель"));
        layout.offset = -7;
        layout.mask = 0x80;
        const auto channel = Wv2TagConverter::convert(
            WAVE_TAGDCHANNEL::decode(Wv2FileWriter::digitalBody(layout).constData()));
        QCOMPARE(channel->shortName(), QStringLiteral("Q1"));
        QCOMPARE(channel->fullName(), QStringLiteral("Выключатель"));
        QCOMPARE(channel->name(), QStringLiteral("Выключатель"));
        QCOMPARE(channel->wv2Offset(), short(-7));
        QCOMPARE(channel->wv2Mask(), quint8(0x80));
        QCOMPARE(int(channel->dataType()), int(DT::Digital));
        QCOMPARE(channel->dataCount(), 1);
        QCOMPARE(channel->physNum(), 42);
        QVERIFY(channel->normalState());

        layout.normalState = 0;
        QVERIFY(!Wv2TagConverter::convert(
            WAVE_TAGDCHANNEL::decode(Wv2FileWriter::digitalBody(layout).constData()))
                     ->normalState());
    }

    void lineScale_data()
    {
        QTest::addColumn<int>("power");
        QTest::addColumn<double>("factor");
        QTest::newRow("-3") << -3 << 0.000001;
        QTest::newRow("0") << 0 << 0.001;
        QTest::newRow("3") << 3 << 1.0;
        QTest::newRow("6") << 6 << 1000.0;
        QTest::newRow("9") << 9 << 1000000.0;
        QTest::newRow("-6 outside the table") << -6 << 1.0;
        QTest::newRow("1 within the range") << 1 << 1.0;
        QTest::newRow("12 beyond the range") << 12 << 1.0;
    }

    void lineScale()
    {
        QFETCH(int, power);
        QFETCH(double, factor);
        QCOMPARE(Wv2TagConverter::getLineScale(UNIT_TYPE { 1, qint16(power) }), factor);
    }

    void lineVoltageInKilovolts_data()
    {
        QTest::addColumn<double>("voltage");
        QTest::addColumn<int>("scale");
        QTest::newRow("110 at scale 3") << 110.0 << 3;
        QTest::newRow("110000 at scale 0") << 110000.0 << 0;
        QTest::newRow("0.11 at scale 6") << 0.11 << 6;
    }

    void lineVoltageInKilovolts()
    {
        QFETCH(double, voltage);
        QFETCH(int, scale);
        Wv2LineLayout layout;
        layout.id = 2;
        layout.name = cp1251(QStringLiteral("ВЛ 110 кВ Северная"));
        layout.voltage = voltage;
        layout.scale = qint16(scale);
        const auto line
            = Wv2TagConverter::convert(WAVE_TAGLINE::decode(Wv2FileWriter::lineBody(layout).constData()));
        QCOMPARE(line->name(), QStringLiteral("ВЛ 110 кВ Северная"));
        QCOMPARE(int(line->id()), 2);
        QCOMPARE(int(line->bit()), 2);
        QCOMPARE(line->unit(), QStringLiteral("кВ"));
        QVERIFY(qAbs(line->voltage() - 110.0) < 1e-9);
    }

    void emergencyBecomesFailure()
    {
        EmergenciesData emergency;
        emergency.blockNumber = 250;
        emergency.physNum = 3;
        emergency.lineId = 2;
        emergency.reason = "Trip";
        const auto failure = Wv2TagConverter::convert(emergency);
        QCOMPARE(failure->blockNum(), 250);
        QCOMPARE(failure->reason(), QStringLiteral("Trip"));
        QCOMPARE(failure->physicalNumber(), 3);
        QCOMPARE(failure->lineId(), 2);
    }
};

QTEST_GUILESS_MAIN(TestWv2TagConverter)
#include "tst_wv2tagconverter.moc"
