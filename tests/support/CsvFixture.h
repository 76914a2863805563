#pragma once

#include "Model/SimpleOscillogram.h"

#include <QByteArray>
#include <QChar>
#include <QSharedPointer>
#include <QStringList>
#include <QVector>

namespace KorvaneTest {

// A record whose analogue channels hold the given values in a double store: physical value =
// raw × multiplier + offset, primary values, normal state 0. Samples follow each other by
// 1 / rate seconds; the trigger is at the given sample, so that sample i lies
// (i - trigger) / rate seconds from it.
struct TableRecordDescription
{
    QStringList analogNames;
    // One vector of raw values a channel, all of the same length.
    QVector<QVector<double>> analogRaw;
    QStringList digitalNames;
    QVector<QVector<bool>> digitalBits;
    double rate = 1000.0;
    int triggerSample = 0;
};
QSharedPointer<SimpleOscillogram> makeTableRecord(const TableRecordDescription& description);

// A sine of the given peak, frequency and phase (degrees) at a rate, over a count of samples.
QVector<double> sineSamples(double peak, double frequency, double phaseDegrees, double rate, int count);

// A CSV table read without the saver's code: lines on line feeds, fields on the separator, a field
// in double quotes may hold the separator and doubled quotes.
struct CsvTable
{
    QStringList header;
    QVector<QStringList> rows;
};
CsvTable readCsvTable(const QString& text, QChar separator);
// A number written with the given decimal point; ok false for anything else.
double csvNumber(const QString& field, QChar decimalPoint, bool* ok = nullptr);

} // namespace KorvaneTest
