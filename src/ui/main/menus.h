// The menu bar of the main window.
#pragma once

#include "ui/view_kit.h"

class QMainWindow;

namespace veldor {

void BuildMenus(ViewKit& kit, QMainWindow* window);

}  // namespace veldor
