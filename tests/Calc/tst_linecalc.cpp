#include "Calc/CalcModule.h"
#include "Calc/UnitForCalcSignal.h"
#include "ThreePhaseRecord.h"

#include <QTest>

#include <cmath>
#include <complex>
#include <limits>

using namespace ThreePhaseRecord;
using Complex = std::complex<double>;

namespace {
constexpr int kSamples = 1400;
constexpr double kZ0 = 3.0;
constexpr double kZ1 = 1.0;

// The line's phasors as the module must find them at a sample: the cosines at the window's first
// sample, in physical peak values.
struct Phasors
{
    Complex u[3];
    Complex i[3];
};

Phasors phasorsAt(const Line& line, int sample)
{
    Phasors p;
    for (int k = 0; k < 3; ++k) {
        p.u[k] = phasorAt(line.voltages[k], sample - kWindow);
        p.i[k] = phasorAt(line.currents[k], sample - kWindow);
    }
    return p;
}

const Complex kA = std::polar(1.0, 2.0 * kPi / 3.0);

// Sequence sums without the division by three: 0 zero, 1 positive, 2 negative.
Complex sequence(const Complex (&x)[3], int which)
{
    switch (which) {
    case 1:
        return x[0] + kA * x[1] + kA * kA * x[2];
    case 2:
        return x[0] + kA * kA * x[1] + kA * x[2];
    default:
        return x[0] + x[1] + x[2];
    }
}

double degreesOf(Complex ratio)
{
    return std::arg(ratio) * 180.0 / kPi;
}

// The value of each code from the phasors by the textbook quantities: instantaneous values are the
// real parts of the phasors, impedances the quotient of the phasors, powers the half product with
// the conjugate current.
double expectedValue(const Phasors& p, int code)
{
    const bool currents = (code >= 4 && code <= 7) || (code >= 11 && code <= 13);
    const Complex(&x)[3] = currents ? p.i : p.u;
    if (code <= 7) {
        switch (code % 4) {
        case 0:
            return sequence(x, 0).real();
        case 1:
            return sequence(x, 0).real() / 3.0;
        default:
            return sequence(x, code % 4 - 1).real() / 3.0;
        }
    }
    if (code <= 13) {
        const int k = (code - 8) % 3;
        return (x[k] - x[(k + 1) % 3]).real();
    }
    if (code <= 16)
        return (sequence(p.u, code - 14) / sequence(p.i, code - 14)).real();
    if (code <= 19)
        return (sequence(p.u, code - 17) / sequence(p.i, code - 17)).imag();
    if (code <= 25) {
        const Complex z = p.u[(code - 20) / 2] / p.i[(code - 20) / 2];
        return code % 2 == 0 ? z.real() : z.imag();
    }
    if (code <= 27)
        return 0.0;
    if (code <= 33) {
        const int k = (code - 28) / 2;
        const Complex s = 0.5 * p.u[k] * std::conj(p.i[k]);
        return code % 2 == 0 ? s.real() : s.imag();
    }
    if (code <= 35) {
        Complex s;
        for (int k = 0; k < 3; ++k)
            s += 0.5 * p.u[k] * std::conj(p.i[k]);
        return code == 34 ? s.real() : s.imag();
    }
    if (code <= 38) {
        const int k = code - 36;
        const double compensation = (kZ0 - kZ1) / (3.0 * kZ1);
        return std::abs(p.u[k]) / (std::abs(p.i[k]) + compensation * sequence(p.i, 0).real());
    }
    if (code == 39)
        return kFrequency;
    if (code <= 41)
        return degreesOf(p.u[code - 39] / p.u[0]);
    return degreesOf(p.i[code - 42] / p.u[0]);
}

// How exact a code can be: the window is rounded to whole raw units and the frequency is found by
// level crossings, so a few parts in 1e5 of the quantities a value is made of.
double toleranceFor(const Phasors& p, int code, double expected)
{
    if (UnitForCalcSignal::isAngle(code))
        return 0.01;
    if (UnitForCalcSignal::isFreq(code))
        return 1e-3;
    if (UnitForCalcSignal::isVoltage(code))
        return 1e-4 * (std::abs(p.u[0]) + std::abs(p.u[1]) + std::abs(p.u[2]));
    if (UnitForCalcSignal::isCurrent(code))
        return 1e-4 * (std::abs(p.i[0]) + std::abs(p.i[1]) + std::abs(p.i[2]));
    return 1e-3 * std::max(1.0, std::abs(expected));
}
} // namespace

