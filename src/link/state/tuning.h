// The state of operator tuning: steps and knob, band table, GoTo and transverter.
#pragma once

#include <QString>

#include <cstdint>

namespace veldor {

struct TuningState {};

}  // namespace veldor
