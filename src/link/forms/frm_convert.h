// The window that converts Kenwood memory files and ARRL repeater files.
#pragma once

#include "link/controls.h"

namespace veldor {

struct FrmConvert {};

}  // namespace veldor
