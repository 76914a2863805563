#include "Savers/CsvNumberFormat.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace {
QLocale localeOf(QLocale::Language language)
{
    QLocale locale(language);
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale;
}

// What the locale itself writes: the reference of every case here.
QString byLocale(const QLocale& locale, double value)
{
    return locale.toString(value, 'g', 6);
}

// What a call wrote into a buffer; a write beyond the longest number fails the test.
template<typename Write> QString written(Write write)
{
    char buffer[CsvNumberFormat::maxLength + 8];
    std::fill(std::begin(buffer), std::end(buffer), '#');
    const char* end = write(buffer);
    if (end - buffer > CsvNumberFormat::maxLength || buffer[CsvNumberFormat::maxLength] != '#')
        qFatal("a number longer than CsvNumberFormat::maxLength");
    return QString::fromLatin1(buffer, int(end - buffer));
}

QString scaled(const CsvNumberFormat& format, long long units, int decimals)
{
    return written([&](char* out) { return format.writeScaled(out, units, decimals); });
}

QString rounded(const CsvNumberFormat& format, double value)
{
    return written([&](char* out) { return format.writeRounded(out, value); });
}

QString measured(const CsvNumberFormat& format, double value)
{
    return written([&](char* out) { return format.writeMeasured(out, value); });
}
} // namespace

class TestCsvNumberFormat : public QObject
{
    Q_OBJECT
private slots:
    void locales_data()
    {
        QTest::addColumn<int>("language");
        QTest::newRow("Russian") << int(QLocale::Russian);
        QTest::newRow("C") << int(QLocale::C);
    }

    // Units / 10^decimals as the locale writes the quotient with six significant digits: edges of
    // the fixed form, carries into a new digit, exact decimal halves, exponents.
    void scaledAsTheLocaleWritesIt_data()
    {
        QTest::addColumn<long long>("units");
        QTest::addColumn<int>("decimals");
        const QList<QPair<long long, int>> cases = { { 0, 3 }, { 1, 3 }, { -1, 3 }, { 1500, 3 }, { 2250, 3 },
            { 1001, 3 }, { -2500, 3 }, { 1234568, 3 }, { 1234565, 3 }, { -1234565, 3 }, { 999999500, 3 },
            { 999999499, 3 }, { 999999700, 3 }, { 123456700, 3 }, { 100000500, 3 }, { 1000000000, 3 },
            { 10, 6 }, { 50, 6 }, { 99, 6 }, { 100, 6 }, { -100, 6 }, { 123456, 6 }, { 1234567, 6 },
            { 1000005, 6 }, { -4500, 6 }, { 999999999999999LL, 6 }, { 999999999999999LL, 3 },
            { 1000000000000000LL, 3 }, { -1000000000000001LL, 3 }, { 7, 0 }, { 1234567, 0 } };
        for (const auto& c : cases)
            QTest::addRow("%lld / 10^%d", c.first, c.second) << c.first << c.second;
    }
    void scaledAsTheLocaleWritesIt()
    {
        QFETCH(long long, units);
        QFETCH(int, decimals);
        for (const auto language : { QLocale::Russian, QLocale::C }) {
            const QLocale locale = localeOf(language);
            const CsvNumberFormat format(locale);
            QCOMPARE(
                scaled(format, units, decimals), byLocale(locale, double(units) / std::pow(10.0, decimals)));
        }
    }

    // Many values of every size a record holds, against the locale.
    void randomValuesAsTheLocaleWritesThem()
    {
        QRandomGenerator random(20240315);
        for (const auto language : { QLocale::Russian, QLocale::C }) {
            const QLocale locale = localeOf(language);
            const CsvNumberFormat format(locale);
            for (int i = 0; i < 200000; ++i) {
                const int digits = 1 + int(random.bounded(15));
                long long units = static_cast<long long>(random.generate64() % 1000000000000000ULL);
                units %= static_cast<long long>(std::pow(10.0, digits));
                if (random.bounded(2))
                    units = -units;
                const int decimals = int(random.bounded(7));
                const QString expected = byLocale(locale, double(units) / std::pow(10.0, decimals));
                const QString actual = scaled(format, units, decimals);
                if (actual != expected)
                    QFAIL(qPrintable(QStringLiteral("%1 / 10^%2: %3, not %4")
                                         .arg(units)
                                         .arg(decimals)
                                         .arg(actual, expected)));
            }
        }
    }

