#include "ClcLoader.h"

#include "Model/OscillogramData.h"

#include <QFile>
#include <QTextCodec>
#include <QtEndian>

#include <cstring>
#include <limits>

namespace {
constexpr int headerLength = 278;
constexpr int channelRecordLength = 262;
constexpr int rowPrefixLength = 4;
constexpr int valuesPerChannel = 3;
constexpr int channelValuesLength = valuesPerChannel * int(sizeof(double));
const char signature[9] = { 'C', 'L', 'C', '_', '2', 0, 0, 0, 0 };
// No device writes more channels than a 16-bit number counts; a larger count is damage, and
// believing it would make millions of empty channels.
constexpr int maxChannels = 65535;
// Rows between two progress reports.
constexpr int rowsPerReport = 4096;

QString textAt(const char* data, int width, QTextDecoder& decoder)
{
    return decoder.toUnicode(data, int(qstrnlen(data, uint(width))));
}

[[noreturn]] void fail(const QString& text)
{
    throw new LoadFailureException(text);
}
} // namespace

struct ClcLoader::Header
{
    QByteArray bytes;
    const char* at(int offset) const { return bytes.constData() + offset; }
    qint32 channelCount() const { return qFromLittleEndian<qint32>(at(274)); }
};

ClcLoader::ClcLoader(const QString& file, QObject* parent) : OscillogramLoader(file, parent)
{
}

LoaderResult ClcLoader::work()
{
    m_oscillogram = QSharedPointer<ClcOscillogram>::create();
    m_oscillogram->setFilename(filename());
    QFile file(filename());
    if (!file.open(QIODevice::ReadOnly))
        fail(tr("Не удалось октрыть файл"));

    const Header header = readHeader(file);
    QTextCodec* codec = QTextCodec::codecForName("CP1251");
    QTextDecoder decoder(codec ? codec : QTextCodec::codecForLocale());
    m_oscillogram->setRegistrator(textAt(header.at(9), 128, decoder));
    m_oscillogram->setArcName(textAt(header.at(137), 128, decoder));
    m_oscillogram->setTime(qFromLittleEndian<qint32>(header.at(265)));
    m_oscillogram->setModdate(qFromLittleEndian<quint32>(header.at(269)));
    m_oscillogram->setIsLine(*header.at(273) != 0);

    const int channelCount = qBound(0, header.channelCount(), maxChannels);
    const qint64 rowLength = rowPrefixLength + qint64(channelCount) * channelValuesLength;
    const qint64 rowBytes = file.size() - headerLength - qint64(channelCount) * channelRecordLength;
    OscillogramDataBuilder builder;
    // Rows beyond what one block of the store holds would be a file of gigabytes: refused whole.
    const qint64 rows = qMax<qint64>(0, rowBytes / rowLength);
    if (rows > std::numeric_limits<int>::max()
        || !builder.reserve(valuesPerChannel * channelCount, 0, 0, 0, 0, int(rows)))
        fail(tr("Ошибка чтения, осциллограмма повреждена!"));

    const auto channels = readChannels(file, channelCount, decoder);
    m_oscillogram->setAnalogChannels(channels);

    builder.setCountOfSamples(readRows(file, channelCount, builder));
    const QSharedPointer<OscillogramData> data = builder.build();
    m_oscillogram->setData(data);
    for (const auto& channel : channels)
        channel->setData(data);

    LoaderResult result;
    result.oscillogram = m_oscillogram;
    return result;
}

ClcLoader::Header ClcLoader::readHeader(QFile& file)
{
    Header header { file.read(headerLength) };
    if (header.bytes.size() != headerLength)
        fail(tr("Не удалось прочитать заголовок файла"));
    if (std::memcmp(header.at(0), signature, sizeof signature) != 0)
        fail(tr("Ошибка чтения: файл не является файлом архивов"));
    return header;
}

QList<QSharedPointer<ClcAnalogChannel>> ClcLoader::readChannels(QFile& file, int count, QTextDecoder& decoder)
{
    QList<QSharedPointer<ClcAnalogChannel>> channels;
    channels.reserve(count);
    char record[channelRecordLength];
    const QString readError = QStringLiteral("READ_ERROR");
    bool reachedEnd = false;
    for (int i = 0; i < count; ++i) {
        // A cut record keeps what the prefill left in it, so the channel is named READ_ERROR.
        std::memset(record, 0, sizeof record);
        std::memcpy(record, "READ_ERROR", sizeof "READ_ERROR");
        // Past the end of the file nothing more can be read: the records that remain are all
        // the prefill, without a call to the file for each.
        qint64 got = 0;
        if (!reachedEnd) {
            got = file.read(record, channelRecordLength);
            reachedEnd = got < channelRecordLength;
        }
        auto channel = QSharedPointer<ClcAnalogChannel>::create();
        channel->setName(got > 0 ? textAt(record, 256, decoder) : readError);
        channel->setDataType(DT::Double);
        channel->setDataOffset(valuesPerChannel * i);
        channel->setDataCount(valuesPerChannel);
        channel->setType(qFromLittleEndian<quint16>(record + 256));
        channel->setPower(qFromLittleEndian<qint32>(record + 258));
        channel->setPhysNum(i + 1);
        channels.append(channel);
        checkCancelled();
    }
    updateProgress(tr("Чтение информации о каналах"), 51);
    return channels;
}

int ClcLoader::readRows(QFile& file, int channelCount, OscillogramDataBuilder& builder)
{
    const QString stage = tr("Чтение данных");
    updateProgress(stage, 25);
    const qint64 size = file.size();
    const int rowLength = rowPrefixLength + channelCount * channelValuesLength;
    QByteArray row(rowLength, Qt::Uninitialized);
    QVector<double>& values = builder.doubleAnalogValues();
    int rows = 0;
    while (!file.atEnd()) {
        // A cut row ends the reading and is not counted.
        if (file.read(row.data(), rowLength) != rowLength)
            break;
        const char* value = row.constData() + rowPrefixLength;
        for (int i = 0; i < valuesPerChannel * channelCount; ++i, value += sizeof(double)) {
            const quint64 bits = qFromLittleEndian<quint64>(value);
            double number;
            std::memcpy(&number, &bits, sizeof number);
            values.append(number);
        }
        if (++rows % rowsPerReport == 0) {
            updateProgress(stage, 25 + 75.0 * double(file.pos()) / double(size));
            checkCancelled();
        }
    }
    return rows;
}
