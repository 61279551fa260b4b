#include "tuning/go_to.h"
#include "tuning/steps.h"
#include "tuning/transverter.h"
#include "ui/main/groups.h"

#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <memory>

namespace veldor {

namespace {

// The step grid: one labelled row per step, the chosen row the step of the arrow keys.
QListWidget* StepGridView(ViewKit& kit, QWidget* parent) {
    StepGrid& model = kit.core().f.grdTuning;
    auto* grid = new QListWidget(parent);
    grid->setObjectName("grdTuning");
    grid->setAccessibleName("Tuning step");
    // All nineteen rows in view, in columns: the wheel over the grid tunes, it does not scroll.
    grid->setFlow(QListView::TopToBottom);
    grid->setWrapping(true);
    grid->setResizeMode(QListView::Adjust);
    grid->setUniformItemSizes(true);
    // Three columns of seven, sized to the type so that a rescaled font still shows each step.
    const auto fit = [grid] {
        const QFontMetrics m = grid->fontMetrics();
        const QSize cell(m.horizontalAdvance("12.5k") + m.averageCharWidth() * 2,
                         m.lineSpacing() + 4);
        grid->setGridSize(cell);
        grid->setFixedSize(3 * cell.width() + 8, 7 * cell.height() + 8);
    };
    fit();
    OnEvent(grid, [fit](QEvent* e) {
        if (e->type() == QEvent::FontChange) fit();
        return false;
    });
    grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grid->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QObject::connect(grid, &QListWidget::currentRowChanged, grid, [&kit, &model](int row) {
        if (kit.rendering() || row < 0) return;
        model.row = row;
        kit.handle(grdTuning_RowColChange);
    });
    QObject::connect(grid, &QListWidget::itemClicked, grid, [&kit] {
        if (!kit.rendering()) kit.handle(grdTuning_Click);
    });
    // Left and right tune by the step; releasing the key lets the readings go on. A held key
    // repeats its press only.
    OnEvent(grid, [&kit](QEvent* e) {
        if (e->type() != QEvent::KeyPress && e->type() != QEvent::KeyRelease) return false;
        auto* key = static_cast<QKeyEvent*>(e);
        if (e->type() == QEvent::KeyRelease) {
            if (!key->isAutoRepeat()) kit.handle(grdTuning_KeyUp);
            return false;
        }
        const int code = key->key() == Qt::Key_Left ? 37 : key->key() == Qt::Key_Right ? 39 : 0;
        if (code == 0) return false;
        kit.handle([code](Core& c) { grdTuning_KeyDown(c, code); });
        return true;
    });
    WheelTunes(kit, grid->viewport());
    kit.onRender([grid, &model] {
        if (grid->count() != model.rows.size()) {
            grid->clear();
            grid->addItems(model.rows);
        }
        if (grid->currentRow() != model.row) grid->setCurrentRow(model.row);
        if (grid->toolTip() != model.toolTip) grid->setToolTip(model.toolTip);
        grid->setAccessibleDescription(model.toolTip.trimmed());
        grid->setVisible(model.visible);
        grid->setEnabled(model.enabled);
    });
    return grid;
}

// A click in a GoTo box selects its text, ready to be typed over.
void SelectAllOnClick(QLineEdit* box) {
    OnEvent(box, [box](QEvent* e) {
        if (e->type() == QEvent::MouseButtonRelease)
            QTimer::singleShot(0, box, &QLineEdit::selectAll);
        return false;
    });
}

// Enter in a box runs its key handler with key code 13.
void OnEnter(ViewKit& kit, QLineEdit* box, void (*keyPress)(Core&, int&)) {
    QObject::connect(box, &QLineEdit::returnPressed, box, [&kit, keyPress] {
        kit.handle([keyPress](Core& c) {
            int key = 13;
            keyPress(c, key);
        });
    });
}

QWidget* GoToRow(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    auto* row = new QWidget(parent);
    auto* layout = new QGridLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    QPushButton* go = kit.button(row, "cmdGoToFreq", f.cmdGoToFreq, cmdGoToFreq_Click);
    QLineEdit* box = kit.textBox(row, "txtGoToFreq", f.txtGoToFreq);
    box->setAccessibleName("GoTo frequency");
    SelectAllOnClick(box);
    OnEnter(kit, box, txtGoToFreq_KeyPress);
    // The large twin: the same entry in a large font, for the operator across the room.
    QLineEdit* large = kit.textBox(row, "txtShowLargeGoTo", f.txtShowLargeGoTo);
    QFont font = large->font();
    font.setPointSize(font.pointSize() * 3);
    font.setBold(true);
    large->setFont(font);
    large->setAccessibleName("Large GoTo frequency");
    SelectAllOnClick(large);
    OnEnter(kit, large, txtShowLargeGoTo_KeyPress);
    layout->addWidget(go, 0, 0);
    layout->addWidget(box, 0, 1);
    layout->addWidget(large, 1, 0, 1, 2);
    return row;
}

QWidget* TransverterFrame(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    QGroupBox* frame = kit.frame(parent, "frmXvtr", f.frmXvtr);
    auto* grid = new QGridLayout(frame);
    const auto options = kit.options(frame, "optXvtr", f.optXvtr, {}, optXvtr_Click);
    grid->addWidget(options[0], 0, 0);
    grid->addWidget(options[1], 0, 1);
    auto* baseLabel = new QLabel("&Base", frame);
    QLineEdit* base = kit.textBox(frame, "txtXvtrBase", f.txtXvtrBase);
    baseLabel->setBuddy(base);
    base->setAccessibleName("Base");
    OnEnter(kit, base, txtXvtrBase_KeyPress);
    // Typing a base holds the display off it; moving on to another control takes the base,
    // a box that comes up does not.
    OnEvent(base, [&kit](QEvent* e) {
        if (e->type() == QEvent::FocusIn) {
            kit.handle(txtXvtrBase_GotFocus);
        } else if (e->type() == QEvent::FocusOut) {
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(e)->reason();
            if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                reason == Qt::MouseFocusReason || reason == Qt::ShortcutFocusReason)
                QTimer::singleShot(0, [&kit] { kit.handle(txtXvtrBase_Validate); });
        }
        return false;
    });
    auto* shownLabel = new QLabel("Xvtr", frame);
    QLineEdit* shown = kit.textBox(frame, "txtXvtr", f.txtXvtr);
    shown->setReadOnly(true);
    shown->setAccessibleName("Transverter frequency");
    shownLabel->setBuddy(shown);
    grid->addWidget(baseLabel, 1, 0);
    grid->addWidget(base, 1, 1);
    grid->addWidget(shownLabel, 2, 0);
    grid->addWidget(shown, 2, 1);
    return frame;
}

}  // namespace

