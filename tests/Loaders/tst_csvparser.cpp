#include "Loaders/CsvParser.h"
#include "Model/Exception.h"

#include <QScopedPointer>
#include <QTest>
#include <QTextStream>

#include <functional>

Q_DECLARE_METATYPE(ComtradeCFGFields)

namespace {
// The message of the ParsingException the call throws as a pointer, or a null string when it
// throws nothing. A failure thrown by value is not what a line check does, so it fails the test.
QString pointerFailureOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (ParsingException* failure) {
        QScopedPointer<ParsingException> owned(failure);
        return owned->message();
    } catch (const ParsingException& failure) {
        return QStringLiteral("thrown by value: ") + failure.message();
    }
    return {};
}

QString valueFailureOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const ParsingException& failure) {
        return failure.message();
    }
    return {};
}

// A parser whose next line is the given one, preceded by two lines of data that are read
// already: the line under test is line 3 of the file.
struct ParserOnThirdLine
{
    explicit ParserOnThirdLine(const QString& line)
        : text(QStringLiteral("1,2\n3,4\n") + line + QStringLiteral("\n"))
        , stream(&text, QIODevice::ReadOnly)
        , parser(stream)
    {
        parser.readLine(ComtradeCFGFields::ChannelOrData);
        parser.readLine(ComtradeCFGFields::ChannelOrData);
    }

    QString text;
    QTextStream stream;
    CsvParser parser;
};

QString wrongInformation(const QString& what)
{
    // The second word begins with the Latin letter c (0x63), written out here byte by byte.
    return QStringLiteral("В ") + QChar(0x63) + QStringLiteral("троке 3 неверная информация ") + what;
}

QString wrongChannelValue(const QString& what)
{
    return QStringLiteral("Строка 3 содержит неправильное значение ") + what;
}

// A channel line of the given count of fields, all filled, and optionally a trailing comma.
QString channelLine(int filledFields, bool trailingComma)
{
    QStringList fields;
    for (int i = 0; i < filledFields; ++i)
        fields.append(QString::number(i + 1));
    return fields.join(QLatin1Char(',')) + (trailingComma ? QStringLiteral(",") : QString());
}

const QStringList analogTexts { "'номер канала'", "'название канала'", "'номер фазы'", "'компонент схемы'",
    "'единицы измерения'", "'множитель величины сигнала'", "'добавочное смещение'",
    "'задержка сигнала в канале'", "'нижняя граница'", "'верхняя граница'",
    "'множитель коэффициента трансформации'", "'делитель коэффициента трансформации'",
    "'первичное или вторичное значение'" };
const QString analogBeyond = QStringLiteral("'неверное количество параметров аналогового сигнала'");
const QStringList digitalTexts1991 { "'номер канала'", "'название канала'", "'нормальное состояние'" };
const QStringList digitalTexts { "'номер канала'", "'название канала'", "'номер фазы'", "'компонент схемы'",
    "'нормальное состояние'" };
const QString digitalBeyond = QStringLiteral("'неверное количество параметров дискретного сигнала'");

void addChannelRows(int year, int expectedFields, const QStringList& texts, const QString& beyond)
{
    for (int place = 1; place <= expectedFields + 2; ++place) {
        if (place == expectedFields + 1)
            continue; // that many fields filled is the right count
        const QString text = place <= expectedFields ? texts.at(place - 1) : beyond;
        QTest::addRow("%d, %d fields filled, no trailing comma", year, place - 1)
            << year << channelLine(place - 1, false) << wrongChannelValue(text);
        if (place > 1 && place != expectedFields)
            QTest::addRow("%d, %d fields filled and a trailing empty one", year, place - 1)
                << year << channelLine(place - 1, true) << wrongChannelValue(text);
    }
    QTest::addRow("%d, right count", year) << year << channelLine(expectedFields, false) << QString();
    QTest::addRow("%d, right count with the last field empty", year)
        << year << channelLine(expectedFields - 1, true) << QString();
    QTest::addRow("%d, right count with the last field blank", year)
        << year << (channelLine(expectedFields - 1, true) + QStringLiteral("  ")) << QString();
    QTest::addRow("%d, empty line", year) << year << QString() << wrongChannelValue(texts.first());
}
} // namespace

