#pragma once

#include <QString>

class Oscillogram;

// A few lines that tell what a record holds: channels, rate, samples and times.
QString recordSummary(const Oscillogram& record);
