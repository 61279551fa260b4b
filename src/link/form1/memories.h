// Quick memories on the main window: the bank buttons, the twelve memories of the bank on show
// and the memory tag.
#pragma once

#include "link/controls.h"

namespace veldor {

struct MemoriesGroup {};

}  // namespace veldor
