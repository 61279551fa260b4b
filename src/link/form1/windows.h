// The buttons of the main window that open the other windows, and the timed events.
#pragma once

#include "link/controls.h"

namespace veldor {

struct WindowsGroup {
    CommandButton cmdMeters{{true, false, " Show the meters panel "}, "Meters"};
};

}  // namespace veldor
