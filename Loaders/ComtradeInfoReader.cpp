// The companions of a COMTRADE set: the .hdr text and the .inf with lines, power objects,
// channel attributes, failures, joined parts and the saved view state.

#include "Loaders/ComtradeLoader.h"
#include "Loaders/CsvStringParser.h"

#include <QFile>
#include <QFileInfo>
#include <QTextCodec>

namespace {
template<typename Numbers> QList<unsigned short> toList(const Numbers& numbers)
{
    return QList<unsigned short>(numbers.begin(), numbers.end());
}

// Equipment of this type is a line; other types are counted but make no line.
constexpr unsigned short lineEquipmentType = 0;

} // namespace

void ComtradeLoader::readHeaderFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        throw new LoadFailureException(QStringLiteral("Не удалось открыть HDR файл"));
    m_oscillogram->setHeaderFileContent(m_codec->toUnicode(file.readAll()));
}

QString ComtradeLoader::decode(const std::string& text) const
{
    return m_codec->toUnicode(text.data(), int(text.size()));
}

void ComtradeLoader::createEmptyObjects()
{
    const QString unknown = tr("Не указано");
    RAS_RECORDING_DEVICE device;
    device.recordingDeviceId = m_oscillogram->deviceName();
    device.comtradeFileName = QFileInfo(filename()).fileName();
    device.vendor = device.model = device.serialNumber = unknown;
    device.hardwareRevision = device.softwareRevision = unknown;
    RAS_OBJECT object;
    object.territory = object.companyName = unknown;
    object.stationName = m_oscillogram->stationName();
    object.devices.append(device);
    m_oscillogram->setRasObjects({ object });
    for (int i = 0; i < m_oscillogram->countOfAnalogChannels(); ++i)
        m_oscillogram->analogChannel(i)->setPhysNum(i + 1);
    for (int i = 0; i < m_oscillogram->countOfDigitalChannels(); ++i)
        m_oscillogram->digitalChannel(i)->setPhysNum(i + 1);
}

void ComtradeLoader::readInfoFile(const QString& path)
{
    const std::string localPath = QFile::encodeName(path).toStdString();
    m_comtrade.readInf(m_analogs, m_digitals, m_faults, m_ras, localPath, &m_userSettings);
    m_rasVersion = m_ras.version;
    m_rasRevision = m_ras.revision;
    m_oscillogram->setRasRevision(QString::fromStdString(m_rasRevision));
    m_oscillogram->setRasVersion(QString::fromStdString(m_rasVersion));
    m_oscillogram->setLines({});

    QList<QSharedPointer<Line>> lines;
    const QList<RAS_OBJECT> objects = convertRasObjects(lines);
    m_oscillogram->setLines(lines);
    m_oscillogram->setLineNames();
    if (objects.isEmpty())
        createEmptyObjects();
    else
        m_oscillogram->setRasObjects(objects);

    applyInfoChannels();
    QList<QSharedPointer<Failure>> failures;
    for (const ComtradeFaultInfo& fault : m_faults)
        failures.append(QSharedPointer<Failure>::create(decode(fault.reason), int(fault.blockNum)));
    m_oscillogram->setFailures(failures);
    readMergedWaves(path);
}

QList<RAS_OBJECT> ComtradeLoader::convertRasObjects(QList<QSharedPointer<Line>>& lines) const
{
    QList<RAS_OBJECT> objects;
    for (const RasPowerObject& power : m_ras.powerObjects) {
        RAS_OBJECT object { decode(power.territory), decode(power.companyName), decode(power.stationName),
            {} };
        for (const RasRecordingDevice& recorder : power.recordingDevices) {
            RAS_RECORDING_DEVICE device { decode(recorder.recordingDeviceId), decode(recorder.vendor),
                decode(recorder.model), decode(recorder.serialNumber), decode(recorder.hardwareRevision),
                decode(recorder.softwareRevision), decode(recorder.comtradeFileName), {} };
            unsigned short counter = 0;
            for (const RasEquipment& equipment : recorder.equipment) {
                const unsigned short number = counter++;
                if (equipment.equipmentType != lineEquipmentType)
                    continue;
                auto line = QSharedPointer<Line>::create();
                line->setName(decode(equipment.equipmentId));
                line->setLineID(number);
                line->setUnit(tr("кВ"));
                line->setVoltage(static_cast<short>(equipment.voltageLevelKv));
                line->setShortName(decode(equipment.equipmentShortName));
                line->setCtNumbers(toList(equipment.ctChannelNumbers));
                line->setEsNumbers(toList(equipment.esChannelNumbers));
                line->setRpNumbers(toList(equipment.rpChannelNumbers));
                line->setRpDNumbers(toList(equipment.rpDChannelNumbers));
                line->setOcsNumbers(toList(equipment.ocsChannelNumbers));
                line->setFNumbers(toList(equipment.fChannelNumbers));
                line->setVtNumbers(toList(equipment.vtChannelNumbers));
                line->setCtID(decode(equipment.ctId));
                line->setVtID(decode(equipment.vtId));
                line->setZ0(equipment.z0);
                line->setZ1(equipment.z1);
                device.lines.append(line);
                lines.append(line);
            }
            object.devices.append(device);
        }
        objects.append(object);
    }
    return objects;
}

void ComtradeLoader::applyInfoChannels()
{
    int i = 0;
    for (const ComtradeAnalogInfo& info : m_analogs) {
        if (i >= m_oscillogram->countOfAnalogChannels())
            break;
        const auto channel = m_oscillogram->analogChannel(i++);
        channel->setNormalState(static_cast<short>(info.waveType));
        channel->setIsInverted(info.inversion);
        channel->setIsPhysical(info.physical);
        channel->setPhysNum(info.physNum);
        channel->setCMRChanType(info.currentOrVoltage);
    }
    i = 0;
    for (const ComtradeDigitalInfo& info : m_digitals) {
        if (i >= m_oscillogram->countOfDigitalChannels())
            break;
        const auto channel = m_oscillogram->digitalChannel(i++);
        channel->setIsPhysical(info.physical);
        channel->setPhysNum(info.physNum);
        channel->setIsInverted(info.inversion);
    }
}

void ComtradeLoader::readMergedWaves(const QString& path)
{
    ComtradeMergedWaveList waves;
    if (m_comtrade.readMergedWaves(waves, QFile::encodeName(path).toStdString()) != 0 || waves.empty())
        return;
    QList<MergedWave> merged;
    for (const ComtradeMergedWaveInfo& info : waves) {
        MergedWave wave;
        // The begin time is written as the time lines of the .cfg are.
        CsvStringParser line(QString::fromStdString(info.beginTime), QStringLiteral(","), 0);
        wave.beginTime = readDateFields(line).toDateTime(false);
        wave.sampleOffset = info.blockNum;
        wave.analogNumbers = QVector<unsigned short>(info.analogNumbers.begin(), info.analogNumbers.end());
        wave.digitalNumbers = QVector<unsigned short>(info.digitalNumbers.begin(), info.digitalNumbers.end());
        merged.append(wave);
    }
    m_oscillogram->setMergedWaves(merged);
}
