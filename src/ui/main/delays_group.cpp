#include "cycle/start_stop.h"
#include "tuning/delays.h"
#include "ui/main/groups.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QSlider>

namespace veldor {

QWidget* BuildDelaysGroup(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    auto* box = new QGroupBox(parent);
    auto* grid = new QGridLayout(box);
    grid->addWidget(kit.check(box, "chkSliders", f.chkSliders, chkSliders_Click), 0, 0);
    auto row = [&](int at, const char* labelName, const Label& label, const char* sliderName,
                   Slider& slider, void (*handler)(Core&)) {
        QLabel* l = kit.label(box, labelName, label);
        QSlider* s = kit.slider(box, sliderName, slider, handler);
        l->setBuddy(s);
        s->setAccessibleName(label.caption);
        grid->addWidget(l, at, 0);
        grid->addWidget(s, at, 1);
    };
    row(1, "lblCmdDelay", f.lblCmdDelay, "sldCMDdelay", f.sldCMDdelay, sldCMDdelay_Change);
    row(2, "lblAGCdelay", f.lblAGCdelay, "sldSmeterDelay", f.sldSmeterDelay, sldSmeterDelay_Change);
    row(3, "lblExtra", f.lblExtra, "sldExtra", f.sldExtra, sldExtra_Change);
    grid->setColumnStretch(1, 1);
    return box;
}

}  // namespace veldor
