// How large the windows are drawn: the design is for a screen of 1024 by 768, and the operator's
// choice of "Small", "Medium", "Large" or "None" scales it to the screen in use.
#pragma once

#include "link/core.h"

namespace veldor {

// "VGA" for a screen of 96 logical pixels per inch (small fonts), otherwise "8514".
QString ScreenFontClass(Core& c);
// Decides the scale of the windows (ScaleX, ScaleY) for ScreenSize; a screen too small, or
// large fonts on a 640-pixel screen, end the program: false then.
bool SetScreenSize(Core& c);
// The factor fonts are scaled by: the mean of the two, when RescaleFonts is "Yes".
double FontScale(const State& s);

}  // namespace veldor
