// The timed events read from TimedEvents.txt.
#pragma once

#include <QString>

#include <cstdint>

namespace veldor {

struct TimedEventsState {};

}  // namespace veldor
