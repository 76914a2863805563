#include "CalcLib/CalcRoutines.h"
#include "SignalMaker.h"

#include <QTest>

#include <complex>
#include <limits>
#include <random>

using namespace SignalMaker;
using Complex = std::complex<double>;

namespace {
// The Hermitian Toeplitz matrix from its generating column, as a dense matrix.
std::vector<std::vector<Complex>> denseToeplitz(const std::vector<double>& re, const std::vector<double>& im)
{
    const size_t n = re.size();
    std::vector<std::vector<Complex>> a(n, std::vector<Complex>(n));
    for (size_t r = 0; r < n; ++r) {
        for (size_t c = 0; c < n; ++c)
            a[r][c] = r >= c ? Complex(re[r - c], im[r - c]) : std::conj(Complex(re[c - r], im[c - r]));
    }
    return a;
}

// Gaussian elimination with partial pivoting.
std::vector<Complex> denseSolve(std::vector<std::vector<Complex>> a, std::vector<Complex> b)
{
    const size_t n = b.size();
    for (size_t col = 0; col < n; ++col) {
        size_t pivot = col;
        for (size_t r = col + 1; r < n; ++r) {
            if (std::abs(a[r][col]) > std::abs(a[pivot][col]))
                pivot = r;
        }
        std::swap(a[col], a[pivot]);
        std::swap(b[col], b[pivot]);
        for (size_t r = col + 1; r < n; ++r) {
            const Complex factor = a[r][col] / a[col][col];
            for (size_t c = col; c < n; ++c)
                a[r][c] -= factor * a[col][c];
            b[r] -= factor * b[col];
        }
    }
    std::vector<Complex> x(n);
    for (size_t i = n; i-- > 0;) {
        Complex sum = b[i];
        for (size_t c = i + 1; c < n; ++c)
            sum -= a[i][c] * x[c];
        x[i] = sum / a[i][i];
    }
    return x;
}

// A positive-definite Hermitian Toeplitz column: the autocorrelation of a complex sequence.
void autocorrelation(int order, unsigned seed, std::vector<double>& re, std::vector<double>& im)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> value(-1.0, 1.0);
    std::vector<Complex> s(static_cast<size_t>(order) * 3);
    for (auto& v : s)
        v = Complex(value(random), value(random));
    re.assign(static_cast<size_t>(order), 0.0);
    im.assign(static_cast<size_t>(order), 0.0);
    for (int k = 0; k < order; ++k) {
        Complex sum;
        for (size_t i = static_cast<size_t>(k); i < s.size(); ++i)
            sum += s[i] * std::conj(s[i - static_cast<size_t>(k)]);
        re[k] = sum.real();
        im[k] = sum.imag();
    }
}

struct Harmonic
{
    int number;
    double amplitude;
    double phase; // radians, of a cosine at the first sample
};

std::vector<double> harmonicSignal(
    int count, double rate, double fundamental, double dc, const std::vector<Harmonic>& harmonics)
{
    std::vector<double> x(static_cast<size_t>(count), dc);
    for (const auto& h : harmonics) {
        const std::vector<double> part = cosine(count, rate, fundamental * h.number, h.amplitude, h.phase);
        for (int i = 0; i < count; ++i)
            x[i] += part[i];
    }
    return x;
}

struct Spectrum
{
    int status = 99;
    int maxHarmonic = -99;
    std::vector<double> amplitudes;
    std::vector<double> phases;
    double kni = -1.0;
};

Spectrum spectrum(const std::vector<double>& x, double rate, int periods, double frequency,
    double multiplier = 1.0, double adder = 0.0)
{
    Spectrum s;
    s.status = measureSpectrum(x.data(), static_cast<int>(x.size()), rate, periods, multiplier, adder,
        frequency, s.maxHarmonic, s.amplitudes, s.phases, s.kni);
    return s;
}
} // namespace

