#include "Calc/CalcModule.h"
#include "CalcFixtures.h"
#include "Settings/KorvaneSettings.h"
#include "ThreePhaseRecord.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <limits>
#include <memory>

using namespace ThreePhaseRecord;

namespace {
constexpr double kSqrt2 = 1.4142135623730951;

// The angle in degrees of a sine whose cosine has the given angle.
double sineDegrees(double cosineDegrees)
{
    return cosineDegrees + 90.0;
}

double cosineDegreesAt(const Phasor& p, int first, int harmonic = 1)
{
    return p.degrees + harmonic * 360.0 * kFrequency * first / kRate;
}

QSharedPointer<AnalogChannel> constantChannel(double value, int samples = 400)
{
    return doubleChannel(doubleColumns({ [value](int) { return value; } }, samples), 0);
}

QSharedPointer<AnalogChannel> rampChannel(int samples)
{
    return doubleChannel(doubleColumns({ [](int i) { return double(i); } }, samples), 0);
}

QSharedPointer<AnalogChannel> sineChannel(const Phasor& p, double multiplier = 0.01, int samples = 800)
{
    return doubleChannel(doubleColumns({ cosineColumn(p, multiplier) }, samples), 0, multiplier);
}

QVector<int32_t> cells(CalcModule& module)
{
    QVector<int32_t> values;
    const SampleBuffer& buffer = module.buf();
    for (int j = 0; j < buffer.samples(); ++j)
        values.append(*buffer[0][j]);
    return values;
}
} // namespace

class TestCalcModule : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        m_ini = std::make_unique<QSettings>(
            m_dir->filePath(QStringLiteral("Korvane.ini")), QSettings::IniFormat);
        m_settings = QSharedPointer<KorvaneSettings>::create(m_ini.get());
    }
    void cleanup()
    {
        m_settings.reset();
        m_ini.reset();
        m_dir.reset();
    }

    void devConfigFromSettings_data();
    void devConfigFromSettings();
    void defaultModuleHasNoEngine();
    void canCalculateFromTheWindowOn();
    void generateBufferRoundsHalvesAwayFromZero_data();
    void generateBufferRoundsHalvesAwayFromZero();
    void generateBufferTakesTheWindowBeforeTheIndex_data();
    void generateBufferTakesTheWindowBeforeTheIndex();
    void generateBufferMirrorsAnInvertedChannel();
    void calculateMeasuresASine();
    void calculateAppliesScaleAndOffset();
    void calculateBelowTheWindowReadsTheFirstWindow();
    void calculateRemovesTheConverterDelay();
    void constantShapeGivesTheMean();
    void instantShapeKeepsThePreviousResults();
    void calculateStoresTheResultsAndZeroesKni();
    void setCalcTypeSelectsTheCalculator();
    void initReplacesEngineAndLineCalculator();
    void spectrumOfKnownHarmonics_data();
    void spectrumOfKnownHarmonics();
    void spectrumWithOnePeriodIsEmpty();
    void spectrumAsksSettingsPeriodsEvenWithManualInterval();
    void failedSpectrumKeepsKni();
    void spectrumReadsSettingsAtEachCall();
    void copyHasTheConfigurationAndOwnEngine();
    void copyGivesIndependentResults();
    void copyHasNoSettingsSoNoSpectrum();
    void copyOfUninitialisedModuleHasNoEngine();

private:
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<QSettings> m_ini;
    QSharedPointer<KorvaneSettings> m_settings;
};

