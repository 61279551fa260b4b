// Reading the rig's frequency and mode, and the two display forms of a frequency.
#pragma once

#include "link/core.h"

namespace veldor {

void ReadFrequencyAndMode(Core& c);
// 14.25000 MHz as "14.250.00", with the system's decimal mark.
QString FormatFrequency(Core& c, int32_t frequency);
// 14.25000 MHz as "14.25000".
QString FormatFrequencyShort(Core& c, int32_t frequency);
// A typed frequency: MHz with the system's decimal mark ("14.25"), kHz without ("14250").
// -1 for a text that is no frequency, after a box unless quiet.
int32_t ParseFrequency(Core& c, const QString& text, bool quiet = false);
// The usual repeater offset of the frequency's band, as MHz text with the system's decimal mark
// (".60000" on 2 m).
QString DefaultRepeaterOffset(const Core& c, int32_t frequency);

}  // namespace veldor
