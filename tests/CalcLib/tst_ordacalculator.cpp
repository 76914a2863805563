#include "CalcLib/OrdaCalculator.h"
#include "SignalMaker.h"

#include <QTest>

#include <complex>

using namespace SignalMaker;
using Complex = std::complex<double>;

namespace {
const double kRatio = static_cast<double>(5e-5f);

DevConfig ordaConfig(double rate, int intervalMs, int stepMs = 8)
{
    DevConfig config;
    config.rowCount = 1;
    config.sampleRate = rate;
    config.intervalMs = intervalMs;
    config.windowSamples = static_cast<int32_t>(rate * intervalMs / 1000.0);
    config.stepMs = stepMs;
    config.shapeType = 1;
    config.varType = 1;
    return config;
}

struct Run
{
    CalcInput input;
    int status = -1;
    CalcResultRow result() const { return input.results[0]; }
};

std::vector<int32_t> rounded(const std::vector<double>& x)
{
    std::vector<int32_t> cells(x.size());
    for (size_t i = 0; i < x.size(); ++i)
        cells[i] = static_cast<int32_t>(std::lround(x[i]));
    return cells;
}

double blackmanNuttall(int i, int length)
{
    const double t = 2.0 * kPi * i / length;
    return 0.3635819 - 0.4891775 * std::cos(t) + 0.1365995 * std::cos(2 * t) - 0.0106411 * std::cos(3 * t);
}

// The bank's frequency after a fresh start, from its definition: the full window correlated with
// e^(j 2 pi n / N) under the window, against the same window one block earlier that lacks its
// first block.
double expectedFrequency(const std::vector<int32_t>& cells, int n, int m, int l)
{
    const int length = l * m;
    const int start = static_cast<int>(cells.size()) - length;
    double sum = 0.0;
    for (int i = 0; i < length; ++i)
        sum += blackmanNuttall(i, length);
    Complex full, partial;
    for (int i = 0; i < length; ++i) {
        const Complex turn = std::polar(1.0, 2.0 * kPi * i / n) * double(cells[start + i]) * 2.0 / sum;
        full += blackmanNuttall(i, length) * turn;
        if (i + m < length)
            partial += blackmanNuttall(i + m, length) * turn;
    }
    const double advance = n * std::arg(partial * std::conj(full)) / m / (2.0 * kPi);
    return 50.0 + 50.0 * advance;
}

// Chebyshev polynomial of degree d, for x >= 1 by cosh and acosh of the standard library.
double chebyshevAbove1(double d, double x)
{
    return std::cosh(d * std::acosh(x));
}
} // namespace

class TestOrdaCalculator : public QObject
{
    Q_OBJECT
private slots:
    void init_blockStructure_data();
    void init_blockStructure();
    void bank_window();
    void bank_coefficients();
    void bank_correctionTable();
    void bank_correctionLimitedToFour();

    void calc_sine50();
    void calc_frequencyFollowsTheSignal_data();
    void calc_frequencyFollowsTheSignal();
    void calc_blockPositionRunsOn();
    void calc_phaseStaysWhenTheWindowIsWholeTurns();
    void calc_readsLow16Bits();
    void calc_writesOnlyWhatItKnows();
    void calc_delay();
    void calc_degenerateConfigurations();
    void calc_windowShorterThanTheBank();
};

void TestOrdaCalculator::init_blockStructure_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("intervalMs");
    QTest::addColumn<int>("stepMs");
    QTest::addColumn<int>("n");
    QTest::addColumn<int>("m");
    QTest::addColumn<int>("l");
    QTest::addColumn<int>("g");
    QTest::newRow("8 ms, 1000 Hz, 40 ms") << 1000.0 << 40 << 8 << 20 << 8 << 5 << 5;
    QTest::newRow("4 ms, 1000 Hz, 40 ms") << 1000.0 << 40 << 4 << 20 << 4 << 10 << 5;
    QTest::newRow("8 ms, 1000 Hz, 60 ms") << 1000.0 << 60 << 8 << 20 << 8 << 7 << 5;
    QTest::newRow("8 ms, 10000 Hz, 40 ms") << 10000.0 << 40 << 8 << 200 << 80 << 5 << 5;
    QTest::newRow("8 ms, 1200 Hz, 40 ms") << 1200.0 << 40 << 8 << 24 << 9 << 5 << 8;
    // A block shorter than a sample becomes one sample of 1000 / rate ms.
    QTest::newRow("8 ms, 100 Hz, 40 ms") << 100.0 << 40 << 8 << 2 << 1 << 4 << 2;
}

