#include "ui/grid_window.h"

#include "grid/grid.h"
#include "ui/grid_model.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

namespace veldor {

namespace {

constexpr int kTwipsPerPixel = 15;

// A menu item bound to its MenuItem: caption, enabled state and key.
void Item(ViewKit& kit, QMenu* menu, const char* name, MenuItem& item, Handler handler,
          QKeySequence key = {}) {
    QAction* a = menu->addAction(item.caption);
    a->setObjectName(name);
    if (!key.isEmpty()) a->setShortcut(key);
    QObject::connect(a, &QAction::triggered, a, [&kit, handler] { kit.handle(handler); });
    kit.onRender([a, &item] {
        if (a->text() != item.caption) a->setText(item.caption);
        if (a->isEnabled() != item.enabled) a->setEnabled(item.enabled);
    });
}

// The check of a box on leaving it or pressing Enter in it; false keeps the focus there.
void Checked(ViewKit& kit, QLineEdit* box, bool (*check)(Core&)) {
    kit.lostFocus(box, [check](Core& c) { return !check(c); });
    QObject::connect(box, &QLineEdit::returnPressed, box,
                     [&kit, check] { kit.handle([check](Core& c) { check(c); }); });
}

}  // namespace

GridWindow::GridWindow(Core& c, Views& views, QWidget* parent)
    : QMainWindow(parent, Qt::Window), kit_(c, views) {
    setObjectName("frmCsvMem");
    setWindowTitle(c.frmCsvMem.caption);
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    // The width to go back to when the edit panel closes, taken before a render shows it.
    kit_.onRender([this] {
        if (!editing_) browsingWidth_ = width();
    });
    strip_ = buildFilterStrip(page);
    layout->addWidget(strip_);
    panel_ = buildEditPanel(page);
    layout->addWidget(panel_);
    buildTable(page);
    layout->addWidget(table_, 1);
    setCentralWidget(page);
    buildMenus();
    kit_.onRender([this] {
        showGrid();
        followEditPanel();
    });

    const FrmCsvMem& w = c.frmCsvMem;
    if (c.s.ScreenSize != "None") {
        resize(std::max(w.width / kTwipsPerPixel, 400), std::max(w.height / kTwipsPerPixel, 200));
        move(w.left / kTwipsPerPixel, w.top / kTwipsPerPixel);
        if (w.windowState == 2) setWindowState(Qt::WindowMaximized);
    } else {
        resize(760, 420);
    }
    placed_ = true;
    kit_.render();
}

QWidget* GridWindow::buildFilterStrip(QWidget* parent) {
    FrmCsvMem& w = kit_.core().frmCsvMem;
    QGroupBox* strip = kit_.frame(parent, "frmMainControl", w.frmMainControl);
    auto* row = new QHBoxLayout(strip);
    row->addWidget(kit_.label(strip, "lblShowGroups", w.lblShowGroups));
    const char* groupNames[] = {"Show Groups filter 1", "Show Groups filter 2"};
    for (int i = 0; i < 2; ++i) {
        if (i == 1) row->addWidget(kit_.label(strip, "lblOr", w.lblOr));
        QCheckBox* on = kit_.check(strip, QString("chkFilter_%1").arg(i), w.chkFilter[i],
                                   [i](Core& c) { chkFilter_Click(c, i); });
        on->setAccessibleName(groupNames[i]);
        row->addWidget(on);
        // A group may be picked or typed.
        QComboBox* group = kit_.editableCombo(strip, QString("cboShow_%1").arg(i), w.cboShow[i],
                                              [i](Core& c) { cboShow_Click(c, i); });
        group->setMinimumContentsLength(2);
        group->setAccessibleName(QString("Group %1").arg(i + 1));
        kit_.lostFocus(group, [i](Core& c) {
            cboShow_Validate(c, i);
            return false;
        });
        row->addWidget(group);
    }
    row->addSpacing(8);
    row->addWidget(kit_.label(strip, "lblShowMode", w.lblShowMode));
    QCheckBox* byMode =
        kit_.check(strip, "chkFilter_3", w.chkFilter[3], [](Core& c) { chkFilter_Click(c, 3); });
    byMode->setAccessibleName("Show Mode filter");
    row->addWidget(byMode);
    // "All" and "SSB" are typed, as no mode of the list is called so.
    QComboBox* mode =
        kit_.editableCombo(strip, "cboModeFilter", w.cboModeFilter, cboModeFilter_Click);
    mode->setMinimumContentsLength(4);
    mode->setAccessibleName("Mode to show");
    row->addWidget(mode);
    row->addSpacing(8);
    QCheckBox* byRange =
        kit_.check(strip, "chkFilter_4", w.chkFilter[4], [](Core& c) { chkFilter_Click(c, 4); });
    byRange->setAccessibleName("Lo/Hi filter");
    row->addWidget(byRange);
    const struct {
        const char* name;
        TextBox& box;
        bool (*check)(Core&);
        const char* label;
    } limits[] = {{"txtFreqLo", w.txtFreqLo, txtFreqLo_Check, "&Lo"},
                  {"txtFreqHi", w.txtFreqHi, txtFreqHi_Check, "&Hi"}};
    for (const auto& limit : limits) {
        QLineEdit* e = kit_.textBox(strip, limit.name, limit.box);
        e->setMaximumWidth(80);
        Checked(kit_, e, limit.check);
        row->addWidget(BuddyLabel(limit.label, e));
        row->addWidget(e);
    }
    row->addStretch(1);
    row->addWidget(kit_.button(strip, "cmdGoTo", w.cmdGoTo, mnuGoTo_Click));
    return strip;
}

QWidget* GridWindow::buildEditPanel(QWidget* parent) {
    FrmCsvMem& w = kit_.core().frmCsvMem;
    QGroupBox* panel = kit_.frame(parent, "frmEdit", w.frmEdit);
    auto* rows = new QVBoxLayout(panel);
    rows->addWidget(kit_.label(panel, "lblEditing", w.lblEditing));
    auto* first = new QHBoxLayout();
    auto* second = new QHBoxLayout();
    auto labelled = [&](QHBoxLayout* row, const QString& label, QWidget* box) {
        row->addWidget(BuddyLabel(label, box));
        row->addWidget(box);
    };
    QLineEdit* rx = kit_.textBox(panel, "txtFreqRX", w.txtFreqRX);
    Checked(kit_, rx, CheckFreqRX);
    labelled(first, "&RX Freq", rx);
    labelled(first, "RX &Mode", kit_.combo(panel, "cboMode", w.cboMode, cboMode_Click));
    labelled(first, "S&hift", kit_.combo(panel, "cboShift", w.cboShift, cboShift_Click));
    QLineEdit* tx = kit_.textBox(panel, "txtFreqTX", w.txtFreqTX);
    Checked(kit_, tx, CheckFreqTX);
    labelled(first, "&TX Shift/Freq", tx);
    labelled(first, "TX M&ode", kit_.combo(panel, "cboTXMode", w.cboTXMode, {}));
    labelled(second, "CTCSS/&DCS", kit_.combo(panel, "cboDecode", w.cboDecode, cboDecode_Click));
    labelled(second, "Ton&e", kit_.combo(panel, "cboCTCSS", w.cboCTCSS, {}));
    labelled(second, "Cod&e", kit_.combo(panel, "cboDCS", w.cboDCS, {}));
    auto* show = new QGroupBox(w.lblDisplayOnRig.caption, panel);
    auto* options = new QHBoxLayout(show);
    for (QRadioButton* o : kit_.options(show, "optName", w.optName, {}, [](Core&, int) {}))
        options->addWidget(o);
    second->addWidget(show);
    QLineEdit* name = kit_.textBox(panel, "txtName", w.txtName);
    Checked(kit_, name, CheckName);
    // Room for the eight characters a name may have.
    name->setMinimumWidth(name->fontMetrics().horizontalAdvance(QString(9, 'W')));
    labelled(second, "&Name", name);
    second->addWidget(kit_.check(panel, "chkScan", w.chkScan, [](Core&) {}));
    QLineEdit* group = kit_.textBox(panel, "txtGroup", w.txtGroup);
    group->setMaxLength(1);
    group->setMaximumWidth(30);
    labelled(second, "&Group", group);
    auto* third = new QHBoxLayout();
    labelled(third, "Descr&iption", kit_.textBox(panel, "txtDescription", w.txtDescription));
    QPushButton* ok = kit_.button(panel, "cmdEditOK", w.cmdEditOK, [this](Core& c) {
        if (kit_.leaveFocusedBox()) cmdEditOK_Click(c);
    });
    ok->setDefault(true);
    third->addWidget(ok);
    third->addWidget(kit_.button(panel, "cmdEditCancel", w.cmdEditCancel, cmdEditCancel_Click));
    for (QHBoxLayout* row : {first, second, third}) rows->addLayout(row);
    return panel;
}

void GridWindow::buildMenus() {
    FrmCsvMem& w = kit_.core().frmCsvMem;
    QMenu* file = menuBar()->addMenu("&File");
    file->setObjectName("mnuFile");
    Item(kit_, file, "mnuNewGrid", w.mnuNewGrid, mnuNewGrid_Click);
    Item(kit_, file, "mnuAddCSV", w.mnuAddCSV, mnuAddCSV_Click);
    Item(kit_, file, "mnuPrint", w.mnuPrint, mnuPrint_Click);
    Item(kit_, file, "mnuSaveCSV", w.mnuSaveCSV, mnuSaveCSV_Click);
    Item(kit_, file, "mnuSaveFiltered", w.mnuSaveFiltered, mnuSaveFiltered_Click);
    Item(kit_, file, "mnuGoTo", w.mnuGoTo, mnuGoTo_Click, Qt::Key_F2);
    Item(kit_, file, "mnuExit", w.mnuExit, [this](Core&) { close(); });
    QMenu* edit = menuBar()->addMenu("&Edit");
    edit->setObjectName("mnuEditList");
    Item(kit_, edit, "mnuEdit", w.mnuEdit, mnuEdit_Click);
    Item(kit_, edit, "mnuRenumber", w.mnuRenumber, mnuRenumber_Click);
    Item(kit_, edit, "mnuCopy", w.mnuCopy, mnuCopy_Click);
    Item(kit_, edit, "mnuInsertAbove", w.mnuInsertAbove, mnuInsertAbove_Click);
    Item(kit_, edit, "mnuMove", w.mnuMove, mnuMove_Click);
    Item(kit_, edit, "mnuSwap", w.mnuSwap, mnuSwap_Click);
    QMenu* view = menuBar()->addMenu("&View");
    view->setObjectName("mnuFiltersList");
    Item(kit_, view, "mnuClearFilters", w.mnuClearFilters, mnuClearFilters_Click);
}

void GridWindow::buildTable(QWidget* parent) {
    table_ = new QTableView(parent);
    table_->setObjectName("grdMemories");
    table_->setAccessibleName("Memory grid");
    model_ = new GridModel(kit_, kit_.core().frmCsvMem.grdMemories, true, table_);
    table_->setModel(model_);
    table_->verticalHeader()->hide();
    // Fixed row heights: a grid of any length is laid out at once.
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 6);
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setSelectionBehavior(QAbstractItemView::SelectItems);
    table_->setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::SelectedClicked);
    table_->setWordWrap(false);
    connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) {
                if (kit_.rendering() || !current.isValid()) return;
                MemoryGrid& g = kit_.core().frmCsvMem.grdMemories;
                g.Row = model_->gridRow(current.row());
                g.Col = current.column();
            });
    // After an in-place edit the column fits its contents again.
    connect(model_, &QAbstractItemModel::dataChanged, table_,
            [this](const QModelIndex& cell) { table_->resizeColumnToContents(cell.column()); });
    connect(table_, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        MemoryGrid& g = kit_.core().frmCsvMem.grdMemories;
        g.Row = model_->gridRow(index.row());
        g.Col = index.column();
        kit_.handle(grdMemories_DblClick);
    });
    // The arrows walk off the grid's edges to tune; Delete and the pad's decimal key delete.
    // (While a cell is edited its keys go to the editor, not here.)
    OnEvent(table_, [this](QEvent* event) {
        if (event->type() != QEvent::KeyPress) return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        const int col = table_->currentIndex().column();
        int code = 0;
        if (key->key() == Qt::Key_Left && col == 0) code = 37;
        if (key->key() == Qt::Key_Right && col == GridCols - 1) code = 39;
        if (key->key() == Qt::Key_Delete) code = 46;
        if ((key->key() == Qt::Key_Period || key->key() == Qt::Key_Comma) &&
            key->modifiers().testFlag(Qt::KeypadModifier))
            code = 110;
        if (code == 0) return false;
        kit_.handle([code](Core& c) { grdMemories_KeyDown(c, code); });
        return true;
    });
}

