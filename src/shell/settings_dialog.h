// The settings dialog: the operator names the rig, the port and its speed, the window size, the
// extra PTT port, the files folder, start-up options, the bank names and the band buttons.
// Polling stops while it is open.
#pragma once

#include "link/core.h"

namespace veldor {

// What the speed rule of a rig makes of a chosen speed.
enum class SpeedCheck {
    Accepted,
    Refused,      // the rig cannot work at that speed
    Forced4800,   // the rig works at 4800 only, and the speed becomes "4800,N,8,2"
    Unsupported,  // no rig of that name
};
SpeedCheck CheckCommSpeed(const QString& rig, const QString& speed);
// The speed as the port is opened with it: two stop bits, whatever was chosen.
QString WithTwoStopBits(const QString& speed);
// The ports offered: 1 to 16, the system's own ports, and the built-in simulated rig.
QStringList CommPortList(Core& c, QStringList* descriptions = nullptr);

void frmSettings_Load(Core& c);
void frmSettings_Unload(Core& c);
void frmSettings_cboScreenSize_Click(Core& c);
void frmSettings_chkAutoStart_Click(Core& c);
void frmSettings_chkClearBuffer_Click(Core& c);
void frmSettings_cmdSetFiles_Click(Core& c);
void frmSettings_cmdGetZantikoSettings_Click(Core& c);
// The band editor.
void frmSettings_cboBandNumber_Click(Core& c);
// True when the focus must go back to the box.
bool frmSettings_txtFreq_LostFocus(Core& c);
void frmSettings_cmdAccept_Click(Core& c);
void frmSettings_cmdReset_Click(Core& c);
void frmSettings_cmdOK_Click(Core& c);
void frmSettings_cmdCancel_Click(Core& c);

}  // namespace veldor
