#pragma once

#include "Loaders/Wv2Tags.h"
#include "Model/Failure.h"
#include "Model/Line.h"
#include "Model/Wv2Channels.h"

#include <QSharedPointer>

// Turns the raw tags of a .wv2 file into channels, lines and failures of the record model.
// Texts of the tags are in CP1251; the reason of an emergency is in the local 8-bit code page.
class KORVANE_EXPORT Wv2TagConverter
{
public:
    static QSharedPointer<Wv2AnalogChannel> convert(const WAVE_TAGACHANNEL& tag);
    static QSharedPointer<Wv2DigitalChannel> convert(const WAVE_TAGDCHANNEL& tag);
    static QSharedPointer<Line> convert(const WAVE_TAGLINE& tag);
    static QSharedPointer<Failure> convert(const EmergenciesData& emergency);

    static QString getUnitType(const UNIT_TYPE& type) { return Wv2AnalogChannel::getUnitType(type); }
    // Factor from the line's unit of voltage, given by its power of ten, to kV.
    static double getLineScale(const UNIT_TYPE& type);
    // A text field of a tag, from CP1251.
    static QString decode(const QByteArray& text);
};
