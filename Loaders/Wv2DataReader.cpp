#include "Wv2DataReader.h"

#include "Model/CheckedSize.h"
#include "Model/Exception.h"

#include <QBitArray>
#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <limits>

namespace {
// These texts name the place of the failure for whoever reads a bug report; they are not
// translated.
[[noreturn]] void failWithCode(const char* code)
{
    throw new LoadFailureException(QStringLiteral("Ошибка чтения (%1)").arg(QLatin1String(code)));
}

[[noreturn]] void failWithCounts(const char* code, qint64 wanted, qint64 got)
{
    throw new LoadFailureException(
        QStringLiteral("Ошибка чтения (%1) / %2 / %3").arg(QLatin1String(code)).arg(wanted).arg(got));
}

// A value of a frame that would lie outside its block reads as 0, as reads beyond a store do.
inline quint16 wordAt(const char* block, qint64 blockSize, qint64 position)
{
    if (position < 0 || position + 2 > blockSize)
        return 0;
    return qFromLittleEndian<quint16>(block + position);
}

inline quint8 byteAt(const char* block, qint64 blockSize, qint64 position)
{
    if (position < 0 || position >= blockSize)
        return 0;
    return quint8(block[position]);
}
} // namespace

Wv2DataReader::Wv2DataReader(QIODevice* device, QSharedPointer<const Wv2MetaData> metaData)
    : m_device(device)
    , m_metaData(std::move(metaData))
    // The device writes the frame size unsigned, but it is taken as signed 16 bits.
    , m_frameSize(qint16(m_metaData->format.frameSize))
    , m_totalFrames(m_metaData->totalFrames)
{
    for (const WAVE_TAGACHANNEL& channel : m_metaData->analogChannels)
        m_analogPlaces.push_back({ channel.offset, quint16(channel.mask) });
    for (const WAVE_TAGDCHANNEL& channel : m_metaData->digitalChannels)
        m_digitalPlaces.push_back({ channel.offset, quint8(channel.mask) });
    const auto within = [this](const std::vector<ValuePlace>& places, int width) {
        return std::all_of(places.begin(), places.end(), [this, width](const ValuePlace& place) {
            return place.offset >= 0 && place.offset + width <= m_frameSize;
        });
    };
    m_placesWithinFrame = within(m_analogPlaces, 2) && within(m_digitalPlaces, 1);
}

QSharedPointer<OscillogramData> Wv2DataReader::read()
{
    // The header is passed over first: a file cut shorter than it between the two passes fails
    // with the message of this step, before any count of the first pass is believed.
    if (m_device->skip(WAVE_HEADER::length) != WAVE_HEADER::length)
        failWithCode("0x04");
    consumed(WAVE_HEADER::length);
    checkStoreFitsTheFile();
    const int analogs = int(m_analogPlaces.size());
    const int digitals = int(m_digitalPlaces.size());
    if (!m_builder.reserve(0, 0, 0, analogs, digitals, int(m_totalFrames)))
        failDamaged();
    m_bits = QByteArray(int((qint64(digitals) * m_totalFrames + 7) / 8), '\0');

    while (!m_device->atEnd())
        readTag();

    m_builder.digitalValues()
        = QBitArray::fromBits(m_bits.constData(), int(qint64(digitals) * m_totalFrames));
    return m_builder.build();
}

// The store is reserved for all frames at once, so frames that could not be in the file must
// not be believed before that, nor a store larger than the file can fill: channels whose
// offsets lie outside the frame are accepted, and each of them costs a value per frame.
void Wv2DataReader::checkStoreFitsTheFile() const
{
    if (m_totalFrames == 0)
        return;
    const qint64 fileBytes = m_device->size();
    if (m_totalFrames > std::numeric_limits<int>::max() || m_frameSize <= 0
        || Korvane::checkedProduct(m_totalFrames, m_frameSize, fileBytes) < 0)
        failDamaged();
    constexpr qint64 limit = Korvane::largestBlockBytes;
    const qint64 analogBytes
        = Korvane::checkedProduct(qint64(m_analogPlaces.size()) * 2, m_totalFrames, limit);
    const qint64 digitalBits = Korvane::checkedProduct(
        qint64(m_digitalPlaces.size()), m_totalFrames, std::numeric_limits<int>::max());
    if (analogBytes < 0 || digitalBits < 0
        || !Korvane::storeFitsFile(analogBytes + digitalBits / 8, fileBytes))
        failDamaged();
}

