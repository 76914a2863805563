#include "Model/AnalogChannel.h"
#include "Model/DigitalChannel.h"
#include "Model/Line.h"
#include "Model/SimpleOscillogram.h"

#include <QTest>

using Numbers = QList<unsigned short>;
Q_DECLARE_METATYPE(Numbers)

namespace {
// The seven lists of a line, in the order of the fields.
QList<Numbers> allLists(const Line& line)
{
    return { line.vtNumbers(), line.ctNumbers(), line.rpNumbers(), line.rpDNumbers(), line.fNumbers(),
        line.esNumbers(), line.ocsNumbers() };
}

// Fills the list of the given place (0 vt, 1 ct, 2 rp, 3 rpD, 4 f, 5 es, 6 ocs), by the QList setter.
void setList(Line& line, int place, const Numbers& numbers)
{
    switch (place) {
    case 0:
        line.setVtNumbers(numbers);
        break;
    case 1:
        line.setCtNumbers(numbers);
        break;
    case 2:
        line.setRpNumbers(numbers);
        break;
    case 3:
        line.setRpDNumbers(numbers);
        break;
    case 4:
        line.setFNumbers(numbers);
        break;
    case 5:
        line.setEsNumbers(numbers);
        break;
    case 6:
        line.setOcsNumbers(numbers);
        break;
    }
}

void setListFromTexts(Line& line, int place, const QStringList& texts)
{
    switch (place) {
    case 0:
        line.setVtNumbers(texts);
        break;
    case 1:
        line.setCtNumbers(texts);
        break;
    case 2:
        line.setRpNumbers(texts);
        break;
    case 3:
        line.setRpDNumbers(texts);
        break;
    case 4:
        line.setFNumbers(texts);
        break;
    case 5:
        line.setEsNumbers(texts);
        break;
    case 6:
        line.setOcsNumbers(texts);
        break;
    }
}

const char* const listNames[] = { "vt", "ct", "rp", "rpD", "f", "es", "ocs" };
constexpr int digitalPlace = 3;

QSharedPointer<Line> namedLine(const QString& name)
{
    auto line = QSharedPointer<Line>::create();
    line->setName(name);
    return line;
}
} // namespace

class TestLine : public QObject
{
    Q_OBJECT
private slots:
    void defaults()
    {
        const Line line;
        QVERIFY(line.name().isEmpty());
        QCOMPARE(line.id(), static_cast<unsigned short>(0));
        QVERIFY(line.shortName().isEmpty());
        QVERIFY(line.vtID().isEmpty());
        QVERIFY(line.ctID().isEmpty());
        QCOMPARE(line.bit(), static_cast<unsigned short>(0));
        QVERIFY(line.unit().isEmpty());
        QCOMPARE(line.voltage(), 0.0);
        QCOMPARE(line.z0(), 0.0);
        QCOMPARE(line.z1(), 0.0);
        for (const Numbers& list : allLists(line))
            QVERIFY(list.isEmpty());
    }

    void plainFieldsKeepWhatIsSet()
    {
        Line line;
        line.setName(QStringLiteral("ВЛ 110 кВ Северная"));
        line.setShortName(QStringLiteral("Сев"));
        line.setVtID(QStringLiteral("TV1"));
        line.setCtID(QStringLiteral("TA1"));
        line.setUnit(QStringLiteral("kV"));
        line.setVoltage(110.0);
        line.setZ0(1.25);
        line.setZ1(0.4);
        QCOMPARE(line.name(), QStringLiteral("ВЛ 110 кВ Северная"));
        QCOMPARE(line.shortName(), QStringLiteral("Сев"));
        QCOMPARE(line.vtID(), QStringLiteral("TV1"));
        QCOMPARE(line.ctID(), QStringLiteral("TA1"));
        QCOMPARE(line.unit(), QStringLiteral("kV"));
        QCOMPARE(line.voltage(), 110.0);
        QCOMPARE(line.z0(), 1.25);
        QCOMPARE(line.z1(), 0.4);
    }

