#pragma once

#include "Model/AnalogChannel.h"
#include "Model/DigitalChannel.h"
#include "Model/Failure.h"
#include "Model/Line.h"
#include "Model/PreciseDateTime.h"

#include <QList>
#include <QSharedPointer>

#include <vector>

class OscillogramData;

// One record: analogue and digital channels over a common time base, with a trigger time, a
// place in the power system and optional lines and failures. Everything above the readers sees
// a record through this interface only.
class KORVANE_EXPORT Oscillogram
{
public:
    virtual ~Oscillogram();

    virtual QString filename() const = 0;
    virtual QString stationName() const = 0;
    virtual QString deviceName() const = 0;
    virtual int countOfAnalogChannels() const = 0;
    virtual int countOfDigitalChannels() const = 0;
    virtual int countOfChannels() const = 0;
    virtual int countOfLines() const = 0;
    virtual QSharedPointer<AnalogChannel> analogChannel(int index) const = 0;
    virtual bool isValidAnalogChannel(int index) const = 0;
    virtual QSharedPointer<DigitalChannel> digitalChannel(int index) const = 0;
    virtual bool isValidDigitalChannel(int index) const = 0;
    virtual QSharedPointer<Channel> channel(int index) const = 0;
    virtual QSharedPointer<Line> line(int index) const = 0;
    virtual QList<QSharedPointer<Failure>> failures() const = 0;
    virtual PreciseDateTime beginTime() const = 0;
    virtual PreciseDateTime triggerTime() const = 0;
    virtual PreciseDateTime endTime() const = 0;
    virtual int countOfPreFailureSamples() const = 0;
    virtual int countOfPostFailureSamples() const = 0;
    virtual int countOfSamples() const = 0;
    virtual double sampleRate() const = 0;
    virtual QSharedPointer<OscillogramData> data() const = 0;
    virtual int tsFromBeginTime(int sample) const = 0;
    virtual QString headerContent() const = 0;
    virtual PreciseDateTime dateTime(int sample) const = 0;
    virtual int waveType() const = 0;
    // Milliseconds from sample a to sample b.
    virtual double timeForSample(int a, int b) const;
    virtual double timeBetweenSamples(int a, int b) const;

    // One flag per channel in channel(i) order.
    std::vector<bool> selectedChannels() const;
    // Per channel: empty without a custom colour, else red, green, blue, alpha in 16 bits.
    std::vector<std::vector<unsigned short>> customColorsAsRgbaVector() const;
};

Q_DECLARE_METATYPE(QSharedPointer<Oscillogram>)
Q_DECLARE_METATYPE(Oscillogram*)
