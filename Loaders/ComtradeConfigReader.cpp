// The .cfg half of the COMTRADE loader: the record's channels, rate, times and data format.

#include "Loaders/ComtradeLoader.h"
#include "Loaders/CsvParser.h"

#include <QFile>
#include <QTextStream>

#include <limits>

namespace {
void setDataTypeByFormat(
    const QList<QSharedPointer<AnalogChannel>>& channels, const ComtradeDataFormat& format)
{
    DT::DataType type = DT::Double;
    switch (format.value()) {
    case ComtradeDataFormat::Binary:
        type = DT::Int16;
        break;
    case ComtradeDataFormat::Binary32:
        type = DT::Int32;
        break;
    case ComtradeDataFormat::Float32:
        type = DT::Float;
        break;
    default:
        break;
    }
    for (const auto& channel : channels)
        channel->setDataType(type);
}
bool fitsInt(long long value)
{
    return value >= std::numeric_limits<int>::min() && value <= std::numeric_limits<int>::max();
}
} // namespace

void ComtradeLoader::readConfigFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        throw new LoadFailureException(QStringLiteral("UnableOpenFileException"));
    QTextStream stream(&file);
    stream.setCodec(m_codec);
    CsvParser parser(stream);
    m_comtrade.readCfg(m_analogs, m_digitals, QFile::encodeName(path).toStdString());
    parseConfigFile(parser);
}

void ComtradeLoader::parseConfigFile(CsvParser& parser)
{
    const QString stage = tr("Чтение файла конфигурации");
    updateProgress(stage, 0);
    parser.resetLinesCnt();

    parser.readLine(ComtradeCFGFields::StationDeviceYear);
    m_oscillogram->setStationName(parser.getString());
    // A line with the station alone is taken as it is; the lines after it tell what is wrong.
    if (parser.hasNextToken())
        m_oscillogram->setRecordingDeviceId(parser.getString());
    m_oscillogram->setVersion(
        parser.hasNextToken() ? ComtradeVersion(parser.getString()) : ComtradeVersion(1991));

    parser.readLine(ComtradeCFGFields::ChannelCounts);
    parser.getInt();
    const long long analogCount = parser.getParser(QStringLiteral("A")).getInt();
    const long long digitalCount = parser.getParser(QStringLiteral("D")).getInt();
    // Counts of any size stand in a file; summed in 64 bits, a sum beyond an int is refused here,
    // while counts too large for the lines that follow fail at the first missing channel line.
    const long long totalCount = analogCount + digitalCount;
    if (!fitsInt(analogCount) || !fitsInt(digitalCount) || !fitsInt(totalCount))
        parser.throwWrongChannelCounts();
    const int analogs = int(analogCount);
    const int digitals = int(digitalCount);

    m_oscillogram->setAnalogChannels(readAnalogChannels(parser, analogs, analogs + digitals));
    m_oscillogram->setDigitalChannels(readDigitalChannels(parser, analogs, analogs + digitals));
    updateProgress(stage, 100.0);

    // The line frequency is checked and read, but the record keeps its own default.
    parser.readLine(ComtradeCFGFields::LineFrequency);
    parser.getDouble();
    readSampleRate(parser);
    const double sampleRate = m_oscillogram->sampleRate();
    for (int i = 0; i < m_oscillogram->countOfAnalogChannels(); ++i) {
        auto channel = m_oscillogram->analogChannel(i).staticCast<ComtradeAnalogChannel>();
        channel->setAdcDelay(channel->skew() / (1000000.0 / sampleRate));
    }

    parser.readLine(ComtradeCFGFields::FirstValueTime);
    PreciseDateTime first = readTimeStamp(parser.stringParser());
    parser.readLine(ComtradeCFGFields::TriggerTime);
    PreciseDateTime trigger = readTimeStamp(parser.stringParser());

    parser.readLine(ComtradeCFGFields::FileType);
    m_oscillogram->setDataFormat(ComtradeDataFormat(parser.getString()));
    QList<QSharedPointer<AnalogChannel>> channels;
    for (int i = 0; i < m_oscillogram->countOfAnalogChannels(); ++i)
        channels.append(m_oscillogram->analogChannel(i));
    setDataTypeByFormat(channels, m_oscillogram->dataFormat());

    const int year = m_oscillogram->version().value();
    // The time multiplier is checked for its shape only; the record keeps 1.0.
    if (year > 1998)
        parser.readLine(ComtradeCFGFields::TimeMultiplier);
    if (year > 2012) {
        parser.readLine(ComtradeCFGFields::TimeCodes);
        const int timeCode = parseTimeCode(parser.getString());
        const int localCode = parseTimeCode(parser.getString());
        m_oscillogram->setTimeCode(timeCode);
        m_oscillogram->setLocalCode(localCode);
        first.setOffsetFromUtc(timeCode * 3600);
        trigger.setOffsetFromUtc(timeCode * 3600);
        parser.readLine(ComtradeCFGFields::TimeQuality);
    }
    m_oscillogram->setFirstValueTime(first);
    m_oscillogram->setTriggerTime(trigger);
}

