// The main window's menu items that belong to no other subsystem: settings, conversion, the
// memory grid's place, help and about.
#pragma once

#include "link/core.h"

namespace veldor {

// Opens the settings at once with the link off; otherwise at the end of the next tick.
void mnuSettings_Click(Core& c);
void mnuConvert_Click(Core& c);
// Gives up the link, shows the conversion window, and takes the rig again if the link runs.
void OpenConvert(Core& c);
// Brings a memory grid window lost off the screen back to the top left.
void mnuResetMemoryGridPosition_Click(Core& c);
void mnuHelp_Click(Core& c);
void mnuAbout_Click(Core& c);

}  // namespace veldor
