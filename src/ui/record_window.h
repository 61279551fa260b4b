// The recorder window, drawn from its form and bound to its handlers.
#pragma once

#include "ui/view_kit.h"

#include <QWidget>

namespace veldor {

class RecordWindow : public QWidget {
  public:
    RecordWindow(Core& c, Views& views, QWidget* parent);

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    ViewKit kit_;
};

}  // namespace veldor
