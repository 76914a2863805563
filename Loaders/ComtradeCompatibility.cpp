#include "ComtradeCompatibility.h"

#include <QCoreApplication>

#include <cmath>

namespace ComtradeCompatibility {

int fieldCount(const QString& line)
{
    return line.isEmpty() ? 0 : line.count(QLatin1Char(',')) + 1;
}

namespace {
bool isStandardYear(int year)
{
    return year == 1991 || year == 1999 || year == 2013;
}

// 0 when the count tells nothing.
int yearByAnalogShape(int fields)
{
    if (fields == 10)
        return 1991;
    return fields == 13 ? 1999 : 0;
}

int yearByDigitalShape(int fields)
{
    if (fields == 3)
        return 1991;
    return (fields == 4 || fields == 5) ? 1999 : 0;
}
} // namespace

ComtradeVersion inferVersion(const QString& yearToken, int analogFields, int digitalFields)
{
    const int written = yearToken.trimmed().toInt();
    if (isStandardYear(written))
        return ComtradeVersion(written);
    if (const int year = yearByAnalogShape(analogFields))
        return ComtradeVersion(year);
    if (const int year = yearByDigitalShape(digitalFields))
        return ComtradeVersion(year);
    return ComtradeVersion(yearToken);
}

bool isReadableDigitalLine(int fields)
{
    return fields >= 3 && fields <= 5;
}

bool isMacMetadataMember(const QString& memberName)
{
    if (memberName.startsWith(QLatin1String("__MACOSX/")) || memberName.contains(QLatin1String("/__MACOSX/")))
        return true;
    const QString last = memberName.section(QLatin1Char('/'), -1);
    return last.startsWith(QLatin1String("._"));
}

bool isMonthFirst(long long first, long long second)
{
    return second > 12 && first >= 1 && first <= 12;
}

bool hasSeveralRates(const QList<RateSegment>& rates)
{
    if (rates.size() < 2)
        return false;
    for (const RateSegment& segment : rates) {
        if (!(segment.rate > 0.0) || !std::isfinite(segment.rate))
            return false;
    }
    return true;
}

QVector<long long> sampleTimes(const QList<RateSegment>& rates, int samples)
{
    QVector<long long> times;
    if (rates.isEmpty() || samples <= 0)
        return times;
    times.reserve(samples);
    // The sum is kept in double and each time rounded on its own, so that rounding does not add up.
    double elapsed = 0.0;
    int segment = 0;
    times.append(0);
    for (int sample = 1; sample < samples; ++sample) {
        // Sample numbers in the table count from 1.
        while (segment + 1 < rates.size() && sample + 1 > rates.at(segment).lastSample)
            ++segment;
        elapsed += 1000000.0 / rates.at(segment).rate;
        times.append(std::llround(elapsed));
    }
    return times;
}

QString noteText(const QStringList& reasons)
{
    return QCoreApplication::translate("ComtradeLoader", "Прочитано в режиме совместимости: %1")
        .arg(reasons.join(QStringLiteral("; ")));
}

} // namespace ComtradeCompatibility
