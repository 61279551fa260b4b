// The scan controls of the main window.
#pragma once

#include "link/controls.h"

#include <array>

namespace veldor {

inline constexpr Colour Yellow = 0xFFFF;
inline constexpr Colour LightRed = 0xC0C0FF;

struct ScanGroup {
    // The caption is the scan's state: "Start", "Stop" or "Resume".
    CommandButton cmdStartStopScan{{false, true, " Start/Stop/Resume scanning "}, "Start"};
    CommandButton cmdScanHold{{true, true, " Hold on current frequency "}, "Hold", Yellow};
    CommandButton cmdScanMemOrBank{{true, true, " Scan Memory, current Bank or Grid "}, "Scan Bnk"};
    CommandButton cmdShowScanSettings{{true, true, " Define scanner memory settings "}, "Set Scan"};
    // The names of the scan ranges.
    ComboBox cboScanRange;
    // What stops the scan: a busy channel, a free one, or nothing.
    Frame frmStop{{}, "Stop On"};
    std::array<OptionButton, 3> optStopOn{
        {{{true, true, " Stop scan if channel busy "}, "Busy", true},
         {{true, true, " Stop scan if channel free "}, "Free"},
         {{true, true, " Continuous scanning "}, "None"}}};
};

}  // namespace veldor
