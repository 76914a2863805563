#include "ZipArchive.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextCodec>

#include <archive.h>
#include <archive_entry.h>

#include <cstring>
#include <langinfo.h>

namespace {
// A name that does not convert in the current locale makes the header a warning, not a
// failure: such entries are read all the same.
bool nextHeader(struct archive* reader, struct archive_entry** entry)
{
    const int status = archive_read_next_header(reader, entry);
    return status == ARCHIVE_OK || status == ARCHIVE_WARN;
}

constexpr size_t readBlockSize = 10240;
constexpr qint64 writePieceSize = 1024 * 1024;

QTextCodec* entryNameCodec()
{
    return QTextCodec::codecForName("CP866");
}

// libarchive marks names as UTF-8 whenever the locale is UTF-8 and converts only from the
// locale's encoding; in a UTF-8 locale it is asked to convert to CP866, elsewhere the CP866
// bytes are handed over as they are and stored unchanged.
// Asked the way libarchive asks, since Qt takes the C locale for UTF-8 as well.
bool localeIsUtf8()
{
    return std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0;
}
} // namespace

ZipArchive::ZipArchive(const QString& filename) : m_filename(filename)
{
}

ZipArchive::~ZipArchive()
{
    close();
}

bool ZipArchive::open(OpenMode mode)
{
    if (m_filename.isEmpty()) {
        m_error = QStringLiteral("Filename is not specified");
        return false;
    }
    if (isOpen()) {
        m_error = QStringLiteral("Archive is already open!");
        return false;
    }
    switch (mode) {
    case ReadOnly:
        return openForReading();
    case WriteOnly:
        return openForWriting();
    default:
        m_error = QStringLiteral("Wrong open mode");
        return false;
    }
}

bool ZipArchive::openForReading()
{
    m_readFile.setFileName(m_filename);
    if (!m_readFile.open(QIODevice::ReadOnly)) {
        m_error = QStringLiteral("Can't open file %1").arg(m_filename);
        return false;
    }
    m_archive = archive_read_new();
    archive_read_support_filter_all(m_archive);
    archive_read_support_format_all(m_archive);
    if (archive_read_open_fd(m_archive, m_readFile.handle(), readBlockSize) != ARCHIVE_OK) {
        m_error = QStringLiteral("Can't read buffer");
        archive_read_free(m_archive);
        m_archive = nullptr;
        m_readFile.close();
        return false;
    }
    m_mode = ReadOnly;
    return true;
}

bool ZipArchive::openForWriting()
{
    m_file = std::fopen(QFile::encodeName(m_filename).constData(), "wb");
    if (!m_file) {
        m_error = QStringLiteral("Can't open file %1").arg(m_filename);
        return false;
    }
    m_archive = archive_write_new();
    archive_write_set_format_zip(m_archive);
    archive_write_zip_set_compression_deflate(m_archive);
    if (m_compressionLevel >= 1 && m_compressionLevel <= 9) {
        const QByteArray level = QByteArray::number(m_compressionLevel);
        archive_write_set_format_option(m_archive, "zip", "compression-level", level.constData());
    }
    if (localeIsUtf8())
        archive_write_set_format_option(m_archive, "zip", "hdrcharset", "CP866");
    archive_write_open_FILE(m_archive, m_file);
    m_mode = WriteOnly;
    return true;
}

void ZipArchive::close()
{
    if (m_mode == ReadOnly) {
        archive_read_free(m_archive);
        m_readFile.close();
    } else if (m_mode == WriteOnly) {
        archive_write_close(m_archive);
        archive_write_free(m_archive);
        std::fclose(m_file);
        m_file = nullptr;
    }
    m_archive = nullptr;
    m_mode = NotOpen;
}

QString ZipArchive::currentEntryName(struct archive_entry* entry) const
{
    QString name;
    if (const char* raw = archive_entry_pathname(entry))
        name = entryNameCodec()->toUnicode(raw);
    if (name.isEmpty()) {
        if (const wchar_t* wide = archive_entry_pathname_w(entry))
            name = QString::fromWCharArray(wide);
    }
    return name;
}

QStringList ZipArchive::entryNames()
{
    QStringList names;
    if (m_mode != ReadOnly)
        return names;
    struct archive_entry* entry = nullptr;
    while (nextHeader(m_archive, &entry))
        names.append(currentEntryName(entry));
    return names;
}

