// The dialog that edits the scan ranges, one entry at a time: "Apply changes" saves the entry
// shown and reloads the ranges, and the dialog stays open until "Exit".
#pragma once

#include "link/core.h"

namespace veldor {

void frmScanner_Load(Core& c);
// Shows the entry chosen in cboMemoryNumber; edits of the one shown before are dropped.
void frmScanner_cboMemoryNumber_Click(Core& c);
// Ticking "Enc + Dec" clears "Enc only"; the other way round nothing happens.
void frmScanner_chkDec_Click(Core& c);
void frmScanner_cmdClear_Click(Core& c);
// Applies the entry shown; a refused frequency sends the focus back to its box.
void frmScanner_cmdOK_Click(Core& c);
void frmScanner_cmdCancel_Click(Core& c);

// The checks on leaving a box: true when the focus must go back to it.
bool frmScanner_txtStart_LostFocus(Core& c);
bool frmScanner_txtStop_LostFocus(Core& c);
bool frmScanner_txtStep_LostFocus(Core& c);
bool frmScanner_txtOffset_LostFocus(Core& c);

}  // namespace veldor
