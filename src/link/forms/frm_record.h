// The recorder window.
#pragma once

#include "link/controls.h"

namespace veldor {

struct FrmRecord {};

}  // namespace veldor
