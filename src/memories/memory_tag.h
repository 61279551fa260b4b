// The memory tag: the name and frequency of the last memory recalled, and "Off Freq" once the
// rig has moved away from it.
#pragma once

#include "link/core.h"

namespace veldor {

// Run by the tick: shows "Off Freq" while the rig is off the tagged frequency.
void CheckMemoryTag(Core& c);
// Takes the rig back to the tagged frequency through the GoTo box.
void lblMemoryMT_Click(Core& c);
void mnuMemoryTag_Click(Core& c);
// The menu tick and the frame as ShowMemoryTag says.
void ShowMemoryTagFrame(Core& c);

}  // namespace veldor