class TestCsvParser : public QObject
{
    Q_OBJECT
private slots:
    void readLineChecksEachLineKind_data()
    {
        QTest::addColumn<ComtradeCFGFields>("field");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("failure");
        using F = ComtradeCFGFields;
        const QString station = wrongInformation("о названии станции, устройстве и стандарте");
        const QString counts = wrongInformation("о количестве сигналов и их типе");
        const QString frequency = wrongInformation("о частоте линии");
        const QString rateCount = wrongInformation("о количестве частот дискретизации");
        const QString rate = wrongInformation("о частоте дискретизации и количестве сэмплов");
        const QString format = wrongInformation("о формате хранения данных");
        const QString multiplier = wrongInformation("о множителе временных меток");
        const QString timezone = wrongInformation("о timezone");

        QTest::newRow("0: anything passes") << F::ChannelOrData << "x,,y,\x1A" << QString();
        QTest::newRow("1: three tokens") << F::StationDeviceYear << "Подстанция,Рекордер,1999" << QString();
        QTest::newRow("1: two tokens, no year") << F::StationDeviceYear << "Подстанция,Рекордер" << QString();
        QTest::newRow("1: empty line") << F::StationDeviceYear << "" << QString();
        QTest::newRow("1: four tokens") << F::StationDeviceYear << "a,b,1999,x" << station;
        QTest::newRow("2: three tokens") << F::ChannelCounts << "6,4A,2D" << QString();
        QTest::newRow("2: two tokens") << F::ChannelCounts << "6,4A" << counts;
        QTest::newRow("2: four tokens") << F::ChannelCounts << "6,4A,2D," << counts;
        QTest::newRow("3: a number") << F::LineFrequency << "50" << QString();
        QTest::newRow("3: a number with blanks") << F::LineFrequency << " 60.0 " << QString();
        QTest::newRow("3: two tokens") << F::LineFrequency << "50,0" << frequency;
        QTest::newRow("3: no number") << F::LineFrequency << "fifty" << frequency;
        QTest::newRow("3: empty") << F::LineFrequency << "" << frequency;
        QTest::newRow("4: a count") << F::SampleRateCount << "1" << QString();
        QTest::newRow("4: zero") << F::SampleRateCount << "0" << QString();
        QTest::newRow("4: a count as double") << F::SampleRateCount << "2.0" << QString();
        QTest::newRow("4: two tokens") << F::SampleRateCount << "1,2" << rateCount;
        QTest::newRow("4: no number") << F::SampleRateCount << "one" << rateCount;
        QTest::newRow("5: rate and last sample") << F::SampleRate << "1000,200" << QString();
        QTest::newRow("5: last sample not checked") << F::SampleRate << "1000,many" << QString();
        QTest::newRow("5: one token") << F::SampleRate << "1000" << rate;
        QTest::newRow("5: three tokens") << F::SampleRate << "1000,200,3" << rate;
        QTest::newRow("5: rate no number") << F::SampleRate << "kHz,200" << rate;
        QTest::newRow("8: ASCII") << F::FileType << "ASCII" << QString();
        QTest::newRow("8: ascii") << F::FileType << "ascii" << QString();
        QTest::newRow("8: BINARY") << F::FileType << "BINARY" << QString();
        QTest::newRow("8: Binary32") << F::FileType << "Binary32" << QString();
        QTest::newRow("8: FLOAT32") << F::FileType << "FLOAT32" << QString();
        QTest::newRow("8: float32 with blanks") << F::FileType << " float32 " << QString();
        QTest::newRow("8: float64") << F::FileType << "float64" << format;
        QTest::newRow("8: two tokens") << F::FileType << "ASCII," << format;
        QTest::newRow("8: empty") << F::FileType << "" << format;
        QTest::newRow("9: a number") << F::TimeMultiplier << "1.0" << QString();
        QTest::newRow("9: no number") << F::TimeMultiplier << "x" << multiplier;
        QTest::newRow("9: two tokens") << F::TimeMultiplier << "1,0" << multiplier;
        QTest::newRow("10: two codes") << F::TimeCodes << "+5h30,5" << QString();
        QTest::newRow("10: empty codes") << F::TimeCodes << "," << QString();
        QTest::newRow("10: one code") << F::TimeCodes << "5" << timezone;
        QTest::newRow("10: three codes") << F::TimeCodes << "1,2,3" << timezone;
        QTest::newRow("11: anything passes") << F::TimeQuality << "x,y,z,w" << QString();
        QTest::newRow("11: empty") << F::TimeQuality << "" << QString();
    }
    void readLineChecksEachLineKind()
    {
        QFETCH(ComtradeCFGFields, field);
        QFETCH(QString, line);
        QFETCH(QString, failure);
        ParserOnThirdLine fixture(line);
        QCOMPARE(pointerFailureOf([&] { fixture.parser.readLine(field); }), failure);
        QCOMPARE(fixture.parser.getLineNum(), 3u);
    }

