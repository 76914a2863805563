#include "CalcLib/DevConfig.h"

namespace {
const char* const kShapeTexts[] = { "unknown", "sine", "const", "meandr", "instant" };
const char* const kShapeDisplayTexts[] = { "Unknown", "Sine", "Const", "Meandr", "Instant" };
constexpr int32_t kShapeCount = 5;
} // namespace

int32_t signalShapeFromText(const std::string& text)
{
    for (int32_t shape = 0; shape < kShapeCount; ++shape) {
        if (text == kShapeTexts[shape])
            return shape;
    }
    return ShapeUnknown;
}

std::string signalShapeDisplayText(int32_t shape)
{
    if (shape < 0 || shape >= kShapeCount)
        return kShapeDisplayTexts[ShapeUnknown];
    return kShapeDisplayTexts[shape];
}
