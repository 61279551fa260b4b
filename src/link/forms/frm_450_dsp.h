// The FT-450 DSP panel: its lights and sliders, which the requests read and the poll sets.
#pragma once

#include "link/controls.h"

#include <array>

namespace veldor {

struct Frm450DSP {
    QString caption = "FT-450 DSP";
    // Placement and size in twips, as the main window's; loaded until the panel is closed.
    int left = 0, top = 0, width = 4800, height = 6000;
    bool loaded = false;

    Label Label15{{}, "DSP settings etc"};
    CommandButton cmdVM{{true, true, " Switch between VFO/Memory "}, "V/M"};
    CommandButton cmdDockLeft{{true, true, " Dock on left "}, {}};
    CommandButton cmdDockRight{{true, true, " Dock on right "}, {}};
    CommandButton cmdClose{{true, true, " Close meters window "}, {}};
    Label lbl450Mode{{true, true, " Current operating mode "}, "Mode"};
    Label lblSqlRFGain{{true, true, " Click to change state "}, "SQL or RF Gain"};
    Label lbl450NoiseBlanker{{true, true, " Click to change state "}, "Noise Blanker", White};
    Label lbl450NoiseReduction{{true, true, " Click to change state "}, "Noise reduction", White};
    Label lbl450Notch{{true, true, " Click to change state "}, {}, White};
    Label lbl450Filter{{}, "Nar        Filter      Wide"};
    Slider sldNoiseReduction{{true, true, " Drag slider to change algorithm "}, 1, 1, 11};
    Slider sldNotch{{true, true, {}}, 1, 1, 400};
    Slider sldAFGain{{true, true, " Click to change state "}, 0, 0, 255};
    Slider sldRFGain{{true, true, " Click to change state "}, 0, 0, 255};
    Slider sldFilter{{true, true, {}}, 2, 1, 3};
    // Members 1 to 5, from the left end of each scale; member 0 is not used.
    std::array<Label, 6> lblContour = Scale(" Click on the numbers below to change the level ",
                                            {"-12", "-6", "Off", "+6", "+12"});
    std::array<Label, 6> lblContourFreq =
        Scale(" Click on the numbers to change the frequency ", {"250", "500", "1k", "2k", "4k"});

  private:
    static std::array<Label, 6> Scale(const QString& toolTip, std::array<const char*, 5> captions) {
        std::array<Label, 6> labels{};
        for (size_t i = 1; i < labels.size(); ++i)
            labels[i] = Label{{true, true, toolTip}, captions[i - 1], White};
        return labels;
    }
};

}  // namespace veldor
