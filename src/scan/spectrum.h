// The spectrum sweep: the rig is stepped across a band, one point per poll tick, and each
// S-meter reading is drawn as a bar of the picture. The picture is also a tuning surface.
#pragma once

#include "link/core.h"

namespace veldor {

// Mouse buttons as the handlers know them: 1 left, 2 right.
inline constexpr int SpectrumLeft = 1;
inline constexpr int SpectrumRight = 2;
// The Shift argument's Ctrl bit.
inline constexpr int CtrlMask = 2;

// Asks the tick for a new sweep.
void cmdStartSpectrum_Click(Core& c);
// The tick's part: a requested start, then one point.
void SpectrumStart(Core& c);
void SpectrumStep(Core& c);
// One bar of the given level at the next position, and the turn of the pens at the end.
void DrawSpectrumPoint(Core& c, int level);

void cmdStopSpectrum_Click(Core& c);
void cmdSpectrumResume_Click(Core& c);

// x is in the picture's scale: a unit per point.
void picSpectrum_MouseDown(Core& c, int button, int shift, double x);
void picSpectrum_MouseMove(Core& c, int button, int shift, double x);
void picSpectrum_MouseUp(Core& c);
// The status reading's part: a click waits to be tuned there.
void ApplySpectrumCursor(Core& c);

// Checks of the three boxes as the operator leaves them; true sends the focus back.
bool cboSpectrumStart_LostFocus(Core& c);
bool cboSpectrumStep_LostFocus(Core& c);
bool cboSpectrumWidth_LostFocus(Core& c);
// A step chosen from the list.
void cboSpectrumStep_Click(Core& c);

// View: "Spectrum display only".
void mnuSpectrumOnly_Click(Core& c);

}  // namespace veldor
