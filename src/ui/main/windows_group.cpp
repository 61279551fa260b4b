#include "ui/main/groups.h"

#include "accessories/meters_panel.h"
#include "accessories/recorder.h"
#include "accessories/timed_events.h"
#include "grid/grid.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>

namespace veldor {

QWidget* BuildWindowsGroup(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    auto* box = new QGroupBox("Windows", parent);
    auto* row = new QHBoxLayout(box);
    row->addWidget(kit.button(box, "cmdCsvMem", f.cmdCsvMem, cmdCsvMem_Click));
    row->addWidget(kit.button(box, "cmdRecord", f.cmdRecord, cmdRecord_Click));
    row->addWidget(kit.button(box, "cmdMeters", f.cmdMeters, cmdMeters_Click));
    row->addSpacing(12);
    row->addWidget(kit.button(box, "cmdTimed", f.cmdTimed, cmdTimed_Click));
    QComboBox* timed = kit.combo(box, "cboTimedEvents", f.cboTimedEvents, cboTimedEvents_Click);
    timed->setPlaceholderText("Timed events");
    timed->setMinimumContentsLength(16);
    timed->setAccessibleName("Timed events");
    row->addWidget(timed, 1);
    return box;
}

}  // namespace veldor