class TestLineCalc : public QObject
{
    Q_OBJECT
private slots:
    void lineSignalAtSample_data();
    void lineSignalAtSample();
    void milliGivesThousandths();
    void measurementsAreThePhasorsAtTheWindowStart();
    void belowTheWindowPhasorsVanish();
    void belowTheWindowSignalsAreZero();
    void primaryAndSecondary_data();
    void primaryAndSecondary();
    void missingPhaseKeepsItsLastMeasurement();
    void frequencyComesFromVoltageA();
    void zeroZ1SetsTheError();
    void vanishingDenominatorSetsTheError();
    void nextMeasurementClearsTheError();
    void vanishingCurrentIsKeptOffZero_data();
    void vanishingCurrentIsKeptOffZero();
    void anglesToVoltageA_data();
    void anglesToVoltageA();
    void vacantAndUnknownCodesGiveZero();
    void signalTexts_data();
    void signalTexts();
};

void TestLineCalc::lineSignalAtSample_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("sample");
    for (int sample : { 731, 1000, kWindow }) {
        for (int code = 0; code < CalcModule::lineSignalCount; ++code) {
            const QString text = CalcModule::lineSignalText(code);
            const QByteArray name = QStringLiteral("code %1 %2 at %3")
                                        .arg(code)
                                        .arg(text.isEmpty() ? QStringLiteral("(vacant)") : text)
                                        .arg(sample)
                                        .toUtf8();
            QTest::newRow(name.constData()) << code << sample;
        }
    }
}

void TestLineCalc::lineSignalAtSample()
{
    QFETCH(int, code);
    QFETCH(int, sample);
    const Line line(kSamples);
    CalcModule module;
    DevConfig config;
    config.rowCount = 1;
    config.sampleRate = kRate;
    config.windowSamples = kWindow;
    config.intervalMs = 40;
    config.stepMs = 8;
    config.varType = 2;
    config.constType = 2;
    module.init(config);
    module.initLineCalc({ line.voltageChannels, line.currentChannels }, sample, kZ0, kZ1);

    const Phasors p = phasorsAt(line, sample);
    const double expected = expectedValue(p, code);
    const double actual = module.calculateLineSignals(code, sample, false);
    double difference = actual - expected;
    if (UnitForCalcSignal::isAngle(code))
        difference = std::remainder(difference, 360.0);
    const double tolerance = toleranceFor(p, code, expected);
    QVERIFY2(std::abs(difference) <= tolerance,
        qPrintable(QStringLiteral("%1 expected %2, difference %3, tolerance %4")
                       .arg(actual, 0, 'g', 12)
                       .arg(expected, 0, 'g', 12)
                       .arg(difference)
                       .arg(tolerance)));
    QVERIFY(!module.isError());
}

namespace {
DevConfig lineConfig()
{
    DevConfig config;
    config.rowCount = 1;
    config.sampleRate = kRate;
    config.windowSamples = kWindow;
    config.intervalMs = 40;
    config.stepMs = 8;
    config.varType = 2;
    config.constType = 2;
    return config;
}

PhasesPointers phasesOf(const Line& line)
{
    return { line.voltageChannels, line.currentChannels };
}

bool sameAngle(double a, double b, double tolerance)
{
    return std::abs(std::remainder(a - b, 2.0 * kPi)) <= tolerance;
}
} // namespace

