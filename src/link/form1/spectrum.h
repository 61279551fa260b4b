// The spectrum display of the main window.
#pragma once

#include "link/controls.h"

namespace veldor {

struct SpectrumGroup {};

}  // namespace veldor
