#include "CalcLib/CalcEngine.h"
#include "SignalMaker.h"

#include <QTest>

#include <limits>

using namespace SignalMaker;

Q_DECLARE_METATYPE(std::vector<int32_t>)

namespace {
// The configuration the calculation module builds for a record: one row, 40 ms.
DevConfig recordConfig(double rate = 1000.0, int intervalMs = 40)
{
    DevConfig config;
    config.rowCount = 1;
    config.sampleRate = rate;
    config.intervalMs = intervalMs;
    config.windowSamples = static_cast<int32_t>(rate * intervalMs / 1000.0);
    config.stepMs = 8;
    config.varType = 2;
    config.constType = 2;
    return config;
}

// The channel's part of the configuration, as the module sets it before each calculation.
DevConfig channelConfig(
    DevConfig config, int shape, double multiplier = 1.0, double adder = 0.0, double delay = 0.0)
{
    config.shapeType = shape;
    config.multiplier = multiplier;
    config.adder = adder;
    config.adcDelay = delay;
    return config;
}

void fill(CalcEngine& engine, const std::vector<double>& samples)
{
    const SampleBuffer& buffer = engine.buffer();
    for (int i = 0; i < buffer.samples(); ++i)
        *buffer[0][i] = static_cast<int32_t>(std::lround(samples[i]));
}

void fillRaw(CalcEngine& engine, const std::vector<int32_t>& samples)
{
    const SampleBuffer& buffer = engine.buffer();
    for (int i = 0; i < buffer.samples(); ++i)
        *buffer[0][i] = samples[i];
}

CalcParameters calculate(CalcEngine& engine, const DevConfig& config, const std::vector<double>& samples)
{
    engine.setDevConfig(config);
    fill(engine, samples);
    engine.calculate();
    return engine.parameters();
}
} // namespace

class TestCalcEngine : public QObject
{
    Q_OBJECT
private slots:
    void signalShapeTexts();
    void sampleBuffer_cellPerSample();
    void init_buildsBufferAndCalculators();
    void init_leavesItsVariantInTheConfig();

    void talvi_sine50At1000Hz();
    void talvi_phaseOfDelayedAndShiftedSines_data();
    void talvi_phaseOfDelayedAndShiftedSines();
    void talvi_offNominalFrequency();
    void talvi_constantShapeGivesMean();
    void talvi_flatVaryingWindowAssumes50Hz();
    void talvi_names();

    void choice_instantChangesNothing();
    void choice_constantWithVelt();
    void choice_varyingWithOrda();
    void resultsPersistBetweenCalculators();

    void badWindows_data();
    void badWindows();
    void emptyConfigurations();
};

void TestCalcEngine::signalShapeTexts()
{
    QCOMPARE(signalShapeFromText("unknown"), 0);
    QCOMPARE(signalShapeFromText("sine"), 1);
    QCOMPARE(signalShapeFromText("const"), 2);
    QCOMPARE(signalShapeFromText("meandr"), 3);
    QCOMPARE(signalShapeFromText("instant"), 4);
    QCOMPARE(signalShapeFromText("Sine"), 0);
    QCOMPARE(signalShapeFromText("square"), 0);
    QCOMPARE(signalShapeDisplayText(1), std::string("Sine"));
    QCOMPARE(signalShapeDisplayText(3), std::string("Meandr"));
    QCOMPARE(signalShapeDisplayText(4), std::string("Instant"));
    QCOMPARE(signalShapeDisplayText(17), std::string("Unknown"));
}

void TestCalcEngine::sampleBuffer_cellPerSample()
{
    SampleBuffer buffer(2, 3);
    QCOMPARE(buffer.rows(), 2);
    QCOMPARE(buffer.samples(), 3);
    for (int row = 0; row < 2; ++row) {
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(*buffer[row][i], 0);
            *buffer[row][i] = row * 10 + i;
        }
    }
    QCOMPARE(*buffer[1][2], 12);
    QVERIFY(buffer[0][0] != buffer[0][1]);
    QCOMPARE(SampleBuffer(0, 5).rows(), 0);
    QCOMPARE(SampleBuffer(-1, 5).samples(), 0);
}

