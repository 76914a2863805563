#pragma once

#include "Calc/LineCalc.h"
#include "CalcLib/CalcEngine.h"
#include "CalcLib/DevConfig.h"
#include "Model/AnalogChannel.h"
#include "korvane_export.h"

#include <QSharedPointer>
#include <QVector>

class KorvaneSettings;

// What a calculation asks for: a channel and the index one past the last sample of the window.
struct KORVANE_EXPORT CalcModuleParams
{
    QSharedPointer<AnalogChannel> channel;
    int sampleIndex = 0;
};

// One row of the spectrum.
struct KORVANE_EXPORT SpectrumItem
{
    // 0 is the DC term.
    int harmonic = 0;
    double frequency = 0.0;
    // The signed DC term for harmonic 0, otherwise the effective value.
    double value = 0.0;
    // Degrees.
    double phase = 0.0;
};

// The face of the calculation engine for records: measures any analogue channel at any sample, makes
// its spectrum, and the line signals of three voltages and three currents. Used from one thread at a
// time; a background job works on its own copy().
class KORVANE_EXPORT CalcModule
{
public:
    // A module without engine: init() comes before anything else.
    CalcModule();
    // A module with the source's configuration and an engine and line calculator of its own, without
    // settings.
    explicit CalcModule(const CalcModule* source);
    ~CalcModule();
    CalcModule(const CalcModule&) = delete;
    CalcModule& operator=(const CalcModule&) = delete;

    // The configuration of the calculator settings for a record of that sample rate: one row, the
    // window of the chosen periods or of the manual interval, the scale of a raw channel.
    static DevConfig makeDevConfig(const KorvaneSettings& settings, double sampleRate);
    // The window in milliseconds that the settings ask for.
    static int intervalMsFromSettings(const KorvaneSettings& settings);

    // The settings are read at each spectrum.
    void setAllSettings(const QSharedPointer<KorvaneSettings>& settings) { m_settings = settings; }
    QSharedPointer<KorvaneSettings> allSettings() const { return m_settings; }

    // Replaces the engine and the line calculator.
    void init(const DevConfig& config);
    QSharedPointer<CalcModule> copy() const;

    bool canCalculateSample(int sample) const { return m_devConfig.windowSamples <= sample; }
    // Below the window it measures the first window of the record.
    CalcParameters calculate(const CalcModuleParams& params);
    CalcParameters calculatedParameters() const { return m_parameters; }
    // Uses the frequency found by calculate() at the same position. Fills the spectrum and kni; a
    // window that allows no spectrum leaves the list empty and kni as it was.
    void calculateSpectrum(const CalcModuleParams& params);
    QVector<SpectrumItem> spectrumItems() const { return m_spectrumItems; }

    void setCalcType(int varType) { m_devConfig.varType = varType; }
    DevConfig devConfig() const { return m_devConfig; }
    SampleBuffer& buf();
    // Row 0 takes the window ending before params.sampleIndex, rounded half away from zero.
    void generateBuffer(const CalcModuleParams& params);

    void setModePS(int modePS);
    // Measures the line's six channels at the sample; a null channel keeps its last measurement.
    void initLineCalc(const PhasesPointers& phases, int sample, double z0, double z1);
    // 0.0 before the window; milli gives thousandths.
    double calculateLineSignals(int code, int sample, bool milli);
    bool isError() const;
    // The measured phasors of the last initLineCalc, for diagrams.
    QSharedPointer<LineCalc> lineCalc() const { return m_lineCalc; }

    // The display text of a line signal code; empty for vacant codes and outside 0 to 44.
    static QString lineSignalText(int code) { return LineCalc::signalText(code); }
    static constexpr int lineSignalCount = LineSignalCount;

private:
    // Peak amplitude on the line calculator's side and phase in radians of a cosine at the first
    // sample of the window.
    void measurePhase(
        const QSharedPointer<AnalogChannel>& channel, int sample, double& amplitude, double& phaseRadians);

    QSharedPointer<CalcEngine> m_engine;
    QSharedPointer<KorvaneSettings> m_settings;
    QSharedPointer<LineCalc> m_lineCalc;
    DevConfig m_devConfig;
    QVector<SpectrumItem> m_spectrumItems;
    CalcParameters m_parameters;
};
