// The conversion window is opened between two exchanges with the rig, its link given up.
#pragma once

#include "link/core.h"

namespace veldor {

// Gives up the link, runs frmConvert modally, and takes the link again if it is on.
void OpenConvert(Core& c);
// Tools -> "Convert freq files...": at once with the link off, otherwise at the next tick.
void mnuConvert_Click(Core& c);

}  // namespace veldor
