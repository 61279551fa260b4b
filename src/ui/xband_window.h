// The FT-847 cross-band repeater window, drawn from its form and bound to its handlers. It is
// modal; its closing runs the form's unload, which stops a run and takes the rig out of
// satellite mode.
#pragma once

#include "ui/view_kit.h"

#include <QDialog>

namespace veldor {

class XBandWindow : public QDialog {
  public:
    XBandWindow(Core& core, Views& views, QWidget* parent);

  protected:
    void reject() override;

  private:
    Core& c_;
    ViewKit kit_;
};

}  // namespace veldor
