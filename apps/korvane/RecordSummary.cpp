#include "RecordSummary.h"

#include "Model/ComtradeOscillogram.h"
#include "Model/KorvaneFormat.h"
#include "Model/Oscillogram.h"

#include <QTextStream>

QString recordSummary(const Oscillogram& record)
{
    QString text;
    QTextStream out(&text);
    out << "File: " << record.filename() << '\n'
        << "Station: " << record.stationName() << ", device: " << record.deviceName() << '\n'
        << "Analogue channels: " << record.countOfAnalogChannels()
        << ", digital channels: " << record.countOfDigitalChannels() << '\n'
        << "Sample rate: " << record.sampleRate() << " Hz, samples: "
        << addThousandSeparators(static_cast<unsigned long long>(qMax(0, record.countOfSamples()))) << '\n'
        << "Begin: " << record.beginTime().toString() << '\n'
        << "Trigger: " << record.triggerTime().toString() << '\n'
        << "End: " << record.endTime().toString() << '\n';
    const auto* comtrade = dynamic_cast<const ComtradeOscillogram*>(&record);
    if (comtrade && !comtrade->readingNote().isEmpty())
        out << comtrade->readingNote() << '\n';
    for (int i = 0; i < record.countOfAnalogChannels(); ++i) {
        const auto channel = record.analogChannel(i);
        out << "  A" << i + 1 << ' ' << channel->name() << " [" << channel->unit() << "]\n";
    }
    for (int i = 0; i < record.countOfDigitalChannels(); ++i)
        out << "  D" << i + 1 << ' ' << record.digitalChannel(i)->name() << '\n';
    for (int i = 0; i < record.countOfLines(); ++i)
        out << "Line: " << record.line(i)->name() << '\n';
    for (const auto& failure : record.failures())
        out << "Failure at sample " << failure->blockNum() << ": " << failure->reason() << '\n';
    return text;
}
