// The memory grid window: its menus, the filter strip or the edit panel, and the grid as a
// table view over the core's rows.
#pragma once

#include "ui/view_kit.h"

#include <QMainWindow>

class QTableView;

namespace veldor {

class GridModel;

class GridWindow : public QMainWindow {
  public:
    GridWindow(Core& c, Views& views, QWidget* parent);

    QTableView* table() const { return table_; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    QWidget* buildFilterStrip(QWidget* parent);
    QWidget* buildEditPanel(QWidget* parent);
    void buildMenus();
    void buildTable(QWidget* parent);
    // Shows the core's rows and its current cell.
    void showGrid();
    // Grows the window while the edit panel shows, and shrinks it back.
    void followEditPanel();
    // Tells the core where the window is, in twips.
    void notePlacement();

    ViewKit kit_;
    GridModel* model_ = nullptr;
    QTableView* table_ = nullptr;
    QWidget* strip_ = nullptr;
    QWidget* panel_ = nullptr;
    bool editing_ = false;
    int grownBy_ = 0;        // what the window grew by when the panel showed
    int browsingWidth_ = 0;  // its width before
    bool placed_ = false;
};

}  // namespace veldor
