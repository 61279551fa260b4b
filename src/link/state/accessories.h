// The state of timed events, the recorder, the cross-band repeater and the panels.
#pragma once

#include <QString>

#include <cstdint>

namespace veldor {

struct AccessoriesState {};

}  // namespace veldor
