// A connected core on the built-in simulated rig with wire pacing, on the real clock, for the
// benchmarks: no windows, no dialogs, the poll timer ticked by hand.
#pragma once

#include "cycle/start_stop.h"
#include "platform/ini_store.h"
#include "platform/qt_platform.h"
#include "platform/sim_port.h"
#include "platform/system_serial_port.h"
#include "sharing/rigctl_session.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QThread>

namespace veldor::bench {

class NoDialogs : public Dialogs {
  public:
    MsgResult messageBox(const QString&, const QString&, MsgButtons, MsgIcon) override {
        return MsgResult::OK;
    }
    bool inputBox(const QString&, const QString&, QString*) override { return false; }
    QString browseForFolder(const QString&) override { return {}; }
    QString saveFileName(const QString&, const QString&, const QString&, int) override {
        return {};
    }
    QString openFileName(const QString&, const QString&, const QString&, int) override {
        return {};
    }
};

class BenchSystem : public System {
  public:
    bool directoryExists(const QString&) override { return true; }
    QChar decimalSeparator() override { return '.'; }
    int screenWidthTwips() override { return 28800; }
    int screenHeightTwips() override { return 16200; }
    QString programFolder() override { return "."; }
    void endProcess() override {}
    void abortProcess() override {}
};

class NoWindows : public Windows {
  public:
    void show(FormId, bool) override {}
    void hide(FormId) override {}
    void close(FormId) override {}
    bool shown(FormId) const override { return false; }
};

class ManualTimer : public Timer {
  public:
    bool on = false;
    int period = 0;
    void setEnabled(bool e) override { on = e; }
    bool enabled() const override { return on; }
    void setInterval(int ms) override { period = ms; }
    int interval() const override { return period; }
};

// The tick's word that it has carried out the requests: the client's replies are taken then.
class BenchServer : public RigServer {
  public:
    Core* c = nullptr;
    RigctlSession session;
    QByteArray replies;
    bool listen(const QString&, int, QString*) override { return true; }
    void stop() override {}
    bool listening() const override { return true; }
    int clientCount() const override { return 1; }
    QElapsedTimer sinceWrite;
    double answeredMs = -1;  // after the write, when the tick answered it
    void requestsServed() override {
        replies += RigctlRequestsServed(*c, session);
        if (!replies.isEmpty() && answeredMs < 0) answeredMs = sinceWrite.nsecsElapsed() / 1e6;
    }
    bool writeWaiting() const override { return RigctlWriteWaiting(*c, session); }
};

// The program's wait, which also adds up the fixed pauses the program asks for (a sleep that
// only an event may end early: the S-meter pause, the command delays), for the benchmarks'
// bounds.
class PausePump : public EventPump {
  public:
    void processEvents() override { pump_.processEvents(); }
    void sleepUntil(int milliseconds, int watch, const std::function<bool()>& ready) override {
        if ((!ready || watch == kWatchEventsOnly) && milliseconds > 0) pausedMs += milliseconds;
        pump_.sleepUntil(milliseconds, watch, ready);
    }
    int64_t pausedMs = 0;

  private:
    QtEventPump pump_;
};

// A connected core on the built-in simulated rig, on the real clock.
struct BenchStation {
    BenchStation(const char* rig, const char* speed)
        : port(clock, [this] { return c.s.RigType; }), ptt(clock, [this] { return c.s.RigType; }) {
        c.p = Platform{.MSComm1 = &port,
                       .PttComPort = &ptt,
                       .clock = &clock,
                       .pump = &pump,
                       .tmrPollInterval = &poll,
                       .tmrClock = &tick,
                       .store = &store,
                       .dialogs = &dialogs,
                       .system = &system,
                       .windows = &windows,
                       .rigServer = &server};
        server.c = &c;
        for (auto [k, v] : {std::pair<const char*, QString>{"RigType", rig},
                            {"Commport", "SIM"},
                            {"CommSpeed", speed},
                            {"TalkFreq", "5"},
                            {"PollingDelay", "0"},
                            {"HomeDir", dir.path()}})
            store.save("VELDOR", "Settings", k, v);
        store.startWriter();  // as the program's store
        Form_Load(c, "");
        c.f.chkOnOff.value = 1;
        chkOnOff_Click(c);
    }
    // One tick as its timer gives it.
    void tickOnce() {
        QThread::msleep(static_cast<unsigned long>(poll.period));
        tmrPollInterval_Timer(c);
    }

    QTemporaryDir dir;
    Core c;
    QtClock clock;
    PausePump pump;
    IniStore store{dir.path()};
    NoDialogs dialogs;
    BenchSystem system;
    NoWindows windows;
    SimPort port;
    SystemSerialPort ptt;
    ManualTimer poll, tick;
    BenchServer server;
};

}  // namespace veldor::bench
