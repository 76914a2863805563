#include "ComtradeFixture.h"

#include "FixtureFiles.h"

#include <QTextCodec>
#include <QtEndian>

#include <cmath>
#include <cstring>

namespace KorvaneTest {

namespace {
constexpr double pi = 3.14159265358979323846;

QString number(double value)
{
    return QString::number(value, 'g', 17);
}

QList<ComtradeRate> ratesOf(const ComtradeSetDescription& set)
{
    if (!set.rates.isEmpty())
        return set.rates;
    return { ComtradeRate { 1000.0, set.samples } };
}

bool hasYear(const ComtradeSetDescription& set)
{
    return set.year != 0;
}

bool isLongForm(const ComtradeSetDescription& set)
{
    return set.year == 1999 || set.year == 2013;
}

QStringList analogLine(const ComtradeSetDescription& set, int channel)
{
    QStringList fields { QString::number(channel + 1), set.analogName(channel), QStringLiteral("A"),
        QStringLiteral("Bay 1"), set.unitText(channel), set.multiplierText(channel), set.offsetText(channel),
        QStringLiteral("0"), QStringLiteral("-32767"), QStringLiteral("32767") };
    if (isLongForm(set))
        fields << QStringLiteral("110") << QStringLiteral("0.1") << set.psText;
    return fields;
}

QStringList digitalLine(const ComtradeSetDescription& set, int channel)
{
    QStringList fields { QString::number(channel + 1), set.digitalName(channel) };
    if (isLongForm(set))
        fields << QString() << QString();
    fields << QString::number(channel % 2);
    return fields;
}

QStringList cfgLines(const ComtradeSetDescription& set)
{
    QStringList lines;
    QString first = set.station + QLatin1Char(',') + set.device;
    if (hasYear(set))
        first += QLatin1Char(',') + QString::number(set.year);
    lines << first;
    lines << QStringLiteral("%1,%2A,%3D").arg(set.analogs + set.digitals).arg(set.analogs).arg(set.digitals);
    for (int c = 0; c < set.analogs; ++c)
        lines << analogLine(set, c).join(QLatin1Char(','));
    for (int c = 0; c < set.digitals; ++c)
        lines << digitalLine(set, c).join(QLatin1Char(','));
    lines << QStringLiteral("50");
    const QList<ComtradeRate> rates = ratesOf(set);
    lines << QString::number(set.nRates >= 0 ? set.nRates : rates.size());
    for (const ComtradeRate& rate : rates)
        lines << number(rate.rate) + QLatin1Char(',') + QString::number(rate.lastSample);
    lines << set.firstTime << set.triggerTime << set.format;
    if (set.year == 1999 || set.year == 2013)
        lines << QStringLiteral("1");
    if (set.year == 2013)
        lines << set.timeCodes << set.timeQuality;
    return lines;
}

int formatCode(const QString& format)
{
    const QString lower = format.trimmed().toLower();
    if (lower == QLatin1String("ascii"))
        return 0;
    if (lower == QLatin1String("binary"))
        return 1;
    if (lower == QLatin1String("binary32"))
        return 2;
    return 3;
}

template<typename T> void appendLittleEndian(QByteArray& bytes, T value)
{
    uchar buffer[sizeof(T)];
    qToLittleEndian(value, buffer);
    bytes.append(reinterpret_cast<const char*>(buffer), int(sizeof(T)));
}

void appendBinaryRecord(QByteArray& bytes, const ComtradeSetDescription& set, int sample, int format)
{
    appendLittleEndian<qint32>(bytes, sample + 1);
    appendLittleEndian<quint32>(bytes, set.timeStamp(sample));
    for (int c = 0; c < set.analogs; ++c) {
        const double value = set.raw(sample, c);
        if (format == 1) {
            appendLittleEndian<qint16>(bytes, static_cast<qint16>(value));
        } else if (format == 2) {
            appendLittleEndian<qint32>(bytes, static_cast<qint32>(value));
        } else {
            const float single = static_cast<float>(value);
            quint32 bits = 0;
            std::memcpy(&bits, &single, sizeof bits);
            appendLittleEndian<quint32>(bytes, bits);
        }
    }
    const int words = (set.digitals + 15) / 16;
    for (int w = 0; w < words; ++w) {
        quint16 word = 0;
        for (int b = 0; b < 16 && w * 16 + b < set.digitals; ++b) {
            if (set.bit(sample, w * 16 + b))
                word |= quint16(1u << b);
        }
        appendLittleEndian<quint16>(bytes, word);
    }
}

QByteArray asciiRecord(const ComtradeSetDescription& set, int sample)
{
    QStringList fields { QString::number(sample + 1), QString::number(set.timeStamp(sample)) };
    for (int c = 0; c < set.analogs; ++c)
        fields << number(set.raw(sample, c));
    for (int c = 0; c < set.digitals; ++c)
        fields << QString::number(set.bit(sample, c) ? 1 : 0);
    return fields.join(QLatin1Char(',')).toLatin1();
}
} // namespace

double defaultRaw(int sample, int channel)
{
    const double wave = std::round(1000.0 * std::sin(2.0 * pi * sample / 20.0 + 0.5 * channel));
    return (channel % 2) ? wave + 0.375 : wave;
}

bool defaultBit(int sample, int channel)
{
    return (sample + channel) % 3 == 0;
}

ComtradeSetDescription::ComtradeSetDescription()
    : raw(defaultRaw)
    , bit(defaultBit)
    , multiplierText([](int channel) { return QString::number(0.01 * (channel + 1) + 0.000123, 'g', 12); })
    , offsetText([](int channel) { return channel % 2 ? QStringLiteral("-0.5") : QStringLiteral("0"); })
    , unitText([](int channel) { return channel % 2 ? QStringLiteral("kV") : QStringLiteral("A"); })
    , timeStamp([](int sample) { return quint32(sample * 1000); })
{
}

QString ComtradeSetDescription::analogName(int channel) const
{
    return QStringLiteral("U%1").arg(channel + 1);
}

QString ComtradeSetDescription::digitalName(int channel) const
{
    return QStringLiteral("D%1").arg(channel + 1);
}

QByteArray comtradeCfg(const ComtradeSetDescription& set)
{
    QTextCodec* codec = QTextCodec::codecForName(set.codec);
    QByteArray bytes;
    for (const QString& line : cfgLines(set))
        bytes += codec->fromUnicode(line) + set.lineEnd;
    return bytes;
}

QByteArray comtradeDat(const ComtradeSetDescription& set)
{
    const int format = formatCode(set.format);
    QByteArray bytes;
    for (int s = 0; s < set.samples; ++s) {
        if (format == 0)
            bytes += asciiRecord(set, s) + set.lineEnd;
        else
            appendBinaryRecord(bytes, set, s, format);
    }
    return bytes;
}

double storedRaw(const ComtradeSetDescription& set, int sample, int channel)
{
    const double value = set.raw(sample, channel);
    switch (formatCode(set.format)) {
    case 1:
        return static_cast<qint16>(value);
    case 2:
        return static_cast<qint32>(value);
    case 3:
        return static_cast<float>(value);
    default:
        return value;
    }
}

bool writeComtradeSet(const QString& basePath, const ComtradeSetDescription& set, const QString& cfgSuffix,
    const QString& datSuffix)
{
    return writeFile(basePath + cfgSuffix, comtradeCfg(set))
        && writeFile(basePath + datSuffix, comtradeDat(set));
}

} // namespace KorvaneTest
