#include "Loaders/CsvStringParser.h"
#include "Model/Exception.h"

#include <QTest>

#include <functional>

namespace {
// The message of the ParsingException the call throws by value, or a null string when it throws
// nothing. Anything else thrown fails the test through QtTest's own handler.
QString parsingFailureOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const ParsingException& failure) {
        return failure.message();
    }
    return {};
}

CsvStringParser parserOnLine(const QString& line, unsigned int lineNumber = 1)
{
    return CsvStringParser(line, QStringLiteral(","), lineNumber);
}
} // namespace

class TestCsvStringParser : public QObject
{
    Q_OBJECT
private slots:
    void delimiterOnlyConstructorHasNoTokens()
    {
        CsvStringParser parser(QStringLiteral(","));
        QVERIFY(parser.getLine().isEmpty());
        QVERIFY(!parser.hasNextToken());
        QCOMPARE(parser.getLineNum(), 0u);
        QCOMPARE(parsingFailureOf([&] { parser.getString(); }),
            QStringLiteral("В строке 0 отсутствует необходимое количество значений"));
    }

    void lineConstructorKeepsGivenLineNumber()
    {
        const CsvStringParser parser(QStringLiteral("a;b"), QStringLiteral(";"), 7);
        QCOMPARE(parser.getLineNum(), 7u);
        QCOMPARE(parser.getLine(), QStringList({ "a", "b" }));
    }

    void setLineCountsLinesAndRestartsTokens()
    {
        CsvStringParser parser(QStringLiteral(","));
        parser.setLine(QStringLiteral("a,b"));
        QCOMPARE(parser.getLineNum(), 1u);
        QCOMPARE(parser.getString(), QStringLiteral("a"));
        parser.setLine(QStringLiteral("c,d,e"));
        QCOMPARE(parser.getLineNum(), 2u);
        QCOMPARE(parser.getString(), QStringLiteral("c"));
        QCOMPARE(parser.getLine(), QStringList({ "c", "d", "e" }));
    }

    void resetLinesCntStartsCountingAgain()
    {
        CsvStringParser parser(QStringLiteral(","));
        parser.setLine(QStringLiteral("x"));
        parser.setLine(QStringLiteral("y"));
        parser.resetLinesCnt();
        QCOMPARE(parser.getLineNum(), 0u);
        parser.setLine(QStringLiteral("z"));
        QCOMPARE(parser.getLineNum(), 1u);
    }

