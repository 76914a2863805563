#include "ZipFixture.h"

#include <QFile>
#include <QTextCodec>

#include <archive.h>
#include <archive_entry.h>

#include <clocale>

namespace KorvaneTest {

namespace {

// A name that does not convert in the current locale makes the header a warning, not a
// failure: such entries are read all the same.
bool nextHeader(struct archive* reader, struct archive_entry** entry)
{
    const int status = archive_read_next_header(reader, entry);
    return status == ARCHIVE_OK || status == ARCHIVE_WARN;
}
bool writeZipInCurrentLocale(const QString& path, const QList<ZipMember>& members)
{
    struct archive* zip = archive_write_new();
    archive_write_set_format_zip(zip);
    if (archive_write_open_filename(zip, QFile::encodeName(path).constData()) != ARCHIVE_OK) {
        archive_write_free(zip);
        return false;
    }
    for (const ZipMember& member : members) {
        struct archive_entry* entry = archive_entry_new();
        archive_entry_set_pathname(entry, member.rawName.constData());
        archive_entry_set_filetype(entry, member.isDirectory ? AE_IFDIR : AE_IFREG);
        archive_entry_set_perm(entry, member.isDirectory ? 0755 : 0644);
        archive_entry_set_size(entry, member.isDirectory ? 0 : member.data.size());
        archive_write_header(zip, entry);
        if (!member.isDirectory)
            archive_write_data(zip, member.data.constData(), size_t(member.data.size()));
        archive_entry_free(entry);
    }
    archive_write_close(zip);
    archive_write_free(zip);
    return true;
}
} // namespace

bool writeZip(const QString& path, const QList<ZipMember>& members)
{
    // In the C locale libarchive stores the name bytes as given, without the UTF-8 flag.
    const QByteArray savedLocale = std::setlocale(LC_CTYPE, nullptr);
    std::setlocale(LC_CTYPE, "C");
    const bool written = writeZipInCurrentLocale(path, members);
    std::setlocale(LC_CTYPE, savedLocale.constData());
    return written;
}

QList<ZipEntryInfo> readZip(const QString& path)
{
    QList<ZipEntryInfo> entries;
    struct archive* zip = archive_read_new();
    archive_read_support_format_zip(zip);
    if (archive_read_open_filename(zip, QFile::encodeName(path).constData(), 10240) != ARCHIVE_OK) {
        archive_read_free(zip);
        return entries;
    }
    struct archive_entry* entry = nullptr;
    while (nextHeader(zip, &entry)) {
        ZipEntryInfo info;
        info.rawName = archive_entry_pathname(entry);
        info.size = archive_entry_size(entry);
        info.permissions = int(archive_entry_perm(entry));
        info.isRegularFile = archive_entry_filetype(entry) == AE_IFREG;
        char buffer[4096];
        la_ssize_t read = 0;
        while ((read = archive_read_data(zip, buffer, sizeof buffer)) > 0)
            info.data.append(buffer, int(read));
        entries.append(info);
    }
    archive_read_free(zip);
    return entries;
}

QByteArray cp866(const QString& text)
{
    return QTextCodec::codecForName("CP866")->fromUnicode(text);
}

namespace {
quint32 littleEndian(const QByteArray& bytes, int at, int width)
{
    quint32 value = 0;
    for (int i = width - 1; i >= 0; --i)
        value = (value << 8) | quint8(bytes.at(at + i));
    return value;
}
} // namespace

QList<ZipDirectoryEntry> zipDirectory(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    // The end record (0x06054b50), looked for from the back as readers do: a writer may pad the
    // archive after it.
    int end = bytes.size() - 22;
    while (end >= 0 && littleEndian(bytes, end, 4) != 0x06054b50u)
        --end;
    if (end < 0)
        return {};
    const int count = int(littleEndian(bytes, end + 10, 2));
    int at = int(littleEndian(bytes, end + 16, 4));
    QList<ZipDirectoryEntry> entries;
    for (int i = 0; i < count; ++i) {
        if (at + 46 > bytes.size() || littleEndian(bytes, at, 4) != 0x02014b50u)
            return {};
        ZipDirectoryEntry entry;
        entry.method = int(littleEndian(bytes, at + 10, 2));
        entry.crc = littleEndian(bytes, at + 16, 4);
        entry.compressedSize = littleEndian(bytes, at + 20, 4);
        entry.size = littleEndian(bytes, at + 24, 4);
        const int nameLength = int(littleEndian(bytes, at + 28, 2));
        entry.rawName = bytes.mid(at + 46, nameLength);
        entries.append(entry);
        at += 46 + nameLength + int(littleEndian(bytes, at + 30, 2)) + int(littleEndian(bytes, at + 32, 2));
    }
    return entries;
}

quint32 zipCrc32(const QByteArray& bytes)
{
    quint32 crc = 0xFFFFFFFFu;
    for (const char byte : bytes) {
        crc ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
    }
    return ~crc;
}

} // namespace KorvaneTest