void TestCalcModule::devConfigFromSettings_data()
{
    QTest::addColumn<int>("devType");
    QTest::addColumn<int>("calcDuration");
    QTest::addColumn<bool>("manualFlag");
    QTest::addColumn<int>("manualInterval");
    QTest::addColumn<double>("sampleRate");
    QTest::addColumn<int>("stepMs");
    QTest::addColumn<int>("intervalMs");
    QTest::addColumn<int>("windowSamples");

    QTest::newRow("two periods at 4000 Hz") << 0 << 2 << false << 55 << 4000.0 << 8 << 40 << 160;
    QTest::newRow("one period") << 0 << 1 << false << 55 << 4000.0 << 8 << 20 << 80;
    QTest::newRow("eight periods") << 0 << 8 << false << 55 << 1000.0 << 8 << 160 << 160;
    QTest::newRow("period count 0 gives 40 ms") << 0 << 0 << false << 55 << 4000.0 << 8 << 40 << 160;
    QTest::newRow("manual interval wins over periods") << 0 << 2 << true << 30 << 4000.0 << 8 << 30 << 120;
    QTest::newRow("manual interval wins over period count 0")
        << 0 << 0 << true << 80 << 1000.0 << 8 << 80 << 80;
    QTest::newRow("device type 1 steps 4 ms") << 1 << 2 << false << 55 << 4000.0 << 4 << 40 << 160;
    QTest::newRow("device type 2 steps 8 ms") << 2 << 2 << false << 55 << 4000.0 << 8 << 40 << 160;
    QTest::newRow("window truncated: 1234.5 Hz x 40 ms = 49.38")
        << 0 << 2 << false << 55 << 1234.5 << 8 << 40 << 49;
    QTest::newRow("window truncated: 999.9 Hz x 20 ms = 19.998")
        << 0 << 1 << false << 55 << 999.9 << 8 << 20 << 19;
}

void TestCalcModule::devConfigFromSettings()
{
    QFETCH(int, devType);
    QFETCH(int, calcDuration);
    QFETCH(bool, manualFlag);
    QFETCH(int, manualInterval);
    QFETCH(double, sampleRate);
    m_settings->setDevType(devType);
    m_settings->setCalcDuration(calcDuration);
    m_settings->setManualFlag(manualFlag);
    m_settings->setManualInterval(manualInterval);
    m_settings->setVarType(7);
    m_settings->setConstType(3);

    const DevConfig config = CalcModule::makeDevConfig(*m_settings, sampleRate);
    QTEST(config.stepMs, "stepMs");
    QTEST(config.intervalMs, "intervalMs");
    QTEST(config.windowSamples, "windowSamples");
    QTEST(CalcModule::intervalMsFromSettings(*m_settings), "intervalMs");
    QCOMPARE(config.sampleRate, sampleRate);
    QCOMPARE(config.varType, 7);
    QCOMPARE(config.constType, 3);
    QCOMPARE(config.rowCount, 1);
    QCOMPARE(config.shapeType, 0);
    QCOMPARE(config.multiplier, 1.0);
    QCOMPARE(config.adder, 0.0);
    QCOMPARE(config.adcDelay, 0.0);
}

void TestCalcModule::defaultModuleHasNoEngine()
{
    CalcModule module;
    const DevConfig config = module.devConfig();
    QCOMPARE(config.sampleRate, 10000.0);
    QCOMPARE(config.multiplier, 1.0);
    QCOMPARE(config.rowCount, 0);
    QCOMPARE(config.windowSamples, 0);
    QCOMPARE(config.intervalMs, 0);
    QCOMPARE(config.varType, 0);
    QCOMPARE(config.adder, 0.0);
    QCOMPARE(module.buf().rows(), 0);
    QVERIFY(module.spectrumItems().isEmpty());
    QVERIFY(!module.isError());
    // Without an engine nothing is measured, and nothing breaks.
    const CalcParameters p = module.calculate({ sineChannel({ 10.0, 0.0 }), 400 });
    QCOMPARE(p.rms, 0.0);
    QCOMPARE(p.frequency, 0.0);
    QCOMPARE(module.calculateLineSignals(SignalFrequency, 400, false), 0.0);
}

void TestCalcModule::canCalculateFromTheWindowOn()
{
    CalcModule module;
    module.init(talviConfig(kRate, kWindow));
    QVERIFY(!module.canCalculateSample(-1));
    QVERIFY(!module.canCalculateSample(0));
    QVERIFY(!module.canCalculateSample(kWindow - 1));
    QVERIFY(module.canCalculateSample(kWindow));
    QVERIFY(module.canCalculateSample(kWindow + 1000000));
}