void TestCalcEngine::init_buildsBufferAndCalculators()
{
    CalcEngine engine;
    engine.init(recordConfig(1000.0, 40));
    QCOMPARE(engine.buffer().rows(), 1);
    QCOMPARE(engine.buffer().samples(), 40);
    QCOMPARE(engine.input().rows, 1);
    QCOMPARE(engine.input().samples, 40);
    QCOMPARE(int(engine.input().results.size()), 1);
    for (int i = 0; i < 40; ++i)
        QCOMPARE(*engine.buffer()[0][i], 0);
    QVERIFY(engine.orda().bank());
    QCOMPARE(engine.orda().bank()->blocks(), 5);
    QVERIFY(engine.velt().phasor());
    QCOMPARE(int(engine.velt().phasor()->type()), 0);

    // A new init gives a new zeroed buffer of the new size.
    *engine.buffer()[0][3] = 77;
    engine.init(recordConfig(1000.0, 60));
    QCOMPARE(engine.buffer().samples(), 60);
    QCOMPARE(*engine.buffer()[0][3], 0);
}

void TestCalcEngine::init_leavesItsVariantInTheConfig()
{
    CalcEngine engine;
    DevConfig config = recordConfig();
    config.varType = 2;
    config.shapeType = 0;
    engine.init(config);
    QCOMPARE(engine.devConfig().shapeType, 2);
    QCOMPARE(engine.devConfig().varType, 0);
    engine.setDevConfig(config);
    QCOMPARE(engine.devConfig().shapeType, 0);
    QCOMPARE(engine.devConfig().varType, 2);
}

void TestCalcEngine::talvi_sine50At1000Hz()
{
    CalcEngine engine;
    engine.init(recordConfig(1000.0, 40));
    // 1000 raw units at 0.01 a unit: 10 of amplitude.
    const CalcParameters p = calculate(
        engine, channelConfig(engine.devConfig(), ShapeSine, 0.01), sine(40, 1000.0, 50.0, 1000.0));
    QVERIFY(std::fabs(p.frequency - 50.0) < 1e-9);
    QVERIFY2(std::fabs(p.firstHarmonic - 10.0 / std::sqrt(2.0)) < 1e-3,
        qPrintable(QString::number(p.firstHarmonic)));
    QVERIFY(std::fabs(p.rms - p.firstHarmonic) < 1e-3);
    QVERIFY(std::fabs(p.dc) < 1e-3);
    // Rounding of the samples to integers is the only distortion: well below a per cent.
    QVERIFY(p.nonSinus < 0.1);
    QVERIFY(std::fabs(p.phase) < 0.01);
    QCOMPARE(p.kni, 0.0);
}

void TestCalcEngine::talvi_phaseOfDelayedAndShiftedSines_data()
{
    QTest::addColumn<double>("phase");
    QTest::addColumn<double>("delay");
    QTest::addColumn<double>("expected");
    QTest::newRow("sine") << 0.0 << 0.0 << 0.0;
    QTest::newRow("cosine leads a sine by 90") << 90.0 << 0.0 << 90.0;
    QTest::newRow("-120") << -120.0 << 0.0 << -120.0;
    // A delay of 2 samples at 50 Hz and 1000 Hz is 36 degrees, removed from the phase.
    QTest::newRow("delay of 2 samples") << 0.0 << 2.0 << -36.0;
    QTest::newRow("delay wraps") << -170.0 << 2.0 << 154.0;
}

void TestCalcEngine::talvi_phaseOfDelayedAndShiftedSines()
{
    QFETCH(double, phase);
    QFETCH(double, delay);
    QFETCH(double, expected);
    CalcEngine engine;
    engine.init(recordConfig(1000.0, 40));
    const std::vector<double> x = cosine(40, 1000.0, 50.0, 20000.0, (phase - 90.0) * kPi / 180.0);
    const CalcParameters p
        = calculate(engine, channelConfig(engine.devConfig(), ShapeSine, 1.0, 0.0, delay), x);
    QVERIFY2(std::fabs(angleDifference(p.phase, expected)) < 1e-3, qPrintable(QString::number(p.phase)));
    QVERIFY(p.phase > -180.0 && p.phase <= 180.0);
}

void TestCalcEngine::talvi_offNominalFrequency()
{
    // 47.3 Hz over 400 ms: the frequency from the crossings, the amplitude from whole periods.
    CalcEngine engine;
    engine.init(recordConfig(1000.0, 400));
    const CalcParameters p = calculate(
        engine, channelConfig(engine.devConfig(), ShapeSine, 0.001, 5.0), sine(400, 1000.0, 47.3, 30000.0));
    QVERIFY2(std::fabs(p.frequency - 47.3) < 0.01, qPrintable(QString::number(p.frequency)));
    QVERIFY(std::fabs(p.firstHarmonic - 30.0 / std::sqrt(2.0)) < 30.0 * 1e-3);
    QVERIFY(std::fabs(p.dc - 5.0) < 0.05);
}