void GridWindow::showGrid() {
    const MemoryGrid& g = kit_.core().frmCsvMem.grdMemories;
    if (table_->isEnabled() != g.enabled) table_->setEnabled(g.enabled);
    // Sizing the columns reads the rows in view; a window not yet shown would read them all.
    if (model_->refresh() && table_->isVisible()) table_->resizeColumnsToContents();
    const int row = model_->modelRow(g.Row);
    if (row < 0) return;
    const QModelIndex current = model_->index(row, std::clamp(g.Col, 0, GridCols - 1));
    if (table_->currentIndex() != current) {
        table_->setCurrentIndex(current);
        table_->scrollTo(current);
    }
}

// The edit panel takes the filter strip's place: the window grows by the difference of their
// heights, so that the grid keeps its height, and gives it back when the panel closes. A
// maximised window keeps its size.
void GridWindow::followEditPanel() {
    const bool editing = kit_.core().frmCsvMem.frmEdit.visible;
    if (editing == editing_) return;
    editing_ = editing;
    if (windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)) return;
    // The frames have changed places; the window takes its new size before it is laid out
    // again, so the grid neither jumps nor is squeezed for a moment. A panel wider than the
    // window widens it, for as long as it shows.
    centralWidget()->layout()->activate();
    layout()->activate();
    if (editing) {
        grownBy_ = panel_->sizeHint().height() - strip_->height();
        resize(std::max(browsingWidth_, minimumSizeHint().width()), height() + grownBy_);
    } else {
        resize(browsingWidth_, height() - grownBy_);
    }
}

