#include "CalcLib/Comtrade.h"

#include "CalcLib/ComtradeTables.h"
#include "CalcLib/ComtradeText.h"
#include "CalcLib/IniFile.h"

#include <algorithm>
#include <locale>
#include <sstream>

using ComtradeText::numbersMinusOne;
using ComtradeText::numbersPlusOne;

namespace {
const std::string ras = "Russian_Comtrade_Edition ";
const std::string descriptionSection = ras + "Description";
const std::string userSettingsSection = "Tessara UserSettings";

// The numbers n from 1 to count for which the section prefix + n exists, rising. The same as
// asking for every number in turn, but bounded by the sections there are, not by the count.
std::vector<int> presentNumbers(const IniFile& ini, const std::string& prefix, int count)
{
    std::vector<int> numbers;
    for (const IniFile::Section& section : ini.sections()) {
        const std::string& name = section.name;
        if (name.size() <= prefix.size() || name.size() > prefix.size() + 5
            || !ComtradeText::equalsIgnoreCase(name.substr(0, prefix.size()), prefix))
            continue;
        const std::string digits = name.substr(prefix.size());
        if (digits[0] == '0' || digits.find_first_not_of("0123456789") != std::string::npos)
            continue;
        const int number = std::stoi(digits);
        if (number <= count)
            numbers.push_back(number);
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

// Prefixes of the numbered sections: the last number follows them.
std::string powerObjectPrefix()
{
    return ras + "Power_Object_#";
}

std::string devicePrefix(size_t o)
{
    return ras + "Recording_Device_#" + std::to_string(o) + "_#";
}

std::string equipmentPrefix(size_t o, size_t d)
{
    return ras + "Analog_Channel_Equipment_#" + std::to_string(o) + "_#" + std::to_string(d) + "_#";
}

std::string statusPrefix(size_t o, size_t d)
{
    return ras + "Status_Channel_#" + std::to_string(o) + "_#" + std::to_string(d) + "_#";
}

std::string powerObjectSection(size_t o)
{
    return powerObjectPrefix() + std::to_string(o);
}

std::string deviceSection(size_t o, size_t d)
{
    return devicePrefix(o) + std::to_string(d);
}

std::string equipmentSection(size_t o, size_t d, size_t e)
{
    return equipmentPrefix(o, d) + std::to_string(e);
}

std::string statusSection(size_t o, size_t d, size_t s)
{
    return statusPrefix(o, d) + std::to_string(s);
}

std::string analogSection(size_t a)
{
    return "Tessara AnalogChannel#" + std::to_string(a);
}

std::string digitalSection(size_t d)
{
    return "Tessara StatusChannel#" + std::to_string(d);
}

std::string faultSection(size_t f)
{
    return "Tessara Fault#" + std::to_string(f);
}

std::string mergedWaveSection(size_t m)
{
    return "Tessara MergedWave#" + std::to_string(m);
}

const char* trueFalse(bool value)
{
    return value ? "True" : "False";
}

// Writes the keys of one section in the order given.
class SectionWriter
{
public:
    SectionWriter(IniFile& ini, std::string section) : m_ini(ini), m_section(std::move(section)) { }
    SectionWriter& put(const std::string& key, const std::string& value)
    {
        m_ini.setValue(m_section, key, value);
        return *this;
    }
    template<typename Number> SectionWriter& number(const std::string& key, Number value)
    {
        return put(key, std::to_string(value));
    }

private:
    IniFile& m_ini;
    std::string m_section;
};

void writeEquipment(IniFile& ini, const std::string& section, const RasEquipment& e)
{
    SectionWriter(ini, section)
        .put("Equipment_Type", ComtradeTables::equipmentTypeName(e.equipmentType))
        .put("Equipment_ID", e.equipmentId)
        .put("Equipment_Short_Name", e.equipmentShortName)
        .number("Voltage_Level_In_kV", e.voltageLevelKv)
        .put("VT_ID", e.vtId)
        .put("VT_Channel_Number", numbersPlusOne(e.vtChannelNumbers))
        .put("CT_ID", e.ctId)
        .put("CT_Channel_Number", numbersPlusOne(e.ctChannelNumbers))
        .put("RP_Channel_Number", numbersPlusOne(e.rpChannelNumbers))
        .put("RP_DChannel_Number", numbersPlusOne(e.rpDChannelNumbers))
        .put("F_Channel_Number", numbersPlusOne(e.fChannelNumbers))
        .put("ES_Channel_Number", numbersPlusOne(e.esChannelNumbers))
        .put("OCS_Channel_Number", numbersPlusOne(e.ocsChannelNumbers))
        .put("Z_0", ComtradeText::fixedTwo(e.z0))
        .put("Z_1", ComtradeText::fixedTwo(e.z1));
}

// The channel number goes out as stored, not 1-based like the equipment lists.
void writeStatusChannel(IniFile& ini, const std::string& section, const RasStatusChannel& s)
{
    SectionWriter(ini, section)
        .put("Protection_Device_Group", ComtradeTables::protectionDeviceGroupName(s.protectionDeviceGroup))
        .put("Status_Signal_Type", s.statusSignalType)
        .put("Status_ID", s.statusId)
        .put("Status_Short_Name", s.statusShortName)
        .number("Voltage_Level_In_kV", s.voltageLevelKv)
        .number("Status_Channel_Number", s.statusChannelNumber);
}

void writeRas(IniFile& ini, const RasDescription& description)
{
    SectionWriter(ini, descriptionSection)
        .number("PowerObjectCount", description.powerObjects.size())
        .put("Russian_Comtrade_Edition_Version", description.version)
        .put("Russian_Comtrade_Edition_Revision", description.revision);
    size_t o = 0;
    for (const RasPowerObject& object : description.powerObjects) {
        ++o;
        SectionWriter(ini, powerObjectSection(o))
            .put("Territory", object.territory)
            .put("Company_Name", object.companyName)
            .put("Station_Name", object.stationName)
            .number("RecordingDeviceCount", object.recordingDevices.size());
        size_t d = 0;
        for (const RasRecordingDevice& device : object.recordingDevices) {
            ++d;
            SectionWriter(ini, deviceSection(o, d))
                .put("Recording_Device_ID", device.recordingDeviceId)
                .put("Vendor", device.vendor)
                .put("Model", device.model)
                .put("Serial_Number", device.serialNumber)
                .put("Hardware_Revision", device.hardwareRevision)
                .put("Software_Revision", device.softwareRevision)
                .put("Comtrade_File_Name", device.comtradeFileName)
                .number("EquipmentCount", device.equipment.size())
                .number("StatusChannelCount", device.statusChannels.size());
            size_t e = 0;
            for (const RasEquipment& equipment : device.equipment)
                writeEquipment(ini, equipmentSection(o, d, ++e), equipment);
            size_t s = 0;
            for (const RasStatusChannel& status : device.statusChannels)
                writeStatusChannel(ini, statusSection(o, d, ++s), status);
        }
    }
}

void writeUserSettings(IniFile& ini, const CMR_USER_SETTINGS& settings)
{
    SectionWriter(ini, userSettingsSection)
        .number("Version", settings.version)
        .put("AnalogSignalOrder", settings.analogSignalOrder)
        .put("DiscreteSignalOrder", settings.discreteSignalOrder)
        .put("SelectedSignals", settings.selectedSignals)
        .put("CustomColors", settings.customColors)
        .put("Measures", settings.measures)
        .put("Markers", settings.markers);
}

// Typed reads of one section: a missing string is empty, a missing number 0.
class SectionReader
{
public:
    SectionReader(const IniFile& ini, std::string section) : m_ini(ini), m_section(std::move(section)) { }
    bool exists() const { return m_ini.hasSection(m_section); }
    bool has(const std::string& key) const { return m_ini.hasKey(m_section, key); }
    std::string text(const std::string& key) const { return m_ini.value(m_section, key); }
    int64_t number(const std::string& key) const { return ComtradeText::leadingInteger(text(key)); }
    std::vector<unsigned short> numbers(const std::string& key) const { return numbersMinusOne(text(key)); }
    // Through a stream of the classic locale; a missing key gives -1.0.
    double impedance(const std::string& key) const
    {
        if (!has(key))
            return -1.0;
        std::istringstream stream(text(key));
        stream.imbue(std::locale::classic());
        double value = 0.0;
        stream >> value;
        return value;
    }
    // "true" without regard to case, or exactly "1".
    bool flag(const std::string& key) const
    {
        const std::string value = text(key);
        return value == "1" || ComtradeText::equalsIgnoreCase(value, "true");
    }
    // The counts of the Russian edition are 16-bit signed; zero or less means none.
    int count(const std::string& key) const { return static_cast<short>(number(key)); }

private:
    const IniFile& m_ini;
    std::string m_section;
};

// The type is read as a number, as other writers store it; the name this class writes reads
// as 0. Channel numbers come back 0-based.
RasEquipment readEquipment(const SectionReader& r)
{
    RasEquipment e;
    e.equipmentType = static_cast<unsigned short>(r.number("Equipment_Type"));
    e.equipmentId = r.text("Equipment_ID");
    e.equipmentShortName = r.text("Equipment_Short_Name");
    e.voltageLevelKv = static_cast<unsigned short>(r.number("Voltage_Level_In_kV"));
    e.vtId = r.text("VT_ID");
    e.vtChannelNumbers = r.numbers("VT_Channel_Number");
    e.ctId = r.text("CT_ID");
    e.ctChannelNumbers = r.numbers("CT_Channel_Number");
    e.rpChannelNumbers = r.numbers("RP_Channel_Number");
    e.rpDChannelNumbers = r.numbers("RP_DChannel_Number");
    e.fChannelNumbers = r.numbers("F_Channel_Number");
    e.esChannelNumbers = r.numbers("ES_Channel_Number");
    e.ocsChannelNumbers = r.numbers("OCS_Channel_Number");
    e.z0 = r.impedance("Z_0");
    e.z1 = r.impedance("Z_1");
    return e;
}

// The group is read as a number like the equipment type; the channel number is taken as stored,
// since it is written unshifted too.
RasStatusChannel readStatusChannel(const SectionReader& r)
{
    RasStatusChannel s;
    s.protectionDeviceGroup = static_cast<unsigned short>(r.number("Protection_Device_Group"));
    s.statusSignalType = r.text("Status_Signal_Type");
    s.statusId = r.text("Status_ID");
    s.statusShortName = r.text("Status_Short_Name");
    s.voltageLevelKv = static_cast<unsigned short>(r.number("Voltage_Level_In_kV"));
    s.statusChannelNumber = static_cast<unsigned short>(r.number("Status_Channel_Number"));
    return s;
}

RasRecordingDevice readDevice(const IniFile& ini, size_t o, size_t d)
{
    const SectionReader r(ini, deviceSection(o, d));
    RasRecordingDevice device;
    device.recordingDeviceId = r.text("Recording_Device_ID");
    device.vendor = r.text("Vendor");
    device.model = r.text("Model");
    device.serialNumber = r.text("Serial_Number");
    device.hardwareRevision = r.text("Hardware_Revision");
    device.softwareRevision = r.text("Software_Revision");
    device.comtradeFileName = r.text("Comtrade_File_Name");
    for (int e : presentNumbers(ini, equipmentPrefix(o, d), r.count("EquipmentCount")))
        device.equipment.push_back(readEquipment(SectionReader(ini, equipmentSection(o, d, size_t(e)))));
    for (int s : presentNumbers(ini, statusPrefix(o, d), r.count("StatusChannelCount")))
        device.statusChannels.push_back(
            readStatusChannel(SectionReader(ini, statusSection(o, d, size_t(s)))));
    return device;
}

RasPowerObject readPowerObject(const IniFile& ini, size_t o)
{
    const SectionReader r(ini, powerObjectSection(o));
    RasPowerObject object;
    object.territory = r.text("Territory");
    object.companyName = r.text("Company_Name");
    object.stationName = r.text("Station_Name");
    for (int d : presentNumbers(ini, devicePrefix(o), r.count("RecordingDeviceCount")))
        object.recordingDevices.push_back(readDevice(ini, o, size_t(d)));
    return object;
}

void readRas(const IniFile& ini, RasDescription& description)
{
    const SectionReader r(ini, descriptionSection);
    description.version = r.text("Russian_Comtrade_Edition_Version");
    description.revision = r.text("Russian_Comtrade_Edition_Revision");
    description.powerObjects.clear();
    for (int o : presentNumbers(ini, powerObjectPrefix(), r.count("PowerObjectCount")))
        description.powerObjects.push_back(readPowerObject(ini, size_t(o)));
}

void readAnalogs(const IniFile& ini, ComtradeAnalogList& analogs)
{
    int32_t place = 0;
    for (ComtradeAnalogInfo& analog : analogs) {
        const SectionReader r(ini, analogSection(size_t(++place)));
        if (!r.exists())
            continue;
        analog.waveType
            = r.has("ChannelType") ? ComtradeTables::channelTypeFromName(r.text("ChannelType")) : 4;
        analog.currentOrVoltage = ComtradeTables::currentOrVoltageFromName(r.text("Type"));
        analog.physical = r.flag("Physical");
        analog.inversion = r.flag("Inversion");
        analog.physNum = r.has("PhysNum") ? int32_t(r.number("PhysNum")) : place - 1;
    }
}

void readDigitals(const IniFile& ini, ComtradeDigitalList& digitals)
{
    int32_t place = 0;
    for (ComtradeDigitalInfo& digital : digitals) {
        const SectionReader r(ini, digitalSection(size_t(++place)));
        if (!r.exists())
            continue;
        digital.physical = r.flag("Physical");
        digital.inversion = r.flag("Inversion");
        digital.physNum = r.has("PhysNum") ? int32_t(r.number("PhysNum")) : place - 1;
    }
}

void readFaults(const IniFile& ini, ComtradeFaultList& faults)
{
    faults.clear();
    for (size_t f = 1;; ++f) {
        const SectionReader r(ini, faultSection(f));
        if (!r.exists())
            return;
        faults.push_back(ComtradeFaultInfo { r.text("Reason"), static_cast<uint32_t>(r.number("BlockNum")) });
    }
}

void readUserSettings(const IniFile& ini, CMR_USER_SETTINGS& settings)
{
    const SectionReader r(ini, userSettingsSection);
    if (!r.exists())
        return;
    settings.version = int(r.number("Version"));
    settings.analogSignalOrder = r.text("AnalogSignalOrder");
    settings.discreteSignalOrder = r.text("DiscreteSignalOrder");
    settings.selectedSignals = r.text("SelectedSignals");
    settings.customColors = r.text("CustomColors");
    settings.measures = r.text("Measures");
    settings.markers = r.text("Markers");
}
} // namespace

int COMTRADE::writeInf(const ComtradeAnalogList& analogs, const ComtradeDigitalList& digitals,
    const ComtradeFaultList& faults, const RasDescription& description, const std::string& path,
    const ComtradeMergedWaveList& mergedWaves, const CMR_USER_SETTINGS* userSettings) const
{
    IniFile ini;
    writeRas(ini, description);
    size_t number = 0;
    for (const ComtradeAnalogInfo& a : analogs) {
        SectionWriter(ini, analogSection(++number))
            .put("ChannelType", ComtradeTables::channelTypeName(a.waveType))
            .put("Type", ComtradeTables::currentOrVoltageName(a.currentOrVoltage))
            .put("Physical", trueFalse(a.physical))
            .put("Inversion", trueFalse(a.inversion))
            .number("PhysNum", a.physNum);
    }
    number = 0;
    for (const ComtradeDigitalInfo& d : digitals) {
        SectionWriter(ini, digitalSection(++number))
            .put("Physical", trueFalse(d.physical))
            .put("Inversion", trueFalse(d.inversion))
            .number("PhysNum", d.physNum);
    }
    number = 0;
    for (const ComtradeFaultInfo& f : faults)
        SectionWriter(ini, faultSection(++number)).put("Reason", f.reason).number("BlockNum", f.blockNum);
    number = 0;
    for (const ComtradeMergedWaveInfo& m : mergedWaves) {
        SectionWriter(ini, mergedWaveSection(++number))
            .put("BeginTime", m.beginTime)
            .number("BlockNum", m.blockNum)
            .put("AnalogNumber", numbersPlusOne(m.analogNumbers))
            .put("DigitalNumber", numbersPlusOne(m.digitalNumbers));
    }
    if (userSettings)
        writeUserSettings(ini, *userSettings);
    return ini.save(pathOr(path, ".INF")) ? 0 : -1;
}

int COMTRADE::readInf(ComtradeAnalogList& analogs, ComtradeDigitalList& digitals, ComtradeFaultList& faults,
    RasDescription& description, const std::string& path, CMR_USER_SETTINGS* userSettings) const
{
    IniFile ini;
    if (!ini.load(pathOr(path, ".INF")))
        return -1;
    readRas(ini, description);
    readAnalogs(ini, analogs);
    readDigitals(ini, digitals);
    readFaults(ini, faults);
    if (userSettings)
        readUserSettings(ini, *userSettings);
    return 0;
}

int COMTRADE::readMergedWaves(ComtradeMergedWaveList& mergedWaves, const std::string& path) const
{
    IniFile ini;
    if (!ini.load(pathOr(path, ".INF")))
        return -1;
    mergedWaves.clear();
    for (size_t m = 1;; ++m) {
        const SectionReader r(ini, mergedWaveSection(m));
        if (!r.exists())
            return 0;
        mergedWaves.push_back(ComtradeMergedWaveInfo { r.text("BeginTime"), int32_t(r.number("BlockNum")),
            r.numbers("AnalogNumber"), r.numbers("DigitalNumber") });
    }
}
