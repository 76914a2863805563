#pragma once

#include "korvane_export.h"

#include <cstdio>
#include <string>
#include <vector>

// One line of a section: a key with its value, or a comment line of its own (empty key).
struct DescriptionEntry
{
    std::string key;
    std::string value;
    std::string comment;
    bool isCommentLine() const { return key.empty(); }
};

struct KORVANE_EXPORT DescriptionSection
{
    std::string name;
    std::string comment;
    std::vector<DescriptionEntry> entries;

    // The value of a key (compared without regard to ASCII case), or null.
    const std::string* find(const std::string& key) const;
};

// The ini-like text file that describes a measuring device: sections of key=value lines with
// comments after semicolons. Reading keeps the first of repeated sections and keys.
class KORVANE_EXPORT DescriptionFile
{
public:
    // Longest piece of a line taken at once; a longer line arrives in pieces.
    static constexpr int kLineBuffer = 4096;

    // False if the file cannot be opened.
    bool read(const std::string& path);
    void read(std::FILE* file);
    // Reads one line (without its line end).
    void parseLine(const std::string& line);
    // False if the file cannot be opened for writing.
    bool write(const std::string& path) const;
    void write(std::FILE* file) const;

    // A section by name (compared without regard to ASCII case), or null.
    const DescriptionSection* section(const std::string& name) const;
    const std::vector<DescriptionSection>& sections() const { return m_sections; }
    // Comment lines that stand before the first section.
    const std::vector<std::string>& leadingComments() const { return m_leadingComments; }

private:
    void openSection(const std::string& line, size_t start);
    void addEntry(const std::string& line, size_t start);
    void addCommentLine(const std::string& comment);

    std::vector<std::string> m_leadingComments;
    std::vector<DescriptionSection> m_sections;
    // The section the next lines belong to; -1 before any section and after a repeated one.
    int m_current = -1;
    bool m_dropping = false;
};
