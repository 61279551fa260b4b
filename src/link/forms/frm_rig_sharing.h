// The rig sharing dialog: whether, and where, other programs reach the rig through Hamlib's
// network rig protocol.
#pragma once

#include "link/controls.h"

namespace veldor {

struct FrmRigSharing {
    QString caption = "VELDOR - Rig sharing";
    CheckBox chkRigctldEnabled{
        {true, true, " Let programs such as WSJT-X, fldigi and loggers use the rig "},
        "Share the rig (Hamlib NET rigctl)"};
    TextBox txtRigctldAddress{{true, true, " 127.0.0.1: programs on this computer only "}, {}};
    TextBox txtRigctldPort{{true, true, " TCP port; Hamlib's rigctld uses 4532 "}, {}};
    Label lblRigctldState;
};

}  // namespace veldor
