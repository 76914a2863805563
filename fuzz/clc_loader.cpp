// Feeds arbitrary bytes to the .clc reader through a file. A load must end in a record or in a
// LoadFailureException; a record is then read through like a view would.
#include "LoaderHarness.h"
#include "Loaders/ClcLoader.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryFile>
#include <QtEndian>

#include <cstdlib>

namespace {
QTemporaryFile* scratch = nullptr;
} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    static QCoreApplication application(*argc, *argv);
    // Memory-backed where there is such a folder: the file is rewritten for every input.
    const QString folder
        = QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm") : QDir::tempPath();
    scratch = new QTemporaryFile(folder + QStringLiteral("/fuzz-XXXXXX.clc"));
    if (!scratch->open())
        __builtin_trap();
    std::atexit([] { delete scratch; });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    // Headers that claim tens of thousands of channels make as many empty channels; the tests
    // cover that once, and here they would only slow the search down.
    constexpr size_t countOffset = 274;
    if (size >= countOffset + 4 && qFromLittleEndian<qint32>(data + countOffset) > 4096)
        return 0;
    if (!scratch->resize(0) || !scratch->seek(0)
        || scratch->write(reinterpret_cast<const char*>(data), qint64(size)) != qint64(size)
        || !scratch->flush())
        __builtin_trap();
    ClcLoader loader(scratch->fileName(), nullptr);
    requireRecordOrLoadFailure(loader);
    return 0;
}
