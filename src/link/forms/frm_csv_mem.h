// The memory grid window.
#pragma once

#include "link/controls.h"

namespace veldor {

struct FrmCsvMem {};

}  // namespace veldor
