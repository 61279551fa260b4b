#include "ui/convert_window.h"

#include "convert/convert.h"
#include "ui/grid_model.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QVBoxLayout>

namespace veldor {

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
    auto* model = new GridModel(kit_, f.grdMemories, false, table);
    table->setModel(model);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    table->setMinimumSize(720, 360);
    SetAccessible(table, "Memories", "The memories read or imported");
    auto show = [table, model, &grid = f.grdMemories] {
        table->resizeColumnsToContents();
        if (const int row = model->modelRow(grid.Row); row >= 0)
            table->setCurrentIndex(model->index(row, grid.Col));
    };
    show();
    kit_.onRender([model, show] {
        if (model->refresh()) show();
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
