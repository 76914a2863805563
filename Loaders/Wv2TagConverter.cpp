#include "Wv2TagConverter.h"

#include <QTextCodec>

QString Wv2TagConverter::decode(const QByteArray& text)
{
    static QTextCodec* const codec = QTextCodec::codecForName("CP1251");
    return codec ? codec->toUnicode(text) : QString::fromLatin1(text);
}

QSharedPointer<Wv2AnalogChannel> Wv2TagConverter::convert(const WAVE_TAGACHANNEL& tag)
{
    auto channel = QSharedPointer<Wv2AnalogChannel>::create();
    channel->setLineBitMask(tag.lineBitMask);
    channel->setShortName(decode(tag.shortName));
    channel->setFullName(decode(tag.fullName));
    channel->setName(QStringLiteral("%1 (%2)").arg(channel->shortName(), channel->fullName()));
    channel->setMultiplier(tag.multiplier);
    channel->setOffsetAdder(tag.valueOffset * tag.multiplier);
    channel->setUnitType(tag.unit);
    channel->setPrimary(tag.primary);
    channel->setSecondary(tag.secondary);
    channel->setPhaseNumber(tag.phaseNumber);
    channel->setAdcDelay(tag.adcDelay);
    channel->setDataType(DT::Int16);
    channel->setDataCount(1);
    channel->setPhysNum(tag.physNum);
    channel->setNormalState(tag.normalState);
    channel->setChanType(tag.typeCode);
    return channel;
}

QSharedPointer<Wv2DigitalChannel> Wv2TagConverter::convert(const WAVE_TAGDCHANNEL& tag)
{
    auto channel = QSharedPointer<Wv2DigitalChannel>::create();
    channel->setShortName(decode(tag.shortName));
    channel->setFullName(decode(tag.fullName));
    channel->setName(channel->fullName());
    channel->setWv2Offset(tag.offset);
    channel->setWv2Mask(static_cast<unsigned char>(tag.mask));
    channel->setDataType(DT::Digital);
    channel->setDataCount(1);
    channel->setPhysNum(tag.physNum);
    channel->setNormalState(tag.normalState != 0);
    return channel;
}

QSharedPointer<Line> Wv2TagConverter::convert(const WAVE_TAGLINE& tag)
{
    auto line = QSharedPointer<Line>::create();
    line->setName(decode(tag.name));
    line->setLineID(tag.id);
    line->setUnit(QStringLiteral("кВ"));
    line->setVoltage(tag.voltage * getLineScale(tag.scale));
    return line;
}

QSharedPointer<Failure> Wv2TagConverter::convert(const EmergenciesData& emergency)
{
    auto failure = QSharedPointer<Failure>::create(
        QString::fromLocal8Bit(emergency.reason), int(emergency.blockNumber));
    failure->setPhysicalNumber(emergency.physNum);
    failure->setLineId(emergency.lineId);
    return failure;
}

double Wv2TagConverter::getLineScale(const UNIT_TYPE& type)
{
    switch (type.power) {
    case -3:
        return 0.000001;
    case 0:
        return 0.001;
    case 3:
        return 1.0;
    case 6:
        return 1000.0;
    case 9:
        return 1000000.0;
    default:
        return 1.0;
    }
}
