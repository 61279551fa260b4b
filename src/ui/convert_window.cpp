#include "ui/convert_window.h"

#include "convert/convert.h"

#include <QAbstractTableModel>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QVBoxLayout>

namespace veldor {

namespace {

// The window's grid as a table: row 0 of the grid is the heading, the memories follow.
class ConvertGridModel : public QAbstractTableModel {
  public:
    explicit ConvertGridModel(const ConvertGrid& grid, QObject* parent)
        : QAbstractTableModel(parent), grid_(grid) {}

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : int(grid_.rows.size()) - 1;
    }
    int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : int(MemoryRow{}.size());
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid()) return {};
        if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole)
            return grid_.rows[size_t(index.row()) + 1][size_t(index.column())];
        if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Alignment(index.column()));
        return {};
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 &&
            section < columnCount({}))
            return grid_.rows[0][size_t(section)];
        return {};
    }
    // The model follows the grid whole whenever the grid has changed.
    void refresh() {
        beginResetModel();
        endResetModel();
    }

  private:
    // Frequencies right, names and descriptions left, the rest centred.
    static Qt::Alignment Alignment(int column) {
        if (column == 1 || column == 4) return Qt::AlignRight | Qt::AlignVCenter;
        if (column == 9 || column == 12) return Qt::AlignLeft | Qt::AlignVCenter;
        return Qt::AlignCenter;
    }
    const ConvertGrid& grid_;
};

}  // namespace

ConvertWindow::ConvertWindow(Core& c, Views& views, QWidget* parent)
    : QDialog(parent), kit_(c, views) {
    setObjectName("frmConvert");
    FrmConvert& f = c.frmConvert;
    setWindowTitle(f.caption);

    QGroupBox* rigTypes = kit_.frame(this, "frmRigType", f.frmRigType);
    auto* options = new QVBoxLayout(rigTypes);
    for (QRadioButton* option :
         kit_.options(rigTypes, "optProgFile", f.optProgFile, {}, optProgFile_Click))
        options->addWidget(option);

    auto* buttons = new QVBoxLayout();
    buttons->addWidget(rigTypes);
    buttons->addWidget(kit_.button(this, "cmdLoadFile", f.cmdLoadFile, cmdLoadFile_Click));
    buttons->addWidget(kit_.button(this, "cmdImport", f.cmdImport, cmdImport_Click));
    buttons->addWidget(kit_.button(this, "cmdExport", f.cmdExport, cmdExport_Click));
    buttons->addWidget(
        kit_.button(this, "cmdExportKenwood", f.cmdExportKenwood, cmdExportKenwood_Click));
    buttons->addStretch();
    buttons->addWidget(kit_.button(this, "cmdExit", f.cmdExit, cmdExit_Click, "E&xit"));

    auto* table = new QTableView(this);
    table->setObjectName("grdMemories");
    auto* model = new ConvertGridModel(f.grdMemories, table);
    table->setModel(model);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    table->setMinimumSize(720, 360);
    SetAccessible(table, "Memories", "The memories read or imported");
    kit_.onRender([table, model, &grid = f.grdMemories, shown = -1]() mutable {
        if (shown == grid.generation) return;
        shown = grid.generation;
        model->refresh();
        table->resizeColumnsToContents();
        if (grid.row >= 1 && grid.row < int(grid.rows.size()))
            table->setCurrentIndex(model->index(grid.row - 1, grid.col));
    });

    auto* right = new QVBoxLayout();
    right->addWidget(kit_.label(this, "lblFileLoaded", f.lblFileLoaded));
    right->addWidget(table, 1);
    auto* page = new QHBoxLayout(this);
    page->addLayout(buttons);
    page->addLayout(right, 1);
    kit_.render();
}

void ConvertWindow::reject() {
    if (kit_.core().frmConvert.cmdExit.enabled) kit_.handle(cmdExit_Click);
}

}  // namespace veldor
