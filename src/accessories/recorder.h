// The recorder window: the sound card's input to a wave file, held while the squelch is shut
// so that a long watch records only the transmissions.
#pragma once

#include "link/core.h"

namespace veldor {

void cmdRecord_Click(Core& c);
// The tick's answer to cmdRecord: opens the window once, armed for a new recording.
void ShowRecorder(Core& c);
// Every tick while recording has been started: follows the squelch light.
void RecordSquelchGate(Core& c);

void frmRecord_Load(Core& c);
void frmRecord_Unload(Core& c);
void recOpen_Click(Core& c);
void optFreq_Click(Core& c, int index);
void optBits_Click(Core& c, int index);
// The format of the chosen options; the data rate in kilobytes a second.
double GetRecordFormat(Core& c);
void MMControl2_RecordClick(Core& c);
void MMControl2_PauseClick(Core& c);
void MMControl2_StopClick(Core& c);
void recSave_Click(Core& c);
void cmdPlayer_Click(Core& c);
void cmdVolume_Click(Core& c);
void cmdClose_Click(Core& c);
// The transport buttons and the state line, after the recording's mode and length.
void ShowRecordState(Core& c);

}  // namespace veldor
