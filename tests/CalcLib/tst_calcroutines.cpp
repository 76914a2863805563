#include "CalcLib/CalcRoutines.h"
#include "SignalMaker.h"

#include <QTest>

#include <limits>

using namespace SignalMaker;

Q_DECLARE_METATYPE(std::vector<double>)

namespace {
struct Tone
{
    double amplitude = -1.0;
    double phase = -1.0;
    double rms = -1.0;
    double mean = -1.0;
    double nonSinus = -1.0;
};

Tone tone(const std::vector<double>& x, double normFrequency, double multiplier = 1.0, double adder = 0.0)
{
    Tone t;
    const int result = analyzeTone(x.data(), static_cast<int>(x.size()), normFrequency, multiplier, adder,
        t.amplitude, t.phase, t.rms, t.mean, t.nonSinus);
    if (result != 0)
        qFatal("analyzeTone must always answer 0");
    return t;
}

struct Estimate
{
    int result = -1;
    double frequency = 0.0;
    double meanAbs = 0.0;
    double ratio = 0.0;
    double peakToPeak = 0.0;
};

Estimate estimate(const std::vector<double>& x, double rate, int levels = 4, double startFrequency = 123.0)
{
    Estimate e;
    e.frequency = startFrequency;
    e.result = estimateFrequency(x.data(), static_cast<int>(x.size()), levels, e.frequency, rate, 40.0, 70.0,
        e.meanAbs, e.ratio, &e.peakToPeak);
    return e;
}

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();
} // namespace

class TestCalcRoutines : public QObject
{
    Q_OBJECT
private slots:
    void estimateFrequency_sine_data();
    void estimateFrequency_sine();
    void estimateFrequency_constantWindowFindsNothing();
    void estimateFrequency_boundsStartInsideTheSignal();
    void estimateFrequency_tooCloseCrossingsKeepTheirStart();
    void estimateFrequency_periodsLongerThanAllowedAreNotCounted();
    void estimateFrequency_fewSamples();
    void estimateFrequency_optionalPeakToPeak();

    void analyzeTone_wholePeriods_data();
    void analyzeTone_wholePeriods();
    void analyzeTone_fractionalPeriod_data();
    void analyzeTone_fractionalPeriod();
    void analyzeTone_scalesAsRawPlusAdderTimesMultiplier();
    void analyzeTone_harmonicGivesNonSinus();
    void analyzeTone_zeroWindowGivesZeros();
    void analyzeTone_dcWindow();
    void analyzeTone_lessThanOnePeriodGivesZeros();
    void analyzeToneOverPeriods_nothingToAnalyse();

    void scanMinMaxMean_values();
    void scanMinMaxMean_emptyWindow();

    void wrapDegrees_boundaries_data();
    void wrapDegrees_boundaries();

    void badWindows_data();
    void badWindows();
};

void TestCalcRoutines::estimateFrequency_sine_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("frequency");
    QTest::addColumn<double>("tolerance");
    // A period of a whole number of samples repeats the crossings exactly.
    QTest::newRow("50 Hz at 1000 Hz over 40 ms") << 1000.0 << 40 << 50.0 << 1e-9;
    QTest::newRow("50 Hz at 4000 Hz over 80 ms") << 4000.0 << 320 << 50.0 << 1e-9;
    // Otherwise linear interpolation of the crossings errs by little near the middle.
    QTest::newRow("47.3 Hz at 1000 Hz over 40 ms") << 1000.0 << 40 << 47.3 << 0.01;
    QTest::newRow("47.3 Hz at 1000 Hz over 400 ms") << 1000.0 << 400 << 47.3 << 0.01;
    QTest::newRow("62.5 Hz at 10000 Hz over 40 ms") << 10000.0 << 400 << 62.5 << 0.001;
}

void TestCalcRoutines::estimateFrequency_sine()
{
    QFETCH(double, rate);
    QFETCH(int, count);
    QFETCH(double, frequency);
    QFETCH(double, tolerance);
    const Estimate e = estimate(sine(count, rate, frequency, 1000.0, 200.0), rate);
    QCOMPARE(e.result, 1);
    QVERIFY2(
        std::fabs(e.frequency - frequency) < tolerance, qPrintable(QString::number(e.frequency, 'g', 12)));
    QVERIFY(std::fabs(e.peakToPeak - 2000.0) < 50.0);
    QVERIFY(e.ratio > 0.0 && e.ratio <= 1.0);
}

void TestCalcRoutines::estimateFrequency_constantWindowFindsNothing()
{
    const Estimate e = estimate(std::vector<double>(40, 17.0), 1000.0);
    QCOMPARE(e.result, 0);
    QCOMPARE(e.frequency, 123.0);
    QCOMPARE(e.peakToPeak, 0.0);
    QCOMPARE(e.meanAbs, 17.0);
}

