#include "Calc/CalcModule.h"

#include "CalcLib/CalcRoutines.h"
#include "CalcLib/NumericConstants.h"
#include "Settings/KorvaneSettings.h"

#include <algorithm>
#include <vector>

namespace {
using NumericConstants::kHalfPi;
using NumericConstants::kRadiansPerDegree;
using NumericConstants::kSqrt2;
constexpr int kFastDeviceType = 1;
constexpr int kFastStepMs = 4;
constexpr int kNormalStepMs = 8;
constexpr int kMsPerPeriod = 20;
constexpr int kDefaultIntervalMs = 40;
// The channel type whose frequency the line reports: phase voltage A.
constexpr int kVoltageA = 1;

// Half away from zero, then truncation; a value beyond the cell's range saturates.
int32_t roundToCell(double value)
{
    return truncateToInt(value >= 0.0 ? value + 0.5 : value - 0.5);
}

} // namespace

CalcModule::CalcModule() : m_lineCalc(QSharedPointer<LineCalc>::create())
{
}

CalcModule::CalcModule(const CalcModule* source)
    : m_lineCalc(QSharedPointer<LineCalc>::create()), m_devConfig(source->m_devConfig)
{
    if (source->m_engine)
        init(source->m_devConfig);
}

CalcModule::~CalcModule() = default;

int CalcModule::intervalMsFromSettings(const KorvaneSettings& settings)
{
    if (settings.manualFlag())
        return settings.manualInterval();
    if (settings.calcDuration() == 0)
        return kDefaultIntervalMs;
    return settings.calcDuration() * kMsPerPeriod;
}

DevConfig CalcModule::makeDevConfig(const KorvaneSettings& settings, double sampleRate)
{
    DevConfig config;
    config.stepMs = settings.devType() == kFastDeviceType ? kFastStepMs : kNormalStepMs;
    config.varType = settings.varType();
    config.constType = settings.constType();
    config.intervalMs = intervalMsFromSettings(settings);
    config.sampleRate = sampleRate;
    config.rowCount = 1;
    config.windowSamples = truncateToInt(sampleRate * config.intervalMs / 1000.0);
    config.shapeType = ShapeUnknown;
    config.multiplier = 1.0;
    config.adder = 0.0;
    config.adcDelay = 0.0;
    return config;
}

void CalcModule::init(const DevConfig& config)
{
    m_devConfig = config;
    auto engine = QSharedPointer<CalcEngine>::create();
    engine->init(config);
    m_engine = engine;
    m_lineCalc = QSharedPointer<LineCalc>::create();
}

QSharedPointer<CalcModule> CalcModule::copy() const
{
    return QSharedPointer<CalcModule>(new CalcModule(this));
}

SampleBuffer& CalcModule::buf()
{
    // Without an engine there are no cells to fill.
    static SampleBuffer noCells;
    return m_engine ? m_engine->buffer() : noCells;
}

void CalcModule::generateBuffer(const CalcModuleParams& params)
{
    if (!m_engine || !params.channel)
        return;
    SampleBuffer& buffer = m_engine->buffer();
    if (buffer.rows() < 1)
        return;
    const int window = std::min(m_devConfig.windowSamples, buffer.samples());
    const int start = std::max(m_devConfig.windowSamples, params.sampleIndex) - m_devConfig.windowSamples;
    const AnalogChannel& channel = *params.channel;
    int32_t* const* cells = buffer[0];
    // A channel without a store reads as zeros; the test stays out of the loop, where taking the
    // shared store would cost two atomic operations a sample.
    const bool hasStore = !channel.data().isNull();
    for (int j = 0; j < window; ++j)
        *cells[j] = hasStore ? roundToCell(channel.getValue(start + j)) : 0;
}

