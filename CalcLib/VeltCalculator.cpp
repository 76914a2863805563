#include "CalcLib/VeltCalculator.h"

#include <iostream>

namespace {
constexpr int kAveraging = 3;
constexpr double kNominalFrequency = 50.0;
constexpr uint8_t kPhasorConstant = 0;
constexpr uint8_t kPhasorVarying = 2;
} // namespace

VeltCalculator::VeltCalculator() : TCalc("VELT-3", "ВЕЛТ-3")
{
}

VeltCalculator::~VeltCalculator() = default;

int VeltCalculator::init(const DevConfig& config)
{
    m_config = config;
    m_phasor.reset();
    m_device.reset();
    m_device = std::make_unique<DeviceDescription>();
    m_phasor = std::make_unique<CPhasor>();
    // The millisecond figure goes where a count of periods is meant; the ring is sized from it.
    m_phasor->setup(
        nullptr, config.sampleRate, config.adcDelay, kAveraging, config.intervalMs, config.windowSamples, 1);
    if (config.shapeType == ShapeSine) {
        m_phasor->setType(kPhasorVarying);
    } else if (config.shapeType == ShapeConst) {
        m_phasor->setType(kPhasorConstant);
    } else {
        std::cout << "Error: undefined shape type." << std::endl;
        return 0;
    }
    return 1;
}

int VeltCalculator::calc(CalcInput& input)
{
    if (!m_phasor || input.rows < 1 || input.results.empty() || input.buffer.rows() < 1
        || input.buffer.samples() < input.samples)
        return 1;
    m_phasor->setMultiplier(m_config.multiplier);
    m_phasor->setAdder(m_config.adder / m_config.multiplier);
    int32_t* const* cells = input.buffer[0];
    for (int i = 0; i < input.samples; ++i)
        m_phasor->addSample(lowWord(*cells[i]));
    m_phasor->process(kNominalFrequency);
    input.results[0].rms = m_phasor->value();
    input.results[0].phase = 0.0;
    return 1;
}
