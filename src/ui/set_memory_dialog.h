// The dialog that defines one quick memory, drawn from its form and bound to its handlers.
#pragma once

#include "ui/view_kit.h"

#include <QDialog>

namespace veldor {

class SetMemoryDialog : public QDialog {
  public:
    SetMemoryDialog(Core& c, Views& views, QWidget* parent);
    // Escape and the title bar's close run the dialog's Cancel.
    void reject() override;

  private:
    ViewKit kit_;
};

}  // namespace veldor
