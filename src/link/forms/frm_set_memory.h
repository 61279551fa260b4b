// The dialog that defines one quick memory in full.
#pragma once

#include "link/controls.h"

namespace veldor {

struct FrmSetMemory {};

}  // namespace veldor
