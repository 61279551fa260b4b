// The state of the file conversion window.
#pragma once

#include <QString>

#include <cstdint>

namespace veldor {

struct ConvertState {};

}  // namespace veldor
