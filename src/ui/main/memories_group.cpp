#include "memories/banks.h"
#include "memories/memory_tag.h"
#include "ui/main/groups.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace veldor {

namespace {

// One memory: its store box over its set box.
QWidget* Memory(ViewKit& kit, QWidget* parent, int i) {
    Form1& f = kit.core().f;
    auto* cell = new QWidget(parent);
    auto* column = new QVBoxLayout(cell);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(1);
    const QString number = QString::number(i + 1);
    QPushButton* store =
        kit.clickLabel(cell, QString("lblStore_%1").arg(i), f.lblStore[i],
                       {[i](Core& c) { lblStore_Click(c, i); },
                        [i](Core& c, int button) { lblStore_MouseUp(c, i, button); },
                        [i](Core& c) { lblStore_DblClick(c, i); }},
                       "Empty",
                       " Memory " + number +
                           ": click to tune the rig to it; double click or right click to "
                           "define it ");
    store->setMinimumHeight(store->fontMetrics().lineSpacing() * 2 + 10);
    store->setMinimumWidth(store->fontMetrics().horizontalAdvance("1234.00000") + 12);
    QPushButton* set = kit.clickLabel(
        cell, QString("lblSet_%1").arg(i), f.lblSet[i],
        {[i](Core& c) { lblSet_Click(c, i); },
         [i](Core& c, int button) { lblSet_MouseUp(c, i, button); },
         [i](Core& c) { lblSet_DblClick(c, i); }, Qt::Key_Delete},
        "Set",
        " Store the rig's frequency in memory " + number +
            "; right click: include it in bank scans or not; double click or Delete: clear it ");
    set->setMaximumHeight(set->fontMetrics().lineSpacing() + 6);
    column->addWidget(store);
    column->addWidget(set);
    return cell;
}

QWidget* MemoryTag(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    QGroupBox* frame = kit.frame(parent, "frmMemoryTag", f.frmMemoryTag);
    auto* row = new QHBoxLayout(frame);
    QLineEdit* name = kit.textBox(frame, "txtMemoryTag", f.txtMemoryTag);
    name->setReadOnly(true);
    name->setAccessibleName("Name of the last memory recalled");
    QLineEdit* frequency = kit.textBox(frame, "txtMemoryFreq", f.txtMemoryFreq);
    frequency->setReadOnly(true);
    row->addWidget(name, 2);
    row->addWidget(frequency, 1);
    row->addWidget(kit.labelButton(frame, "lblMemoryMT", f.lblMemoryMT, lblMemoryMT_Click));
    return frame;
}

}  // namespace

QWidget* BuildMemoriesGroup(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    auto* box = new QGroupBox("Quick memories", parent);
    auto* page = new QVBoxLayout(box);
    auto* banks = new QHBoxLayout();
    for (int b = 0; b < 6; ++b) {
        banks->addWidget(kit.button(box, QString("cmdBankNumber_%1").arg(b), f.cmdBankNumber[b],
                                    [b](Core& c) { cmdBankNumber_Click(c, b); }));
    }
    banks->addStretch();
    banks->addWidget(kit.button(box, "cmdClearBank", f.cmdClearBank, cmdClearBank_Click));
    page->addLayout(banks);
    auto* memories = new QGridLayout();
    memories->setSpacing(4);
    for (int i = 0; i < 12; ++i) memories->addWidget(Memory(kit, box, i), i / 4, i % 4);
    page->addLayout(memories);
    page->addWidget(MemoryTag(kit, box));
    return box;
}

}  // namespace veldor
