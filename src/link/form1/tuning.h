// Operator tuning on the main window: the GoTo box and its large twin, the transverter
// options, and the delay sliders.
#pragma once

#include "link/controls.h"

#include <array>

namespace veldor {

struct TuningGroup {
    std::array<OptionButton, 2> optXvtr{};
    TextBox txtGoToFreq;
    TextBox txtShowLargeGoTo{{true, false, {}}, {}};

    // Delays: command, S-meter and extra delay in milliseconds.
    CheckBox chkSliders{{true, true, " Show/hide the delay sliders "}, "Delays"};
    Slider sldCMDdelay{{true, false, {}}, 0, 0, 500};
    Slider sldSmeterDelay{{true, false, {}}, 50, 0, 500};
    Slider sldExtra{{true, false, {}}, 250, 0, 1000};
    Label lblCmdDelay{{true, false, {}}, "CMD delay"};
    Label lblAGCdelay{{true, false, {}}, "S-meter delay"};
    Label lblExtra{{true, false, {}}, "Extra delay"};
};

}  // namespace veldor
