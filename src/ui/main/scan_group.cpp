#include "scan/range_choice.h"
#include "ui/main/groups.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>

namespace veldor {

QWidget* BuildScanGroup(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    auto* box = new QGroupBox("Scan", parent);
    auto* row = new QHBoxLayout(box);
    QComboBox* ranges = kit.combo(box, "cboScanRange", f.cboScanRange, cboScanRange_Click);
    ranges->setAccessibleName("Scan range");
    ranges->setMinimumContentsLength(12);
    row->addWidget(ranges, 1);
    row->addWidget(
        kit.button(box, "cmdShowScanSettings", f.cmdShowScanSettings, cmdShowScanSettings_Click));
    row->addWidget(kit.button(box, "cmdScanMemOrBank", f.cmdScanMemOrBank, {}));
    row->addWidget(kit.button(box, "cmdStartStopScan", f.cmdStartStopScan, {}));
    return box;
}

}  // namespace veldor
