#pragma once

#include "CalcLib/DescriptionFile.h"
#include "korvane_export.h"

#include <cstdint>
#include <string>
#include <vector>

// The second-order low-pass filter that the phasors run before their zero crossings. Its
// coefficients depend on the sample rate only and are shared by every phasor of the program.
struct LowPassCoefficients
{
    double f1 = 0.0;
    double f2 = 0.0;
    double g0 = 0.0;
    double g1 = 0.0;
    double g2 = 0.0;
};

// One measured analogue channel: a ring of raw 16-bit samples, the low-pass filter with the
// frequency tracking on its zero crossings, and the analysis of the ring's last window.
class KORVANE_EXPORT CPhasor
{
public:
    CPhasor();

    // Sizes the ring and computes the shared filter coefficients for the sample rate. With a
    // section, the channel is described by it and delay = id * scale; false when the section
    // lacks "id" or "name". flag is kept and not read.
    bool setup(const DescriptionSection* section, double sampleRate, double scale, int averaging, int periods,
        int window, int flag);
    void addSample(int16_t raw);
    // Analyses the ring at the frequency f, or at the tracked one when f <= 0.
    void process(double f);
    // Type 2 scales the multiplier by the transformer ratio and the power of ten; any other type
    // takes the values as they stand and says so.
    void setScale(double multiplier, double adder, int type);

    double value() const { return m_value; }
    double scaledValue() const { return m_scaledValue; }
    double amplitude() const { return m_amplitude; }
    double phase() const { return m_phase; }
    double lastMax() const { return m_lastMax; }
    double lastMin() const { return m_lastMin; }
    bool isZero() const { return m_isZero; }

    int32_t id() const { return m_id; }
    const std::string& name() const { return m_name; }
    uint16_t linemask() const { return m_linemask; }
    uint8_t type() const { return m_type; }
    void setType(uint8_t type) { m_type = type; }
    double addPhase() const { return m_addPhase; }
    double ktmul() const { return m_ktmul; }
    double ktdiv() const { return m_ktdiv; }
    double power10factor() const { return m_power10factor; }
    double spBlock() const { return m_spBlock; }
    double multiplier() const { return m_multiplier; }
    void setMultiplier(double multiplier) { m_multiplier = multiplier; }
    double adder() const { return m_adder; }
    // In raw units.
    void setAdder(double adder) { m_adder = adder; }
    double delay() const { return m_delay; }
    double delayPhase() const { return m_delayPhase; }

    int32_t ringSize() const { return m_ringSize; }
    int32_t writeIndex() const { return m_writeIndex; }
    int16_t ringAt(int i) const { return m_ring[i]; }
    int32_t window() const { return m_window; }
    int32_t periods() const { return m_periods; }

    double frequency() const { return m_frequency; }
    double deviation() const { return m_deviation; }
    bool frequencyValid() const { return m_frequencyValid; }
    int32_t settleCount() const { return m_settleCount; }
    double shortPeriod() const { return m_shortPeriod; }
    double longPeriod() const { return m_longPeriod; }

    static LowPassCoefficients lowPassCoefficients();

private:
    void describe(const DescriptionSection& section, double scale);
    double filter(double u);
    void onRise(double y);
    void onFall(double y);
    void track(double f);
    void processConstant();
    void processVarying(double f);

    // Description
    int32_t m_id = 0;
    std::string m_name;
    uint16_t m_linemask = 0;
    uint8_t m_type = 2;
    double m_addPhase = 0.0;
    double m_ktmul = 1.0;
    double m_ktdiv = 1.0;
    double m_power10factor = 1.0;
    double m_spBlock = 0.0;
    // Scale and delay
    double m_multiplier = 1.0;
    double m_adder = 0.0;
    double m_delay = 0.0;
    double m_delayPhase = 0.0;
    double m_sampleRate = 0.0;
    int32_t m_flag = 0;
    // Ring
    std::vector<int16_t> m_ring;
    int32_t m_ringSize = 0;
    int32_t m_writeIndex = 0;
    int32_t m_window = 0;
    int32_t m_periods = 0;
    std::vector<double> m_work;
    int32_t m_workSize = 0;
    // Filter state
    double m_filterState = 0.0;
    double m_filterState1 = 0.0;
    double m_filterState2 = 0.0;
    int32_t m_settleCount = 0;
    // Frequency tracking
    int32_t m_riseCount = 0;
    int32_t m_fallCount = 0;
    bool m_riseSeen = false;
    bool m_fallSeen = false;
    double m_riseFraction = 0.0;
    double m_fallFraction = 0.0;
    double m_shortPeriod = 0.0;
    double m_longPeriod = 0.0;
    double m_previousOutput = 0.0;
    double m_peakInput = 0.0;
    double m_peakOutput = 0.0;
    int16_t m_maxRaw = -32768;
    int16_t m_minRaw = 32767;
    double m_frequencySquareSum = 0.0;
    double m_errorSquareSum = 0.0;
    int32_t m_averaging = 3;
    int32_t m_averaged = 0;
    double m_frequency = 50.0;
    double m_deviation = 1.0;
    bool m_frequencyValid = false;
    // Results
    double m_value = 0.0;
    double m_scaledValue = 0.0;
    double m_amplitude = 0.0;
    double m_phase = 0.0;
    double m_lastMax = 0.0;
    double m_lastMin = 0.0;
    bool m_isZero = false;
};
