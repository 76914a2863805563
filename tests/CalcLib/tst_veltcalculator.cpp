#include "CalcLib/VeltCalculator.h"
#include "SignalMaker.h"

#include <QTest>

#include <cmath>
#include <iostream>

using namespace SignalMaker;

namespace {
DevConfig veltConfig(double rate = 1000.0, int intervalMs = 40, int shape = 2)
{
    DevConfig config;
    config.rowCount = 1;
    config.sampleRate = rate;
    config.intervalMs = intervalMs;
    config.windowSamples = static_cast<int32_t>(rate * intervalMs / 1000.0);
    config.shapeType = shape;
    return config;
}

DescriptionSection section(const std::vector<std::pair<std::string, std::string>>& keys)
{
    DescriptionSection s;
    s.name = "achan0";
    for (const auto& key : keys)
        s.entries.push_back({ key.first, key.second, std::string() });
    return s;
}

void feed(CPhasor& phasor, const std::vector<double>& x)
{
    for (double v : x)
        phasor.addSample(static_cast<int16_t>(std::lround(v)));
}
} // namespace

class TestVeltCalculator : public QObject
{
    Q_OBJECT
private slots:
    void init_shapes();
    void init_sizesTheRingFromTheMilliseconds();
    void calc_meanOfTheWindow();
    void calc_wraps16Bits();
    void calc_ringIsNotCleared();
    void calc_writesOnlyRmsAndPhase();

    void phasor_setupDefaults();
    void phasor_lowPassCoefficients();
    void phasor_varyingAnalysisAndItsLine();
    void phasor_tracksTheFrequency_data();
    void phasor_tracksTheFrequency();
    void phasor_weakSignalCountsAsNominalWithFullError();
    void phasor_emptyWindowIsReported();
    void phasor_setScale();
    void phasor_describedBySection();
    void phasor_sectionWithoutIdOrName();
};

void TestVeltCalculator::init_shapes()
{
    VeltCalculator velt;
    QCOMPARE(velt.init(veltConfig(1000.0, 40, 2)), 1);
    QCOMPARE(int(velt.phasor()->type()), 0);
    QVERIFY(velt.device());
    QCOMPARE(velt.device()->channelCount(), 0);
    QCOMPARE(velt.init(veltConfig(1000.0, 40, 1)), 1);
    QCOMPARE(int(velt.phasor()->type()), 2);
    StreamCapture capture(std::cout);
    QCOMPARE(velt.init(veltConfig(1000.0, 40, 3)), 0);
    QCOMPARE(capture.text(), std::string("Error: undefined shape type.\n"));
    QVERIFY(velt.phasor());
}

void TestVeltCalculator::init_sizesTheRingFromTheMilliseconds()
{
    VeltCalculator velt;
    velt.init(veltConfig(1000.0, 40));
    // (truncate(1000 / 40 + 2 + 1)) * (40 + 1): the 40 ms taken as 40 periods.
    QCOMPARE(velt.phasor()->ringSize(), 28 * 41);
    QCOMPARE(velt.phasor()->periods(), 40);
    QCOMPARE(velt.phasor()->window(), 40);
}

void TestVeltCalculator::calc_meanOfTheWindow()
{
    VeltCalculator velt;
    DevConfig config = veltConfig();
    config.multiplier = 0.5;
    config.adder = 10.0;
    velt.init(config);
    std::vector<int32_t> cells(40, 100);
    cells[3] = 300;
    cells[4] = -50;
    CalcInput input = makeInput(cells);
    QCOMPARE(velt.calc(input), 1);
    QVERIFY(std::fabs(input.results[0].rms - ((38 * 100.0 + 250.0) / 40 * 0.5 + 10.0)) < 1e-12);
    QCOMPARE(input.results[0].phase, 0.0);
    QCOMPARE(velt.phasor()->lastMax(), 300.0);
    QCOMPARE(velt.phasor()->lastMin(), -50.0);
    QCOMPARE(velt.phasor()->scaledValue(), velt.phasor()->value());
}

