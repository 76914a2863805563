#include "ComtradeVersion.h"

namespace {
int knownYearOr1991(int year)
{
    return (year == 1991 || year == 1999 || year == 2013) ? year : 1991;
}
} // namespace

ComtradeVersion::ComtradeVersion(int value) : m_value(value)
{
}

ComtradeVersion::ComtradeVersion(const QString& text) : m_value(knownYearOr1991(text.toInt()))
{
}

QString ComtradeVersion::toString() const
{
    switch (m_value) {
    case 1999:
        return QStringLiteral("1999");
    case 2013:
        return QStringLiteral("2013");
    default:
        return QStringLiteral("1991");
    }
}
