// The state of the memory grid.
#pragma once

#include <QString>

#include <cstdint>

namespace veldor {

struct GridState {};

}  // namespace veldor