void TestCalcRoutines::estimateFrequency_boundsStartInsideTheSignal()
{
    // Maximum starts at -1e6 and minimum at 1e6: a signal wholly above 1e6 leaves the minimum.
    const Estimate high = estimate(std::vector<double>(10, 2e6), 1000.0);
    QCOMPARE(high.peakToPeak, 2e6 - 1e6);
    QCOMPARE(high.meanAbs, 2e6);
    const Estimate low = estimate(std::vector<double>(10, -3e6), 1000.0);
    QCOMPARE(low.peakToPeak, -1e6 - (-3e6));
    QCOMPARE(low.meanAbs, 3e6);
}

void TestCalcRoutines::estimateFrequency_tooCloseCrossingsKeepTheirStart()
{
    // 200 Hz at 1000 Hz crosses every 5 samples; with at least 1000 / 70 samples needed the
    // crossings at 5 and 10 are passed over, the one at 15 is measured from the kept start.
    const Estimate e = estimate(sine(100, 1000.0, 200.0, 1000.0), 1000.0);
    QCOMPARE(e.result, 1);
    QVERIFY(std::fabs(e.frequency - 1000.0 / 15.0) < 1e-9);
    QVERIFY(e.ratio < 0.4);
}

void TestCalcRoutines::estimateFrequency_periodsLongerThanAllowedAreNotCounted()
{
    // 30 Hz at 1000 Hz: 33.3 samples between crossings, above the 25 that 40 Hz allows.
    const Estimate e = estimate(sine(400, 1000.0, 30.0, 1000.0), 1000.0);
    QCOMPARE(e.result, 0);
    QCOMPARE(e.frequency, 123.0);
}

void TestCalcRoutines::estimateFrequency_fewSamples()
{
    const Estimate one = estimate(std::vector<double>(1, 5.0), 1000.0);
    QCOMPARE(one.result, 0);
    QCOMPARE(one.meanAbs, 5.0);
    const Estimate none = estimate(std::vector<double>(), 1000.0);
    QCOMPARE(none.result, 0);
    // With no samples the bounds keep their starts.
    QCOMPARE(none.peakToPeak, -2e6);
}

void TestCalcRoutines::estimateFrequency_optionalPeakToPeak()
{
    const std::vector<double> x = sine(40, 1000.0, 50.0, 10.0);
    double f = 0.0, meanAbs = 0.0, ratio = 0.0;
    QCOMPARE(estimateFrequency(x.data(), 40, 1, f, 1000.0, 40.0, 70.0, meanAbs, ratio), 1);
    QVERIFY(std::fabs(f - 50.0) < 1e-9);
}

void TestCalcRoutines::analyzeTone_wholePeriods_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("frequency");
    QTest::addColumn<double>("amplitude");
    QTest::addColumn<double>("phase");
    QTest::addColumn<double>("dc");
    QTest::newRow("50 Hz at 1000 Hz, 40 ms, cosine") << 1000.0 << 40 << 50.0 << 100.0 << 0.0 << 0.0;
    QTest::newRow("50 Hz at 1000 Hz, 40 ms, sine") << 1000.0 << 40 << 50.0 << 100.0 << -kPi / 2 << 0.0;
    QTest::newRow("50 Hz at 1000 Hz, 40 ms, phase 2 rad, DC 30")
        << 1000.0 << 40 << 50.0 << 7.0 << 2.0 << 30.0;
    QTest::newRow("62.5 Hz at 1000 Hz, 32 ms, phase -3 rad") << 1000.0 << 40 << 62.5 << 1.0 << -3.0 << -0.5;
    QTest::newRow("50 Hz at 10000 Hz, 80 ms") << 10000.0 << 800 << 50.0 << 5000.0 << 1.0 << 100.0;
}

void TestCalcRoutines::analyzeTone_wholePeriods()
{
    QFETCH(double, rate);
    QFETCH(int, count);
    QFETCH(double, frequency);
    QFETCH(double, amplitude);
    QFETCH(double, phase);
    QFETCH(double, dc);
    const Tone t = tone(cosine(count, rate, frequency, amplitude, phase, dc), frequency / rate);
    const double tolerance = 1e-9 * (amplitude + std::fabs(dc));
    QVERIFY(std::fabs(t.amplitude - amplitude) < tolerance);
    QVERIFY(std::fabs(angleDifference(degrees(t.phase), degrees(phase))) < 1e-8);
    QVERIFY(std::fabs(t.mean - dc) < tolerance);
    QVERIFY(std::fabs(t.rms - std::sqrt(dc * dc + amplitude * amplitude / 2)) < tolerance);
    QVERIFY2(t.nonSinus < 1e-3, qPrintable(QString::number(t.nonSinus)));
}

