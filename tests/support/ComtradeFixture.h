#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QVector>

#include <functional>

namespace KorvaneTest {

// One sampling-rate line of a .cfg: the rate and the number of the last sample at it.
struct ComtradeRate
{
    double rate = 1000.0;
    long long lastSample = 0;
};

// Everything a test chooses about a COMTRADE set; the bytes are built from the format's rules,
// not through the library's writer.
struct ComtradeSetDescription
{
    int year = 1999; // 0 leaves the year token out of line 1
    QString format = QStringLiteral("ASCII"); // the token as written on line 8
    QString station = QStringLiteral("Подстанция 1");
    QString device = QStringLiteral("Recorder 7");
    int analogs = 2;
    int digitals = 3;
    int samples = 10;
    // Empty: one rate line of 1000 Hz up to the last sample. nRates < 0: the count of rates.
    QList<ComtradeRate> rates;
    int nRates = -1;
    QString firstTime = QStringLiteral("01/02/2020,03:04:05.000006");
    QString triggerTime = QStringLiteral("01/02/2020,03:04:05.005006");
    QString timeCodes = QStringLiteral("+5h30,5"); // 2013 only
    QString timeQuality = QStringLiteral("B,3"); // 2013 only
    QByteArray lineEnd = "\n";
    // Raw value of a channel in a sample, as the .dat holds it (cast to the format's type).
    std::function<double(int sample, int channel)> raw;
    std::function<bool(int sample, int channel)> bit;
    // Per-channel coefficients, as written in the .cfg text.
    std::function<QString(int channel)> multiplierText;
    std::function<QString(int channel)> offsetText;
    std::function<QString(int channel)> unitText;
    QString psText = QStringLiteral("P");
    // Time stamp of a sample in the .dat, in microseconds.
    std::function<quint32(int sample)> timeStamp;
    QByteArray codec = "UTF-8"; // encoding of the .cfg text

    ComtradeSetDescription();
    QString analogName(int channel) const;
    QString digitalName(int channel) const;
};

// The default pattern: a sine of amplitude 1000 and 20 samples per period, shifted per channel.
double defaultRaw(int sample, int channel);
bool defaultBit(int sample, int channel);

QByteArray comtradeCfg(const ComtradeSetDescription& set);
QByteArray comtradeDat(const ComtradeSetDescription& set);
// The raw value as the .dat of this format stores it, widened to double.
double storedRaw(const ComtradeSetDescription& set, int sample, int channel);

// Writes <base>.cfg and <base>.dat (and the suffixes given) beside each other.
bool writeComtradeSet(const QString& basePath, const ComtradeSetDescription& set,
    const QString& cfgSuffix = QStringLiteral(".cfg"), const QString& datSuffix = QStringLiteral(".dat"));

} // namespace KorvaneTest
