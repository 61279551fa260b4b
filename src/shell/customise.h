// Fitting the one main window to the rig in use.
#pragma once

#include "link/core.h"

namespace veldor {

// Which model frame, mode buttons, repeater, VFO and split buttons show, and the tone list.
void CustomiseForms(Core& c);

}  // namespace veldor
