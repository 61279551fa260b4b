// How the program comes up, how a connection opens and closes, and how it ends.
#pragma once

#include "link/core.h"

namespace veldor {

void InitialiseVariables(Core& c);

void Form_Load(Core& c, const QString& commandLine);
void Form_DblClick(Core& c);
void Form_Unload(Core& c);
void mnuExit_Click(Core& c);

void chkOnOff_Click(Core& c);
// Setting the value from code runs the click handler, as a click would, when it changes.
void SetChkOnOff(Core& c, int value);

void TakeControl(Core& c);
void ReleaseControl(Core& c);
// The end of a tick whose link failed: a lost binary reply, a run of lost text replies, or a
// port gone under the link. Reopens the port and takes the rig anew; a port that cannot be had
// is told of once and tried again at every tick, until the device is back under its name.
void RecoverLink(Core& c);
// Text replies lost in a row before the FT-450's link is recovered as a binary rig's is.
constexpr int kTextTimeoutsBeforeRecovery = 3;
void SaveCurrentValues(Core& c, const QString& frequency, const QString& mode);

void ChooseHomeDir(Core& c);

// Menu ticks that follow the stored values.
void ShowTalkSpeedTicks(Core& c);
void ShowPollingTicks(Core& c);
void ShowRtsTicks(Core& c);

// The second timer: UTC clock and the ten-minute counter.
void tmrClock_Timer(Core& c);
void cmdTenMinCounter_Click(Core& c);

// The poll tick.
void tmrPollInterval_Timer(Core& c);

}  // namespace veldor
