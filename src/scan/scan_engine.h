// The scan engine: a state machine that the poll tick advances once per tick, started, stopped
// and reconfigured by the scan buttons and menus. It keeps no timer of its own; only the hang
// delay looks at the clock.
#pragma once

#include "link/core.h"

namespace veldor {

// The scan button: Start validates the source and raises the first frequency change; Stop
// ends; Resume leaves a channel the scan stopped on. Also started by the timed events.
void cmdStartStopScan_Click(Core& c);
// One step of the tick: the transmit watch, the hang delay, the speed count and the next
// frequency of the source.
void ScanStep(Core& c);
// After the step: the signal reading and the stop condition of "Stop On".
void ScanCheckSignal(Core& c);

void cmdScanHold_Click(Core& c);
// Cycles the source: range, bank, grid.
void cmdScanMemOrBank_Click(Core& c);

// The slots of the bank on show that are scanned: a frequency and the scan flag "Y".
bool FirstBankFrequency(Core& c);
bool NextBankFrequency(Core& c);
// The rows of the memory grid on show that are scanned (Scan "Y").
bool FirstGridFrequency(Core& c);
bool NextGridFrequency(Core& c);

// The Scan menu: each runs the button only when its caption is the menu's word; Hold always.
void mnuStart_Click(Core& c);
void mnuStop_Click(Core& c);
void mnuHold_Click(Core& c);
void mnuResume_Click(Core& c);

// The hang delay in seconds (HangDelayPermanent: until Resume), saved and ticked.
void SetHangDelay(Core& c, int seconds);
void ShowHangDelayTicks(Core& c);
void mnuHangDelayOnSignalLoss_Click(Core& c);
// Speed 1 (slowest) to 5, saved and ticked; ignored while a sweep runs.
void mnuScanSpeed_Click(Core& c, int speed);
void ShowScanSpeedTicks(Core& c);
void mnuUseSquelch_Click(Core& c);

}  // namespace veldor
