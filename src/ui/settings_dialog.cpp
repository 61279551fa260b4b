#include "ui/settings_dialog.h"

#include "shell/settings_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
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

SettingsDialog::SettingsDialog(Core& c, Views& views, QWidget* parent)
    : QDialog(parent), kit_(c, views) {
    setObjectName("frmSettings");
    FrmSettings& d = c.frmSettings;
    setWindowTitle(d.caption);

    auto* left = new QVBoxLayout();
    left->addWidget(buildRig());
    left->addWidget(buildStartUp());
    left->addStretch();
    auto* right = new QVBoxLayout();
    right->addWidget(buildBanks());
    right->addWidget(buildBands());
    right->addStretch();
    auto* columns = new QHBoxLayout();
    columns->addLayout(left);
    columns->addLayout(right);

    // OK checks the box being edited first, as leaving it would; neither button takes the
    // focus from it on a click.
    QPushButton* ok = kit_.button(this, "cmdOK", d.cmdOK, [this](Core& core) {
        if (kit_.leaveFocusedBox()) frmSettings_cmdOK_Click(core);
    });
    ok->setDefault(true);
    QPushButton* cancel = kit_.button(this, "cmdCancel", d.cmdCancel, frmSettings_cmdCancel_Click);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch();
    for (QPushButton* b : {ok, cancel}) {
        b->setFocusPolicy(Qt::TabFocus);
        buttons->addWidget(b);
    }

    auto* page = new QVBoxLayout(this);
    page->addLayout(columns);
    page->addLayout(buttons);
    kit_.render();
}

QWidget* SettingsDialog::buildRig() {
    FrmSettings& d = kit_.core().frmSettings;
    auto* box = new QGroupBox("Rig", this);
    auto* form = new QFormLayout(box);
    QComboBox* rig = kit_.combo(box, "cboRigType", d.cboRigType, {});
    form->addRow(BuddyLabel("&Rig type", rig), rig);
    QComboBox* speed = kit_.combo(box, "cboCommSpeed", d.cboCommSpeed, {});
    form->addRow(BuddyLabel("Comm &speed", speed), speed);
    // The port: a number, a port of the system by its stable name, SIM, or a device typed in.
    QComboBox* port = kit_.editableCombo(box, "cboCommPort", d.cboCommPort);
    port->setMinimumContentsLength(28);
    port->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    kit_.onRender([port, &d] {
        for (int i = 0; i < port->count() && i < d.portDescriptions.size(); ++i)
            port->setItemData(i, d.portDescriptions[i], Qt::ToolTipRole);
    });
    form->addRow(BuddyLabel("Comm &port", port), port);
    QComboBox* size =
        kit_.combo(box, "cboScreenSize", d.cboScreenSize, frmSettings_cboScreenSize_Click);
    form->addRow(BuddyLabel("&Window size", size), size);
    QComboBox* fonts = kit_.combo(box, "cboFontScale", d.cboFontScale, {});
    form->addRow(BuddyLabel("Scale &fonts", fonts), fonts);

    QGroupBox* ptt = new QGroupBox("Extra PTT port", box);
    auto* pttForm = new QFormLayout(ptt);
    QComboBox* pttPort = kit_.editableCombo(ptt, "cboExtraPttPort", d.cboExtraPttPort);
    pttForm->addRow(BuddyLabel("P&TT port", pttPort), pttPort);
    auto* pins = new QHBoxLayout();
    pins->addWidget(kit_.check(ptt, "chkExtraPttPortEnabled", d.chkExtraPttPortEnabled, Nothing));
    for (QRadioButton* option :
         kit_.options(ptt, "optExtraPttPort", d.optExtraPttPort, {}, [](Core&, int) {}))
        pins->addWidget(option);
    pttForm->addRow(pins);
    form->addRow(ptt);
    return box;
}