void TestCalcModule::generateBufferRoundsHalvesAwayFromZero_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("cell");
    QTest::newRow("2.5 up to 3") << 2.5 << 3;
    QTest::newRow("-2.5 down to -3") << -2.5 << -3;
    QTest::newRow("2.4999 down to 2") << 2.4999 << 2;
    QTest::newRow("-2.4999 up to -2") << -2.4999 << -2;
    QTest::newRow("0.5 up to 1") << 0.5 << 1;
    QTest::newRow("-0.5 down to -1") << -0.5 << -1;
    QTest::newRow("0.49 to 0") << 0.49 << 0;
    QTest::newRow("-0.49 to 0") << -0.49 << 0;
    QTest::newRow("70000 kept beyond 16 bits") << 70000.0 << 70000;
    QTest::newRow("1e12 saturates high") << 1e12 << std::numeric_limits<int32_t>::max();
    QTest::newRow("-1e12 saturates low") << -1e12 << std::numeric_limits<int32_t>::min();
}

void TestCalcModule::generateBufferRoundsHalvesAwayFromZero()
{
    QFETCH(double, value);
    QFETCH(int, cell);
    CalcModule module;
    module.init(talviConfig(kRate, 8));
    module.generateBuffer({ constantChannel(value, 20), 10 });
    QCOMPARE(cells(module), QVector<int32_t>(8, cell));
}

void TestCalcModule::generateBufferTakesTheWindowBeforeTheIndex_data()
{
    QTest::addColumn<int>("sampleIndex");
    QTest::addColumn<int>("firstSample");
    QTest::newRow("index 0 reads the first window") << 0 << 0;
    QTest::newRow("index W - 1 reads the first window") << 7 << 0;
    QTest::newRow("negative index reads the first window") << -5 << 0;
    QTest::newRow("index W ends before W") << 8 << 0;
    QTest::newRow("index W + 1") << 9 << 1;
    QTest::newRow("index at the record's end") << 30 << 22;
}

void TestCalcModule::generateBufferTakesTheWindowBeforeTheIndex()
{
    QFETCH(int, sampleIndex);
    QFETCH(int, firstSample);
    CalcModule module;
    module.init(talviConfig(kRate, 8));
    module.generateBuffer({ rampChannel(30), sampleIndex });
    QVector<int32_t> expected;
    for (int j = 0; j < 8; ++j)
        expected.append(firstSample + j);
    QCOMPARE(cells(module), expected);
}

void TestCalcModule::generateBufferMirrorsAnInvertedChannel()
{
    CalcModule module;
    module.init(talviConfig(kRate, 4));
    const auto channel = rampChannel(10);
    channel->setIsInverted(true);
    // Mirrored within the channel's range 0 .. 9, and beyond the end the store's 0 is mirrored too.
    module.generateBuffer({ channel, 4 });
    QCOMPARE(cells(module), QVector<int32_t>({ 9, 8, 7, 6 }));
    module.generateBuffer({ channel, 12 });
    QCOMPARE(cells(module), QVector<int32_t>({ 1, 0, 9, 9 }));
}

void TestCalcModule::calculateMeasuresASine()
{
    const Phasor p { 57.0, 30.0 };
    CalcModule module;
    module.init(talviConfig(kRate, kWindow));
    const int sample = 433;
    const CalcParameters result = module.calculate({ sineChannel(p), sample });
    QVERIFY(qAbs(result.frequency - 50.0) < 1e-3);
    QVERIFY(qAbs(result.firstHarmonic - 57.0 / kSqrt2) < 1e-3);
    QVERIFY(qAbs(result.rms - 57.0 / kSqrt2) < 1e-3);
    QVERIFY(qAbs(result.dc) < 1e-3);
    QVERIFY(result.nonSinus < 0.05);
    // The phase of a sine at the window's first sample, sample - W.
    const double expected = sineDegrees(cosineDegreesAt(p, sample - kWindow));
    QVERIFY2(qAbs(angleDifference(result.phase, expected)) < 0.01,
        qPrintable(QString::number(result.phase) + QLatin1String(" vs ") + QString::number(expected)));
}

