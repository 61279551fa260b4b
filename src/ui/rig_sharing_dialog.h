// The rig sharing dialog, drawn from its form and bound to its handlers.
#pragma once

#include "link/core.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace veldor {

class RigSharingDialog : public QDialog {
  public:
    RigSharingDialog(Core& c, QWidget* parent);

  private:
    void ok();
    Core& c_;
    QCheckBox* chkRigctldEnabled_;
    QLineEdit* txtRigctldAddress_;
    QLineEdit* txtRigctldPort_;
    QLabel* lblRigctldState_;
};

}  // namespace veldor