    void setLineID_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<int>("bit");
        QTest::newRow("line 0 has no bit left") << 0 << 0;
        QTest::newRow("line 1") << 1 << 0x1;
        QTest::newRow("line 2") << 2 << 0x2;
        QTest::newRow("line 3") << 3 << 0x4;
        QTest::newRow("line 16, the last bit") << 16 << 0x8000;
        QTest::newRow("line 17, past the mask") << 17 << 0;
        QTest::newRow("line 32") << 32 << 0;
        QTest::newRow("line 33 wraps to the first bit") << 33 << 0x1;
        QTest::newRow("line 65535") << 65535 << 0;
    }
    void setLineID()
    {
        QFETCH(int, id);
        QFETCH(int, bit);
        Line line;
        line.setLineID(static_cast<unsigned short>(id));
        QCOMPARE(int(line.id()), id);
        QCOMPARE(int(line.bit()), bit);
    }

    void moveConnectionsAfterNumber_data()
    {
        QTest::addColumn<Numbers>("list");
        QTest::addColumn<int>("number");
        QTest::addColumn<Numbers>("result");
        QTest::newRow("removed from the middle") << Numbers { 3, 5, 7 } << 5 << Numbers { 3, 6 };
        QTest::newRow("number not in the list") << Numbers { 3, 7 } << 5 << Numbers { 3, 6 };
        QTest::newRow("only the first equal entry goes") << Numbers { 5, 8, 5 } << 5 << Numbers { 7, 5 };
        QTest::newRow("the first channel") << Numbers { 0, 1, 2 } << 0 << Numbers { 0, 1 };
        QTest::newRow("the last entry") << Numbers { 2, 9 } << 9 << Numbers { 2 };
        QTest::newRow("all before the number stay") << Numbers { 1, 2 } << 10 << Numbers { 1, 2 };
        QTest::newRow("empty list") << Numbers {} << 4 << Numbers {};
        QTest::newRow("unsorted list") << Numbers { 9, 2, 4 } << 3 << Numbers { 8, 2, 3 };
    }
    void moveConnectionsAfterNumber()
    {
        QFETCH(Numbers, list);
        QFETCH(int, number);
        QFETCH(Numbers, result);
        Line::moveConnectionsAfterNumber(list, number);
        QCOMPARE(list, result);
    }

    void uniqueLineSignals_data()
    {
        QTest::addColumn<Numbers>("list");
        QTest::addColumn<Numbers>("result");
        QTest::newRow("double apart") << Numbers { 7, 3, 7 } << Numbers { 3, 7 };
        QTest::newRow("all equal") << Numbers { 5, 5, 5 } << Numbers { 5 };
        QTest::newRow("unsorted without doubles") << Numbers { 9, 1, 4 } << Numbers { 1, 4, 9 };
        QTest::newRow("empty") << Numbers {} << Numbers {};
    }
    void uniqueLineSignals()
    {
        QFETCH(Numbers, list);
        QFETCH(Numbers, result);
        Line::uniqueLineSignals(list);
        QCOMPARE(list, result);
    }

    void remap_data()
    {
        QTest::addColumn<Numbers>("list");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<Numbers>("result");
        QTest::newRow("first occurrence only") << Numbers { 4, 6, 4 } << 4 << 9 << Numbers { 9, 6, 4 };
        QTest::newRow("absent number") << Numbers { 1, 2 } << 3 << 9 << Numbers { 1, 2 };
        QTest::newRow("to a number already there") << Numbers { 1, 2 } << 1 << 2 << Numbers { 2, 2 };
    }
    void remap()
    {
        QFETCH(Numbers, list);
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(Numbers, result);
        Line::remap(list, static_cast<unsigned short>(from), static_cast<unsigned short>(to));
        QCOMPARE(list, result);
    }

    void listSetters_data()
    {
        QTest::addColumn<int>("place");
        QTest::addColumn<Numbers>("stored");
        for (int place = 0; place < 7; ++place) {
            const bool unique = place == 2 || place == 3;
            QTest::addRow("%s", listNames[place])
                << place << (unique ? Numbers { 3, 7 } : Numbers { 7, 3, 7 });
        }
    }
    void listSetters()
    {
        QFETCH(int, place);
        QFETCH(Numbers, stored);
        Line line;
        setList(line, place, Numbers { 7, 3, 7 });
        const QList<Numbers> lists = allLists(line);
        for (int other = 0; other < lists.size(); ++other)
            QCOMPARE(lists.at(other), other == place ? stored : Numbers {});
    }

    void textSettersStoreAsTheyCome_data()
    {
        QTest::addColumn<int>("place");
        for (int place = 0; place < 7; ++place)
            QTest::addRow("%s", listNames[place]) << place;
    }
    void textSettersStoreAsTheyCome()
    {
        QFETCH(int, place);
        Line line;
        setListFromTexts(line, place, QStringList { "7", "3", "7" });
        QCOMPARE(allLists(line).at(place), (Numbers { 7, 3, 7 }));
    }

    void convertListToTexts()
    {
        QCOMPARE(Line::convertList(Numbers { 0, 12, 65535 }), (QStringList { "0", "12", "65535" }));
        QVERIFY(Line::convertList(Numbers {}).isEmpty());
    }

    void convertListFromTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("number");
        QTest::newRow("decimal") << "42" << 42;
        QTest::newRow("leading zero is decimal") << "08" << 8;
        QTest::newRow("letters give 0") << "x" << 0;
        QTest::newRow("empty gives 0") << "" << 0;
        QTest::newRow("hexadecimal gives 0") << "0x10" << 0;
        QTest::newRow("fraction gives 0") << "1.5" << 0;
        QTest::newRow("minus one wraps to 16 bits") << "-1" << 65535;
    }
    void convertListFromTexts()
    {
        QFETCH(QString, text);
        QFETCH(int, number);
        QCOMPARE(Line::convertList(QStringList { "5", text }),
            (Numbers { 5, static_cast<unsigned short>(number) }));
    }

    void appendKeepsDoubles()
    {
        Line line;
        line.appendRpChannel(3);
        line.appendRpChannel(3);
        line.appendRpDChannel(1);
        line.appendRpDChannel(1);
        QCOMPARE(line.rpNumbers(), (Numbers { 3, 3 }));
        QCOMPARE(line.rpDNumbers(), (Numbers { 1, 1 }));
    }

    void containsSearchesTheAnalogueLists_data()
    {
        QTest::addColumn<int>("place");
        QTest::addColumn<bool>("found");
        for (int place = 0; place < 7; ++place)
            QTest::addRow("%s", listNames[place]) << place << (place != digitalPlace);
    }
    void containsSearchesTheAnalogueLists()
    {
        QFETCH(int, place);
        QFETCH(bool, found);
        Line line;
        setList(line, place, Numbers { 4 });
        QCOMPARE(line.contains(4), found);
        QVERIFY(!line.contains(5));
    }

    void remapNumberLeavesDigitalAlone()
    {
        Line line;
        for (int place = 0; place < 7; ++place)
            setList(line, place, Numbers { 1, 4 });
        line.appendRpChannel(4);
        line.remapNumber(4, 9);
        const QList<Numbers> lists = allLists(line);
        for (int place = 0; place < lists.size(); ++place) {
            const Numbers expected = place == digitalPlace ? Numbers { 1, 4 }
                : place == 2                               ? Numbers { 1, 9, 4 }
                                                           : Numbers { 1, 9 };
            QCOMPARE(lists.at(place), expected);
        }
    }

    void removeDigitalChannelConnection()
    {
        Line line;
        for (int place = 0; place < 7; ++place)
            setList(line, place, Numbers { 1, 3, 5 });
        line.removeDigitalChannelConnection(3);
        const QList<Numbers> lists = allLists(line);
        for (int place = 0; place < lists.size(); ++place)
            QCOMPARE(lists.at(place), (place == digitalPlace ? Numbers { 1, 4 } : Numbers { 1, 3, 5 }));
    }

    void removeAnalogChannelConnection()
    {
        Line line;
        for (int place = 0; place < 7; ++place)
            setList(line, place, Numbers { 1, 3, 5 });
        line.removeAnalogChannelConnection(3);
        const QList<Numbers> lists = allLists(line);
        for (int place = 0; place < lists.size(); ++place)
            QCOMPARE(lists.at(place), (place == digitalPlace ? Numbers { 1, 3, 5 } : Numbers { 1, 4 }));
    }

    void setLineNamesJoinsLinesAndChannels()
    {
        SimpleOscillogram record;
        QList<QSharedPointer<AnalogChannel>> analogs;
        for (int i = 0; i < 4; ++i)
            analogs.append(QSharedPointer<AnalogChannel>::create());
        QList<QSharedPointer<DigitalChannel>> digitals;
        for (int i = 0; i < 3; ++i)
            digitals.append(QSharedPointer<DigitalChannel>::create());
        record.setAnalogChannels(analogs);
        record.setDigitalChannels(digitals);

        auto north = namedLine(QStringLiteral("Северная"));
        north->setVtNumbers(Numbers { 0 });
        north->setCtNumbers(Numbers { 2 });
        north->setRpDNumbers(Numbers { 1 });
        auto south = namedLine(QStringLiteral("Южная"));
        south->setRpNumbers(Numbers { 0 });
        south->setEsNumbers(Numbers { 1 });
        south->setRpDNumbers(Numbers { 0, 1 });
        auto bus = namedLine(QStringLiteral("Шины"));
        bus->setOcsNumbers(Numbers { 2 });
        bus->setFNumbers(Numbers { 9 });
        // Digital channel 3 does not exist, and digital numbers never name analogue channels.
        auto breaker = namedLine(QStringLiteral("Выключатель"));
        breaker->setRpDNumbers(Numbers { 0, 3 });
        record.setLines({ north, south, bus, breaker });

        record.setLineNames();

        QCOMPARE(analogs.at(0)->lineNames(), (QStringList { "Северная", "Южная" }));
        QCOMPARE(analogs.at(1)->lineNames(), (QStringList { "Южная" }));
        QCOMPARE(analogs.at(2)->lineNames(), (QStringList { "Северная", "Шины" }));
        QVERIFY(analogs.at(3)->lineNames().isEmpty());
        QCOMPARE(digitals.at(0)->lineNames(), (QStringList { "Южная", "Выключатель" }));
        QCOMPARE(digitals.at(1)->lineNames(), (QStringList { "Северная", "Южная" }));
        QVERIFY(digitals.at(2)->lineNames().isEmpty());
    }

    void setLineNamesClearsOldNames()
    {
        SimpleOscillogram record;
        auto channel = QSharedPointer<AnalogChannel>::create();
        channel->setLineNames({ QStringLiteral("прежняя") });
        record.setAnalogChannels({ channel });
        record.setLineNames();
        QVERIFY(channel->lineNames().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestLine)
#include "tst_line.moc"
