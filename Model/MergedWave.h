#pragma once

#include "Model/PreciseDateTime.h"

#include <QVector>

// One part of a record joined from several: its begin time and its first sample in the joined
// record ("BlockNum" in the .inf), with the channel numbers it brought.
struct MergedWave
{
    PreciseDateTime beginTime;
    int sampleOffset = 0;
    // Used by the merge handlers only; never written to files.
    int handlerValue = 0;
    QVector<unsigned short> analogNumbers;
    QVector<unsigned short> digitalNumbers;
};
