// The about box.
#pragma once

#include "link/controls.h"

namespace veldor {

struct FrmAbout {};

}  // namespace veldor
