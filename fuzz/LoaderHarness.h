#pragma once

// What the fuzz targets of the record readers share: a loader run to its end in the calling
// thread, and a record read through as a view would read it.

#include "Model/Exception.h"
#include "Model/Line.h"
#include "Model/OscillogramData.h"
#include "Model/OscillogramLoader.h"

// The failure the loader reported, or null.
inline QSharedPointer<Exception> runToEnd(OscillogramLoader& loader)
{
    QSharedPointer<Exception> failure;
    QObject::connect(&loader, &TaskBase::error, [&failure](QSharedPointer<Exception> e) { failure = e; });
    loader.run();
    return failure;
}

// Touches every value of every channel, the lines and the texts, so that a store or a text that
// the reader left broken shows under the sanitizers.
inline void readThrough(const Oscillogram& record)
{
    volatile double sink = 0;
    for (int c = 0; c < record.countOfChannels(); ++c) {
        const auto channel = record.channel(c);
        for (int s = 0; s < record.countOfSamples(); ++s) {
            for (int k = 0; k < channel->dataCount(); ++k)
                sink = sink + channel->getValue(s, channel->dataOffset() + k);
        }
    }
    for (int l = 0; l < record.countOfLines(); ++l)
        sink = sink + record.line(l)->voltage();
    sink = sink + record.headerContent().size() + record.endTime().toString().size()
        + record.deviceName().size();
    sink = sink + record.beginTime().toUSecsSinceEpoch() % 7;
}

// A load must end in a record, which is then read through, or in a LoadFailureException that
// says something; anything else stops the fuzzer.
inline void requireRecordOrLoadFailure(OscillogramLoader& loader)
{
    const QSharedPointer<Exception> failure = runToEnd(loader);
    if (const auto record = loader.result().oscillogram)
        readThrough(*record);
    else if (!failure.dynamicCast<LoadFailureException>() || failure->message().isEmpty())
        __builtin_trap();
}
