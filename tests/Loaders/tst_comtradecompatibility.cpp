// The rules of compatible COMTRADE reading, one by one: the revision by the shape of the channel
// lines, Mac archive members, month-first dates, times from a rate table, the trusted encodings,
// and the sections of a .cff.
#include "Loaders/ComtradeCompatibility.h"
#include "Loaders/ComtradeSingleFile.h"
#include "Loaders/EncodingDetector.h"

#include <QTest>
#include <QTextCodec>

using namespace ComtradeCompatibility;

Q_DECLARE_METATYPE(QList<ComtradeCompatibility::RateSegment>)

class TestComtradeCompatibility : public QObject
{
    Q_OBJECT
private slots:
    void revision_data()
    {
        QTest::addColumn<QString>("year");
        QTest::addColumn<int>("analogFields");
        QTest::addColumn<int>("digitalFields");
        QTest::addColumn<int>("expected");
        QTest::newRow("1999 written stands over 10 fields") << "1999" << 10 << 3 << 1999;
        QTest::newRow("2013 written stands") << " 2013 " << 13 << 5 << 2013;
        QTest::newRow("2000 over 13 analogue fields") << "2000" << 13 << 5 << 1999;
        QTest::newRow("1997 over 10 analogue fields") << "1997" << 10 << 5 << 1991;
        QTest::newRow("no year, no analogue line, 4 digital fields") << "" << 0 << 4 << 1999;
        QTest::newRow("no year, no analogue line, 3 digital fields") << "" << 0 << 3 << 1991;
        QTest::newRow("analogue count of neither year: the digital line tells") << "2001" << 12 << 5 << 1999;
        QTest::newRow("nothing tells: 1991 as strictly") << "2001" << 0 << 0 << 1991;
    }

    void revision()
    {
        QFETCH(QString, year);
        QFETCH(int, analogFields);
        QFETCH(int, digitalFields);
        QFETCH(int, expected);
        QCOMPARE(inferVersion(year, analogFields, digitalFields).value(), expected);
    }

    void fieldCounts()
    {
        QCOMPARE(fieldCount(QString()), 0);
        QCOMPARE(fieldCount(QStringLiteral("1,D1,0")), 3);
        QCOMPARE(fieldCount(QStringLiteral("1,D1,,,0")), 5);
        QVERIFY(!isReadableDigitalLine(2));
        QVERIFY(isReadableDigitalLine(3) && isReadableDigitalLine(4) && isReadableDigitalLine(5));
        QVERIFY(!isReadableDigitalLine(6));
    }

    void macMembers()
    {
        QVERIFY(isMacMetadataMember(QStringLiteral("__MACOSX/")));
        QVERIFY(isMacMetadataMember(QStringLiteral("__MACOSX/._rec.CFG")));
        QVERIFY(isMacMetadataMember(QStringLiteral("a/__MACOSX/rec.cfg")));
        QVERIFY(isMacMetadataMember(QStringLiteral("rec/._rec.dat")));
        QVERIFY(!isMacMetadataMember(QStringLiteral("rec/rec.cfg")));
        QVERIFY(!isMacMetadataMember(QStringLiteral("rec._x.cfg")));
    }

    void monthFirst()
    {
        QVERIFY(isMonthFirst(9, 17));
        QVERIFY(!isMonthFirst(9, 12));
        QVERIFY(!isMonthFirst(17, 9));
        // A first field that cannot be a month leaves the standard order, however wrong.
        QVERIFY(!isMonthFirst(13, 17));
    }

    void sampleTimesFromRates_data()
    {
        QTest::addColumn<QList<RateSegment>>("rates");
        QTest::addColumn<int>("samples");
        QTest::addColumn<QVector<long long>>("expected");
        QTest::newRow("1 kHz to sample 3, then 250 Hz") << QList<RateSegment> { { 1000.0, 3 },
            { 250.0, 5 } } << 5 << QVector<long long> { 0, 1000, 2000, 6000, 10000 };
        QTest::newRow("beyond the table the last rate holds") << QList<RateSegment> { { 1000.0, 1 },
            { 2000.0, 2 } } << 4 << QVector<long long> { 0, 500, 1000, 1500 };
        // 3 kHz: a period of 333.33 us, summed before rounding, so the third sample lies at 1000.
        QTest::newRow("rounding does not add up") << QList<RateSegment> { { 3000.0, 4 }, { 1000.0, 5 } } << 5
                                                  << QVector<long long> { 0, 333, 667, 1000, 2000 };
    }

