// The ring of frequency notes on the main window.
#pragma once

#include "link/controls.h"

namespace veldor {

struct NotesGroup {};

}  // namespace veldor