void TestCalcModule::calculateAppliesScaleAndOffset()
{
    CalcModule module;
    module.init(talviConfig(kRate, kWindow));
    // Raw 100000 cos + 20000 under multiplier 0.005 and offset -7: physical 500 cos + 93.
    const auto data = doubleColumns(
        { [](int i) { return 20000.0 + 100000.0 * std::cos(2 * kPi * 50.0 * i / kRate); } }, 400);
    const auto channel = doubleChannel(data, 0, 0.005, -7.0);
    const CalcParameters result = module.calculate({ channel, 300 });
    QVERIFY(qAbs(result.firstHarmonic - 500.0 / kSqrt2) < 1e-3);
    QVERIFY(qAbs(result.dc - 93.0) < 1e-3);
    QCOMPARE(module.devConfig().multiplier, 0.005);
    QCOMPARE(module.devConfig().adder, -7.0);
}

void TestCalcModule::calculateBelowTheWindowReadsTheFirstWindow()
{
    CalcModule module;
    module.init(talviConfig(kRate, kWindow));
    const auto channel = sineChannel({ 40.0, -60.0 });
    const CalcParameters atWindow = module.calculate({ channel, kWindow });
    for (int sample : { 0, 1, kWindow - 1 }) {
        const CalcParameters below = module.calculate({ channel, sample });
        QCOMPARE(below.firstHarmonic, atWindow.firstHarmonic);
        QCOMPARE(below.phase, atWindow.phase);
        QCOMPARE(below.frequency, atWindow.frequency);
    }
    const double expected = sineDegrees(cosineDegreesAt({ 40.0, -60.0 }, 0));
    QVERIFY(qAbs(angleDifference(atWindow.phase, expected)) < 0.01);
}

void TestCalcModule::calculateRemovesTheConverterDelay()
{
    CalcModule module;
    module.init(talviConfig(kRate, kWindow));
    const auto channel = sineChannel({ 40.0, 10.0 });
    const double plain = module.calculate({ channel, 500 }).phase;
    channel->setAdcDelay(3.0);
    const CalcParameters delayed = module.calculate({ channel, 500 });
    QCOMPARE(module.devConfig().adcDelay, 3.0);
    // 3 samples at 4000 Hz of 50 Hz are 13.5 degrees.
    const double expectedShift = -delayed.frequency * 360.0 * 3.0 / kRate;
    QVERIFY(qAbs(expectedShift + 13.5) < 1e-3);
    QVERIFY(qAbs(angleDifference(delayed.phase, plain) - expectedShift) < 1e-6);
}

void TestCalcModule::constantShapeGivesTheMean()
{
    CalcModule module;
    module.init(talviConfig(kRate, kWindow));
    const auto data = doubleColumns({ [](int i) { return 300.0 + (i % 2 ? 10.0 : -10.0); } }, 400);
    const auto channel = doubleChannel(data, 0, 0.1, 2.0);
    channel->setNormalState(ShapeConst);
    const CalcParameters result = module.calculate({ channel, 200 });
    QCOMPARE(module.devConfig().shapeType, int(ShapeConst));
    QVERIFY(qAbs(result.rms - 32.0) < 1e-9);
    QCOMPARE(result.frequency, 50.0);
    QCOMPARE(result.phase, 0.0);
}

void TestCalcModule::instantShapeKeepsThePreviousResults()
{
    CalcModule module;
    module.init(talviConfig(kRate, kWindow));
    const CalcParameters first = module.calculate({ sineChannel({ 40.0, 10.0 }), 300 });
    const auto instant = sineChannel({ 80.0, 100.0 });
    instant->setNormalState(ShapeInstant);
    const CalcParameters second = module.calculate({ instant, 500 });
    QCOMPARE(second.rms, first.rms);
    QCOMPARE(second.phase, first.phase);
    QCOMPARE(second.firstHarmonic, first.firstHarmonic);
}

