// The record's description moved into the COMTRADE object: the first lines of the .CFG, the
// channels, and the .INF's objects, failures and joined parts.

#include "Savers/ComtradeSaver.h"

#include "Model/SimpleOscillogram.h"

namespace {
template<typename Numbers> std::vector<unsigned short> toVector(const Numbers& numbers)
{
    return std::vector<unsigned short>(numbers.begin(), numbers.end());
}
} // namespace

bool ComtradeSaver::isWritten(const Channel& channel) const
{
    return !onlySelectedChannels() || channel.isSelected();
}

int ComtradeSaver::initComtradeBasics()
{
    const Oscillogram& record = *oscillogram();
    m_comtrade.setStationName(encode(record.stationName()));
    m_comtrade.setDeviceName(encode(record.deviceName()));
    m_comtrade.setRevisionYear(2013);
    // Always 50 Hz, whatever the record's network.
    m_comtrade.setLineFrequency(50.0f);
    m_comtrade.setSampleRate(float(record.sampleRate()));
    m_comtrade.setTimeCode(m_timeCodeHours, 0);
    m_comtrade.setLocalCode(m_localCodeHours, 0);
    m_comtrade.setFormat(m_format);

    m_analogs.clear();
    for (int i = 0; i < record.countOfAnalogChannels(); ++i) {
        if (checkCancel())
            return -1;
        const QSharedPointer<AnalogChannel> channel = record.analogChannel(i);
        if (isWritten(*channel))
            m_analogs.push_back(analogInfo(*channel));
    }
    m_digitals.clear();
    for (int i = 0; i < record.countOfDigitalChannels(); ++i) {
        const QSharedPointer<DigitalChannel> channel = record.digitalChannel(i);
        if (isWritten(*channel))
            m_digitals.push_back(digitalInfo(*channel));
    }
    fillRasDescription();
    fillFaults();
    fillMergedWaves();
    return 0;
}

ComtradeAnalogInfo ComtradeSaver::analogInfo(const AnalogChannel& channel) const
{
    ComtradeAnalogInfo info;
    info.name = encode(channel.name());
    info.phase = encode(getPhase(channel.phaseNumber()));
    info.unit = encode(channel.unit());
    info.multiplier = float(channel.multiplier());
    info.offsetAdder = float(channel.offsetAdder());
    // The delay is held in samples and written in microseconds.
    info.skew = adcDelayToMicroSec(channel.adcDelay());
    // The limits of the .CFG are written as zero.
    info.minValue = 0.0f;
    info.maxValue = 0.0f;
    info.primary = float(channel.primary());
    info.secondary = float(channel.secondary());
    info.ps = channel.psChar();
    info.waveType = channel.normalState();
    info.currentOrVoltage = channel.cmrChanType();
    info.physNum = channel.physNum();
    info.inversion = channel.isInverted();
    info.physical = channel.isPhysical();
    return info;
}

ComtradeDigitalInfo ComtradeSaver::digitalInfo(const DigitalChannel& channel) const
{
    ComtradeDigitalInfo info;
    info.name = encode(channel.name());
    info.normalState = channel.normalState() ? '1' : '0';
    info.physNum = channel.physNum();
    info.inversion = channel.isInverted();
    info.physical = channel.isPhysical();
    return info;
}

void ComtradeSaver::fillRasDescription()
{
    m_rasDescription = RasDescription();
    for (const RAS_OBJECT& object : qAsConst(m_rasObjects)) {
        RasPowerObject power;
        power.territory = encode(object.territory);
        power.companyName = encode(object.companyName);
        power.stationName = encode(object.stationName);
        for (const RAS_RECORDING_DEVICE& device : object.devices) {
            RasRecordingDevice recorder;
            recorder.recordingDeviceId = encode(device.recordingDeviceId);
            recorder.vendor = encode(device.vendor);
            recorder.model = encode(device.model);
            recorder.serialNumber = encode(device.serialNumber);
            recorder.hardwareRevision = encode(device.hardwareRevision);
            recorder.softwareRevision = encode(device.softwareRevision);
            recorder.comtradeFileName = encode(device.comtradeFileName);
            // Every device observes all lines of the record.
            for (int i = 0; i < oscillogram()->countOfLines(); ++i) {
                const QSharedPointer<Line> line = oscillogram()->line(i);
                if (!onlySelectedChannels()) {
                    recorder.equipment.push_back(equipmentOf(line));
                    continue;
                }
                // A selection keeps the lines it touches, cut down to the selected channels.
                if (!isLineUsed(line))
                    continue;
                auto copy = QSharedPointer<Line>::create(*line);
                prepareLine(copy);
                recorder.equipment.push_back(equipmentOf(copy));
            }
            power.recordingDevices.push_back(recorder);
        }
        m_rasDescription.powerObjects.push_back(power);
    }
}