class TestHarmonicFit : public QObject
{
    Q_OBJECT
private slots:
    void solveToeplitz_matchesDenseSolve_data();
    void solveToeplitz_matchesDenseSolve();
    void solveToeplitz_failures();
    void buildHarmonicSystem_isTheNormalEquations();
    void measureSpectrum_recoversHarmonics_data();
    void measureSpectrum_recoversHarmonics();
    void measureSpectrum_scaling();
    void measureSpectrum_dcWindow();
    void measureSpectrum_frequencyLimits_data();
    void measureSpectrum_frequencyLimits();
    void measureSpectrum_onePeriodAtNominalIsOneSampleShort();
    void measureSpectrum_harmonicLimits_data();
    void measureSpectrum_harmonicLimits();
    void analyzeHarmonics_emptyWindowFails();
};

void TestHarmonicFit::solveToeplitz_matchesDenseSolve_data()
{
    QTest::addColumn<int>("order");
    QTest::addColumn<unsigned>("seed");
    QTest::newRow("order 1") << 1 << 1u;
    QTest::newRow("order 2") << 2 << 2u;
    QTest::newRow("order 5") << 5 << 3u;
    QTest::newRow("order 21") << 21 << 4u;
    QTest::newRow("order 81, the largest the spectrum needs") << 81 << 5u;
}

void TestHarmonicFit::solveToeplitz_matchesDenseSolve()
{
    QFETCH(int, order);
    QFETCH(unsigned, seed);
    std::vector<double> tRe, tIm;
    autocorrelation(order, seed, tRe, tIm);
    std::mt19937 random(seed + 100);
    std::uniform_real_distribution<double> value(-10.0, 10.0);
    std::vector<double> re(static_cast<size_t>(order)), im(static_cast<size_t>(order));
    std::vector<Complex> b(static_cast<size_t>(order));
    for (int i = 0; i < order; ++i) {
        re[i] = value(random);
        im[i] = value(random);
        b[i] = Complex(re[i], im[i]);
    }
    const std::vector<Complex> expected = denseSolve(denseToeplitz(tRe, tIm), b);
    QCOMPARE(solveToeplitz(order, tRe.data(), tIm.data(), re.data(), im.data()), 0);
    double scale = 0.0;
    for (const auto& v : expected)
        scale = std::max(scale, std::abs(v));
    for (int i = 0; i < order; ++i)
        QVERIFY2(
            std::abs(Complex(re[i], im[i]) - expected[i]) < 1e-9 * scale, qPrintable(QString::number(i)));
}

void TestHarmonicFit::solveToeplitz_failures()
{
    double re[] = { 1.0, 2.0 };
    double im[] = { 0.0, 0.0 };
    const double zeroRe[] = { 0.0, 0.5 };
    const double zeroIm[] = { 0.0, 0.0 };
    QCOMPARE(solveToeplitz(2, zeroRe, zeroIm, re, im), -1);
    const double negativeRe[] = { -1.0, 0.5 };
    QCOMPARE(solveToeplitz(2, negativeRe, zeroIm, re, im), -1);
    // |t1| = t0: the second prediction error is 0, a singular matrix.
    const double singularRe[] = { 1.0, 1.0 };
    QCOMPARE(solveToeplitz(2, singularRe, zeroIm, re, im), -1);
    // Not positive definite: |t1| > t0.
    const double indefiniteRe[] = { 1.0, 0.0, 0.0 };
    const double indefiniteIm[] = { 0.0, 2.0, 0.0 };
    double re3[] = { 1.0, 1.0, 1.0 };
    double im3[] = { 0.0, 0.0, 0.0 };
    QCOMPARE(solveToeplitz(3, indefiniteRe, indefiniteIm, re3, im3), -1);
    const double nanRe[] = { std::numeric_limits<double>::quiet_NaN(), 0.0 };
    QCOMPARE(solveToeplitz(2, nanRe, zeroIm, re, im), -1);
}

