#pragma once

#include "CalcLib/CmrUserSettings.h"
#include "Model/ComtradeOscillogram.h"
#include "Model/DataType.h"
#include "Model/SimpleOscillogram.h"
#include "Model/MeasureItem.h"

#include <QList>
#include <QPair>

#include <QSharedPointer>

class WaveSaver;

namespace KorvaneTest {

// What a saver's signals told during one run.
struct SaveRun
{
    bool ok = false;
    int finished = 0;
    int writeErrors = 0;
    int cancels = 0;
    QList<QPair<QString, double>> progress;
};
// Notes the saver's signals in the run, which must outlive the saver.
void watchSaver(WaveSaver& saver, SaveRun& run);

// A time measure from start to finish, in the order given.
MeasureItem sampleRange(int start, int finish);

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

// A small 1999 ASCII set made byte by byte from the format's rules: station "Малая ПС",
// channels "Ia" (A, ×0.5 +1) and "Ub" (kV, ×0.01), one discrete "Пуск", 10 samples at 1000 Hz.
// Writes <folder>/<base>.cfg and .dat in UTF-8 and returns the .cfg path.
QString writeSmallComtradeSet(const QString& folder, const QString& base);
double smallSetRaw(int sample, int channel);
bool smallSetBit(int sample);
constexpr int smallSetSamples = 10;

// What the COMTRADE loader makes of a file, read on the calling thread.
struct LoadedRecord
{
    QSharedPointer<ComtradeOscillogram> record;
    CMR_USER_SETTINGS userSettings;
    QString error;
};
LoadedRecord loadComtrade(const QString& path);

} // namespace KorvaneTest
