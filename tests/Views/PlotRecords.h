#pragma once

#include "Model/SimpleOscillogram.h"

#include <QVector>

// Small records for the plot tests: one int16 analogue channel with the given samples and one
// discrete channel with the given bits, at the given rate.
namespace PlotRecords {

inline QSharedPointer<SimpleOscillogram> record(
    const QVector<short>& analog, const QVector<bool>& bits, double rate = 1000.0)
{
    const int samples = qMax(analog.size(), bits.size());
    OscillogramDataBuilder builder;
    builder.reserve(0, 0, 0, analog.isEmpty() ? 0 : 1, bits.isEmpty() ? 0 : 1, samples);
    for (short v : analog)
        builder.appendInt16Value(v);
    for (int s = 0; s < bits.size(); ++s)
        builder.setDigitalChannelValue(s, 0, bits[s]);
    const auto data = builder.build();
    auto osc = QSharedPointer<SimpleOscillogram>::create();
    osc->setData(data);
    osc->setSampleRate(rate);
    if (!analog.isEmpty()) {
        auto channel = QSharedPointer<AnalogChannel>::create();
        channel->setData(data);
        channel->setDataType(DT::Int16);
        channel->setDataCount(1);
        channel->setName(QStringLiteral("U"));
        osc->addAnalogChannel(channel);
    }
    if (!bits.isEmpty()) {
        auto digital = QSharedPointer<DigitalChannel>::create();
        digital->setData(data);
        digital->setDataCount(1);
        digital->setName(QStringLiteral("D"));
        osc->setDigitalChannels({ digital });
    }
    return osc;
}

} // namespace PlotRecords
