// The about box.
#pragma once

#include "ui/view_kit.h"

#include <QDialog>

namespace veldor {

class AboutDialog : public QDialog {
  public:
    AboutDialog(Core& c, Views& views, QWidget* parent);
    void reject() override;

  private:
    ViewKit kit_;
};

}  // namespace veldor
