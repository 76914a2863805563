#pragma once

#include "CalcLib/CPhasor.h"
#include "CalcLib/DeviceDescription.h"
#include "CalcLib/TCalc.h"

#include <memory>

// The mean of the last window of a constant signal, through the ring of a phasor. The ring
// is not cleared between calculations, and it holds 16-bit samples: wider raw values wrap.
class KORVANE_EXPORT VeltCalculator : public TCalc
{
public:
    VeltCalculator();
    ~VeltCalculator() override;

    // Builds the phasor anew. Result 1; 0 for a shape that is neither sine nor constant.
    int init(const DevConfig& config) override;
    // Result 1.
    int calc(CalcInput& input) override;

    // Null until init.
    const CPhasor* phasor() const { return m_phasor.get(); }
    const DeviceDescription* device() const { return m_device.get(); }

private:
    std::unique_ptr<CPhasor> m_phasor;
    std::unique_ptr<DeviceDescription> m_device;
};
