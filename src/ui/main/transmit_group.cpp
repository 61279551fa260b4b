#include "protocol/model_controls.h"
#include "protocol/transmit.h"
#include "ui/main/groups.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace veldor {

QWidget* BuildTransmitGroup(ViewKit& kit, QWidget* parent) {
    Form1& f = kit.core().f;
    auto* box = new QGroupBox("Transmit", parent);
    auto* row = new QHBoxLayout(box);
    QPushButton* txRx = kit.button(box, "cmdTxRx", f.cmdTxRx, cmdTxRx_Click, {}, "(F9) ");
    txRx->setCheckable(true);
    // F9 works the button from anywhere in the window. A shortcut of the button itself would be
    // lost whenever its caption changes, since a new caption brings its own mnemonic.
    auto* f9 = new QShortcut(QKeySequence(Qt::Key_F9), parent->window());
    f9->setObjectName("shortcutTxRx");
    QObject::connect(f9, &QShortcut::activated, txRx, &QPushButton::click);
    txRx->setMinimumSize(96, 40);
    QFont txFont = txRx->font();
    txFont.setPointSize(txFont.pointSize() + 2);
    txRx->setFont(txFont);
    row->addWidget(txRx);
    auto* checks = new QVBoxLayout();
    checks->addWidget(
        kit.check(box, "chkTransmitEnable", f.chkTransmitEnable, chkTransmitEnable_Click));
    checks->addWidget(kit.check(box, "chkSplit", f.chkSplit, chkSplit_Click));
    row->addLayout(checks);
    row->addStretch();
    return box;
}

}  // namespace veldor
