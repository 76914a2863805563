#pragma once

#include "korvane_export.h"

#include <QFile>
#include <QString>
#include <QStringList>

#include <cstdio>

struct archive;

// A thin layer over libarchive for the COMTRADE zip road. Failures are not thrown: they are kept
// as a text in errorString() and the calls return false.
class KORVANE_EXPORT ZipArchive
{
public:
    enum OpenMode { NotOpen, ReadOnly, WriteOnly };

    ZipArchive() = default;
    explicit ZipArchive(const QString& filename);
    ~ZipArchive();
    ZipArchive(const ZipArchive&) = delete;
    ZipArchive& operator=(const ZipArchive&) = delete;

    void setFilename(const QString& filename) { m_filename = filename; }
    QString filename() const { return m_filename; }
    QString errorString() const { return m_error; }
    bool isOpen() const { return m_mode != NotOpen; }

    bool open(OpenMode mode);
    void close();

    // Reading. Entry names are decoded as CP866, or taken as UTF-16 where that gives nothing.
    QStringList entryNames();
    // Every member is written to <destination>/Wave.<suffix of its cleaned name>, so that a set
    // in an archive always has one base name; paths flatten, and a later member of the same
    // suffix overwrites an earlier one.
    //
    // A member whose declared or written size passes memberLimit() stops the extraction: its
    // partial file is removed and tooLarge() tells this failure from the others.
    bool extractTo(const QString& destination);
    // Members whose name (as stored, before cleaning) the test accepts are left out of
    // extractTo; none are by default. skippedCount() tells how many the last extraction left out.
    void setSkippedMembers(bool (*skipped)(const QString& name)) { m_skipped = skipped; }
    int skippedCount() const { return m_skippedCount; }
    bool tooLarge() const { return m_tooLarge; }
    // 100 times the archive, at least 16 MiB and at most 4 GiB: room for records that compress
    // very well, none for an archive built to fill the disk.
    static qint64 memberLimit(qint64 archiveBytes);

    // How the bytes of an entry go into the archive: deflated, or stored as they are (both are
    // read by every zip reader).
    enum class Method { Deflate, Store };

    // Writing: one entry named entryName (stored in CP866) with the bytes of sourcePath, its size
    // and modification time, permissions 644. A source that cannot be read gives an entry header
    // without data.
    bool addFile(const QString& entryName, const QString& sourcePath, Method method = Method::Deflate);
    // Deflate level of the deflated entries: 1 (fastest) to 9 (smallest); any other value keeps
    // zlib's default, 6. Set it before open(WriteOnly).
    void setCompressionLevel(int level) { m_compressionLevel = level; }
    int compressionLevel() const { return m_compressionLevel; }

    // The name of a member as it is written out: characters that file systems refuse become
    // underscores and blanks go.
    static QString cleanEntryName(const QString& name);

private:
    bool openForReading();
    bool openForWriting();
    QString currentEntryName(struct archive_entry* entry) const;
    bool copyEntryData(const QString& target, qint64 limit);
    bool refuseMember(const QString& name, qint64 limit);

    QString m_filename;
    QString m_error;
    OpenMode m_mode = NotOpen;
    bool m_tooLarge = false;
    struct archive* m_archive = nullptr;
    bool (*m_skipped)(const QString& name) = nullptr;
    int m_skippedCount = 0;
    QFile m_readFile;
    std::FILE* m_file = nullptr;
    int m_compressionLevel = -1;
};
