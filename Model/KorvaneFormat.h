#pragma once

#include "korvane_export.h"

#include <QString>

// The decimal text of a count; from 10001 up, a blank before each group of three digits.
KORVANE_EXPORT QString addThousandSeparators(unsigned long long value);

namespace Korvane {
// Turns "korvane_v1.2.3_build45" into "1.2.3 build 45" for display.
KORVANE_EXPORT void humanifyGitVersion(QString& version);
} // namespace Korvane
