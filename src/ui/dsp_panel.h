// The FT-450 DSP panel, drawn from its form and bound to its handlers.
#pragma once

#include "ui/docked_panel.h"

namespace veldor {

class DspPanel : public DockedPanel {
  public:
    DspPanel(Core& core, Views& views, QWidget* parent);
};

}  // namespace veldor