void TestCalcModule::calculateStoresTheResultsAndZeroesKni()
{
    m_settings->setCalcDuration(2);
    CalcModule module;
    module.setAllSettings(m_settings);
    module.init(talviConfig(kRate, kWindow));
    const auto channel = doubleChannel(
        doubleColumns({ cosineColumn({ 50.0, 0.0 }, 0.01, 50.0, { { 3, { 10.0, 0.0 } } }) }, 800), 0, 0.01);
    const CalcParameters result = module.calculate({ channel, 400 });
    QCOMPARE(module.calculatedParameters().rms, result.rms);
    QCOMPARE(module.calculatedParameters().phase, result.phase);
    module.calculateSpectrum({ channel, 400 });
    QVERIFY(module.calculatedParameters().kni > 1.0);
    // The engine never writes the total figure: the copy of its results brings 0.
    module.calculate({ channel, 400 });
    QCOMPARE(module.calculatedParameters().kni, 0.0);
}

void TestCalcModule::setCalcTypeSelectsTheCalculator()
{
    CalcModule module;
    module.init(talviConfig(kRate, kWindow));
    const auto withDc
        = doubleChannel(doubleColumns({ cosineColumn({ 100.0, 0.0 }, 0.01, 50.0, {}, 5.0) }, 800), 0, 0.01);
    const auto pure = sineChannel({ 100.0, 0.0 }, 0.01);
    QVERIFY(qAbs(module.calculate({ withDc, 480 }).dc - 5.0) < 1e-3);

    // The filter bank writes no DC component: the tone analysis's value stays.
    module.setCalcType(1);
    QCOMPARE(module.devConfig().varType, 1);
    const CalcParameters bank = module.calculate({ pure, 480 });
    QVERIFY(qAbs(bank.dc - 5.0) < 1e-3);
    QVERIFY2(
        qAbs(bank.firstHarmonic - 100.0 / kSqrt2) < 1.0, qPrintable(QString::number(bank.firstHarmonic)));

    module.setCalcType(2);
    QCOMPARE(module.devConfig().varType, 2);
    const CalcParameters tone = module.calculate({ pure, 480 });
    QVERIFY(qAbs(tone.dc) < 1e-3);
    QVERIFY(qAbs(tone.firstHarmonic - 100.0 / kSqrt2) < 1e-3);
}

void TestCalcModule::initReplacesEngineAndLineCalculator()
{
    CalcModule module;
    module.init(talviConfig(kRate, kWindow));
    const QSharedPointer<LineCalc> before = module.lineCalc();
    module.setModePS(1);
    module.generateBuffer({ constantChannel(7.0), kWindow });
    QCOMPARE(cells(module), QVector<int32_t>(kWindow, 7));
    module.init(talviConfig(kRate, 80));
    QVERIFY(module.lineCalc() != before);
    QCOMPARE(module.lineCalc()->modePS(), 0);
    // A new engine: a buffer of the new window that holds none of the samples of the old one.
    QCOMPARE(module.buf().samples(), 80);
    QCOMPARE(cells(module), QVector<int32_t>(80, 0));
    QCOMPARE(module.devConfig().windowSamples, 80);
}

void TestCalcModule::spectrumOfKnownHarmonics_data()
{
    QTest::addColumn<double>("adcDelay");
    QTest::newRow("no converter delay") << 0.0;
    QTest::newRow("delay of 2 samples") << 2.0;
    QTest::newRow("delay of 0.5 samples") << 0.5;
}

