// The .dat half of the COMTRADE loader: the four storage forms into the sample store.

#include "Loaders/ComtradeLoader.h"
#include "Loaders/CsvParser.h"

#include <QFile>
#include <QTextStream>
#include <QtEndian>

#include <cmath>
#include <cstring>

namespace {
// Reads little-endian values from a block in memory; reading past the end gives zeros, as a
// stream that has run dry does, so a cut last record still counts with zeros in it.
class RecordCursor
{
public:
    RecordCursor(const uchar* bytes, qint64 size) : m_bytes(bytes), m_size(size) { }
    bool atEnd() const { return m_position >= m_size; }
    qint64 position() const { return m_position; }

    template<typename T> T read()
    {
        T value = 0;
        if (m_position + qint64(sizeof(T)) <= m_size) {
            value = qFromLittleEndian<T>(m_bytes + m_position);
        } else if (m_position < m_size) {
            uchar padded[sizeof(T)] = {};
            std::memcpy(padded, m_bytes + m_position, size_t(m_size - m_position));
            value = qFromLittleEndian<T>(padded);
        }
        m_position += sizeof(T);
        return value;
    }

private:
    const uchar* m_bytes;
    qint64 m_size;
    qint64 m_position = 0;
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
    if (!file.open(QIODevice::ReadOnly))
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

    const uchar* bytes = size > 0 ? file.map(0, size) : nullptr;
    const QByteArray fallback = (size > 0 && !bytes) ? file.readAll() : QByteArray();
    RecordCursor cursor(bytes ? bytes : reinterpret_cast<const uchar*>(fallback.constData()), size);
    int count = 0;
    while (!cursor.atEnd()) {
        updateProgress(stage, double(cursor.position()) / size);
        checkCancelled();
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
    attachStore(builder, count);
}

void ComtradeLoader::readAsciiDataFile(const QString& path)
{
    const QString stage = tr("Чтение файла данных");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        throw new LoadFailureException(QStringLiteral("UnableOpenFileException"));
    int estimate = 0;
    {
        QFile counter(path);
        if (counter.open(QIODevice::ReadOnly)) {
            while (!counter.atEnd()) {
                counter.readLine();
                ++estimate;
            }
        }
    }
    const int analogs = m_oscillogram->countOfAnalogChannels();
    const int digitals = m_oscillogram->countOfDigitalChannels();
    OscillogramDataBuilder builder;
    builder.reserve(analogs, 0, 0, 0, digitals, estimate);
    const bool eventTriggered = m_oscillogram->isEventTriggeredOsc();
    if (eventTriggered)
        m_oscillogram->timeStamps().reserve(estimate);

    const qint64 size = file.size();
    QTextStream stream(&file);
    CsvParser parser(stream);
    QVector<double>& values = builder.doubleAnalogValues();
    QBitArray& bits = builder.digitalValues();
    int count = 0;
    while (!parser.atEnd()) {
        updateProgress(stage, double(stream.pos()) / size);
        checkCancelled();
        parser.readLine(ComtradeCFGFields::ChannelOrData);
        // The old end-of-file mark ends the data.
        if (parser.checkSubCharacter())
            break;
        parser.getInt();
        const long long stamp = parser.getInt();
        if (eventTriggered)
            m_oscillogram->timeStamps().append(stamp);
        for (int c = 0; c < analogs; ++c)
            values.append(parser.getDouble());
        const qint64 rowStart = qint64(count) * digitals;
        if (bits.size() < rowStart + digitals)
            bits.resize(int(rowStart + digitals));
        for (int c = 0; c < digitals; ++c)
            bits.setBit(int(rowStart + c), parser.getBool(QStringLiteral("1"), QStringLiteral("0")));
        ++count;
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
