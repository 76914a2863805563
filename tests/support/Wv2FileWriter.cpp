#include "Wv2FileWriter.h"

#include "ByteWriter.h"

namespace KorvaneTest {

Wv2Frame& Wv2Frame::word(int offset, quint16 value)
{
    qToLittleEndian<quint16>(value, m_bytes.data() + offset);
    return *this;
}

Wv2Frame& Wv2Frame::byte(int offset, quint8 value)
{
    m_bytes[offset] = char(value);
    return *this;
}

Wv2FileWriter::Wv2FileWriter(double sampleRate, qint32 startTime, double fraction)
{
    // 17 bytes the reader does not interpret, rate, time, fraction, 2 more such bytes.
    m_bytes = ByteWriter()
                  .bytes(QByteArray(17, 'x'))
                  .real(sampleRate)
                  .number<qint32>(startTime)
                  .real(fraction)
                  .bytes("yy")
                  .result();
}

Wv2FileWriter& Wv2FileWriter::tag(quint32 id, quint32 declaredSize, const QByteArray& body)
{
    m_bytes.append(ByteWriter().number<quint32>(id).number<quint32>(declaredSize).bytes(body).result());
    return *this;
}

Wv2FileWriter& Wv2FileWriter::raw(const QByteArray& bytes)
{
    m_bytes.append(bytes);
    return *this;
}

Wv2FileWriter& Wv2FileWriter::fixedTag(quint32 id, const QByteArray& body, int extra)
{
    const QByteArray padded = body + QByteArray(extra, 'e');
    return tag(id, quint32(8 + padded.size()), padded);
}

QByteArray Wv2FileWriter::sourceBody(quint16 orderNum, const QByteArray& id, const QByteArray& name)
{
    return ByteWriter().number<quint16>(orderNum).text(id, 8).text(name, 64).result();
}

QByteArray Wv2FileWriter::formatBody(quint16 frameSize)
{
    return ByteWriter().number<quint16>(0x5A5A).number<quint16>(frameSize).result();
}

QByteArray Wv2FileWriter::analogBody(const Wv2AnalogLayout& layout)
{
    return ByteWriter()
        .number<qint16>(layout.physNum) // 8
        .number<quint16>(layout.lineBitMask) // 10
        .number<quint16>(0xA5A5) // 12, reserved
        .number<qint16>(layout.normalState) // 14
        .text(layout.shortName, 16) // 16
        .text(layout.fullName, 32) // 32
        .number<qint16>(layout.offset) // 64
        .number<quint32>(layout.mask) // 66
        .number<qint16>(layout.phaseNumber) // 70
        .number<qint16>(layout.typeCode) // 72
        .number<quint16>(layout.unit) // 74
        .number<qint16>(layout.power) // 76
        .zeros(2) // 78
        .real(layout.multiplier) // 80
        .real(layout.valueOffset) // 88
        .bytes(QByteArray(40, 'r')) // 96, reserved
        .real(layout.adcDelay) // 136
        .real(layout.primary) // 144
        .real(layout.secondary) // 152
        .result();
}

QByteArray Wv2FileWriter::digitalBody(const Wv2DigitalLayout& layout)
{
    return ByteWriter()
        .number<qint16>(layout.physNum) // 8
        .number<quint32>(0xA5A5A5A5) // 10, reserved
        .number<quint16>(layout.normalState) // 14
        .text(layout.shortName, 16) // 16
        .text(layout.fullName, 32) // 32
        .number<qint16>(layout.offset) // 64
        .number<quint8>(layout.mask) // 66
        .zeros(4) // 67, reserved
        .result();
}

QByteArray Wv2FileWriter::lineBody(const Wv2LineLayout& layout)
{
    return ByteWriter()
        .number<quint16>(layout.id) // 8
        .text(layout.name, 62) // 10
        .bytes(QByteArray(18, 'r')) // 72, reserved
        .real(layout.voltage) // 90
        .number<quint16>(7) // 98, a unit the reader ignores
        .number<qint16>(layout.scale) // 100
        .result();
}

Wv2FileWriter& Wv2FileWriter::source(
    quint16 orderNum, const QByteArray& id, const QByteArray& name, int extra)
{
    return fixedTag(1, sourceBody(orderNum, id, name), extra);
}

Wv2FileWriter& Wv2FileWriter::format(quint16 frameSize, int extra)
{
    return fixedTag(5, formatBody(frameSize), extra);
}

Wv2FileWriter& Wv2FileWriter::analog(const Wv2AnalogLayout& layout, int extra)
{
    return fixedTag(2, analogBody(layout), extra);
}

Wv2FileWriter& Wv2FileWriter::digital(const Wv2DigitalLayout& layout, int extra)
{
    return fixedTag(3, digitalBody(layout), extra);
}

Wv2FileWriter& Wv2FileWriter::line(const Wv2LineLayout& layout, int extra)
{
    return fixedTag(6, lineBody(layout), extra);
}

Wv2FileWriter& Wv2FileWriter::emergency(
    quint32 blockNumber, qint16 physNum, qint16 lineId, const QByteArray& reason, bool terminate)
{
    const QByteArray body = ByteWriter()
                                .number<quint32>(blockNumber) // 8
                                .number<quint32>(0xA5A5A5A5) // 12, reserved
                                .number<quint16>(0xA5A5) // 16, reserved
                                .number<qint16>(physNum) // 18
                                .number<qint16>(lineId) // 20
                                .zeros(2) // 22, reserved
                                .bytes(reason) // 24
                                .zeros(terminate ? 1 : 0)
                                .result();
    return fixedTag(8, body, 0);
}

Wv2FileWriter& Wv2FileWriter::data(quint16 type, const QList<Wv2Frame>& frames)
{
    QByteArray frameBytes;
    for (const Wv2Frame& frame : frames)
        frameBytes.append(frame.bytes());
    return data(type, quint32(frames.size()), frameBytes);
}

Wv2FileWriter& Wv2FileWriter::data(quint16 type, quint32 frameCount, const QByteArray& frameBytes)
{
    const QByteArray body = ByteWriter()
                                .number<quint16>(0x1111) // not interpreted
                                .number<quint16>(type)
                                .number<quint16>(0x2222) // not interpreted
                                .number<quint32>(frameCount)
                                .bytes(frameBytes)
                                .result();
    return fixedTag(4, body, 0);
}

} // namespace KorvaneTest
