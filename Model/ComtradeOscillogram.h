#pragma once

#include "Model/ComtradeChannels.h"
#include "Model/ComtradeDataFormat.h"
#include "Model/ComtradeVersion.h"
#include "Model/SimpleOscillogram.h"

#include <QVector>

// A record read from a COMTRADE set. Its first sample's time and its sample count are its own;
// the pre-failure count follows from the times. An event-triggered record has no rate: each
// sample carries a time stamp in microseconds from the first.
class KORVANE_EXPORT ComtradeOscillogram : public SimpleOscillogram
{
public:
    QString recordingDeviceId() const { return deviceName(); }
    void setRecordingDeviceId(const QString& id) { setDeviceName(id); }
    ComtradeVersion version() const { return m_version; }
    void setVersion(const ComtradeVersion& version) { m_version = version; }
    double lineFrequency() const { return m_lineFrequency; }
    void setLineFrequency(double frequency) { m_lineFrequency = frequency; }
    void setFirstValueTime(const PreciseDateTime& time) { m_firstValueTime = time; }
    double timestampMultiplier() const { return m_timestampMultiplier; }
    void setTimestampMultiplier(double multiplier) { m_timestampMultiplier = multiplier; }
    void setCountOfSamples(int count) { m_countOfSamples = count; }
    QString headerFileContent() const { return headerContent(); }
    ComtradeDataFormat dataFormat() const { return m_dataFormat; }
    void setDataFormat(const ComtradeDataFormat& format) { m_dataFormat = format; }
    bool isEventTriggeredOsc() const { return m_isEventTriggeredOsc; }
    void setIsEventTriggeredOsc(bool eventTriggered) { m_isEventTriggeredOsc = eventTriggered; }
    // 0 when the index is out of range.
    long long timeStamp(int index) const { return m_timeStamps.value(index, 0); }
    QVector<long long>& timeStamps() { return m_timeStamps; }
    const QVector<long long>& timeStamps() const { return m_timeStamps; }
    void setAnalogChannels(const QList<QSharedPointer<ComtradeAnalogChannel>>& channels);
    void setDigitalChannels(const QList<QSharedPointer<ComtradeDigitalChannel>>& channels);
    bool isComtrade2013() const { return m_version.value() == 2013; }
    bool isSetToUtc() const;

    PreciseDateTime beginTime() const override { return m_firstValueTime; }
    int countOfSamples() const override { return m_countOfSamples; }
    int countOfPreFailureSamples() const override;
    int countOfPostFailureSamples() const override { return m_countOfSamples - countOfPreFailureSamples(); }
    PreciseDateTime dateTime(int sample) const override;
    PreciseDateTime endTime() const override;
    double timeForSample(int a, int b) const override;
    double timeBetweenSamples(int a, int b) const override;
    void setTriggerTime(const PreciseDateTime& time) override;
    using SimpleOscillogram::setTriggerTime;

private:
    int preFailureSamplesFrom(const PreciseDateTime& begin) const;

    ComtradeVersion m_version;
    double m_lineFrequency = 50.0;
    PreciseDateTime m_firstValueTime;
    double m_timestampMultiplier = 1.0;
    int m_countOfSamples = 0;
    ComtradeDataFormat m_dataFormat;
    bool m_isEventTriggeredOsc = false;
    QVector<long long> m_timeStamps;
};
