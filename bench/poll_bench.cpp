// Full readings per second on the built-in simulated rig with wire pacing, on the real
// clock, beside the bound that the wire and the program's own delays allow.
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "platform/ini_store.h"
#include "platform/qt_platform.h"
#include "platform/sim_port.h"
#include "platform/system_serial_port.h"
#include "sharing/rigctl_session.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <cstdio>

namespace {

using namespace veldor;

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
    QtEventPump pump;
    IniStore store{dir.path()};
    NoDialogs dialogs;
    BenchSystem system;
    NoWindows windows;
    SimPort port;
    SystemSerialPort ptt;
    ManualTimer poll, tick;
    BenchServer server;
};

// Runs the poll tick as its timer would, for seconds, and counts frequency reads.
void Measure(const char* rig, const char* speed, int bytesPerReading, int seconds) {
    BenchStation st(rig, speed);
    int readings = 0;
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < seconds * 1000) {
        const uint32_t before = st.c.s.NextPollTime;
        st.tickOnce();
        if (st.c.s.NextPollTime != before) ++readings;
    }
    const double perSecond = readings / (t.elapsed() / 1000.0);
    const int baud = QString(speed).section(',', 0, 0).toInt();
    const double wireMs = bytesPerReading * 11.0 * 1000.0 / baud;
    const double boundMs = st.poll.period + wireMs + st.c.f.sldSmeterDelay.value;
    std::printf(
        "%-6s %-12s %6.2f readings/s   bound %6.2f/s  (tick %d ms + wire %.1f ms + "
        "S-meter pause %d ms)\n",
        rig, speed, perSecond, 1000.0 / boundMs, st.poll.period, wireMs,
        st.c.f.sldSmeterDelay.value);
}

// Rig sharing: a read answered from the kept state, and a write from its line to its answer.
void MeasureSharing(const char* rig, const char* speed, int writes) {
    BenchStation st(rig, speed);
    st.tickOnce();
    RigctlSession& session = st.server.session;
    constexpr int kReads = 100000;
    QElapsedTimer t;
    t.start();
    qsizetype bytes = 0;
    for (int i = 0; i < kReads; ++i) bytes += RigctlReceive(st.c, session, "f\nm\n").size();
    const double readUs = t.nsecsElapsed() / 1000.0 / (2.0 * kReads);

    // From the line to its answer, which the tick gives once the rig has taken the frequency.
    double answeredMs = 0, worstMs = 0;
    for (int i = 0; i < writes; ++i) {
        const int64_t hz = 14000000 + 1000 * (i % 50 + 1);
        st.server.answeredMs = -1;
        st.server.sinceWrite.start();
        st.server.replies = RigctlReceive(st.c, session, "F " + QByteArray::number(hz) + "\n");
        while (st.server.replies.isEmpty()) st.tickOnce();
        if (st.port.rig()->state().frequencyHz != hz) std::printf("frequency not taken\n");
        answeredMs += st.server.answeredMs;
        worstMs = std::max(worstMs, st.server.answeredMs);
    }
    std::printf(
        "%-6s %-12s read answered in %.1f us (%lld bytes); write answered after %.0f ms "
        "(worst %.0f ms; tick period %d ms)\n",
        rig, speed, readUs, static_cast<long long>(bytes), answeredMs / writes, worstMs,
        st.poll.period);
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int seconds = argc > 1 ? std::atoi(argv[1]) : 5;
    // Bytes on the wire for one reading: frequency, status and signal, both ways.
    Measure("FT817", "4800,N,8,2", 3 * 5 + 5 + 1 + 1, seconds);
    Measure("FT817", "38400,N,8,2", 3 * 5 + 5 + 1 + 1, seconds);
    Measure("FT450", "38400,N,8,2", 60 + 70, seconds);
    MeasureSharing("FT817", "4800,N,8,2", 5 * seconds);
    MeasureSharing("FT450", "38400,N,8,2", 5 * seconds);
    return 0;
}
