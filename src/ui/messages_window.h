// The messages window: the program's running log.
#pragma once

#include "ui/view_kit.h"

#include <QWidget>

class QPlainTextEdit;

namespace veldor {

class MessagesWindow : public QWidget {
  public:
    MessagesWindow(Core& core, Views& views);
    void render();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    Core& c_;
    ViewKit kit_;
    QPlainTextEdit* txtErrors_;
    QString shown_;
};

}  // namespace veldor
