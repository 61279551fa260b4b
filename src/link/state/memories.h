// The state of the quick memory banks, the frequency notes and the scan ranges.
#pragma once

#include <QString>

#include <cstdint>

namespace veldor {

struct MemoriesState {};

}  // namespace veldor
