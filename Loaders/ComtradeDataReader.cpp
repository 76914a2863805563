// The .dat half of the COMTRADE loader: the four storage forms into the sample store.

#include "Loaders/ComtradeLoader.h"
#include "Loaders/CsvParser.h"
#include "Model/CheckedSize.h"

#include <QFile>
#include <QTextStream>
#include <QtEndian>

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

namespace {
// Whole records are read in blocks of about this many bytes, so that memory holds the store and
// one block, never the whole file.
constexpr qint64 blockBytes = 1 << 20;

// Reads little-endian values of one record; a cut last record is padded with zeros before, as a
// stream that has run dry reads zeros, so it still counts as a sample.
class RecordCursor
{
public:
    explicit RecordCursor(const uchar* bytes) : m_bytes(bytes) { }

    template<typename T> T read()
    {
        const T value = qFromLittleEndian<T>(m_bytes);
        m_bytes += sizeof(T);
        return value;
    }

private:
    const uchar* m_bytes;
};

// Appends one record's values; the vector was reserved, so this never reallocates, and only the
// new row is written, not the whole reserve beforehand.
template<typename T> void readAnalogValues(RecordCursor& cursor, QVector<T>& values, int channels)
{
    const int rowStart = values.size();
    values.resize(rowStart + channels);
    T* row = values.data() + rowStart;
    for (int c = 0; c < channels; ++c)
        row[c] = cursor.read<T>();
}

template<> void readAnalogValues<float>(RecordCursor& cursor, QVector<float>& values, int channels)
{
    const int rowStart = values.size();
    values.resize(rowStart + channels);
    float* row = values.data() + rowStart;
    for (int c = 0; c < channels; ++c) {
        const quint32 bits = cursor.read<quint32>();
        std::memcpy(&row[c], &bits, sizeof bits);
    }
}

// The digital values of all records one after the other, as the store keeps them: bit after bit,
// the lowest first in each byte. Gathered in bytes and handed to the store at the end, since
// setting bits one by one in the store's own array costs more than reading the record.
class BitCollector
{
public:
    void reserve(qint64 bits) { m_bytes.reserve(size_t((bits + 7) / 8)); }

    // The first count bits of the record's status words, the lowest bit of each word first.
    void appendWords(RecordCursor& cursor, int words, int count)
    {
        for (int w = 0; w < words; ++w) {
            const quint16 word = cursor.read<quint16>();
            const int taken = qMin(16, count - 16 * w);
            append(word & ((1u << taken) - 1), taken);
        }
    }

    QBitArray toBitArray()
    {
        if (m_pending > 0) {
            m_bytes.push_back(uchar(m_accumulator));
            m_accumulator = 0;
            m_pending = 0;
        }
        if (m_total == 0)
            return QBitArray();
        return QBitArray::fromBits(reinterpret_cast<const char*>(m_bytes.data()), qsizetype(m_total));
    }

private:
    void append(quint32 value, int bits)
    {
        m_accumulator |= quint64(value) << m_pending;
        m_pending += bits;
        m_total += bits;
        while (m_pending >= 8) {
            m_bytes.push_back(uchar(m_accumulator));
            m_accumulator >>= 8;
            m_pending -= 8;
        }
    }

    std::vector<uchar> m_bytes;
    quint64 m_accumulator = 0;
    int m_pending = 0;
    qint64 m_total = 0;
};

// Fills the buffer from the file as far as it goes; fewer bytes than asked only at the end.
qint64 readBlock(QFile& file, QByteArray& block, qint64 wanted)
{
    qint64 filled = 0;
    while (filled < wanted) {
        const qint64 got = file.read(block.data() + filled, wanted - filled);
        if (got <= 0)
            break;
        filled += got;
    }
    return filled;
}
} // namespace

void ComtradeLoader::failStoreTooLarge()
{
    throw new LoadFailureException(tr("Ошибка чтения, осциллограмма повреждена!"));
}

void ComtradeLoader::readDataFile(const QString& path)
{
    if (m_oscillogram->dataFormat().value() == ComtradeDataFormat::Ascii)
        readAsciiDataFile(path);
    else
        readBinaryDataFile(path);
}

