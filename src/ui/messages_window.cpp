#include "ui/messages_window.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace veldor {

MessagesWindow::MessagesWindow(Core& core, Views& views)
    : QWidget(nullptr, Qt::Window), c_(core), kit_(core, views) {
    setObjectName("frmErrorList");
    FrmErrorList& w = c_.frmErrorList;
    setWindowTitle(w.caption);
    txtErrors_ = new QPlainTextEdit(this);
    txtErrors_->setObjectName("txtErrors");
    txtErrors_->setReadOnly(true);
    txtErrors_->setAccessibleName("Messages");
    // Tab leaves the log for the buttons, as in any read-only box.
    txtErrors_->setTabChangesFocus(true);
    auto* buttons = new QHBoxLayout();
    buttons->addWidget(kit_.button(this, "cmdCopyToClipboard", w.cmdCopyToClipboard,
                                   frmErrorList_cmdCopyToClipboard_Click));
    buttons->addWidget(kit_.button(this, "cmdClearMessages", w.cmdClearMessages,
                                   frmErrorList_cmdClearMessages_Click));
    buttons->addStretch();
    buttons->addWidget(kit_.button(this, "cmdClose", w.cmdClose, frmErrorList_cmdClose_Click));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(txtErrors_);
    layout->addLayout(buttons);
    // Never so small that the buttons leave no room for the log.
    setMinimumHeight(2000 / 15);
    resize(560, 260);
    move(0, 0);
    kit_.onRender([this] { render(); });
}

void MessagesWindow::render() {
    const FrmErrorList& w = c_.frmErrorList;
    if (w.txtErrors.text != shown_) {
        shown_ = w.txtErrors.text;
        txtErrors_->setPlainText(QString(shown_).replace("\r\n", "\n"));
        // The caret goes to the end, so the newest line is in view.
        txtErrors_->moveCursor(QTextCursor::End);
        txtErrors_->verticalScrollBar()->setValue(txtErrors_->verticalScrollBar()->maximum());
    }
    if (w.visible != isVisible()) {
        // The window opens at the top left of the screen each time.
        if (w.visible) move(0, 0);
        setVisible(w.visible);
    }
}

void MessagesWindow::closeEvent(QCloseEvent* event) {
    frmErrorList_Unload(c_);
    event->accept();
}

}  // namespace veldor
