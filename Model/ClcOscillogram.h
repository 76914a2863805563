#pragma once

#include "Model/BaseOscillogram.h"
#include "Model/ClcAnalogChannel.h"

// A .clc archive: a slow log of computed values, one row a second, with analogue channels only.
// It has no failure, no pre-failure part and no station; its device is the registrator.
class KORVANE_EXPORT ClcOscillogram : public BaseOscillogram
{
public:
    QString registrator() const { return m_registrator; }
    void setRegistrator(const QString& registrator) { m_registrator = registrator; }
    QString arcName() const { return m_arcName; }
    void setArcName(const QString& arcName) { m_arcName = arcName; }
    int time() const { return m_time; }
    void setTime(int time) { m_time = time; }
    unsigned moddate() const { return m_moddate; }
    void setModdate(unsigned moddate) { m_moddate = moddate; }
    bool isLine() const { return m_isLine; }
    void setIsLine(bool isLine) { m_isLine = isLine; }
    QList<QSharedPointer<ClcAnalogChannel>> analogChannels() const { return m_analogChannels; }
    void setAnalogChannels(const QList<QSharedPointer<ClcAnalogChannel>>& channels)
    {
        m_analogChannels = channels;
    }

    QString stationName() const override { return {}; }
    QString deviceName() const override { return m_registrator; }
    int countOfAnalogChannels() const override { return m_analogChannels.size(); }
    int countOfDigitalChannels() const override { return 0; }
    int countOfChannels() const override { return countOfAnalogChannels(); }
    QSharedPointer<AnalogChannel> analogChannel(int index) const override
    {
        return m_analogChannels.value(index);
    }
    bool isValidAnalogChannel(int index) const override { return index < countOfAnalogChannels(); }
    QSharedPointer<DigitalChannel> digitalChannel(int) const override { return {}; }
    bool isValidDigitalChannel(int index) const override { return index < countOfDigitalChannels(); }
    QSharedPointer<Channel> channel(int index) const override;
    int countOfSamples() const override;
    double sampleRate() const override { return 1.0; }
    int countOfPreFailureSamples() const override { return 0; }
    int countOfPostFailureSamples() const override { return countOfSamples() - countOfPreFailureSamples(); }
    int waveType() const override { return 0; }
    PreciseDateTime beginTime() const override { return triggerTime(); }
    PreciseDateTime triggerTime() const override { return PreciseDateTime::from(m_time, 0, 0); }
    PreciseDateTime endTime() const override;

private:
    QString m_registrator;
    QString m_arcName;
    int m_time = 0;
    unsigned m_moddate = 0;
    bool m_isLine = false;
    QList<QSharedPointer<ClcAnalogChannel>> m_analogChannels;
};
