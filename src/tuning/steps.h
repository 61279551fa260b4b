// Tuning by a chosen step: the step grid with its arrow keys, the knob (also the mouse
// wheel), and the megahertz buttons. None of them writes to the rig: each leaves a frequency in
// the GoTo box and raises GoToPending, or raises its own request, and the poll tick sends.
#pragma once

#include "link/core.h"

namespace veldor {

// The rows of grdTuning and the knob's start (InitialiseVariables).
void FillTuningSteps(Core& c);

// One step of TuningStep down or up from TuningFrequency, aligned to a whole multiple of the
// step; down stops at 100 kHz, up is stopped only by the range check of the GoTo.
void TuneDown(Core& c);
void TuneUp(Core& c);

void grdTuning_Click(Core& c);
void grdTuning_RowColChange(Core& c);
// Key codes: 37 the left arrow tunes down, 39 the right arrow up.
void grdTuning_KeyDown(Core& c, int keyCode);
void grdTuning_KeyUp(Core& c);

// The knob moved to VScroll1.value: towards the top raises the frequency.
void VScroll1_Change(Core& c);
// Wheel notches over the knob, the step grid or the frequency display: each moves the knob
// by one, positive towards the top.
void KnobWheel(Core& c, int notches);

void cmdMhzPlus_Click(Core& c);
void cmdMhzMinus_Click(Core& c);
// One megahertz up or down from the rig's own frequency, at the start of each reading.
void ApplyMhzStep(Core& c);

// A display text less its second separator: "14.250.00" becomes "14.25000".
QString WithoutSecondSeparator(const QString& displayText);

}  // namespace veldor
