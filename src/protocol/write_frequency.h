// The one road by which the program puts the rig on a frequency and a mode, and the mode
// buttons.
#pragma once

#include "link/core.h"

namespace veldor {

// The nearest mode the current rig has.
QString ModeForRig(const Core& c, const QString& mode);
// Whether the rig's mode command has a code for the mode: a mode without one is shown but
// not sent.
bool ModeHasCommand(const QString& rig, const QString& mode);

// The modes of the rig's mode buttons, in the buttons' order.
QStringList ButtonModes(const QString& rig);

// Both take their arguments by reference: the mode becomes the rig's nearest mode, and a
// VR-5000 frequency may be rounded to its step.
void SetFrequencyAndMode(Core& c, int32_t& frequency, QString& mode);
void SetFrequency(Core& c, int32_t& frequency);
// The rig's frequency command alone, with the bytes PrepareFrequency has made. The VR-5000's
// channel is stored for the next start unless told otherwise.
void SendFrequencyCommand(Core& c, int32_t frequency, bool rememberVr5000Channel = true);

// Mode buttons: the click only asks; the poll tick writes through ApplyModeButton.
void Command2_Click(Core& c, int index);
void ApplyModeButton(Core& c);

// "14.250.00" in USB gives "14.250u00": the VR-5000's last frequency and mode, kept in the
// store so that the receiver comes back where it was.
void SaveVR5000LastFreqMode(Core& c, const QString& frequencyText);

}  // namespace veldor
