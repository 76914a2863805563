// Opens whole COMTRADE sets made of the input: a .cfg and .dat pair (with an .inf or not) in a
// folder, or the input itself as a .zip. Every outcome must be a record or a failure with a
// message of the loader's own kinds; nothing may stay behind in the temporary folder.
//
// Input: byte 0 chooses the form by its two lowest bits (0 pair, 1 zip, 2 pair with .inf, 3 the
// single-file .cff) and the reading by its third bit (set: compatible; the .cff is always read
// compatibly, the only reading that opens one). For the pairs, two bytes give the length of the
// .cfg (little-endian), then its bytes; with an .inf two more bytes give its length, then its
// bytes; the rest is the .dat. The zip and the .cff are the rest of the input as it stands.
#include "LoaderHarness.h"
#include "Loaders/ComtradeLoader.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <typeinfo>

namespace {
QString temporaryFolder;

// Takes a piece of the input whose length stands in two bytes before it.
QByteArray takePiece(const uint8_t*& data, size_t& size)
{
    if (size < 2)
        return {};
    size_t length = size_t(data[0]) | (size_t(data[1]) << 8);
    data += 2;
    size -= 2;
    length = std::min(length, size);
    QByteArray piece(reinterpret_cast<const char*>(data), int(length));
    data += length;
    size -= length;
    return piece;
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

void requireKnownOutcome(const QSharedPointer<Exception>& error, const LoaderResult& result)
{
    if (!error) {
        if (!result.oscillogram)
            std::abort();
        return;
    }
    if (error->message().isEmpty())
        std::abort();
    // Token errors arrive as plain Exceptions: the task frame keeps their message only.
    const Exception& failure = *error;
    const bool known = error.dynamicCast<LoadFailureException>() || error.dynamicCast<ParsingException>()
        || typeid(failure) == typeid(Exception);
    if (!known)
        std::abort();
}

void requireEmptyTemporaryFolder()
{
    const QStringList left
        = QDir(temporaryFolder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    if (!left.isEmpty()) {
        std::fprintf(stderr, "left in the temporary folder: %s\n", qPrintable(left.join(QLatin1Char(' '))));
        std::abort();
    }
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    static QCoreApplication app(*argc, *argv);
    // A folder of our own as the temporary folder, so that leftovers of the zip road show.
    static QTemporaryDir own;
    temporaryFolder = own.path() + QStringLiteral("/temp");
    QDir().mkpath(temporaryFolder);
    qputenv("TMPDIR", QFile::encodeName(temporaryFolder));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 1)
        return 0;
    const int form = data[0] & 3;
    const bool compatible = (data[0] & 4) != 0 || form == 3;
    ++data;
    --size;
    // The set's own folder lies beside the temporary folder, not in it.
    QTemporaryDir setFolder(temporaryFolder + QStringLiteral("/../setXXXXXX"));
    QString opened;
    if (form == 1 || form == 3) {
        opened = setFolder.filePath(form == 1 ? QStringLiteral("set.zip") : QStringLiteral("set.cff"));
        writeFile(opened, QByteArray(reinterpret_cast<const char*>(data), int(size)));
    } else {
        const QByteArray cfg = takePiece(data, size);
        const QByteArray inf = form == 2 ? takePiece(data, size) : QByteArray();
        opened = setFolder.filePath(QStringLiteral("set.cfg"));
        writeFile(opened, cfg);
        writeFile(setFolder.filePath(QStringLiteral("set.dat")),
            QByteArray(reinterpret_cast<const char*>(data), int(size)));
        if (form == 2)
            writeFile(setFolder.filePath(QStringLiteral("set.inf")), inf);
    }
    ComtradeLoader loader(opened, nullptr);
    loader.setCompatible(compatible);
    const QSharedPointer<Exception> error = runToEnd(loader);
    requireKnownOutcome(error, loader.result());
    requireEmptyTemporaryFolder();
    return 0;
}
