// The memory grid as plain data: rows of thirteen text cells, each with a hidden flag. Row 0
// is the heading row; a memory's number is its row. Nothing here knows a widget: the grid
// window shows these rows through a table model, and the CSV reader and writer fill and read
// them for the grid and for the conversion window alike.
#pragma once

#include "link/controls.h"

#include <QString>

#include <array>
#include <cstdint>
#include <vector>

namespace veldor {

inline constexpr int GridCols = 13;

struct GridRow {
    std::array<QString, GridCols> cells;
    bool hidden = false;  // taken out by a filter; still saved, printed and numbered
};

// The grid control: its rows, the current cell, and a count of changes by which the view
// knows when to show the rows anew.
struct MemoryGrid : Control {
    std::vector<GridRow> rows;
    int Row = 1;
    int Col = 1;
    uint64_t revision = 0;

    int Rows() const { return static_cast<int>(rows.size()); }
    QString& TextMatrix(int row, int col) { return rows[static_cast<size_t>(row)].cells[col]; }
    const QString& TextMatrix(int row, int col) const {
        return rows[static_cast<size_t>(row)].cells[col];
    }
    bool RowHidden(int row) const { return rows[static_cast<size_t>(row)].hidden; }
};

}  // namespace veldor
