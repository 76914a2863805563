// The trace drawn from the store's summaries against the trace drawn by scanning every sample:
// the same pixels, on random records, scales, start samples and row sizes.
#include "Model/AnalogChannel.h"
#include "Model/DigitalChannel.h"
#include "Model/OscillogramData.h"
#include "Model/SampleSummary.h"
#include "Views/Painters/AnalogPainter.h"
#include "Views/Painters/DigitalPainter.h"
#include "Views/Painters/PixelBuffer.h"
#include "Views/Painters/TimeLayers.h"

#include <QTest>

#include <cmath>
#include <cstring>
#include <random>

namespace {
enum class Shape { Sine, Walk, Constant, FullRange };

struct Case
{
    DT::DataType type = DT::Int16;
    Shape shape = Shape::Sine;
    int columns = 1;
    int column = 0;
    int samples = 0;
    int missing = 0; // values short of full rows at the end of the block
    int width = 0;
    int height = 0;
    double xScale = 0.0;
    int startSample = 0;
    double amplitude = 1.0;
    double offset = 0.0;
    bool inverted = false;
    bool anomaly = false;
};

double shapeValue(Shape shape, int sample, int column, double spread, std::mt19937& random)
{
    switch (shape) {
    case Shape::Sine:
        return spread * 0.8 * std::sin(sample * 0.0123 + column) + double(random() % 64) - 32.0;
    case Shape::Walk:
        return spread * 0.5 * std::sin(sample * 0.0007) + double(random() % 2001) - 1000.0;
    case Shape::Constant:
        return 1234.0 + column;
    case Shape::FullRange:
    default:
        return std::uniform_real_distribution<double>(-spread, spread)(random);
    }
}

QSharedPointer<OscillogramData> makeStore(const Case& c, std::mt19937& random)
{
    OscillogramDataBuilder builder;
    const int count = c.columns;
    builder.reserve(c.type == DT::Double ? count : 0, c.type == DT::Float ? count : 0,
        c.type == DT::Int32 ? count : 0, c.type == DT::Int16 ? count : 0, 0, c.samples);
    const int values = c.samples * count - c.missing;
    for (int i = 0; i < values; ++i) {
        const int sample = i / count;
        const int column = i % count;
        switch (c.type) {
        case DT::Int16:
            builder.appendInt16Value(short(shapeValue(c.shape, sample, column, 32000.0, random)));
            break;
        case DT::Int32:
            builder.appendInt32Value(int(shapeValue(c.shape, sample, column, 2.0e9, random)));
            break;
        case DT::Float:
            builder.appendFloatValue(float(shapeValue(c.shape, sample, column, 1.0e5, random) * 0.001));
            break;
        default:
            builder.appendDoubleValue(shapeValue(c.shape, sample, column, 1.0e9, random) * 1.0e-3);
            break;
        }
    }
    return builder.build();
}

Case randomCase(std::mt19937& random, int index)
{
    Case c;
    const DT::DataType types[] = { DT::Int16, DT::Int32, DT::Float, DT::Double };
    c.type = types[index % 4];
    c.shape = Shape((index / 4) % 4);
    c.columns = 1 + int(random() % 3);
    c.column = int(random() % unsigned(c.columns));
    const int sizes[] = { 1, 2, 31, 32, 33, 1000, 4097, 30000, 120000 };
    c.samples = sizes[random() % 9];
    if (random() % 4 == 0)
        c.missing = int(random() % unsigned(c.columns));
    c.width = 1 + int(random() % 500);
    c.height = 4 + int(random() % 200);
    switch (random() % 6) {
    case 0: // around 1.0: the segment branch, where both ways meet anyway
        c.xScale = 0.9 + 0.2 * std::uniform_real_distribution<double>()(random);
        break;
    case 1: // exactly the largest decimating scale
        c.xScale = 0.05;
        break;
    case 2: // a whole number of samples per column
        c.xScale = 1.0 / double(20 + random() % 5000);
        break;
    default: // any small scale, down to the least the view allows
        c.xScale = std::exp(std::uniform_real_distribution<double>(std::log(0.005), std::log(0.05))(random));
        if (random() % 2)
            c.xScale
                = std::exp(std::uniform_real_distribution<double>(std::log(1e-5), std::log(0.05))(random));
        break;
    }
    switch (random() % 4) {
    case 0:
        c.startSample = 0;
        break;
    case 1: // near the end, and past it
        c.startSample = c.samples - int(random() % 70);
        break;
    default:
        c.startSample = int(random() % unsigned(c.samples));
        break;
    }
    const double amplitudes[] = { 1.0, 1.0, 2.0, 0.5, 10.0 };
    c.amplitude = amplitudes[random() % 5];
    c.offset = random() % 3 == 0 ? double(int(random() % 200) - 100) : 0.0;
    c.inverted = random() % 5 == 0;
    c.anomaly = random() % 8 == 0;
    return c;
}

QString describe(const Case& c, int index)
{
    return QStringLiteral("case %1: type %2 shape %3, column %4 of %5, %6 samples (%7 missing), %8 x %9, "
                          "scale %10, start %11, amplitude %12, offset %13, inverted %14, anomaly %15")
        .arg(index)
        .arg(int(c.type))
        .arg(int(c.shape))
        .arg(c.column)
        .arg(c.columns)
        .arg(c.samples)
        .arg(c.missing)
        .arg(c.width)
        .arg(c.height)
        .arg(c.xScale, 0, 'g', 17)
        .arg(c.startSample)
        .arg(c.amplitude)
        .arg(c.offset)
        .arg(c.inverted)
        .arg(c.anomaly);
}

// The trace of the case's channel with or without the summaries, on a cleared buffer.
void paint(PixelBuffer& buffer, const Case& c, const QSharedPointer<AnalogChannel>& channel, bool usesSummary)
{
    BackgroundFill fill;
    fill.setColor(0xFF000000);
    fill.paint(buffer);
    AnalogPainter painter;
    painter.setChannel(channel);
    painter.setXScale(c.xScale);
    painter.setStartSample(c.startSample);
    painter.setAmplitude(c.amplitude);
    painter.setOffset(c.offset);
    if (c.anomaly) {
        painter.setAnomalyPaint(true);
        const int first = qMax(0, c.startSample) + 5;
        painter.setAnomalySpans({ AnomalyData(first, first + c.samples / 10) });
    }
    painter.setUsesSummary(usesSummary);
    painter.paint(buffer);
}

// A discrete record of `channels` channels whose bits follow one of four patterns: rare single
// set samples, long runs, a bit that toggles every sample, and random noise.
QSharedPointer<OscillogramData> makeDigitalStore(int channels, int samples, int pattern, std::mt19937& random)
{
    OscillogramDataBuilder builder;
    builder.reserve(0, 0, 0, 0, channels, samples);
    bool run = false;
    for (int s = 0; s < samples; ++s) {
        for (int c = 0; c < channels; ++c) {
            bool bit = false;
            switch (pattern) {
            case 0:
                bit = random() % 997 == 0;
                break;
            case 1:
                if (random() % 300 == 0)
                    run = !run;
                bit = run;
                break;
            case 2:
                bit = (s + c) % 2 == 0;
                break;
            default:
                bit = random() % 2 == 0;
                break;
            }
            builder.setDigitalChannelValue(s, c, bit);
        }
    }
    return builder.build();
}

void paintDigital(PixelBuffer& buffer, const QSharedPointer<DigitalChannel>& channel, double xScale,
    int startSample, bool usesSummary)
{
    BackgroundFill fill;
    fill.setColor(0xFF000000);
    fill.paint(buffer);
    DigitalPainter painter;
    painter.setChannel(channel);
    painter.setColor(0xFFFFFFFF);
    painter.setXScale(xScale);
    painter.setStartSample(startSample);
    painter.setUsesSummary(usesSummary);
    painter.paint(buffer);
}
} // namespace

