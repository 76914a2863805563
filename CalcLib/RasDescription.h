#pragma once

#include <list>
#include <string>
#include <vector>

// The tree of the Russian edition's .INF: power objects, their recording devices, and the
// equipment and status channels each device observes. Channel numbers are 0-based in memory.

struct RasEquipment
{
    unsigned short equipmentType = 0;
    std::string equipmentId;
    std::string equipmentShortName;
    unsigned short voltageLevelKv = 0;
    std::string vtId;
    std::vector<unsigned short> vtChannelNumbers;
    std::string ctId;
    std::vector<unsigned short> ctChannelNumbers;
    std::vector<unsigned short> rpChannelNumbers;
    std::vector<unsigned short> rpDChannelNumbers;
    std::vector<unsigned short> fChannelNumbers;
    std::vector<unsigned short> esChannelNumbers;
    std::vector<unsigned short> ocsChannelNumbers;
    double z0 = 0.0;
    double z1 = 0.0;
};

struct RasStatusChannel
{
    unsigned short protectionDeviceGroup = 0;
    std::string statusSignalType;
    std::string statusId;
    std::string statusShortName;
    unsigned short voltageLevelKv = 0;
    unsigned short statusChannelNumber = 0;
};

struct RasRecordingDevice
{
    std::string recordingDeviceId;
    std::string vendor;
    std::string model;
    std::string serialNumber;
    std::string hardwareRevision;
    std::string softwareRevision;
    std::string comtradeFileName;
    std::list<RasEquipment> equipment;
    std::list<RasStatusChannel> statusChannels;
};

struct RasPowerObject
{
    std::string territory;
    std::string companyName;
    std::string stationName;
    std::list<RasRecordingDevice> recordingDevices;
};

struct RasDescription
{
    std::string version = "2017";
    std::string revision = "1.0";
    std::list<RasPowerObject> powerObjects;
};
