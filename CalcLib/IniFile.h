#pragma once

#include "korvane_export.h"

#include <list>
#include <string>
#include <unordered_map>

// The ini form of the .INF. Sections and keys keep their order; look-ups compare names byte by
// byte without regard to ASCII case and pass over nameless entries, which hold comment lines.
class KORVANE_EXPORT IniFile
{
public:
    struct Key
    {
        std::string name;
        std::string value;
        std::string comment;
    };
    struct Section
    {
        std::string name;
        std::string comment;
        std::list<Key> keys;
        // Named keys by their case-folded name, so that large files load in linear time.
        std::unordered_map<std::string, Key*> keyIndex;
    };

    IniFile() = default;
    IniFile(const IniFile&) = delete;
    IniFile& operator=(const IniFile&) = delete;
    IniFile(IniFile&&) = default;
    IniFile& operator=(IniFile&&) = default;

    // Lines are read in pieces of at most 4095 bytes; see the .cpp for the rules of a line.
    // False when the file can't be opened; the content is then empty.
    bool load(const std::string& path);
    // Every line ends in CR CR LF: the text-mode stream of the system the format was made on
    // turns the CR LF passed to it into that, and readers of the format expect it.
    bool save(const std::string& path) const;
    void clear();

    // Replaces the value of an existing key; a new section or key goes to the end.
    void setValue(const std::string& section, const std::string& key, const std::string& value);
    void setSectionComment(const std::string& section, const std::string& comment);
    void setKeyComment(const std::string& section, const std::string& key, const std::string& comment);

    bool hasSection(const std::string& section) const { return findSection(section) != nullptr; }
    bool hasKey(const std::string& section, const std::string& key) const;
    // The value, or the fallback when the section or the key is missing.
    std::string value(const std::string& section, const std::string& key,
        const std::string& fallback = std::string()) const;
    std::string sectionComment(const std::string& section) const;
    std::string keyComment(const std::string& section, const std::string& key) const;
    const std::list<Section>& sections() const { return m_sections; }

private:
    const Section* findSection(const std::string& name) const;
    Section* findSection(const std::string& name);
    static const Key* findKey(const Section& section, const std::string& name);
    static Key* findKey(Section& section, const std::string& name);
    Section& sectionFor(const std::string& name);
    Section& appendSection(const std::string& name, const std::string& comment);
    static Key& appendKey(
        Section& section, const std::string& name, const std::string& value, const std::string& comment);
    void parseLine(const std::string& line, Section*& current, bool& ignoring);

    std::list<Section> m_sections;
    std::unordered_map<std::string, Section*> m_sectionIndex;
};
