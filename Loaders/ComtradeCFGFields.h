#pragma once

// Which line of a COMTRADE .cfg file has just been read, for the check of its shape.
enum class ComtradeCFGFields {
    ChannelOrData = 0, // a channel line, or a line of an ASCII .dat: not checked
    StationDeviceYear = 1,
    ChannelCounts = 2,
    LineFrequency = 3,
    SampleRateCount = 4,
    SampleRate = 5,
    FirstValueTime = 6,
    TriggerTime = 7,
    FileType = 8,
    TimeMultiplier = 9,
    TimeCodes = 10,
    TimeQuality = 11, // not checked
};