    void splitKeepsEmptyPartsAndIsCaseSensitive_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("delimiter");
        QTest::addColumn<QStringList>("tokens");
        QTest::newRow("empty line is one empty token") << ""
                                                       << "," << QStringList { "" };
        QTest::newRow("two commas give three empty tokens") << ",,"
                                                            << "," << QStringList { "", "", "" };
        QTest::newRow("trailing comma gives a last empty token") << "a,b,"
                                                                 << "," << QStringList { "a", "b", "" };
        QTest::newRow("blanks stay in raw tokens") << " a , b"
                                                   << "," << QStringList { " a ", " b" };
        QTest::newRow("upper-case delimiter splits") << "4A"
                                                     << "A" << QStringList { "4", "" };
        QTest::newRow("lower-case letter is no upper-case delimiter") << "4a"
                                                                      << "A" << QStringList { "4a" };
        QTest::newRow("delimiter of several characters") << "1::2"
                                                         << "::" << QStringList { "1", "2" };
    }
    void splitKeepsEmptyPartsAndIsCaseSensitive()
    {
        QFETCH(QString, line);
        QFETCH(QString, delimiter);
        QFETCH(QStringList, tokens);
        CsvStringParser parser(delimiter);
        parser.setLine(line);
        QCOMPARE(parser.getLine(), tokens);
    }

    void getStringTrimsAndThrowsPastTheEnd()
    {
        CsvStringParser parser(QStringLiteral(","));
        parser.setLine(QStringLiteral("skip"));
        parser.setLine(QStringLiteral("  Подстанция  ,\tB\t"));
        QCOMPARE(parser.getString(), QStringLiteral("Подстанция"));
        QVERIFY(parser.hasNextToken());
        QCOMPARE(parser.getString(), QStringLiteral("B"));
        QVERIFY(!parser.hasNextToken());
        QCOMPARE(parsingFailureOf([&] { parser.getString(); }),
            QStringLiteral("В строке 2 отсутствует необходимое количество значений"));
    }

    void getInt_data()
    {
        QTest::addColumn<QString>("token");
        QTest::addColumn<qlonglong>("value");
        QTest::newRow("plain") << "42" << 42LL;
        QTest::newRow("negative") << "-7" << -7LL;
        QTest::newRow("surrounded by blanks") << " 15 " << 15LL;
        QTest::newRow("leading zeros are decimal") << "0010" << 10LL;
        QTest::newRow("empty reads as zero") << "" << 0LL;
        QTest::newRow("blanks read as zero") << "   " << 0LL;
        QTest::newRow("beyond 32 bits whole") << "1234567890123" << 1234567890123LL;
        QTest::newRow("fraction falls back to six characters") << "12345678.5" << 123456LL;
        QTest::newRow("trailing letters fall back to six characters") << "123456abc" << 123456LL;
        QTest::newRow("overlong digit string falls back") << "99999999999999999999999" << 999999LL;
        QTest::newRow("negative fallback keeps the sign") << "-12345.678" << -12345LL;
        QTest::newRow("microseconds of a nine-digit fraction") << "123456789" << 123456789LL;
    }
    void getInt()
    {
        QFETCH(QString, token);
        QFETCH(qlonglong, value);
        CsvStringParser parser = parserOnLine(token);
        QCOMPARE(parser.getInt(), value);
        QVERIFY(!parser.hasNextToken());
    }

    void getIntFailure_data()
    {
        QTest::addColumn<QString>("token");
        QTest::newRow("letters") << "abc";
        QTest::newRow("decoration within the first six characters") << "12345x";
        QTest::newRow("short fraction") << "12.5";
        QTest::newRow("hexadecimal") << "0x1F";
        QTest::newRow("exponent") << "1e5";
    }
    void getIntFailure()
    {
        QFETCH(QString, token);
        CsvStringParser parser = parserOnLine(token, 4);
        QCOMPARE(parsingFailureOf([&] { parser.getInt(); }),
            QStringLiteral("В строке 4 неверный тип данных, %1 не int").arg(token));
    }

    void getDouble_data()
    {
        QTest::addColumn<QString>("token");
        QTest::addColumn<double>("value");
        QTest::newRow("plain") << "1.5" << 1.5;
        QTest::newRow("negative with exponent") << "-2e3" << -2000.0;
        QTest::newRow("integer text") << "50" << 50.0;
        QTest::newRow("surrounded by blanks") << " 0.25 " << 0.25;
        QTest::newRow("empty reads as zero") << "" << 0.0;
    }
    void getDouble()
    {
        QFETCH(QString, token);
        QFETCH(double, value);
        CsvStringParser parser = parserOnLine(token);
        QCOMPARE(parser.getDouble(), value);
    }

    void getDoubleFailure_data()
    {
        QTest::addColumn<QString>("token");
        QTest::newRow("letters") << "x1";
        QTest::newRow("decimal comma") << "1,5";
        QTest::newRow("two points") << "1.2.3";
        QTest::newRow("fraction with a unit") << "12345678.5kV";
    }
    void getDoubleFailure()
    {
        QFETCH(QString, token);
        // A delimiter other than the comma lets the decimal comma reach the reader.
        CsvStringParser parser(token, QStringLiteral(";"), 9);
        QCOMPARE(parsingFailureOf([&] { parser.getDouble(); }),
            QStringLiteral("В строке 9 неверный тип данных, %1 не double").arg(token));
    }

    void emptyNumericFieldsAreValid()
    {
        CsvStringParser parser = parserOnLine(QStringLiteral(",,"));
        QCOMPARE(parser.getInt(), 0LL);
        QCOMPARE(parser.getDouble(), 0.0);
        QCOMPARE(parser.getInt(), 0LL);
        QVERIFY(!parser.hasNextToken());
    }

    void getBool_data()
    {
        QTest::addColumn<QString>("token");
        QTest::addColumn<bool>("value");
        QTest::newRow("true text") << "1" << true;
        QTest::newRow("false text") << "0" << false;
        QTest::newRow("empty is false") << "" << false;
        QTest::newRow("true text with blanks") << " 1 " << true;
    }
    void getBool()
    {
        QFETCH(QString, token);
        QFETCH(bool, value);
        CsvStringParser parser = parserOnLine(token);
        QCOMPARE(parser.getBool(QStringLiteral("1"), QStringLiteral("0")), value);
    }

    void getBoolFailure_data()
    {
        QTest::addColumn<QString>("token");
        QTest::addColumn<QString>("trueText");
        QTest::addColumn<QString>("falseText");
        QTest::addColumn<QString>("message");
        QTest::newRow("two for a digital value")
            << "2"
            << "1"
            << "0"
            << "В строке 5 значение \"2\" не булево, потому что не равно ни 1 (принято как истина), ни 0 "
               "(принято как ложь)";
        QTest::newRow("case matters") << "Yes"
                                      << "yes"
                                      << "no"
                                      << "В строке 5 значение \"Yes\" не булево, потому что не равно ни yes "
                                         "(принято как истина), ни no "
                                         "(принято как ложь)";
        QTest::newRow("markers in the token stay as written")
            << "%3%4"
            << "1"
            << "0"
            << "В строке 5 значение \"%3%4\" не булево, потому что не равно ни 1 (принято как истина), ни 0 "
               "(принято как ложь)";
    }
    void getBoolFailure()
    {
        QFETCH(QString, token);
        QFETCH(QString, trueText);
        QFETCH(QString, falseText);
        QFETCH(QString, message);
        CsvStringParser parser = parserOnLine(token, 5);
        QCOMPARE(parsingFailureOf([&] { parser.getBool(trueText, falseText); }), message);
    }

    void getParserTakesDateApart()
    {
        CsvStringParser line = parserOnLine(QStringLiteral("23/11/2026,10:20:30.123456"), 6);
        CsvStringParser date = line.getParser(QStringLiteral("/"));
        QCOMPARE(date.getLineNum(), 6u);
        QCOMPARE(date.getInt(), 23LL);
        QCOMPARE(date.getInt(), 11LL);
        QCOMPARE(date.getInt(), 2026LL);
        QVERIFY(!date.hasNextToken());
        QVERIFY(line.hasNextToken());
    }

    void getParserTakesTimeApart()
    {
        CsvStringParser line = parserOnLine(QStringLiteral("23/11/2026, 10:20:30.000500 "), 6);
        line.getString();
        CsvStringParser time = line.getParser(QStringLiteral("."));
        CsvStringParser clock = time.getParser(QStringLiteral(":"));
        QCOMPARE(time.getInt(), 500LL);
        QCOMPARE(clock.getInt(), 10LL);
        QCOMPARE(clock.getInt(), 20LL);
        QCOMPARE(clock.getInt(), 30LL);
        QVERIFY(!clock.hasNextToken());
        QVERIFY(!line.hasNextToken());
    }

    void timeWithoutFractionFailsOnTheFraction()
    {
        CsvStringParser line = parserOnLine(QStringLiteral("01/02/2003,10:20:30"), 7);
        line.getString();
        CsvStringParser time = line.getParser(QStringLiteral("."));
        time.getParser(QStringLiteral(":"));
        QCOMPARE(parsingFailureOf([&] { time.getInt(); }),
            QStringLiteral("В строке 7 отсутствует необходимое количество значений"));
    }

    void getParserFailsPastTheEnd()
    {
        CsvStringParser line = parserOnLine(QStringLiteral("only"), 3);
        line.getString();
        QCOMPARE(parsingFailureOf([&] { line.getParser(QStringLiteral("/")); }),
            QStringLiteral("В строке 3 отсутствует необходимое количество значений"));
    }

    void subParserErrorsNameTheLineOfTheFile()
    {
        CsvStringParser line = parserOnLine(QStringLiteral("aa/bb/cc"), 12);
        CsvStringParser date = line.getParser(QStringLiteral("/"));
        QCOMPARE(parsingFailureOf([&] { date.getInt(); }),
            QStringLiteral("В строке 12 неверный тип данных, aa не int"));
    }

    void channelCountsLine()
    {
        CsvStringParser line = parserOnLine(QStringLiteral("6,4A,2D"), 2);
        QCOMPARE(line.getInt(), 6LL);
        QCOMPARE(line.getParser(QStringLiteral("A")).getInt(), 4LL);
        QCOMPARE(line.getParser(QStringLiteral("D")).getInt(), 2LL);
    }
};

QTEST_GUILESS_MAIN(TestCsvStringParser)
#include "tst_csvstringparser.moc"
