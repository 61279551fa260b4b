#include "scan/spectrum_math.h"

#include "basic/basic.h"

#include <cmath>
#include <stdexcept>

namespace veldor {

namespace {

void RequireStep(int32_t step) {
    if (step == 0) throw std::domain_error("Division by zero");
}

}  // namespace

int16_t SpectrumPointsFor(int32_t start, int32_t end, int32_t step) {
    RequireStep(step);
    const double points = std::nearbyint((double(end) - double(start)) / double(step));
    if (points > 32767 || points < -32768) throw std::overflow_error("Overflow");
    return basic::CInt(points);
}

int32_t OnStepGrid(int32_t frequency, int32_t step) {
    RequireStep(step);
    return static_cast<int32_t>(int64_t{frequency} / step * step);
}

int32_t NextSweepFrequency(int32_t frequency, int32_t step, int32_t start, int32_t end) {
    const int64_t next = int64_t{frequency} + step;
    if (next > end) return start;
    if (next > INT32_MAX || next < INT32_MIN) throw std::overflow_error("Overflow");
    return static_cast<int32_t>(next);
}

int32_t FrequencyAtX(double x, int32_t step, int32_t start) {
    return basic::CLng(basic::Int(x + 0.5) * step + start);
}

int SliderAt(int32_t frequency, int32_t start, int32_t width) {
    if (width == 0) return 0;
    return basic::CLng((double(frequency) - start) / width * 1000);
}

int SliderAtPoint(int position, int points) {
    return basic::CLng(double(position) / points * 1000);
}

int32_t SpectrumTextValue(const QString& text, const QString& decimalMark, int32_t parsed) {
    if (text.contains(decimalMark)) return basic::CLng(parsed / 1000.0);
    return parsed;
}

}  // namespace veldor