    void dateAndTimeLines_data()
    {
        QTest::addColumn<ComtradeCFGFields>("field");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("failure");
        using F = ComtradeCFGFields;
        QTest::newRow("6: date and time") << F::FirstValueTime << "23/11/2026,10:20:30.5" << QString();
        QTest::newRow("6: one token")
            << F::FirstValueTime << "23/11/2026" << wrongInformation("о дате и времени первой записи в файл");
        QTest::newRow("6: three tokens")
            << F::FirstValueTime << "a,b,c" << wrongInformation("о дате и времени первой записи в файл");
        QTest::newRow("6: empty line")
            << F::FirstValueTime << "" << wrongInformation("о дате и времени первой записи в файл");
        QTest::newRow("6: no date") << F::FirstValueTime << ",10:20:30.5"
                                    << wrongInformation(", отсутствует дата первой запсии в файл");
        QTest::newRow("6: blank date") << F::FirstValueTime << "  ,10:20:30.5"
                                       << wrongInformation(", отсутствует дата первой запсии в файл");
        QTest::newRow("6: no time") << F::FirstValueTime << "23/11/2026,"
                                    << wrongInformation(", отсутствует время первой запси в файл");
        QTest::newRow("6: neither, the date is told")
            << F::FirstValueTime << "," << wrongInformation(", отсутствует дата первой запсии в файл");
        QTest::newRow("7: date and time") << F::TriggerTime << "23/11/2026,10:20:30.5" << QString();
        QTest::newRow("7: one token")
            << F::TriggerTime << "23/11/2026" << wrongInformation("о дате и времени срабатывания");
        QTest::newRow("7: three tokens")
            << F::TriggerTime << "a,b,c" << wrongInformation("о дате и времени срабатывания");
        QTest::newRow("7: no date") << F::TriggerTime << ",10:20:30.5"
                                    << wrongInformation(", отсутствует дата срабатывания");
        QTest::newRow("7: no time") << F::TriggerTime << "23/11/2026, "
                                    << wrongInformation(", отсутствует время срабатывания");
        QTest::newRow("7: neither, the date is told")
            << F::TriggerTime << "," << wrongInformation(", отсутствует дата срабатывания");
    }
    void dateAndTimeLines() { readLineChecksEachLineKind(); }

    void messagePrefixHasLatinLetterAndTrailingBlank()
    {
        ParserOnThirdLine fixture(QStringLiteral("x"));
        const QString message
            = pointerFailureOf([&] { fixture.parser.readLine(ComtradeCFGFields::LineFrequency); });
        const QByteArray bytes = message.toUtf8();
        // "В " then the Latin c as one byte, then the Cyrillic rest of the word.
        QVERIFY(bytes.startsWith(QByteArray("\xd0\x92 c\xd1\x82\xd1\x80\xd0\xbe\xd0\xba\xd0\xb5 3 ")));
        QVERIFY(message.endsWith(QStringLiteral("информация о частоте линии")));
    }

