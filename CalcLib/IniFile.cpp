#include "CalcLib/IniFile.h"

#include "CalcLib/ComtradeFiles.h"

#include <cstdio>
#include <cstring>

namespace {
constexpr int lineBufferSize = 4096;

// Bytes 1 to 32 count as white space.
bool isWhite(char c)
{
    return c >= 1 && c <= 32;
}

// Names compare byte by byte with ASCII letters folded.
std::string folded(std::string name)
{
    for (char& c : name) {
        if (c >= 'A' && c <= 'Z')
            c = char(c - 'A' + 'a');
    }
    return name;
}

std::string trimmed(const std::string& text)
{
    size_t begin = 0, end = text.size();
    while (begin < end && isWhite(text[begin]))
        ++begin;
    while (end > begin && isWhite(text[end - 1]))
        --end;
    return text.substr(begin, end - begin);
}

// Writes a line as a text-mode stream of the format's home system does: each LF becomes CR LF.
void putTextLine(std::string& out, const std::string& line)
{
    for (char c : line) {
        if (c == '\n')
            out += '\r';
        out += c;
    }
    out += "\r\r\n";
}

void putComment(std::string& line, const std::string& comment)
{
    if (!comment.empty())
        line += ";" + comment;
}
} // namespace

void IniFile::clear()
{
    m_sections.clear();
    m_sectionIndex.clear();
}

const IniFile::Section* IniFile::findSection(const std::string& name) const
{
    const auto found = m_sectionIndex.find(folded(name));
    return found == m_sectionIndex.end() ? nullptr : found->second;
}

IniFile::Section* IniFile::findSection(const std::string& name)
{
    const auto found = m_sectionIndex.find(folded(name));
    return found == m_sectionIndex.end() ? nullptr : found->second;
}

const IniFile::Key* IniFile::findKey(const Section& section, const std::string& name)
{
    const auto found = section.keyIndex.find(folded(name));
    return found == section.keyIndex.end() ? nullptr : found->second;
}

IniFile::Key* IniFile::findKey(Section& section, const std::string& name)
{
    const auto found = section.keyIndex.find(folded(name));
    return found == section.keyIndex.end() ? nullptr : found->second;
}

// Nameless entries hold comments and are never found.
IniFile::Section& IniFile::appendSection(const std::string& name, const std::string& comment)
{
    m_sections.push_back(Section { name, comment, {}, {} });
    Section& section = m_sections.back();
    if (!name.empty())
        m_sectionIndex.emplace(folded(name), &section);
    return section;
}

IniFile::Key& IniFile::appendKey(
    Section& section, const std::string& name, const std::string& value, const std::string& comment)
{
    section.keys.push_back(Key { name, value, comment });
    Key& key = section.keys.back();
    if (!name.empty())
        section.keyIndex.emplace(folded(name), &key);
    return key;
}

IniFile::Section& IniFile::sectionFor(const std::string& name)
{
    if (Section* section = findSection(name))
        return *section;
    return appendSection(name, {});
}

void IniFile::setValue(const std::string& section, const std::string& key, const std::string& value)
{
    Section& target = sectionFor(section);
    if (Key* existing = findKey(target, key)) {
        existing->value = value;
        return;
    }
    appendKey(target, key, value, {});
}

void IniFile::setSectionComment(const std::string& section, const std::string& comment)
{
    sectionFor(section).comment = comment;
}

void IniFile::setKeyComment(const std::string& section, const std::string& key, const std::string& comment)
{
    Section& target = sectionFor(section);
    if (Key* existing = findKey(target, key)) {
        existing->comment = comment;
        return;
    }
    appendKey(target, key, {}, comment);
}

bool IniFile::hasKey(const std::string& section, const std::string& key) const
{
    const Section* found = findSection(section);
    return found && findKey(*found, key);
}

std::string IniFile::value(
    const std::string& section, const std::string& key, const std::string& fallback) const
{
    const Section* found = findSection(section);
    const Key* entry = found ? findKey(*found, key) : nullptr;
    return entry ? entry->value : fallback;
}

std::string IniFile::sectionComment(const std::string& section) const
{
    const Section* found = findSection(section);
    return found ? found->comment : std::string();
}

std::string IniFile::keyComment(const std::string& section, const std::string& key) const
{
    const Section* found = findSection(section);
    const Key* entry = found ? findKey(*found, key) : nullptr;
    return entry ? entry->comment : std::string();
}

// A line is judged by its first non-white byte: '0' drops it (so a key name can't begin with
// that digit), '[' opens a section, ';' keeps a comment, anything else must be key=value;comment.
// A repeated section opens nothing and its keys are ignored; a repeated key keeps its first value.
void IniFile::parseLine(const std::string& rawLine, Section*& current, bool& ignoring)
{
    const std::string line = trimmed(rawLine);
    if (line.empty() || line[0] == '0')
        return;
    if (line[0] == '[') {
        const size_t close = line.find(']');
        if (close == std::string::npos)
            return;
        const std::string name = trimmed(line.substr(1, close - 1));
        if (name.empty() || findSection(name)) {
            ignoring = true;
            return;
        }
        const size_t semicolon = line.find(';', close);
        const std::string comment
            = semicolon == std::string::npos ? std::string() : trimmed(line.substr(semicolon + 1));
        current = &appendSection(name, comment);
        ignoring = false;
        return;
    }
    if (ignoring)
        return;
    if (line[0] == ';') {
        const std::string comment = trimmed(line.substr(1));
        if (current)
            appendKey(*current, {}, {}, comment);
        else
            appendSection({}, comment);
        return;
    }
    const size_t equals = line.find('=');
    if (equals == std::string::npos || !current)
        return;
    const std::string name = trimmed(line.substr(0, equals));
    if (name.empty() || findKey(*current, name))
        return;
    const std::string rest = line.substr(equals + 1);
    const size_t semicolon = rest.find(';');
    if (semicolon == std::string::npos) {
        appendKey(*current, name, trimmed(rest), {});
        return;
    }
    appendKey(*current, name, trimmed(rest.substr(0, semicolon)), trimmed(rest.substr(semicolon + 1)));
}

bool IniFile::load(const std::string& path)
{
    clear();
    ComtradeFiles::File file = ComtradeFiles::open(path, "rt");
    if (!file)
        return false;
    char buffer[lineBufferSize];
    Section* current = nullptr;
    bool ignoring = false;
    while (std::fgets(buffer, lineBufferSize, file.get())) {
        std::string piece(buffer, std::strlen(buffer));
        if (!piece.empty() && piece.back() == '\n')
            piece.pop_back();
        parseLine(piece, current, ignoring);
    }
    // A folder opens but can't be read.
    if (std::ferror(file.get())) {
        clear();
        return false;
    }
    return true;
}

bool IniFile::save(const std::string& path) const
{
    std::string text;
    for (const Section& section : m_sections) {
        if (section.name.empty()) {
            putTextLine(text, ";" + section.comment);
            continue;
        }
        std::string header = "[" + section.name + "] ";
        putComment(header, section.comment);
        putTextLine(text, header);
        for (const Key& key : section.keys) {
            if (key.name.empty()) {
                putTextLine(text, ";" + key.comment);
                continue;
            }
            std::string line = key.name + "=" + key.value;
            putComment(line, key.comment);
            putTextLine(text, line);
        }
        putTextLine(text, std::string());
    }
    ComtradeFiles::File file = ComtradeFiles::open(path, "wt");
    return file && ComtradeFiles::writeAndClose(std::move(file), text);
}
