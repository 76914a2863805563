#pragma once

#include "Model/SimpleOscillogram.h"
#include "Model/Wv2Channels.h"

// A record read from a .wv2 file. Its name is the device's name; lines are found by the bit
// masks that the channels carry.
class KORVANE_EXPORT Wv2Oscillogram : public SimpleOscillogram
{
public:
    unsigned short orderNum() const { return m_orderNum; }
    void setOrderNum(unsigned short orderNum) { m_orderNum = orderNum; }
    QString id() const { return m_id; }
    void setId(const QString& id) { m_id = id; }
    QString name() const { return deviceName(); }
    void setName(const QString& name) { setDeviceName(name); }

    void setAnalogChannels(const QList<QSharedPointer<Wv2AnalogChannel>>& channels);
    void setDigitalChannels(const QList<QSharedPointer<Wv2DigitalChannel>>& channels);

    // The lines whose bit is set in the mask.
    QList<QSharedPointer<Line>> linesForBitMask(unsigned short mask) const;

private:
    unsigned short m_orderNum = 0;
    QString m_id;
};
