// Operator tuning on the main window: the step grid and the knob, the megahertz buttons, the
// GoTo box and its large twin, the transverter frame, and the delay sliders.
#pragma once

#include "link/controls.h"

#include <array>

namespace veldor {

// A grid of labelled rows of which one is chosen.
struct StepGrid : Control {
    QStringList rows;  // the labels of column 0
    int row = 0;
};

struct TuningGroup {
    StepGrid grdTuning{
        {true, true,
         " Chose a step rate then use left/right arrow keys to tune, or use the mouse wheel "},
        {},
        0};
    // The knob keeps its whole range and starts in the middle, with room both ways.
    Slider VScroll1{{true, true, " Tune by the step: up raises the frequency "}, 16384, 0, 32767};
    CommandButton cmdMhzPlus{{true, true, " Up 1 Mhz "}, "+1Mhz"};
    CommandButton cmdMhzMinus{{true, true, " Down 1 Mhz "}, "-1Mhz"};

    TextBox txtGoToFreq{
        {true, true, " MHz (14.25) or kHz (14250); a last letter L U C F W A D P sets the mode "},
        {}};
    CommandButton cmdGoToFreq{{true, true, {}}, "GoTo =>"};
    TextBox txtShowLargeGoTo{{true, false, " GoTo frequency "}, {}};

    // Transverter: the rig's frequency shifted by a base frequency.
    Frame frmXvtr{{true, false, {}}, "Transverter"};
    std::array<OptionButton, 2> optXvtr{
        {{{true, true, " Base frequency plus the rig's "}, "Add"},
         {{true, true, " Base frequency less the rig's "}, "Subtract"}}};
    TextBox txtXvtr{{true, true, " Transverter frequency "}, {}};
    TextBox txtXvtrBase{{true, true, " Transverter base frequency "}, {}};

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
