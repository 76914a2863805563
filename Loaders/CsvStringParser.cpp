#include "CsvStringParser.h"

#include "Model/Exception.h"

#include <QObject>

namespace {
// Enough for the year of a date or the microseconds of a clock, whatever follows them.
constexpr int intFallbackLength = 6;
} // namespace

CsvStringParser::CsvStringParser(const QString& delimiter) : m_delimiter(delimiter)
{
}

CsvStringParser::CsvStringParser(const QString& line, const QString& delimiter, unsigned int lineNumber)
    : m_tokens(line.split(delimiter, Qt::KeepEmptyParts, Qt::CaseSensitive))
    , m_delimiter(delimiter)
    , m_lineNumber(lineNumber)
{
}

void CsvStringParser::setLine(const QString& line)
{
    m_tokens = line.split(m_delimiter, Qt::KeepEmptyParts, Qt::CaseSensitive);
    m_position = 0;
    ++m_lineNumber;
}

QString CsvStringParser::getString()
{
    if (!hasNextToken())
        throw ParsingException(
            QObject::tr("В строке %1 отсутствует необходимое количество значений").arg(m_lineNumber));
    return m_tokens.at(m_position++).trimmed();
}

long long CsvStringParser::getInt()
{
    const QString token = getString();
    if (token.isEmpty())
        return 0;
    bool ok = false;
    long long value = token.toLongLong(&ok, 10);
    if (!ok)
        value = token.left(intFallbackLength).toLongLong(&ok, 10);
    if (!ok)
        throw ParsingException(QObject::tr("В строке %1 неверный тип данных, %2 не int")
                                   .arg(QString::number(m_lineNumber), token));
    m_lastInt = value;
    return value;
}

double CsvStringParser::getDouble()
{
    const QString token = getString();
    if (token.isEmpty())
        return 0.0;
    bool ok = false;
    const double value = token.toDouble(&ok);
    if (!ok)
        throw ParsingException(QObject::tr("В строке %1 неверный тип данных, %2 не double")
                                   .arg(QString::number(m_lineNumber), token));
    m_lastDouble = value;
    return value;
}

bool CsvStringParser::getBool(const QString& trueText, const QString& falseText)
{
    const QString token = getString();
    if (token.isEmpty())
        return false;
    if (token == trueText)
        m_lastBool = true;
    else if (token == falseText)
        m_lastBool = false;
    else
        throw ParsingException(QObject::tr("В строке %1 значение \"%2\" не булево, потому что не равно ни %3 "
                                           "(принято как истина), ни %4 (принято как ложь)")
                                   .arg(QString::number(m_lineNumber), token, trueText, falseText));
    return m_lastBool;
}

CsvStringParser CsvStringParser::getParser(const QString& delimiter)
{
    return CsvStringParser(getString(), delimiter, m_lineNumber);
}
