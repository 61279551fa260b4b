#include "protocol/model_controls.h"
#include "ui/main/groups.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace veldor {

QWidget* BuildFrequencyGroup(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    auto* box = new QGroupBox("Rig", parent);
    auto* row = new QHBoxLayout(box);
    QLineEdit* frequency = kit.textBox(box, "txtVfoA", f.txtVfoA);
    QFont big = frequency->font();
    big.setPointSize(big.pointSize() * 2);
    big.setBold(true);
    frequency->setFont(big);
    frequency->setReadOnly(true);
    frequency->setMinimumWidth(200);
    QLineEdit* mode = kit.textBox(box, "txtMode", f.txtMode);
    mode->setReadOnly(true);
    mode->setMinimumWidth(56);
    mode->setMaximumWidth(80);
    row->addWidget(frequency);
    row->addWidget(mode);
    row->addWidget(kit.label(box, "lblRigMode", f.lblRigMode));
    row->addStretch();
    row->addWidget(kit.button(box, "cmdVFOtoggle", f.cmdVFOtoggle, cmdVFOtoggle_Click));
    row->addWidget(kit.button(box, "cmdVFOSEqual", f.cmdVFOSEqual, cmdVFOSEqual_Click));
    row->addWidget(kit.button(box, "cmdVFOBOff", f.cmdVFOBOff, cmdVFOBOff_Click));
    return box;
}

}  // namespace veldor
