// Reading the rig's frequency and mode, and the two display forms of a frequency.
#pragma once

#include "link/core.h"

namespace veldor {

void ReadFrequencyAndMode(Core& c);
// 14.25000 MHz as "14.250.00", with the system's decimal mark.
QString FormatFrequency(Core& c, int32_t frequency);
// 14.25000 MHz as "14.25000".
QString FormatFrequencyShort(Core& c, int32_t frequency);

}  // namespace veldor
