#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

// File helpers of the COMTRADE writers and readers.
namespace ComtradeFiles {

struct FileCloser
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

inline File open(const std::string& path, const char* mode)
{
    return File(std::fopen(path.c_str(), mode));
}

// Writes the bytes and closes the file; false when either fails.
bool writeAndClose(File file, const std::string& bytes);

// Lines of a configuration file, at most 4095 bytes each: the rest of a longer line is passed
// over. The line end (LF, CR LF) is cut.
class LineReader
{
public:
    explicit LineReader(std::FILE* file) : m_file(file) { }
    // False at the end of the file; the line is then empty.
    bool next(std::string& line);

private:
    std::FILE* m_file;
};

// The fields of a line split at every comma; a missing field reads as an empty string.
class Fields
{
public:
    explicit Fields(const std::string& line);
    std::string operator[](size_t index) const
    {
        return index < m_fields.size() ? m_fields[index] : std::string();
    }

private:
    std::vector<std::string> m_fields;
};

} // namespace ComtradeFiles