void TestCalcRoutines::analyzeTone_fractionalPeriod_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("tolerance");
    // 47.3 Hz at 1000 Hz: 21.14... samples a period. The weighted last sample makes the window
    // exactly whole periods long; what stays is the image of the negative frequency, whose share
    // falls with the length of the window.
    QTest::newRow("47.3 Hz, one period in 40 samples") << 40 << 5e-3;
    QTest::newRow("47.3 Hz, 18 periods in 400 samples") << 400 << 5e-4;
    QTest::newRow("47.3 Hz, 94 periods in 2000 samples") << 2000 << 1e-4;
}

void TestCalcRoutines::analyzeTone_fractionalPeriod()
{
    QFETCH(int, count);
    QFETCH(double, tolerance);
    const double amplitude = 100.0;
    const double phase = 0.7;
    const Tone t = tone(cosine(count, 1000.0, 47.3, amplitude, phase), 0.0473);
    QVERIFY2(
        std::fabs(t.amplitude - amplitude) < tolerance * amplitude, qPrintable(QString::number(t.amplitude)));
    QVERIFY(std::fabs(t.phase - phase) < 2 * tolerance);
    QVERIFY(std::fabs(t.mean) < 2 * tolerance * amplitude);
}

void TestCalcRoutines::analyzeTone_scalesAsRawPlusAdderTimesMultiplier()
{
    // Physical value = raw * 0.5 + 3: the routine takes the adder as 3 / 0.5.
    const std::vector<double> raw = cosine(40, 1000.0, 50.0, 200.0, 0.3);
    const Tone t = tone(raw, 0.05, 0.5, 6.0);
    QVERIFY(std::fabs(t.amplitude - 100.0) < 1e-9);
    QVERIFY(std::fabs(t.mean - 3.0) < 1e-9);
    QVERIFY(std::fabs(t.phase - 0.3) < 1e-12);
}

void TestCalcRoutines::analyzeTone_harmonicGivesNonSinus()
{
    // A third harmonic of a quarter of the fundamental: 25 per cent.
    std::vector<double> x = cosine(40, 1000.0, 50.0, 100.0, 0.0, 10.0);
    const std::vector<double> third = cosine(40, 1000.0, 150.0, 25.0, 1.0);
    for (size_t i = 0; i < x.size(); ++i)
        x[i] += third[i];
    const Tone t = tone(x, 0.05);
    QVERIFY(std::fabs(t.nonSinus - 25.0) < 1e-6);
    QVERIFY(std::fabs(t.amplitude - 100.0) < 1e-9);
    QVERIFY(std::fabs(t.mean - 10.0) < 1e-9);
}

void TestCalcRoutines::analyzeTone_zeroWindowGivesZeros()
{
    const Tone t = tone(std::vector<double>(40, 0.0), 0.05);
    QCOMPARE(t.amplitude, 0.0);
    QCOMPARE(t.phase, 0.0);
    QCOMPARE(t.rms, 0.0);
    QCOMPARE(t.mean, 0.0);
    QCOMPARE(t.nonSinus, 0.0);
}

void TestCalcRoutines::analyzeTone_dcWindow()
{
    // Over whole periods the correlation of a constant is zero up to rounding.
    const Tone t = tone(std::vector<double>(40, 250.0), 0.05);
    QVERIFY(std::fabs(t.amplitude) < 1e-9);
    QVERIFY(std::fabs(t.mean - 250.0) < 1e-9);
    QVERIFY(std::fabs(t.rms - 250.0) < 1e-9);
}

void TestCalcRoutines::analyzeTone_lessThanOnePeriodGivesZeros()
{
    // 19 samples of a 20-sample period: no whole period fits.
    const Tone t = tone(cosine(19, 1000.0, 50.0, 100.0, 0.0, 5.0), 0.05);
    QCOMPARE(t.amplitude, 0.0);
    QCOMPARE(t.phase, 0.0);
    QCOMPARE(t.rms, 0.0);
    QCOMPARE(t.mean, 0.0);
    QCOMPARE(t.nonSinus, 0.0);
}

void TestCalcRoutines::analyzeToneOverPeriods_nothingToAnalyse()
{
    const std::vector<double> x = cosine(40, 1000.0, 50.0, 100.0, 0.0);
    double a = 1, p = 1, r = 1, m = 1, n = 1;
    QVERIFY(!analyzeToneOverPeriods(x.data(), 40, 0, 0.05, 1.0, 0.0, a, p, r, m, n));
    QCOMPARE(a + p + r + m + n, 0.0);
    QVERIFY(analyzeToneOverPeriods(x.data(), 40, 2, 0.05, 1.0, 0.0, a, p, r, m, n));
    QVERIFY(std::fabs(a - 100.0) < 1e-9);
}

