#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace KorvaneTest {

struct ZipMember
{
    QByteArray rawName; // the bytes of the name as stored, in whatever encoding the test wants
    QByteArray data;
    bool isDirectory = false;
};

// Writes a zip through libarchive directly, so that reader tests do not depend on the writer
// under test.
bool writeZip(const QString& path, const QList<ZipMember>& members);

struct ZipEntryInfo
{
    QByteArray rawName;
    qint64 size = 0;
    int permissions = 0;
    bool isRegularFile = false;
    QByteArray data;
};

// Reads every entry back through libarchive directly.
QList<ZipEntryInfo> readZip(const QString& path);

// What the central directory of a zip says of each member, read byte by byte as the zip format
// lays it out (signature 0x02014b50, method at offset 10, CRC-32 at 16, sizes at 20 and 24), and
// the CRC-32 of the member's bytes computed here, as any zip reader checks it.
struct ZipDirectoryEntry
{
    QByteArray rawName;
    int method = -1; // 0 stored, 8 deflated
    quint32 crc = 0;
    quint32 compressedSize = 0;
    quint32 size = 0;
};
QList<ZipDirectoryEntry> zipDirectory(const QString& path);
// CRC-32 of the zip format (reflected polynomial 0xEDB88320).
quint32 zipCrc32(const QByteArray& bytes);

// The bytes of a text in CP866, the encoding of zip entry names written by relays.
QByteArray cp866(const QString& text);

} // namespace KorvaneTest
