// The main window: one widget per group of controls, each bound to Form1 through the window's
// kit, and the menu bar. It holds no logic.
#pragma once

#include "ui/view_kit.h"

#include <QMainWindow>

namespace veldor {

class MessagesWindow;

class MainWindow : public QMainWindow {
  public:
    MainWindow(Core& core, Views& views);
    ~MainWindow() override;

    // Shows the state the core has reached.
    void render() { kit_.render(); }
    // Puts the window where Form1 says.
    void place();
    MessagesWindow* messagesWindow() { return messages_; }
    // Sizes the window to its content, within the screen's free area; the content scrolls when
    // the screen is smaller.
    void fitToScreen();
    ViewKit& kit() { return kit_; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    // Where the window is, how large, and whether minimised, for the panels docked beside it.
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    // "Spectrum display only": the other groups step aside and the window shrinks to the
    // spectrum's frame; turned off, the groups come back and the window takes its former size.
    // Set up after every group, so that it has the last word at each render.
    void followSpectrumOnly(QWidget* spectrum);
    void tellForm();
    // Scales the fonts of all windows to the factor the screen size gives.
    void rescale(double scale);
    Core& c_;
    double fontScale_ = 1.0;
    ViewKit kit_;
    MessagesWindow* messages_;
};

}  // namespace veldor
