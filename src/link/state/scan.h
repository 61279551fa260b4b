// The state of the scan engine and the spectrum sweep.
#pragma once

#include <QString>

#include <cstdint>

namespace veldor {

struct ScanState {
    bool ScanHold = false;        // the scan is paused
    bool SpectrumPaused = false;  // the sweep is paused
};

}  // namespace veldor
