#include "RecordCompare.h"

#include "ComtradeFixture.h"
#include "ExactCompare.h"

#include "Model/ComtradeOscillogram.h"

namespace KorvaneTest {

namespace {
void compareHeadings(const ComtradeOscillogram& expected, const ComtradeOscillogram& actual)
{
    QCOMPARE(actual.version().value(), expected.version().value());
    QCOMPARE(actual.countOfSamples(), expected.countOfSamples());
    QCOMPARE(actual.beginTime(), expected.beginTime());
    QCOMPARE(actual.triggerTime(), expected.triggerTime());
    QCOMPARE(actual.endTime(), expected.endTime());
    KORVANE_COMPARE_EXACTLY(actual.sampleRate(), expected.sampleRate());
    QCOMPARE(actual.isEventTriggeredOsc(), expected.isEventTriggeredOsc());
    QCOMPARE(actual.countOfAnalogChannels(), expected.countOfAnalogChannels());
    QCOMPARE(actual.countOfDigitalChannels(), expected.countOfDigitalChannels());
}

void compareAnalog(const AnalogChannel& expected, const AnalogChannel& actual, int samples)
{
    QCOMPARE(actual.name(), expected.name());
    QCOMPARE(actual.unit(), expected.unit());
    KORVANE_COMPARE_EXACTLY(actual.multiplier(), expected.multiplier());
    KORVANE_COMPARE_EXACTLY(actual.offsetAdder(), expected.offsetAdder());
    for (int s = 0; s < samples; ++s)
        KORVANE_COMPARE_EXACTLY(actual.getValue(s), expected.getValue(s));
}

void compareDigital(const DigitalChannel& expected, const DigitalChannel& actual, int samples)
{
    QCOMPARE(actual.name(), expected.name());
    for (int s = 0; s < samples; ++s)
        QCOMPARE(actual.value(s), expected.value(s));
}
} // namespace

void compareRecords(const ComtradeOscillogram& expected, const ComtradeOscillogram& actual)
{
    compareHeadings(expected, actual);
    if (QTest::currentTestFailed())
        return;
    const int samples = expected.countOfSamples();
    for (int c = 0; c < expected.countOfAnalogChannels() && !QTest::currentTestFailed(); ++c)
        compareAnalog(*expected.analogChannel(c), *actual.analogChannel(c), samples);
    for (int c = 0; c < expected.countOfDigitalChannels() && !QTest::currentTestFailed(); ++c)
        compareDigital(*expected.digitalChannel(c), *actual.digitalChannel(c), samples);
}

void verifySetValues(const ComtradeOscillogram& record, const ComtradeSetDescription& set)
{
    QCOMPARE(record.countOfSamples(), set.samples);
    QCOMPARE(record.countOfAnalogChannels(), set.analogs);
    QCOMPARE(record.countOfDigitalChannels(), set.digitals);
    for (int c = 0; c < set.analogs; ++c) {
        const auto channel = record.analogChannel(c);
        QCOMPARE(channel->name(), set.analogName(c));
        QCOMPARE(channel->unit(), set.unitText(c));
        const double a = set.multiplierText(c).toDouble();
        const double b = set.offsetText(c).toDouble();
        KORVANE_COMPARE_EXACTLY(channel->multiplier(), a);
        KORVANE_COMPARE_EXACTLY(channel->offsetAdder(), b);
        for (int s = 0; s < set.samples; ++s) {
            const double raw = storedRaw(set, s, c);
            KORVANE_COMPARE_EXACTLY(channel->getValue(s), raw);
            // The physical value is raw * a + b in double, as any reader computes it.
            KORVANE_COMPARE_EXACTLY(channel->getRealValue(channel->getValue(s)), raw * a + b);
            if (QTest::currentTestFailed())
                return;
        }
    }
    for (int c = 0; c < set.digitals; ++c) {
        const auto channel = record.digitalChannel(c);
        QCOMPARE(channel->name(), set.digitalName(c));
        for (int s = 0; s < set.samples; ++s)
            QCOMPARE(channel->value(s), set.bit(s, c));
    }
}

} // namespace KorvaneTest