void TestCalcModule::spectrumOfKnownHarmonics()
{
    QFETCH(double, adcDelay);
    m_settings->setCalcDuration(2);
    CalcModule module;
    module.setAllSettings(m_settings);
    module.init(talviConfig(kRate, kWindow));
    const Phasor fundamental { 100.0, 20.0 };
    const QVector<QPair<int, Phasor>> harmonics { { 3, { 15.0, -40.0 } }, { 5, { 6.0, 130.0 } } };
    const double dc = 4.0;
    const auto channel = doubleChannel(
        doubleColumns({ cosineColumn(fundamental, 0.01, 50.0, harmonics, dc) }, 800), 0, 0.01);
    channel->setAdcDelay(adcDelay);
    const int sample = 517;
    const CalcParameters measured = module.calculate({ channel, sample });
    module.calculateSpectrum({ channel, sample });
    const QVector<SpectrumItem> items = module.spectrumItems();

    // 4000 Hz over 50 Hz: 40 samples a half period, so 39 harmonics at most.
    QCOMPARE(items.size(), 40);
    const int first = sample - kWindow;
    const double delayDegrees = adcDelay * measured.frequency * 360.0 / kRate;
    for (const SpectrumItem& item : items) {
        QCOMPARE(item.frequency, measured.frequency * item.harmonic);
        double amplitude = 0.0;
        double cosineDegrees = 0.0;
        if (item.harmonic == 1) {
            amplitude = fundamental.amplitude;
            cosineDegrees = cosineDegreesAt(fundamental, first);
        }
        for (const auto& h : harmonics) {
            if (h.first == item.harmonic) {
                amplitude = h.second.amplitude;
                cosineDegrees = cosineDegreesAt(h.second, first, h.first);
            }
        }
        if (item.harmonic == 0) {
            QVERIFY(qAbs(item.value - dc) < 1e-3);
            QCOMPARE(item.phase, 0.0);
            continue;
        }
        const QByteArray where = QByteArray::number(item.harmonic);
        QVERIFY2(qAbs(item.value - amplitude / kSqrt2) < 2e-3, where.constData());
        if (amplitude > 0.0) {
            const double expected = cosineDegrees - item.harmonic * delayDegrees;
            QVERIFY2(qAbs(angleDifference(item.phase, expected)) < 0.05, where.constData());
        }
    }
    QCOMPARE(items.first().harmonic, 0);
    QCOMPARE(items.last().harmonic, 39);
    const double kni = 100.0 / 100.0 * std::sqrt(15.0 * 15.0 + 6.0 * 6.0);
    QVERIFY(qAbs(module.calculatedParameters().kni - kni) < 1e-3);
}

void TestCalcModule::spectrumWithOnePeriodIsEmpty()
{
    // One period at nominal frequency needs one sample more than the window holds.
    m_settings->setCalcDuration(1);
    CalcModule module;
    module.setAllSettings(m_settings);
    module.init(CalcModule::makeDevConfig(*m_settings, kRate));
    QCOMPARE(module.devConfig().windowSamples, 80);
    const auto channel = sineChannel({ 100.0, 0.0 });
    const CalcParameters measured = module.calculate({ channel, 400 });
    QCOMPARE(measured.frequency, 50.0);
    module.calculateSpectrum({ channel, 400 });
    QVERIFY(module.spectrumItems().isEmpty());
}

void TestCalcModule::spectrumAsksSettingsPeriodsEvenWithManualInterval()
{
    // A window of 30 ms; the spectrum asks for two periods, 40 ms at 50 Hz.
    m_settings->setCalcDuration(2);
    m_settings->setManualFlag(true);
    m_settings->setManualInterval(30);
    CalcModule module;
    module.setAllSettings(m_settings);
    module.init(CalcModule::makeDevConfig(*m_settings, kRate));
    QCOMPARE(module.devConfig().windowSamples, 120);
    const auto channel = sineChannel({ 100.0, 0.0 });
    const CalcParameters measured = module.calculate({ channel, 400 });
    QVERIFY(qAbs(measured.frequency - 50.0) < 1e-3);
    module.calculateSpectrum({ channel, 400 });
    QVERIFY(module.spectrumItems().isEmpty());
}

void TestCalcModule::failedSpectrumKeepsKni()
{
    m_settings->setCalcDuration(2);
    CalcModule module;
    module.setAllSettings(m_settings);
    module.init(talviConfig(kRate, kWindow));
    const auto channel = doubleChannel(
        doubleColumns({ cosineColumn({ 50.0, 0.0 }, 0.01, 50.0, { { 2, { 5.0, 0.0 } } }) }, 800), 0, 0.01);
    module.calculate({ channel, 400 });
    module.calculateSpectrum({ channel, 400 });
    QVERIFY(!module.spectrumItems().isEmpty());
    const double kni = module.calculatedParameters().kni;
    QVERIFY(qAbs(kni - 10.0) < 1e-2);
    m_settings->setCalcDuration(3);
    module.calculateSpectrum({ channel, 400 });
    QVERIFY(module.spectrumItems().isEmpty());
    QCOMPARE(module.calculatedParameters().kni, kni);
}