QWidget* SettingsDialog::buildStartUp() {
    FrmSettings& d = kit_.core().frmSettings;
    auto* box = new QGroupBox("Start up and files", this);
    auto* grid = new QGridLayout(box);
    grid->addWidget(kit_.check(box, "chkAutoStart", d.chkAutoStart, frmSettings_chkAutoStart_Click),
                    0, 0);
    grid->addWidget(kit_.check(box, "chkAutoMemoryGrid", d.chkAutoMemoryGrid, Nothing), 0, 1);
    grid->addWidget(kit_.check(box, "chkAutoPowerOff", d.chkAutoPowerOff, Nothing), 1, 0);
    grid->addWidget(
        kit_.check(box, "chkClearBuffer", d.chkClearBuffer, frmSettings_chkClearBuffer_Click), 1,
        1);
    grid->addWidget(kit_.check(box, "chkAllowAnyFrequency", d.chkAllowAnyFrequency, Nothing), 2, 0);
    grid->addWidget(kit_.button(box, "cmdSetFiles", d.cmdSetFiles, frmSettings_cmdSetFiles_Click),
                    3, 0);
    auto* retrieve = new QHBoxLayout();
    QPushButton* get = kit_.button(box, "cmdGetZantikoSettings", d.cmdGetZantikoSettings,
                                   frmSettings_cmdGetZantikoSettings_Click);
    retrieve->addWidget(get);
    QLabel* label = kit_.label(box, "lblZantiko", d.lblZantiko);
    label->setBuddy(get);
    retrieve->addWidget(label);
    grid->addLayout(retrieve, 3, 1);
    return box;
}

QWidget* SettingsDialog::buildBanks() {
    FrmSettings& d = kit_.core().frmSettings;
    auto* box = new QGroupBox("Bank names", this);
    auto* grid = new QGridLayout(box);
    for (int i = 0; i < 6; ++i) {
        QLineEdit* name = kit_.textBox(box, QString("txtBank%1").arg(i), d.txtBank[i]);
        grid->addWidget(BuddyLabel(QString("Bank %1").arg(i + 1), name), i / 2, (i % 2) * 2);
        grid->addWidget(name, i / 2, (i % 2) * 2 + 1);
    }
    return box;
}

QWidget* SettingsDialog::buildBands() {
    FrmSettings& d = kit_.core().frmSettings;
    QGroupBox* box = kit_.frame(this, "frmBankAndMemory", d.frmBankAndMemory);
    auto* form = new QFormLayout(box);
    QComboBox* number =
        kit_.combo(box, "cboBandNumber", d.cboBandNumber, frmSettings_cboBandNumber_Click);
    form->addRow(BuddyLabel("Band &number", number), number);
    QLineEdit* name = kit_.textBox(box, "txtBandName", d.txtBandName);
    form->addRow(BuddyLabel("Button &caption", name), name);
    QLineEdit* frequency = kit_.textBox(box, "txtFreq", d.txtFreq);
    kit_.lostFocus(frequency, frmSettings_txtFreq_LostFocus);
    form->addRow(BuddyLabel("Fre&quency (MHz)", frequency), frequency);
    QComboBox* mode = kit_.combo(box, "cboMode", d.cboMode, {});
    form->addRow(BuddyLabel("&Mode", mode), mode);

    QGroupBox* tones = kit_.frame(box, "Frame3", d.Frame3);
    auto* toneRow = new QHBoxLayout(tones);
    QComboBox* tone = kit_.combo(tones, "cboCTCSS", d.cboCTCSS, {});
    tone->setAccessibleName("CTCSS tone");
    toneRow->addWidget(tone);
    toneRow->addWidget(kit_.check(tones, "chkEnc", d.chkEnc, Nothing));
    toneRow->addWidget(kit_.check(tones, "chkDec", d.chkDec, Nothing));
    form->addRow(tones);

    QGroupBox* shift = kit_.frame(box, "Frame4", d.Frame4);
    auto* shiftForm = new QFormLayout(shift);
    auto* options = new QHBoxLayout();
    for (QRadioButton* option :
         kit_.options(shift, "optRepeaterShift", d.optRepeaterShift, {}, [](Core&, int) {}))
        options->addWidget(option);
    shiftForm->addRow(options);
    QLineEdit* offset = kit_.textBox(shift, "txtOffset", d.txtOffset);
    shiftForm->addRow(BuddyLabel("&Offset (kHz)", offset), offset);
    form->addRow(shift);

    auto* buttons = new QHBoxLayout();
    QPushButton* accept = kit_.button(box, "cmdAccept", d.cmdAccept, [this](Core& core) {
        if (kit_.leaveFocusedBox()) frmSettings_cmdAccept_Click(core);
    });
    QPushButton* reset = kit_.button(box, "cmdReset", d.cmdReset, frmSettings_cmdReset_Click);
    for (QPushButton* b : {accept, reset}) {
        b->setAutoDefault(false);
        buttons->addWidget(b);
    }
    form->addRow(buttons);
    return box;
}

void SettingsDialog::reject() {
    kit_.handle(frmSettings_cmdCancel_Click);
}

}  // namespace veldor
