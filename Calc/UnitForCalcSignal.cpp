#include "Calc/UnitForCalcSignal.h"

#include <QCoreApplication>

namespace {
bool inRange(int code, int first, int last)
{
    return code >= first && code <= last;
}
} // namespace

QString UnitForCalcSignal::unit(int code)
{
    if (isVoltage(code))
        return QCoreApplication::translate("UnitForCalcSignal", "В");
    if (isCurrent(code))
        return QCoreApplication::translate("UnitForCalcSignal", "A");
    if (isResistance(code))
        return QCoreApplication::translate("UnitForCalcSignal", "Ом");
    if (isActivationPower(code))
        return QCoreApplication::translate("UnitForCalcSignal", "Вт");
    if (isReactivePower(code))
        return QCoreApplication::translate("UnitForCalcSignal", "вар");
    if (isFreq(code))
        return QCoreApplication::translate("UnitForCalcSignal", "Гц");
    if (isAngle(code))
        return QCoreApplication::translate("UnitForCalcSignal", "Град");
    return QString();
}

bool UnitForCalcSignal::isVoltage(int code)
{
    return inRange(code, 0, 3) || inRange(code, 8, 10);
}

bool UnitForCalcSignal::isCurrent(int code)
{
    return inRange(code, 4, 7) || inRange(code, 11, 13);
}

bool UnitForCalcSignal::isResistance(int code)
{
    return inRange(code, 14, 27);
}

bool UnitForCalcSignal::isActivationPower(int code)
{
    return code == 28 || code == 30 || code == 32 || code == 34;
}

bool UnitForCalcSignal::isReactivePower(int code)
{
    return code == 29 || code == 31 || code == 33 || code == 35;
}

bool UnitForCalcSignal::isFreq(int code)
{
    return code == 39;
}

bool UnitForCalcSignal::isAngle(int code)
{
    return inRange(code, 40, 44);
}

bool UnitForCalcSignal::isSineSignal(int code)
{
    return inRange(code, 0, 13);
}
