#pragma once

#include "korvane_export.h"

#include <QByteArray>
#include <QList>
#include <QString>

// The single-file form of a COMTRADE set (.cff): sections headed by lines such as
// "--- file type: CFG ---", "--- file type: DAT ASCII ---" or "--- file type: DAT BINARY: 1234 ---",
// the last giving the byte count of the binary data that follows its line.
namespace ComtradeSingleFile {

struct Section
{
    QString type; // "CFG", "INF", "HDR" or "DAT", upper case
    QByteArray bytes;
};

// The sections in file order; an empty list when the text holds no section heading.
KORVANE_EXPORT QList<Section> sections(const QByteArray& contents);

// Writes each section to <folder>/Wave.<type in lower case>, as the separate files of a set, so
// that the same readers read them. False when there is no CFG or no DAT section or a file
// cannot be written.
KORVANE_EXPORT bool splitInto(const QByteArray& contents, const QString& folder);

} // namespace ComtradeSingleFile
