#pragma once

#include "korvane_export.h"

#include <QString>
#include <QStringList>

// Cuts one line of comma-separated values into tokens and reads them one after the other.
// The token readers throw ParsingException by value; its text names the line of the file.
class KORVANE_EXPORT CsvStringParser
{
public:
    explicit CsvStringParser(const QString& delimiter);
    // Takes the line apart at once and keeps the line number as given: a parser made for a
    // piece of a line reports the line the piece came from.
    CsvStringParser(const QString& line, const QString& delimiter, unsigned int lineNumber);

    // Each new line counts one more line of the file.
    void setLine(const QString& line);
    QStringList getLine() const { return m_tokens; }
    bool hasNextToken() const { return m_position < m_tokens.size(); }

    // The next token without surrounding blanks.
    QString getString();
    // An empty field reads as 0. A token that is no integer on the whole still passes when its
    // first six characters are one: the head of an overlong or decorated number.
    long long getInt();
    // An empty field reads as 0.0.
    double getDouble();
    // An empty field reads as false.
    bool getBool(const QString& trueText, const QString& falseText);
    // A parser on the next token, as for the date dd/mm/yyyy or the clock hh:mm:ss.ssssss.
    CsvStringParser getParser(const QString& delimiter);

    unsigned int getLineNum() const { return m_lineNumber; }
    void resetLinesCnt() { m_lineNumber = 0; }

private:
    QStringList m_tokens;
    int m_position = 0;
    QString m_delimiter;
    double m_lastDouble = 0.0;
    long long m_lastInt = 0;
    bool m_lastBool = false;
    unsigned int m_lineNumber = 0;
};
