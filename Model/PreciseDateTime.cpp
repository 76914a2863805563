#include "PreciseDateTime.h"

#include <QTimeZone>

namespace {
const QString dateTimeFormat = QStringLiteral("dd.MM.yyyy hh:mm:ss");
const QString timeFormat = QStringLiteral("hh:mm:ss");
const QString cmrFormat = QStringLiteral("dd/MM/yyyy,hh:mm:ss");
constexpr long long microsPerSecond = 1000000;

QDateTime utcFieldsFromSeconds(long long seconds, int offsetFromUtc)
{
    QDateTime dateTime = QDateTime::fromMSecsSinceEpoch(seconds * 1000, Qt::OffsetFromUTC, 0);
    dateTime.setOffsetFromUtc(offsetFromUtc);
    return dateTime;
}
} // namespace

PreciseDateTime::PreciseDateTime() : m_dateTime(QDateTime::fromSecsSinceEpoch(0))
{
}

PreciseDateTime::PreciseDateTime(
    int year, int month, int day, int hour, int minute, int second, long long uSec, int offsetFromUtc)
    : m_dateTime(QDate(year, month, day), QTime(hour, minute, second, int(uSec / 1000)), Qt::OffsetFromUTC)
    , m_uSec(uSec)
{
    m_dateTime.setOffsetFromUtc(offsetFromUtc);
}

PreciseDateTime::PreciseDateTime(const QDateTime& dateTime, long long uSec)
    : m_dateTime(dateTime), m_uSec(uSec)
{
}

PreciseDateTime PreciseDateTime::fromUSecsSinceEpoch(unsigned long long uSecs, int offsetFromUtc)
{
    return PreciseDateTime(
        utcFieldsFromSeconds(static_cast<long long>(uSecs / microsPerSecond), offsetFromUtc),
        static_cast<long long>(uSecs % microsPerSecond));
}

PreciseDateTime PreciseDateTime::from(long long seconds, long long uSec, int offsetFromUtc)
{
    return PreciseDateTime(utcFieldsFromSeconds(seconds, offsetFromUtc), uSec);
}

PreciseDateTime PreciseDateTime::from(const QDateTime& dateTime, long long uSec, int offsetFromUtc)
{
    PreciseDateTime result(dateTime, uSec);
    result.setOffsetFromUtc(offsetFromUtc);
    return result;
}

PreciseDateTime PreciseDateTime::from(const QDateTime& dateTime, double fraction, int offsetFromUtc)
{
    PreciseDateTime result(dateTime, static_cast<long long>(fraction * 1000000));
    result.setOffsetFromUtc(offsetFromUtc);
    return result;
}

long long PreciseDateTime::toUSecsSinceEpoch() const
{
    return (m_dateTime.toMSecsSinceEpoch() / 1000) * microsPerSecond + m_uSec;
}

long long PreciseDateTime::uSecsTo(const PreciseDateTime& other) const
{
    return other.toUSecsSinceEpoch() - toUSecsSinceEpoch();
}

long long PreciseDateTime::mSecsTo(const PreciseDateTime& other) const
{
    return uSecsTo(other) / 1000;
}

int PreciseDateTime::offsetFromUtc() const
{
    return m_dateTime.offsetFromUtc();
}

void PreciseDateTime::setOffsetFromUtc(int seconds)
{
    m_dateTime.setOffsetFromUtc(seconds);
}

void PreciseDateTime::recalcTimeZone(int offsetFromUtc)
{
    const int present = m_dateTime.offsetFromUtc();
    if (offsetFromUtc == present)
        return;
    setOffsetFromUtc(offsetFromUtc);
    m_dateTime = m_dateTime.addSecs(offsetFromUtc - present);
}

PreciseDateTime PreciseDateTime::addUSec(long long delta) const
{
    const long long total = m_uSec + delta;
    // An exact negative multiple of a second leaves uSec at 1000000 one second lower: the same
    // instant with the field out of its range. Kept as it is.
    if (total < 0)
        return PreciseDateTime(
            m_dateTime.addSecs(total / microsPerSecond - 1), total % microsPerSecond + microsPerSecond);
    return PreciseDateTime(m_dateTime.addSecs(total / microsPerSecond), total % microsPerSecond);
}

PreciseDateTime PreciseDateTime::operator-(const PreciseDateTime& other) const
{
    const long long d = (m_dateTime.toMSecsSinceEpoch() * 1000 + m_uSec)
        - (other.m_dateTime.toMSecsSinceEpoch() * 1000 + other.m_uSec);
    return PreciseDateTime(QDateTime::fromMSecsSinceEpoch(d / 1000), d % microsPerSecond);
}

bool PreciseDateTime::operator==(const PreciseDateTime& other) const
{
    return m_dateTime == other.m_dateTime && m_uSec == other.m_uSec;
}

bool PreciseDateTime::operator<(const PreciseDateTime& other) const
{
    if (m_dateTime < other.m_dateTime)
        return true;
    if (other.m_dateTime < m_dateTime)
        return false;
    return m_uSec < other.m_uSec;
}

bool PreciseDateTime::operator<=(const PreciseDateTime& other) const
{
    return *this < other || *this == other;
}

QString PreciseDateTime::microsecondsSuffix() const
{
    return QStringLiteral(".%1").arg(m_uSec, 6, 10, QLatin1Char('0'));
}

QString PreciseDateTime::toString() const
{
    return m_dateTime.toString(dateTimeFormat) + microsecondsSuffix();
}

QString PreciseDateTime::toStringMs() const
{
    return m_dateTime.toString(QStringLiteral("hh:mm:ss:zzz"));
}

QString PreciseDateTime::timeToString() const
{
    return m_dateTime.toString(timeFormat) + microsecondsSuffix();
}

std::string PreciseDateTime::toCMRString() const
{
    return (m_dateTime.toString(cmrFormat) + microsecondsSuffix()).toStdString();
}
