// A memory grid as a Qt table model over the core's plain rows: one model row for each row a
// filter has not hidden, the heading row as the header. Nothing is copied: the model reads the
// cells where the core keeps them, so a grid of any length opens at once. It shows the memory
// grid, whose cells the operator may edit in place, and the conversion window's, read only.
#pragma once

#include "ui/view_kit.h"

#include <QAbstractTableModel>

#include <vector>

namespace veldor {

class GridModel : public QAbstractTableModel {
  public:
    GridModel(ViewKit& kit, const MemoryGrid& grid, bool editable, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // An in-place edit, checked by the core; a refused text leaves the cell as it was.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    // Shows the rows anew when the core has changed them; true when it did.
    bool refresh();
    // The grid's row of a model row, and the model row of a grid row (-1 when hidden).
    int gridRow(int modelRow) const;
    int modelRow(int gridRow) const;

  private:
    const MemoryGrid& grid() const { return grid_; }

    ViewKit& kit_;
    const MemoryGrid& grid_;
    const bool editable_;
    std::vector<int> shown_;  // the grid rows on show, in order
    uint64_t revision_ = ~uint64_t{0};
};

}  // namespace veldor
