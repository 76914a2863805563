// Feeds arbitrary bytes to the .wv2 reader through its buffer source. A load must end in a
// record or in a LoadFailureException; a record is then read through like a view would.
#include "LoaderHarness.h"
#include "Loaders/Wv2Loader.h"

#include <QBuffer>
#include <QCoreApplication>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    static QCoreApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), int(size));
    QBuffer buffer(&bytes);
    Wv2Loader loader(QStringLiteral("fuzz.wv2"), &buffer, nullptr);
    requireRecordOrLoadFailure(loader);
    return 0;
}
