#include "ui/set_memory_dialog.h"

#include "memories/set_memory.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace veldor {

namespace {

void Nothing(Core&) {}

}  // namespace

SetMemoryDialog::SetMemoryDialog(Core& c, Views& views, QWidget* parent)
    : QDialog(parent), kit_(c, views) {
    setObjectName("frmSetMemory");
    FrmSetMemory& d = c.frmSetMemory;
    setWindowTitle(d.caption);

    QGroupBox* frame = kit_.frame(this, "Frame1", d.Frame1);
    auto* form = new QFormLayout(frame);
    QLineEdit* name = kit_.textBox(frame, "txtName", d.txtName);
    form->addRow(BuddyLabel("&Name", name), name);
    QLineEdit* frequency = kit_.textBox(frame, "txtFreq", d.txtFreq);
    kit_.lostFocus(frequency, frmSetMemory_txtFreq_LostFocus);
    form->addRow(BuddyLabel("&Frequency (MHz)", frequency), frequency);
    QComboBox* mode = kit_.combo(frame, "cboMode", d.cboMode, {});
    form->addRow(BuddyLabel("&Mode", mode), mode);
    QComboBox* tone = kit_.combo(frame, "cboCTCSS", d.cboCTCSS, {});
    form->addRow(BuddyLabel("CT&CSS", tone), tone);
    auto* switches = new QHBoxLayout();
    switches->addWidget(kit_.check(frame, "chkEnc", d.chkEnc, frmSetMemory_chkEnc_Click));
    switches->addWidget(kit_.check(frame, "chkDec", d.chkDec, frmSetMemory_chkDec_Click));
    form->addRow(QString(), switches);
    auto* shifts = new QHBoxLayout();
    for (QRadioButton* option :
         kit_.options(frame, "optRepeaterShift", d.optRepeaterShift, {}, [](Core&, int) {}))
        shifts->addWidget(option);
    form->addRow("Shift", shifts);
    QLineEdit* offset = kit_.textBox(frame, "txtOffset", d.txtOffset);
    kit_.lostFocus(offset, frmSetMemory_txtOffset_LostFocus);
    form->addRow(BuddyLabel("&Offset (kHz)", offset), offset);
    form->addRow(QString(), kit_.check(frame, "chkScan", d.chkScan, Nothing));

    // OK checks the box being edited first, as leaving it would; neither button takes the
    // focus from it on a click.
    QPushButton* ok = kit_.button(this, "cmdOK", d.cmdOK, [this](Core& core) {
        if (kit_.leaveFocusedBox()) frmSetMemory_cmdOK_Click(core);
    });
    ok->setDefault(true);
    ok->setFocusPolicy(Qt::TabFocus);
    QPushButton* cancel = kit_.button(this, "cmdCancel", d.cmdCancel, frmSetMemory_cmdCancel_Click);
    cancel->setFocusPolicy(Qt::TabFocus);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);

    auto* page = new QVBoxLayout(this);
    page->addWidget(frame);
    page->addLayout(buttons);
    kit_.render();
}

void SetMemoryDialog::reject() {
    kit_.handle(frmSetMemory_cmdCancel_Click);
}

}  // namespace veldor
