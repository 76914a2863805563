#pragma once

class ComtradeOscillogram;

namespace KorvaneTest {

// Fails the calling test unless the two records hold the same revision, times, rate, channel
// names and coefficients, raw values bit for bit, and digital values.
void compareRecords(const ComtradeOscillogram& expected, const ComtradeOscillogram& actual);

} // namespace KorvaneTest