void TestOrdaCalculator::init_blockStructure()
{
    QFETCH(double, rate);
    QFETCH(int, intervalMs);
    QFETCH(int, stepMs);
    QFETCH(int, n);
    QFETCH(int, m);
    QFETCH(int, l);
    QFETCH(int, g);
    OrdaCalculator orda;
    QCOMPARE(orda.init(ordaConfig(rate, intervalMs, stepMs)), 0);
    const PhasorFilterBank* bank = orda.bank();
    QVERIFY(bank);
    QCOMPARE(bank->periodSamples(), n);
    QCOMPARE(bank->blockSamples(), m);
    QCOMPARE(orda.blockSamples(), m);
    QCOMPARE(bank->blocks(), l);
    QCOMPARE(bank->phaseCount(), g);
    QCOMPARE(bank->rows(), 1);
    QCOMPARE(bank->blockIndex(), 0);
    QCOMPARE(bank->phaseIndex(), 0);
    QCOMPARE(bank->accumulatorIndex(), l - 1);
    QCOMPARE(bank->position(), 0);
}

void TestOrdaCalculator::bank_window()
{
    PhasorFilterBank bank(1, 20, 8, 5, kRatio);
    QVERIFY(std::fabs(bank.window(0) - (0.3635819 - 0.4891775 + 0.1365995 - 0.0106411)) < 1e-15);
    QVERIFY(std::fabs(bank.window(13) - blackmanNuttall(13, 40)) < 1e-15);
    // Over its whole period the cosines of the window sum to nothing.
    QVERIFY(std::fabs(bank.windowSum() - 40 * 0.3635819) < 1e-12);
}

void TestOrdaCalculator::bank_coefficients()
{
    PhasorFilterBank bank(1, 20, 8, 5, kRatio);
    for (int p = 0; p < 5; ++p) {
        for (int j = 0; j < 5; ++j) {
            for (int i = 0; i < 8; ++i) {
                const Complex expected = std::polar(
                    2.0 * blackmanNuttall(j * 8 + i, 40) / bank.windowSum(), (p * 8 + i) * 2.0 * kPi / 20);
                QVERIFY(std::abs(bank.coefficient(p, j, i) - expected) < 1e-15);
            }
            for (int b = 0; b < 5; ++b) {
                const int k = (j + 5 - b) % 5; // (b + k) mod L == j
                QVERIFY(bank.rotated(p, b, k)[3] == bank.coefficient(p, j, 3));
            }
        }
    }
}

void TestOrdaCalculator::bank_correctionTable()
{
    PhasorFilterBank bank(1, 20, 8, 5, kRatio);
    // No deviation, no correction; the fade starts from 1 at both ends.
    QVERIFY(std::fabs(bank.correction(4096) - 1.0) < 1e-12);
    QCOMPARE(bank.correction(0), 1.0);
    for (int i = 1; i < 4096; ++i)
        QCOMPARE(bank.correction(i), bank.correction(8192 - i));
    // The Dolph-Chebyshev response of length 40 at a deviation of 3000 / 8192 - 0.5.
    const double x0 = std::cosh(std::acosh(1.0 / kRatio) / 39.0);
    const double deviation = 3000.0 / 8192.0 - 0.5;
    const double response
        = chebyshevAbove1(39.0, x0 * std::cos(kPi * deviation / 20)) / chebyshevAbove1(39.0, x0);
    QVERIFY(std::fabs(bank.correction(3000) - 1.0 / response) < 1e-9);
    // In the fading quarter: a share of the full correction.
    const double atQuarter = 1.0
        / (chebyshevAbove1(39.0, x0 * std::cos(kPi * (1000.0 / 8192.0 - 0.5) / 20))
            / chebyshevAbove1(39.0, x0));
    QVERIFY(std::fabs(bank.correction(1000) - ((atQuarter - 1.0) * 1000.0 / 2048.0 + 1.0)) < 1e-9);
    for (int i = 0; i < 8192; ++i)
        QVERIFY(bank.correction(i) >= 1.0 - 1e-12 && bank.correction(i) <= 4.0);
}

void TestOrdaCalculator::bank_correctionLimitedToFour()
{
    // One sample a period, a window of two: the response of degree 1 is x itself, so the loss is
    // cos(pi * deviation), beyond a factor of 4 near the ends.
    PhasorFilterBank bank(1, 1, 1, 2, kRatio);
    const double deviation = 100.0 / 8192.0 - 0.5;
    QVERIFY(std::cos(kPi * deviation) < 0.25);
    QCOMPARE(bank.correction(100), 3.0 * 100.0 / 2048.0 + 1.0);
    QCOMPARE(bank.correction(8092), 3.0 * 100.0 / 2048.0 + 1.0);
}