void TestLineCalc::milliGivesThousandths()
{
    const Line line(kSamples);
    CalcModule module;
    module.init(lineConfig());
    module.initLineCalc(phasesOf(line), 800, kZ0, kZ1);
    for (int code :
        { int(SignalU1), int(SignalRa), int(SignalQSum), int(SignalFrequency), int(SignalAngleIbUa) })
        QCOMPARE(module.calculateLineSignals(code, 800, true),
            module.calculateLineSignals(code, 800, false) * 1000.0);
}

void TestLineCalc::measurementsAreThePhasorsAtTheWindowStart()
{
    const Line line(kSamples);
    CalcModule module;
    module.init(lineConfig());
    const int sample = 987;
    module.initLineCalc(phasesOf(line), sample, kZ0, kZ1);
    const Phasors p = phasorsAt(line, sample);
    const LineCalc& calc = *module.lineCalc();
    for (int k = 0; k < 3; ++k) {
        QVERIFY(std::abs(calc.voltageAmplitude(k) - std::abs(p.u[k])) < 1e-3);
        QVERIFY(std::abs(calc.currentAmplitude(k) - std::abs(p.i[k])) < 1e-4);
        QVERIFY(sameAngle(calc.voltagePhase(k), std::arg(p.u[k]), 1e-4));
        QVERIFY(sameAngle(calc.currentPhase(k), std::arg(p.i[k]), 1e-4));
    }
    QVERIFY(std::abs(calc.frequency() - kFrequency) < 1e-3);
    QCOMPARE(calc.z0(), kZ0);
    QCOMPARE(calc.z1(), kZ1);
    QCOMPARE(calc.voltages(), line.voltageChannels);
    QCOMPARE(calc.currents(), line.currentChannels);
}

void TestLineCalc::belowTheWindowPhasorsVanish()
{
    const Line line(kSamples);
    CalcModule module;
    module.init(lineConfig());
    module.initLineCalc(phasesOf(line), 800, kZ0, kZ1);
    QVERIFY(module.lineCalc()->frequency() > 49.0);
    module.initLineCalc(phasesOf(line), kWindow - 1, kZ0, kZ1);
    const LineCalc& calc = *module.lineCalc();
    for (int k = 0; k < 3; ++k) {
        QCOMPARE(calc.voltageAmplitude(k), 1e-10);
        QCOMPARE(calc.voltagePhase(k), 1e-10);
        QCOMPARE(calc.currentAmplitude(k), 1e-10);
        QCOMPARE(calc.currentPhase(k), 1e-10);
    }
    QCOMPARE(calc.frequency(), 0.0);
}

void TestLineCalc::belowTheWindowSignalsAreZero()
{
    const Line line(kSamples);
    CalcModule module;
    module.init(lineConfig());
    module.initLineCalc(phasesOf(line), 800, kZ0, kZ1);
    for (int code = 0; code < CalcModule::lineSignalCount; ++code) {
        for (int sample : { -1, 0, kWindow - 1 }) {
            QCOMPARE(module.calculateLineSignals(code, sample, false), 0.0);
            QCOMPARE(module.calculateLineSignals(code, sample, true), 0.0);
        }
    }
    // The sample only decides whether a value exists: the phasors are those of the last measurement.
    QVERIFY(module.calculateLineSignals(SignalFrequency, kWindow, false) > 49.0);
}

void TestLineCalc::primaryAndSecondary_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<int>("modePS");
    QTest::addColumn<double>("factor");
    // Primary 1000, secondary 10.
    QTest::newRow("primary values shown primary") << 0 << 0 << 1.0;
    QTest::newRow("primary values shown secondary") << 0 << 1 << 0.01;
    QTest::newRow("secondary values shown primary") << 1 << 0 << 100.0;
    QTest::newRow("secondary values shown secondary") << 1 << 1 << 1.0;
    QTest::newRow("unknown side 2 stays in primary mode") << 2 << 0 << 1.0;
    QTest::newRow("unknown side 2 stays in secondary mode") << 2 << 1 << 1.0;
    QTest::newRow("primary values in unknown mode 2") << 0 << 2 << 1.0;
}

