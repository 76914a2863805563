#pragma once

#include "Model/AnalogChannel.h"
#include "Model/OscillogramData.h"

#include <QList>
#include <QSharedPointer>
#include <QVector>

#include <cmath>
#include <complex>
#include <functional>

// Records built in memory from signals of known shape, for the calculation module's tests.
namespace ThreePhaseRecord {
constexpr double kPi = 3.14159265358979323846;
constexpr double kRate = 4000.0;
constexpr double kFrequency = 50.0;
// 40 ms at 4000 Hz.
constexpr int kWindow = 160;

// A sinusoid in physical units: amplitude (peak) and the angle in degrees of its cosine at sample 0.
struct Phasor
{
    double amplitude;
    double degrees;
};

inline double radians(double degrees)
{
    return degrees * kPi / 180.0;
}

// The phasor of the cosine whose first sample is sample `first`: the angle turns with time.
inline std::complex<double> phasorAt(const Phasor& p, int first, double frequency = kFrequency)
{
    const double angle = radians(p.degrees) + 2.0 * kPi * frequency * first / kRate;
    return std::polar(p.amplitude, angle);
}

// Stores double columns, each filled by its function of the sample index, in raw units.
inline QSharedPointer<OscillogramData> doubleColumns(
    const QVector<std::function<double(int)>>& columns, int samples)
{
    OscillogramDataBuilder builder;
    builder.reserve(columns.size(), 0, 0, 0, 0, samples);
    builder.doubleAnalogValues().resize(columns.size() * samples);
    builder.setCountOfSamples(samples);
    for (int s = 0; s < samples; ++s)
        for (int c = 0; c < columns.size(); ++c)
            builder.setDoubleChannelValue(s, c, columns[c](s));
    return builder.build();
}

inline QSharedPointer<AnalogChannel> doubleChannel(
    const QSharedPointer<OscillogramData>& data, int column, double multiplier = 1.0, double offset = 0.0)
{
    auto channel = QSharedPointer<AnalogChannel>::create();
    channel->setData(data);
    channel->setDataType(DT::Double);
    channel->setDataOffset(column);
    channel->setMultiplier(multiplier);
    channel->setOffsetAdder(offset);
    return channel;
}

// Raw samples of a cosine of the phasor under the multiplier, with harmonics of the same frequency
// added as (number, phasor).
inline std::function<double(int)> cosineColumn(const Phasor& p, double multiplier,
    double frequency = kFrequency, QVector<QPair<int, Phasor>> harmonics = {}, double dc = 0.0)
{
    return [=](int i) {
        const double t = 2.0 * kPi * frequency * i / kRate;
        double value = dc + p.amplitude * std::cos(t + radians(p.degrees));
        for (const auto& h : harmonics)
            value += h.second.amplitude * std::cos(h.first * t + radians(h.second.degrees));
        return value / multiplier;
    };
}

// Three voltages and three currents of an unbalanced system, channels of type Ua .. Ic.
struct Line
{
    static constexpr double voltageScale = 0.01;
    static constexpr double currentScale = 0.001;
    Phasor voltages[3] = { { 57.0, 0.0 }, { 60.0, -118.0 }, { 55.0, 125.0 } };
    Phasor currents[3] = { { 5.0, -30.0 }, { 2.0, -150.0 }, { 3.0, 80.0 } };
    QList<QSharedPointer<AnalogChannel>> voltageChannels;
    QList<QSharedPointer<AnalogChannel>> currentChannels;

    explicit Line(int samples)
    {
        QVector<std::function<double(int)>> columns;
        for (const Phasor& p : voltages)
            columns.append(cosineColumn(p, voltageScale));
        for (const Phasor& p : currents)
            columns.append(cosineColumn(p, currentScale));
        const auto data = doubleColumns(columns, samples);
        for (int k = 0; k < 3; ++k) {
            voltageChannels.append(doubleChannel(data, k, voltageScale));
            voltageChannels.last()->setChanType(1 + k);
            currentChannels.append(doubleChannel(data, 3 + k, currentScale));
            currentChannels.last()->setChanType(4 + k);
        }
    }
};
} // namespace ThreePhaseRecord
