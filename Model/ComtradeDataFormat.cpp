#include "ComtradeDataFormat.h"

ComtradeDataFormat::ComtradeDataFormat(int value) : m_value(value)
{
}

ComtradeDataFormat::ComtradeDataFormat(const QString& text)
{
    if (text.toUpper() == QLatin1String("ASCII"))
        m_value = Ascii;
    else if (text.toLower() == QLatin1String("binary"))
        m_value = Binary;
    else if (text.toLower() == QLatin1String("binary32"))
        m_value = Binary32;
    else
        m_value = Float32;
}

QString ComtradeDataFormat::toString() const
{
    switch (m_value) {
    case Ascii:
        return QStringLiteral("ASCII");
    case Binary:
        return QStringLiteral("binary");
    case Binary32:
        return QStringLiteral("binary32");
    case Float32:
        return QStringLiteral("float32");
    default:
        return QStringLiteral("Undefined");
    }
}
