#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <cstdint>
#include <string>

// Byte helpers of the COMTRADE class tests: files are written and read as raw bytes, and
// expected records are packed here from the format rules.
namespace ComtradeTest {

inline std::string bytes(const QByteArray& array)
{
    return std::string(array.constData(), size_t(array.size()));
}

inline QByteArray readAll(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

inline bool writeAll(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(content) == content.size();
}

inline void putLe32(QByteArray& out, uint32_t value)
{
    for (int i = 0; i < 4; ++i)
        out.append(char((value >> (8 * i)) & 0xFF));
}

inline void putLe16(QByteArray& out, uint16_t value)
{
    out.append(char(value & 0xFF));
    out.append(char(value >> 8));
}

inline QByteArray crLf(const char* line)
{
    return QByteArray(line) + "\r\n";
}

} // namespace ComtradeTest
