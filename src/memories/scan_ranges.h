// The twenty scan ranges in section "Scanner" (Scan0Start0 to Scan0Offset19), and the range in
// use that the scan engine steps through.
#pragma once

#include "link/core.h"

namespace veldor {

// Reads the ranges, adds their names to the main window's list, and makes the last chosen
// range (or, with none chosen, the first one named) the range in use. Every caller passes
// bank 0.
void LoadScanRanges(Core& c, int bank);
void SaveScanRanges(Core& c, int bank);

}  // namespace veldor