void TestLineCalc::primaryAndSecondary()
{
    QFETCH(int, side);
    QFETCH(int, modePS);
    QFETCH(double, factor);
    const Line line(kSamples);
    for (const auto& list : { line.voltageChannels, line.currentChannels }) {
        for (const auto& channel : list) {
            channel->setPs(AnalogChannel::PrimaryOrSecondary(side));
            channel->setPrimary(1000.0);
            channel->setSecondary(10.0);
        }
    }
    QCOMPARE(LineCalc::convertToMode(3.0, *line.voltageChannels[0], modePS), 3.0 * factor);

    CalcModule module;
    module.init(lineConfig());
    module.setModePS(modePS);
    const int sample = 800;
    module.initLineCalc(phasesOf(line), sample, kZ0, kZ1);
    const Phasors p = phasorsAt(line, sample);
    QVERIFY(std::abs(module.lineCalc()->voltageAmplitude(0) - 57.0 * factor) < 2e-5 * 57.0 * factor);
    QVERIFY(std::abs(module.lineCalc()->currentAmplitude(2) - 3.0 * factor) < 2e-4 * 3.0 * factor);
    const double power = expectedValue(p, SignalPa) * factor * factor;
    QVERIFY(std::abs(module.calculateLineSignals(SignalPa, sample, false) - power) < 1e-3 * std::abs(power));
    // An impedance is a ratio: the side does not change it.
    const double resistance = expectedValue(p, SignalRa);
    QVERIFY(std::abs(module.calculateLineSignals(SignalRa, sample, false) - resistance)
        < 1e-3 * std::abs(resistance));
}

void TestLineCalc::missingPhaseKeepsItsLastMeasurement()
{
    const Line line(kSamples);
    CalcModule module;
    module.init(lineConfig());
    PhasesPointers partial = phasesOf(line);
    partial.voltages[1].reset();
    partial.currents.removeLast();
    // On a new module a missing phase is 0.
    module.initLineCalc(partial, 800, kZ0, kZ1);
    QCOMPARE(module.lineCalc()->voltageAmplitude(1), 0.0);
    QCOMPARE(module.lineCalc()->voltagePhase(1), 0.0);
    QCOMPARE(module.lineCalc()->currentAmplitude(2), 0.0);
    QCOMPARE(module.lineCalc()->currentPhase(2), 0.0);
    QVERIFY(module.lineCalc()->voltageAmplitude(0) > 56.0);

    module.initLineCalc(phasesOf(line), 800, kZ0, kZ1);
    const double ubAmplitude = module.lineCalc()->voltageAmplitude(1);
    const double ubPhase = module.lineCalc()->voltagePhase(1);
    const double icPhase = module.lineCalc()->currentPhase(2);
    const double uaPhase = module.lineCalc()->voltagePhase(0);
    module.initLineCalc(partial, 843, kZ0, kZ1);
    QCOMPARE(module.lineCalc()->voltageAmplitude(1), ubAmplitude);
    QCOMPARE(module.lineCalc()->voltagePhase(1), ubPhase);
    QCOMPARE(module.lineCalc()->currentPhase(2), icPhase);
    QVERIFY(!sameAngle(module.lineCalc()->voltagePhase(0), uaPhase, 0.1));
    QCOMPARE(module.lineCalc()->voltages(), partial.voltages);
}

void TestLineCalc::frequencyComesFromVoltageA()
{
    Line line(kSamples);
    line.voltageChannels[0]->setChanType(0);
    CalcModule module;
    module.init(lineConfig());
    module.initLineCalc(phasesOf(line), 800, kZ0, kZ1);
    QCOMPARE(module.calculateLineSignals(SignalFrequency, 800, false), 0.0);
    line.currentChannels[1]->setChanType(1);
    module.initLineCalc(phasesOf(line), 800, kZ0, kZ1);
    QVERIFY(std::abs(module.calculateLineSignals(SignalFrequency, 800, false) - kFrequency) < 1e-3);
}

