#include "ComtradeChannels.h"

void ComtradeAnalogChannel::setPhaseIdentification(const QString& text)
{
    m_phaseIdentification = text;
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (isNumber) {
        setPhaseNumber(number >= 1 && number <= 3 ? number : 0);
        return;
    }
    const QString lowered = text.toLower();
    if (lowered.contains(QLatin1Char('a')))
        setPhaseNumber(1);
    else if (lowered.contains(QLatin1Char('b')))
        setPhaseNumber(2);
    else if (lowered.contains(QLatin1Char('c')))
        setPhaseNumber(3);
    else
        setPhaseNumber(0);
}
