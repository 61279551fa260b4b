// A window that stands beside the main one: it goes where its form's left and top say, and
// tells the form where it is and how large, so that the core can dock it edge to edge. Where
// the system does not let a program place its windows (Wayland), it stays where the
// compositor put it.
#pragma once

#include "ui/view_kit.h"

#include <QWidget>

namespace veldor {

// Window placement in the forms is in twips.
inline constexpr int kPanelTwipsPerPixel = 15;

class DockedPanel : public QWidget {
  public:
    // The form's placement, and the handler that closes the panel as its own button does.
    struct Placement {
        int* left;
        int* top;
        int* width;
        int* height;
        const bool* loaded;
        Handler close;
    };
    DockedPanel(Core& core, Views& views, QWidget* parent, Placement placement);

  protected:
    ViewKit& kit() { return kit_; }
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void place();
    void tellForm();
    ViewKit kit_;
    Placement placement_;
};

// True where a program cannot move its own windows.
bool WindowsPlacedByCompositor();

}  // namespace veldor
