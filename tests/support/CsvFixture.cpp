#include "CsvFixture.h"

#include "Model/OscillogramData.h"

#include <QtMath>

#include <cstdlib>
#include <string>

namespace KorvaneTest {

namespace {
QSharedPointer<OscillogramData> makeTableStore(const TableRecordDescription& d)
{
    const int analogs = d.analogRaw.size();
    const int digitals = d.digitalBits.size();
    const int samples = analogs ? d.analogRaw.first().size() : (digitals ? d.digitalBits.first().size() : 0);
    OscillogramDataBuilder builder;
    builder.reserve(analogs, 0, 0, 0, digitals, samples);
    for (int s = 0; s < samples; ++s) {
        for (int c = 0; c < analogs; ++c)
            builder.appendDoubleValue(d.analogRaw.at(c).at(s));
    }
    builder.setCountOfSamples(samples);
    builder.digitalValues().resize(samples * digitals);
    for (int s = 0; s < samples; ++s) {
        for (int c = 0; c < digitals; ++c)
            builder.setDigitalChannelValue(s, c, d.digitalBits.at(c).at(s));
    }
    return builder.build();
}
} // namespace

QSharedPointer<SimpleOscillogram> makeTableRecord(const TableRecordDescription& d)
{
    auto record = QSharedPointer<SimpleOscillogram>::create();
    const QSharedPointer<OscillogramData> store = makeTableStore(d);
    record->setData(store);
    record->setStationName(QStringLiteral("ПС Табличная"));
    record->setDeviceName(QStringLiteral("Регистратор"));
    record->setSampleRate(d.rate);
    QList<QSharedPointer<AnalogChannel>> analogs;
    for (int c = 0; c < d.analogRaw.size(); ++c) {
        auto channel = QSharedPointer<AnalogChannel>::create();
        channel->setName(d.analogNames.value(c, QStringLiteral("A%1").arg(c + 1)));
        channel->setData(store);
        channel->setDataType(DT::Double);
        channel->setDataOffset(c);
        channel->setDataCount(1);
        channel->setPhysNum(c + 1);
        analogs.append(channel);
    }
    record->setAnalogChannels(analogs);
    QList<QSharedPointer<DigitalChannel>> digitals;
    for (int c = 0; c < d.digitalBits.size(); ++c) {
        auto channel = QSharedPointer<DigitalChannel>::create();
        channel->setName(d.digitalNames.value(c, QStringLiteral("D%1").arg(c + 1)));
        channel->setData(store);
        channel->setDataType(DT::Digital);
        channel->setDataOffset(c);
        channel->setDataCount(1);
        channel->setPhysNum(c + 1);
        digitals.append(channel);
    }
    record->setDigitalChannels(digitals);
    const int samples = record->countOfSamples();
    record->setCountOfPreFailureSamples(d.triggerSample);
    record->setCountOfPostFailureSamples(samples - d.triggerSample);
    record->setTriggerTime(PreciseDateTime(2024, 3, 15, 10, 20, 30, 0, 3 * 3600)
                               .addUSec(qRound64(d.triggerSample * 1000000.0 / d.rate)));
    return record;
}

QVector<double> sineSamples(double peak, double frequency, double phaseDegrees, double rate, int count)
{
    QVector<double> values(count);
    for (int i = 0; i < count; ++i)
        values[i] = peak * qSin(2.0 * M_PI * frequency * i / rate + qDegreesToRadians(phaseDegrees));
    return values;
}

namespace {
QStringList splitFields(const QString& line, QChar separator)
{
    QStringList fields;
    QString field;
    bool quoted = false;
    for (int i = 0; i < line.size(); ++i) {
        const QChar c = line.at(i);
        if (quoted) {
            if (c == QLatin1Char('"') && i + 1 < line.size() && line.at(i + 1) == QLatin1Char('"')) {
                field += c;
                ++i;
            } else if (c == QLatin1Char('"')) {
                quoted = false;
            } else {
                field += c;
            }
        } else if (c == QLatin1Char('"')) {
            quoted = true;
        } else if (c == separator) {
            fields.append(field);
            field.clear();
        } else {
            field += c;
        }
    }
    fields.append(field);
    return fields;
}
} // namespace

CsvTable readCsvTable(const QString& text, QChar separator)
{
    CsvTable table;
    QStringList lines = text.split(QLatin1Char('\n'));
    // The text ends in a line feed: the last piece is empty.
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    for (int i = 0; i < lines.size(); ++i) {
        if (i == 0)
            table.header = splitFields(lines.at(i), separator);
        else
            table.rows.append(splitFields(lines.at(i), separator));
    }
    return table;
}

double csvNumber(const QString& field, QChar decimalPoint, bool* ok)
{
    QString plain = field;
    if (decimalPoint != QLatin1Char('.')) {
        if (plain.contains(QLatin1Char('.'))) {
            if (ok)
                *ok = false;
            return 0.0;
        }
        plain.replace(decimalPoint, QLatin1Char('.'));
    }
    const std::string bytes = plain.toStdString();
    char* end = nullptr;
    const double value = std::strtod(bytes.c_str(), &end);
    if (ok)
        *ok = !bytes.empty() && end == bytes.c_str() + bytes.size();
    return value;
}

} // namespace KorvaneTest
