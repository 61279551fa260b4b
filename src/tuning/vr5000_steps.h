// The VR-5000's step options: a click stores the step of the mode in use and asks the tick to
// send the mode again, with the new step riding on it.
#pragma once

#include "link/core.h"

namespace veldor {

void optLSBUSB_Click(Core& c, int index);
void optAM_Click(Core& c, int index);
void optFMN_Click(Core& c, int index);
void optWFM_Click(Core& c, int index);

}  // namespace veldor
