#include "protocol/tones.h"
#include "ui/main/groups.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace veldor {

QWidget* BuildRepeaterGroup(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    auto* box = new QGroupBox("Repeater", parent);
    auto* grid = new QGridLayout(box);
    auto* shiftLabel = new QLabel("Shift", box);
    grid->addWidget(shiftLabel, 0, 0);
    auto* shifts = new QHBoxLayout();
    shifts->addWidget(kit.button(box, "cmdShiftMinus", f.cmdShiftMinus, cmdShiftMinus_Click));
    shifts->addWidget(kit.button(box, "cmdShiftSimplex", f.cmdShiftSimplex, cmdShiftSimplex_Click));
    shifts->addWidget(kit.button(box, "cmdShiftPlus", f.cmdShiftPlus, cmdShiftPlus_Click));
    grid->addLayout(shifts, 0, 1);
    // The shift label goes with the rig's shift buttons.
    kit.onRender([shiftLabel, &f] {
        shiftLabel->setVisible(f.cmdShiftMinus.visible || f.cmdShiftSimplex.visible ||
                               f.cmdShiftPlus.visible);
    });
    auto* toneLabel = new QLabel("CTCSS", box);
    grid->addWidget(toneLabel, 1, 0);
    auto* tone = new QHBoxLayout();
    QComboBox* tones = kit.combo(box, "cboCTCSS", f.cboCTCSS, {});
    tones->setPlaceholderText("tone");
    tones->setMinimumContentsLength(6);
    toneLabel->setBuddy(tones);
    tone->addWidget(tones);
    tone->addWidget(kit.light(box, "lblEnc", f.lblEnc));
    tone->addWidget(kit.light(box, "lblDec", f.lblDec));
    tone->addWidget(kit.light(box, "lblCTCSSFreq", f.lblCTCSSFreq));
    grid->addLayout(tone, 1, 1);
    grid->setRowStretch(2, 1);
    return box;
}

}  // namespace veldor