void TestOrdaCalculator::calc_sine50()
{
    OrdaCalculator orda;
    DevConfig config = ordaConfig(1000.0, 40);
    config.multiplier = 0.01;
    orda.init(config);
    const std::vector<int32_t> cells = rounded(sine(40, 1000.0, 50.0, 10000.0));
    CalcInput input = makeInput(cells);
    QCOMPARE(orda.calc(input), 0);
    const CalcResultRow r = input.results[0];
    // Two whole periods under a window of whole periods: the image of the negative frequency
    // vanishes, the phasor is the amplitude with the cosine phase at the window's first sample.
    QVERIFY2(
        std::fabs(r.amplitude - 100.0) < 100.0 * 2e-4, qPrintable(QString::number(r.amplitude, 'g', 10)));
    QCOMPARE(r.rms, r.amplitude / 1.4142135623730951);
    QCOMPARE(r.firstHarmonic, r.rms);
    QVERIFY2(std::fabs(r.phase - -90.0) < 1e-3, qPrintable(QString::number(r.phase, 'g', 10)));
    // The advance compares the full window with one that lacks its first block: near 50, and
    // exactly what the definition gives.
    QVERIFY(std::fabs(r.frequency - 50.0) < 0.5);
    QVERIFY2(std::fabs(r.frequency - expectedFrequency(cells, 20, 8, 5)) < 1e-9,
        qPrintable(QString::number(r.frequency, 'g', 12)));
    QCOMPARE(orda.lastFrequency(), r.frequency);
    QVERIFY(std::fabs(std::hypot(orda.lastRe(), orda.lastIm()) - 10000.0) < 10000.0 * 2e-4);
    QCOMPARE(int(orda.rebuiltBlock(0).size()), 8);
}

void TestOrdaCalculator::calc_frequencyFollowsTheSignal_data()
{
    QTest::addColumn<double>("frequency");
    QTest::addColumn<int>("intervalMs");
    QTest::newRow("48 Hz, 80 ms") << 48.0 << 80;
    QTest::newRow("52 Hz, 80 ms") << 52.0 << 80;
    QTest::newRow("50 Hz, 80 ms") << 50.0 << 80;
    QTest::newRow("49 Hz, 40 ms") << 49.0 << 40;
}

void TestOrdaCalculator::calc_frequencyFollowsTheSignal()
{
    QFETCH(double, frequency);
    QFETCH(int, intervalMs);
    OrdaCalculator orda;
    orda.init(ordaConfig(1000.0, intervalMs));
    const std::vector<int32_t> cells = rounded(cosine(intervalMs, 1000.0, frequency, 20000.0, 0.4));
    CalcInput input = makeInput(cells);
    orda.calc(input);
    const PhasorFilterBank* bank = orda.bank();
    const double expected = expectedFrequency(cells, 20, 8, bank->blocks());
    QVERIFY2(std::fabs(input.results[0].frequency - expected) < 1e-9,
        qPrintable(QString::number(input.results[0].frequency, 'g', 12)));
    QVERIFY(std::fabs(input.results[0].frequency - frequency) < 0.5);
}

void TestOrdaCalculator::calc_blockPositionRunsOn()
{
    // 60 ms at 1000 Hz: 7 blocks of 8 samples, 5 block places in a period. Each calculation moves
    // the place by 7 mod 5 = 2 blocks, 16 samples, which turns the coefficients by 288 degrees:
    // the same window reports a phase 72 degrees further each time.
    OrdaCalculator orda;
    orda.init(ordaConfig(1000.0, 60));
    const std::vector<int32_t> cells = rounded(cosine(60, 1000.0, 50.0, 20000.0, 0.3));
    CalcInput input = makeInput(cells);
    orda.calc(input);
    const CalcResultRow first = input.results[0];
    QCOMPARE(orda.bank()->phaseIndex(), 2);
    QCOMPARE(orda.bank()->blockIndex(), 0);
    QCOMPARE(orda.bank()->accumulatorIndex(), 6);
    QCOMPARE(orda.bank()->position(), 56 % 20);
    orda.calc(input);
    const CalcResultRow second = input.results[0];
    QCOMPARE(orda.bank()->phaseIndex(), 4);
    orda.calc(input);
    const CalcResultRow third = input.results[0];
    QVERIFY(std::fabs(angleDifference(second.phase, first.phase) - 72.0) < 1e-9);
    QVERIFY(std::fabs(angleDifference(third.phase, second.phase) - 72.0) < 1e-9);
    QVERIFY(std::fabs(second.amplitude - first.amplitude) < 1e-9);
    QVERIFY(std::fabs(second.frequency - first.frequency) < 1e-9);
    QVERIFY(second.phase > -180.0 && second.phase <= 180.0);

    // A new init starts the place again.
    orda.init(ordaConfig(1000.0, 60));
    orda.calc(input);
    QVERIFY(std::fabs(input.results[0].phase - first.phase) < 1e-9);
}