class TestSummaryPlot : public QObject
{
    Q_OBJECT
private slots:
    void summaryAndScanDrawTheSamePixels()
    {
        std::mt19937 random(20240515);
        int decimated = 0;
        for (int index = 0; index < 1200; ++index) {
            const Case c = randomCase(random, index);
            const auto store = makeStore(c, random);
            auto channel = QSharedPointer<AnalogChannel>::create();
            channel->setData(store);
            channel->setDataType(c.type);
            channel->setDataOffset(c.column);
            channel->setDataCount(1);
            channel->setIsInverted(c.inverted);
            PixelBuffer viaSummary(c.width, c.height);
            PixelBuffer viaScan(c.width, c.height);
            paint(viaSummary, c, channel, true);
            paint(viaScan, c, channel, false);
            QCOMPARE(viaSummary.capacity(), viaScan.capacity());
            if (std::memcmp(viaSummary.data(), viaScan.data(), size_t(viaScan.capacity())) != 0)
                QFAIL(qPrintable(describe(c, index)));
            if (c.xScale <= 0.05)
                ++decimated;
        }
        // Most cases must take the decimating branch, where the two ways differ in their work.
        QVERIFY(decimated > 900);
    }

    // Discrete rows at small scales: the blocks of the summary and the look at every sample find
    // the same columns with a set bit, inverted channels included.
    void digitalSummaryAndScanDrawTheSamePixels()
    {
        std::mt19937 random(20261124);
        for (int index = 0; index < 400; ++index) {
            const int channels = 1 + int(random() % 5);
            const int sizes[] = { 1, 7, 8, 9, 63, 64, 65, 1000, 4097, 30000 };
            const int samples = sizes[random() % 10];
            const auto store = makeDigitalStore(channels, samples, index % 4, random);
            auto channel = QSharedPointer<DigitalChannel>::create();
            channel->setData(store);
            channel->setDataOffset(int(random() % unsigned(channels)));
            channel->setIsInverted(random() % 3 == 0);
            const double xScale
                = std::exp(std::uniform_real_distribution<double>(std::log(1e-4), std::log(0.05))(random));
            const int startSample
                = random() % 3 == 0 ? samples - int(random() % 40) : int(random() % unsigned(samples));
            const int width = 1 + int(random() % 400);
            const int height = 6 + int(random() % 40);
            PixelBuffer viaSummary(width, height);
            PixelBuffer viaScan(width, height);
            paintDigital(viaSummary, channel, xScale, startSample, true);
            paintDigital(viaScan, channel, xScale, startSample, false);
            if (std::memcmp(viaSummary.data(), viaScan.data(), size_t(viaScan.capacity())) != 0)
                QFAIL(qPrintable(
                    QStringLiteral("case %1: %2 channels, %3 samples, pattern %4, scale %5, start %6")
                        .arg(index)
                        .arg(channels)
                        .arg(samples)
                        .arg(index % 4)
                        .arg(xScale, 0, 'g', 17)
                        .arg(startSample)));
        }
    }

