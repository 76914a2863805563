#pragma once

#include "korvane_export.h"

#include <QString>

// The revision year of a COMTRADE set; any year the library does not know reads as 1991.
class KORVANE_EXPORT ComtradeVersion
{
public:
    ComtradeVersion() = default;
    ComtradeVersion(int value);
    explicit ComtradeVersion(const QString& text);

    int value() const { return m_value; }
    void setValue(int value) { m_value = value; }
    QString toString() const;

    bool operator==(const ComtradeVersion& other) const { return m_value == other.m_value; }
    bool operator!=(const ComtradeVersion& other) const { return !(*this == other); }

private:
    int m_value = 1991;
};
