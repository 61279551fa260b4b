// The state of the FT-847 cross-band repeater, the FT-450 DSP panel and the FT-920 meters panel.
#pragma once

#include <QString>

#include <cstdint>

namespace veldor {

struct PanelsState {};

}  // namespace veldor
