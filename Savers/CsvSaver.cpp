#include "Savers/CsvSaver.h"

#include "Calc/CalcModule.h"
#include "Savers/CsvNumberFormat.h"

#include <QSaveFile>
#include <QTextCodec>
#include <QTextStream>

#include <vector>

namespace {
// Row steps of the calculation modes, in milliseconds of the record.
constexpr int protectionAutomationStepMs = 8;
constexpr int talviStepMs = 4;
// An analogue channel of this shape has no measured value to show.
constexpr short instantShape = 4;
// Progress goes out when it has grown by a thousandth, so that a long table does not flood the
// receiving thread with one event a row.
constexpr double progressGrain = 0.001;
// Rows leave for the file in pieces of about this many bytes.
constexpr int chunkBytes = 1 << 20;

// Whether the codec writes the characters of a row, all ASCII, as they are.
bool isAsciiCompatible(QTextCodec* codec)
{
    static const QByteArray rowCharacters = QByteArrayLiteral("0123456789;,.-+eEnaif\n");
    return codec && codec->fromUnicode(QString::fromLatin1(rowCharacters)) == rowCharacters;
}

QLocale numberLocaleOf(QLocale::Language language)
{
    QLocale locale(language);
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale;
}

// A name holding the separator, a quote or a line break is quoted, its quotes doubled, so that
// the header keeps one column a channel.
QString headerField(const QString& name, QChar separator)
{
    if (!name.contains(separator) && !name.contains(QLatin1Char('"')) && !name.contains(QLatin1Char('\n'))
        && !name.contains(QLatin1Char('\r')))
        return name;
    QString quoted = name;
    quoted.replace(QLatin1String("\""), QLatin1String("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}
} // namespace

struct CsvSaver::Columns
{
    std::vector<QSharedPointer<AnalogChannel>> analogs;
    std::vector<QSharedPointer<DigitalChannel>> digitals;
};

CsvSaver::CsvSaver(const QString& path, QSharedPointer<Oscillogram> oscillogram, bool onlySelectedChannels,
    bool useTimeRange)
    : WaveSaver(path, std::move(oscillogram), onlySelectedChannels, useTimeRange)
    , m_numberLocale(numberLocaleOf(QLocale::Russian))
{
}

CsvSaver::~CsvSaver() = default;

void CsvSaver::setSeparator(int choice)
{
    m_separator = choice == 1 ? QLatin1Char(',') : QLatin1Char(';');
}

void CsvSaver::setDecimalPoint(int choice)
{
    m_numberLocale = numberLocaleOf(choice == 1 ? QLocale::C : QLocale::Russian);
}

void CsvSaver::prepareCalcModule()
{
    if (!m_calcModule)
        m_mode = WithoutProcessing;
    const double rate = m_calcModule ? m_calcModule->devConfig().sampleRate : 0.0;
    switch (m_mode) {
    case ProtectionAutomation:
        m_rowStep = int(rate * protectionAutomationStepMs / 1000);
        m_calcModule->setCalcType(1);
        break;
    case Talvi:
        m_rowStep = int(rate * talviStepMs / 1000);
        m_calcModule->setCalcType(2);
        break;
    default:
        m_rowStep = 1;
        break;
    }
}

void CsvSaver::saveOsc()
{
    setOk(false);
    QSaveFile file(fileName());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        emit writeError();
        return;
    }
    emit updateProgress(tr("Сохранение..."), 0.0);
    prepareCalcModule();

    QTextStream stream(&file);
    stream.setLocale(numberLocaleOf(QLocale::C));
    if (codec())
        stream.setCodec(codec());
    const Columns columns = shownColumns();
    stream << headerLine(columns);
    const RowsResult rows = writeRows(file, stream, columns);
    if (rows == RowsResult::Cancelled) {
        file.cancelWriting();
        emit cancelSave();
        return;
    }
    emit updateProgress(tr("Сохранение..."), 1.0);
    stream.flush();
    if (rows == RowsResult::Failed || stream.status() != QTextStream::Ok || !file.commit()) {
        file.cancelWriting();
        emit writeError();
        return;
    }
    setOk(true);
    emit finishProgress();
}

CsvSaver::Columns CsvSaver::shownColumns() const
{
    const Oscillogram& record = *oscillogram();
    Columns columns;
    for (int i = 0; i < record.countOfAnalogChannels(); ++i) {
        auto channel = record.analogChannel(i);
        if (onlySelectedChannels() && !channel->isSelected())
            continue;
        if (m_mode != WithoutProcessing && channel->normalState() == instantShape)
            continue;
        columns.analogs.push_back(channel);
    }
    for (int i = 0; i < record.countOfDigitalChannels(); ++i) {
        auto channel = record.digitalChannel(i);
        if (!onlySelectedChannels() || channel->isSelected())
            columns.digitals.push_back(channel);
    }
    return columns;
}

QString CsvSaver::headerLine(const Columns& columns) const
{
    QString line = QStringLiteral("step") + m_separator + QStringLiteral("time");
    for (const auto& channel : columns.analogs)
        line += m_separator + headerField(channel->name(), m_separator);
    for (const auto& channel : columns.digitals)
        line += m_separator + headerField(channel->name(), m_separator);
    return line + QLatin1Char('\n');
}

// Rows are made as bytes and go out a chunk at a time. Their characters are all ASCII, which an
// ASCII-compatible codec leaves as they are; any other codec gets them through the stream.
CsvSaver::RowsResult CsvSaver::writeRows(QSaveFile& file, QTextStream& stream, const Columns& columns)
{
    const CsvNumberFormat format(m_numberLocale);
    const bool plainBytes = isAsciiCompatible(stream.codec());
    const int rowBytes
        = (2 + int(columns.analogs.size() + columns.digitals.size())) * (CsvNumberFormat::maxLength + 1) + 1;
    QByteArray chunk(chunkBytes + rowBytes, Qt::Uninitialized);
    char* const begin = chunk.data();
    char* end = begin;
    const auto flushChunk = [&]() {
        const qint64 length = end - begin;
        end = begin;
        if (!plainBytes) {
            stream << QString::fromLatin1(begin, int(length));
            return stream.status() == QTextStream::Ok;
        }
        stream.flush();
        return file.write(begin, length) == length;
    };

    const int count = countSamples();
    const int step = qMax(1, m_rowStep);
    double reported = 0.0;
    int rowNumber = 0;
    for (int i = 0; i < count; i += step, ++rowNumber) {
        const double fraction = double(i) / count;
        if (fraction - reported >= progressGrain) {
            reported = fraction;
            emit updateProgress(tr("Сохранение..."), fraction);
        }
        if (checkCancel())
            return RowsResult::Cancelled;
        end = writeRow(end, rowNumber, i, columns, format);
        if (end - begin >= chunkBytes && !flushChunk())
            return RowsResult::Failed;
    }
    return flushChunk() ? RowsResult::Written : RowsResult::Failed;
}

char* CsvSaver::writeRow(
    char* out, int rowNumber, int sample, const Columns& columns, const CsvNumberFormat& format)
{
    const char separator = m_separator.toLatin1();
    out = CsvNumberFormat::writeInteger(out, rowNumber);
    *out++ = separator;
    // Samples before the trigger get negative times.
    out = format.writeScaled(out, timeTrigger().uSecsTo(timeOfCurrentSample(sample)), 6);
    const int recordSample = sample + firstSampleOfRange();
    for (const auto& channel : columns.analogs) {
        *out++ = separator;
        out = format.writeMeasured(out, toChosenSide(*channel, analogValue(channel, recordSample)));
    }
    for (const auto& channel : columns.digitals) {
        *out++ = separator;
        *out++ = channel->Channel::getValue(recordSample, channel->dataOffset()) != 0.0 ? '1' : '0';
    }
    *out++ = '\n';
    return out;
}

double CsvSaver::analogValue(const QSharedPointer<AnalogChannel>& channel, int sample)
{
    if (m_mode == WithoutProcessing)
        return channel->getRealValue(channel->getValue(sample));
    CalcModuleParams params;
    params.channel = channel;
    params.sampleIndex = sample;
    return m_calcModule->calculate(params).rms;
}

double CsvSaver::toChosenSide(const AnalogChannel& channel, double value) const
{
    if (channel.ps() == AnalogChannel::Primary && m_primSecMode == 1)
        return value * (channel.secondary() / channel.primary());
    if (channel.ps() == AnalogChannel::Secondary && m_primSecMode == 0)
        return value * (channel.primary() / channel.secondary());
    return value;
}
