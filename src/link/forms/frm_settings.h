// The settings dialog.
#pragma once

#include "link/controls.h"

namespace veldor {

struct FrmSettings {};

}  // namespace veldor
