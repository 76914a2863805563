// The .dat half of the COMTRADE loader: the four storage forms into the sample store.

#include "Loaders/ComtradeLoader.h"
#include "Loaders/CsvParser.h"

#include <QFile>
#include <QTextStream>
#include <QtEndian>

#include <cmath>
#include <cstring>

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

template<typename T> void readAnalogValues(RecordCursor& cursor, QVector<T>& values, int sample, int channels)
{
    T* row = values.data() + qint64(sample) * channels;
    for (int c = 0; c < channels; ++c)
        row[c] = cursor.read<T>();
}

template<>
void readAnalogValues<float>(RecordCursor& cursor, QVector<float>& values, int sample, int channels)
{
    float* row = values.data() + qint64(sample) * channels;
    for (int c = 0; c < channels; ++c) {
        const quint32 bits = cursor.read<quint32>();
        std::memcpy(&row[c], &bits, sizeof bits);
    }
}

void readDigitalWords(RecordCursor& cursor, QBitArray& bits, int sample, int channels, int words)
{
    int channel = 0;
    const qint64 rowStart = qint64(sample) * channels;
    for (int w = 0; w < words; ++w) {
        const quint16 word = cursor.read<quint16>();
        for (int bit = 0; bit < 16 && channel < channels; ++bit, ++channel)
            bits.setBit(int(rowStart + channel), (word >> bit) & 1);
    }
}

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
    const qint64 recordSize = 2 * words + (format == ComtradeDataFormat::Binary ? 2 : 4) * analogs + 8;
    const qint64 size = file.size();
    const int estimate = int(size / recordSize);

    OscillogramDataBuilder builder;
    builder.reserve(0, format == ComtradeDataFormat::Float32 ? analogs : 0,
        format == ComtradeDataFormat::Binary32 ? analogs : 0,
        format == ComtradeDataFormat::Binary ? analogs : 0, digitals, estimate + 1);
    const bool eventTriggered = m_oscillogram->isEventTriggeredOsc();
    if (eventTriggered)
        m_oscillogram->timeStamps().reserve(estimate + 1);
    // Filled in place up to the estimate, which a cut last record may pass by one.
    builder.int16AnalogValues().resize(format == ComtradeDataFormat::Binary ? analogs * (estimate + 1) : 0);
    builder.int32AnalogValues().resize(format == ComtradeDataFormat::Binary32 ? analogs * (estimate + 1) : 0);
    builder.floatAnalogValues().resize(format == ComtradeDataFormat::Float32 ? analogs * (estimate + 1) : 0);

    const qint64 recordsPerBlock = qMax<qint64>(1, blockBytes / recordSize);
    QByteArray block(int(recordsPerBlock * recordSize), Qt::Uninitialized);
    QByteArray padded(int(recordSize), Qt::Uninitialized);
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
                readAnalogValues(cursor, builder.int16AnalogValues(), count, analogs);
            else if (format == ComtradeDataFormat::Binary32)
                readAnalogValues(cursor, builder.int32AnalogValues(), count, analogs);
            else
                readAnalogValues(cursor, builder.floatAnalogValues(), count, analogs);
            readDigitalWords(cursor, builder.digitalValues(), count, digitals, words);
            ++count;
        }
        blockStart += filled;
    }
    attachStore(builder, count);
}

void ComtradeLoader::attachStore(OscillogramDataBuilder& builder, int samples)
{
    const int analogs = m_oscillogram->countOfAnalogChannels();
    builder.int16AnalogValues().resize(qMin(builder.int16AnalogValues().size(), samples * analogs));
    builder.int32AnalogValues().resize(qMin(builder.int32AnalogValues().size(), samples * analogs));
    builder.floatAnalogValues().resize(qMin(builder.floatAnalogValues().size(), samples * analogs));
    builder.digitalValues().resize(samples * m_oscillogram->countOfDigitalChannels());
    builder.setCountOfSamples(samples);
    m_oscillogram->setCountOfSamples(samples);
    const QSharedPointer<OscillogramData> data = builder.build();
    m_oscillogram->setData(data);
    for (int i = 0; i < m_oscillogram->countOfAnalogChannels(); ++i)
        m_oscillogram->analogChannel(i)->setData(data);
    for (int i = 0; i < m_oscillogram->countOfDigitalChannels(); ++i)
        m_oscillogram->digitalChannel(i)->setData(data);
}
