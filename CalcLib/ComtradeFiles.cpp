#include "CalcLib/ComtradeFiles.h"

namespace ComtradeFiles {
namespace {
constexpr size_t lineLimit = 4096;
}

bool writeAndClose(File file, const std::string& bytes)
{
    const bool written
        = bytes.empty() || std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
    return std::fclose(file.release()) == 0 && written;
}

bool LineReader::next(std::string& line)
{
    line.clear();
    bool any = false;
    int c;
    while ((c = std::getc(m_file)) != EOF) {
        any = true;
        if (c == '\n')
            break;
        if (line.size() < lineLimit - 1)
            line.push_back(static_cast<char>(c));
    }
    while (!line.empty() && line.back() == '\r')
        line.pop_back();
    return any;
}

Fields::Fields(const std::string& line)
{
    size_t start = 0;
    while (true) {
        const size_t comma = line.find(',', start);
        if (comma == std::string::npos) {
            m_fields.push_back(line.substr(start));
            return;
        }
        m_fields.push_back(line.substr(start, comma - start));
        start = comma + 1;
    }
}

} // namespace ComtradeFiles
