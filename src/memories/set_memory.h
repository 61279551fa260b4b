// The dialog that defines memory EditMemoryIndex of the bank on show. A memory defined here is
// protected from a click on its store box.
#pragma once

#include "link/core.h"

namespace veldor {

void frmSetMemory_Load(Core& c);
// Encoder only and encoder with decoder exclude each other.
void frmSetMemory_chkEnc_Click(Core& c);
void frmSetMemory_chkDec_Click(Core& c);
// The checks on leaving a box: true when the focus must go back to it.
bool frmSetMemory_txtFreq_LostFocus(Core& c);
bool frmSetMemory_txtOffset_LostFocus(Core& c);
void frmSetMemory_cmdOK_Click(Core& c);
void frmSetMemory_cmdCancel_Click(Core& c);

}  // namespace veldor