void TestOrdaCalculator::calc_phaseStaysWhenTheWindowIsWholeTurns()
{
    // 40 ms at 1000 Hz: 5 blocks, 5 places; each calculation returns to the same place.
    OrdaCalculator orda;
    orda.init(ordaConfig(1000.0, 40));
    CalcInput input = makeInput(rounded(cosine(40, 1000.0, 50.0, 20000.0, 1.0)));
    orda.calc(input);
    const double first = input.results[0].phase;
    QVERIFY(std::fabs(first - 1.0 * 180.0 / kPi) < 1e-3);
    orda.calc(input);
    QCOMPARE(input.results[0].phase, first);
}

void TestOrdaCalculator::calc_readsLow16Bits()
{
    OrdaCalculator orda;
    orda.init(ordaConfig(1000.0, 40));
    const std::vector<int32_t> cells = rounded(sine(40, 1000.0, 50.0, 20000.0));
    CalcInput plain = makeInput(cells);
    orda.calc(plain);
    std::vector<int32_t> wide = cells;
    for (size_t i = 0; i < wide.size(); ++i)
        wide[i] += (i % 2 ? 65536 : -3 * 65536);
    CalcInput wrapped = makeInput(wide);
    orda.calc(wrapped);
    QCOMPARE(wrapped.results[0].amplitude, plain.results[0].amplitude);
    QCOMPARE(wrapped.results[0].phase, plain.results[0].phase);

    // 40000 is -25536 in 16 bits.
    CalcInput high = makeInput(std::vector<int32_t>(40, 40000));
    orda.calc(high);
    CalcInput negative = makeInput(std::vector<int32_t>(40, -25536));
    orda.calc(negative);
    QCOMPARE(high.results[0].amplitude, negative.results[0].amplitude);
    QCOMPARE(high.results[0].phase, negative.results[0].phase);
}

void TestOrdaCalculator::calc_writesOnlyWhatItKnows()
{
    OrdaCalculator orda;
    DevConfig config = ordaConfig(1000.0, 40);
    orda.init(config);
    CalcInput input = makeInput(rounded(sine(40, 1000.0, 50.0, 20000.0)));
    input.results[0].nonSinus = 12.5;
    input.results[0].dc = -3.0;
    orda.calc(input);
    const double withoutAdder = input.results[0].amplitude;
    QCOMPARE(input.results[0].nonSinus, 12.5);
    QCOMPARE(input.results[0].dc, -3.0);
    // The adder is not used.
    config.adder = 5000.0;
    orda.setConfig(config);
    orda.calc(input);
    QCOMPARE(input.results[0].amplitude, withoutAdder);
}

void TestOrdaCalculator::calc_delay()
{
    OrdaCalculator orda;
    DevConfig config = ordaConfig(1000.0, 40);
    orda.init(config);
    CalcInput input = makeInput(rounded(sine(40, 1000.0, 50.0, 20000.0)));
    orda.calc(input);
    const CalcResultRow plain = input.results[0];
    config.adcDelay = 1.5;
    orda.setConfig(config);
    orda.calc(input);
    // frequency * 360 * delay / rate, not wrapped afterwards.
    QVERIFY(
        std::fabs(input.results[0].phase - (plain.phase - plain.frequency * 360.0 * 1.5 / 1000.0)) < 1e-9);
}

void TestOrdaCalculator::calc_degenerateConfigurations()
{
    for (const DevConfig& config : { ordaConfig(40.0, 40), ordaConfig(1000.0, 10), ordaConfig(0.0, 40) }) {
        OrdaCalculator orda;
        QCOMPARE(orda.init(config), 0);
        QVERIFY(!orda.bank());
        CalcInput input = makeInput(std::vector<int32_t>(5, 100));
        input.results[0].rms = 7.0;
        QCOMPARE(orda.calc(input), 0);
        QCOMPARE(input.results[0].rms, 7.0);
    }
    DevConfig noRows = ordaConfig(1000.0, 40);
    noRows.rowCount = 0;
    OrdaCalculator orda;
    orda.init(noRows);
    QVERIFY(!orda.bank());
}

void TestOrdaCalculator::calc_windowShorterThanTheBank()
{
    // The bank spans 40 samples; a window of 12 reads the missing cells as 0.
    OrdaCalculator orda;
    orda.init(ordaConfig(1000.0, 40));
    CalcInput input = makeInput(std::vector<int32_t>(12, 1000));
    QCOMPARE(orda.calc(input), 0);
    QVERIFY(std::isfinite(input.results[0].amplitude));
}

QTEST_GUILESS_MAIN(TestOrdaCalculator)
#include "tst_ordacalculator.moc"
