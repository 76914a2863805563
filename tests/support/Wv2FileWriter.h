#pragma once

#include <QByteArray>
#include <QList>
#include <QtGlobal>

namespace KorvaneTest {

// Fields of one analogue channel tag (id 2), with the values a plain 16-bit channel would have.
struct Wv2AnalogLayout
{
    qint16 physNum = 1;
    quint16 lineBitMask = 0;
    qint16 normalState = 0;
    QByteArray shortName;
    QByteArray fullName;
    qint16 offset = 0;
    quint32 mask = 0xFFFF;
    qint16 phaseNumber = 0;
    qint16 typeCode = 0;
    quint16 unit = 0;
    qint16 power = 0;
    double multiplier = 1.0;
    double valueOffset = 0.0;
    double adcDelay = 0.0;
    double primary = 1.0;
    double secondary = 1.0;
};

// Fields of one digital channel tag (id 3).
struct Wv2DigitalLayout
{
    qint16 physNum = 1;
    quint16 normalState = 0;
    QByteArray shortName;
    QByteArray fullName;
    qint16 offset = 0;
    quint8 mask = 1;
};

// Fields of one line tag (id 6).
struct Wv2LineLayout
{
    quint16 id = 1;
    QByteArray name;
    double voltage = 0.0;
    qint16 scale = 3;
};

// One frame of a data block: words and bytes at byte offsets, zeros elsewhere.
class Wv2Frame
{
public:
    explicit Wv2Frame(int frameSize) : m_bytes(frameSize, '\0') { }
    Wv2Frame& word(int offset, quint16 value);
    Wv2Frame& byte(int offset, quint8 value);
    const QByteArray& bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

// Writes .wv2 files byte by byte: a 39-byte file header, then tags in the order of the calls.
// Every tag may carry extra bytes beyond its known length; tag() writes any id with any size.
class Wv2FileWriter
{
public:
    explicit Wv2FileWriter(double sampleRate = 1000.0, qint32 startTime = 0, double fraction = 0.0);

    Wv2FileWriter& source(quint16 orderNum, const QByteArray& id, const QByteArray& name, int extra = 0);
    Wv2FileWriter& format(quint16 frameSize, int extra = 0);
    Wv2FileWriter& analog(const Wv2AnalogLayout& layout, int extra = 0);
    Wv2FileWriter& digital(const Wv2DigitalLayout& layout, int extra = 0);
    Wv2FileWriter& line(const Wv2LineLayout& layout, int extra = 0);
    // The tag is 24 bytes and the reason; a NUL ends the reason when terminate is set.
    Wv2FileWriter& emergency(
        quint32 blockNumber, qint16 physNum, qint16 lineId, const QByteArray& reason, bool terminate = true);
    // A data block whose frame count is the number of frames given.
    Wv2FileWriter& data(quint16 type, const QList<Wv2Frame>& frames);
    // A data block with any frame count and any bytes for its frames.
    Wv2FileWriter& data(quint16 type, quint32 frameCount, const QByteArray& frameBytes);
    // Any tag: its id, the size it declares and the bytes that follow its 8-byte head.
    Wv2FileWriter& tag(quint32 id, quint32 declaredSize, const QByteArray& body);
    Wv2FileWriter& raw(const QByteArray& bytes);

    static QByteArray sourceBody(quint16 orderNum, const QByteArray& id, const QByteArray& name);
    static QByteArray formatBody(quint16 frameSize);
    static QByteArray analogBody(const Wv2AnalogLayout& layout);
    static QByteArray digitalBody(const Wv2DigitalLayout& layout);
    static QByteArray lineBody(const Wv2LineLayout& layout);

    const QByteArray& bytes() const { return m_bytes; }

private:
    Wv2FileWriter& fixedTag(quint32 id, const QByteArray& body, int extra);

    QByteArray m_bytes;
};

} // namespace KorvaneTest
