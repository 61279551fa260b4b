// Putting the rig on the air and back: the CAT switch, the RTS line of the rig's port, the
// lines of the extra PTT port, and the menus that set the resting lines.
#pragma once

#include "link/core.h"

namespace veldor {

// Whether the TX/RX button has the rig keyed: by its own state when the button works only
// lines, else by the CAT switch.
bool PttKeyed(const Core& c);
void cmdTxRx_Click(Core& c);
void chkTransmitEnable_Click(Core& c);
// The CAT switch, carried out by the poll tick.
void PttOn(Core& c);
void PttOff(Core& c);
// The keying line(s) of the extra PTT port: DTR, RTS or both, by ExtraPttPortPins.
void SetExtraPtt(Core& c, bool state);
// While LinkRTS is "Y": RTS of the rig's port and the extra port follow the rig's TX light.
void FollowTxState(Core& c);

void mnuRaiseDTR_Click(Core& c);
void mnuRaiseRTS_Click(Core& c);
void mnuLinkRTS_Click(Core& c);
void mnuTXRXcontrolsRTS_Click(Core& c);

}  // namespace veldor
