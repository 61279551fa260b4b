// The ring of frequency notes on the main window.
#pragma once

#include "link/controls.h"

namespace veldor {

struct NotesGroup {
    CommandButton cmdNoteFreq{{true, true, " Note the frequency shown "}, "&QMB"};
    // Back and forward work from the second note on.
    CommandButton cmdBack{{false, true, " Previous note "}, "<"};
    CommandButton cmdForward{{false, true, " Next note "}, ">"};
    CommandButton cmdNoteLast{{true, true, " The note taken last "}, "La&st"};
    CommandButton cmdClearNotes{{true, true, " Clear all notes "}, "Cl&ear"};
    Label lblNotes{{true, true, " Notes taken "}, "0"};
    Label lblCurrentNote{{true, true, " Note shown "}, "0"};
};

}  // namespace veldor
