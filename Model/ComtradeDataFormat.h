#pragma once

#include "korvane_export.h"

#include <QString>

// The storage form of a COMTRADE .dat file: 0 ASCII, 1 binary, 2 binary32, 3 float32.
class KORVANE_EXPORT ComtradeDataFormat
{
public:
    enum Value { Ascii = 0, Binary = 1, Binary32 = 2, Float32 = 3 };

    ComtradeDataFormat() = default;
    ComtradeDataFormat(int value);
    // Every text that is not ASCII, binary or binary32 reads as float32; the configuration
    // check keeps unknown texts out before this constructor sees them.
    explicit ComtradeDataFormat(const QString& text);

    int value() const { return m_value; }
    void setValue(int value) { m_value = value; }
    QString toString() const;

    bool operator==(const ComtradeDataFormat& other) const { return m_value == other.m_value; }
    bool operator!=(const ComtradeDataFormat& other) const { return !(*this == other); }

private:
    int m_value = Ascii;
};
