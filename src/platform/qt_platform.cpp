#include "platform/qt_platform.h"

#include <QCoreApplication>
#include <QThread>

namespace veldor {

void QtEventPump::processEvents() {
    if (beforeEvents) beforeEvents();
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

void QtEventPump::sleep(int milliseconds) {
    if (milliseconds > 0) QThread::msleep(static_cast<unsigned long>(milliseconds));
}

QtTimer::QtTimer(std::function<void()> onTimer) {
    QObject::connect(&timer_, &QTimer::timeout, std::move(onTimer));
}

void QtTimer::setEnabled(bool on) {
    if (on && !timer_.isActive()) timer_.start();
    if (!on) timer_.stop();
}

}  // namespace veldor
