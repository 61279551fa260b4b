// The state of the scan engine and the spectrum sweep.
#pragma once

#include <QString>

#include <cstdint>

namespace veldor {

struct ScanState {};

}  // namespace veldor