void TestCalcRoutines::scanMinMaxMean_values()
{
    const std::vector<double> x { 1.0, -4.0, 7.0, 2.0 };
    double mean = 0, min = 0, max = 0;
    scanMinMaxMean(x.data(), 4, 2.0, 1.0, mean, min, max);
    QCOMPARE(mean, 2.0 * (6.0 / 4 + 1.0));
    QCOMPARE(min, -6.0);
    QCOMPARE(max, 16.0);
}

void TestCalcRoutines::scanMinMaxMean_emptyWindow()
{
    double mean = 0, min = 0, max = 0;
    scanMinMaxMean(nullptr, 0, 1.0, 0.0, mean, min, max);
    QVERIFY(std::isnan(mean)); // 0 / 0
    QCOMPARE(min, 1e10);
    QCOMPARE(max, -1e10);
}

void TestCalcRoutines::wrapDegrees_boundaries_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("expected");
    QTest::newRow("0") << 0.0 << 0.0;
    QTest::newRow("180 stays") << 180.0 << 180.0;
    QTest::newRow("-180 becomes 180") << -180.0 << 180.0;
    QTest::newRow("180.5 wraps") << 180.5 << -179.5;
    QTest::newRow("-179.5 stays") << -179.5 << -179.5;
    QTest::newRow("360 is 0") << 360.0 << 0.0;
    QTest::newRow("540 is 180") << 540.0 << 180.0;
    QTest::newRow("-540 is 180") << -540.0 << 180.0;
    QTest::newRow("1000 is -80") << 1000.0 << -80.0;
    QTest::newRow("-700 is 20") << -700.0 << 20.0;
    // Below -720 the remainder keeps its sign; -180 itself comes out.
    QTest::newRow("-900 gives -180") << -900.0 << -180.0;
    QTest::newRow("-1000 is 80") << -1000.0 << 80.0;
}

void TestCalcRoutines::wrapDegrees_boundaries()
{
    QFETCH(double, value);
    QFETCH(double, expected);
    QVERIFY2(
        std::fabs(wrapDegrees(value) - expected) < 1e-12, qPrintable(QString::number(wrapDegrees(value))));
}

void TestCalcRoutines::badWindows_data()
{
    QTest::addColumn<std::vector<double>>("window");
    QTest::newRow("NaN") << std::vector<double>(40, kNaN);
    QTest::newRow("infinities") << std::vector<double> { kInf, -kInf, kInf, -kInf, kInf, -kInf, kInf, -kInf };
    QTest::newRow("NaN among a sine") << [] {
        std::vector<double> x = sine(40, 1000.0, 50.0, 100.0);
        x[7] = kNaN;
        return x;
    }();
    QTest::newRow("huge") << cosine(40, 1000.0, 50.0, 1e300, 0.0);
    QTest::newRow("one sample") << std::vector<double>(1, 3.0);
    QTest::newRow("all zero") << std::vector<double>(40, 0.0);
}

void TestCalcRoutines::badWindows()
{
    QFETCH(std::vector<double>, window);
    const int count = static_cast<int>(window.size());
    double f = 50.0, meanAbs = 0, ratio = 0, pp = 0;
    const int found = estimateFrequency(window.data(), count, 4, f, 1000.0, 40.0, 70.0, meanAbs, ratio, &pp);
    QVERIFY(found == 0 || found == 1);
    double a = 0, p = 0, r = 0, m = 0, n = 0;
    QCOMPARE(analyzeTone(window.data(), count, 0.05, 1.0, 0.0, a, p, r, m, n), 0);
    double mean = 0, min = 0, max = 0;
    scanMinMaxMean(window.data(), count, 1.0, 0.0, mean, min, max);
    int maxHarmonic = 0;
    std::vector<double> amplitudes, phases;
    double kni = 0;
    const int spectrum = measureSpectrum(
        window.data(), count, 1000.0, 1, 1.0, 0.0, 52.7, maxHarmonic, amplitudes, phases, kni);
    QVERIFY(spectrum == 0 || spectrum == -1);
    QCOMPARE(measureSpectrum(
                 window.data(), count, 1000.0, 1, 1.0, 0.0, kNaN, maxHarmonic, amplitudes, phases, kni),
        -1);
    QCOMPARE(measureSpectrum(
                 window.data(), count, 1000.0, 1, 1.0, 0.0, kInf, maxHarmonic, amplitudes, phases, kni),
        -1);
    // A window no frequency fits: nothing to analyse, and no sample beyond the window is read.
    QCOMPARE(analyzeTone(window.data(), count, kNaN, 1.0, 0.0, a, p, r, m, n), 0);
    QCOMPARE(a, 0.0);
    QCOMPARE(analyzeTone(window.data(), count, 0.0, 1.0, 0.0, a, p, r, m, n), 0);
    QCOMPARE(a, 0.0);
}

QTEST_GUILESS_MAIN(TestCalcRoutines)
#include "tst_calcroutines.moc"
