// The buttons of the main window that open the other windows, and the timed events.
#pragma once

#include "link/controls.h"

namespace veldor {

struct WindowsGroup {
    CommandButton cmdCsvMem{{true, true, " Show the memory grid "}, "Mem Grid"};
    CommandButton cmdRecord{{true, true, " Show the recording window "}, "Record"};
    CommandButton cmdMeters{{true, false, " Show meters window "}, "Meters"};
    CommandButton cmdTimed{{true, true, "Run Timed frequency switching and tasks"}, "Timed"};
    ComboBox cboTimedEvents{{true, true, "User-defined timed events"}, {}, -1};
};

}  // namespace veldor
