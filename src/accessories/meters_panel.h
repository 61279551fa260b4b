// The FT-920 meters panel: opened and closed through the tick, docked beside the main window.
// The FT-920's readings fill it (ReadMeters, and the VFO B read).
#pragma once

#include "link/core.h"

namespace veldor {

void cmdMeters_Click(Core& c);
// The tick's request: shows the panel, loading it if need be, or hides it.
void ToggleMetersPanel(Core& c);

void frmMeters_Load(Core& c);
void frmMeters_Unload(Core& c);
void frmMeters_cmdClose_Click(Core& c);
void frmMeters_cmdDockLeft_Click(Core& c);
void frmMeters_cmdDockRight_Click(Core& c);

}  // namespace veldor
