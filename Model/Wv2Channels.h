#pragma once

#include "Model/AnalogChannel.h"
#include "Model/DigitalChannel.h"

#include <QCoreApplication>

// The unit field of a .wv2 channel or line: the low 16 bits name the unit, the high 16 bits
// are the power of ten of its prefix.
struct UNIT_TYPE
{
    quint16 unit = 0;
    qint16 power = 0;

    static UNIT_TYPE fromRaw(quint32 raw) { return { quint16(raw & 0xFFFF), qint16(quint16(raw >> 16)) }; }
};

// An analogue channel of a .wv2 record: its device's short and full names, and the unit and
// type codes of the file turned into the record model's texts and types.
class KORVANE_EXPORT Wv2AnalogChannel : public AnalogChannel
{
    Q_DECLARE_TR_FUNCTIONS(Wv2AnalogChannel)
public:
    Wv2AnalogChannel() = default;
    Wv2AnalogChannel(const Wv2AnalogChannel& other) = default;

    QString shortName() const { return m_shortName; }
    void setShortName(const QString& name) { m_shortName = name; }
    QString fullName() const { return m_fullName; }
    void setFullName(const QString& name) { m_fullName = name; }

    // Sets the unit text: prefix by the power of ten (micro included), name by the unit code.
    void setUnitType(const UNIT_TYPE& type);
    // The unit text without the micro prefix, which the device never reports for a reading.
    static QString getUnitType(const UNIT_TYPE& type);
    // Sets AnalogChannel's type from the device's type code and the phase number; a code
    // outside the known ranges leaves the type as it was.
    void setChanType(int code);

private:
    static QString unitName(quint16 code);
    static QString prefix(qint16 power, bool withMicro);

    QString m_shortName;
    QString m_fullName;
};

// A discrete channel of a .wv2 record: its names and where its bit lies in a frame.
class KORVANE_EXPORT Wv2DigitalChannel : public DigitalChannel
{
public:
    Wv2DigitalChannel() = default;
    Wv2DigitalChannel(const Wv2DigitalChannel& other) = default;

    QString shortName() const { return m_shortName; }
    void setShortName(const QString& name) { m_shortName = name; }
    QString fullName() const { return m_fullName; }
    void setFullName(const QString& name) { m_fullName = name; }
    short wv2Offset() const { return m_offset; }
    void setWv2Offset(short offset) { m_offset = offset; }
    unsigned char wv2Mask() const { return m_mask; }
    void setWv2Mask(unsigned char mask) { m_mask = mask; }

private:
    QString m_shortName;
    QString m_fullName;
    short m_offset = 0;
    unsigned char m_mask = 0;
};