void TestHarmonicFit::buildHarmonicSystem_isTheNormalEquations()
{
    // Column: sum of e^(-j 2 pi f q i); right side: sum of y e^(-j 2 pi f k i), by direct sums.
    const int n = 57;
    const int m = 6;
    const double f = 0.0473;
    const std::vector<double> y = harmonicSignal(n, 1.0, f, 3.0, { { 1, 10.0, 0.4 }, { 3, 2.0, -1.0 } });
    std::vector<double> tRe(2 * m + 1), tIm(2 * m + 1), fitRe(2 * m + 1), fitIm(2 * m + 1);
    buildHarmonicSystem(y.data(), n, f, m, tRe.data(), tIm.data(), fitRe.data(), fitIm.data());
    for (int q = 0; q <= 2 * m; ++q) {
        Complex sum;
        for (int i = 0; i < n; ++i)
            sum += std::polar(1.0, -2.0 * kPi * f * q * i);
        QVERIFY2(std::abs(Complex(tRe[q], tIm[q]) - sum) < 1e-9, qPrintable(QString::number(q)));
    }
    for (int k = -m; k <= m; ++k) {
        Complex sum;
        for (int i = 0; i < n; ++i)
            sum += y[i] * std::polar(1.0, -2.0 * kPi * f * k * i);
        QVERIFY2(std::abs(Complex(fitRe[m + k], fitIm[m + k]) - sum) < 1e-9, qPrintable(QString::number(k)));
    }
}

void TestHarmonicFit::measureSpectrum_recoversHarmonics_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<double>("frequency");
    QTest::addColumn<int>("periods");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("maxHarmonic");
    // 5000 / 49.3: no whole number of samples a period; 2 periods are 203 samples.
    QTest::newRow("49.3 Hz at 5000 Hz, 2 periods") << 5000.0 << 49.3 << 2 << 210 << 40;
    QTest::newRow("50 Hz at 4000 Hz, 2 periods") << 4000.0 << 50.0 << 2 << 160 << 39;
    QTest::newRow("52.7 Hz at 2400 Hz, 4 periods") << 2400.0 << 52.7 << 4 << 200 << 21;
}

void TestHarmonicFit::measureSpectrum_recoversHarmonics()
{
    QFETCH(double, rate);
    QFETCH(double, frequency);
    QFETCH(int, periods);
    QFETCH(int, count);
    QFETCH(int, maxHarmonic);
    std::vector<Harmonic> harmonics { { 1, 100.0, 0.3 } };
    for (int k = 2; k <= 11; ++k)
        harmonics.push_back({ k, 30.0 / k, -2.5 + 0.45 * k });
    const std::vector<double> x = harmonicSignal(count, rate, frequency, -4.0, harmonics);
    const Spectrum s = spectrum(x, rate, periods, frequency);
    QCOMPARE(s.status, 0);
    QCOMPARE(s.maxHarmonic, maxHarmonic);
    QCOMPARE(int(s.amplitudes.size()), maxHarmonic + 1);
    QCOMPARE(int(s.phases.size()), maxHarmonic + 1);
    QVERIFY(std::fabs(s.amplitudes[0] - -4.0) < 1e-7);
    QCOMPARE(s.phases[0], 0.0);
    double squares = 0.0;
    for (const auto& h : harmonics) {
        QVERIFY2(
            std::fabs(s.amplitudes[h.number] - h.amplitude) < 1e-7, qPrintable(QString::number(h.number)));
        // Degrees by the short factor 57.29578.
        QVERIFY2(
            std::fabs(s.phases[h.number] - h.phase * 57.29578) < 1e-6, qPrintable(QString::number(h.number)));
        if (h.number >= 2)
            squares += h.amplitude * h.amplitude;
    }
    for (int k = 12; k <= maxHarmonic; ++k)
        QVERIFY2(s.amplitudes[k] < 1e-7, qPrintable(QString::number(k)));
    QVERIFY(std::fabs(s.kni - 100.0 / 100.0 * std::sqrt(squares)) < 1e-7);
}

void TestHarmonicFit::measureSpectrum_scaling()
{
    // Physical = raw * 2 + 10, the adder given as 10 / 2.
    const std::vector<double> raw
        = harmonicSignal(210, 5000.0, 49.3, 0.0, { { 1, 50.0, 1.0 }, { 2, 5.0, 0.0 } });
    const Spectrum s = spectrum(raw, 5000.0, 2, 49.3, 2.0, 5.0);
    QCOMPARE(s.status, 0);
    QVERIFY(std::fabs(s.amplitudes[0] - 10.0) < 1e-7);
    QVERIFY(std::fabs(s.amplitudes[1] - 100.0) < 1e-7);
    QVERIFY(std::fabs(s.amplitudes[2] - 10.0) < 1e-7);
    QVERIFY(std::fabs(s.kni - 10.0) < 1e-7);
}

