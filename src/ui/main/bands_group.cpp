#include "tuning/bands.h"
#include "ui/main/groups.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>

namespace veldor {

QWidget* BuildBandsGroup(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    auto* box = new QGroupBox("Bands", parent);
    auto* grid = new QGridLayout(box);
    grid->setSpacing(2);
    for (int i = 0; i < 13; ++i) {
        QPushButton* b = kit.button(
            box, QString("cmdBand_%1").arg(i), f.cmdBand[i], [i](Core& c) { cmdBand_Click(c, i); },
            {}, " Go to the band's frequency and mode ");
        b->setMinimumWidth(40);
        grid->addWidget(b, i / 7, i % 7);
    }
    return box;
}

}  // namespace veldor