void TestCalcEngine::talvi_constantShapeGivesMean()
{
    CalcEngine engine;
    engine.init(recordConfig());
    DevConfig config = channelConfig(engine.devConfig(), ShapeConst, 0.5, 10.0);
    config.constType = 2;
    std::vector<double> x(40, 100.0);
    x[5] = 300.0;
    const CalcParameters p = calculate(engine, config, x);
    // Mean of raw * 0.5 + 10.
    QVERIFY(std::fabs(p.rms - ((39 * 100.0 + 300.0) / 40 * 0.5 + 10.0)) < 1e-9);
    QCOMPARE(p.frequency, 50.0);
    QCOMPARE(p.phase, 0.0);
    QCOMPARE(engine.talviConst().minimum(), 60.0);
    QCOMPARE(engine.talviConst().maximum(), 160.0);
}

void TestCalcEngine::talvi_flatVaryingWindowAssumes50Hz()
{
    CalcEngine engine;
    engine.init(recordConfig());
    const CalcParameters p
        = calculate(engine, channelConfig(engine.devConfig(), ShapeSine, 2.0), std::vector<double>(40, 7.0));
    QCOMPARE(p.frequency, 50.0);
    QVERIFY(std::fabs(p.dc - 14.0) < 1e-9);
    QVERIFY(std::fabs(p.rms - 14.0) < 1e-9);
    QCOMPARE(engine.talviVar().peakToPeak(), 0.0);
}

void TestCalcEngine::talvi_names()
{
    CalcEngine engine;
    QCOMPARE(engine.talviVar().name(), std::string("Talvi"));
    QCOMPARE(engine.talviVar().title(), std::string("Talvi"));
    QCOMPARE(engine.orda().name(), std::string("ORDA"));
    QCOMPARE(engine.orda().title(), std::string("Обычный ОРДА"));
    QCOMPARE(engine.velt().name(), std::string("VELT-3"));
    QCOMPARE(engine.velt().title(), std::string("ВЕЛТ-3"));
    TalviCalculator talvi;
    CalcInput input;
    QCOMPARE(talvi.init(recordConfig()), 1);
    QCOMPARE(talvi.calc(input), 1);
}

void TestCalcEngine::choice_instantChangesNothing()
{
    CalcEngine engine;
    engine.init(recordConfig());
    const CalcParameters before = calculate(
        engine, channelConfig(engine.devConfig(), ShapeSine, 1.0), sine(40, 1000.0, 50.0, 1000.0));
    const CalcParameters after = calculate(
        engine, channelConfig(engine.devConfig(), ShapeInstant, 3.0), std::vector<double>(40, 5.0));
    QCOMPARE(after.rms, before.rms);
    QCOMPARE(after.frequency, before.frequency);
    QCOMPARE(after.phase, before.phase);
    QCOMPARE(engine.input().results[0].rms, before.rms);
}

void TestCalcEngine::choice_constantWithVelt()
{
    CalcEngine engine;
    engine.init(recordConfig());
    DevConfig config = channelConfig(engine.devConfig(), ShapeConst, 0.5, 10.0);
    config.constType = 0;
    const CalcParameters p = calculate(engine, config, std::vector<double>(40, 100.0));
    QVERIFY(std::fabs(p.rms - 60.0) < 1e-9);
    QCOMPARE(p.phase, 0.0);
    // The ring-buffer calculator writes no frequency.
    QCOMPARE(p.frequency, 0.0);
}

void TestCalcEngine::choice_varyingWithOrda()
{
    CalcEngine engine;
    engine.init(recordConfig());
    DevConfig config = channelConfig(engine.devConfig(), ShapeSine, 0.01);
    config.varType = 1;
    const CalcParameters p = calculate(engine, config, sine(40, 1000.0, 50.0, 10000.0));
    QVERIFY(std::fabs(p.firstHarmonic - 100.0 / std::sqrt(2.0)) < 0.05);
    QCOMPARE(p.rms, p.firstHarmonic);
    // The phase of a cosine, without the turn to a sine: -90 for a sine.
    QVERIFY2(std::fabs(p.phase - -90.0) < 0.01, qPrintable(QString::number(p.phase)));
    QCOMPARE(p.nonSinus, 0.0);
    QCOMPARE(p.dc, 0.0);
}

