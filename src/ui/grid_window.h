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
    // Tells the core where the window is, in twips.
    void notePlacement();

    ViewKit kit_;
    GridModel* model_ = nullptr;
    QTableView* table_ = nullptr;
    bool placed_ = false;
};

}  // namespace veldor
