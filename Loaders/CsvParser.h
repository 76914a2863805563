#pragma once

#include "korvane_export.h"

#include "Loaders/ComtradeCFGFields.h"
#include "Loaders/CsvStringParser.h"
#include "Model/ComtradeVersion.h"

class QTextStream;

// Reads a COMTRADE .cfg or ASCII .dat file line by line and checks the shape of each kind of
// .cfg line. The token readers throw ParsingException by value, as CsvStringParser does; the
// line checks throw a pointer to a new ParsingException, which the caller owns.
class KORVANE_EXPORT CsvParser
{
public:
    // The stream is not owned and must outlive the parser.
    explicit CsvParser(QTextStream& stream);

    bool atEnd() const;
    bool hasNextToken() const { return m_stringParser.hasNextToken(); }
    QString getString() { return m_stringParser.getString(); }
    long long getInt() { return m_stringParser.getInt(); }
    double getDouble() { return m_stringParser.getDouble(); }
    bool getBool(const QString& trueText, const QString& falseText)
    {
        return m_stringParser.getBool(trueText, falseText);
    }
    CsvStringParser getParser(const QString& delimiter) { return m_stringParser.getParser(delimiter); }
    unsigned int getLineNum() const { return m_stringParser.getLineNum(); }
    void resetLinesCnt() { m_stringParser.resetLinesCnt(); }

    CsvStringParser& stringParser() { return m_stringParser; }
    const CsvStringParser& stringParser() const { return m_stringParser; }

    // Reads the next line of the stream and checks it as the given kind of .cfg line.
    void readLine(ComtradeCFGFields field);
    void checkComtradeCFGContent(ComtradeCFGFields field) const;

    // These three answer true when the text or line is NOT sound.
    bool checkComtradeDataFormat(const QString& text) const;
    bool checkCastToDouble(const QString& text) const;
    // The character 0x1A, the old end-of-file mark, standing alone as a token.
    bool checkSubCharacter() const;

    // The count of fields of a channel line; names the first missing field when it is wrong.
    void checkComtradeAnalogFail(ComtradeVersion version) const;
    void checkComtradeDigitalFail(ComtradeVersion version) const;
    // The message of a line of channel counts that cannot be right.
    [[noreturn]] void throwWrongChannelCounts() const;

private:
    QStringList tokens() const { return m_stringParser.getLine(); }
    bool isSingleNumber() const;
    bool hasCount(int count) const { return tokens().size() == count; }
    void checkDateAndTime(ComtradeCFGFields field) const;
    [[noreturn]] void throwWrongInformation(const char* what) const;
    [[noreturn]] void throwWrongChannelField(const char* fieldText) const;
    int firstMissingPlace() const;

    QTextStream* m_stream;
    CsvStringParser m_stringParser;
};
