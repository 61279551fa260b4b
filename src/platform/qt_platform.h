// The platform's clock, event pump and timers, on Qt.
#pragma once

#include "link/platform.h"

#include <QElapsedTimer>
#include <QTimer>

#include <functional>

namespace veldor {

class QtClock : public Clock {
  public:
    QtClock() { started_.start(); }
    uint32_t milliseconds() override { return static_cast<uint32_t>(started_.elapsed()); }
    QDateTime utcNow() override { return QDateTime::currentDateTimeUtc(); }
    QDateTime localNow() override { return QDateTime::currentDateTime(); }

  private:
    QElapsedTimer started_;
};

// Lets the pending events run, then sleeps. beforeEvents runs first (the view uses it to
// show the state the core has reached).
class QtEventPump : public EventPump {
  public:
    std::function<void()> beforeEvents;
    void processEvents() override;
    void sleep(int milliseconds) override;
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
