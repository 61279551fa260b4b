// The thirteen band buttons.
#pragma once

#include "link/controls.h"

namespace veldor {

struct BandsGroup {};

}  // namespace veldor
