// Feeds arbitrary bytes to the .wv2 reader through its buffer source. A load must end in a
// record or in a LoadFailureException; a record is then read through like a view would.
#include "Loaders/Wv2Loader.h"
#include "Model/OscillogramData.h"

#include <QBuffer>
#include <QCoreApplication>

namespace {
void readThrough(const Oscillogram& record)
{
    volatile double sink = 0;
    for (int c = 0; c < record.countOfChannels(); ++c) {
        const auto channel = record.channel(c);
        for (int s = 0; s < record.countOfSamples(); ++s)
            sink = sink + channel->getValue(s, channel->dataOffset());
    }
    for (int l = 0; l < record.countOfLines(); ++l)
        sink = sink + record.line(l)->voltage();
    sink = sink + record.headerContent().size() + record.endTime().toString().size();
    sink = sink + record.beginTime().toUSecsSinceEpoch() % 7;
}
} // namespace

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
    QSharedPointer<Exception> failure;
    QObject::connect(&loader, &TaskBase::error, [&failure](QSharedPointer<Exception> e) { failure = e; });
    loader.run();
    if (const auto record = loader.result().oscillogram)
        readThrough(*record);
    else if (!failure.dynamicCast<LoadFailureException>() || failure->message().isEmpty())
        __builtin_trap();
    return 0;
}
