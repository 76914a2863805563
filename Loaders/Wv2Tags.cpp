#include "Wv2Tags.h"

#include <QtEndian>

#include <cstring>

namespace {
// Reads little-endian fields of a buffer. Tag bodies are read with the offsets of the format,
// which count from the start of the tag, WAVE_TAG included: their reader is shifted by 8.
class FieldReader
{
public:
    FieldReader(const char* data, int shift = 0) : m_data(data), m_shift(shift) { }

    template<typename T> T number(int offset) const { return qFromLittleEndian<T>(at(offset)); }

    double real(int offset) const
    {
        const quint64 bits = number<quint64>(offset);
        double value;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

    QByteArray text(int offset, int width) const
    {
        const char* field = at(offset);
        return QByteArray(field, int(qstrnlen(field, uint(width))));
    }

private:
    const char* at(int offset) const { return m_data + (offset - m_shift); }

    const char* m_data;
    int m_shift;
};

FieldReader tagBody(const char* body)
{
    return FieldReader(body, Wv2::tagHeaderLength);
}
} // namespace

WAVE_HEADER WAVE_HEADER::decode(const char* data)
{
    const FieldReader fields(data);
    WAVE_HEADER header;
    header.bytes = QByteArray(data, length);
    header.sampleRate = fields.real(17);
    header.startTime = fields.number<qint32>(25);
    header.fraction = fields.real(29);
    return header;
}

WAVE_TAG WAVE_TAG::decode(const char* data)
{
    const FieldReader fields(data);
    return { fields.number<quint32>(0), fields.number<quint32>(4) };
}

WAVE_TAGSOURCE WAVE_TAGSOURCE::decode(const char* body)
{
    const FieldReader tag = tagBody(body);
    WAVE_TAGSOURCE source;
    source.orderNum = tag.number<quint16>(8);
    source.id = tag.text(10, 8);
    source.name = tag.text(18, 64);
    return source;
}

WAVE_TAGFORMAT WAVE_TAGFORMAT::decode(const char* body)
{
    WAVE_TAGFORMAT format;
    format.frameSize = tagBody(body).number<quint16>(10);
    return format;
}

WAVE_TAGACHANNEL WAVE_TAGACHANNEL::decode(const char* body)
{
    const FieldReader tag = tagBody(body);
    WAVE_TAGACHANNEL channel;
    channel.physNum = tag.number<qint16>(8);
    channel.lineBitMask = tag.number<quint16>(10);
    channel.normalState = tag.number<qint16>(14);
    channel.shortName = tag.text(16, 16);
    channel.fullName = tag.text(32, 32);
    channel.offset = tag.number<qint16>(64);
    channel.mask = tag.number<quint32>(66);
    channel.phaseNumber = tag.number<qint16>(70);
    channel.typeCode = tag.number<qint16>(72);
    channel.unit = UNIT_TYPE::fromRaw(tag.number<quint32>(74));
    channel.multiplier = tag.real(80);
    channel.valueOffset = tag.real(88);
    channel.adcDelay = tag.real(136);
    channel.primary = tag.real(144);
    channel.secondary = tag.real(152);
    return channel;
}

WAVE_TAGDCHANNEL WAVE_TAGDCHANNEL::decode(const char* body)
{
    const FieldReader tag = tagBody(body);
    WAVE_TAGDCHANNEL channel;
    channel.physNum = tag.number<qint16>(8);
    channel.normalState = tag.number<quint16>(14);
    channel.shortName = tag.text(16, 16);
    channel.fullName = tag.text(32, 32);
    channel.offset = tag.number<qint16>(64);
    channel.mask = tag.number<qint8>(66);
    return channel;
}

WAVE_TAGLINE WAVE_TAGLINE::decode(const char* body)
{
    const FieldReader tag = tagBody(body);
    WAVE_TAGLINE line;
    line.id = tag.number<quint16>(8);
    line.name = tag.text(10, 62);
    line.voltage = tag.real(90);
    line.scale = UNIT_TYPE::fromRaw(tag.number<quint32>(98));
    return line;
}

WAVE_DATAHEADER WAVE_DATAHEADER::decode(const char* body)
{
    const FieldReader fields(body);
    WAVE_DATAHEADER header;
    header.type = fields.number<quint16>(2);
    header.frameCount = fields.number<quint32>(6);
    return header;
}

EmergenciesData EmergenciesData::decode(const char* body)
{
    const FieldReader tag = tagBody(body);
    EmergenciesData emergency;
    emergency.blockNumber = tag.number<quint32>(8);
    emergency.physNum = tag.number<qint16>(18);
    emergency.lineId = tag.number<qint16>(20);
    return emergency;
}
