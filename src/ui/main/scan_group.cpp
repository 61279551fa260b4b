#include "scan/range_choice.h"
#include "scan/scan_engine.h"
#include "ui/main/groups.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace veldor {

QWidget* BuildScanGroup(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    auto* box = new QGroupBox("Scan", parent);
    auto* row = new QHBoxLayout();
    QComboBox* ranges = kit.combo(box, "cboScanRange", f.cboScanRange, cboScanRange_Click);
    ranges->setAccessibleName("Scan range");
    ranges->setMinimumContentsLength(12);
    row->addWidget(ranges, 1);
    row->addWidget(
        kit.button(box, "cmdShowScanSettings", f.cmdShowScanSettings, cmdShowScanSettings_Click));
    row->addWidget(kit.button(box, "cmdScanMemOrBank", f.cmdScanMemOrBank, cmdScanMemOrBank_Click));

    // What stops the scan, beside the buttons that run it.
    QGroupBox* stopOn = kit.frame(box, "frmStop", f.frmStop);
    auto* options = new QHBoxLayout(stopOn);
    for (QRadioButton* option :
         kit.options(stopOn, "optStopOn", f.optStopOn, {"Busy", "Free", "None"}, [](Core&, int) {}))
        options->addWidget(option);
    auto* buttons = new QHBoxLayout();
    buttons->addWidget(stopOn);
    buttons->addWidget(
        kit.button(box, "cmdStartStopScan", f.cmdStartStopScan, cmdStartStopScan_Click));
    buttons->addWidget(kit.button(box, "cmdScanHold", f.cmdScanHold, cmdScanHold_Click));

    auto* rows = new QVBoxLayout(box);
    rows->addLayout(row);
    rows->addLayout(buttons);
    return box;
}

}  // namespace veldor
