// The FT-450 DSP panel: its lights and sliders, which the requests read.
#pragma once

#include "link/controls.h"

#include <array>

namespace veldor {

struct Frm450DSP {
    Label lbl450Mode{{true, true, " Current operating mode "}, "Mode"};
    Label lblSqlRFGain{{true, true, " Click to change state "}, "SQL or RF Gain"};
    Label lbl450NoiseBlanker{{true, true, " Click to change state "}, "Noise Blanker", White};
    Label lbl450NoiseReduction{{true, true, " Click to change state "}, "Noise reduction", White};
    Label lbl450Notch{{true, true, " Click to change state "}, {}, White};
    Slider sldNoiseReduction{{true, true, " Drag slider to change algorithm "}, 1, 1, 11};
    Slider sldNotch{{true, true, {}}, 1, 1, 400};
    Slider sldAFGain{{true, true, " Click to change state "}, 0, 0, 255};
    Slider sldRFGain{{true, true, " Click to change state "}, 0, 0, 255};
    Slider sldFilter{{true, true, {}}, 2, 1, 3};
    std::array<Label, 6> lblContour{};      // 1..5
    std::array<Label, 6> lblContourFreq{};  // 1..5
};

}  // namespace veldor