void TestCalcEngine::resultsPersistBetweenCalculators()
{
    // A constant channel after a distorted sine shows the earlier non-sinusoid coefficient and
    // DC: rows are not cleared, and the mean writes only rms, phase and frequency.
    CalcEngine engine;
    engine.init(recordConfig());
    std::vector<double> x = sine(40, 1000.0, 50.0, 1000.0, 200.0);
    const std::vector<double> third = sine(40, 1000.0, 150.0, 100.0);
    for (size_t i = 0; i < x.size(); ++i)
        x[i] += third[i];
    const CalcParameters sineResult = calculate(engine, channelConfig(engine.devConfig(), ShapeSine), x);
    QVERIFY(std::fabs(sineResult.nonSinus - 10.0) < 0.1);
    QVERIFY(std::fabs(sineResult.dc - 200.0) < 0.1);

    DevConfig constant = channelConfig(engine.devConfig(), ShapeConst);
    constant.constType = 2;
    const CalcParameters constResult = calculate(engine, constant, std::vector<double>(40, 3.0));
    QCOMPARE(constResult.rms, 3.0);
    QCOMPARE(constResult.nonSinus, sineResult.nonSinus);
    QCOMPARE(constResult.dc, sineResult.dc);
    QCOMPARE(constResult.firstHarmonic, sineResult.firstHarmonic);

    constant.constType = 0;
    const CalcParameters veltResult = calculate(engine, constant, std::vector<double>(40, 4.0));
    QCOMPARE(veltResult.rms, 4.0);
    QCOMPARE(veltResult.frequency, 50.0);
    QCOMPARE(veltResult.dc, sineResult.dc);
}

void TestCalcEngine::badWindows_data()
{
    QTest::addColumn<std::vector<int32_t>>("window");
    QTest::addColumn<int>("shape");
    QTest::addColumn<int>("varType");
    QTest::addColumn<int>("constType");
    const int32_t top = std::numeric_limits<int32_t>::max();
    const int32_t bottom = std::numeric_limits<int32_t>::min();
    std::vector<int32_t> alternating(40);
    for (int i = 0; i < 40; ++i)
        alternating[i] = i % 2 ? top : bottom;
    for (int shape : { 0, 1, 2, 3 }) {
        for (int choice : { 0, 1, 2 }) {
            const QByteArray name = QByteArray::number(shape) + "/" + QByteArray::number(choice);
            QTest::newRow(("all zero " + name).constData())
                << std::vector<int32_t>(40, 0) << shape << choice << choice;
            QTest::newRow(("extremes " + name).constData()) << alternating << shape << choice << choice;
            QTest::newRow(("all maximum " + name).constData())
                << std::vector<int32_t>(40, top) << shape << choice << choice;
        }
    }
}

void TestCalcEngine::badWindows()
{
    QFETCH(std::vector<int32_t>, window);
    QFETCH(int, shape);
    QFETCH(int, varType);
    QFETCH(int, constType);
    CalcEngine engine;
    engine.init(recordConfig());
    DevConfig config = channelConfig(engine.devConfig(), shape);
    config.varType = varType;
    config.constType = constType;
    engine.setDevConfig(config);
    fillRaw(engine, window);
    engine.calculate();
    engine.calculate();
    const CalcParameters p = engine.parameters();
    QVERIFY(std::isfinite(p.rms));
    QVERIFY(std::isfinite(p.frequency));
}

void TestCalcEngine::emptyConfigurations()
{
    // No rows, no window, one-sample windows, silly rates: no crash, nothing to read.
    for (int rows : { 0, 1 }) {
        for (int window : { 0, 1, 2 }) {
            for (double rate : { 0.0, 10.0, 1000.0 }) {
                for (int shape : { 0, 1, 2 }) {
                    for (int choice : { 0, 1, 2 }) {
                        DevConfig config;
                        config.rowCount = rows;
                        config.windowSamples = window;
                        config.sampleRate = rate;
                        config.intervalMs = window;
                        config.stepMs = 8;
                        CalcEngine engine;
                        engine.init(config);
                        config.shapeType = shape;
                        config.varType = choice;
                        config.constType = choice;
                        engine.setDevConfig(config);
                        if (engine.buffer().samples() > 0)
                            *engine.buffer()[0][0] = 1000;
                        engine.calculate();
                    }
                }
            }
        }
    }
    // Fewer than 50 samples a second leave the filter bank unbuilt.
    CalcEngine slow;
    slow.init(recordConfig(40.0, 100));
    QVERIFY(!slow.orda().bank());
}

QTEST_GUILESS_MAIN(TestCalcEngine)
#include "tst_calcengine.moc"
