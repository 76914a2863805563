#include "CsvParser.h"

#include "Model/Exception.h"

#include <QObject>
#include <QTextStream>

#include <iterator>

namespace {
const QString cfgDelimiter = QStringLiteral(",");

// What each line kind is about, for the message on a line of the wrong shape.
const char* const stationDeviceYearText
    = QT_TRANSLATE_NOOP("QObject", "о названии станции, устройстве и стандарте");
const char* const channelCountsText = QT_TRANSLATE_NOOP("QObject", "о количестве сигналов и их типе");
const char* const lineFrequencyText = QT_TRANSLATE_NOOP("QObject", "о частоте линии");
const char* const sampleRateCountText = QT_TRANSLATE_NOOP("QObject", "о количестве частот дискретизации");
const char* const sampleRateText
    = QT_TRANSLATE_NOOP("QObject", "о частоте дискретизации и количестве сэмплов");
const char* const fileTypeText = QT_TRANSLATE_NOOP("QObject", "о формате хранения данных");
const char* const timeMultiplierText = QT_TRANSLATE_NOOP("QObject", "о множителе временных меток");
const char* const timeCodesText = QT_TRANSLATE_NOOP("QObject", "о timezone");

// The texts of the two time stamp lines: wrong count, no date, no clock. The misspellings are
// those the users have always seen.
struct DateTimeTexts
{
    const char* wrongCount;
    const char* noDate;
    const char* noTime;
};
const DateTimeTexts firstValueTimeTexts { QT_TRANSLATE_NOOP(
                                              "QObject", "о дате и времени первой записи в файл"),
    QT_TRANSLATE_NOOP("QObject", ", отсутствует дата первой запсии в файл"),
    QT_TRANSLATE_NOOP("QObject", ", отсутствует время первой запси в файл") };
const DateTimeTexts triggerTimeTexts { QT_TRANSLATE_NOOP("QObject", "о дате и времени срабатывания"),
    QT_TRANSLATE_NOOP("QObject", ", отсутствует дата срабатывания"),
    QT_TRANSLATE_NOOP("QObject", ", отсутствует время срабатывания") };

// The fields of an analogue channel line by place, from 1; the last three exist since 1999.
const char* const analogFieldTexts[] = {
    QT_TRANSLATE_NOOP("QObject", "'номер канала'"),
    QT_TRANSLATE_NOOP("QObject", "'название канала'"),
    QT_TRANSLATE_NOOP("QObject", "'номер фазы'"),
    QT_TRANSLATE_NOOP("QObject", "'компонент схемы'"),
    QT_TRANSLATE_NOOP("QObject", "'единицы измерения'"),
    QT_TRANSLATE_NOOP("QObject", "'множитель величины сигнала'"),
    QT_TRANSLATE_NOOP("QObject", "'добавочное смещение'"),
    QT_TRANSLATE_NOOP("QObject", "'задержка сигнала в канале'"),
    QT_TRANSLATE_NOOP("QObject", "'нижняя граница'"),
    QT_TRANSLATE_NOOP("QObject", "'верхняя граница'"),
    QT_TRANSLATE_NOOP("QObject", "'множитель коэффициента трансформации'"),
    QT_TRANSLATE_NOOP("QObject", "'делитель коэффициента трансформации'"),
    QT_TRANSLATE_NOOP("QObject", "'первичное или вторичное значение'"),
};
const char* const analogCountText
    = QT_TRANSLATE_NOOP("QObject", "'неверное количество параметров аналогового сигнала'");

// The fields of a digital channel line by place: 1991 knows neither phase nor component.
const char* const digitalFieldTexts1991[] = {
    QT_TRANSLATE_NOOP("QObject", "'номер канала'"),
    QT_TRANSLATE_NOOP("QObject", "'название канала'"),
    QT_TRANSLATE_NOOP("QObject", "'нормальное состояние'"),
};
const char* const digitalFieldTexts[] = {
    QT_TRANSLATE_NOOP("QObject", "'номер канала'"),
    QT_TRANSLATE_NOOP("QObject", "'название канала'"),
    QT_TRANSLATE_NOOP("QObject", "'номер фазы'"),
    QT_TRANSLATE_NOOP("QObject", "'компонент схемы'"),
    QT_TRANSLATE_NOOP("QObject", "'нормальное состояние'"),
};
const char* const digitalCountText
    = QT_TRANSLATE_NOOP("QObject", "'неверное количество параметров дискретного сигнала'");

constexpr int analogFieldCount1991 = 10;
constexpr int analogFieldCount = int(std::size(analogFieldTexts));
constexpr int digitalFieldCount1991 = int(std::size(digitalFieldTexts1991));
constexpr int digitalFieldCount = int(std::size(digitalFieldTexts));

bool is1991(const ComtradeVersion& version)
{
    return version.value() == 1991;
}

// A field of blanks is as empty as no field: every token reader trims.
bool isBlank(const QString& token)
{
    return token.trimmed().isEmpty();
}
} // namespace

CsvParser::CsvParser(QTextStream& stream) : m_stream(&stream), m_stringParser(cfgDelimiter)
{
}

