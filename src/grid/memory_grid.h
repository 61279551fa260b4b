// The memory grid as plain data: rows of thirteen text cells, each with a hidden flag. Row 0
// is the heading row; a memory's number is its row. Nothing here knows a widget: the grid
// window shows these rows through a table model, and the CSV reader and writer fill and read
// them. The conversion window's grid is one of these too, whose rows are never hidden.
#pragma once

#include "link/controls.h"

#include <QString>

#include <array>
#include <cstdint>
#include <vector>

namespace veldor {

inline constexpr int GridCols = 13;

// The thirteen cells of a row, column 0 the memory number.
using MemoryRow = std::array<QString, GridCols>;

struct GridRow {
    MemoryRow cells;
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
