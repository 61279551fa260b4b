// Test doubles of the platform: virtual time, scripted dialogs, a scripted serial port, and a
// fresh core on a temporary settings folder.
#pragma once

#include "link/catalogue.h"
#include "link/core.h"
#include "platform/ini_store.h"
#include "platform/serial_settings.h"
#include "platform/sim_port.h"

#include <QMap>
#include <QTemporaryDir>

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace veldor::test {

// Milliseconds that pass only when a pause asks them to.
class VirtualClock : public Clock {
  public:
    uint32_t now = 1000;
    QDateTime utc = QDateTime(QDate(2026, 11, 23), QTime(14, 5, 9), Qt::UTC);
    uint32_t milliseconds() override { return now; }
    QDateTime utcNow() override { return utc.addMSecs(now); }
    QDateTime localNow() override { return utcNow().toLocalTime(); }
};

// The event pump on virtual time: events registered for a moment run in the first pump after
// it; a sleep advances the clock.
class VirtualPump : public EventPump {
  public:
    explicit VirtualPump(VirtualClock& clock) : clock_(clock) {}
    void at(uint32_t ms, std::function<void()> event) { events_.emplace(ms, std::move(event)); }
    void processEvents() override {
        ++pumps;
        runDue();
    }
    // Moves the clock on, running the events due and ending once ready() holds: a millisecond
    // at a time, or with nextChange from one moment at which something changes to the next.
    void sleepUntil(int milliseconds, int watch, const std::function<bool()>& ready) override;
    // The next moment at which something besides the registered events changes (a scripted
    // reply turning readable), if any. Left unset where replies come byte by byte (the
    // simulated rig), so that the clock steps each millisecond; set, a lost reply's wait costs
    // a few leaps rather than hundreds of steps.
    std::function<std::optional<uint32_t>()> nextChange;
    int pumps = 0;

  private:
    void runDue();
    VirtualClock& clock_;
    std::multimap<uint32_t, std::function<void()>> events_;
};

class FakeTimer : public Timer {
  public:
    bool on = false;
    int period = 0;
    void setEnabled(bool enabled) override { on = enabled; }
    bool enabled() const override { return on; }
    void setInterval(int milliseconds) override { period = milliseconds; }
    int interval() const override { return period; }
};

struct ShownMessage {
    QString text;
    QString title;
};

class ScriptedDialogs : public Dialogs {
  public:
    std::vector<ShownMessage> messages;
    std::deque<MsgResult> answers;  // OK when empty
    std::vector<QString> folderPrompts;
    QString folderAnswer;  // empty: the operator cancels
    MsgResult messageBox(const QString& text, const QString& title, MsgButtons, MsgIcon) override;
    // The input boxes shown (their prompts), and the replies typed: none left cancels.
    std::vector<QString> inputPrompts;
    std::deque<QString> inputAnswers;
    bool inputBox(const QString& prompt, const QString&, QString* text) override;
    QString browseForFolder(const QString& prompt) override {
        folderPrompts.push_back(prompt);
        return folderAnswer;
    }
    // The save dialogs shown (their folders), and the name the operator chooses: empty cancels.
    std::vector<QString> saveFolders;
    QString saveAnswer;
    QString saveFileName(const QString&, const QString& folder, const QString&, int) override {
        saveFolders.push_back(folder);
        return saveAnswer;
    }
    // The name chosen in an open dialog: empty cancels.
    QString openAnswer;
    QString openFileName(const QString&, const QString&, const QString&, int) override {
        return openAnswer;
    }
};

// A printer that keeps the documents it was given; available unless told otherwise.
class FakePrinter : public Printer {
  public:
    bool present = true;
    std::vector<QStringList> documents;
    bool available() override { return present; }
    bool setFont(const QString&, int) override { return true; }
    bool print(const QStringList& lines, QString*) override {
        documents.push_back(lines);
        return true;
    }
};

// Settings kept in memory, for runs of millions of inputs where a file per write would cost.
class MemoryStore : public SettingsStore {
  public:
    QString get(const QString& appName, const QString& section, const QString& key,
                const QString& defaultValue) override {
        return values_.value(id(appName, section) + key.toUpper(), defaultValue);
    }
    void save(const QString& appName, const QString& section, const QString& key,
              const QString& value) override {
        values_.insert(id(appName, section) + key.toUpper(), value);
    }
    QList<QPair<QString, QString>> getAll(const QString& appName, const QString& section) override {
        QList<QPair<QString, QString>> all;
        const QString prefix = id(appName, section);
        for (auto it = values_.cbegin(); it != values_.cend(); ++it)
            if (it.key().startsWith(prefix)) all.append({it.key().mid(prefix.size()), it.value()});
        return all;
    }

  private:
    static QString id(const QString& appName, const QString& section) {
        return (appName + '\n' + section + '\n').toUpper();
    }
    QMap<QString, QString> values_;
};

// Programs started: each command line, and whether it started (all do, but those named in
// missing).
class FakeLauncher : public Launcher {
  public:
    std::vector<QString> started;
    std::vector<QString> missing;
    bool start(const QString& commandLine) override {
        started.push_back(commandLine);
        return std::find(missing.begin(), missing.end(), commandLine) == missing.end();
    }
};

// A sound card on virtual time: the take is the stretches of time during which it recorded.
class FakeAudio : public AudioRecorder {
  public:
    explicit FakeAudio(VirtualClock& clock) : clock_(clock) {}
    QStringList devices = {"Monitor of Built-in Audio"};
    std::vector<WaveFormat> formats;
    std::vector<QString> calls;  // "open", "record", "pause", "stop", "close", "save"
    struct Stretch {
        uint32_t from, to;
    };
    // The recorded stretches of the take, the last one open while recording.
    std::vector<Stretch> take;
    std::vector<std::pair<QString, int64_t>> saved;  // path and length of the take

    QStringList inputDevices() override { return devices; }
    void open() override;
    int setFormat(const WaveFormat& format) override {
        formats.push_back(format);
        return 0;
    }
    bool record() override;
    void pause() override;
    void stop() override;
    int save(const QString& path) override;
    void close() override;
    AudioMode mode() const override { return mode_; }
    int64_t takeMilliseconds() const override;
    QString lastErrorText() const override { return {}; }

  private:
    VirtualClock& clock_;
    AudioMode mode_ = AudioMode::Closed;
};

class FakeSystem : public System {
  public:
    std::vector<QString> existingFolders;
    QChar decimalMark = '.';
    int screenWidth = 1920 * 15;
    int screenHeight = 1080 * 15;
    bool ended = false;
    bool directoryExists(const QString& path) override {
        return std::find(existingFolders.begin(), existingFolders.end(), path) !=
               existingFolders.end();
    }
    QChar decimalSeparator() override { return decimalMark; }
    int screenWidthTwips() override { return screenWidth; }
    int screenHeightTwips() override { return screenHeight; }
    QString programFolder() override { return "/opt/veldor"; }
    void endProcess() override { ended = true; }
    void abortProcess() override { aborted = true; }
    void beep() override { ++beeps; }
    QList<QPair<QString, QString>> serialPorts() override { return ports; }
    int logicalDpi() override { return dpi; }
    bool openDocument(const QString& pathOrAddress) override {
        opened.push_back(pathOrAddress);
        return true;
    }
    void setClipboardText(const QString& text) override { clipboard = text; }
    bool aborted = false;
    int beeps = 0;
    QList<QPair<QString, QString>> ports;
    int dpi = 96;
    std::vector<QString> opened;
    QString clipboard;
};

// The other windows: what was shown and closed. A modal window runs the test's operator (the
// function given for it) while it is up, then closes as a modal window does.
class FakeWindows : public Windows {
  public:
    std::map<FormId, std::function<void()>> operators;
    std::vector<FormId> shownLog;
    std::vector<FormId> open;
    void show(FormId form, bool modal) override;
    void hide(FormId form) override { close(form); }
    void close(FormId form) override;
    bool shown(FormId form) const override {
        return std::find(open.begin(), open.end(), form) != open.end();
    }
    int timesShown(FormId form) const {
        return static_cast<int>(std::count(shownLog.begin(), shownLog.end(), form));
    }
};

// A serial port whose replies a test writes in advance, each readable from a given moment.
class ScriptedPort : public SerialPort {
  public:
    explicit ScriptedPort(VirtualClock& clock) : clock_(clock) {}
    // Bytes that become readable at virtual time ms.
    void arrive(uint32_t ms, const QByteArray& bytes) { pending_.push_back({ms, bytes}); }
    // The earliest moment at which bytes still to arrive turn readable, if any.
    std::optional<uint32_t> nextArrival() const;
    // Each write gets this reply, readable after latencyMs.
    std::function<QByteArray(const QByteArray&)> answer;
    uint32_t latencyMs = 10;

    struct Written {
        uint32_t atMs;
        QByteArray bytes;
    };
    std::vector<Written> written;
    QByteArray allWritten() const;
    QString failReason;  // when set, open fails with it
    int opens = 0;
    bool rtsLine = false, dtrLine = false, rtsCts = false;
    QString openedName, openedSettings;
    // What was done to the port and its lines, in order: "open rts 0 dtr 1", "close", "rts 1".
    std::vector<QString> calls;

    bool open(const QString& name, const QString& settings, bool rtsCtsHandshake, PortLines lines,
              QString* reason) override;
    void close() override {
        calls.push_back("close");
        open_ = false;
    }
    bool isOpen() const override { return open_; }
    int inBufferCount() override;
    void clearInput() override;
    QByteArray input(int maxBytes) override;
    void output(const QByteArray& bytes) override;
    // Tests of outBufferCount that find the output still waiting (a device that takes nothing).
    int undrainedTests = 0;
    int outBufferCount() override { return undrainedTests > 0 ? (--undrainedTests, 5) : 0; }
    void setRts(bool on) override { calls.push_back(QString("rts %1").arg(rtsLine = on)); }
    void setDtr(bool on) override { calls.push_back(QString("dtr %1").arg(dtrLine = on)); }
    bool rts() const override { return rtsLine; }
    QString deviceName(const QString& name) const override { return DeviceName(name); }

  private:
    void take();
    VirtualClock& clock_;
    std::vector<std::pair<uint32_t, QByteArray>> pending_;
    QByteArray buffer_;
    bool open_ = false;
};

// A fresh core with fakes all round, its store in a temporary folder, and a simulated rig
// (or a scripted port) on the main port.
struct Harness {
    explicit Harness(bool scriptedMainPort = false);
    // Writes a key of section "Settings" before the core reads the store.
    void setting(const QString& key, const QString& value) {
        store->save(c.s.AppName, "Settings", key, value);
    }
    QString stored(const QString& section, const QString& key) {
        return IniStore(dir.path()).get(c.s.AppName, section, key, "<missing>");
    }
    sim::RigSim& rig() { return *simPort->rig(); }
    // Bytes the rig received, in order.
    QByteArray rigReceived();

    QTemporaryDir dir;
    VirtualClock clock;
    VirtualPump pump{clock};
    FakeTimer pollTimer, clockTimer;
    std::unique_ptr<IniStore> store;
    ScriptedDialogs dialogs;
    FakeSystem system;
    FakeWindows windows;
    FakeLauncher launcher;
    FakeAudio audio{clock};
    FakePrinter printer;
    std::unique_ptr<SimPort> simPort;
    std::unique_ptr<ScriptedPort> scriptedPort;
    ScriptedPort pttPort{clock};
    Core c;
};

// A harness whose store names a rig on the simulated port, with a home folder that exists.
struct Station : Harness {
    explicit Station(const QString& rig, bool scripted = false);
    void load(const QString& commandLine = {});
    void switchOn() { switchTo(1); }
    void switchOff() { switchTo(0); }
    void switchTo(int on);
};

// A connection to a rig whose replies a test writes by hand, from the rig's manual.
struct ScriptedRig : Harness {
    explicit ScriptedRig(const QString& rig);
    // Every command gets these bytes back.
    void replies(const QByteArray& bytes) {
        scriptedPort->answer = [bytes](const QByteArray&) { return bytes; };
    }
};

// A scripted rig whose written bytes a test reads as hex or as text. The tone state counts as
// sent, so that only what a test changes goes out.
struct Wire : ScriptedRig {
    explicit Wire(const QString& rig, const QByteArray& reply = {});
    QString hex() { return scriptedPort->allWritten().toHex(' '); }
    QByteArray text() { return scriptedPort->allWritten(); }
    // What the rig was sent as its manual writes it: text for the FT-450, hex for the others.
    QString sent() { return c.s.RigType == RigFT450 ? QString(text()) : hex(); }
    void clear() { scriptedPort->written.clear(); }
};

// A connected station on the simulated rig with polling off, so that only the writes of the
// tick reach the rig; its trace starts empty.
struct OnAir : Station {
    explicit OnAir(const QString& rigType);
    void tick();
    uint8_t& memory(int address) { return rig().state().eeprom[static_cast<size_t>(address)]; }
};

// Bytes from a list of values.
QByteArray Bytes(std::initializer_list<int> values);

}  // namespace veldor::test
