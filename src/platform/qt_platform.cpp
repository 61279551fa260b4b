#include "platform/qt_platform.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QSocketNotifier>

#include <algorithm>

namespace veldor {

QDateTime QtClock::localNow() {
    const QDateTime utc = QDateTime::currentDateTimeUtc();
    const qint64 minute = utc.toSecsSinceEpoch() / 60;
    if (minute != offsetMinute_) {
        offsetSeconds_ = utc.toLocalTime().offsetFromUtc();
        offsetMinute_ = minute;
    }
    return utc.toOffsetFromUtc(offsetSeconds_);
}

QtEventPump::QtEventPump() = default;
QtEventPump::~QtEventPump() = default;

void QtEventPump::processEvents() {
    if (beforeEvents) beforeEvents();
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

void QtEventPump::watch(int descriptor) {
    Watch& w = watches_[descriptor];
    if (w.users++ == 0)
        w.notifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    w.notifier->setEnabled(true);
}

void QtEventPump::unwatch(int descriptor) {
    auto it = watches_.find(descriptor);
    if (it == watches_.end()) return;
    if (--it->second.users == 0) watches_.erase(it);
}

// The events run in the loop's own wait: it blocks in the system until an event, the timer
// that ends the sleep, or input on the watched port wakes it, so an idle program sleeps.
void QtEventPump::sleepUntil(int milliseconds, int watchDescriptor,
                             const std::function<bool()>& ready) {
    if (milliseconds <= 0) return;
    const QDeadlineTimer deadline(milliseconds, Qt::PreciseTimer);
    const int descriptor = ready ? watchDescriptor : -1;
    // kWatchEventsOnly is below 0: no descriptor is watched, and no millisecond looked at.
    if (descriptor >= 0) watch(descriptor);
    // Input only tells the wait to look: the notifier is level-triggered, and the port takes
    // what came when ready() asks it.
    QTimer wake;
    wake.setSingleShot(true);
    wake.setTimerType(Qt::PreciseTimer);
    while (!(ready && ready())) {
        const qint64 left = (deadline.remainingTimeNSecs() + 999999) / 1000000;
        if (left <= 0) break;
        // Nothing to wake on: look each millisecond.
        const bool look = ready && descriptor == -1;
        wake.start(static_cast<int>(look ? std::min<qint64>(left, 1) : left));
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    if (descriptor >= 0) unwatch(descriptor);
}

QtTimer::QtTimer(std::function<void()> onTimer) {
    // The poll tick's period is short (26 ms at the fastest): a coarse timer would drift it.
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, std::move(onTimer));
}

void QtTimer::setEnabled(bool on) {
    if (on && !timer_.isActive()) timer_.start();
    if (!on) timer_.stop();
}

}  // namespace veldor