QString ZipArchive::cleanEntryName(const QString& name)
{
    static const QRegularExpression refused(QStringLiteral("[~!?@<>{}:/\\\\#$%^&*=|`\"]"));
    QString cleaned = name;
    cleaned.replace(refused, QStringLiteral("_"));
    cleaned.remove(QLatin1Char(' '));
    return cleaned;
}

bool ZipArchive::extractTo(const QString& destination)
{
    if (QFileInfo(destination).isFile()) {
        m_error = QStringLiteral("Destination is file");
        return false;
    }
    if (m_mode != ReadOnly) {
        m_error = QStringLiteral("Archive is not open");
        return false;
    }
    const qint64 limit = memberLimit(m_readFile.size());
    struct archive_entry* entry = nullptr;
    m_skippedCount = 0;
    while (nextHeader(m_archive, &entry)) {
        const QString name = currentEntryName(entry);
        if (m_skipped && m_skipped(name)) {
            ++m_skippedCount;
            continue;
        }
        const QString cleaned = cleanEntryName(name);
        if (archive_entry_size_is_set(entry) && archive_entry_size(entry) > limit)
            return refuseMember(name, limit);
        // The slash is cleaned away, so every member's folder is the destination itself. Taken
        // from the joined path instead, a member named "." or ".." (or nothing) would land above it.
        const QString folder = destination;
        if (!QDir().mkpath(folder)) {
            m_error = QStringLiteral("Can't create output subdir");
            return false;
        }
        if (archive_entry_filetype(entry) == AE_IFDIR)
            continue;
        const QString target = QDir(folder).filePath(QStringLiteral("Wave.") + QFileInfo(cleaned).suffix());
        if (!copyEntryData(target, limit)) {
            if (m_tooLarge)
                return refuseMember(currentEntryName(entry), limit);
            return false;
        }
    }
    return true;
}

qint64 ZipArchive::memberLimit(qint64 archiveBytes)
{
    constexpr qint64 floor = qint64(16) << 20;
    constexpr qint64 ceiling = qint64(4) << 30;
    return qBound(floor, archiveBytes > ceiling / 100 ? ceiling : archiveBytes * 100, ceiling);
}

bool ZipArchive::refuseMember(const QString& name, qint64 limit)
{
    m_tooLarge = true;
    m_error = QStringLiteral("Member %1 is larger than %2 bytes").arg(name).arg(limit);
    return false;
}

// The limit is checked against the bytes actually written too: a declared size may lie.
bool ZipArchive::copyEntryData(const QString& target, qint64 limit)
{
    QFile out(target);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        m_error = QStringLiteral("Can't open file %1 for write").arg(target);
        return false;
    }
    char buffer[readBlockSize];
    qint64 written = 0;
    for (;;) {
        const la_ssize_t read = archive_read_data(m_archive, buffer, sizeof buffer);
        if (read == 0)
            return true;
        if (read < 0) {
            m_error = QString::fromLocal8Bit(archive_error_string(m_archive));
            return false;
        }
        written += read;
        if (written > limit) {
            m_tooLarge = true;
            out.remove();
            return false;
        }
        if (out.write(buffer, read) != read) {
            m_error = QStringLiteral("Can't write file %1").arg(target);
            out.remove();
            return false;
        }
    }
}

bool ZipArchive::addFile(const QString& entryName, const QString& sourcePath, Method method)
{
    if (m_mode != WriteOnly) {
        m_error = QStringLiteral("Archive is not open");
        return false;
    }
    const QFileInfo info(sourcePath);
    struct archive_entry* entry = archive_entry_new();
    if (localeIsUtf8())
        archive_entry_set_pathname_utf8(entry, entryName.toUtf8().constData());
    else
        archive_entry_set_pathname(entry, entryNameCodec()->fromUnicode(entryName).constData());
    archive_entry_set_size(entry, info.exists() ? info.size() : 0);
    archive_entry_set_mtime(entry, info.lastModified().toSecsSinceEpoch(), 0);
    archive_entry_set_filetype(entry, AE_IFREG);
    archive_entry_set_perm(entry, 0644);
    if (method == Method::Store)
        archive_write_zip_set_compression_store(m_archive);
    else
        archive_write_zip_set_compression_deflate(m_archive);
    archive_write_header(m_archive, entry);
    QFile source(sourcePath);
    if (source.open(QIODevice::ReadOnly)) {
        QByteArray piece(int(writePieceSize), Qt::Uninitialized);
        qint64 read = 0;
        while ((read = source.read(piece.data(), writePieceSize)) > 0)
            archive_write_data(m_archive, piece.constData(), size_t(read));
    }
    archive_entry_free(entry);
    return true;
}