void TestVeltCalculator::calc_wraps16Bits()
{
    VeltCalculator velt;
    velt.init(veltConfig());
    // 70000 - 65536 = 4464; -40000 + 65536 = 25536; 32768 is -32768.
    CalcInput input = makeInput(std::vector<int32_t>(40, 70000));
    velt.calc(input);
    QCOMPARE(input.results[0].rms, 4464.0);
    input = makeInput(std::vector<int32_t>(40, -40000));
    velt.calc(input);
    QCOMPARE(input.results[0].rms, 25536.0);
    input = makeInput(std::vector<int32_t>(40, 32768));
    velt.calc(input);
    QCOMPARE(input.results[0].rms, -32768.0);
}

void TestVeltCalculator::calc_ringIsNotCleared()
{
    VeltCalculator velt;
    velt.init(veltConfig());
    CalcInput first = makeInput(std::vector<int32_t>(40, 100));
    velt.calc(first);
    QCOMPARE(velt.phasor()->writeIndex(), 40);
    CalcInput second = makeInput(std::vector<int32_t>(40, 200));
    velt.calc(second);
    QCOMPARE(velt.phasor()->writeIndex(), 80);
    QCOMPARE(velt.phasor()->ringAt(5), int16_t(100));
    QCOMPARE(velt.phasor()->ringAt(45), int16_t(200));
    // The mean takes the last window only.
    QCOMPARE(second.results[0].rms, 200.0);
    // Round the ring: 1148 / 40 is not whole, so the ring wraps inside a window.
    for (int i = 0; i < 30; ++i)
        velt.calc(second);
    QCOMPARE(velt.phasor()->writeIndex(), (32 * 40) % 1148);
    QCOMPARE(second.results[0].rms, 200.0);
}

void TestVeltCalculator::calc_writesOnlyRmsAndPhase()
{
    VeltCalculator velt;
    velt.init(veltConfig());
    CalcInput input = makeInput(std::vector<int32_t>(40, 9));
    input.results[0] = { 1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0 };
    velt.calc(input);
    QCOMPARE(input.results[0].amplitude, 1.0);
    QCOMPARE(input.results[0].rms, 9.0);
    QCOMPARE(input.results[0].phase, 0.0);
    QCOMPARE(input.results[0].frequency, 4.0);
    QCOMPARE(input.results[0].nonSinus, 5.0);
    QCOMPARE(input.results[0].dc, 6.0);
    QCOMPARE(input.results[0].firstHarmonic, 7.0);
}

void TestVeltCalculator::phasor_setupDefaults()
{
    CPhasor phasor;
    QVERIFY(phasor.setup(nullptr, 1000.0, 0.0, 3, 2, 40, 1));
    QCOMPARE(phasor.settleCount(), 80);
    QCOMPARE(phasor.longPeriod(), 27.0);
    QCOMPARE(phasor.shortPeriod(), 1000.0 / 60.0);
    // 28 * 3 = 84 samples of ring.
    QCOMPARE(phasor.ringSize(), 84);
    QCOMPARE(phasor.frequency(), 50.0);
    QCOMPARE(phasor.deviation(), 1.0);
    QVERIFY(!phasor.frequencyValid());
    QCOMPARE(phasor.delay(), 0.0);
    // A ring smaller than the window takes the window and one more.
    QVERIFY(phasor.setup(nullptr, 1000.0, 0.0, 3, 0, 40, 1));
    QCOMPARE(phasor.ringSize(), 41);
    QVERIFY(phasor.setup(nullptr, 1000.0, 0.0, 3, -5, -5, 1));
    QCOMPARE(phasor.ringSize(), 1);
    // In a ring of one sample the write position wraps at once, and an analysis over it still ends
    // in finite values and prints its line, as every analysis of a varying phasor does.
    StreamCapture capture(std::cout);
    phasor.addSample(5);
    QCOMPARE(phasor.writeIndex(), 0);
    phasor.process(50.0);
    QVERIFY(std::isfinite(phasor.value()));
    QVERIFY(std::isfinite(phasor.phase()));
    QVERIFY2(capture.text().rfind("phase = ", 0) == 0, capture.text().c_str());
}

