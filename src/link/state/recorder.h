// The state of the squelch-gated audio recorder.
#pragma once

#include <QString>

#include <cstdint>

namespace veldor {

struct RecorderState {};

}  // namespace veldor