void TestLineCalc::zeroZ1SetsTheError()
{
    const Line line(kSamples);
    CalcModule module;
    module.init(lineConfig());
    module.initLineCalc(phasesOf(line), 800, 0.0, 0.0);
    QVERIFY(!module.isError());
    QVERIFY(std::isfinite(module.calculateLineSignals(SignalRa, 800, false)));
    QVERIFY(!module.isError());
    // 0 / 0 compensation: undefined.
    QVERIFY(std::isnan(module.calculateLineSignals(SignalZa, 800, false)));
    QVERIFY(module.isError());
    QCOMPARE(module.lineCalc()->error(), 1);

    // An infinite compensation over a current sum that is not 0 makes an infinite denominator, and
    // the impedance comes out as 0.
    module.initLineCalc(phasesOf(line), 800, kZ0, 0.0);
    QVERIFY(!module.isError());
    QVERIFY(module.calculateLineSignals(SignalZb, 800, false) == 0.0);
    QVERIFY(module.isError());
}

void TestLineCalc::vanishingDenominatorSetsTheError()
{
    LineCalc calc;
    // Compensation (4 - 1) / 3 = 1 and a current sum of 1 - 2 = -1 cancel phase a's 1.
    calc.startMeasurement({}, 4.0, 1.0);
    calc.setVoltage(0, 10.0, 0.0);
    calc.setCurrent(0, 1.0, 0.0);
    calc.setCurrent(1, 2.0, kPi);
    calc.setCurrent(2, 0.0, 0.0);
    QVERIFY(std::isinf(calc.value(SignalZa)));
    QVERIFY(calc.isError());
    calc.startMeasurement({}, 4.0, 1.0);
    QVERIFY(!calc.isError());
    QCOMPARE(calc.value(SignalZb), 0.0 / 1.0);
    QVERIFY(std::abs(calc.value(SignalZb)) < 1e-300);
    QVERIFY(!calc.isError());
}

void TestLineCalc::nextMeasurementClearsTheError()
{
    const Line line(kSamples);
    CalcModule module;
    module.init(lineConfig());
    module.initLineCalc(phasesOf(line), 800, kZ0, 0.0);
    module.calculateLineSignals(SignalZc, 800, false);
    QVERIFY(module.isError());
    module.initLineCalc(phasesOf(line), 800, kZ0, kZ1);
    QVERIFY(!module.isError());
    const Phasors p = phasorsAt(line, 800);
    QVERIFY(std::abs(module.calculateLineSignals(SignalZc, 800, false) - expectedValue(p, SignalZc)) < 1e-2);
    QVERIFY(!module.isError());
}

void TestLineCalc::vanishingCurrentIsKeptOffZero_data()
{
    QTest::addColumn<double>("current");
    QTest::addColumn<double>("stored");
    QTest::newRow("0 becomes 1e-10") << 0.0 << 1e-10;
    QTest::newRow("5e-11 becomes 1e-10") << 5e-11 << 1e-10;
    QTest::newRow("1e-10 stays") << 1e-10 << 1e-10;
    QTest::newRow("2e-10 stays") << 2e-10 << 2e-10;
    QTest::newRow("-5e-11 becomes -1e-10") << -5e-11 << -1e-10;
    QTest::newRow("-1e-10 stays") << -1e-10 << -1e-10;
    QTest::newRow("-3 stays") << -3.0 << -3.0;
}

void TestLineCalc::vanishingCurrentIsKeptOffZero()
{
    QFETCH(double, current);
    QFETCH(double, stored);
    for (int phase = 0; phase < 3; ++phase) {
        for (bool reactance : { false, true }) {
            LineCalc calc;
            calc.setVoltage(phase, 2.0, 0.3);
            calc.setCurrent(phase, current, 0.1);
            const double value = calc.value(SignalRa + 2 * phase + (reactance ? 1 : 0));
            QCOMPARE(calc.currentAmplitude(phase), stored);
            const double expected = 2.0 * (reactance ? std::sin(0.2) : std::cos(0.2)) / stored;
            QVERIFY(std::abs(value - expected) <= 1e-12 * std::abs(expected));
        }
    }
}

