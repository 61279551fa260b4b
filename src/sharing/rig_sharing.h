// Rig sharing as the operator sets it: the server's start from the stored settings, and the
// dialog that changes them at once.
#pragma once

#include "link/core.h"

namespace veldor {

// Starts, moves or stops the server as RigctldEnabled, RigctldAddress and RigctldPort say.
// A failure to listen goes to the messages log; false then.
bool StartRigSharing(Core& c);

// The dialog: filled from the settings in force; OK checks the boxes, asks before opening the
// rig to the network, and applies and saves them. False keeps the dialog open.
void frmRigSharing_Load(Core& c);
bool frmRigSharing_cmdOK_Click(Core& c);

// Whether an address reaches this computer only.
bool IsLoopbackAddress(const QString& address);

}  // namespace veldor
