#include "ui/messages_window.h"

#include <QCloseEvent>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QVBoxLayout>

namespace veldor {

MessagesWindow::MessagesWindow(Core& core) : QWidget(nullptr, Qt::Window), c_(core) {
    setObjectName("frmErrorList");
    setWindowTitle(c_.frmErrorList.caption);
    txtErrors_ = new QPlainTextEdit(this);
    txtErrors_->setObjectName("txtErrors");
    txtErrors_->setReadOnly(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(txtErrors_);
    resize(560, 260);
    move(0, 0);
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
    if (w.visible != isVisible()) setVisible(w.visible);
}

void MessagesWindow::closeEvent(QCloseEvent* event) {
    frmErrorList_Unload(c_);
    event->accept();
}

}  // namespace veldor
