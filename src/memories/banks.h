// The six banks of twelve quick memories: their keys in section "Banks", the bank on show, and
// the clicks on its boxes. Every edit is saved at once and the bank reloaded from the store.
#pragma once

#include "link/core.h"

namespace veldor {

// Banks and memories count from 0 here; their keys count from 1 (Bank3M12Freq).
void LoadBank(Core& c, int bank);
void SaveBank(Core& c, int bank);
// Empties the memories in the store, keeping their shift, scan flag and offset.
void ClearBank(Core& c, int bank);
void LoadBankNames(Core& c);
// Memory `index` of the bank on show as a memory never stored: each field at its default.
void EmptyMemory(Core& c, int index);

void cmdBankNumber_Click(Core& c, int index);
void cmdClearBank_Click(Core& c);

// lblStore recalls a memory; a double click or a right click opens the dialog on it.
void lblStore_Click(Core& c, int index);
void lblStore_DblClick(Core& c, int index);
void lblStore_MouseUp(Core& c, int index, int button);
// lblSet stores the rig's frequency; a double click clears the memory, a right click takes it
// into or out of bank scans.
void lblSet_Click(Core& c, int index);
void lblSet_DblClick(Core& c, int index);
void lblSet_MouseUp(Core& c, int index, int button);

// The ClickSet menu: memory 1 to 12 of the bank on show.
void mnuGoToM_Click(Core& c, int memory);
void mnuSetM_Click(Core& c, int memory);

inline constexpr int RightButton = 2;

}  // namespace veldor
