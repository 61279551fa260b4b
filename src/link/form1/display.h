// The frequency display, the S-meter with its threshold, and the state lights.
#pragma once

#include "link/controls.h"

namespace veldor {

struct DisplayGroup {
    TextBox txtVfoA{{true, true, " Frequency "}, {}};
    TextBox txtMode{{true, true, " Current mode "}, {}};
    Label lblRigMode{{true, true, " Tuning mode "}, {}};

    ProgressBar pbarSmeter{{true, true, " S-Meter "}, 0, 0, 31};
    ProgressBar pbarGotSignal{
        {true, true, " S-meter level that indicates got a signal "}, 3, 0, 31};

    // State lights: back colour green, white or red.
    Label lblTX{{true, true, " PTT On "}, "TX", White};
    Label lblRX{{true, true, " Busy "}, "RX", White};
    Label lblSQL{{true, true, " Squelch On "}, "SQL", White};
    Label lblDCS{{true, true, {}}, "DCS", White};
    Label lblDISC{{true, true, {}}, "DISC", White};
};

}  // namespace veldor
