// The transverter display: the rig's frequency shifted by a base frequency, as the operator
// reads it on the transverter's band.
#pragma once

#include "link/core.h"

namespace veldor {

// Base plus the rig's frequency (optXvtr(0)) or base less it, as "000.144.250.00" with the
// system's decimal mark; "Error" when that falls below zero.
QString TransverterFrequencyText(const Core& c, int32_t frequency);
// The base frequency as "00116.00000".
QString TransverterBaseText(const Core& c);
// Fills txtXvtr and txtXvtrBase for the frequency, while the transverter frame is on and the
// operator is not typing a base.
void ShowTransverter(Core& c, int32_t frequency);

}  // namespace veldor