void Wv2DataReader::readTag()
{
    const QByteArray header = m_device->read(WAVE_TAG::length);
    if (header.size() != WAVE_TAG::length)
        failWithCode("0x01");
    consumed(WAVE_TAG::length);
    const WAVE_TAG tag = WAVE_TAG::decode(header.constData());
    if (tag.id == Wv2::DataTag)
        decodeBlock(tag);
    else
        skipBytes(tag.restAfter(0));
}

void Wv2DataReader::failDamaged()
{
    throw new LoadFailureException(tr("Ошибка чтения, осциллограмма повреждена!"));
}

void Wv2DataReader::decodeBlock(const WAVE_TAG& tag)
{
    const QByteArray header = readBytes(WAVE_DATAHEADER::bodyLength, "0x05");
    const WAVE_DATAHEADER blockHeader = WAVE_DATAHEADER::decode(header.constData());
    // One block at a time: its buffer is freed as soon as its frames are in the store.
    const QByteArray frames = readBytes(tag.restAfter(WAVE_DATAHEADER::bodyLength), "0x06");
    if (qint64(blockHeader.frameCount) * m_frameSize > frames.size()
        || m_framesRead + blockHeader.frameCount > m_totalFrames)
        failDamaged();
    decodeFrames(frames, blockHeader.frameCount);
}

void Wv2DataReader::decodeFrames(const QByteArray& frames, quint32 frameCount)
{
    // Frames whose every value lies within the frame itself need no check of the block's bounds,
    // since the block was found to hold all its frames.
    if (m_placesWithinFrame)
        decodeFrames<false>(frames, frameCount);
    else
        decodeFrames<true>(frames, frameCount);
    m_framesRead += frameCount;
}

template<bool CheckBounds> void Wv2DataReader::decodeFrames(const QByteArray& frames, quint32 frameCount)
{
    const char* block = frames.constData();
    const qint64 blockSize = frames.size();
    const size_t analogs = m_analogPlaces.size();
    const qint64 digitals = qint64(m_digitalPlaces.size());

    QVector<short>& values = m_builder.int16AnalogValues();
    const int first = values.size();
    // The store was reserved for every frame, so growing it here does not reallocate.
    values.resize(int(first + qint64(frameCount) * qint64(analogs)));
    short* out = values.data() + first;
    auto* bits = reinterpret_cast<quint8*>(m_bits.data());

    for (quint32 frame = 0; frame < frameCount; ++frame) {
        const qint64 base = qint64(frame) * m_frameSize;
        for (const ValuePlace& place : m_analogPlaces) {
            const qint64 position = base + place.offset;
            const quint16 word = CheckBounds ? wordAt(block, blockSize, position)
                                             : qFromLittleEndian<quint16>(block + position);
            *out++ = short(word & place.mask);
        }
        qint64 bit = (m_framesRead + frame) * digitals;
        for (const ValuePlace& place : m_digitalPlaces) {
            const qint64 position = base + place.offset;
            const quint8 byte = CheckBounds ? byteAt(block, blockSize, position) : quint8(block[position]);
            // Without a branch: discrete values change at random, and mispredictions would cost
            // more than the rest of the loop.
            bits[bit >> 3] |= quint8(unsigned((byte & place.mask) != 0) << (bit & 7));
            ++bit;
        }
    }
}

QByteArray Wv2DataReader::readBytes(qint64 count, const char* code)
{
    if (count < 0 || count > m_device->size() - m_device->pos())
        failWithCounts(code, count, qMax<qint64>(0, m_device->size() - m_device->pos()));
    const QByteArray bytes = m_device->read(count);
    if (bytes.size() != count)
        failWithCounts(code, count, bytes.size());
    consumed(count);
    return bytes;
}

void Wv2DataReader::skipBytes(qint64 count)
{
    const qint64 skipped = count < 0 ? 0 : m_device->skip(count);
    if (skipped != count)
        failWithCounts("0x07", count, skipped);
    consumed(count);
}

void Wv2DataReader::consumed(qint64 count)
{
    m_position += count;
    if (m_progress)
        m_progress(m_position);
}
