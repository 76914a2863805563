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

// The bytes of a text in CP866, the encoding of zip entry names written by relays.
QByteArray cp866(const QString& text);

} // namespace KorvaneTest
