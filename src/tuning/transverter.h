// The transverter frame: the rig's frequency shown on the transverter's band, the base
// frequency typed by the operator.
#pragma once

#include "link/core.h"

namespace veldor {

// Base and direction from the store (InitialiseVariables).
void LoadTransverter(Core& c);
// F5: the frame on or off.
void mnuXvtr_Click(Core& c);
// 0 adds the rig's frequency to the base, 1 subtracts it from the base.
void optXvtr_Click(Core& c, int index);

// While the operator types a base, the display leaves the box alone; Enter (key 13, which is
// swallowed) or leaving the box takes the base.
void txtXvtrBase_GotFocus(Core& c);
void txtXvtrBase_KeyPress(Core& c, int& keyAscii);
void txtXvtrBase_Validate(Core& c);
void ApplyXvtrBase(Core& c);

}  // namespace veldor
