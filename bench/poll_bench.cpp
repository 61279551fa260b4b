// Full readings per second on the built-in simulated rig with wire pacing, on the real
// clock, beside the bound that the wire and the program's own delays allow.
#include "link/catalogue.h"
#include "link/start_stop.h"
#include "platform/ini_store.h"
#include "platform/qt_platform.h"
#include "platform/system_serial_port.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QThread>

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
};

class BenchSystem : public System {
public:
    bool directoryExists(const QString&) override { return true; }
    QChar decimalSeparator() override { return '.'; }
    int screenWidthTwips() override { return 28800; }
    int screenHeightTwips() override { return 16200; }
    QString programFolder() override { return "."; }
    void showSettings() override {}
    void endProcess() override {}
    void abortProcess() override {}
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

// Runs the poll tick as its timer would, for seconds, and counts frequency reads.
void Measure(const char* rig, const char* speed, int bytesPerReading, int seconds) {
    QTemporaryDir dir;
    Core c;
    QtClock clock;
    QtEventPump pump;
    IniStore store(dir.path());
    NoDialogs dialogs;
    BenchSystem system;
    SystemSerialPort port(clock, [&c] { return c.s.RigType; });
    SystemSerialPort ptt(clock, [&c] { return c.s.RigType; });
    ManualTimer poll, tick;
    c.p = Platform{&port, &ptt, &clock, &pump, &poll, &tick, &store, &dialogs, &system};
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

    int readings = 0;
    QString last;
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < seconds * 1000) {
        QThread::msleep(static_cast<unsigned long>(poll.period));
        const uint32_t before = c.s.NextPollTime;
        tmrPollInterval_Timer(c);
        if (c.s.NextPollTime != before) ++readings;
    }
    const double perSecond = readings / (t.elapsed() / 1000.0);
    const int baud = QString(speed).section(',', 0, 0).toInt();
    const double wireMs = bytesPerReading * 11.0 * 1000.0 / baud;
    const double boundMs = poll.period + wireMs + c.f.sldSmeterDelay.value;
    std::printf("%-6s %-12s %6.2f readings/s   bound %6.2f/s  (tick %d ms + wire %.1f ms + "
                "S-meter pause %d ms)\n",
                rig, speed, perSecond, 1000.0 / boundMs, poll.period, wireMs,
                c.f.sldSmeterDelay.value);
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int seconds = argc > 1 ? std::atoi(argv[1]) : 5;
    // Bytes on the wire for one reading: frequency, status and signal, both ways.
    Measure("FT817", "4800,N,8,2", 3 * 5 + 5 + 1 + 1, seconds);
    Measure("FT817", "38400,N,8,2", 3 * 5 + 5 + 1 + 1, seconds);
    Measure("FT450", "38400,N,8,2", 60 + 70, seconds);
    return 0;
}
