#pragma once

#include <string>

// Writes the sample record that the project ships: a fault on phase A of a 110 kV line, as a
// relay would record it (COMTRADE 1999, float32, with .HDR and .INF), under basePath plus the
// upper-case extensions. 0 on success.
int writeSampleRecord(const std::string& basePath);
