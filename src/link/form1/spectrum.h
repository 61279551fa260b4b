// The spectrum display of the main window.
#pragma once

#include "link/controls.h"

#include <vector>

namespace veldor {

inline constexpr Colour LightCyan = 0xFFFF80;
inline constexpr Colour Orange = 0x0080FF;

// A picture drawn in its own scale. The core only adds strokes; the view draws each stroke
// once into its image and forgets it, so nothing is ever redrawn from stored data.
struct PictureBox : Control {
    Colour backColour = ButtonFace;
    Colour foreColour = Black;
    int scaleWidth = 100;
    int scaleHeight = 32;
    int drawWidth = 1;
    // A vertical line at x from y1 to y2 in the pen of the moment, or, when clear is set, the
    // whole picture in its back colour.
    struct Stroke {
        bool clear;
        int x, y1, y2;
        Colour colour;
        int width;
    };
    std::vector<Stroke> strokes;  // not yet drawn by the view
};

// Clears the picture: what was not yet drawn need never be.
inline void Cls(PictureBox& p) {
    p.strokes.clear();
    p.strokes.push_back({true, 0, 0, 0, p.backColour, 0});
}

inline void Line(PictureBox& p, int x, int y1, int y2) {
    p.strokes.push_back({false, x, y1, y2, p.foreColour, p.drawWidth});
}

struct SpectrumGroup {
    Frame frmSpectrum{{}, "Spectrum"};
    int frmSpectrumTop = 0;  // twips
    PictureBox picSpectrum;
    CommandButton cmdStartSpectrum{{true, true, " Start or restart a sweep "}, "Sweep"};
    CommandButton cmdStopSpectrum{{true, true, " Finished with using spectrum scan "}, "End"};
    CommandButton cmdSpectrumResume{{true, true, " Resume a sweep "}, "Resume"};
    TextBox txtSpectrumFreq{{true, true, " Frequency of hairline cross in spectrum display "}, {}};
    // Editable lists: the text is what the box holds, typed or chosen.
    ComboBox cboSpectrumStart{
        {true, true, " Start frequency for spectrum display in Mhz "}, {"Start"}, -1, "Start"};
    ComboBox cboSpectrumStep{{true, true, " Stepsize for sweep in Khz "},
                             {"0.1", "0.5", "1.0", "2.5", "5.0", "6.25", "10", "12.5", "25"},
                             -1,
                             "0.5"};
    ComboBox cboSpectrumWidth{
        {true, true, " Width of sweep in Khz "},
        {"10", "25", "50", "75", "100", "150", "200", "250", "300", "500", "1000"},
        -1,
        "100"};
    Slider sldFrequency{{}, 0, 0, 1000};  // across the band
};

}  // namespace veldor