void TestLineCalc::anglesToVoltageA_data()
{
    QTest::addColumn<double>("ua");
    QTest::addColumn<double>("other");
    QTest::addColumn<double>("angle");
    QTest::newRow("90 ahead") << 0.0 << 90.0 << 90.0;
    QTest::newRow("190 ahead is 170 behind") << 0.0 << 190.0 << -170.0;
    QTest::newRow("190 behind is 170 ahead") << 0.0 << -190.0 << 170.0;
    QTest::newRow("180 ahead stays 180") << 0.0 << 180.0 << 180.0;
    QTest::newRow("180 behind is 180") << 0.0 << -180.0 << 180.0;
    QTest::newRow("across 360: 350 to 10") << 350.0 << 10.0 << 20.0;
    QTest::newRow("across 360: 10 to 350") << 10.0 << 350.0 << -20.0;
    QTest::newRow("two turns ahead") << -100.0 << 650.0 << 30.0;
    QTest::newRow("800 behind: -80") << 0.0 << -800.0 << -80.0;
    // Beyond two turns behind the formula's remainder stays negative, as it stands.
    QTest::newRow("1000 behind stays -280") << 0.0 << -1000.0 << -280.0;
}

void TestLineCalc::anglesToVoltageA()
{
    QFETCH(double, ua);
    QFETCH(double, other);
    QFETCH(double, angle);
    LineCalc calc;
    calc.setVoltage(0, 1.0, radians(ua));
    calc.setVoltage(1, 1.0, radians(other));
    calc.setVoltage(2, 1.0, radians(other));
    for (int k = 0; k < 3; ++k)
        calc.setCurrent(k, 1.0, radians(other));
    for (int code = SignalAngleUbUa; code <= SignalAngleIcUa; ++code)
        QVERIFY2(std::abs(calc.value(code) - angle) < 1e-9,
            qPrintable(QString::number(calc.value(code), 'g', 17)));
}

void TestLineCalc::vacantAndUnknownCodesGiveZero()
{
    const Line line(kSamples);
    CalcModule module;
    module.init(lineConfig());
    module.initLineCalc(phasesOf(line), 800, kZ0, kZ1);
    for (int code : { 26, 27, -1, 45, 1000 }) {
        QCOMPARE(module.calculateLineSignals(code, 800, false), 0.0);
        QCOMPARE(module.calculateLineSignals(code, 800, true), 0.0);
    }
}

void TestLineCalc::signalTexts_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    const QStringList texts { "3U0", "U0", "U1", "U2", "3I0", "I0", "I1", "I2", "Uab", "Ubc", "Uca", "Iab",
        "Ibc", "Ica", "R0", "R1", "R2", "X0", "X1", "X2", "Ra", "Xa", "Rb", "Xb", "Rc", "Xc", "", "", "Pa",
        "Qa", "Pb", "Qb", "Pc", "Qc", QStringLiteral("P сумма фаз"), QStringLiteral("Q сумма фаз"), "Za",
        "Zb", "Zc", QStringLiteral("Частота"), QStringLiteral("Угол Ub-Ua"), QStringLiteral("Угол Uc-Ua"),
        QStringLiteral("Угол Ia-Ua"), QStringLiteral("Угол Ib-Ua"), QStringLiteral("Угол Ic-Ua") };
    QCOMPARE(texts.size(), 45);
    for (int code = 0; code < texts.size(); ++code)
        QTest::newRow(qPrintable(QStringLiteral("code %1").arg(code))) << code << texts[code];
    QTest::newRow("code 45 has none") << 45 << QString();
    QTest::newRow("code -1 has none") << -1 << QString();
}

void TestLineCalc::signalTexts()
{
    QFETCH(int, code);
    QFETCH(QString, text);
    QCOMPARE(CalcModule::lineSignalText(code), text);
    QCOMPARE(LineCalc::signalText(code), text);
}

QTEST_MAIN(TestLineCalc)
#include "tst_linecalc.moc"
