// The messages window: the program's running log.
#pragma once

#include "link/core.h"

#include <QWidget>

class QPlainTextEdit;

namespace veldor {

class MessagesWindow : public QWidget {
  public:
    explicit MessagesWindow(Core& core);
    void render();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    Core& c_;
    QPlainTextEdit* txtErrors_;
    QString shown_;
};

}  // namespace veldor