    // One set sample in a long clear channel: the column that holds it gets the bar, and only it.
    void aSingleSetSampleMakesOneBar()
    {
        OscillogramDataBuilder builder;
        builder.reserve(0, 0, 0, 0, 3, 100000);
        builder.setDigitalChannelValue(54321, 1, true);
        const auto store = builder.build();
        auto channel = QSharedPointer<DigitalChannel>::create();
        channel->setData(store);
        channel->setDataOffset(1);
        PixelBuffer buffer(200, 20);
        paintDigital(buffer, channel, 0.002, 0, true); // 500 samples a column
        const int bar = DigitalPainter::barFor(20);
        for (int x = 0; x < 200; ++x) {
            const bool expectBar = x == 54321 / 500;
            QCOMPARE(buffer.pixel(x, bar) == 0xFFFFFFFF, expectBar);
        }
    }

    // A column with a NaN is drawn by the scan even when the summary is asked for.
    void aColumnWithNaNIsScanned()
    {
        OscillogramDataBuilder builder;
        builder.reserve(1, 0, 0, 0, 0, 5000);
        for (int s = 0; s < 5000; ++s)
            builder.appendDoubleValue(s == 2500 ? std::nan("") : std::sin(s * 0.01));
        const auto store = builder.build();
        auto channel = QSharedPointer<AnalogChannel>::create();
        channel->setData(store);
        channel->setDataType(DT::Double);
        channel->setDataCount(1);
        Case c;
        c.width = 100;
        c.height = 50;
        c.xScale = 0.02;
        PixelBuffer viaSummary(c.width, c.height);
        PixelBuffer viaScan(c.width, c.height);
        paint(viaSummary, c, channel, true);
        paint(viaScan, c, channel, false);
        QVERIFY(std::memcmp(viaSummary.data(), viaScan.data(), size_t(viaScan.capacity())) == 0);
        QVERIFY(store->summaries().doubleColumn(0) != nullptr);
        QVERIFY(!store->summaries().doubleColumn(0)->isUsable());
    }
};

QTEST_MAIN(TestSummaryPlot)
#include "tst_summaryplot.moc"
