// The arithmetic of the spectrum picture, in 10 Hz units and in the picture's own scale: one
// unit of x per point, 32 units of height.
#pragma once

#include <QString>

#include <cstdint>

namespace veldor {

inline constexpr int SpectrumHeight = 32;

// Points across a sweep: width over step, rounded half to even. A sweep of more than 32767
// points overflows; a step of 0 divides by zero (both raise a run-time error).
int16_t SpectrumPointsFor(int32_t start, int32_t end, int32_t step);
// The frequency pulled down onto the grid of the step.
int32_t OnStepGrid(int32_t frequency, int32_t step);
// The next point of a sweep: one step on, back to the (unrounded) start past the end.
int32_t NextSweepFrequency(int32_t frequency, int32_t step, int32_t start, int32_t end);
// The frequency under x on the picture.
int32_t FrequencyAtX(double x, int32_t step, int32_t start);
// Where a frequency stands on the slider of 0..1000 across the sweep.
int SliderAt(int32_t frequency, int32_t start, int32_t width);
// The slider under the bar at position of points.
int SliderAtPoint(int position, int points);
// A step or width text: with the decimal mark it is parsed (a kHz value read as MHz) and
// divided by a thousand; without, parsed as kHz as it stands. parsed is ParseFrequency's value.
int32_t SpectrumTextValue(const QString& text, const QString& decimalMark, int32_t parsed);

}  // namespace veldor
