#pragma once

#include "Model/Wv2Channels.h"
#include "korvane_export.h"

#include <QByteArray>
#include <QtGlobal>

// The pieces of a .wv2 file as they stand in it, decoded from little-endian bytes. Each tag
// body type knows the least number of bytes that must follow its WAVE_TAG and decodes them
// from a buffer of that length; text fields keep their bytes up to the first NUL.
namespace Wv2 {
enum TagId : quint32 {
    SourceTag = 1,
    AnalogChannelTag = 2,
    DigitalChannelTag = 3,
    DataTag = 4,
    FormatTag = 5,
    LineTag = 6,
    EmergencyTag = 8,
};
constexpr int fileHeaderLength = 39;
constexpr int tagHeaderLength = 8;
} // namespace Wv2

struct KORVANE_EXPORT WAVE_HEADER
{
    static constexpr int length = Wv2::fileHeaderLength;
    QByteArray bytes;
    double sampleRate = 0.0;
    qint32 startTime = 0;
    double fraction = 0.0;

    static WAVE_HEADER decode(const char* data);
};

struct KORVANE_EXPORT WAVE_TAG
{
    static constexpr int length = Wv2::tagHeaderLength;
    quint32 id = 0;
    quint32 size = 0;

    static WAVE_TAG decode(const char* data);
    // What follows the fixed part of a body; negative for a tag that claims less than that.
    qint64 restAfter(int bodyLength) const { return qint64(size) - length - bodyLength; }
};

struct KORVANE_EXPORT WAVE_TAGSOURCE
{
    static constexpr int bodyLength = 74;
    quint16 orderNum = 0;
    QByteArray id;
    QByteArray name;

    static WAVE_TAGSOURCE decode(const char* body);
};

struct KORVANE_EXPORT WAVE_TAGFORMAT
{
    static constexpr int bodyLength = 4;
    // Kept as the device writes it; the data reader takes it as signed.
    quint16 frameSize = 0;

    static WAVE_TAGFORMAT decode(const char* body);
};

struct KORVANE_EXPORT WAVE_TAGACHANNEL
{
    static constexpr int bodyLength = 152;
    qint16 physNum = 0;
    quint16 lineBitMask = 0;
    qint16 normalState = 0;
    QByteArray shortName;
    QByteArray fullName;
    qint16 offset = 0;
    quint32 mask = 0;
    qint16 phaseNumber = 0;
    qint16 typeCode = 0;
    UNIT_TYPE unit;
    double multiplier = 0.0;
    // In raw units, before the multiplier.
    double valueOffset = 0.0;
    double adcDelay = 0.0;
    double primary = 0.0;
    double secondary = 0.0;

    static WAVE_TAGACHANNEL decode(const char* body);
};

struct KORVANE_EXPORT WAVE_TAGDCHANNEL
{
    static constexpr int bodyLength = 63;
    qint16 physNum = 0;
    quint16 normalState = 0;
    QByteArray shortName;
    QByteArray fullName;
    qint16 offset = 0;
    qint8 mask = 0;

    static WAVE_TAGDCHANNEL decode(const char* body);
};

struct KORVANE_EXPORT WAVE_TAGLINE
{
    static constexpr int bodyLength = 94;
    quint16 id = 0;
    QByteArray name;
    double voltage = 0.0;
    UNIT_TYPE scale;

    static WAVE_TAGLINE decode(const char* body);
};

// The header of a data block, behind its WAVE_TAG; the frames follow it.
struct KORVANE_EXPORT WAVE_DATAHEADER
{
    static constexpr int bodyLength = 10;
    quint16 type = 0;
    quint32 frameCount = 0;

    static WAVE_DATAHEADER decode(const char* body);
    bool isBeforeFailure() const { return type == 1; }
};

// An emergency tag: its 16 fixed bytes and the reason text that fills the rest of the tag.
struct KORVANE_EXPORT EmergenciesData
{
    static constexpr int bodyLength = 16;
    quint32 blockNumber = 0;
    qint16 physNum = 0;
    qint16 lineId = 0;
    QByteArray reason;

    static EmergenciesData decode(const char* body);
};