void GridWindow::notePlacement() {
    if (!placed_) return;
    FrmCsvMem& w = kit_.core().frmCsvMem;
    w.windowState = isMinimized() ? 1 : isMaximized() ? 2 : 0;
    if (w.windowState != 0) return;
    w.left = x() * kTwipsPerPixel;
    w.top = y() * kTwipsPerPixel;
    w.width = width() * kTwipsPerPixel;
    w.height = height() * kTwipsPerPixel;
}

void GridWindow::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    notePlacement();
}

void GridWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    notePlacement();
}

void GridWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    table_->resizeColumnsToContents();
    // The columns are narrower now than when the current cell was first scrolled to: the grid
    // starts again from its left edge.
    table_->horizontalScrollBar()->setValue(0);
    table_->scrollTo(table_->currentIndex());
}

void GridWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) notePlacement();
    // Leaving the window runs the filters, unless it is one of its own boxes that takes over.
    if (event->type() == QEvent::ActivationChange && !isActiveWindow() &&
        !QApplication::activeModalWidget())
        kit_.handle(frmCsvMem_Deactivate);
}

void GridWindow::closeEvent(QCloseEvent* event) {
    // Exit is not offered while a row is edited; the program's end closes it all the same.
    if (kit_.core().s.MemoryGridLoaded && !kit_.core().frmCsvMem.mnuExit.enabled) {
        event->ignore();
        return;
    }
    notePlacement();
    kit_.handle(frmCsvMem_Unload);
    event->accept();
}

}  // namespace veldor
