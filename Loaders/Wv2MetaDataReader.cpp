#include "Wv2MetaDataReader.h"

#include "Model/Exception.h"

#include <QIODevice>

namespace {
[[noreturn]] void fail(const QString& text)
{
    throw new LoadFailureException(text);
}
} // namespace

void Wv2MetaDataReader::read()
{
    if (!m_device) {
        m_metaData.reset();
        return;
    }
    prepareToRead();
    readMetaData();
}

void Wv2MetaDataReader::prepareToRead()
{
    m_stream.setDevice(m_device);
    m_stream.setByteOrder(QDataStream::LittleEndian);
    m_metaData = QSharedPointer<Wv2MetaData>::create();
}

void Wv2MetaDataReader::readMetaData()
{
    const QString blockFailure = tr("Ошибка чтения блока метаданных");
    m_metaData->header = WAVE_HEADER::decode(readBytes(WAVE_HEADER::length, blockFailure).constData());
    while (!m_stream.atEnd()) {
        const WAVE_TAG tag = WAVE_TAG::decode(readBytes(WAVE_TAG::length, blockFailure).constData());
        switch (tag.id) {
        case Wv2::SourceTag:
            readSource(tag);
            break;
        case Wv2::AnalogChannelTag:
            readAnalogChannel(tag);
            break;
        case Wv2::DigitalChannelTag:
            readDigitalChannel(tag);
            break;
        case Wv2::DataTag:
            readData(tag);
            break;
        case Wv2::FormatTag:
            readFormat(tag);
            break;
        case Wv2::LineTag:
            readLine(tag);
            break;
        case Wv2::EmergencyTag:
            readEmergency(tag);
            break;
        default:
            skipUnknownTag(tag);
            break;
        }
        updateProgress(int(m_device->pos()));
    }
}

template<typename Body> Body Wv2MetaDataReader::readBody(const WAVE_TAG& tag)
{
    const Body body
        = Body::decode(readBytes(Body::bodyLength, tr("Ошибка чтения строк метаданных")).constData());
    skipBytes(tag.restAfter(Body::bodyLength), tr("Ошибка пропуска строк метаданных"));
    return body;
}

void Wv2MetaDataReader::readSource(const WAVE_TAG& tag)
{
    m_metaData->source = readBody<WAVE_TAGSOURCE>(tag);
}

void Wv2MetaDataReader::readFormat(const WAVE_TAG& tag)
{
    m_metaData->format = readBody<WAVE_TAGFORMAT>(tag);
}

void Wv2MetaDataReader::readAnalogChannel(const WAVE_TAG& tag)
{
    m_metaData->analogChannels.append(readBody<WAVE_TAGACHANNEL>(tag));
}

void Wv2MetaDataReader::readDigitalChannel(const WAVE_TAG& tag)
{
    m_metaData->digitalChannels.append(readBody<WAVE_TAGDCHANNEL>(tag));
}

void Wv2MetaDataReader::readLine(const WAVE_TAG& tag)
{
    m_metaData->lines.append(readBody<WAVE_TAGLINE>(tag));
}

void Wv2MetaDataReader::readData(const WAVE_TAG& tag)
{
    const QString damaged = tr("Ошибка чтения, осциллограмма повреждена!");
    const WAVE_DATAHEADER header
        = WAVE_DATAHEADER::decode(readBytes(WAVE_DATAHEADER::bodyLength, damaged).constData());
    m_metaData->totalFrames += header.frameCount;
    if (header.isBeforeFailure())
        m_metaData->preFailureFrames += header.frameCount;
    skipBytes(tag.restAfter(WAVE_DATAHEADER::bodyLength), damaged);
}

void Wv2MetaDataReader::readEmergency(const WAVE_TAG& tag)
{
    const QString failure = tr("Ошибка чтения строк метаданных");
    EmergenciesData emergency
        = EmergenciesData::decode(readBytes(EmergenciesData::bodyLength, failure).constData());
    const QByteArray text = readBytes(tag.restAfter(EmergenciesData::bodyLength), failure);
    emergency.reason = QByteArray(text.constData(), int(qstrnlen(text.constData(), uint(text.size()))));
    m_metaData->emergencies.append(emergency);
}

void Wv2MetaDataReader::skipUnknownTag(const WAVE_TAG& tag)
{
    skipBytes(tag.restAfter(0), tr("Ошибка чтения, осциллограмма повреждена!"));
}

QByteArray Wv2MetaDataReader::readBytes(qint64 count, const QString& failureText)
{
    // A count beyond what the device still holds would fail anyway: refuse it before allocating.
    const bool fits = count >= 0 && (m_device->isSequential() || count <= m_device->size() - m_device->pos());
    if (!fits)
        fail(failureText);
    QByteArray bytes(int(count), Qt::Uninitialized);
    if (m_stream.readRawData(bytes.data(), int(count)) != count)
        fail(failureText);
    return bytes;
}

void Wv2MetaDataReader::skipBytes(qint64 count, const QString& failureText)
{
    if (count < 0 || m_device->skip(count) != count)
        fail(failureText);
}
