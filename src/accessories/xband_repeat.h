// The FT-847 as a cross-band repeater: one VHF and one UHF frequency on the two satellite
// sides, swapped while nothing is heard, held while the squelch is open. The window is modal
// and owns the port while it is open.
#pragma once

#include "link/core.h"

namespace veldor {

// Asks the tick for the window; refused while transmitting, scanning or sweeping.
void cmdXBand_Click(Core& c);
// The last command of the tick: the window, until it closes.
void ShowXBandRepeat(Core& c);

void frmXBandRepeat_Load(Core& c);
void frmXBandRepeat_Unload(Core& c);
// The digit buttons, index 0 (100 MHz) to 7 (10 Hz).
void frmXBandRepeat_cmdFreqAPlus_Click(Core& c, int index);
void frmXBandRepeat_cmdFreqAMinus_Click(Core& c, int index);
void frmXBandRepeat_cmdFreqBPlus_Click(Core& c, int index);
void frmXBandRepeat_cmdFreqBMinus_Click(Core& c, int index);
// Runs the repeater until Stop, Exit or the window's closing.
void frmXBandRepeat_cmdStart_Click(Core& c);
void frmXBandRepeat_cmdStop_Click(Core& c);
void frmXBandRepeat_cmdExit_Click(Core& c);

}  // namespace veldor
