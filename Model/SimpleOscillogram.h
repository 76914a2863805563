#pragma once

#include "Model/BaseOscillogram.h"
#include "Model/MergedWave.h"
#include "Model/RasObject.h"

// The general record, with lists of channels, lines and failures, and the .inf's objects.
class KORVANE_EXPORT SimpleOscillogram : public BaseOscillogram
{
public:
    QString stationName() const override { return m_stationName; }
    void setStationName(const QString& name) { m_stationName = name; }
    QString deviceName() const override { return m_deviceName; }
    void setDeviceName(const QString& name) { m_deviceName = name; }
    int countOfAnalogChannels() const override { return m_analogChannels.size(); }
    int countOfDigitalChannels() const override { return m_digitalChannels.size(); }
    int countOfChannels() const override { return countOfAnalogChannels() + countOfDigitalChannels(); }
    int countOfLines() const override { return m_lines.size(); }
    // No bounds check: callers test with isValidAnalogChannel first.
    QSharedPointer<AnalogChannel> analogChannel(int index) const override { return m_analogChannels[index]; }
    bool isValidAnalogChannel(int index) const override { return index < countOfAnalogChannels(); }
    QSharedPointer<DigitalChannel> digitalChannel(int index) const override
    {
        return m_digitalChannels[index];
    }
    bool isValidDigitalChannel(int index) const override { return index < countOfDigitalChannels(); }
    QSharedPointer<Channel> channel(int index) const override;
    QSharedPointer<Line> line(int index) const override { return m_lines[index]; }
    QList<QSharedPointer<Failure>> failures() const override { return m_failures; }
    PreciseDateTime beginTime() const override;
    PreciseDateTime triggerTime() const override { return m_triggerTime; }
    PreciseDateTime endTime() const override;
    int countOfPreFailureSamples() const override { return m_countOfPreFailureSamples; }
    int countOfPostFailureSamples() const override { return m_countOfPostFailureSamples; }
    int countOfSamples() const override;
    double sampleRate() const override { return m_sampleRate; }
    QString headerContent() const override { return m_headerFileContent; }
    PreciseDateTime dateTime(int sample) const override;
    int waveType() const override { return 1; }
    virtual void setTriggerTime(const PreciseDateTime& time);

    // Makes the sample the trigger: the time of that sample, and the counts around it.
    void setTriggerTime(int sample);
    void setSampleRate(double rate) { m_sampleRate = rate; }
    void setCountOfPreFailureSamples(int count) { m_countOfPreFailureSamples = count; }
    void setCountOfPostFailureSamples(int count) { m_countOfPostFailureSamples = count; }
    QString rasVersion() const { return m_rasVersion; }
    void setRasVersion(const QString& version) { m_rasVersion = version; }
    QString rasRevision() const { return m_rasRevision; }
    void setRasRevision(const QString& revision) { m_rasRevision = revision; }
    int localCode() const { return m_localCode; }
    void setLocalCode(int hours) { m_localCode = hours; }
    int timeCode() const { return m_timeCode; }
    void setTimeCode(int hours) { m_timeCode = hours; }
    QString getOscNameFromHeader() const { return m_oscNameFromHeader; }
    void setFailures(const QList<QSharedPointer<Failure>>& failures) { m_failures = failures; }
    QList<QSharedPointer<Line>> lines() const { return m_lines; }
    void setLines(const QList<QSharedPointer<Line>>& lines) { m_lines = lines; }
    void addAnalogChannel(const QSharedPointer<AnalogChannel>& channel) { m_analogChannels.append(channel); }
    void setAnalogChannels(const QList<QSharedPointer<AnalogChannel>>& channels)
    {
        m_analogChannels = channels;
    }
    void setDigitalChannels(const QList<QSharedPointer<DigitalChannel>>& channels)
    {
        m_digitalChannels = channels;
    }
    QList<MergedWave> mergedWaves() const { return m_mergedWaves; }
    void setMergedWaves(const QList<MergedWave>& waves) { m_mergedWaves = waves; }
    QList<RAS_OBJECT> rasObjects() const { return m_rasObjects; }
    void setRasObjects(const QList<RAS_OBJECT>& objects) { m_rasObjects = objects; }
    // Stores the .hdr text and takes the record's name from its line "Наименование файла:".
    void setHeaderFileContent(const QString& text);
    // Gives every channel the names of the lines it belongs to.
    void setLineNames();

private:
    QString m_headerFileContent;
    QString m_oscNameFromHeader;
    int m_timeCode = 0;
    int m_localCode = 0;
    double m_sampleRate = 1.0;
    QString m_deviceName;
    QString m_stationName;
    PreciseDateTime m_triggerTime;
    QList<QSharedPointer<AnalogChannel>> m_analogChannels;
    QList<QSharedPointer<DigitalChannel>> m_digitalChannels;
    QList<QSharedPointer<Line>> m_lines;
    QList<QSharedPointer<Failure>> m_failures;
    int m_countOfPreFailureSamples = 0;
    int m_countOfPostFailureSamples = 0;
    QString m_rasVersion;
    QString m_rasRevision;
    QList<RAS_OBJECT> m_rasObjects;
    QList<MergedWave> m_mergedWaves;
};
