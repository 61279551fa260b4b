// The three delay sliders of the main window, kept per rig family.
#pragma once

#include "link/core.h"

namespace veldor {

// Each slider from its key of the rig in use; the extra delay defaults to extraDefault.
void LoadDelaySliders(Core& c, const QString& extraDefault);
void sldCMDdelay_Change(Core& c);
void sldSmeterDelay_Change(Core& c);
void sldExtra_Change(Core& c);
// Shows or hides the three sliders and their labels together.
void chkSliders_Click(Core& c);

}  // namespace veldor
