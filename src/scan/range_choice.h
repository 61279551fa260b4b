// The scan range on the main window: the list of range names and the button that opens the
// dialog defining them.
#pragma once

#include "link/core.h"

namespace veldor {

// Makes the range chosen in cboScanRange the range in use and remembers it; the focus goes
// on to cmdStartStopScan.
void cboScanRange_Click(Core& c);
void cmdShowScanSettings_Click(Core& c);

}  // namespace veldor
