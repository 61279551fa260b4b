// The FT-847 cross-band repeater window.
#pragma once

#include "link/controls.h"

namespace veldor {

struct FrmXBandRepeat {};

}  // namespace veldor
