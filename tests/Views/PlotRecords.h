#pragma once

#include "Model/SimpleOscillogram.h"
#include "Model/MeasureItem.h"

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

// analogs int16 channels of a sine-free ramp and digitals channels of alternating bits, at 1000 Hz,
// trigger at sample pre.
inline QSharedPointer<SimpleOscillogram> makeRecord(int analogs, int digitals, int samples, int pre = 0)
{
    OscillogramDataBuilder builder;
    builder.reserve(0, 0, 0, analogs, digitals, samples);
    for (int s = 0; s < samples; ++s) {
        for (int c = 0; c < analogs; ++c)
            builder.appendInt16Value(short((s % 200) - 100));
        for (int c = 0; c < digitals; ++c)
            builder.setDigitalChannelValue(s, c, (s / 10) % 2);
    }
    const auto data = builder.build();
    auto record = QSharedPointer<SimpleOscillogram>::create();
    record->setData(data);
    record->setSampleRate(1000.0);
    for (int c = 0; c < analogs; ++c) {
        auto channel = QSharedPointer<AnalogChannel>::create();
        channel->setData(data);
        channel->setDataType(DT::Int16);
        channel->setDataOffset(c);
        channel->setDataCount(1);
        channel->setName(QStringLiteral("A%1").arg(c));
        record->addAnalogChannel(channel);
    }
    QList<QSharedPointer<DigitalChannel>> list;
    for (int c = 0; c < digitals; ++c) {
        auto channel = QSharedPointer<DigitalChannel>::create();
        channel->setData(data);
        channel->setDataOffset(c);
        channel->setDataCount(1);
        list << channel;
    }
    record->setDigitalChannels(list);
    record->setTriggerTime(PreciseDateTime(2024, 3, 1, 10, 0, 0, 0, 0));
    record->setCountOfPreFailureSamples(pre);
    record->setCountOfPostFailureSamples(samples - pre);
    return record;
}

// A time measure with its four fields.
inline MeasureItem measure(int start, int finish, bool complete, bool saved)
{
    MeasureItem item;
    item.setStartSampleNumber(start);
    item.setFinishSampleNumber(finish);
    item.setComplete(complete);
    item.setSaved(saved);
    return item;
}

} // namespace PlotRecords
