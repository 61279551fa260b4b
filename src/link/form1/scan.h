// The scan controls of the main window.
#pragma once

#include "link/controls.h"

namespace veldor {

struct ScanGroup {
    CommandButton cmdStartStopScan{{false, true, {}}, "Start Scan"};
    CommandButton cmdScanMemOrBank{{true, true, " Scan Memory, current Bank or Grid "}, "Scan Bnk"};
    CommandButton cmdShowScanSettings{{true, true, " Define scanner memory settings "}, "Set Scan"};
    // The names of the scan ranges.
    ComboBox cboScanRange;
};

}  // namespace veldor
