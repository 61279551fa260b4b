// Quick memories on the main window: the bank buttons, the twelve memories of the bank on show,
// the memory tag, and the ring of frequency notes.
#pragma once

#include "link/controls.h"

namespace veldor {

struct MemoriesGroup {};

}  // namespace veldor
