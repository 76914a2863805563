#include "CalcLib/Comtrade.h"
#include "CalcLib/ComtradeTables.h"

#include "ComtradeTestSupport.h"
#include "StreamCapture.h"

#include <QDateTime>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <cstring>
#include <iostream>
#include <sstream>

using ComtradeTest::crLf;
using ComtradeTest::putLe16;
using ComtradeTest::putLe32;
using ComtradeTest::readAll;

namespace {
// 15 Nov 2026 03:04:59 UTC in microseconds since the epoch.
int64_t baseTimeUs()
{
    return QDateTime(QDate(2026, 11, 15), QTime(3, 4, 59), Qt::UTC).toMSecsSinceEpoch() * 1000;
}

ComtradeAnalogList sampleAnalogs()
{
    ComtradeAnalogInfo first;
    first.name = "Ua,1";
    first.phase = "A";
    first.unit = "kV";
    first.multiplier = 1234567.0f;
    first.offsetAdder = 0.5f;
    first.skew = 0.000123f;
    first.primary = 110000.0f;
    first.secondary = 100.0f;
    first.ps = 'S';
    ComtradeAnalogInfo second;
    second.name = "Ib";
    return { first, second };
}

ComtradeDigitalList sampleDigitals()
{
    ComtradeDigitalInfo digital;
    digital.name = "D,1";
    digital.phase = "B";
    digital.circuit = "c";
    digital.normalState = '1';
    return { digital };
}

QByteArray expectedChannelLines()
{
    return crLf("3,2A,1D") + crLf("1,Ua.1,A,,kV,1.23457e+06,0.5,0.000123,-99999,99999,110000,100,S")
        + crLf("2,Ib,,,,1,0,0,-99999,99999,1,1,P") + crLf("1,D.1,B,c,1");
}

QByteArray packedDigitals(const std::vector<uint8_t>& values)
{
    QByteArray out;
    for (size_t word = 0; word * 16 < values.size(); ++word) {
        uint16_t bits = 0;
        for (size_t i = word * 16; i < values.size() && i < word * 16 + 16; ++i)
            bits |= uint16_t((values[i] != 0 ? 1u : 0u) << (i % 16));
        putLe16(out, bits);
    }
    return out;
}
} // namespace

