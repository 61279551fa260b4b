// The ring of frequency notes: jotted while tuning, kept until the program ends.
#pragma once

#include <QString>

#include <array>
#include <cstdint>

namespace veldor {

struct NotesState {
    // Entries 1 to 30; entry 0 exists and stays empty.
    std::array<QString, 31> NoteFreq, NoteMode, NoteCTCSS, NoteEncDec, NoteShift, NoteOffset;
    int NoteLast = 0;     // the entry stored last; 0 when none
    int NoteCurrent = 0;  // the entry shown
    int NoteCount = 0;    // entries in use, at most 30
};

}  // namespace veldor
