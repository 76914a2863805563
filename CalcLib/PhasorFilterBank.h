#pragma once

#include "korvane_export.h"

#include <complex>
#include <cstdint>
#include <vector>

// A sliding windowed filter bank at the nominal 50 Hz that works on blocks of M samples. The
// window of L blocks is split into L accumulators that start one block apart, so that one
// accumulator completes a whole window with every block. All trigonometry is in the tables.
class KORVANE_EXPORT PhasorFilterBank
{
public:
    using Complex = std::complex<double>;

    // The output of one row after a step: the phasor and the frequency from its advance.
    struct Output
    {
        double re = 0.0;
        double im = 0.0;
        double frequency = 0.0;
    };

    static constexpr int kCorrectionSize = 8192;

    // rows, N samples of a nominal period, M samples of a block, L blocks in the window; the
    // side-lobe ratio shapes the amplitude correction. N and M must be positive.
    PhasorFilterBank(
        int32_t rows, int32_t periodSamples, int32_t blockSamples, int32_t blocks, double sideLobeRatio);

    // One block: samples[row] points to M samples of that row; outputs and rebuilt (M values
    // per row, the first harmonic of the block) receive one entry per row.
    void step(const int16_t* const* samples, Output* outputs, double* const* rebuilt);
    // Clears the accumulators and the previous phasors; the running indices go on.
    void clearAccumulators();

    int32_t rows() const { return m_rows; }
    int32_t blocks() const { return m_blocks; }
    int32_t periodSamples() const { return m_periodSamples; }
    int32_t blockSamples() const { return m_blockSamples; }
    int32_t phaseCount() const { return m_phaseCount; }
    int32_t blockIndex() const { return m_blockIndex; }
    int32_t phaseIndex() const { return m_phaseIndex; }
    int32_t accumulatorIndex() const { return m_accumulatorIndex; }
    int32_t position() const { return m_position; }
    double window(int i) const { return m_window[i]; }
    double windowSum() const { return m_windowSum; }
    double correction(int i) const { return m_correction[i]; }
    Complex coefficient(int p, int j, int i) const { return m_coefficients[coefficientIndex(p, j, i)]; }
    // The block of M coefficients that accumulator k takes at phase p and block index b.
    const Complex* rotated(int p, int b, int k) const
    {
        return m_rotated[(size_t(p) * m_blocks + b) * m_blocks + k];
    }
    Complex accumulator(int row, int k) const { return m_accumulators[size_t(row) * m_blocks + k]; }
    Complex previous(int row) const { return m_previous[row]; }
    double previousMagnitude() const { return m_previousMagnitude; }

private:
    size_t coefficientIndex(int p, int j, int i) const
    {
        return (size_t(p) * m_blocks + j) * m_blockSamples + i;
    }
    void buildCorrection(double sideLobeRatio);
    void buildWindow();
    void buildCoefficients();
    void accumulate(int row, const int16_t* samples);
    double phaseAdvance(const Complex& previous, const Complex& current) const;
    double correctionFor(double advance) const;
    void rebuildBlock(int row, const Complex& z, double advance, double* out) const;

    int32_t m_rows = 0;
    int32_t m_blocks = 0;
    int32_t m_periodSamples = 0;
    int32_t m_blockSamples = 0;
    int32_t m_phaseCount = 0;
    int32_t m_blockIndex = 0;
    int32_t m_phaseIndex = 0;
    int32_t m_accumulatorIndex = 0;
    int32_t m_position = 0;
    std::vector<double> m_window;
    double m_windowSum = 0.0;
    std::vector<Complex> m_coefficients;
    std::vector<const Complex*> m_rotated;
    std::vector<Complex> m_accumulators;
    std::vector<Complex> m_previous;
    double m_previousMagnitude = 0.0;
    std::vector<double> m_correction;
};
