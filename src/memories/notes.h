// Frequency notes: a ring of 30 frequencies jotted down while tuning, with back and forward
// through them. They live until the program ends; nothing is saved.
#pragma once

#include "link/core.h"

namespace veldor {

// Notes the frequency, mode, tone and shift shown; the 31st note overwrites the first.
void cmdNoteFreq_Click(Core& c);
// Recall: the note before, the note after, the note taken last. The rig goes there at the
// next tick, as for a band button.
void cmdBack_Click(Core& c);
void cmdForward_Click(Core& c);
void cmdNoteLast_Click(Core& c);
// Asks first, then empties the ring.
void cmdClearNotes_Click(Core& c);

}  // namespace veldor