RasEquipment ComtradeSaver::equipmentOf(QSharedPointer<Line> line)
{
    RasEquipment equipment;
    equipment.equipmentType = 0;
    equipment.equipmentId = encode(line->name());
    equipment.equipmentShortName = encode(line->name());
    equipment.voltageLevelKv = static_cast<unsigned short>(static_cast<int>(line->voltage()));
    equipment.vtId = encode(line->name());
    equipment.vtChannelNumbers = toVector(line->vtNumbers());
    equipment.ctId = encode(line->name());
    equipment.ctChannelNumbers = toVector(line->ctNumbers());
    equipment.rpChannelNumbers = toVector(line->rpNumbers());
    equipment.rpDChannelNumbers = toVector(line->rpDNumbers());
    equipment.fChannelNumbers = toVector(line->fNumbers());
    equipment.esChannelNumbers = toVector(line->esNumbers());
    equipment.ocsChannelNumbers = toVector(line->ocsNumbers());
    equipment.z0 = line->z0();
    equipment.z1 = line->z1();
    return equipment;
}

bool ComtradeSaver::isLineUsed(QSharedPointer<Line> line)
{
    const Oscillogram& record = *oscillogram();
    for (const QList<unsigned short>& numbers : { line->vtNumbers(), line->ctNumbers(), line->rpNumbers(),
             line->fNumbers(), line->esNumbers(), line->ocsNumbers() }) {
        for (unsigned short number : numbers) {
            if (record.isValidAnalogChannel(number) && record.analogChannel(number)->isSelected())
                return true;
        }
    }
    for (unsigned short number : line->rpDNumbers()) {
        if (record.isValidDigitalChannel(number) && record.digitalChannel(number)->isSelected())
            return true;
    }
    return false;
}

void ComtradeSaver::prepareLine(QSharedPointer<Line> line)
{
    const Oscillogram& record = *oscillogram();
    for (int i = 0; i < record.countOfAnalogChannels(); ++i) {
        if (!record.analogChannel(i)->isSelected())
            line->removeAnalogChannelConnection(i);
    }
    for (int i = 0; i < record.countOfDigitalChannels(); ++i) {
        if (!record.digitalChannel(i)->isSelected())
            line->removeDigitalChannelConnection(i);
    }
}

void ComtradeSaver::fillFaults()
{
    m_faults.clear();
    const int start = timeRange().startSampleNumber();
    const int finish = timeRange().finishSampleNumber();
    for (const QSharedPointer<Failure>& failure : oscillogram()->failures()) {
        int block = failure->blockNum();
        if (useTimeRange()) {
            if (block < start || block > finish)
                continue;
            block -= start;
        }
        m_faults.push_back(ComtradeFaultInfo { encode(failure->reason()), static_cast<uint32_t>(block) });
    }
}

void ComtradeSaver::fillMergedWaves()
{
    m_mergedWaves.clear();
    const auto simple = oscillogram().dynamicCast<SimpleOscillogram>();
    // Parts of a joined record lose their meaning in a cut of it.
    if (!simple || useTimeRange())
        return;
    for (const MergedWave& wave : simple->mergedWaves()) {
        ComtradeMergedWaveInfo info;
        info.beginTime = wave.beginTime.toCMRString();
        info.blockNum = wave.sampleOffset;
        info.analogNumbers = toVector(wave.analogNumbers);
        info.digitalNumbers = toVector(wave.digitalNumbers);
        m_mergedWaves.push_back(info);
    }
}
