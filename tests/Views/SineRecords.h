#pragma once

#include "Model/SimpleOscillogram.h"

#include <QVector>

#include <cmath>

// Records of known sines for the row tests: int16 analogue channels scaled by 0.01 into volts, and
// discrete channels that change every 100 samples.
namespace SineRecords {
constexpr double kPi = 3.14159265358979323846;
constexpr double kRate = 4000.0;
constexpr double kFrequency = 50.0;
constexpr double kMultiplier = 0.01;
// 80 samples a period: 50 Hz at 4 kHz.
constexpr int kPeriod = 80;

// Peak in volts and the angle in degrees of its cosine at sample 0.
struct Sine
{
    double amplitude;
    double degrees;
};

inline short rawAt(const Sine& sine, int sample)
{
    const double angle = 2.0 * kPi * kFrequency * sample / kRate + sine.degrees * kPi / 180.0;
    return short(std::lround(sine.amplitude / kMultiplier * std::cos(angle)));
}

inline QSharedPointer<SimpleOscillogram> record(const QVector<Sine>& sines, int digitals, int samples = 2000)
{
    OscillogramDataBuilder builder;
    builder.reserve(0, 0, 0, sines.size(), digitals, samples);
    for (int s = 0; s < samples; ++s) {
        for (const Sine& sine : sines)
            builder.appendInt16Value(rawAt(sine, s));
        for (int c = 0; c < digitals; ++c)
            builder.setDigitalChannelValue(s, c, (s / 100 + c) % 2);
    }
    const auto data = builder.build();
    auto osc = QSharedPointer<SimpleOscillogram>::create();
    osc->setData(data);
    osc->setSampleRate(kRate);
    for (int c = 0; c < sines.size(); ++c) {
        auto channel = QSharedPointer<AnalogChannel>::create();
        channel->setData(data);
        channel->setDataType(DT::Int16);
        channel->setDataOffset(c);
        channel->setDataCount(1);
        channel->setMultiplier(kMultiplier);
        channel->setPhysNum(c + 1);
        channel->setPhaseNumber(c % 3 + 1);
        channel->setName(QStringLiteral("U%1").arg(c + 1));
        channel->setUnit(QStringLiteral("В"));
        osc->addAnalogChannel(channel);
    }
    QList<QSharedPointer<DigitalChannel>> list;
    for (int c = 0; c < digitals; ++c) {
        auto channel = QSharedPointer<DigitalChannel>::create();
        channel->setData(data);
        channel->setDataOffset(c);
        channel->setDataCount(1);
        channel->setPhysNum(c + 1);
        channel->setName(QStringLiteral("D%1").arg(c + 1));
        list << channel;
    }
    osc->setDigitalChannels(list);
    osc->setTriggerTime(PreciseDateTime(2024, 3, 1, 10, 0, 0, 0, 0));
    osc->setCountOfPreFailureSamples(samples / 2);
    osc->setCountOfPostFailureSamples(samples - samples / 2);
    return osc;
}

} // namespace SineRecords
