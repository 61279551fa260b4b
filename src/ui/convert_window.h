// The window that converts memory files, drawn from its form and bound to its handlers.
#pragma once

#include "ui/view_kit.h"

#include <QDialog>

namespace veldor {

class ConvertWindow : public QDialog {
  public:
    ConvertWindow(Core& c, Views& views, QWidget* parent);
    // Escape and the title bar's close run Exit, unless a file operation has it disabled.
    void reject() override;

  private:
    ViewKit kit_;
};

}  // namespace veldor
