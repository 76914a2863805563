#pragma once

#include <QByteArray>
#include <QString>

namespace KorvaneTest {

// Writes the bytes to the path, creating the folders on the way; fails the calling test otherwise.
bool writeFile(const QString& path, const QByteArray& bytes);

// Reads a whole file; an empty array when it cannot be read.
QByteArray readFile(const QString& path);

// The folder of public COMTRADE samples named by KORVANE_SAMPLES, or an empty string when the
// variable is unset or the folder is missing: callers skip then.
QString samplesDir();

// The exit code of a test program that had nothing to run; CTest shows the test as skipped
// (SKIP_RETURN_CODE, set for every test by korvane_add_test).
constexpr int skipReturnCode = 77;

} // namespace KorvaneTest