bool CsvParser::atEnd() const
{
    return m_stream->atEnd();
}

void CsvParser::readLine(ComtradeCFGFields field)
{
    m_stringParser.setLine(m_stream->readLine());
    checkComtradeCFGContent(field);
}

void CsvParser::checkComtradeCFGContent(ComtradeCFGFields field) const
{
    switch (field) {
    case ComtradeCFGFields::ChannelOrData:
    case ComtradeCFGFields::TimeQuality:
        return;
    case ComtradeCFGFields::StationDeviceYear:
        if (tokens().size() > 3)
            throwWrongInformation(stationDeviceYearText);
        return;
    case ComtradeCFGFields::ChannelCounts:
        if (!hasCount(3))
            throwWrongInformation(channelCountsText);
        return;
    case ComtradeCFGFields::LineFrequency:
        if (!isSingleNumber())
            throwWrongInformation(lineFrequencyText);
        return;
    case ComtradeCFGFields::SampleRateCount:
        if (!isSingleNumber())
            throwWrongInformation(sampleRateCountText);
        return;
    case ComtradeCFGFields::SampleRate:
        if (!hasCount(2) || checkCastToDouble(tokens().first()))
            throwWrongInformation(sampleRateText);
        return;
    case ComtradeCFGFields::FirstValueTime:
    case ComtradeCFGFields::TriggerTime:
        checkDateAndTime(field);
        return;
    case ComtradeCFGFields::FileType:
        if (!hasCount(1) || checkComtradeDataFormat(tokens().first().trimmed()))
            throwWrongInformation(fileTypeText);
        return;
    case ComtradeCFGFields::TimeMultiplier:
        if (!isSingleNumber())
            throwWrongInformation(timeMultiplierText);
        return;
    case ComtradeCFGFields::TimeCodes:
        if (!hasCount(2))
            throwWrongInformation(timeCodesText);
        return;
    }
}

bool CsvParser::checkComtradeDataFormat(const QString& text) const
{
    const QString lower = text.toLower();
    return !(lower == QLatin1String("ascii") || lower == QLatin1String("binary")
        || lower == QLatin1String("binary32") || lower == QLatin1String("float32"));
}

bool CsvParser::checkCastToDouble(const QString& text) const
{
    bool ok = false;
    text.toDouble(&ok);
    return !ok;
}

bool CsvParser::checkSubCharacter() const
{
    return tokens().contains(QString(QChar(0x1A)));
}

void CsvParser::checkComtradeAnalogFail(ComtradeVersion version) const
{
    if (tokens().isEmpty())
        throw new ParsingException(
            QObject::tr("Отсутствуют данные об аналоговом сигнале в строке %1").arg(getLineNum()));
    const int expected = is1991(version) ? analogFieldCount1991 : analogFieldCount;
    if (hasCount(expected))
        return;
    const int place = firstMissingPlace();
    throwWrongChannelField(place <= expected ? analogFieldTexts[place - 1] : analogCountText);
}

void CsvParser::checkComtradeDigitalFail(ComtradeVersion version) const
{
    if (tokens().isEmpty())
        throw new ParsingException(
            QObject::tr("Отсутствуют данные о дискретном сигнале в строке %1").arg(getLineNum()));
    const bool old = is1991(version);
    const int expected = old ? digitalFieldCount1991 : digitalFieldCount;
    if (hasCount(expected))
        return;
    const int place = firstMissingPlace();
    if (place > expected)
        throwWrongChannelField(digitalCountText);
    throwWrongChannelField(old ? digitalFieldTexts1991[place - 1] : digitalFieldTexts[place - 1]);
}

bool CsvParser::isSingleNumber() const
{
    return hasCount(1) && !checkCastToDouble(tokens().first());
}

void CsvParser::checkDateAndTime(ComtradeCFGFields field) const
{
    const DateTimeTexts& texts
        = field == ComtradeCFGFields::FirstValueTime ? firstValueTimeTexts : triggerTimeTexts;
    const QStringList fields = tokens();
    if (fields.size() != 2)
        throwWrongInformation(texts.wrongCount);
    if (isBlank(fields.at(0)))
        throwWrongInformation(texts.noDate);
    if (isBlank(fields.at(1)))
        throwWrongInformation(texts.noTime);
}

void CsvParser::throwWrongInformation(const char* what) const
{
    // The second word has a Latin c, and the blank ends the prefix: both are as users know them.
    throw new ParsingException(
        QObject::tr("В cтроке %1 неверная информация ").arg(getLineNum()) + QObject::tr(what));
}

void CsvParser::throwWrongChannelCounts() const
{
    throwWrongInformation(channelCountsText);
}

void CsvParser::throwWrongChannelField(const char* fieldText) const
{
    throw new ParsingException(QObject::tr("Строка %1 содержит неправильное значение %2")
                                   .arg(QString::number(getLineNum()), QObject::tr(fieldText)));
}

// The place, from 1, of the first field that is missing: a trailing empty field counts as the
// missing one itself.
int CsvParser::firstMissingPlace() const
{
    const QStringList fields = tokens();
    return isBlank(fields.last()) ? fields.size() : fields.size() + 1;
}