void WheelTunes(ViewKit& kit, QWidget* over) {
    // High-resolution wheels send parts of a notch: they add up to whole notches.
    auto rest = std::make_shared<int>(0);
    OnEvent(over, [&kit, rest](QEvent* e) {
        if (e->type() != QEvent::Wheel) return false;
        *rest += static_cast<QWheelEvent*>(e)->angleDelta().y();
        const int notches = *rest / QWheelEvent::DefaultDeltasPerStep;
        *rest -= notches * QWheelEvent::DefaultDeltasPerStep;
        if (notches != 0) kit.handle([notches](Core& c) { KnobWheel(c, notches); });
        return true;
    });
}

QWidget* BuildTuningGroup(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    auto* box = new QGroupBox("Tuning", parent);
    auto* layout = new QHBoxLayout(box);
    QListWidget* grid = StepGridView(kit, box);
    QScrollBar* knob = kit.scrollBar(box, "VScroll1", f.VScroll1, VScroll1_Change);
    knob->setAccessibleName("Tuning knob");
    WheelTunes(kit, knob);
    knob->setFixedHeight(grid->height());
    OnEvent(grid, [knob, grid](QEvent* e) {
        if (e->type() == QEvent::Resize) knob->setFixedHeight(grid->height());
        return false;
    });
    layout->addWidget(grid);
    auto* knobColumn = new QVBoxLayout();
    auto* knobLabel = new QLabel("Knob", box);
    knobLabel->setBuddy(knob);
    knobColumn->addWidget(knobLabel);
    knobColumn->addWidget(knob, 0, Qt::AlignHCenter);
    layout->addLayout(knobColumn);

    auto* right = new QVBoxLayout();
    auto* mhz = new QHBoxLayout();
    mhz->addWidget(kit.button(box, "cmdMhzMinus", f.cmdMhzMinus, cmdMhzMinus_Click));
    mhz->addWidget(kit.button(box, "cmdMhzPlus", f.cmdMhzPlus, cmdMhzPlus_Click));
    mhz->addStretch();
    right->addLayout(mhz);
    right->addWidget(GoToRow(kit, box));
    right->addWidget(TransverterFrame(kit, box));
    right->addStretch();
    layout->addLayout(right, 1);
    return box;
}

}  // namespace veldor
