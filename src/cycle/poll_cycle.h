// The poll cycle's reading and its menus.
#pragma once

#include "link/core.h"

namespace veldor {

// One full reading of the rig, at the rate of PollingDelay.
void PerformStatusUpdate(Core& c);

// Polling menu: 99 is no polling, 0 fast polling, else milliseconds between readings.
void SetPollingDelay(Core& c, int32_t delay);
void mnuPollingUpdateNow_Click(Core& c);
// A press on the threshold bar at x of its width (any unit): the level at which a signal
// counts.
void pbarGotSignal_MouseDown(Core& c, int x, int width);

// Talk speed menu, 1 (slowest) to 5 (fastest): the period of the poll timer.
void mnuTalk_Click(Core& c, int talkFreq);

}  // namespace veldor
