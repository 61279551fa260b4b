// The S-meter, the signal decision and the lights, and the transmit and VFO status.
#pragma once

#include "link/core.h"

#include <functional>

namespace veldor {

// After the S-meter pause; false, with nothing read, when cutShort() ended the pause early
// (it is asked after each event during the pause).
bool ReadSignal(Core& c, const std::function<bool()>& cutShort = {});
void ReadStatus(Core& c);
// Two bytes of the rig's memory at address (FT-817, FT-857, FT-897).
void ReadEeprom(Core& c, uint16_t address);
void ReadFT897Status(Core& c);
void ReadFT857Status(Core& c);
void ReadFT817AGC(Core& c);

}  // namespace veldor
