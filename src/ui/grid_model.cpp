#include "ui/grid_model.h"

#include "grid/grid.h"

namespace veldor {

namespace {

// Frequencies right, name and description left, the rest centred.
Qt::Alignment ColumnAlignment(int col) {
    switch (col) {
        case 1:
        case 4:
            return Qt::AlignRight | Qt::AlignVCenter;
        case 9:
        case 12:
            return Qt::AlignLeft | Qt::AlignVCenter;
        default:
            return Qt::AlignCenter;
    }
}

}  // namespace

GridModel::GridModel(ViewKit& kit, const MemoryGrid& grid, bool editable, QObject* parent)
    : QAbstractTableModel(parent), kit_(kit), grid_(grid), editable_(editable) {
    refresh();
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : GridCols;
}

int GridModel::gridRow(int modelRow) const {
    return modelRow >= 0 && modelRow < static_cast<int>(shown_.size())
               ? shown_[static_cast<size_t>(modelRow)]
               : -1;
}

int GridModel::modelRow(int gridRow) const {
    const auto at = std::lower_bound(shown_.begin(), shown_.end(), gridRow);
    return at != shown_.end() && *at == gridRow ? static_cast<int>(at - shown_.begin()) : -1;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    const int row = gridRow(index.row());
    if (row < 0 || row >= grid().Rows()) return {};
    if (role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::AccessibleTextRole)
        return grid().TextMatrix(row, index.column());
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(ColumnAlignment(index.column()));
    return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= GridCols) return {};
    if (role == Qt::DisplayRole && grid().Rows() > 0) return grid().TextMatrix(0, section);
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(ColumnAlignment(section));
    return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (editable_ && grdMemories_CanEdit(kit_.core(), gridRow(index.row()), index.column()))
        f |= Qt::ItemIsEditable;
    return f;
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !editable_) return false;
    const int row = gridRow(index.row());
    // Run here rather than through the kit: the editor is still committing, and showing the
    // rows anew now would pull the row from under it. Only this cell changed.
    Core& c = kit_.core();
    const bool stored = grdMemories_ValidateEdit(c, row, index.column(), value.toString());
    if (!stored) c.p.system->beep();
    revision_ = grid().revision;
    if (stored) Q_EMIT dataChanged(index, index);
    return stored;
}

bool GridModel::refresh() {
    if (revision_ == grid().revision) return false;
    revision_ = grid().revision;
    beginResetModel();
    shown_.clear();
    shown_.reserve(grid().rows.size());
    for (int r = 1; r < grid().Rows(); ++r)
        if (!grid().RowHidden(r)) shown_.push_back(r);
    endResetModel();
    return true;
}

}  // namespace veldor
