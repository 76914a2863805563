#pragma once

#include "Loaders/Wv2Tags.h"

#include <QList>

// Everything of a .wv2 file but its samples, as the first pass gathers it.
struct Wv2MetaData
{
    WAVE_HEADER header;
    WAVE_TAGSOURCE source;
    WAVE_TAGFORMAT format;
    QList<WAVE_TAGACHANNEL> analogChannels;
    QList<WAVE_TAGDCHANNEL> digitalChannels;
    QList<WAVE_TAGLINE> lines;
    QList<EmergenciesData> emergencies;
    quint32 totalFrames = 0;
    // Frames of the blocks that lie before the failure.
    quint32 preFailureFrames = 0;
};
