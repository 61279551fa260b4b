// The FT-920 meters panel, drawn from its form and bound to its handlers.
#pragma once

#include "ui/docked_panel.h"

namespace veldor {

class MetersPanel : public DockedPanel {
  public:
    MetersPanel(Core& core, Views& views, QWidget* parent);
};

}  // namespace veldor
