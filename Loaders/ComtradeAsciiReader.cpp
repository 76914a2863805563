// The ASCII form of the .dat: one record per line, its fields cut at commas. Plain numeric lines
// are read straight from the bytes; any other line goes through the text parser, so that odd
// fields read, and fail, exactly as the parser reads them everywhere else.

#include "Loaders/ComtradeLoader.h"
#include "Loaders/CsvParser.h"

#include <QFile>
#include <QTextCodec>
#include <QTextStream>

#include <algorithm>
#include <charconv>
#include <climits>
#include <cstring>
#include <limits>
#include <vector>

namespace {
constexpr int blockBytes = 1 << 20;

// The estimate of the record count: lines as readLine() counts them, the last one without a
// line end included.
int countLines(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return 0;
    QByteArray block(blockBytes, Qt::Uninitialized);
    long long lines = 0;
    char last = '\n';
    for (qint64 got = file.read(block.data(), block.size()); got > 0;
         got = file.read(block.data(), block.size())) {
        lines += std::count(block.constData(), block.constData() + got, '\n');
        last = block.at(int(got - 1));
    }
    if (last != '\n')
        ++lines;
    return int(std::min<long long>(lines, INT_MAX));
}

// A text file in UTF-16 or UTF-32, or with a byte-order mark, is left to the text stream, which
// knows these marks.
bool startsWithByteOrderMark(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    return QTextCodec::codecForUtfText(file.read(4), nullptr) != nullptr;
}

// Hands out the lines of a text-mode file from large blocks: what the text stream would read,
// without its per-character decoding.
class LineSource
{
public:
    explicit LineSource(QFile& file) : m_file(file) { }

    bool atEnd()
    {
        if (m_start == m_buffer.size())
            fill();
        return m_start == m_buffer.size();
    }

    // Offset of the next line from the start of the text.
    qint64 position() const { return m_base + m_start; }

    // The next line without its end; call only when not at the end.
    void next(const char*& begin, const char*& end)
    {
        for (;;) {
            const char* data = m_buffer.constData();
            const char* found = static_cast<const char*>(
                std::memchr(data + m_start, '\n', size_t(m_buffer.size() - m_start)));
            if (found || m_exhausted) {
                begin = data + m_start;
                end = found ? found : data + m_buffer.size();
                m_start = int(found ? found - data + 1 : m_buffer.size());
                return;
            }
            fill();
        }
    }

private:
    // Keeps the unread tail and appends the next block.
    void fill()
    {
        if (m_exhausted)
            return;
        m_base += m_start;
        m_buffer.remove(0, m_start);
        m_start = 0;
        const int kept = m_buffer.size();
        m_buffer.resize(kept + blockBytes);
        const qint64 got = m_file.read(m_buffer.data() + kept, blockBytes);
        m_buffer.resize(kept + int(std::max<qint64>(got, 0)));
        if (got <= 0)
            m_exhausted = true;
    }

    QFile& m_file;
    QByteArray m_buffer;
    int m_start = 0;
    qint64 m_base = 0;
    bool m_exhausted = false;
};

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
}

// One field of a line, trimmed of blanks as the text parser trims its tokens.
struct Field
{
    const char* begin;
    const char* end;
    bool empty() const { return begin == end; }
};

class FieldCutter
{
public:
    FieldCutter(const char* begin, const char* end) : m_position(begin), m_end(end) { }

    // False when the line has no field left.
    bool next(Field& field)
    {
        if (m_done)
            return false;
        const char* comma
            = static_cast<const char*>(std::memchr(m_position, ',', size_t(m_end - m_position)));
        const char* fieldEnd = comma ? comma : m_end;
        field = { m_position, fieldEnd };
        while (field.begin < field.end && isBlank(*field.begin))
            ++field.begin;
        while (field.end > field.begin && isBlank(field.end[-1]))
            --field.end;
        m_done = !comma;
        m_position = comma ? comma + 1 : m_end;
        return true;
    }

private:
    const char* m_position;
    const char* m_end;
    bool m_done = false;
};

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

const char* skipDigits(const char* p, const char* end)
{
    while (p < end && isDigit(*p))
        ++p;
    return p;
}

// -ddd[.ddd][e[+-]ddd]: the only shape read here; every other one goes to the text parser.
bool isPlainDecimal(const Field& field)
{
    const char* p = field.begin;
    if (p < field.end && *p == '-')
        ++p;
    const char* digits = p;
    p = skipDigits(p, field.end);
    if (p == digits)
        return false;
    if (p < field.end && *p == '.') {
        const char* fraction = ++p;
        p = skipDigits(p, field.end);
        if (p == fraction)
            return false;
    }
    if (p < field.end && (*p == 'e' || *p == 'E')) {
        ++p;
        if (p < field.end && (*p == '+' || *p == '-'))
            ++p;
        const char* exponent = p;
        p = skipDigits(p, field.end);
        if (p == exponent)
            return false;
    }
    return p == field.end;
}

bool readInteger(const Field& field, long long& value)
{
    if (field.empty()) {
        value = 0;
        return true;
    }
    const auto result = std::from_chars(field.begin, field.end, value);
    return result.ec == std::errc() && result.ptr == field.end;
}

bool readDecimal(const Field& field, double& value)
{
    if (field.empty()) {
        value = 0.0;
        return true;
    }
    if (!isPlainDecimal(field))
        return false;
    const auto result = std::from_chars(field.begin, field.end, value);
    return result.ec == std::errc() && result.ptr == field.end;
}

