#include "CalcLib/Comtrade.h"

#include "ComtradeTestSupport.h"
#include "StreamCapture.h"

#include <QTemporaryDir>
#include <QTest>

#include <iostream>
#include <iterator>
#include <random>

using ComtradeTest::writeAll;

namespace {
template<typename List> auto& at(List& list, size_t index)
{
    return *std::next(list.begin(), long(index));
}

using Numbers = std::vector<unsigned short>;
} // namespace

class TestComtradeReaders : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    std::string path(const char* name) const { return m_dir.filePath(name).toStdString(); }
    std::string put(const char* name, const QByteArray& content) const
    {
        if (!writeAll(m_dir.filePath(name), content))
            qFatal("could not write %s", name);
        return path(name);
    }

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void cfgYear_data()
    {
        QTest::addColumn<QByteArray>("year");
        QTest::addColumn<int>("read");
        QTest::newRow("1999 stays") << QByteArray("1999") << 1999;
        QTest::newRow("2011 stays") << QByteArray("2011") << 2011;
        QTest::newRow("2013 stays") << QByteArray("2013") << 2013;
        QTest::newRow("1991 stays") << QByteArray("1991") << 1991;
        QTest::newRow("2001 reads as 1991") << QByteArray("2001") << 1991;
        QTest::newRow("2012 reads as 1991") << QByteArray("2012") << 1991;
        QTest::newRow("below the table") << QByteArray("1998") << 1991;
        QTest::newRow("far beyond the table") << QByteArray("99999999999999999999999") << 1991;
        QTest::newRow("missing") << QByteArray("") << 1991;
        QTest::newRow("with CR LF") << QByteArray("2013\r") << 2013;
    }

    void cfgYear()
    {
        QFETCH(QByteArray, year);
        QFETCH(int, read);
        COMTRADE c;
        ComtradeAnalogList analogs;
        ComtradeDigitalList digitals;
        QCOMPARE(c.readCfg(analogs, digitals, put("year.cfg", "S,D," + year + "\n0,0A,0D\n")), 0);
        QCOMPARE(c.revisionYear(), read);
        QCOMPARE(c.stationName(), std::string("S"));
        QCOMPARE(c.deviceName(), std::string("D"));
    }

    void cfgChannelLines()
    {
        const QByteArray text = "Stan,Dev,1999\r\n"
                                "3,2A,1D\r\n"
                                "1,Ua,A,c1,kV,0.5,-1e-3,12,-100,100,6000,100,S\r\n"
                                "2,Ib,B,,A,2,0,0,0,0,1,1,\r\n"
                                "1,Trip,C,cc,\r\n"
                                "50\r\n";
        COMTRADE c;
        ComtradeAnalogList analogs(5);
        ComtradeDigitalList digitals;
        QCOMPARE(c.readCfg(analogs, digitals, put("ch.cfg", text)), 0);
        QCOMPARE(analogs.size(), size_t(2));
        QCOMPARE(digitals.size(), size_t(1));
        const ComtradeAnalogInfo& ua = at(analogs, 0);
        QCOMPARE(ua.name, std::string("Ua"));
        QCOMPARE(ua.phase, std::string("A"));
        QCOMPARE(ua.circuit, std::string("c1"));
        QCOMPARE(ua.unit, std::string("kV"));
        QCOMPARE(ua.multiplier, 0.5f);
        QCOMPARE(ua.offsetAdder, -0.001f);
        QCOMPARE(ua.skew, 12.0f);
        QCOMPARE(ua.minValue, -100.0f);
        QCOMPARE(ua.maxValue, 100.0f);
        QCOMPARE(ua.primary, 6000.0f);
        QCOMPARE(ua.secondary, 100.0f);
        QCOMPARE(ua.ps, 'S');
        QCOMPARE(ua.physNum, 1);
        QCOMPARE(ua.waveType, 1);
        const ComtradeAnalogInfo& ib = at(analogs, 1);
        QCOMPARE(ib.ps, 'p');
        QCOMPARE(ib.physNum, 2);
        const ComtradeDigitalInfo& trip = digitals.front();
        QCOMPARE(trip.name, std::string("Trip"));
        QCOMPARE(trip.circuit, std::string("cc"));
        QCOMPARE(trip.normalState, '0');
        QCOMPARE(trip.physNum, 1);
    }

    void cfgCountsStopAtTheFirstNonDigit()
    {
        COMTRADE c;
        ComtradeAnalogList analogs;
        ComtradeDigitalList digitals;
        const QByteArray text = "S,D,2013\n9,2A5,1D\n1,a\n2,b\n1,d,,,1\n";
        QCOMPARE(c.readCfg(analogs, digitals, put("counts.cfg", text)), 0);
        QCOMPARE(analogs.size(), size_t(2));
        QCOMPARE(digitals.size(), size_t(1));
        QCOMPARE(digitals.front().normalState, '1');
        QCOMPARE(at(analogs, 1).name, std::string("b"));
        QCOMPARE(at(analogs, 1).multiplier, 0.0f);
    }

    void cfgShortLinesReadAsEmptyFields()
    {
        COMTRADE c;
        ComtradeAnalogList analogs;
        ComtradeDigitalList digitals;
        QCOMPARE(c.readCfg(analogs, digitals, put("short.cfg", "OnlyStation\n,1\n\n")), 0);
        QCOMPARE(c.stationName(), std::string("OnlyStation"));
        QCOMPARE(c.deviceName(), std::string());
        QCOMPARE(c.revisionYear(), 1991);
        QCOMPARE(analogs.size(), size_t(1));
        QCOMPARE(analogs.front().name, std::string());
        QCOMPARE(analogs.front().ps, 'p');
        QCOMPARE(analogs.front().multiplier, 0.0f);
    }

    void cfgRoundTrip()
    {
        COMTRADE writer;
        writer.setStationName("ПС");
        writer.setDeviceName("Рег");
        writer.setRevisionYear(1999);
        writer.setSampleRate(4800.0f);
        writer.setFormat(1);
        writer.setTimeCode(2, 15);
        ComtradeAnalogInfo analog;
        analog.name = "Ua,1";
        analog.unit = "kV";
        analog.multiplier = 0.25f;
        analog.offsetAdder = -3.5f;
        analog.primary = 110000.0f;
        analog.waveType = 3;
        ComtradeDigitalInfo digital;
        digital.name = "Пуск";
        digital.normalState = '1';
        QCOMPARE(writer.writeCfg({ analog, analog }, { digital }, 99, path("rt.cfg"), 0, 0), 0);

        COMTRADE reader;
        ComtradeAnalogList analogs;
        ComtradeDigitalList digitals;
        QCOMPARE(reader.readCfg(analogs, digitals, path("rt.cfg")), 0);
        QCOMPARE(reader.stationName(), std::string("ПС"));
        QCOMPARE(reader.deviceName(), std::string("Рег"));
        QCOMPARE(reader.revisionYear(), 1999);
        // Rates, format and codes are the loader's to read: the object keeps its own.
        QCOMPARE(reader.sampleRate(), 4000.0f);
        QCOMPARE(reader.dataFormat(), 3);
        QCOMPARE(reader.timeCode(), std::string("0"));
        QCOMPARE(reader.timeOffsetUs(), int64_t(0));
        QCOMPARE(analogs.size(), size_t(2));
        const ComtradeAnalogInfo& back = at(analogs, 1);
        QCOMPARE(back.name, std::string("Ua.1"));
        QCOMPARE(back.unit, std::string("kV"));
        QCOMPARE(back.multiplier, 0.25f);
        QCOMPARE(back.offsetAdder, -3.5f);
        QCOMPARE(back.primary, 110000.0f);
        QCOMPARE(back.ps, 'P');
        QCOMPARE(back.physNum, 2);
        // The .CFG carries no channel type; the reader leaves the default.
        QCOMPARE(back.waveType, 1);
        QCOMPARE(digitals.front().name, std::string("Пуск"));
        QCOMPARE(digitals.front().normalState, '1');
    }

    void cfgMissingFileReportsOnStandardError()
    {
        COMTRADE c;
        ComtradeAnalogList analogs(1);
        ComtradeDigitalList digitals;
        StreamCapture capture(std::cerr);
        QCOMPARE(c.readCfg(analogs, digitals, path("missing.cfg")), -1);
        QCOMPARE(capture.text(), std::string("Error open CFG file for read\n"));
        QCOMPARE(analogs.size(), size_t(1));
    }

    void cfgBadInput_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("analogs");
        QTest::newRow("empty file") << QByteArray() << 0;
        QTest::newRow("truncated inside a channel line") << QByteArray("S,D,1999\n2,2A,0D\n1,Ua,A") << 1;
        QTest::newRow("counts beyond the file")
            << QByteArray("S,D,1999\n9,2000000000A,2000000000D\n1,x\n") << 1;
        QTest::newRow("negative counts") << QByteArray("S,D,1999\n9,-4A,-1D\n1,x\n") << 0;
        QTest::newRow("megabyte line")
            << QByteArray("S,D,1999\n1,1A,0D\n1,") + QByteArray(4 * 1024 * 1024, 'n') + QByteArray(",A\n")
            << 1;
        QTest::newRow("numbers beyond float") << QByteArray(
            "S,D,2013\n1,1A,0D\n1,a,b,c,d,1e999,-1e999,1e-999,nan,"
            "inf,0x10,--1,\n") << 1;
        QByteArray garbage(70000, '\0');
        std::mt19937 random(7);
        for (char& byte : garbage)
            byte = char(random() & 0xFF);
        QTest::newRow("binary garbage") << QByteArray("S,D,1\n1,1A,0D\n") + garbage << 1;
    }

    void cfgBadInput()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, analogs);
        COMTRADE c;
        ComtradeAnalogList analogList;
        ComtradeDigitalList digitalList;
        QCOMPARE(c.readCfg(analogList, digitalList, put("bad.cfg", content)), 0);
        QCOMPARE(int(analogList.size()), analogs);
        if (analogs > 0)
            QVERIFY(at(analogList, 0).name.size() <= 4095);
    }

    void infRoundTripKeepsTheListedDisagreements()
    {
        RasEquipment equipment;
        equipment.equipmentType = 3;
        equipment.equipmentId = "ВЛ-110";
        equipment.voltageLevelKv = 110;
        equipment.vtChannelNumbers = { 0, 1, 2 };
        equipment.ctChannelNumbers = { 3 };
        equipment.ocsChannelNumbers = { 65534 };
        equipment.z0 = 12.3456;
        equipment.z1 = -0.5;
        RasStatusChannel status;
        status.protectionDeviceGroup = 5;
        status.statusId = "K1";
        status.statusChannelNumber = 4;
        RasRecordingDevice device;
        device.recordingDeviceId = "Рег-1";
        device.comtradeFileName = "Wave";
        device.equipment = { equipment };
        device.statusChannels = { status };
        RasDescription ras;
        ras.revision = "2.0";
        ras.powerObjects.push_back(RasPowerObject { "Север", "Сети", "ПС", { device } });
        ComtradeAnalogList analogs(2);
        at(analogs, 0).waveType = 2;
        at(analogs, 0).currentOrVoltage = 1;
        at(analogs, 0).physical = true;
        at(analogs, 0).physNum = 11;
        at(analogs, 1).waveType = 4;
        at(analogs, 1).currentOrVoltage = 2;
        at(analogs, 1).inversion = true;
        at(analogs, 1).physNum = 12;
        ComtradeDigitalList digitals(1);
        digitals.front().inversion = true;
        digitals.front().physNum = 21;
        const ComtradeFaultList faults { { "Пуск;сброс", 10 }, { "КЗ", 4000000000u } };
        CMR_USER_SETTINGS settings;
        settings.version = 1;
        settings.markers = "[1,2]";
        settings.measures = "[{\"start\":1}]";
        COMTRADE c;
        QCOMPARE(c.writeInf(analogs, digitals, faults, ras, path("rt.inf"), {}, &settings), 0);

        ComtradeAnalogList readAnalogs(2);
        ComtradeDigitalList readDigitals(1);
        ComtradeFaultList readFaults { { "old", 1 } };
        RasDescription readRas;
        CMR_USER_SETTINGS readSettings;
        QCOMPARE(c.readInf(readAnalogs, readDigitals, readFaults, readRas, path("rt.inf"), &readSettings), 0);

        QCOMPARE(readRas.version, std::string("2017"));
        QCOMPARE(readRas.revision, std::string("2.0"));
        QCOMPARE(readRas.powerObjects.size(), size_t(1));
        const RasPowerObject& object = readRas.powerObjects.front();
        QCOMPARE(object.territory, std::string("Север"));
        QCOMPARE(object.recordingDevices.size(), size_t(1));
        const RasRecordingDevice& readDevice = object.recordingDevices.front();
        QCOMPARE(readDevice.recordingDeviceId, std::string("Рег-1"));
        QCOMPARE(readDevice.comtradeFileName, std::string("Wave"));
        const RasEquipment& e = readDevice.equipment.front();
        // Written as a name, read as a number: every type comes back as 0.
        QCOMPARE(e.equipmentType, uint16_t(0));
        QCOMPARE(e.equipmentId, std::string("ВЛ-110"));
        QCOMPARE(e.voltageLevelKv, uint16_t(110));
        QCOMPARE(e.vtChannelNumbers, (Numbers { 0, 1, 2 }));
        QCOMPARE(e.ctChannelNumbers, (Numbers { 3 }));
        QCOMPARE(e.ocsChannelNumbers, (Numbers { 65534 }));
        QCOMPARE(e.rpChannelNumbers, Numbers());
        QCOMPARE(e.z0, 12.35);
        QCOMPARE(e.z1, -0.5);
        const RasStatusChannel& s = readDevice.statusChannels.front();
        QCOMPARE(s.protectionDeviceGroup, uint16_t(0));
        QCOMPARE(s.statusId, std::string("K1"));
        QCOMPARE(s.statusChannelNumber, uint16_t(4));

        QCOMPARE(at(readAnalogs, 0).waveType, 2);
        QCOMPARE(at(readAnalogs, 0).currentOrVoltage, 1);
        QCOMPARE(at(readAnalogs, 0).physical, true);
        QCOMPARE(at(readAnalogs, 0).inversion, false);
        QCOMPARE(at(readAnalogs, 0).physNum, 11);
        QCOMPARE(at(readAnalogs, 1).waveType, 4);
        QCOMPARE(at(readAnalogs, 1).currentOrVoltage, 2);
        QCOMPARE(at(readAnalogs, 1).inversion, true);
        QCOMPARE(at(readAnalogs, 1).physNum, 12);
        QCOMPARE(readDigitals.front().inversion, true);
        QCOMPARE(readDigitals.front().physical, false);
        QCOMPARE(readDigitals.front().physNum, 21);

        QCOMPARE(readFaults.size(), size_t(2));
        // The writer does not escape ';', so the reason is cut there.
        QCOMPARE(readFaults.front().reason, std::string("Пуск"));
        QCOMPARE(readFaults.back().blockNum, 4000000000u);
        QCOMPARE(readSettings.version, 1);
        QCOMPARE(readSettings.markers, std::string("[1,2]"));
        QCOMPARE(readSettings.measures, std::string("[{\"start\":1}]"));
        QCOMPARE(readSettings.customColors, std::string());
    }

    void infFromAnotherWriter()
    {
        const QByteArray text = "[Russian_Comtrade_Edition Description]\n"
                                "PowerObjectCount=3\n"
                                "[Russian_Comtrade_Edition Power_Object_#2]\n"
                                "Territory=T2\n"
                                "RecordingDeviceCount=2\n"
                                "[Russian_Comtrade_Edition Recording_Device_#2_#2]\n"
                                "Recording_Device_ID=D22\n"
                                "EquipmentCount=2\n"
                                "StatusChannelCount=-1\n"
                                "[Russian_Comtrade_Edition Analog_Channel_Equipment_#2_#2_#2]\n"
                                "Equipment_Type=4\n"
                                "VT_Channel_Number=0,3, 5,x,0\n"
                                "Z_0=abc\n"
                                "[russian_comtrade_edition power_object_#3]\n"
                                "Territory=T3\n"
                                "[Russian_Comtrade_Edition Power_Object_#4]\n"
                                "Territory=T4\n"
                                "[Russian_Comtrade_Edition Power_Object_#01]\n"
                                "Territory=T01\n"
                                "[Tessara AnalogChannel#1]\n"
                                "ChannelType=mEANDR\n"
                                "Type=u\n"
                                "Physical=1\n"
                                "Inversion=TRUE\n"
                                "[Tessara AnalogChannel#3]\n"
                                "ChannelType=Square\n"
                                "Type=x\n"
                                "Physical=yes\n"
                                "PhysNum=-7\n"
                                "[Tessara StatusChannel#2]\n"
                                "Inversion=true\n"
                                "[Tessara Fault#1]\n"
                                "Reason=A\n"
                                "[Tessara Fault#3]\n"
                                "Reason=C\n";
        ComtradeAnalogList analogs(3);
        at(analogs, 1).waveType = 3;
        at(analogs, 1).physNum = 99;
        ComtradeDigitalList digitals(2);
        ComtradeFaultList faults;
        RasDescription ras;
        CMR_USER_SETTINGS settings;
        settings.version = 5;
        COMTRADE c;
        QCOMPARE(c.readInf(analogs, digitals, faults, ras, put("other.inf", text), &settings), 0);

        QCOMPARE(ras.version, std::string());
        QCOMPARE(ras.powerObjects.size(), size_t(2));
        QCOMPARE(ras.powerObjects.back().territory, std::string("T3"));
        const RasPowerObject& object = ras.powerObjects.front();
        QCOMPARE(object.territory, std::string("T2"));
        QCOMPARE(object.recordingDevices.size(), size_t(1));
        const RasRecordingDevice& device = object.recordingDevices.front();
        QCOMPARE(device.recordingDeviceId, std::string("D22"));
        QCOMPARE(device.equipment.size(), size_t(1));
        QCOMPARE(device.statusChannels.size(), size_t(0));
        const RasEquipment& e = device.equipment.front();
        QCOMPARE(e.equipmentType, uint16_t(4));
        QCOMPARE(e.vtChannelNumbers, (Numbers { 2, 4 }));
        QCOMPARE(e.z0, 0.0);
        QCOMPARE(e.z1, -1.0);

        const ComtradeAnalogInfo& first = at(analogs, 0);
        QCOMPARE(first.waveType, 3);
        QCOMPARE(first.currentOrVoltage, 2);
        QVERIFY(first.physical);
        QVERIFY(first.inversion);
        QCOMPARE(first.physNum, 0);
        // No section: the analogue stays as it was.
        QCOMPARE(at(analogs, 1).waveType, 3);
        QCOMPARE(at(analogs, 1).physNum, 99);
        const ComtradeAnalogInfo& third = at(analogs, 2);
        QCOMPARE(third.waveType, 0);
        QCOMPARE(third.currentOrVoltage, 0);
        QVERIFY(!third.physical);
        QCOMPARE(third.physNum, -7);
        QCOMPARE(at(digitals, 1).physNum, 1);
        QVERIFY(at(digitals, 1).inversion);
        QCOMPARE(faults.size(), size_t(1));
        QCOMPARE(faults.front().reason, std::string("A"));
        // No settings section: the caller's object stays untouched.
        QCOMPARE(settings.version, 5);
    }

    void infMissingChannelTypeKeyGivesInstant()
    {
        ComtradeAnalogList analogs(1);
        ComtradeDigitalList digitals;
        ComtradeFaultList faults;
        RasDescription ras;
        COMTRADE c;
        QCOMPARE(c.readInf(analogs, digitals, faults, ras,
                     put("ct.inf", "[Tessara AnalogChannel#1]\nPhysical=0\n"), nullptr),
            0);
        QCOMPARE(analogs.front().waveType, 4);
        QCOMPARE(analogs.front().physNum, 0);
        QVERIFY(!analogs.front().physical);
    }

    void infUserSettingsOnlyOnRequest()
    {
        CMR_USER_SETTINGS settings;
        settings.version = 1;
        settings.analogSignalOrder = "[[0]]";
        COMTRADE c;
        QCOMPARE(c.writeInf({}, {}, {}, RasDescription(), path("us.inf"), {}, &settings), 0);
        QCOMPARE(c.writeInf({}, {}, {}, RasDescription(), path("nous.inf"), {}, nullptr), 0);
        ComtradeAnalogList analogs;
        ComtradeDigitalList digitals;
        ComtradeFaultList faults;
        RasDescription ras;
        QCOMPARE(c.readInf(analogs, digitals, faults, ras, path("us.inf"), nullptr), 0);
        CMR_USER_SETTINGS read;
        QCOMPARE(c.readInf(analogs, digitals, faults, ras, path("us.inf"), &read), 0);
        QCOMPARE(read.version, 1);
        QCOMPARE(read.analogSignalOrder, std::string("[[0]]"));
        QVERIFY(!ComtradeTest::readAll(m_dir.filePath("nous.inf")).contains("UserSettings"));
    }

    void mergedWavesRoundTrip()
    {
        const ComtradeMergedWaveList waves { { "01/02/2026,03:04:05.000006", 0, { 0, 2 }, { 1 } },
            { "01/02/2026,03:04:06.000000", 1200, {}, { 0, 1, 2 } } };
        COMTRADE c;
        QCOMPARE(c.writeInf({}, {}, {}, RasDescription(), path("mw.inf"), waves, nullptr), 0);
        ComtradeMergedWaveList read { { "stale", 1, {}, {} } };
        QCOMPARE(c.readMergedWaves(read, path("mw.inf")), 0);
        QCOMPARE(read.size(), size_t(2));
        QCOMPARE(read[0].beginTime, waves[0].beginTime);
        QCOMPARE(read[0].analogNumbers, waves[0].analogNumbers);
        QCOMPARE(read[0].digitalNumbers, waves[0].digitalNumbers);
        QCOMPARE(read[1].blockNum, 1200);
        QCOMPARE(read[1].analogNumbers, Numbers());
        QCOMPARE(read[1].digitalNumbers, waves[1].digitalNumbers);
    }

    void mergedWavesStopAtTheFirstGap()
    {
        const QByteArray text = "[Tessara MergedWave#1]\nBeginTime=x\nBlockNum=5\nAnalogNumber=0,1,,2\n"
                                "[Tessara MergedWave#3]\nBeginTime=z\n";
        ComtradeMergedWaveList read;
        COMTRADE c;
        QCOMPARE(c.readMergedWaves(read, put("gap.inf", text)), 0);
        QCOMPARE(read.size(), size_t(1));
        QCOMPARE(read[0].blockNum, 5);
        QCOMPARE(read[0].analogNumbers, (Numbers { 0, 1 }));
        QCOMPARE(read[0].digitalNumbers, Numbers());
    }

    void infBadInput_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty file") << QByteArray();
        QTest::newRow("truncated section line") << QByteArray("[Tessara Fault#1]\nReason=x\n[Tessara Fau");
        QTest::newRow("huge counts without sections")
            << QByteArray("[Russian_Comtrade_Edition Description]\nPowerObjectCount=32767\n"
                          "[Russian_Comtrade_Edition Power_Object_#1]\nRecordingDeviceCount=99999999999\n");
        QByteArray manyObjects = "[Russian_Comtrade_Edition Description]\nPowerObjectCount=32767\n";
        for (int o = 1; o <= 1500; ++o) {
            manyObjects += "[Russian_Comtrade_Edition Power_Object_#" + QByteArray::number(o)
                + "]\nRecordingDeviceCount=32767\n";
        }
        QTest::newRow("many objects with the largest counts") << manyObjects;
        QTest::newRow("megabyte line")
            << QByteArray("[Tessara Fault#1]\nReason=") + QByteArray(2 * 1024 * 1024, 'r') + QByteArray("\n");
        QByteArray garbage(70000, '\0');
        std::mt19937 random(11);
        for (char& byte : garbage)
            byte = char(random() & 0xFF);
        QTest::newRow("binary garbage") << garbage;
    }

    void infBadInput()
    {
        QFETCH(QByteArray, content);
        const std::string file = put("bad.inf", content);
        COMTRADE c;
        ComtradeAnalogList analogs(3);
        ComtradeDigitalList digitals(3);
        ComtradeFaultList faults;
        RasDescription ras;
        CMR_USER_SETTINGS settings;
        QCOMPARE(c.readInf(analogs, digitals, faults, ras, file, &settings), 0);
        ComtradeMergedWaveList waves;
        QCOMPARE(c.readMergedWaves(waves, file), 0);
        QCOMPARE(analogs.size(), size_t(3));
    }

    void folderIsNoFile()
    {
        const std::string folder = m_dir.path().toStdString();
        COMTRADE c;
        ComtradeAnalogList analogs(2);
        ComtradeDigitalList digitals;
        ComtradeFaultList faults;
        RasDescription ras;
        ComtradeMergedWaveList waves;
        StreamCapture capture(std::cerr);
        QCOMPARE(c.readCfg(analogs, digitals, folder), -1);
        QCOMPARE(capture.text(), std::string("Error open CFG file for read\n"));
        QCOMPARE(analogs.size(), size_t(2));
        QCOMPARE(c.readInf(analogs, digitals, faults, ras, folder, nullptr), -1);
        QCOMPARE(c.readMergedWaves(waves, folder), -1);
    }

    void infMissingFile()
    {
        COMTRADE c;
        ComtradeAnalogList analogs;
        ComtradeDigitalList digitals;
        ComtradeFaultList faults { { "kept", 1 } };
        RasDescription ras;
        ComtradeMergedWaveList waves { {} };
        StreamCapture capture(std::cerr);
        QCOMPARE(c.readInf(analogs, digitals, faults, ras, path("missing.inf"), nullptr), -1);
        QCOMPARE(c.readMergedWaves(waves, path("missing.inf")), -1);
        QCOMPARE(faults.size(), size_t(1));
        QCOMPARE(waves.size(), size_t(1));
        QCOMPARE(capture.text(), std::string());
    }
};

QTEST_GUILESS_MAIN(TestComtradeReaders)
#include "tst_comtradereaders.moc"