void TestVeltCalculator::phasor_lowPassCoefficients()
{
    CPhasor a;
    a.setup(nullptr, 1000.0, 0.0, 3, 2, 40, 1);
    const LowPassCoefficients c = CPhasor::lowPassCoefficients();
    QCOMPARE(c.g0, c.g2);
    // The gain at zero frequency: (g0 + g1 + g2) / (1 + f1 + f2) = 0.69 whatever the rate.
    QVERIFY(std::fabs((c.g0 + c.g1 + c.g2) / (1.0 + c.f1 + c.f2) - 0.69) < 1e-12);
    const double t = 1.0 / std::tan(210.48670779051614 / 1000.0);
    QVERIFY(std::fabs(c.f1 - 2.0 * (0.743467 - t * t) / (t * t + 0.567143 * t + 0.743467)) < 1e-15);
    // Shared: the next setup with another rate changes them for every phasor.
    CPhasor b;
    b.setup(nullptr, 4000.0, 0.0, 3, 2, 160, 1);
    QVERIFY(CPhasor::lowPassCoefficients().f1 != c.f1);
    QVERIFY(std::fabs((CPhasor::lowPassCoefficients().g0 + CPhasor::lowPassCoefficients().g1
                          + CPhasor::lowPassCoefficients().g2)
                    / (1.0 + CPhasor::lowPassCoefficients().f1 + CPhasor::lowPassCoefficients().f2)
                - 0.69)
        < 1e-12);
}

void TestVeltCalculator::phasor_varyingAnalysisAndItsLine()
{
    CPhasor phasor;
    phasor.setup(nullptr, 1000.0, 0.0, 3, 2, 40, 1);
    phasor.setType(2);
    phasor.setMultiplier(0.01);
    // 200 samples: the last 40 are two whole periods of a sine starting from zero.
    feed(phasor, sine(200, 1000.0, 50.0, 10000.0));
    StreamCapture capture(std::cout);
    phasor.process(50.0);
    QVERIFY(std::fabs(phasor.amplitude() - 100.0) < 0.01);
    QVERIFY(std::fabs(phasor.value() - 100.0 / std::sqrt(2.0)) < 0.01);
    QVERIFY(std::fabs(phasor.phase()) < 0.01);
    const std::string line = capture.text();
    QVERIFY2(line.rfind("phase = ", 0) == 0, line.c_str());
    for (const char* part : { "; ud = ", "; u0 = ", "; Ampl = ", "; Freq = 50", "; nolinear = " })
        QVERIFY2(line.find(part) != std::string::npos, part);
    QCOMPARE(line.back(), '\n');
    QVERIFY(!phasor.isZero());
}

void TestVeltCalculator::phasor_tracksTheFrequency_data()
{
    QTest::addColumn<double>("frequency");
    QTest::newRow("45 Hz") << 45.0;
    QTest::newRow("50 Hz") << 50.0;
    QTest::newRow("55 Hz") << 55.0;
}

void TestVeltCalculator::phasor_tracksTheFrequency()
{
    QFETCH(double, frequency);
    CPhasor phasor;
    phasor.setup(nullptr, 1000.0, 0.0, 3, 2, 40, 1);
    phasor.setType(2);
    feed(phasor, sine(2000, 1000.0, frequency, 10000.0));
    QVERIFY(phasor.frequencyValid());
    QVERIFY2(
        std::fabs(phasor.frequency() - frequency) < 0.05, qPrintable(QString::number(phasor.frequency())));
    // The filter passes the tone: input and output peaks differ by its gain only.
    QVERIFY(phasor.deviation() < 1.0);
    // process(0) analyses at the tracked frequency.
    StreamCapture capture(std::cout);
    phasor.process(0.0);
    const std::string text = capture.text();
    const size_t at = text.find("; Freq = ");
    QVERIFY(at != std::string::npos);
    QVERIFY(std::fabs(std::stod(text.substr(at + 9)) - phasor.frequency()) < 1e-3);
}

void TestVeltCalculator::phasor_weakSignalCountsAsNominalWithFullError()
{
    CPhasor phasor;
    phasor.setup(nullptr, 1000.0, 0.0, 3, 2, 40, 1);
    phasor.setType(2);
    // A peak of 30 raw units is below 50: every period counts as 50 Hz with an error of 100.
    feed(phasor, sine(2000, 1000.0, 45.0, 30.0));
    QVERIFY(phasor.frequencyValid());
    QCOMPARE(phasor.frequency(), 50.0);
    QCOMPARE(phasor.deviation(), 100.0);
}

