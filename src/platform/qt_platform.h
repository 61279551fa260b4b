// The platform's clock, event pump and timers, on Qt.
#pragma once

#include "link/platform.h"

#include <QElapsedTimer>
#include <QTimer>

#include <functional>
#include <map>
#include <memory>

class QSocketNotifier;

namespace veldor {

class QtClock : public Clock {
  public:
    QtClock() { started_.start(); }
    uint32_t milliseconds() override { return static_cast<uint32_t>(started_.elapsed()); }
    QDateTime utcNow() override { return QDateTime::currentDateTimeUtc(); }
    // The local time as the UTC time and the zone's offset; the offset is looked up again
    // when the minute changes (a zone changes its offset only at a whole minute), not at
    // every call, which would read the system's zone file each time.
    QDateTime localNow() override;

  private:
    QElapsedTimer started_;
    qint64 offsetMinute_ = -1;  // the UTC minute the offset was looked up in
    int offsetSeconds_ = 0;
};

// Lets the pending events run; sleeps with the events running as they come, and wakes for the
// port's input when a sleep waits for it. beforeEvents runs first (the view uses it to show the
// state the core has reached).
class QtEventPump : public EventPump {
  public:
    QtEventPump();
    ~QtEventPump() override;
    std::function<void()> beforeEvents;
    void processEvents() override;
    void sleepUntil(int milliseconds, int watch, const std::function<bool()>& ready) override;

  private:
    // One notifier a descriptor, shared by waits nested in one another.
    struct Watch {
        std::unique_ptr<QSocketNotifier> notifier;
        int users = 0;
    };
    void watch(int descriptor);
    void unwatch(int descriptor);
    std::map<int, Watch> watches_;
};

class QtTimer : public Timer {
  public:
    explicit QtTimer(std::function<void()> onTimer);
    void setEnabled(bool on) override;
    bool enabled() const override { return timer_.isActive(); }
    void setInterval(int milliseconds) override { timer_.setInterval(milliseconds); }
    int interval() const override { return timer_.interval(); }

  private:
    QTimer timer_;
};

}  // namespace veldor
