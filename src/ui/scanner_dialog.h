// The dialog that edits the scan ranges, drawn from its form and bound to its handlers.
#pragma once

#include "ui/view_kit.h"

#include <QDialog>

namespace veldor {

class ScannerDialog : public QDialog {
  public:
    ScannerDialog(Core& c, Views& views, QWidget* parent);
    // Escape and the title bar's close run the dialog's Exit.
    void reject() override;

  private:
    ViewKit kit_;
};

}  // namespace veldor