    void sampleTimesFromRates()
    {
        QFETCH(QList<RateSegment>, rates);
        QFETCH(int, samples);
        QFETCH(QVector<long long>, expected);
        QVERIFY(hasSeveralRates(rates));
        QCOMPARE(sampleTimes(rates, samples), expected);
    }

    void tablesWithoutTimes()
    {
        QVERIFY(!hasSeveralRates({ { 1000.0, 10 } }));
        QVERIFY(!hasSeveralRates({ { 1000.0, 10 }, { 0.0, 20 } }));
        QVERIFY(sampleTimes({}, 10).isEmpty());
    }

    void trustedEncodings_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<QByteArray>("strict");
        QTest::addColumn<QByteArray>("compatible");
        QTest::newRow("UTF-8 in both") << QByteArray("UTF-8") << QByteArray("UTF-8") << QByteArray("UTF-8");
        QTest::newRow("GB18030") << QByteArray("GB18030") << QByteArray("windows-1251")
                                 << QByteArray("GB18030");
        QTest::newRow("ISO-8859-1") << QByteArray("ISO-8859-1") << QByteArray("windows-1251")
                                    << QByteArray("ISO-8859-1");
        QTest::newRow("Big5") << QByteArray("Big5") << QByteArray("windows-1251") << QByteArray("Big5");
        QTest::newRow("seven-bit text")
            << QByteArray("ASCII") << QByteArray("windows-1251") << QByteArray("windows-1251");
        QTest::newRow("a name Qt has no codec for")
            << QByteArray("x-no-such-codec") << QByteArray("windows-1251") << QByteArray("windows-1251");
        QTest::newRow("no answer") << QByteArray() << QByteArray("windows-1251")
                                   << QByteArray("windows-1251");
    }

    void trustedEncodings()
    {
        QFETCH(QByteArray, answer);
        QFETCH(QByteArray, strict);
        QFETCH(QByteArray, compatible);
        QCOMPARE(
            EncodingDetector::codecForAnswer(answer, EncodingDetector::Trust::KnownThree)->name(), strict);
        QCOMPARE(EncodingDetector::codecForAnswer(answer, EncodingDetector::Trust::AnyQtCodec)->name(),
            compatible);
    }

    void singleFileSections()
    {
        // Binary data that holds a heading and line ends of its own is taken by its byte count.
        const char raw[] = "\n--- file type: HDR ---\n\x00\x01";
        const QByteArray binary(raw, int(sizeof raw) - 1);
        const QByteArray cff = "--- file type: CFG ---\r\nS,R,2013\r\n1,1A,0D\r\n"
                               "---  File Type : hdr  ---\nfree text\n"
                               "--- file type: DAT BINARY: "
            + QByteArray::number(binary.size()) + " ---\r\n" + binary
            + "--- file type: INF ---\n[Public Record]\n";
        const QList<ComtradeSingleFile::Section> parts = ComtradeSingleFile::sections(cff);
        QCOMPARE(parts.size(), 4);
        QCOMPARE(parts[0].type, QStringLiteral("CFG"));
        QCOMPARE(parts[0].bytes, QByteArray("S,R,2013\r\n1,1A,0D\r\n"));
        QCOMPARE(parts[1].type, QStringLiteral("HDR"));
        QCOMPARE(parts[1].bytes, QByteArray("free text\n"));
        QCOMPARE(parts[2].type, QStringLiteral("DAT"));
        QCOMPARE(parts[2].bytes, binary);
        QCOMPARE(parts[3].type, QStringLiteral("INF"));
        QCOMPARE(parts[3].bytes, QByteArray("[Public Record]\n"));
    }

    void singleFileWithoutHeadings()
    {
        QVERIFY(ComtradeSingleFile::sections("S,R,2013\n1,1A,0D\n").isEmpty());
        // A count beyond the end takes what there is.
        const auto parts = ComtradeSingleFile::sections("--- file type: DAT BINARY: 100 ---\nabc");
        QCOMPARE(parts.size(), 1);
        QCOMPARE(parts[0].bytes, QByteArray("abc"));
    }
};

QTEST_GUILESS_MAIN(TestComtradeCompatibility)
#include "tst_comtradecompatibility.moc"
