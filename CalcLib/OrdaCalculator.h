#pragma once

#include "CalcLib/PhasorFilterBank.h"
#include "CalcLib/TCalc.h"

#include <memory>
#include <vector>

// Phasor of the first harmonic from a sliding filter bank on blocks of samples, frequency from
// the phase advance between blocks. The block position runs on from one calculation to the
// next, so the phase depends on how many calculations ran before.
class KORVANE_EXPORT OrdaCalculator : public TCalc
{
public:
    OrdaCalculator();
    ~OrdaCalculator() override;

    // Builds the bank for the configuration's block structure. Result 0.
    int init(const DevConfig& config) override;
    // Result 0. Without a usable bank (fewer than 50 samples a second or a window shorter than
    // a period) nothing is written.
    int calc(CalcInput& input) override;

    double lastRe() const { return m_lastRe; }
    double lastIm() const { return m_lastIm; }
    double lastFrequency() const { return m_lastFrequency; }
    int32_t blockSamples() const { return m_blockSamples; }
    // Null until init has built a bank.
    const PhasorFilterBank* bank() const { return m_bank.get(); }
    // The first harmonic of the last block of a row, rebuilt by the bank.
    const std::vector<double>& rebuiltBlock(int row) const { return m_rebuilt[row]; }

private:
    void loadBlock(const CalcInput& input, int firstCell);
    void writeResults(CalcInput& input) const;

    double m_lastRe = 0.0;
    double m_lastIm = 0.0;
    double m_lastFrequency = 0.0;
    std::unique_ptr<PhasorFilterBank> m_bank;
    std::vector<std::vector<double>> m_rebuilt;
    std::vector<PhasorFilterBank::Output> m_outputs;
    std::vector<std::vector<int16_t>> m_blocks;
    std::vector<const int16_t*> m_blockPointers;
    std::vector<double*> m_rebuiltPointers;
    int32_t m_blockSamples = 0;
};
