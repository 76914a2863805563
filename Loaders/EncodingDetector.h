#pragma once

#include "korvane_export.h"

#include <QByteArray>
#include <QStringList>

class QTextCodec;

// Guesses the text encoding of a COMTRADE set from the bytes of its text files. Only UTF-8,
// windows-1251 and IBM866 are believed; every other answer (detectors often name Cyrillic
// Windows text x-mac-cyrillic or KOI8-R) is read as CP1251, the encoding of the relays in use.
namespace EncodingDetector {
// The detector looks at the bytes up to the first zero byte, as a C string.
KORVANE_EXPORT QTextCodec* codecForText(const QByteArray& bytes);
// All files are read into one buffer first; a file that will not open is skipped.
KORVANE_EXPORT QTextCodec* codecForFiles(const QStringList& paths);
} // namespace EncodingDetector
