#include "Wv2Loader.h"

#include "Loaders/Wv2DataReader.h"
#include "Loaders/Wv2MetaDataReader.h"
#include "Loaders/Wv2TagConverter.h"
#include "Model/NumericCast.h"

#include <QBuffer>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>

namespace {
[[noreturn]] void failToOpen()
{
    throw new LoadFailureException(Wv2Loader::tr("Невозможно открыть файл"));
}
} // namespace

Wv2Loader::Wv2Loader(const QString& file, QObject* parent)
    : OscillogramLoader(file, parent)
    , m_configurationStage(tr("Чтение конфигурации"))
    , m_dataStage(tr("Чтение данных"))
    , m_displayStage(tr("Отображение"))
{
}

Wv2Loader::Wv2Loader(const QString& file, QBuffer* buffer, QObject* parent) : Wv2Loader(file, parent)
{
    m_buffer = buffer;
    m_sourceKind = BufferSource;
}

LoaderResult Wv2Loader::work()
{
    m_oscillogram = QSharedPointer<Wv2Oscillogram>::create();
    m_oscillogram->setFilename(filename());
    m_bytesRead = 0;
    readMeta();
    readData();
    setLines();
    generateHeader();
    generateRAS();
    updateProgressAndCheckCancelled(m_displayStage, 50);
    LoaderResult result;
    result.oscillogram = m_oscillogram;
    return result;
}

void Wv2Loader::readMeta()
{
    updateProgressAndCheckCancelled(m_configurationStage, 0);
    m_metaData = readMetaData();
    updateProgressAndCheckCancelled(m_configurationStage, 50);
    setOscillogramParametersFromMetaData();
    updateProgressAndCheckCancelled(m_configurationStage, 100);
}

void Wv2Loader::readData()
{
    updateProgressAndCheckCancelled(m_dataStage, 0);
    const QSharedPointer<OscillogramData> data = readOscillogramData();
    m_oscillogram->setData(data);
    for (int i = 0; i < m_oscillogram->countOfAnalogChannels(); ++i)
        m_oscillogram->analogChannel(i)->setData(data);
    for (int i = 0; i < m_oscillogram->countOfDigitalChannels(); ++i)
        m_oscillogram->digitalChannel(i)->setData(data);
    updateProgressAndCheckCancelled(m_dataStage, 100);
}

QSharedPointer<Wv2MetaData> Wv2Loader::readMetaData()
{
    std::unique_ptr<QIODevice> owned;
    Wv2MetaDataReader reader;
    reader.setIoDevice(openSource(owned));
    reader.read();
    return reader.metaData();
}

QSharedPointer<OscillogramData> Wv2Loader::readOscillogramData()
{
    if (!m_metaData)
        m_metaData = readMetaData();
    std::unique_ptr<QIODevice> owned;
    Wv2DataReader reader(openSource(owned), m_metaData);
    m_lastPermille = -1;
    reader.setProgressCallback([this](qint64 bytesRead) {
        m_bytesRead = bytesRead;
        updateProgress();
    });
    return reader.read();
}

QIODevice* Wv2Loader::openSource(std::unique_ptr<QIODevice>& owned)
{
    QIODevice* device = m_buffer;
    if (m_sourceKind == FileSource) {
        owned = std::make_unique<QFile>(filename());
        if (!owned->open(QIODevice::ReadOnly))
            failToOpen();
        device = owned.get();
    } else {
        if (!m_buffer || (!m_buffer->isOpen() && !m_buffer->open(QIODevice::ReadOnly)))
            failToOpen();
        if (!m_buffer->isReadable() || !m_buffer->seek(0))
            failToOpen();
    }
    m_fileSize = device->size();
    return device;
}

void Wv2Loader::setOscillogramParametersFromMetaData()
{
    setOscillogramInfoFromMetaData();
    setAnalogChannelsFromMetaData();
    setDigitalChannelsFromMetaData();
    setLinesFromMetaData();
    setEmergenciesFromMetaData();
}

void Wv2Loader::setOscillogramInfoFromMetaData()
{
    const Wv2MetaData& meta = *m_metaData;
    m_oscillogram->setSampleRate(meta.header.sampleRate);
    const int preFailure
        = meta.emergencies.isEmpty() ? int(meta.preFailureFrames) : int(meta.emergencies.first().blockNumber);
    m_oscillogram->setCountOfPreFailureSamples(preFailure);
    // The file keeps no zone: the time is read as a clock of the zone the reader is in now.
    const int offset = QDateTime::currentDateTime().offsetFromUtc();
    const long long uSec = Korvane::truncatedMicroseconds(1000000.0 * meta.header.fraction);
    m_oscillogram->setTriggerTime(PreciseDateTime::from(meta.header.startTime, uSec, offset));
    m_oscillogram->setOrderNum(meta.source.orderNum);
    m_oscillogram->setId(Wv2TagConverter::decode(meta.source.id));
    m_oscillogram->setName(Wv2TagConverter::decode(meta.source.name));
    m_oscillogram->setCountOfPostFailureSamples(int(qint64(meta.totalFrames) - preFailure));
    m_oscillogram->setLocalCode(offset / 3600);
}