class TestComtradeWriters : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    std::string path(const char* name) const { return m_dir.filePath(name).toStdString(); }
    QByteArray file(const char* name) const { return readAll(m_dir.filePath(name)); }

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void defaults()
    {
        COMTRADE c;
        QCOMPARE(c.basePath(), std::string("/tmp"));
        QCOMPARE(c.stationName(), std::string("Станция"));
        QCOMPARE(c.deviceName(), std::string("Имя устройства"));
        QCOMPARE(c.softwareVersion(), std::string("v1.0"));
        QCOMPARE(c.revisionYear(), 2013);
        QCOMPARE(c.sampleRate(), 4000.0f);
        QCOMPARE(c.dataFormat(), 3);
        QCOMPARE(c.timeCode(), std::string("0"));
        QCOMPARE(c.timeQuality(), uint16_t(1));
        const ComtradeAnalogInfo analog;
        QCOMPARE(analog.ps, 'P');
        QCOMPARE(analog.minValue, -99999.0f);
        QCOMPARE(analog.waveType, 1);
        QCOMPARE(ComtradeDigitalInfo().normalState, '0');
        QCOMPARE(RasDescription().version, std::string("2017"));
    }

    void zoneCodes_data()
    {
        QTest::addColumn<int>("hours");
        QTest::addColumn<int>("minutes");
        QTest::addColumn<QByteArray>("code");
        QTest::addColumn<qint64>("offsetUs");
        QTest::newRow("positive hours get a plus")
            << 3 << 0 << QByteArray("+3") << qint64(3 * 3600) * 1000000;
        QTest::newRow("zero has no sign") << 0 << 0 << QByteArray("0") << qint64(0);
        QTest::newRow("negative hours") << -5 << 0 << QByteArray("-5") << qint64(-5 * 3600) * 1000000;
        QTest::newRow("minutes as a raw byte")
            << 5 << 30 << QByteArray("+5h\x1E") << qint64(5 * 3600 + 1800) * 1000000;
    }

    void zoneCodes()
    {
        QFETCH(int, hours);
        QFETCH(int, minutes);
        QFETCH(QByteArray, code);
        QFETCH(qint64, offsetUs);
        COMTRADE c;
        c.setLocalCode(hours, static_cast<unsigned char>(minutes));
        QCOMPARE(QByteArray::fromStdString(c.localCode()), code);
        QCOMPARE(c.timeOffsetUs(), int64_t(0));
        c.setTimeCode(hours, static_cast<unsigned char>(minutes));
        QCOMPARE(QByteArray::fromStdString(c.timeCode()), code);
        QCOMPARE(c.timeOffsetUs(), int64_t(offsetUs));
    }

    void timeStampText()
    {
        COMTRADE c;
        QCOMPARE(c.timeStampText(baseTimeUs() + 123), std::string("15/11/2026,03:04:59.000123"));
        c.setTimeCode(3, 0);
        QCOMPARE(c.timeStampText(baseTimeUs() + 123), std::string("15/11/2026,06:04:59.000123"));
        c.setTimeCode(-4, 0);
        QCOMPARE(c.timeStampText(baseTimeUs() + 999999), std::string("14/11/2026,23:04:59.999999"));
    }

    void cfgOf2013EndsWithCodeAndQualityLines()
    {
        COMTRADE c;
        c.setStationName("ПС Северная");
        c.setDeviceName("РЗА-1");
        c.setSampleRate(4800.0f);
        c.setTimeCode(3, 0);
        c.setLocalCode(5, 30);
        const std::string target = path("a.cfg");
        QCOMPARE(c.writeCfg(sampleAnalogs(), sampleDigitals(), 9999, target, baseTimeUs() + 123,
                     baseTimeUs() + 1500000),
            0);
        const QByteArray expected = crLf("ПС Северная,РЗА-1,2013") + expectedChannelLines() + crLf("50")
            + crLf("1") + crLf("4800,9999") + crLf("15/11/2026,06:04:59.000123")
            + crLf("15/11/2026,06:05:00.500000") + crLf("float32") + crLf("1") + crLf("+3,+5h\x1E")
            + crLf("1,0");
        QCOMPARE(file("a.cfg"), expected);
    }

    void cfgOf1999EndsWithTimeMultiplier()
    {
        COMTRADE c;
        c.setRevisionYear(1999);
        c.setFormat(1);
        c.setRateCount(3);
        c.setTimeMultiplier(0.001f);
        QCOMPARE(c.writeCfg(sampleAnalogs(), sampleDigitals(), 7, path("b.cfg"), 0, 0), 0);
        const QByteArray expected = crLf("Станция,Имя устройства,1999") + expectedChannelLines() + crLf("50")
            + crLf("3") + crLf("4000,7") + crLf("01/01/1970,00:00:00.000000")
            + crLf("01/01/1970,00:00:00.000000") + crLf("binary") + crLf("0.001");
        QCOMPARE(file("b.cfg"), expected);
    }

    void cfgFormatWords_data()
    {
        QTest::addColumn<int>("format");
        QTest::addColumn<QString>("word");
        QTest::newRow("0") << 0 << "ASCII";
        QTest::newRow("1") << 1 << "binary";
        QTest::newRow("2") << 2 << "binary32";
        QTest::newRow("3") << 3 << "float32";
    }

    void cfgFormatWords()
    {
        QFETCH(int, format);
        QFETCH(QString, word);
        COMTRADE c;
        c.setRevisionYear(1991);
        c.setFormat(format);
        QCOMPARE(c.writeCfg({}, {}, 0, path("f.cfg"), 0, 0), 0);
        const QList<QByteArray> lines = file("f.cfg").split('\n');
        QCOMPARE(lines.size(), 10);
        QCOMPARE(lines.at(7), word.toLatin1() + "\r");
        QCOMPARE(lines.at(1), QByteArray("0,0A,0D\r"));
    }

    void cfgEmptyPathUsesBasePath()
    {
        COMTRADE c;
        c.setBasePath(path("base"));
        QCOMPARE(c.writeCfg({}, {}, 0, "", 0, 0), 0);
        QVERIFY(QFileInfo::exists(m_dir.filePath("base.CFG")));
    }

    void cfgUnwritableReportsOnStandardError()
    {
        COMTRADE c;
        StreamCapture capture(std::cerr);
        QCOMPARE(c.writeCfg({}, {}, 0, path("none/x.cfg"), 0, 0), -1);
        QCOMPARE(capture.text(), std::string("Error open CFG file for write\n"));
    }

    void asciiDat()
    {
        COMTRADE c;
        c.setSampleRate(4800.0f);
        ComtradeDataBuffer buffer;
        QCOMPARE(buffer.init(1, 3, 2, 2, 0), 0);
        const double values[3][2] = { { 1.5, -250.0 }, { 1234567.0, 0.000123 }, { 0.0, 1000000.0 } };
        const uint8_t digitals[3][2] = { { 1, 0 }, { 0, 5 }, { 0, 0 } };
        for (uint32_t s = 0; s < 3; ++s) {
            for (uint32_t a = 0; a < 2; ++a)
                buffer.sample(0, s).setAnalogFromDouble(a, values[s][a]);
            for (uint32_t d = 0; d < 2; ++d)
                buffer.sample(0, s).setDigital(d, digitals[s][d]);
        }
        QCOMPARE(c.writeDat(buffer, path("a.dat"), 0), 0);
        const QByteArray expected = crLf("1,0,   1.5,  -250,1,0") + crLf("2,208,1.23457e+06,0.000123,0,1")
            + crLf("3,416,     0, 1e+06,0,0");
        QCOMPARE(file("a.dat"), expected);

        // The next block goes on with number 4 and time 3 x 208.
        QCOMPARE(buffer.init(1, 1, 2, 2, 0), 0);
        QCOMPARE(c.writeDat(buffer, path("a.dat"), 3), 0);
        QCOMPARE(file("a.dat"), expected + crLf("4,624,     0,     0,0,0"));
    }

    void binaryDat_data()
    {
        QTest::addColumn<int>("format");
        QTest::newRow("binary") << 1;
        QTest::newRow("binary32") << 2;
        QTest::newRow("float32") << 3;
    }

    void binaryDat()
    {
        QFETCH(int, format);
        COMTRADE c;
        c.setSampleRate(1000.0f);
        const uint32_t samples = 3, analogs = 2, digitals = 17;
        ComtradeDataBuffer buffer;
        QCOMPARE(buffer.init(1, samples, analogs, digitals, format), 0);
        QByteArray expected;
        for (uint32_t s = 0; s < samples; ++s) {
            ComtradeSample& sample = buffer.sample(0, s);
            putLe32(expected, s + 1);
            putLe32(expected, s * 1000);
            for (uint32_t a = 0; a < analogs; ++a) {
                const int value = int(s * 100 + a) - 150;
                sample.setAnalogFromInt(a, value);
                if (format == 1) {
                    putLe16(expected, uint16_t(int16_t(value)));
                } else if (format == 2) {
                    putLe32(expected, uint32_t(value));
                } else {
                    const float f = float(value);
                    uint32_t bits;
                    std::memcpy(&bits, &f, 4);
                    putLe32(expected, bits);
                }
            }
            std::vector<uint8_t> bits(digitals);
            for (uint32_t d = 0; d < digitals; ++d) {
                bits[d] = uint8_t((d + s) % 3 == 0 ? 7 : 0);
                sample.setDigital(d, bits[d]);
            }
            expected += packedDigitals(bits);
        }
        const int recordSize = int(analogs * ComtradeDataBuffer::valueWidth(format) + 2 * 2 + 8);
        QCOMPARE(expected.size(), recordSize * int(samples));
        QCOMPARE(c.writeDat(buffer, path("b.dat"), 0), 0);
        QCOMPARE(file("b.dat"), expected);
    }

    void binaryDatInTwoCallsIsContinuous()
    {
        COMTRADE c;
        c.setSampleRate(4800.0f);
        ComtradeDataBuffer buffer;
        QCOMPARE(buffer.init(1, 2, 1, 1, 2), 0);
        QByteArray expected;
        for (uint32_t s = 0; s < 4; ++s) {
            putLe32(expected, s + 1);
            putLe32(expected, s * 208);
            putLe32(expected, uint32_t(-int32_t(s)));
            putLe16(expected, uint16_t(s % 2));
        }
        for (uint32_t call = 0; call < 2; ++call) {
            for (uint32_t s = 0; s < 2; ++s) {
                buffer.sample(0, s).setAnalogFromInt(0, -int32_t(call * 2 + s));
                buffer.sample(0, s).setDigital(0, uint8_t(s));
            }
            QCOMPARE(c.writeDat(buffer, path("two.dat"), call * 2), 0);
        }
        QCOMPARE(file("two.dat"), expected);
    }

    void seventeenDigitalsTakeTwoWords()
    {
        COMTRADE c;
        ComtradeDataBuffer buffer;
        QCOMPARE(buffer.init(1, 1, 0, 17, 3), 0);
        buffer.sample(0, 0).setDigital(0, 1);
        buffer.sample(0, 0).setDigital(15, 1);
        buffer.sample(0, 0).setDigital(16, 1);
        QCOMPARE(c.writeDat(buffer, path("d.dat"), 0), 0);
        const QByteArray bytes = file("d.dat");
        QCOMPARE(bytes.size(), 12);
        QCOMPARE(bytes.mid(8), QByteArray("\x01\x80\x01\x00", 4));
    }

    void longDatCrossesTheRecordBuffer()
    {
        // 140-byte records: 468 of them fill one buffer, so 1000 take three writes.
        COMTRADE c;
        c.setSampleRate(4800.0f);
        const uint32_t samples = 1000, analogs = 32, digitals = 32;
        ComtradeDataBuffer buffer;
        QCOMPARE(buffer.init(2, samples / 2, analogs, digitals, 3), 0);
        QByteArray expected;
        for (uint32_t s = 0; s < samples; ++s) {
            ComtradeSample& sample = buffer.sample(s / 500, s % 500);
            putLe32(expected, 501 + s);
            putLe32(expected, (500 + s) * 208);
            for (uint32_t a = 0; a < analogs; ++a) {
                const float f = float(s) * 0.5f + float(a);
                sample.setAnalogFromDouble(a, f);
                uint32_t bits;
                std::memcpy(&bits, &f, 4);
                putLe32(expected, bits);
            }
            std::vector<uint8_t> bits(digitals);
            for (uint32_t d = 0; d < digitals; ++d) {
                bits[d] = uint8_t((s >> (d % 10)) & 1);
                sample.setDigital(d, bits[d]);
            }
            expected += packedDigitals(bits);
        }
        QCOMPARE(c.writeDat(buffer, path("long.dat"), 500), 0);
        QCOMPARE(file("long.dat"), expected);
    }

    void firstSampleZeroTruncates()
    {
        COMTRADE c;
        QVERIFY(ComtradeTest::writeAll(m_dir.filePath("t.dat"), QByteArray(100, 'x')));
        ComtradeDataBuffer buffer;
        QCOMPARE(buffer.init(1, 1, 0, 0, 3), 0);
        QCOMPARE(c.writeDat(buffer, path("t.dat"), 0), 0);
        QCOMPARE(file("t.dat").size(), 8);
    }

    void emptyBufferWritesNothing()
    {
        COMTRADE c;
        ComtradeDataBuffer buffer;
        QCOMPARE(c.writeDat(buffer, path("empty.dat"), 0), 0);
        QVERIFY(!QFileInfo::exists(m_dir.filePath("empty.dat")));
    }

    void unwritableFilesGiveMinusOne()
    {
        COMTRADE c;
        ComtradeDataBuffer buffer;
        QCOMPARE(buffer.init(1, 1, 1, 1, 3), 0);
        QCOMPARE(c.writeDat(buffer, path("none/x.dat"), 0), -1);
        QCOMPARE(c.writeHdr(path("none/x.hdr"), 0, {}, {}), -1);
        QCOMPARE(c.writeRawHdr(path("none/x.hdr"), "x"), -1);
        QCOMPARE(c.writeInf({}, {}, {}, RasDescription(), path("none/x.inf"), {}, nullptr), -1);
    }

    void generatedHdr()
    {
        COMTRADE c;
        c.setDeviceName("РЗА-1");
        c.setOwnerName("Сети");
        c.setStationName("ПС");
        c.setTimeCode(-2, 0);
        QCOMPARE(c.writeHdr(path("a.hdr"), baseTimeUs() + 7, { "second" }, { "extra 1", "extra 2" }), 0);
        const QByteArray expected = crLf("Осциллограмма записана устройством \"РЗА-1\"")
            + crLf("ООО \"Тессара-Системы\" г.Нордгород") + crLf("Субъект электроэнергетики: Сети")
            + crLf("Объект электроэнергетики: ПС") + crLf("Источник: РЗА-1") + crLf("Версия ПО: v1.0")
            + crLf("Наименование файла: /tmp") + crLf("Дата и время: 15/11/2026,01:04:59.000007")
            + crLf("Временной код: -2") + crLf("") + crLf("Дополнительная информация:") + crLf("extra 1")
            + crLf("extra 2") + crLf("second");
        QCOMPARE(file("a.hdr"), expected);
    }

    void rawHdrKeepsBytes()
    {
        COMTRADE c;
        const std::string bytes("free\ntext\0with nul", 18);
        QCOMPARE(c.writeRawHdr(path("raw.hdr"), bytes), 0);
        QCOMPARE(ComtradeTest::bytes(file("raw.hdr")), bytes);
    }

    void tables_data()
    {
        QTest::addColumn<QString>("actual");
        QTest::addColumn<QString>("expected");
        using namespace ComtradeTables;
        QTest::newRow("channel type 3") << QString::fromStdString(channelTypeName(3)) << "Meandr";
        QTest::newRow("channel type 4") << QString::fromStdString(channelTypeName(4)) << "Instant";
        QTest::newRow("channel type out of table") << QString::fromStdString(channelTypeName(5)) << "Unknown";
        QTest::newRow("channel type negative") << QString::fromStdString(channelTypeName(-1)) << "Unknown";
        QTest::newRow("type 1") << QString::fromStdString(currentOrVoltageName(1)) << "I";
        QTest::newRow("type 0") << QString::fromStdString(currentOrVoltageName(0)) << "";
        QTest::newRow("equipment 6") << QString::fromStdString(equipmentTypeName(6)) << "Capacitor_Bank";
        QTest::newRow("equipment 7") << QString::fromStdString(equipmentTypeName(7)) << "";
        QTest::newRow("group 3") << QString::fromStdString(protectionDeviceGroupName(3))
                                 << "Operation_Control_Automation";
        QTest::newRow("group 7") << QString::fromStdString(protectionDeviceGroupName(7)) << "";
    }

    void tables()
    {
        QFETCH(QString, actual);
        QFETCH(QString, expected);
        QCOMPARE(actual, expected);
    }

    void infSectionsAndValueForms()
    {
        RasEquipment equipment;
        equipment.equipmentType = 2;
        equipment.equipmentId = "L1";
        equipment.equipmentShortName = "L1s";
        equipment.voltageLevelKv = 110;
        equipment.vtId = "vt";
        equipment.vtChannelNumbers = { 0, 1, 2 };
        equipment.ctId = "ct";
        equipment.ctChannelNumbers = { 3, 4, 5 };
        equipment.rpDChannelNumbers = { 0 };
        equipment.z0 = 1.5;
        equipment.z1 = 0.333;
        RasStatusChannel status;
        status.protectionDeviceGroup = 6;
        status.statusSignalType = "T";
        status.statusId = "I";
        status.statusShortName = "N";
        status.voltageLevelKv = 35;
        status.statusChannelNumber = 7;
        RasRecordingDevice device { "R1", "V", "M", "S", "H", "W", "F", { equipment }, { status } };
        RasDescription ras;
        ras.powerObjects.push_back(RasPowerObject { "Север", "Сети", "ПС", { device } });

        ComtradeAnalogList analogs(2);
        analogs.front().waveType = 1;
        analogs.front().currentOrVoltage = 2;
        analogs.front().physical = true;
        analogs.front().physNum = 1;
        analogs.back().waveType = 9;
        analogs.back().currentOrVoltage = 7;
        analogs.back().inversion = true;
        analogs.back().physNum = 5;
        ComtradeDigitalInfo digital;
        digital.physical = true;
        digital.inversion = true;
        digital.physNum = 3;
        const ComtradeFaultList faults { ComtradeFaultInfo { "КЗ", 250 } };
        const ComtradeMergedWaveList waves { ComtradeMergedWaveInfo {
            "15/11/2026,06:04:59.000123", 0, { 0, 1 }, {} } };
        CMR_USER_SETTINGS settings;
        settings.version = 1;
        settings.analogSignalOrder = "[[0,1]]";
        settings.discreteSignalOrder = "[0]";
        settings.selectedSignals = "[true,false]";
        settings.customColors = "[]";
        settings.measures = "[]";
        settings.markers = "[10]";

        COMTRADE c;
        QCOMPARE(c.writeInf(analogs, { digital }, faults, ras, path("a.inf"), waves, &settings), 0);

        const auto section = [](const char* name, std::initializer_list<const char*> keys) {
            QByteArray text = QByteArray("[") + name + "] \r\r\n";
            for (const char* key : keys)
                text += QByteArray(key) + "\r\r\n";
            return text + "\r\r\n";
        };
        const QByteArray expected = section("Russian_Comtrade_Edition Description",
                                        { "PowerObjectCount=1", "Russian_Comtrade_Edition_Version=2017",
                                            "Russian_Comtrade_Edition_Revision=1.0" })
            + section("Russian_Comtrade_Edition Power_Object_#1",
                { "Territory=Север", "Company_Name=Сети", "Station_Name=ПС", "RecordingDeviceCount=1" })
            + section("Russian_Comtrade_Edition Recording_Device_#1_#1",
                { "Recording_Device_ID=R1", "Vendor=V", "Model=M", "Serial_Number=S", "Hardware_Revision=H",
                    "Software_Revision=W", "Comtrade_File_Name=F", "EquipmentCount=1",
                    "StatusChannelCount=1" })
            + section("Russian_Comtrade_Edition Analog_Channel_Equipment_#1_#1_#1",
                { "Equipment_Type=Power_Transformer", "Equipment_ID=L1", "Equipment_Short_Name=L1s",
                    "Voltage_Level_In_kV=110", "VT_ID=vt", "VT_Channel_Number=1,2,3", "CT_ID=ct",
                    "CT_Channel_Number=4,5,6", "RP_Channel_Number=", "RP_DChannel_Number=1",
                    "F_Channel_Number=", "ES_Channel_Number=", "OCS_Channel_Number=", "Z_0=1.50",
                    "Z_1=0.33" })
            + section("Russian_Comtrade_Edition Status_Channel_#1_#1_#1",
                { "Protection_Device_Group=Fault_Recorder", "Status_Signal_Type=T", "Status_ID=I",
                    "Status_Short_Name=N", "Voltage_Level_In_kV=35", "Status_Channel_Number=7" })
            + section("Tessara AnalogChannel#1",
                { "ChannelType=Sine", "Type=U", "Physical=True", "Inversion=False", "PhysNum=1" })
            + section("Tessara AnalogChannel#2",
                { "ChannelType=Unknown", "Type=", "Physical=False", "Inversion=True", "PhysNum=5" })
            + section("Tessara StatusChannel#1", { "Physical=True", "Inversion=True", "PhysNum=3" })
            + section("Tessara Fault#1", { "Reason=КЗ", "BlockNum=250" })
            + section("Tessara MergedWave#1",
                { "BeginTime=15/11/2026,06:04:59.000123", "BlockNum=0", "AnalogNumber=1,2",
                    "DigitalNumber=" })
            + section("Tessara UserSettings",
                { "Version=1", "AnalogSignalOrder=[[0,1]]", "DiscreteSignalOrder=[0]",
                    "SelectedSignals=[true,false]", "CustomColors=[]", "Measures=[]", "Markers=[10]" });
        QCOMPARE(file("a.inf"), expected);
    }

    void infSectionOrderOfTwoObjects()
    {
        RasRecordingDevice device;
        device.equipment.resize(2);
        device.statusChannels.resize(1);
        RasDescription ras;
        ras.powerObjects.resize(2);
        ras.powerObjects.front().recordingDevices = { device, device };
        ras.powerObjects.back().recordingDevices = { device };
        COMTRADE c;
        QCOMPARE(c.writeInf({}, {}, {}, ras, path("order.inf"), {}, nullptr), 0);
        QStringList names;
        for (const QByteArray& line : file("order.inf").split('\n')) {
            if (line.startsWith('['))
                names << QString::fromLatin1(
                    line.mid(line.indexOf(' ') + 1, line.indexOf(']') - line.indexOf(' ') - 1));
        }
        const QStringList expected { "Description", "Power_Object_#1", "Recording_Device_#1_#1",
            "Analog_Channel_Equipment_#1_#1_#1", "Analog_Channel_Equipment_#1_#1_#2",
            "Status_Channel_#1_#1_#1", "Recording_Device_#1_#2", "Analog_Channel_Equipment_#1_#2_#1",
            "Analog_Channel_Equipment_#1_#2_#2", "Status_Channel_#1_#2_#1", "Power_Object_#2",
            "Recording_Device_#2_#1", "Analog_Channel_Equipment_#2_#1_#1",
            "Analog_Channel_Equipment_#2_#1_#2", "Status_Channel_#2_#1_#1" };
        QCOMPARE(names, expected);
    }
};

QTEST_GUILESS_MAIN(TestComtradeWriters)
#include "tst_comtradewriters.moc"
