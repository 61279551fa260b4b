// The thirteen band buttons.
#pragma once

#include "link/controls.h"

#include <array>

namespace veldor {

struct BandsGroup {
    // Captions from the band table (ShowBandCaptions).
    std::array<CommandButton, 13> cmdBand{};
};

}  // namespace veldor
