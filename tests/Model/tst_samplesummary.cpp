#include "Model/OscillogramData.h"
#include "Model/SampleSummary.h"

#include <QBitArray>

#include <QTest>

#include <cmath>
#include <limits>
#include <random>
#include <thread>
#include <vector>

namespace {
// A block of `columns` columns holding `values` values (the last row may be cut short).
template<typename T> std::vector<T> randomBlock(std::mt19937& random, int values, double spread)
{
    std::uniform_real_distribution<double> value(-spread, spread);
    std::vector<T> block(static_cast<size_t>(values));
    for (T& v : block)
        v = T(value(random));
    return block;
}

// The extremes by definition: every sample of the stretch compared.
template<typename T>
SampleExtremes<T> byDefinition(
    const std::vector<T>& block, int stride, int column, long long first, long long last)
{
    SampleExtremes<T> result { block[size_t(column + stride * first)],
        block[size_t(column + stride * first)] };
    for (long long s = first; s <= last; ++s) {
        const T v = block[size_t(column + stride * s)];
        result.low = std::min(result.low, v);
        result.high = std::max(result.high, v);
    }
    return result;
}

template<typename T> void checkRandomStretches(unsigned seed, double spread)
{
    std::mt19937 random(seed);
    for (int round = 0; round < 40; ++round) {
        const int stride = 1 + int(random() % 4);
        const int values = 1 + int(random() % 60000);
        const std::vector<T> block = randomBlock<T>(random, values, spread);
        const int column = int(random() % unsigned(stride));
        const ColumnSummary<T> summary(block.data(), values, stride, column);
        const long long samples = values > column ? (values - column + stride - 1) / stride : 0;
        QCOMPARE(summary.sampleCount(), samples);
        if (samples == 0)
            continue;
        QVERIFY(summary.isUsable());
        for (int query = 0; query < 50; ++query) {
            long long first = (long long)(random() % quint64(samples));
            long long last = (long long)(random() % quint64(samples));
            if (query % 5 == 0)
                last = samples - 1; // stretches that run to the end of the column
            if (first > last)
                std::swap(first, last);
            const auto expected = byDefinition(block, stride, column, first, last);
            const auto actual = summary.extremes(first, last);
            if (actual.low != expected.low || actual.high != expected.high)
                QFAIL(qPrintable(QStringLiteral("seed %1 round %2: samples %3..%4 of %5, stride %6")
                                     .arg(seed)
                                     .arg(round)
                                     .arg(first)
                                     .arg(last)
                                     .arg(samples)
                                     .arg(stride)));
        }
    }
}
} // namespace

class TestSampleSummary : public QObject
{
    Q_OBJECT
private slots:
    void extremesOfRandomStretches()
    {
        checkRandomStretches<short>(1, 30000.0);
        checkRandomStretches<int>(2, 2.0e9);
        checkRandomStretches<float>(3, 1.0e6);
        checkRandomStretches<double>(4, 1.0e12);
    }

    // One stretch inside one block of 32, one across two, one sample alone.
    void smallStretches()
    {
        std::vector<short> block(100);
        for (int i = 0; i < 100; ++i)
            block[size_t(i)] = short((i * 37) % 101 - 50); // a permutation of -50..50 on 0..100
        const ColumnSummary<short> summary(block.data(), 100, 1, 0);
        const auto one = summary.extremes(7, 7);
        QCOMPARE(one.low, block[7]);
        QCOMPARE(one.high, block[7]);
        const auto whole = summary.extremes(0, 99);
        QCOMPARE(int(*std::min_element(block.begin(), block.end())), int(whole.low));
        QCOMPARE(int(*std::max_element(block.begin(), block.end())), int(whole.high));
        const auto across = summary.extremes(30, 33);
        QCOMPARE(across.low, std::min({ block[30], block[31], block[32], block[33] }));
        QCOMPARE(across.high, std::max({ block[30], block[31], block[32], block[33] }));
    }

    void aConstantColumn()
    {
        const std::vector<float> block(5000, 2.5f);
        const ColumnSummary<float> summary(block.data(), 5000, 1, 0);
        const auto extremes = summary.extremes(3, 4321);
        QCOMPARE(extremes.low, 2.5f);
        QCOMPARE(extremes.high, 2.5f);
    }