void TestCalcModule::spectrumReadsSettingsAtEachCall()
{
    // Eight periods of the settings over a window of 40 ms: no spectrum; back to two: a spectrum.
    m_settings->setCalcDuration(8);
    CalcModule module;
    module.setAllSettings(m_settings);
    module.init(talviConfig(kRate, kWindow));
    const auto channel = sineChannel({ 100.0, 0.0 });
    module.calculate({ channel, 400 });
    module.calculateSpectrum({ channel, 400 });
    QVERIFY(module.spectrumItems().isEmpty());
    m_settings->setCalcDuration(2);
    module.calculateSpectrum({ channel, 400 });
    QCOMPARE(module.spectrumItems().size(), 40);
    QCOMPARE(module.allSettings(), m_settings);
}

void TestCalcModule::copyHasTheConfigurationAndOwnEngine()
{
    CalcModule module;
    DevConfig config = talviConfig(kRate, kWindow);
    config.stepMs = 4;
    module.init(config);
    module.setCalcType(5);
    module.setModePS(1);
    const QSharedPointer<CalcModule> copy = module.copy();
    QCOMPARE(copy->devConfig().windowSamples, kWindow);
    QCOMPARE(copy->devConfig().stepMs, 4);
    QCOMPARE(copy->devConfig().varType, 5);
    QCOMPARE(copy->devConfig().sampleRate, kRate);
    QVERIFY(copy->lineCalc() != module.lineCalc());
    QCOMPARE(copy->lineCalc()->modePS(), 0);
    QCOMPARE(copy->buf().samples(), kWindow);
    QVERIFY(copy->buf()[0][0] != module.buf()[0][0]);
}

void TestCalcModule::copyGivesIndependentResults()
{
    CalcModule module;
    module.init(talviConfig(kRate, kWindow));
    const auto first = sineChannel({ 40.0, 10.0 });
    const auto second = sineChannel({ 90.0, -70.0 });
    const CalcParameters original = module.calculate({ first, 300 });
    const QSharedPointer<CalcModule> copy = module.copy();
    const CalcParameters copied = copy->calculate({ second, 450 });
    QVERIFY(qAbs(copied.firstHarmonic - 90.0 / kSqrt2) < 1e-3);
    QCOMPARE(module.calculatedParameters().firstHarmonic, original.firstHarmonic);
    QCOMPARE(module.calculatedParameters().phase, original.phase);
    QCOMPARE(copy->calculate({ first, 300 }).phase, original.phase);

    Line line(800);
    copy->initLineCalc({ line.voltageChannels, line.currentChannels }, 400, 3.0, 1.0);
    QCOMPARE(module.lineCalc()->voltageAmplitude(0), 0.0);
    QVERIFY(copy->lineCalc()->voltageAmplitude(0) > 50.0);
}

void TestCalcModule::copyHasNoSettingsSoNoSpectrum()
{
    m_settings->setCalcDuration(2);
    CalcModule module;
    module.setAllSettings(m_settings);
    module.init(talviConfig(kRate, kWindow));
    const QSharedPointer<CalcModule> copy = module.copy();
    QVERIFY(copy->allSettings().isNull());
    const auto channel = sineChannel({ 100.0, 0.0 });
    copy->calculate({ channel, 400 });
    copy->calculateSpectrum({ channel, 400 });
    QVERIFY(copy->spectrumItems().isEmpty());
    module.calculate({ channel, 400 });
    module.calculateSpectrum({ channel, 400 });
    QCOMPARE(module.spectrumItems().size(), 40);
}

void TestCalcModule::copyOfUninitialisedModuleHasNoEngine()
{
    CalcModule module;
    module.setCalcType(1);
    const QSharedPointer<CalcModule> copy = module.copy();
    QCOMPARE(copy->devConfig().varType, 1);
    QCOMPARE(copy->buf().rows(), 0);
}

QTEST_MAIN(TestCalcModule)
#include "tst_calcmodule.moc"