QList<QSharedPointer<ComtradeAnalogChannel>> ComtradeLoader::readAnalogChannels(
    CsvParser& parser, int analogs, int total)
{
    const QString stage = tr("Чтение файла конфигурации");
    const ComtradeVersion version = m_oscillogram->version();
    QList<QSharedPointer<ComtradeAnalogChannel>> channels;
    for (int i = 0; i < analogs; ++i) {
        updateProgress(stage, double(i) / total);
        checkCancelled();
        parser.readLine(ComtradeCFGFields::ChannelOrData);
        parser.checkComtradeAnalogFail(version);
        try {
            auto channel = QSharedPointer<ComtradeAnalogChannel>::create();
            channel->setDataType(DT::Double);
            channel->setDataOffset(i);
            channel->setDataCount(1);
            channel->setIndex(int(parser.getInt()));
            channel->setComtradeName(parser.getString());
            channel->setPhaseIdentification(parser.getString());
            channel->setCcbm(parser.getString());
            const QString units = parser.getString();
            channel->setUnits(units.toLower() == QLatin1String("none") ? QString() : units);
            channel->setMultiplier(parser.getDouble());
            channel->setOffsetAdder(parser.getDouble());
            channel->setSkew(parser.getDouble());
            channel->setLowerLimit(parser.getDouble());
            channel->setUpperLimit(parser.getDouble());
            if (version.value() == 1991) {
                channel->setPrimary(1.0);
                channel->setSecondary(1.0);
                channel->setPs(AnalogChannel::Primary);
            } else {
                channel->setPrimary(parser.getDouble());
                channel->setSecondary(parser.getDouble());
                const QString ps = parser.getString().toLower();
                if (ps == QLatin1String("p"))
                    channel->setPs(AnalogChannel::Primary);
                else if (ps == QLatin1String("s"))
                    channel->setPs(AnalogChannel::Secondary);
                else
                    throw new LoadFailureException(tr("Канал %1 содержит неправильное ps значение").arg(i));
            }
            channels.append(channel);
        } catch (ParsingException& e) {
            throw new LoadFailureException(
                tr("Не удалось прочитать информацию об аналоговом канале %1").arg(i),
                new ParsingException(e));
        }
    }
    return channels;
}

QList<QSharedPointer<ComtradeDigitalChannel>> ComtradeLoader::readDigitalChannels(
    CsvParser& parser, int analogs, int total)
{
    const QString stage = tr("Чтение файла конфигурации");
    const ComtradeVersion version = m_oscillogram->version();
    const int digitals = total - analogs;
    QList<QSharedPointer<ComtradeDigitalChannel>> channels;
    for (int i = 0; i < digitals; ++i) {
        updateProgress(stage, double(analogs + i) / total);
        checkCancelled();
        parser.readLine(ComtradeCFGFields::ChannelOrData);
        parser.checkComtradeDigitalFail(version);
        try {
            auto channel = QSharedPointer<ComtradeDigitalChannel>::create();
            channel->setDataType(DT::Digital);
            channel->setDataOffset(i);
            channel->setDataCount(1);
            channel->setIndex(int(parser.getInt()));
            channel->setName(parser.getString());
            if (version.value() != 1991) {
                channel->setPhaseIdentification(parser.getString());
                channel->setCcbm(parser.getString());
            }
            channel->setY(parser.getBool(QStringLiteral("1"), QStringLiteral("0")));
            channels.append(channel);
        } catch (ParsingException& e) {
            throw new LoadFailureException(
                tr("Не удалось прочитать информацию о дискретном канале %1").arg(i), new ParsingException(e));
        }
    }
    return channels;
}

void ComtradeLoader::readSampleRate(CsvParser& parser)
{
    parser.readLine(ComtradeCFGFields::SampleRateCount);
    const long long rates = parser.getInt();
    double rate = 0.0;
    // At least one rate line follows, even after a count of 0; only the first rate is used.
    long long read = 0;
    do {
        parser.readLine(ComtradeCFGFields::SampleRate);
        const double value = parser.getDouble();
        if (read == 0)
            rate = value;
        ++read;
    } while (read < rates);
    m_oscillogram->setSampleRate(rate);
    m_oscillogram->setIsEventTriggeredOsc(rates == 0 && rate == 0.0);
}

PreciseDateTime ComtradeLoader::readTimeStamp(CsvStringParser& parser)
{
    // dd/mm/yyyy,hh:mm:ss.ffffff in every year; the fraction goes in as microseconds as written.
    CsvStringParser date = parser.getParser(QStringLiteral("/"));
    CsvStringParser time = parser.getParser(QStringLiteral("."));
    CsvStringParser clock = time.getParser(QStringLiteral(":"));
    const long long fraction = time.getInt();
    const int day = int(date.getInt());
    const int month = int(date.getInt());
    const int year = int(date.getInt());
    const int hours = int(clock.getInt());
    const int minutes = int(clock.getInt());
    const int seconds = int(clock.getInt());
    return PreciseDateTime(year, month, day, hours, minutes, seconds, fraction, 0);
}

int ComtradeLoader::parseTimeCode(const QString& text)
{
    const QRegularExpressionMatch match = m_timeCodeRegExp.match(text);
    if (!match.hasMatch())
        return 0;
    const int hours = match.captured(1).toInt();
    return (hours >= -12 && hours <= 12) ? hours : 0;
}