    // Pairs of one per 32 samples, a quarter of that per further level: 1/12 of the samples'
    // memory in the limit, at most 1/8 for any column of some length.
    void memoryIsAtMostAnEighthOfTheSamples_data()
    {
        QTest::addColumn<int>("samples");
        QTest::newRow("1,000") << 1000;
        QTest::newRow("65,537") << 65537;
        QTest::newRow("10,000,000") << 10000000;
    }
    void memoryIsAtMostAnEighthOfTheSamples()
    {
        QFETCH(int, samples);
        const std::vector<short> block(size_t(samples), 1);
        const ColumnSummary<short> summary(block.data(), samples, 1, 0);
        const double ratio = double(summary.memoryBytes()) / (double(samples) * sizeof(short));
        QVERIFY2(ratio <= 1.0 / 8.0, qPrintable(QString::number(ratio)));
    }

    // NaN compares false both ways, so what a scan makes of it depends on the order of the scan:
    // such a column gets no summary and is left to the scan.
    void aColumnWithNaNHasNoSummary()
    {
        std::vector<double> block(1000, 1.0);
        block[500] = std::numeric_limits<double>::quiet_NaN();
        const ColumnSummary<double> summary(block.data(), 1000, 1, 0);
        QVERIFY(!summary.isUsable());
        QCOMPARE(summary.memoryBytes(), 0LL);
    }

    // The store makes each column's summary once, on first request, whichever thread asks; all
    // askers get the same one, and columns outside a block get none.
    void theStoreMakesEachSummaryOnceForAllThreads()
    {
        OscillogramDataBuilder builder;
        builder.reserve(0, 2, 0, 0, 0, 100000);
        for (int s = 0; s < 100000; ++s) {
            builder.appendFloatValue(float(std::sin(s * 0.01)));
            builder.appendFloatValue(float(s));
        }
        const auto store = builder.build();
        QCOMPARE(store->summaries().memoryBytes(), 0LL);
        std::vector<const ColumnSummary<float>*> seen(8, nullptr);
        std::vector<std::thread> threads;
        for (size_t t = 0; t < seen.size(); ++t)
            threads.emplace_back(
                [&store, &seen, t] { seen[t] = store->summaries().floatColumn(int(t % 2)); });
        for (std::thread& thread : threads)
            thread.join();
        for (size_t t = 0; t < seen.size(); ++t) {
            QVERIFY(seen[t] != nullptr);
            QCOMPARE(seen[t], seen[t % 2]);
        }
        QVERIFY(seen[0] != seen[1]);
        const auto high = seen[1]->extremes(10, 99999);
        QCOMPARE(high.low, 10.0f);
        QCOMPARE(high.high, 99999.0f);
        QVERIFY(store->summaries().floatColumn(2) == nullptr);
        QVERIFY(store->summaries().int16Column(0) == nullptr);
        QVERIFY(store->summaries().memoryBytes() > 0);
    }

    // Whether a stretch of a discrete channel holds a set or a clear sample, against a look at
    // every sample of the stretch, for stretches inside a block of 8, across blocks and across
    // words of blocks; with two bits a block, the summary is a quarter of the channel's bits.
    void digitalStretchesHoldWhatTheirSamplesHold()
    {
        std::mt19937 random(8);
        const int channels = 3;
        const int samples = 5000;
        QBitArray bits(channels * samples);
        for (int i = 0; i < bits.size(); ++i)
            bits.setBit(i, random() % 50 == 0);
        for (int channel = 0; channel < channels; ++channel) {
            const DigitalSummary summary(bits, channels, channel);
            QCOMPARE(summary.sampleCount(), (long long)samples);
            for (int k = 0; k < 3000; ++k) {
                const int first = int(random() % samples);
                const int last = qMin(samples - 1, first + int(random() % (k % 2 ? 20 : 2000)));
                bool set = false;
                bool clear = false;
                for (int s = first; s <= last; ++s)
                    (bits.testBit(s * channels + channel) ? set : clear) = true;
                QCOMPARE(summary.holds(true, first, last), set);
                QCOMPARE(summary.holds(false, first, last), clear);
            }
            QVERIFY(summary.memoryBytes() * 8 <= (samples / 4) + 2 * 64);
        }
    }

    // A single set bit is found by every stretch that covers it and by no other.
    void aSingleSetBit()
    {
        QBitArray bits(1000);
        bits.setBit(517);
        const DigitalSummary summary(bits, 1, 0);
        QVERIFY(summary.holds(true, 0, 999));
        QVERIFY(summary.holds(true, 517, 517));
        QVERIFY(summary.holds(true, 512, 519));
        QVERIFY(!summary.holds(true, 0, 516));
        QVERIFY(!summary.holds(true, 518, 999));
        QVERIFY(summary.holds(false, 517, 518));
        QVERIFY(!summary.holds(false, 517, 517));
    }
};

QTEST_GUILESS_MAIN(TestSampleSummary)
#include "tst_samplesummary.moc"