CalcParameters CalcModule::calculate(const CalcModuleParams& params)
{
    if (!m_engine || !params.channel)
        return m_parameters;
    const AnalogChannel& channel = *params.channel;
    m_devConfig.adcDelay = channel.adcDelay();
    m_devConfig.multiplier = channel.multiplier();
    m_devConfig.adder = channel.offsetAdder();
    m_devConfig.shapeType = channel.normalState();
    m_engine->setDevConfig(m_devConfig);
    generateBuffer(params);
    m_engine->calculate();
    m_parameters = m_engine->parameters();
    return m_parameters;
}

void CalcModule::calculateSpectrum(const CalcModuleParams& params)
{
    if (!m_engine || !params.channel || !m_settings) {
        m_spectrumItems.clear();
        return;
    }
    generateBuffer(params);
    const SampleBuffer& buffer = m_engine->buffer();
    const int window = buffer.samples();
    std::vector<double> samples(static_cast<size_t>(window), 0.0);
    for (int row = 0; row < buffer.rows(); ++row) {
        for (int j = 0; j < window; ++j)
            samples[j] = *buffer[row][j];
    }
    const AnalogChannel& channel = *params.channel;
    const double fundamental = m_parameters.frequency;
    int maxHarmonic = 0;
    std::vector<double> amplitudes;
    std::vector<double> phases;
    const int status = measureSpectrum(samples.data(), window, m_devConfig.sampleRate,
        m_settings->calcDuration(), channel.multiplier(), channel.offsetAdder() / channel.multiplier(),
        fundamental, maxHarmonic, amplitudes, phases, m_parameters.kni);
    m_spectrumItems.clear();
    if (status != 0)
        return;
    const double delayDegrees = channel.adcDelay() * fundamental * 360.0 / m_devConfig.sampleRate;
    for (int k = 0; k <= maxHarmonic; ++k) {
        SpectrumItem item;
        item.harmonic = k;
        item.frequency = fundamental * k;
        item.value = k == 0 ? amplitudes[0] : amplitudes[k] / kSqrt2;
        item.phase = k == 0 ? phases[0] : phases[k] - k * delayDegrees;
        m_spectrumItems.append(item);
    }
}

void CalcModule::setModePS(int modePS)
{
    m_lineCalc->setModePS(modePS);
}

void CalcModule::measurePhase(
    const QSharedPointer<AnalogChannel>& channel, int sample, double& amplitude, double& phaseRadians)
{
    const CalcParameters parameters = calculate({ channel, sample });
    amplitude = LineCalc::convertToMode(parameters.firstHarmonic * kSqrt2, *channel, m_lineCalc->modePS());
    phaseRadians = parameters.phase * kRadiansPerDegree - kHalfPi;
    if (channel->chanType() == kVoltageA)
        m_lineCalc->setFrequency(parameters.frequency);
}

void CalcModule::initLineCalc(const PhasesPointers& phases, int sample, double z0, double z1)
{
    LineCalc& line = *m_lineCalc;
    line.startMeasurement(phases, z0, z1);
    const bool measurable = canCalculateSample(sample);
    const QList<QSharedPointer<AnalogChannel>>* groups[2] = { &phases.voltages, &phases.currents };
    for (int group = 0; group < 2; ++group) {
        const QList<QSharedPointer<AnalogChannel>>& channels = *groups[group];
        for (int phase = 0; phase < 3 && phase < channels.size(); ++phase) {
            const QSharedPointer<AnalogChannel>& channel = channels.at(phase);
            if (!channel)
                continue;
            // Below the window a phasor is a vanishing one, off zero so that ratios stay defined.
            double amplitude = 1e-10;
            double phaseRadians = 1e-10;
            if (measurable)
                measurePhase(channel, sample, amplitude, phaseRadians);
            else
                line.setFrequency(0.0);
            if (group == 0)
                line.setVoltage(phase, amplitude, phaseRadians);
            else
                line.setCurrent(phase, amplitude, phaseRadians);
        }
    }
}

double CalcModule::calculateLineSignals(int code, int sample, bool milli)
{
    if (sample < m_devConfig.windowSamples)
        return 0.0;
    const double value = m_lineCalc->value(code);
    return milli ? value * 1000.0 : value;
}

bool CalcModule::isError() const
{
    return m_lineCalc->isError();
}
