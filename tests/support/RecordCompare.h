#pragma once

class ComtradeOscillogram;

namespace KorvaneTest {
struct ComtradeSetDescription;
}

namespace KorvaneTest {

// Fails the calling test unless the two records hold the same revision, times, rate, channel
// names and coefficients, raw values bit for bit, and digital values.
void compareRecords(const ComtradeOscillogram& expected, const ComtradeOscillogram& actual);

// Fails the calling test unless the record holds the set's channels, names, units, coefficients,
// raw values and physical values (raw * a + b), and digital values, as the set was written.
void verifySetValues(const ComtradeOscillogram& record, const ComtradeSetDescription& set);

} // namespace KorvaneTest
