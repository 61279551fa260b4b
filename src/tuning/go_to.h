// GoTo: the typed way to a frequency, through txtGoToFreq or its large twin, with an optional
// last letter for the mode. The knob ends here too.
#pragma once

#include "link/core.h"

namespace veldor {

void cmdGoToFreq_Click(Core& c);
// Enter (key 13) in a box asks for the GoTo and is swallowed (keyAscii becomes 0), unless
// the rig transmits, scans or sweeps. The large box hands its text to txtGoToFreq first.
void txtGoToFreq_KeyPress(Core& c, int& keyAscii);
void txtShowLargeGoTo_KeyPress(Core& c, int& keyAscii);
// Run by the tick for GoToPending: checks the text and tunes the rig.
void ApplyGoTo(Core& c);

// The large GoTo box: shown from the store at start (Form_Load), and by the menu (F7). Shown,
// it takes the focus.
void LoadLargeGoTo(Core& c);
void mnuShowLargeGoTo_Click(Core& c);

// The VR-5000 cannot report its frequency: at switch-on it goes through the GoTo box to the
// frequency and mode last sent to it, so that rig and display agree.
void GoToVr5000LastFreqMode(Core& c);

}  // namespace veldor
