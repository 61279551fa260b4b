#include "ui/rig_sharing_dialog.h"

#include "sharing/rig_sharing.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace veldor {

RigSharingDialog::RigSharingDialog(Core& c, QWidget* parent) : QDialog(parent), c_(c) {
    setObjectName("frmRigSharing");
    frmRigSharing_Load(c_);
    const FrmRigSharing& d = c_.frmRigSharing;
    setWindowTitle(d.caption);

    chkRigctldEnabled_ = new QCheckBox(d.chkRigctldEnabled.caption, this);
    chkRigctldEnabled_->setObjectName("chkRigctldEnabled");
    chkRigctldEnabled_->setToolTip(d.chkRigctldEnabled.toolTip);
    chkRigctldEnabled_->setChecked(d.chkRigctldEnabled.value == 1);
    txtRigctldAddress_ = new QLineEdit(d.txtRigctldAddress.text, this);
    txtRigctldAddress_->setObjectName("txtRigctldAddress");
    txtRigctldAddress_->setToolTip(d.txtRigctldAddress.toolTip);
    txtRigctldPort_ = new QLineEdit(d.txtRigctldPort.text, this);
    txtRigctldPort_->setObjectName("txtRigctldPort");
    txtRigctldPort_->setToolTip(d.txtRigctldPort.toolTip);
    txtRigctldPort_->setMaxLength(5);
    lblRigctldState_ = new QLabel(d.lblRigctldState.caption, this);
    lblRigctldState_->setObjectName("lblRigctldState");

    auto* help = new QLabel(
        "Programs such as WSJT-X, fldigi and loggers reach the rig through VELDOR: choose "
        "the rig \"Hamlib NET rigctl\" in them, with this address and port. They tune and key "
        "the rig as VELDOR's own buttons do; keying needs \"TX enable\" ticked.",
        this);
    help->setWordWrap(true);

    auto* form = new QFormLayout;
    form->addRow(chkRigctldEnabled_);
    form->addRow("&Address", txtRigctldAddress_);
    form->addRow("&Port", txtRigctldPort_);
    form->addRow("State", lblRigctldState_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
    connect(buttons, &QDialogButtonBox::accepted, this, &RigSharingDialog::ok);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(help);
    layout->addLayout(form);
    layout->addWidget(buttons);
    setMinimumWidth(420);
}

void RigSharingDialog::ok() {
    FrmRigSharing& d = c_.frmRigSharing;
    d.chkRigctldEnabled.value = chkRigctldEnabled_->isChecked() ? 1 : 0;
    d.txtRigctldAddress.text = txtRigctldAddress_->text();
    d.txtRigctldPort.text = txtRigctldPort_->text();
    if (frmRigSharing_cmdOK_Click(c_)) accept();
}

}  // namespace veldor