    void analogChannelLine_data()
    {
        QTest::addColumn<int>("year");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("failure");
        addChannelRows(1991, 10, analogTexts.mid(0, 10), analogBeyond);
        addChannelRows(1999, 13, analogTexts, analogBeyond);
        addChannelRows(2013, 13, analogTexts, analogBeyond);
        QTest::newRow("1991, eleven filled fields and a trailing empty one: beyond")
            << 1991 << channelLine(11, true) << wrongChannelValue(analogBeyond);
        QTest::newRow("unknown year counts as a later one") << 2000 << channelLine(13, false) << QString();
        QTest::newRow("1999, twelve fields without trailing comma")
            << 1999 << "1,IA,A,,A,0.1,0,0,-32767,32767,1000,1" << wrongChannelValue(analogTexts.at(12));
        QTest::newRow("1999, thirteen fields with the last empty")
            << 1999 << "1,IA,A,,A,0.1,0,0,-32767,32767,1000,1," << QString();
    }
    void analogChannelLine()
    {
        QFETCH(int, year);
        QFETCH(QString, line);
        QFETCH(QString, failure);
        ParserOnThirdLine fixture(line);
        fixture.parser.readLine(ComtradeCFGFields::ChannelOrData);
        QCOMPARE(pointerFailureOf([&] { fixture.parser.checkComtradeAnalogFail(ComtradeVersion(year)); }),
            failure);
    }

    void digitalChannelLine_data()
    {
        QTest::addColumn<int>("year");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("failure");
        addChannelRows(1991, 3, digitalTexts1991, digitalBeyond);
        addChannelRows(1999, 5, digitalTexts, digitalBeyond);
        addChannelRows(2013, 5, digitalTexts, digitalBeyond);
        QTest::newRow("1991, a line of 1999: beyond")
            << 1991 << "1,K1,A,,0" << wrongChannelValue(digitalBeyond);
        // Three fields counted, so the fourth is named, though the phase is what is truly absent.
        QTest::newRow("1999, a line of 1991: the fourth place is named")
            << 1999 << "1,K1,0" << wrongChannelValue("'компонент схемы'");
    }
    void digitalChannelLine()
    {
        QFETCH(int, year);
        QFETCH(QString, line);
        QFETCH(QString, failure);
        ParserOnThirdLine fixture(line);
        fixture.parser.readLine(ComtradeCFGFields::ChannelOrData);
        QCOMPARE(pointerFailureOf([&] { fixture.parser.checkComtradeDigitalFail(ComtradeVersion(year)); }),
            failure);
    }

    void channelChecksWithoutAnyToken()
    {
        QString text;
        QTextStream stream(&text);
        const CsvParser parser(stream);
        QCOMPARE(pointerFailureOf([&] { parser.checkComtradeAnalogFail(ComtradeVersion(1999)); }),
            QStringLiteral("Отсутствуют данные об аналоговом сигнале в строке 0"));
        QCOMPARE(pointerFailureOf([&] { parser.checkComtradeDigitalFail(ComtradeVersion(1991)); }),
            QStringLiteral("Отсутствуют данные о дискретном сигнале в строке 0"));
    }

