#include "protocol/write_frequency.h"
#include "ui/main/groups.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <array>
#include <memory>

namespace veldor {

QWidget* BuildModesGroup(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    auto* box = new QGroupBox("Mode", parent);
    auto* grid = new QGridLayout(box);
    // The cells of the twelve buttons; the narrow mark sits beside button 6.
    auto cells = std::make_shared<std::array<QWidget*, 12>>();
    for (int i = 0; i < 12; ++i) {
        QPushButton* b = kit.button(box, QString("Command2_%1").arg(i), f.Command2[i],
                                    [i](Core& c) { Command2_Click(c, i); });
        (*cells)[i] = b;
        if (i == 6) {
            auto* cell = new QWidget(box);
            auto* row = new QHBoxLayout(cell);
            row->setContentsMargins(0, 0, 0, 0);
            row->setSpacing(2);
            b->setParent(cell);
            row->addWidget(b, 1);
            kit.light(cell, "lblNarrow", f.lblNarrow)->setMinimumWidth(16);
            row->addWidget(cell->findChild<QLabel*>("lblNarrow"));
            (*cells)[i] = cell;
        }
        (*cells)[i]->hide();
    }
    // The buttons the rig has, in rows of six with no gaps.
    auto shown = std::make_shared<std::array<bool, 12>>();
    kit.onRender([&f, grid, cells, shown] {
        std::array<bool, 12> now{};
        for (int i = 0; i < 12; ++i) now[i] = f.Command2[i].visible;
        if (now == *shown) return;
        *shown = now;
        for (QWidget* cell : *cells) grid->removeWidget(cell);
        int placed = 0;
        for (int i = 0; i < 12; ++i) {
            (*cells)[i]->setVisible(now[i]);
            if (!now[i]) continue;
            grid->addWidget((*cells)[i], placed / 6, placed % 6);
            ++placed;
        }
    });
    return box;
}

}  // namespace veldor
