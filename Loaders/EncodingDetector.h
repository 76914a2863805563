#pragma once

#include "korvane_export.h"

#include <QByteArray>
#include <QStringList>

class QTextCodec;

// Guesses the text encoding of a COMTRADE set from the bytes of its text files. Only UTF-8,
// windows-1251 and IBM866 are believed; every other answer (detectors often name Cyrillic
// Windows text x-mac-cyrillic or KOI8-R) is read as CP1251, the encoding of the relays in use.
namespace EncodingDetector {
// Which answers of the detector are taken: the three above, or (compatible reading) every one
// that Qt has a codec for, such as GB18030, Big5, Shift_JIS or the ISO-8859 family.
enum class Trust { KnownThree, AnyQtCodec };

// The detector looks at the bytes up to the first zero byte, as a C string.
KORVANE_EXPORT QTextCodec* codecForText(const QByteArray& bytes, Trust trust = Trust::KnownThree);
// All files are read into one buffer first; a file that will not open is skipped.
KORVANE_EXPORT QTextCodec* codecForFiles(const QStringList& paths, Trust trust = Trust::KnownThree);
// The codec an answer of the detector stands for; an answer not trusted gives CP1251.
KORVANE_EXPORT QTextCodec* codecForAnswer(const QByteArray& answer, Trust trust);
// The detector's answer for the bytes; false when the detector could not run.
KORVANE_EXPORT bool detect(const QByteArray& bytes, QByteArray& answer);
KORVANE_EXPORT QByteArray readFiles(const QStringList& paths);
} // namespace EncodingDetector
