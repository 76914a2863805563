#pragma once

#include "Model/ComtradeOscillogram.h"
#include "Model/OscillogramData.h"

#include <QVector>

#include <array>

// Records for the merge tests, built in memory with values that tell their record, channel and
// sample apart: raw = 1000 × record + 100 × channel + sample % 97, and bits that change every
// (3 + channel) samples, shifted by the record.
namespace MergeRecords {

inline double rawValue(int record, int channel, int sample)
{
    return 1000.0 * record + 100.0 * channel + sample % 97;
}

inline bool bitValue(int record, int channel, int sample)
{
    return ((sample / (3 + channel)) + record) % 2 == 1;
}

// The first instant of the tests: 06.05.2024 12:00:00.000000 UTC.
inline PreciseDateTime t0()
{
    return PreciseDateTime(2024, 5, 6, 12, 0, 0, 0, 0);
}

inline PreciseDateTime at(qint64 microseconds)
{
    return t0().addUSec(microseconds);
}

struct Description
{
    int id = 1;
    double rate = 1000.0;
    int samples = 100;
    // Analogue channels by storage type, in number order.
    QVector<DT::DataType> types { DT::Int16 };
    int digitals = 0;
    PreciseDateTime begin = t0();
    // Samples before the trigger.
    int pre = 0;
    // A COMTRADE record takes its counts from its times; a plain one keeps them as set.
    bool comtrade = false;
    QList<QPair<QString, int>> failures;
    QStringList lines;
    QString prefix = QStringLiteral("K");
};

inline QSharedPointer<OscillogramData> buildStore(const Description& d)
{
    std::array<int, 6> count {};
    for (DT::DataType type : d.types)
        ++count[type];
    OscillogramDataBuilder builder;
    builder.reserve(
        count[DT::Double], count[DT::Float], count[DT::Int32], count[DT::Int16], d.digitals, d.samples);
    for (int s = 0; s < d.samples; ++s) {
        for (int c = 0; c < d.types.size(); ++c) {
            const double value = rawValue(d.id, c, s);
            switch (d.types[c]) {
            case DT::Int16:
                builder.appendInt16Value(short(value));
                break;
            case DT::Int32:
                builder.appendInt32Value(int(value));
                break;
            case DT::Float:
                builder.appendFloatValue(float(value));
                break;
            default:
                builder.appendDoubleValue(value);
                break;
            }
        }
        for (int c = 0; c < d.digitals; ++c)
            builder.setDigitalChannelValue(s, c, bitValue(d.id, c, s));
    }
    return builder.build();
}

inline void addChannels(
    SimpleOscillogram& record, const Description& d, const QSharedPointer<OscillogramData>& store)
{
    std::array<int, 6> column {};
    QList<QSharedPointer<AnalogChannel>> analogs;
    for (int c = 0; c < d.types.size(); ++c) {
        auto channel = QSharedPointer<AnalogChannel>::create();
        channel->setName(QStringLiteral("%1%2").arg(d.prefix).arg(c + 1));
        channel->setData(store);
        channel->setDataType(d.types[c]);
        channel->setDataOffset(column[d.types[c]]++);
        channel->setDataCount(1);
        channel->setMultiplier(0.5 + c);
        channel->setOffsetAdder(c);
        channel->setUnit(QStringLiteral("кВ"));
        channel->setPhysNum(c + 1);
        analogs.append(channel);
    }
    QList<QSharedPointer<DigitalChannel>> digitals;
    for (int c = 0; c < d.digitals; ++c) {
        auto channel = QSharedPointer<DigitalChannel>::create();
        channel->setName(QStringLiteral("%1D%2").arg(d.prefix).arg(c + 1));
        channel->setData(store);
        channel->setDataOffset(c);
        channel->setDataCount(1);
        channel->setPhysNum(c + 1);
        digitals.append(channel);
    }
    record.SimpleOscillogram::setAnalogChannels(analogs);
    record.SimpleOscillogram::setDigitalChannels(digitals);
}

inline QSharedPointer<SimpleOscillogram> make(const Description& d)
{
    const auto store = buildStore(d);
    const qint64 preMicroseconds = qint64(d.pre * 1000000.0 / d.rate);
    QSharedPointer<SimpleOscillogram> record;
    if (d.comtrade) {
        auto comtrade = QSharedPointer<ComtradeOscillogram>::create();
        comtrade->setFirstValueTime(d.begin);
        comtrade->setCountOfSamples(d.samples);
        record = comtrade;
    } else {
        record = QSharedPointer<SimpleOscillogram>::create();
        record->setCountOfPreFailureSamples(d.pre);
        record->setCountOfPostFailureSamples(d.samples - d.pre);
    }
    record->setFilename(QStringLiteral("%1.cfg").arg(d.prefix));
    record->setData(store);
    record->setSampleRate(d.rate);
    record->setStationName(QStringLiteral("ПС %1").arg(d.prefix));
    record->setDeviceName(QStringLiteral("Регистратор %1").arg(d.prefix));
    record->setHeaderFileContent(QStringLiteral("Наименование файла: %1\n").arg(d.prefix));
    record->setTriggerTime(d.begin.addUSec(preMicroseconds));
    addChannels(*record, d, store);
    QList<QSharedPointer<Failure>> failures;
    for (const auto& failure : d.failures)
        failures.append(QSharedPointer<Failure>::create(failure.first, failure.second));
    record->setFailures(failures);
    QList<QSharedPointer<Line>> lines;
    for (const QString& name : d.lines) {
        auto line = QSharedPointer<Line>::create();
        line->setName(name);
        line->setVtNumbers(QList<unsigned short> { 0 });
        lines.append(line);
    }
    record->setLines(lines);
    return record;
}

// What the reading rule of merged records gives for index i of a record of n samples.
inline int wrapped(int i, int n)
{
    return i < 0 ? n - 1 : (i >= n ? 0 : i);
}

inline double rawOf(const Oscillogram& record, int channel, int sample)
{
    const auto analog = record.analogChannel(channel);
    return analog->Channel::getValue(sample, analog->dataOffset());
}

inline bool bitOf(const Oscillogram& record, int channel, int sample)
{
    const auto digital = record.digitalChannel(channel);
    return digital->Channel::getValue(sample, digital->dataOffset()) != 0.0;
}

} // namespace MergeRecords