    // n = value × 1000; n >= 0 truncates n + 0.5; below, the integer part of n - 1 plus its rounded
    // remainder: halves go upward on both sides of zero.
    void roundedThousandths_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("expected");
        QTest::newRow("1.0005 rounds up") << 1.0005 << 1001.0;
        QTest::newRow("1.0004") << 1.0004 << 1000.0;
        QTest::newRow("-1.0005 rounds up to -1") << -1.0005 << -1000.0;
        QTest::newRow("-1.0006") << -1.0006 << -1001.0;
        QTest::newRow("-2.4996") << -2.4996 << -2500.0;
        QTest::newRow("-0.0004 gives zero") << -0.0004 << 0.0;
        QTest::newRow("-0.0005 gives zero") << -0.0005 << 0.0;
        QTest::newRow("-0.0015 gives -1") << -0.0015 << -1.0;
        QTest::newRow("integral") << -7.0 << -7000.0;
        QTest::newRow("1234.5678") << 1234.5678 << 1234568.0;
    }
    void roundedThousandths()
    {
        QFETCH(double, value);
        QFETCH(double, expected);
        QCOMPARE(CsvNumberFormat::roundedThousandths(value), expected);
    }

    void roundedValues_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("russian");
        QTest::addColumn<QString>("c");
        QTest::newRow("1.5") << 1.5 << "1,5"
                             << "1.5";
        QTest::newRow("2.25") << 2.25 << "2,25"
                              << "2.25";
        QTest::newRow("1.0005 to 1.001") << 1.0005 << "1,001"
                                         << "1.001";
        QTest::newRow("-0.0004 to 0") << -0.0004 << "0"
                                      << "0";
        QTest::newRow("a seventh") << 1.0 / 7.0 << "0,143"
                                   << "0.143";
        QTest::newRow("six digits at most") << 98765.4321 << "98765,4"
                                            << "98765.4";
        QTest::newRow("a million takes the exponent") << 1234567.891 << "1,23457e+06"
                                                      << "1.23457e+06";
        QTest::newRow("a value beyond 64-bit integers") << 1.5e30 << "1,5e+30"
                                                        << "1.5e+30";
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << "nan"
                                      << "nan";
    }
    void roundedValues()
    {
        QFETCH(double, value);
        QFETCH(QString, russian);
        QFETCH(QString, c);
        QCOMPARE(rounded(CsvNumberFormat(localeOf(QLocale::Russian)), value), russian);
        QCOMPARE(rounded(CsvNumberFormat(localeOf(QLocale::C)), value), c);
    }

    void wholeNumbersAreIntegers_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("expected");
        QTest::newRow("12.0") << 12.0 << "12";
        QTest::newRow("-3.0") << -3.0 << "-3";
        QTest::newRow("zero") << 0.0 << "0";
        QTest::newRow("negative zero") << -0.0 << "0";
        // Beyond six digits an integer keeps all of them, unlike the rounded form.
        QTest::newRow("1234567.0") << 1234567.0 << "1234567";
        QTest::newRow("2^62") << 4611686018427387904.0 << "4611686018427387904";
        QTest::newRow("a fraction is rounded") << 12.5 << "12,5";
        QTest::newRow("beyond 2^63 the number format") << 1e19 << "1e+19";
        QTest::newRow("infinity the number format") << std::numeric_limits<double>::infinity() << "inf";
    }
    void wholeNumbersAreIntegers()
    {
        QFETCH(double, value);
        QFETCH(QString, expected);
        QCOMPARE(measured(CsvNumberFormat(localeOf(QLocale::Russian)), value), expected);
    }
};

QTEST_GUILESS_MAIN(TestCsvNumberFormat)
#include "tst_csvnumberformat.moc"
