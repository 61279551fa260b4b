// The FT-920 meters panel.
#pragma once

#include "link/controls.h"

namespace veldor {

// Its VFO B display is filled by the FT-920's second read.
struct FrmMeters {
    Label lblVFOB;
    Label lblModeB;
};

}  // namespace veldor
