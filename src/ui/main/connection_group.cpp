#include "cycle/start_stop.h"
#include "ui/main/groups.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace veldor {

QWidget* BuildConnectionGroup(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    auto* box = new QGroupBox("Connection", parent);
    auto* row = new QHBoxLayout(box);
    QLabel* timeouts = kit.label(box, "lblTimeoutCount", f.lblTimeoutCount);
    timeouts->setMinimumWidth(40);
    timeouts->setAlignment(Qt::AlignCenter);
    timeouts->setFrameShape(QFrame::Panel);
    timeouts->setFrameShadow(QFrame::Sunken);
    auto* timeoutsName = new QLabel("Timeouts", box);
    timeoutsName->setBuddy(timeouts);
    QLabel* utc = kit.label(box, "lblUTC", f.lblUTC);
    utc->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    row->addWidget(kit.check(box, "chkOnOff", f.chkOnOff, chkOnOff_Click));
    row->addWidget(timeoutsName);
    row->addWidget(timeouts);
    row->addStretch();
    row->addWidget(new QLabel("UTC", box));
    row->addWidget(utc);
    row->addWidget(kit.button(box, "cmdTenMinCounter", f.cmdTenMinCounter, cmdTenMinCounter_Click));
    return box;
}

}  // namespace veldor
