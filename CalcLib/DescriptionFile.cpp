#include "CalcLib/DescriptionFile.h"

#include <cstring>

namespace {
bool isBlank(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 1 && byte <= 32;
}

std::string trimmed(const std::string& text, size_t from = 0, size_t to = std::string::npos)
{
    if (to > text.size())
        to = text.size();
    while (from < to && isBlank(text[from]))
        ++from;
    while (to > from && isBlank(text[to - 1]))
        --to;
    return text.substr(from, to - from);
}

bool sameName(const std::string& a, const std::string& b)
{
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i) {
        const auto x = static_cast<unsigned char>(a[i]);
        const auto y = static_cast<unsigned char>(b[i]);
        const auto lowerX = (x >= 'A' && x <= 'Z') ? x + 32 : x;
        const auto lowerY = (y >= 'A' && y <= 'Z') ? y + 32 : y;
        if (lowerX != lowerY)
            return false;
    }
    return true;
}

// The comment after a semicolon at or behind the given position, and whether there was one.
bool commentAfter(const std::string& line, size_t at, std::string& comment)
{
    const size_t semicolon = line.find(';', at);
    if (semicolon == std::string::npos)
        return false;
    comment = trimmed(line, semicolon + 1);
    return true;
}
} // namespace

const std::string* DescriptionSection::find(const std::string& key) const
{
    for (const auto& entry : entries) {
        if (!entry.isCommentLine() && sameName(entry.key, key))
            return &entry.value;
    }
    return nullptr;
}

bool DescriptionFile::read(const std::string& path)
{
    std::FILE* file = std::fopen(path.c_str(), "rt");
    if (!file)
        return false;
    read(file);
    std::fclose(file);
    return true;
}

void DescriptionFile::read(std::FILE* file)
{
    char buffer[kLineBuffer];
    while (std::fgets(buffer, sizeof buffer, file)) {
        std::string line(buffer, std::strlen(buffer));
        if (!line.empty() && line.back() == '\n')
            line.pop_back();
        parseLine(line);
    }
}

void DescriptionFile::parseLine(const std::string& line)
{
    size_t start = 0;
    while (start < line.size() && isBlank(line[start]))
        ++start;
    if (start == line.size())
        return;
    switch (line[start]) {
    case '0':
        // Rejected on purpose: no key of this file begins with the digit zero.
        return;
    case '[':
        openSection(line, start);
        return;
    case ';':
        addCommentLine(trimmed(line, start + 1));
        return;
    default:
        addEntry(line, start);
    }
}

void DescriptionFile::openSection(const std::string& line, size_t start)
{
    const size_t close = line.find(']', start);
    if (close == std::string::npos)
        return;
    std::string comment;
    const bool hasComment = commentAfter(line, close + 1, comment);
    // Behind the bracket only blanks or a comment may follow.
    if (!trimmed(line, close + 1, hasComment ? line.find(';', close + 1) : std::string::npos).empty())
        return;
    const std::string name = trimmed(line, start + 1, close);
    if (section(name)) {
        m_current = -1;
        m_dropping = true;
        return;
    }
    m_sections.push_back({ name, comment, {} });
    m_current = static_cast<int>(m_sections.size()) - 1;
    m_dropping = false;
}

void DescriptionFile::addCommentLine(const std::string& comment)
{
    if (m_dropping)
        return;
    if (m_current < 0)
        m_leadingComments.push_back(comment);
    else
        m_sections[m_current].entries.push_back({ std::string(), std::string(), comment });
}

void DescriptionFile::addEntry(const std::string& line, size_t start)
{
    if (m_current < 0)
        return;
    const size_t equals = line.find('=', start);
    if (equals == std::string::npos)
        return;
    const std::string key = trimmed(line, start, equals);
    if (key.empty())
        return;
    DescriptionSection& current = m_sections[m_current];
    if (current.find(key))
        return;
    std::string comment;
    const bool hasComment = commentAfter(line, equals + 1, comment);
    const size_t valueEnd = hasComment ? line.find(';', equals + 1) : std::string::npos;
    current.entries.push_back({ key, trimmed(line, equals + 1, valueEnd), comment });
}

const DescriptionSection* DescriptionFile::section(const std::string& name) const
{
    for (const auto& candidate : m_sections) {
        if (sameName(candidate.name, name))
            return &candidate;
    }
    return nullptr;
}

bool DescriptionFile::write(const std::string& path) const
{
    std::FILE* file = std::fopen(path.c_str(), "wt");
    if (!file)
        return false;
    write(file);
    return std::fclose(file) == 0;
}

void DescriptionFile::write(std::FILE* file) const
{
    for (const auto& comment : m_leadingComments)
        std::fprintf(file, ";%s\n", comment.c_str());
    for (const auto& section : m_sections) {
        std::fprintf(file, "[%s] ", section.name.c_str());
        if (!section.comment.empty())
            std::fprintf(file, ";%s", section.comment.c_str());
        std::fputc('\n', file);
        for (const auto& entry : section.entries) {
            if (entry.isCommentLine()) {
                std::fprintf(file, "\t;%s\n", entry.comment.c_str());
                continue;
            }
            std::fprintf(file, "\t%s=%s ", entry.key.c_str(), entry.value.c_str());
            if (!entry.comment.empty())
                std::fprintf(file, "\t;%s", entry.comment.c_str());
            std::fputc('\n', file);
        }
        std::fputc('\n', file);
    }
}
