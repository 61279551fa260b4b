// The state of the application shell: settings dialog, screen sizing, messages.
#pragma once

#include <QString>

#include <cstdint>

namespace veldor {

struct ShellState {};

}  // namespace veldor
