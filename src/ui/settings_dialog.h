// The settings dialog, drawn from its form and bound to its handlers.
#pragma once

#include "ui/view_kit.h"

#include <QDialog>

namespace veldor {

class SettingsDialog : public QDialog {
  public:
    SettingsDialog(Core& c, Views& views, QWidget* parent);
    // Escape and the title bar's close run the dialog's Cancel.
    void reject() override;

  private:
    QWidget* buildRig();
    QWidget* buildStartUp();
    QWidget* buildBanks();
    QWidget* buildBands();
    ViewKit kit_;
};

}  // namespace veldor