void TestHarmonicFit::measureSpectrum_dcWindow()
{
    const Spectrum s = spectrum(std::vector<double>(400, 123.0), 10000.0, 2, 50.0);
    QCOMPARE(s.status, 0);
    QCOMPARE(s.maxHarmonic, 40);
    QVERIFY(std::fabs(s.amplitudes[0] - 123.0) < 1e-7);
    for (int k = 1; k <= 40; ++k)
        QVERIFY(s.amplitudes[k] < 1e-7);
}

void TestHarmonicFit::measureSpectrum_frequencyLimits_data()
{
    QTest::addColumn<double>("frequency");
    QTest::addColumn<int>("status");
    QTest::newRow("9.9 Hz") << 9.9 << -1;
    QTest::newRow("10 Hz") << 10.0 << 0;
    QTest::newRow("100 Hz") << 100.0 << 0;
    QTest::newRow("100.1 Hz") << 100.1 << -1;
}

void TestHarmonicFit::measureSpectrum_frequencyLimits()
{
    QFETCH(double, frequency);
    QFETCH(int, status);
    const std::vector<double> x = harmonicSignal(1000, 1000.0, frequency, 0.0, { { 1, 10.0, 0.0 } });
    QCOMPARE(spectrum(x, 1000.0, 2, frequency).status, status);
}

void TestHarmonicFit::measureSpectrum_onePeriodAtNominalIsOneSampleShort()
{
    // One period of 50 Hz at 1000 Hz is 20 samples, plus 1 for a single period: 21 > 20.
    const std::vector<double> x = harmonicSignal(20, 1000.0, 50.0, 0.0, { { 1, 10.0, 0.0 } });
    QCOMPARE(spectrum(x, 1000.0, 1, 50.0).status, -1);
    QCOMPARE(spectrum(x, 1000.0, 1, 49.0).status, -1);
    // A faster signal's period fits: 1000 / 52.7 + 0.5 gives 19, plus 1.
    const Spectrum fast = spectrum(x, 1000.0, 1, 52.7);
    QCOMPARE(fast.status, 0);
    QCOMPARE(fast.maxHarmonic, 7);
}

void TestHarmonicFit::measureSpectrum_harmonicLimits_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("periods");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("maxHarmonic");
    // Nyquist 40 at 4000 Hz: 39 harmonics at most.
    QTest::newRow("4000 Hz, 10 periods") << 4000.0 << 10 << 800 << 0 << 39;
    // The cap of 40 at 10000 Hz.
    QTest::newRow("10000 Hz, 2 periods") << 10000.0 << 2 << 400 << 0 << 40;
    // Five samples of a period: m = 0.
    QTest::newRow("200 Hz, too few samples") << 200.0 << 1 << 5 << -1 << 0;
    // 150 Hz: Nyquist 1, limit 0, although the window would allow 2.
    QTest::newRow("150 Hz, no room below Nyquist") << 150.0 << 3 << 9 << -1 << 0;
    // m = 2 from 9 samples, limit 2 at 300 Hz: kept.
    QTest::newRow("300 Hz, two harmonics") << 300.0 << 3 << 18 << 0 << 2;
}

void TestHarmonicFit::measureSpectrum_harmonicLimits()
{
    QFETCH(double, rate);
    QFETCH(int, periods);
    QFETCH(int, count);
    QFETCH(int, status);
    QFETCH(int, maxHarmonic);
    const std::vector<double> x = harmonicSignal(count, rate, 50.0, 0.0, { { 1, 10.0, 0.2 } });
    const Spectrum s = spectrum(x, rate, periods, 50.0);
    QCOMPARE(s.status, status);
    QCOMPARE(s.maxHarmonic, maxHarmonic);
    if (status == 0)
        QVERIFY(std::fabs(s.amplitudes[1] - 10.0) < 1e-7);
}

void TestHarmonicFit::analyzeHarmonics_emptyWindowFails()
{
    std::vector<double> amplitudes, phases;
    double kni = 0.0;
    QCOMPARE(analyzeHarmonics(nullptr, 0, 0.05, amplitudes, phases, 3, kni), -1);
}

QTEST_GUILESS_MAIN(TestHarmonicFit)
#include "tst_harmonicfit.moc"
