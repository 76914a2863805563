#include "CalcLib/Comtrade.h"

#include "CalcLib/ComtradeFiles.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <vector>

namespace {
constexpr size_t recordBufferLimit = 65536;

void putUint32(unsigned char* out, uint32_t value)
{
    out[0] = static_cast<unsigned char>(value);
    out[1] = static_cast<unsigned char>(value >> 8);
    out[2] = static_cast<unsigned char>(value >> 16);
    out[3] = static_cast<unsigned char>(value >> 24);
}

// Digital i goes to bit i mod 16 of word i div 16; words are little-endian.
void packDigitals(unsigned char* out, const uint8_t* digitals, uint32_t count)
{
    for (uint32_t word = 0; word * 16 < count; ++word) {
        const uint32_t first = word * 16;
        const uint32_t last = std::min(count, first + 16);
        unsigned bits = 0;
        for (uint32_t i = first; i < last; ++i)
            bits |= unsigned(digitals[i] != 0) << (i - first);
        out[2 * word] = static_cast<unsigned char>(bits);
        out[2 * word + 1] = static_cast<unsigned char>(bits >> 8);
    }
}

// Analogue values are copied as they lie in memory, which is little-endian on every target.
class BinaryRecordWriter
{
public:
    BinaryRecordWriter(std::FILE* file, const ComtradeDataBuffer& buffer)
        : m_file(file)
        , m_analogBytes(size_t(buffer.analogCount()) * ComtradeDataBuffer::valueWidth(buffer.format()))
        , m_recordSize(8 + m_analogBytes + 2 * ((size_t(buffer.digitalCount()) + 15) / 16))
    {
        const size_t records = std::max<size_t>(1, recordBufferLimit / m_recordSize);
        m_buffer.resize(records * m_recordSize);
    }

    bool put(uint32_t number, uint32_t time, const ComtradeSample& sample)
    {
        if (m_used + m_recordSize > m_buffer.size() && !flush())
            return false;
        unsigned char* out = m_buffer.data() + m_used;
        putUint32(out, number);
        putUint32(out + 4, time);
        if (m_analogBytes != 0)
            std::memcpy(out + 8, sample.analogValues, m_analogBytes);
        packDigitals(out + 8 + m_analogBytes, sample.digitalValues, sample.digitalCount);
        m_used += m_recordSize;
        return true;
    }

    bool flush()
    {
        const bool written = m_used == 0 || std::fwrite(m_buffer.data(), 1, m_used, m_file) == m_used;
        m_used = 0;
        return written;
    }

private:
    std::FILE* m_file;
    size_t m_analogBytes;
    size_t m_recordSize;
    std::vector<unsigned char> m_buffer;
    size_t m_used = 0;
};

template<typename T> void putNumber(std::string& out, T value)
{
    char text[32];
    out.append(text, std::to_chars(text, text + sizeof(text), value).ptr);
}

// A double as a default stream prints it, right-aligned in a field of at least six.
void putAsciiValue(std::string& out, double value)
{
    char text[64];
    const char* end = std::to_chars(text, text + sizeof(text), value, std::chars_format::general, 6).ptr;
    const size_t length = size_t(end - text);
    if (length < 6)
        out.append(6 - length, ' ');
    out.append(text, length);
}

std::string asciiRecord(uint64_t number, uint64_t time, const ComtradeSample& sample)
{
    std::string line;
    putNumber(line, number);
    line += ',';
    putNumber(line, time);
    for (uint32_t i = 0; i < sample.analogCount; ++i) {
        line += ',';
        putAsciiValue(line, sample.analogAsDouble(i));
    }
    for (uint32_t i = 0; i < sample.digitalCount; ++i)
        line += sample.digitalValues[i] != 0 ? ",1" : ",0";
    line += "\r\n";
    return line;
}

bool flushText(std::FILE* file, std::string& text)
{
    const bool written = text.empty() || std::fwrite(text.data(), 1, text.size(), file) == text.size();
    text.clear();
    return written;
}
} // namespace

int COMTRADE::writeDat(const ComtradeDataBuffer& buffers, const std::string& path, uint64_t firstSample) const
{
    if (buffers.isEmpty())
        return 0;
    ComtradeFiles::File file = ComtradeFiles::open(pathOr(path, ".DAT"), firstSample > 0 ? "ab" : "wb");
    if (!file)
        return -1;
    const uint64_t step = timeStepUs();
    uint64_t index = firstSample;
    bool written = true;
    if (buffers.format() == 0) {
        std::string text;
        for (uint32_t b = 0; b < buffers.blockCount() && written; ++b) {
            for (uint32_t s = 0; s < buffers.block(b).sampleCount && written; ++s, ++index) {
                text += asciiRecord(index + 1, step * index, buffers.sample(b, s));
                if (text.size() >= recordBufferLimit)
                    written = flushText(file.get(), text);
            }
        }
        written = written && flushText(file.get(), text);
    } else {
        BinaryRecordWriter writer(file.get(), buffers);
        for (uint32_t b = 0; b < buffers.blockCount() && written; ++b) {
            for (uint32_t s = 0; s < buffers.block(b).sampleCount && written; ++s, ++index)
                written = writer.put(uint32_t(index + 1), uint32_t(step * index), buffers.sample(b, s));
        }
        written = written && writer.flush();
    }
    const bool closed = std::fclose(file.release()) == 0;
    return written && closed ? 0 : -1;
}
