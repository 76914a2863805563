// Feeds arbitrary text to the configuration parser: every line is read as one kind of .cfg line,
// checked as a channel line of each revision, then taken apart by all token readers in turn.
// Failures are the parser's normal answer; a crash, a leak or a failure without text is a bug.
#include "Loaders/CsvParser.h"
#include "Model/Exception.h"

#include <QString>
#include <QTextStream>

#include <cstdint>
#include <cstdlib>

namespace {
constexpr int lineKinds = 12;
constexpr int maxLines = 256;

void requireText(const Exception& failure)
{
    if (failure.message().isEmpty())
        std::abort();
}

// The line checks throw a pointer that the caller owns.
template<typename Call> void runLineCheck(Call call)
{
    try {
        call();
    } catch (ParsingException* failure) {
        requireText(*failure);
        delete failure;
    }
}

template<typename Call> void runTokenReader(Call call)
{
    try {
        call();
    } catch (const ParsingException& failure) {
        requireText(failure);
    }
}

// Reads every token of a piece the way dates and clocks are read.
void readAllAsIntegers(CsvStringParser piece)
{
    while (piece.hasNextToken())
        runTokenReader([&] { piece.getInt(); });
    runTokenReader([&] { piece.getInt(); });
}

void readTokens(CsvParser& parser, unsigned selector)
{
    unsigned step = selector;
    while (parser.hasNextToken()) {
        switch (step++ % 6) {
        case 0:
            runTokenReader([&] { parser.getString(); });
            break;
        case 1:
            runTokenReader([&] { parser.getInt(); });
            break;
        case 2:
            runTokenReader([&] { parser.getDouble(); });
            break;
        case 3:
            runTokenReader([&] { parser.getBool(QStringLiteral("1"), QStringLiteral("0")); });
            break;
        case 4:
            runTokenReader([&] { readAllAsIntegers(parser.getParser(QStringLiteral("/"))); });
            break;
        case 5:
            runTokenReader([&] {
                CsvStringParser time = parser.getParser(QStringLiteral("."));
                readAllAsIntegers(time.getParser(QStringLiteral(":")));
                readAllAsIntegers(time);
            });
            break;
        }
    }
    // Past the last token every reader must fail with a text, not crash.
    runTokenReader([&] { parser.getString(); });
    runTokenReader([&] { parser.getParser(QStringLiteral("A")).getInt(); });
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 2)
        return 0;
    const unsigned firstKind = data[0];
    const unsigned selector = data[1];
    QString text = QString::fromUtf8(reinterpret_cast<const char*>(data + 2), static_cast<int>(size - 2));
    QTextStream stream(&text, QIODevice::ReadOnly);
    CsvParser parser(stream);
    for (int line = 0; line < maxLines && !parser.atEnd(); ++line) {
        const auto kind
            = static_cast<ComtradeCFGFields>((firstKind + static_cast<unsigned>(line)) % lineKinds);
        runLineCheck([&] { parser.readLine(kind); });
        for (int year : { 1991, 1999, 2013, 2000 }) {
            runLineCheck([&] { parser.checkComtradeAnalogFail(ComtradeVersion(year)); });
            runLineCheck([&] { parser.checkComtradeDigitalFail(ComtradeVersion(year)); });
        }
        parser.checkSubCharacter();
        readTokens(parser, selector + static_cast<unsigned>(line));
    }
    return 0;
}
