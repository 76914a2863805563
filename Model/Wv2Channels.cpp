#include "Wv2Channels.h"

QString Wv2AnalogChannel::unitName(quint16 code)
{
    switch (code) {
    case 1:
        return tr("В");
    case 2:
        return tr("А");
    case 3:
        return tr("Вт");
    case 4:
        return tr("Ом");
    case 5:
        return tr("Гц");
    case 6:
        return tr("°");
    case 7:
        return tr("вар");
    case 8:
        return tr("ВА");
    default:
        return {};
    }
}

QString Wv2AnalogChannel::prefix(qint16 power, bool withMicro)
{
    switch (power) {
    case -6:
        return withMicro ? tr("мк") : QString();
    case -3:
        return tr("м");
    case 3:
        return tr("к");
    case 6:
        return tr("М");
    case 9:
        return tr("Г");
    default:
        return {};
    }
}

void Wv2AnalogChannel::setUnitType(const UNIT_TYPE& type)
{
    setUnit(prefix(type.power, true) + unitName(type.unit));
}

QString Wv2AnalogChannel::getUnitType(const UNIT_TYPE& type)
{
    return prefix(type.power, false) + unitName(type.unit);
}

void Wv2AnalogChannel::setChanType(int code)
{
    const auto byPhase = [this](int first) {
        const int phase = phaseNumber();
        return (phase >= 1 && phase <= 3) ? first + phase - 1 : 0;
    };
    const auto within = [code](int low, int high) { return code >= low && code <= high; };

    if (code == 0 || code == 1)
        AnalogChannel::setChanType(0);
    else if (within(100, 104))
        AnalogChannel::setChanType(byPhase(1));
    else if (within(200, 204))
        AnalogChannel::setChanType(byPhase(4));
    else if (within(300, 303) || within(800, 803) || within(900, 903) || code == 1000 || within(1006, 1008))
        AnalogChannel::setChanType(0);
    else if (within(1001, 1005))
        // The device numbers these from Ub onwards: 1001 is Ub, 1005 is Ic.
        AnalogChannel::setChanType(code - 999);
}
