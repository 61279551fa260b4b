// The dialog that edits the twenty scan ranges.
#pragma once

#include "link/controls.h"

namespace veldor {

struct FrmScanner {};

}  // namespace veldor