void ComtradeLoader::readBinaryDataFile(const QString& path)
{
    const QString stage = tr("Чтение файла данных");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw new LoadFailureException(tr("Невозможно открыть файл с данными"));
    const int analogs = m_oscillogram->countOfAnalogChannels();
    const int digitals = m_oscillogram->countOfDigitalChannels();
    const int format = m_oscillogram->dataFormat().value();
    const int words = int(std::ceil(digitals * 0.0625));
    const qint64 recordSize
        = 2 * qint64(words) + (format == ComtradeDataFormat::Binary ? 2 : 4) * qint64(analogs) + 8;
    const qint64 size = file.size();
    // One record more than the whole ones, for a last record cut short.
    const qint64 records = size / recordSize + 1;
    // One record must fit the read buffer, and the count of records an int.
    if (recordSize > Korvane::largestBlockBytes || records > std::numeric_limits<int>::max())
        failStoreTooLarge();
    const int estimate = int(records - 1);

    OscillogramDataBuilder builder;
    if (!builder.reserve(0, format == ComtradeDataFormat::Float32 ? analogs : 0,
            format == ComtradeDataFormat::Binary32 ? analogs : 0,
            format == ComtradeDataFormat::Binary ? analogs : 0, digitals, estimate + 1))
        failStoreTooLarge();
    const bool eventTriggered = m_oscillogram->isEventTriggeredOsc();
    if (eventTriggered)
        m_oscillogram->timeStamps().reserve(estimate + 1);
    const qint64 recordsPerBlock = qMax<qint64>(1, blockBytes / recordSize);
    QByteArray block(int(recordsPerBlock * recordSize), Qt::Uninitialized);
    QByteArray padded(int(recordSize), Qt::Uninitialized);
    BitCollector digitalBits;
    digitalBits.reserve(qint64(digitals) * (estimate + 1));
    int count = 0;
    qint64 blockStart = 0;
    while (blockStart < size) {
        // Never past the size the store was reserved for, should the file grow meanwhile.
        const qint64 filled = readBlock(file, block, qMin<qint64>(block.size(), size - blockStart));
        if (filled <= 0)
            break;
        for (qint64 offset = 0; offset < filled; offset += recordSize) {
            updateProgress(stage, double(blockStart + offset) / size);
            checkCancelled();
            const uchar* record = reinterpret_cast<const uchar*>(block.constData()) + offset;
            if (offset + recordSize > filled) {
                padded.fill(0);
                std::memcpy(padded.data(), record, size_t(filled - offset));
                record = reinterpret_cast<const uchar*>(padded.constData());
            }
            RecordCursor cursor(record);
            cursor.read<qint32>();
            const quint32 stamp = cursor.read<quint32>();
            if (eventTriggered)
                m_oscillogram->timeStamps().append(static_cast<long long>(stamp));
            if (format == ComtradeDataFormat::Binary)
                readAnalogValues(cursor, builder.int16AnalogValues(), analogs);
            else if (format == ComtradeDataFormat::Binary32)
                readAnalogValues(cursor, builder.int32AnalogValues(), analogs);
            else
                readAnalogValues(cursor, builder.floatAnalogValues(), analogs);
            digitalBits.appendWords(cursor, words, digitals);
            ++count;
        }
        blockStart += filled;
    }
    builder.digitalValues() = digitalBits.toBitArray();
    attachStore(builder, count);
}

void ComtradeLoader::attachStore(OscillogramDataBuilder& builder, int samples)
{
    const int analogs = m_oscillogram->countOfAnalogChannels();
    const qint64 values = qint64(samples) * analogs;
    builder.int16AnalogValues().resize(int(qMin<qint64>(builder.int16AnalogValues().size(), values)));
    builder.int32AnalogValues().resize(int(qMin<qint64>(builder.int32AnalogValues().size(), values)));
    builder.floatAnalogValues().resize(int(qMin<qint64>(builder.floatAnalogValues().size(), values)));
    // The store was reserved for these bits, so the product fits.
    builder.digitalValues().resize(int(qint64(samples) * m_oscillogram->countOfDigitalChannels()));
    builder.setCountOfSamples(samples);
    m_oscillogram->setCountOfSamples(samples);
    const QSharedPointer<OscillogramData> data = builder.build();
    m_oscillogram->setData(data);
    for (int i = 0; i < m_oscillogram->countOfAnalogChannels(); ++i)
        m_oscillogram->analogChannel(i)->setData(data);
    for (int i = 0; i < m_oscillogram->countOfDigitalChannels(); ++i)
        m_oscillogram->digitalChannel(i)->setData(data);
}