void TestVeltCalculator::phasor_emptyWindowIsReported()
{
    const DescriptionSection description = section({ { "id", "1" }, { "name", "Ua" } });
    CPhasor phasor;
    QVERIFY(phasor.setup(&description, 1000.0, 0.0, 3, 0, 40, 1));
    phasor.setType(2);
    feed(phasor, sine(100, 1000.0, 50.0, 1000.0));
    StreamCapture capture(std::cout);
    phasor.process(50.0);
    QCOMPARE(phasor.value(), 0.0);
    QVERIFY2(capture.text().rfind("! k=0, fn=0.050000,  per=0\n", 0) == 0, capture.text().c_str());
}

void TestVeltCalculator::phasor_setScale()
{
    const DescriptionSection description = section(
        { { "id", "7" }, { "name", "Ib" }, { "ktmul", "100" }, { "ktdiv", "5" }, { "power10", "1" } });
    CPhasor phasor;
    phasor.setup(&description, 1000.0, 0.0, 3, 2, 40, 1);
    phasor.setScale(2.0, 3.0, 2);
    QCOMPARE(phasor.multiplier(), 2.0 * 100.0 / 5.0 / 10.0);
    QCOMPARE(phasor.adder(), 3.0);
    StreamCapture capture(std::cout);
    phasor.setScale(2.0, 3.0, 1);
    QCOMPARE(phasor.multiplier(), 2.0);
    QCOMPARE(phasor.adder(), 3.0);
    QCOMPARE(capture.text(), std::string("CPhasor: WTF? id = 7, mul=2.000000, add=3.000000, type=1\r\n"));
}

void TestVeltCalculator::phasor_describedBySection()
{
    const DescriptionSection description = section(
        { { "id", "3" }, { "name", "Uc" }, { "linemask", "5" }, { "type", "4" }, { "add_ph", "1090" },
            { "ktmul", "110000" }, { "ktdiv", "100" }, { "power10", "-3" }, { "sp_block", "0.5" } });
    CPhasor phasor;
    QVERIFY(phasor.setup(&description, 1000.0, 0.25, 3, 2, 40, 1));
    QCOMPARE(phasor.id(), 3);
    QCOMPARE(phasor.name(), std::string("Uc"));
    QCOMPARE(int(phasor.linemask()), 5);
    QCOMPARE(int(phasor.type()), 4);
    // 1090 degrees: whole turns off gives 10.
    QVERIFY(std::fabs(phasor.addPhase() - 10.0 * kPi / 180.0) < 1e-12);
    QCOMPARE(phasor.ktmul(), 110000.0);
    QCOMPARE(phasor.ktdiv(), 100.0);
    QVERIFY(std::fabs(phasor.power10factor() - 1e-3) < 1e-18);
    QCOMPARE(phasor.spBlock(), 0.5);
    QCOMPARE(phasor.delay(), 3 * 0.25);
    QVERIFY(std::fabs(phasor.delayPhase() - 50.0 / 1000.0 * 0.75 * 2.0 * kPi) < 1e-15);

    // The constant mean, scaled by the ratio and the power of ten.
    phasor.setType(0);
    feed(phasor, std::vector<double>(40, 8.0));
    phasor.process(50.0);
    QCOMPARE(phasor.value(), 8.0);
    QVERIFY(std::fabs(phasor.scaledValue() - 100.0 / 110000.0 * 8.0 * 1e-3) < 1e-18);
}

void TestVeltCalculator::phasor_sectionWithoutIdOrName()
{
    const DescriptionSection noId = section({ { "name", "Ua" } });
    const DescriptionSection noName = section({ { "id", "1" } });
    CPhasor phasor;
    QVERIFY(!phasor.setup(&noId, 1000.0, 0.0, 3, 2, 40, 1));
    QVERIFY(!phasor.setup(&noName, 1000.0, 0.0, 3, 2, 40, 1));
}

QTEST_GUILESS_MAIN(TestVeltCalculator)
#include "tst_veltcalculator.moc"
