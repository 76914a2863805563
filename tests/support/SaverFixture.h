#pragma once

#include "Model/DataType.h"
#include "Model/SimpleOscillogram.h"

#include <QSharedPointer>

namespace KorvaneTest {

// Everything a saver test chooses about a record built in memory.
struct SaverRecordDescription
{
    int analogs = 3;
    int digitals = 2;
    int samples = 200;
    double rate = 1000.0;
    DT::DataType type = DT::Float;
    int triggerSample = 50;
    bool withLines = true;
    bool withFailures = true;
    bool withMergedWaves = false;
};

// A sine of amplitude 100 × (channel + 1), 20 samples a period, phase shifted by the channel;
// integer stores hold it rounded.
double saverRaw(int sample, int channel);
bool saverBit(int sample, int channel);
// The value as the store of a type holds it.
double storedRaw(DT::DataType type, int sample, int channel);

// The first sample's time of every built record: 15.03.2024 10:20:30.123456 UTC.
PreciseDateTime saverBeginTime();

// Channels "U1".. with units, scale, phases and flags that differ per channel; lines, failures,
// a power object with one device, and optionally two joined parts. Nothing is selected.
QSharedPointer<SimpleOscillogram> makeSaverRecord(const SaverRecordDescription& description);

} // namespace KorvaneTest
