// The thirteen band buttons and their table in section "Bands" of the store.
#pragma once

#include "link/core.h"

namespace veldor {

// Reads all rows; a "." in a frequency becomes the system's decimal mark.
void LoadBands(Core& c);
void SaveBands(Core& c);
void ShowBandCaptions(Core& c);
// Tunes to the row at the next tick, with its mode, shift, offset and tone; nothing at all
// happens with the link off, while transmitting, scanning or sweeping.
void cmdBand_Click(Core& c, int index);

}  // namespace veldor