bool readBit(const Field& field, bool& value)
{
    if (field.empty() || (field.end - field.begin == 1 && (*field.begin == '0' || *field.begin == '1'))) {
        value = !field.empty() && *field.begin == '1';
        return true;
    }
    return false;
}

// One record read into the row buffers, or false when the line needs the text parser.
struct PlainRecord
{
    long long stamp = 0;
    std::vector<double> analog;
    std::vector<char> digital;

    bool read(const char* begin, const char* end)
    {
        if (std::memchr(begin, 0x1A, size_t(end - begin)))
            return false;
        FieldCutter cutter(begin, end);
        Field field {};
        long long number = 0;
        if (!cutter.next(field) || !readInteger(field, number))
            return false;
        if (!cutter.next(field) || !readInteger(field, stamp))
            return false;
        for (double& value : analog) {
            if (!cutter.next(field) || !readDecimal(field, value))
                return false;
        }
        for (char& bit : digital) {
            bool set = false;
            if (!cutter.next(field) || !readBit(field, set))
                return false;
            bit = set;
        }
        return true;
    }
};
} // namespace

void ComtradeLoader::readAsciiDataFile(const QString& path)
{
    const QString stage = tr("Чтение файла данных");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        throw new LoadFailureException(QStringLiteral("UnableOpenFileException"));
    const int analogs = m_oscillogram->countOfAnalogChannels();
    const int digitals = m_oscillogram->countOfDigitalChannels();
    // A record that reads holds a comma after each of its fields but the last, and a line end:
    // a file of many short lines reserves no more records than it can hold.
    const qint64 estimate
        = qMin<qint64>(countLines(path), file.size() / (qint64(analogs) + digitals + 2) + 1);
    OscillogramDataBuilder builder;
    if (estimate > std::numeric_limits<int>::max()
        || !builder.reserve(analogs, 0, 0, 0, digitals, int(estimate)))
        failStoreTooLarge();
    const bool eventTriggered = m_oscillogram->isEventTriggeredOsc();
    if (eventTriggered)
        m_oscillogram->timeStamps().reserve(int(estimate));
    if (startsWithByteOrderMark(path)) {
        readAsciiDataStream(file, builder);
        return;
    }

    const qint64 size = file.size();
    QVector<double>& values = builder.doubleAnalogValues();
    QBitArray& bits = builder.digitalValues();
    QTextCodec* localeCodec = QTextCodec::codecForLocale();
    PlainRecord plain;
    plain.analog.resize(size_t(analogs));
    plain.digital.resize(size_t(digitals));
    LineSource lines(file);
    unsigned int lineNumber = 0;
    int count = 0;
    while (!lines.atEnd()) {
        updateProgress(stage, double(lines.position()) / size);
        checkCancelled();
        const char* begin = nullptr;
        const char* end = nullptr;
        lines.next(begin, end);
        ++lineNumber;
        const qint64 rowStart = qint64(count) * digitals;
        if (bits.size() < rowStart + digitals)
            bits.resize(int(rowStart + digitals));
        if (plain.read(begin, end)) {
            if (eventTriggered)
                m_oscillogram->timeStamps().append(plain.stamp);
            for (double value : plain.analog)
                values.append(value);
            for (int c = 0; c < digitals; ++c)
                bits.setBit(int(rowStart + c), plain.digital[size_t(c)]);
        } else {
            CsvStringParser parser(
                localeCodec->toUnicode(begin, int(end - begin)), QStringLiteral(","), lineNumber);
            if (!readAsciiRecord(parser, builder, count))
                break;
        }
        ++count;
    }
    attachStore(builder, count);
}

bool ComtradeLoader::readAsciiRecord(CsvStringParser& parser, OscillogramDataBuilder& builder, int sample)
{
    // The old end-of-file mark, as a field of its own, ends the data.
    if (parser.getLine().contains(QString(QChar(0x1A))))
        return false;
    parser.getInt();
    const long long stamp = parser.getInt();
    if (m_oscillogram->isEventTriggeredOsc())
        m_oscillogram->timeStamps().append(stamp);
    const int analogs = m_oscillogram->countOfAnalogChannels();
    const int digitals = m_oscillogram->countOfDigitalChannels();
    for (int c = 0; c < analogs; ++c)
        builder.doubleAnalogValues().append(parser.getDouble());
    QBitArray& bits = builder.digitalValues();
    const qint64 rowStart = qint64(sample) * digitals;
    if (bits.size() < rowStart + digitals)
        bits.resize(int(rowStart + digitals));
    for (int c = 0; c < digitals; ++c)
        bits.setBit(int(rowStart + c), parser.getBool(QStringLiteral("1"), QStringLiteral("0")));
    return true;
}

void ComtradeLoader::readAsciiDataStream(QFile& file, OscillogramDataBuilder& builder)
{
    const QString stage = tr("Чтение файла данных");
    const qint64 size = file.size();
    QTextStream stream(&file);
    CsvParser parser(stream);
    int count = 0;
    while (!parser.atEnd()) {
        updateProgress(stage, double(stream.pos()) / size);
        checkCancelled();
        parser.readLine(ComtradeCFGFields::ChannelOrData);
        if (!readAsciiRecord(parser.stringParser(), builder, count))
            break;
        ++count;
    }
    attachStore(builder, count);
}
