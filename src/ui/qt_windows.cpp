#include "ui/qt_windows.h"

#include <QDialog>
#include <QEventLoop>

namespace veldor {

void QtWindows::add(FormId form, Factory factory) {
    factories_[form] = std::move(factory);
}

QWidget* QtWindows::window(FormId form) const {
    const auto it = open_.find(form);
    return it == open_.end() ? nullptr : it->second.data();
}

void QtWindows::show(FormId form, bool modal) {
    QWidget* w = window(form);
    if (!w) {
        const auto factory = factories_.find(form);
        if (factory == factories_.end()) return;
        w = factory->second();
        if (!w) return;
        w->setAttribute(Qt::WA_DeleteOnClose);
        open_[form] = w;
    }
    if (!modal) {
        w->show();
        w->raise();
        return;
    }
    // A modal window runs until it has been closed.
    if (auto* dialog = qobject_cast<QDialog*>(w)) {
        dialog->exec();
        if (open_[form]) open_[form]->close();
    } else {
        w->setWindowModality(Qt::ApplicationModal);
        QEventLoop loop;
        QObject::connect(w, &QObject::destroyed, &loop, &QEventLoop::quit);
        w->show();
        loop.exec();
    }
    open_.erase(form);
}

void QtWindows::hide(FormId form) {
    if (QWidget* w = window(form)) w->hide();
}

void QtWindows::close(FormId form) {
    QWidget* w = window(form);
    if (!w) return;
    if (auto* dialog = qobject_cast<QDialog*>(w); dialog && dialog->isModal()) {
        dialog->done(QDialog::Rejected);
        return;
    }
    w->close();
    open_.erase(form);
}

bool QtWindows::shown(FormId form) const {
    QWidget* w = window(form);
    return w && w->isVisible();
}

}  // namespace veldor
