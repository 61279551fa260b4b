// CTCSS tone and repeater shift: the commands, and the lights that show what was sent.
#pragma once

#include "link/core.h"

namespace veldor {

// The command parameters of tone `code` (an index into the rig's list) and its switches ("1"
// on). A code beyond the list throws std::out_of_range.
void ToneValues(Core& c, const QString& code, const QString& encode, const QString& decode);
void SendToneSettings(Core& c);
void ToneOff(Core& c);
void ShowToneIndicators(Core& c);
void ClearToneIndicators(Core& c);

// Sends TargetShift and TargetOffset where they differ from what was sent last.
void ApplyRepeaterShift(Core& c);
void cmdShiftMinus_Click(Core& c);
void cmdShiftPlus_Click(Core& c);
void cmdShiftSimplex_Click(Core& c);

}  // namespace veldor
