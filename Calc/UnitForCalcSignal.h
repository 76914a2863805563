#pragma once

#include "korvane_export.h"

#include <QString>

// The unit and the kind of each line signal code. A code outside 0 to 44 has no unit and no kind.
class KORVANE_EXPORT UnitForCalcSignal
{
public:
    static QString unit(int code);

    static bool isVoltage(int code);
    static bool isCurrent(int code);
    static bool isResistance(int code);
    static bool isActivationPower(int code);
    static bool isReactivePower(int code);
    static bool isFreq(int code);
    static bool isAngle(int code);
    // Signals whose values over all samples make a waveform: the instantaneous ones.
    static bool isSineSignal(int code);
};