    void checkComtradeDataFormat_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("unsound");
        QTest::newRow("ASCII") << "ASCII" << false;
        QTest::newRow("Ascii") << "Ascii" << false;
        QTest::newRow("binary") << "binary" << false;
        QTest::newRow("BINARY") << "BINARY" << false;
        QTest::newRow("binary32") << "binary32" << false;
        QTest::newRow("Float32") << "Float32" << false;
        QTest::newRow("binary16") << "binary16" << true;
        QTest::newRow("float") << "float" << true;
        QTest::newRow("empty") << "" << true;
    }
    void checkComtradeDataFormat()
    {
        QFETCH(QString, text);
        QFETCH(bool, unsound);
        QString none;
        QTextStream stream(&none);
        QCOMPARE(CsvParser(stream).checkComtradeDataFormat(text), unsound);
    }

    void checkCastToDouble_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("unsound");
        QTest::newRow("decimal") << "1.5" << false;
        QTest::newRow("exponent") << "1e-3" << false;
        QTest::newRow("letters") << "abc" << true;
        QTest::newRow("empty") << "" << true;
    }
    void checkCastToDouble()
    {
        QFETCH(QString, text);
        QFETCH(bool, unsound);
        QString none;
        QTextStream stream(&none);
        QCOMPARE(CsvParser(stream).checkCastToDouble(text), unsound);
    }

    void checkSubCharacter_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<bool>("found");
        QTest::newRow("the mark alone") << QStringLiteral("\x1A") << true;
        QTest::newRow("the mark as a later token") << QStringLiteral("1,\x1A") << true;
        QTest::newRow("the mark with a blank") << QStringLiteral("\x1A ") << false;
        QTest::newRow("the mark inside a token") << QStringLiteral("1\x1A,2") << false;
        QTest::newRow("a data line") << QStringLiteral("1,0,5") << false;
    }
    void checkSubCharacter()
    {
        QFETCH(QString, line);
        QFETCH(bool, found);
        ParserOnThirdLine fixture(line);
        fixture.parser.readLine(ComtradeCFGFields::ChannelOrData);
        QCOMPARE(fixture.parser.checkSubCharacter(), found);
    }

    void forwardsTokenReadersAndCountsLines()
    {
        QString text = QStringLiteral("st,dev,1999\n6,4A,2D\n 1,1\n\n");
        QTextStream stream(&text);
        CsvParser parser(stream);
        QVERIFY(!parser.atEnd());
        parser.readLine(ComtradeCFGFields::StationDeviceYear);
        QCOMPARE(parser.getLineNum(), 1u);
        QCOMPARE(parser.getString(), QStringLiteral("st"));
        QCOMPARE(parser.stringParser().getString(), QStringLiteral("dev"));
        QVERIFY(parser.hasNextToken());
        parser.readLine(ComtradeCFGFields::ChannelCounts);
        QCOMPARE(parser.getInt(), 6LL);
        QCOMPARE(parser.getParser(QStringLiteral("A")).getInt(), 4LL);
        QCOMPARE(parser.getParser(QStringLiteral("D")).getInt(), 2LL);
        QVERIFY(!parser.hasNextToken());
        QCOMPARE(valueFailureOf([&] { parser.getInt(); }),
            QStringLiteral("В строке 2 отсутствует необходимое количество значений"));
        parser.resetLinesCnt();
        parser.readLine(ComtradeCFGFields::ChannelOrData);
        QCOMPARE(parser.getLineNum(), 1u);
        QCOMPARE(parser.getDouble(), 1.0);
        QCOMPARE(parser.getBool(QStringLiteral("1"), QStringLiteral("0")), true);
        parser.readLine(ComtradeCFGFields::ChannelOrData);
        QCOMPARE(parser.stringParser().getLine(), QStringList { QString() });
        QVERIFY(parser.atEnd());
    }

    void tokenReadersThrowByValue()
    {
        QString text = QStringLiteral("x\n");
        QTextStream stream(&text);
        CsvParser parser(stream);
        parser.readLine(ComtradeCFGFields::ChannelOrData);
        QCOMPARE(valueFailureOf([&] { parser.getDouble(); }),
            QStringLiteral("В строке 1 неверный тип данных, x не double"));
    }

    void readingPastTheEndGivesAnEmptyLine()
    {
        QString text;
        QTextStream stream(&text);
        CsvParser parser(stream);
        QVERIFY(parser.atEnd());
        QCOMPARE(pointerFailureOf([&] { parser.readLine(ComtradeCFGFields::LineFrequency); }),
            QStringLiteral("В ") + QChar(0x63)
                + QStringLiteral("троке 1 неверная информация о частоте линии"));
        QCOMPARE(parser.getLineNum(), 1u);
    }
};

QTEST_GUILESS_MAIN(TestCsvParser)
#include "tst_csvparser.moc"