void Wv2Loader::setAnalogChannelsFromMetaData()
{
    QList<QSharedPointer<Wv2AnalogChannel>> channels;
    for (const WAVE_TAGACHANNEL& tag : qAsConst(m_metaData->analogChannels)) {
        channels.append(Wv2TagConverter::convert(tag));
        channels.last()->setDataOffset(channels.size() - 1);
    }
    m_oscillogram->setAnalogChannels(channels);
}

void Wv2Loader::setDigitalChannelsFromMetaData()
{
    QList<QSharedPointer<Wv2DigitalChannel>> channels;
    for (const WAVE_TAGDCHANNEL& tag : qAsConst(m_metaData->digitalChannels)) {
        channels.append(Wv2TagConverter::convert(tag));
        channels.last()->setDataOffset(channels.size() - 1);
    }
    m_oscillogram->setDigitalChannels(channels);
}

void Wv2Loader::setLinesFromMetaData()
{
    QList<QSharedPointer<Line>> lines;
    for (const WAVE_TAGLINE& tag : qAsConst(m_metaData->lines))
        lines.append(Wv2TagConverter::convert(tag));
    m_oscillogram->setLines(lines);
}

void Wv2Loader::setEmergenciesFromMetaData()
{
    QList<QSharedPointer<Failure>> failures;
    for (const EmergenciesData& emergency : qAsConst(m_metaData->emergencies))
        failures.append(Wv2TagConverter::convert(emergency));
    m_oscillogram->setFailures(failures);
}

void Wv2Loader::setLines()
{
    for (int i = 0; i < m_oscillogram->countOfAnalogChannels(); ++i) {
        const unsigned short mask = m_oscillogram->analogChannel(i)->getLineBitMask();
        for (const auto& line : m_oscillogram->linesForBitMask(mask))
            line->appendRpChannel(static_cast<unsigned short>(i));
    }
    for (int i = 0; i < m_oscillogram->countOfDigitalChannels(); ++i) {
        const unsigned short mask = m_oscillogram->digitalChannel(i)->getLineBitMask();
        for (const auto& line : m_oscillogram->linesForBitMask(mask))
            line->appendRpDChannel(static_cast<unsigned short>(i));
    }
    m_oscillogram->setLineNames();
}

void Wv2Loader::generateHeader()
{
    const QString device = m_oscillogram->deviceName();
    QStringList lines;
    lines << tr("Осциллограмма записана устройством ") + device << tr("ООО \"Тессара-Системы\" г.Нордгород")
          << tr("Объект электроэнергетики: ") + tr("не указан") << tr("Источник: ") + device
          << tr("Версия ПО: ") + tr("не указана") << tr("Дополнительная информация:");
    const auto failures = m_oscillogram->failures();
    if (!failures.isEmpty()) {
        lines << tr("Осциллограмма содержит аварийные записи:");
        for (const auto& failure : failures) {
            lines << tr("Дата и время: ") + m_oscillogram->dateTime(failure->blockNum()).toString()
                    + tr(" Авария: ") + failure->reason();
        }
    }
    const QString lineEnd = QStringLiteral("\r\n");
    m_oscillogram->setHeaderFileContent(lines.join(lineEnd) + lineEnd);
}

void Wv2Loader::generateRAS()
{
    const QString unknown = tr("Не указано");
    RAS_RECORDING_DEVICE device;
    device.recordingDeviceId = m_oscillogram->deviceName();
    device.vendor = unknown;
    device.model = unknown;
    device.serialNumber = unknown;
    device.hardwareRevision = unknown;
    device.softwareRevision = unknown;
    device.comtradeFileName = QFileInfo(filename()).fileName();
    RAS_OBJECT object;
    object.territory = unknown;
    object.companyName = unknown;
    object.stationName = unknown;
    object.devices.append(device);
    m_oscillogram->setRasVersion(QStringLiteral("2017"));
    m_oscillogram->setRasRevision(QStringLiteral("1.0"));
    m_oscillogram->setRasObjects({ object });
}

void Wv2Loader::updateProgressAndCheckCancelled(const QString& stage, double percent)
{
    m_stage = stage;
    updateProgress(stage, percent);
    checkCancelled();
}

void Wv2Loader::updateProgress()
{
    const double share = m_fileSize > 0 ? double(m_bytesRead) / double(m_fileSize) : 0.0;
    // Signals cross to the interface thread: one per tenth of a percent is plenty.
    const int permille = int(share * 1000);
    if (permille != m_lastPermille) {
        m_lastPermille = permille;
        updateProgress(m_stage, share);
    }
    checkCancelled();
}
