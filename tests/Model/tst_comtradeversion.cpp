#include "Model/ComtradeVersion.h"

#include <QTest>

class TestComtradeVersion : public QObject
{
    Q_OBJECT
private slots:
    void defaultIs1991()
    {
        QCOMPARE(ComtradeVersion().value(), 1991);
        QCOMPARE(ComtradeVersion().toString(), QStringLiteral("1991"));
    }

    void fromText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("value");
        QTest::newRow("1991") << "1991" << 1991;
        QTest::newRow("1999") << "1999" << 1999;
        QTest::newRow("2013") << "2013" << 2013;
        QTest::newRow("leading zero") << "01999" << 1999;
        QTest::newRow("unknown year 2000") << "2000" << 1991;
        QTest::newRow("year 2024 unknown") << "2024" << 1991;
        QTest::newRow("empty") << "" << 1991;
        QTest::newRow("letters") << "rev" << 1991;
        QTest::newRow("year with a fraction") << "1999.0" << 1991;
    }
    void fromText()
    {
        QFETCH(QString, text);
        QFETCH(int, value);
        QCOMPARE(ComtradeVersion(text).value(), value);
    }

    void toString_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("1991") << 1991 << "1991";
        QTest::newRow("1999") << 1999 << "1999";
        QTest::newRow("2013") << 2013 << "2013";
        QTest::newRow("other value reads as 1991") << 2000 << "1991";
        QTest::newRow("zero reads as 1991") << 0 << "1991";
    }
    void toString()
    {
        QFETCH(int, value);
        QFETCH(QString, text);
        QCOMPARE(ComtradeVersion(value).toString(), text);
    }

    void valueFromIntIsKeptAsGiven()
    {
        ComtradeVersion version(2000);
        QCOMPARE(version.value(), 2000);
        version.setValue(2013);
        QCOMPARE(version.value(), 2013);
    }

    void equality()
    {
        QVERIFY(ComtradeVersion(1999) == ComtradeVersion(QStringLiteral("1999")));
        QVERIFY(!(ComtradeVersion(1999) == ComtradeVersion(2013)));
        QVERIFY(ComtradeVersion() == ComtradeVersion(QStringLiteral("1998")));
    }
};

QTEST_GUILESS_MAIN(TestComtradeVersion)
#include "tst_comtradeversion.moc"
