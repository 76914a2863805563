#include "Model/ComtradeDataFormat.h"

#include <QTest>

class TestComtradeDataFormat : public QObject
{
    Q_OBJECT
private slots:
    void defaultIsAscii()
    {
        QCOMPARE(ComtradeDataFormat().value(), 0);
        QCOMPARE(ComtradeDataFormat().toString(), QStringLiteral("ASCII"));
    }

    void fromText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("value");
        QTest::newRow("ASCII") << "ASCII" << 0;
        QTest::newRow("ascii") << "ascii" << 0;
        QTest::newRow("AsCiI") << "AsCiI" << 0;
        QTest::newRow("binary") << "binary" << 1;
        QTest::newRow("BINARY") << "BINARY" << 1;
        QTest::newRow("binary32") << "binary32" << 2;
        QTest::newRow("Binary32") << "Binary32" << 2;
        QTest::newRow("float32") << "float32" << 3;
        QTest::newRow("FLOAT32") << "FLOAT32" << 3;
        QTest::newRow("any other text is float32") << "float64" << 3;
        QTest::newRow("empty text is float32") << "" << 3;
        QTest::newRow("blanks are not trimmed") << " ASCII" << 3;
    }
    void fromText()
    {
        QFETCH(QString, text);
        QFETCH(int, value);
        QCOMPARE(ComtradeDataFormat(text).value(), value);
    }

    void toString_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("0") << 0 << "ASCII";
        QTest::newRow("1") << 1 << "binary";
        QTest::newRow("2") << 2 << "binary32";
        QTest::newRow("3") << 3 << "float32";
        QTest::newRow("4") << 4 << "Undefined";
        QTest::newRow("-1") << -1 << "Undefined";
    }
    void toString()
    {
        QFETCH(int, value);
        QFETCH(QString, text);
        QCOMPARE(ComtradeDataFormat(value).toString(), text);
    }

    void setValueAndEquality()
    {
        ComtradeDataFormat format;
        format.setValue(2);
        QCOMPARE(format.value(), 2);
        QVERIFY(format == ComtradeDataFormat(QStringLiteral("BINARY32")));
        QVERIFY(!(format == ComtradeDataFormat(1)));
    }
};

QTEST_GUILESS_MAIN(TestComtradeDataFormat)
#include "tst_comtradedataformat.moc"
