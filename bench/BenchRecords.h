#pragma once

#include "Model/SimpleOscillogram.h"

#include <cmath>

namespace BenchRecords {

// A record at 4 kHz of analogue sines of 50 Hz with a small saw on top, one phase shift a channel,
// and discrete channels that flip every 4096 samples, each one step after the last.
inline QSharedPointer<SimpleOscillogram> sineRecord(int analogs, int digitals, int samples)
{
    OscillogramDataBuilder builder;
    builder.reserve(0, 0, 0, analogs, digitals, samples);
    QVector<short>& values = builder.int16AnalogValues();
    values.reserve(analogs * samples);
    for (int s = 0; s < samples; ++s) {
        for (int c = 0; c < analogs; ++c)
            values.append(
                short(std::lround(10000.0 * std::sin(2.0 * M_PI * 50.0 * s / 4000.0 + c) + (s % 31))));
        for (int c = 0; c < digitals; ++c)
            builder.setDigitalChannelValue(s, c, ((s >> 12) + c) % 2);
    }
    const auto data = builder.build();
    auto record = QSharedPointer<SimpleOscillogram>::create();
    record->setData(data);
    record->setSampleRate(4000.0);
    record->setCountOfPreFailureSamples(samples / 4);
    record->setCountOfPostFailureSamples(samples - samples / 4);
    for (int c = 0; c < analogs; ++c) {
        auto channel = QSharedPointer<AnalogChannel>::create();
        channel->setData(data);
        channel->setDataType(DT::Int16);
        channel->setDataOffset(c);
        channel->setDataCount(1);
        channel->setMultiplier(0.01);
        channel->setPhaseNumber(c % 3 + 1);
        channel->setName(QStringLiteral("U%1").arg(c + 1));
        channel->setUnit(QStringLiteral("В"));
        record->addAnalogChannel(channel);
    }
    QList<QSharedPointer<DigitalChannel>> digitals;
    for (int c = 0; c < digitals; ++c) {
        auto channel = QSharedPointer<DigitalChannel>::create();
        channel->setData(data);
        channel->setDataOffset(c);
        channel->setDataCount(1);
        channel->setName(QStringLiteral("D%1").arg(c + 1));
        digitals << channel;
    }
    record->setDigitalChannels(digitals);
    return record;
}

} // namespace BenchRecords
