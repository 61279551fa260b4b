#include "ui/scanner_dialog.h"

#include "memories/scanner_dialog.h"

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

ScannerDialog::ScannerDialog(Core& c, Views& views, QWidget* parent)
    : QDialog(parent), kit_(c, views) {
    setObjectName("frmScanner");
    FrmScanner& d = c.frmScanner;
    setWindowTitle(d.caption);

    QComboBox* entry =
        kit_.combo(this, "cboMemoryNumber", d.cboMemoryNumber, frmScanner_cboMemoryNumber_Click);
    entry->setMinimumContentsLength(20);
    auto* top = new QFormLayout();
    top->addRow(entry);
    QLineEdit* description = kit_.textBox(this, "txtDescription", d.txtDescription);
    top->addRow(BuddyLabel("Short Description", description), description);

    QGroupBox* frequencies = kit_.frame(this, "Frame2", d.Frame2);
    auto* range = new QFormLayout(frequencies);
    const struct {
        const char* name;
        TextBox& model;
        const char* label;
        bool (*check)(Core&);
    } boxes[] = {{"txtStart", d.txtStart, "Start (MHz)", frmScanner_txtStart_LostFocus},
                 {"txtStop", d.txtStop, "Stop (MHz)", frmScanner_txtStop_LostFocus},
                 {"txtStep", d.txtStep, "Scan step (KHz)", frmScanner_txtStep_LostFocus}};
    for (const auto& b : boxes) {
        QLineEdit* box = kit_.textBox(frequencies, b.name, b.model);
        kit_.lostFocus(box, b.check);
        range->addRow(BuddyLabel(b.label, box), box);
    }

    QGroupBox* other = kit_.frame(this, "Frame3", d.Frame3);
    auto* modeAndTone = new QFormLayout(other);
    QComboBox* mode = kit_.combo(other, "cboMode", d.cboMode, {});
    modeAndTone->addRow(BuddyLabel("Mode", mode), mode);
    QComboBox* tone = kit_.combo(other, "cboCTCSS", d.cboCTCSS, {});
    modeAndTone->addRow(BuddyLabel("CTCSS", tone), tone);
    auto* switches = new QHBoxLayout();
    switches->addWidget(kit_.check(other, "chkEnc", d.chkEnc, Nothing));
    switches->addWidget(kit_.check(other, "chkDec", d.chkDec, frmScanner_chkDec_Click));
    modeAndTone->addRow(switches);

    QGroupBox* repeater = kit_.frame(this, "Frame4", d.Frame4);
    auto* shift = new QFormLayout(repeater);
    auto* options = new QHBoxLayout();
    for (QRadioButton* option :
         kit_.options(repeater, "optRepeaterShift", d.optRepeaterShift, {}, [](Core&, int) {}))
        options->addWidget(option);
    shift->addRow(options);
    QLineEdit* offset = kit_.textBox(repeater, "txtOffset", d.txtOffset);
    kit_.lostFocus(offset, frmScanner_txtOffset_LostFocus);
    shift->addRow(BuddyLabel("Khz offset", offset), offset);

    // Apply checks the box being edited first, as leaving it would; no button takes the focus
    // from it on a click.
    QPushButton* clear = kit_.button(this, "cmdClear", d.cmdClear, frmScanner_cmdClear_Click);
    QPushButton* apply = kit_.button(this, "cmdOK", d.cmdOK, [this](Core& core) {
        if (kit_.leaveFocusedBox()) frmScanner_cmdOK_Click(core);
    });
    QPushButton* exit = kit_.button(this, "cmdCancel", d.cmdCancel, frmScanner_cmdCancel_Click);
    auto* buttons = new QHBoxLayout();
    for (QPushButton* b : {clear, apply, exit}) {
        b->setFocusPolicy(Qt::TabFocus);
        b->setAutoDefault(false);
        buttons->addWidget(b);
    }

    auto* columns = new QHBoxLayout();
    columns->addWidget(frequencies);
    auto* right = new QVBoxLayout();
    right->addWidget(other);
    right->addWidget(repeater);
    columns->addLayout(right);
    auto* page = new QVBoxLayout(this);
    page->addLayout(top);
    page->addLayout(columns);
    page->addLayout(buttons);
    kit_.render();
}

void ScannerDialog::reject() {
    kit_.handle(frmScanner_cmdCancel_Click);
}

}  // namespace veldor
