// The panels that stand beside the main window, edge to edge with it and at its top.
#pragma once

#include "link/form1.h"

namespace veldor {

// Any form with left, top and width in the main window's units.
template <typename Panel>
void DockBeside(const Form1& main, Panel& panel, bool onLeft) {
    panel.left = onLeft ? main.left - panel.width : main.left + main.width;
    panel.top = main.top;
}

}  // namespace veldor
