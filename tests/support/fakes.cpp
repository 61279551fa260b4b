#include "support/fakes.h"

#include "cycle/start_stop.h"

#include <QDir>

#include <algorithm>

namespace veldor::test {

void VirtualPump::runDue() {
    while (!events_.empty() && events_.begin()->first <= clock_.now) {
        auto event = std::move(events_.begin()->second);
        events_.erase(events_.begin());
        event();
    }
}

void VirtualPump::sleepUntil(int milliseconds, int, const std::function<bool()>& ready) {
    const uint32_t end = clock_.now + static_cast<uint32_t>(std::max(milliseconds, 0));
    while (clock_.now < end && !(ready && ready())) {
        uint32_t next = clock_.now + 1;
        if (nextChange) {
            next = end;
            if (!events_.empty()) next = std::min(next, events_.begin()->first);
            if (const auto change = nextChange()) next = std::min(next, *change);
            next = std::max(next, clock_.now + 1);
        }
        clock_.now = next;
        runDue();
    }
}

MsgResult ScriptedDialogs::messageBox(const QString& text, const QString& title, MsgButtons,
                                      MsgIcon) {
    messages.push_back({text, title});
    if (answers.empty()) return MsgResult::OK;
    const MsgResult answer = answers.front();
    answers.pop_front();
    return answer;
}

bool ScriptedDialogs::inputBox(const QString& prompt, const QString&, QString* text) {
    inputPrompts.push_back(prompt);
    if (inputAnswers.empty()) return false;
    *text = inputAnswers.front();
    inputAnswers.pop_front();
    return true;
}

void FakeAudio::open() {
    calls.push_back("open");
    take.clear();
    mode_ = AudioMode::Open;
}

bool FakeAudio::record() {
    calls.push_back("record");
    if (mode_ == AudioMode::Closed || mode_ == AudioMode::Recording) return false;
    take.push_back({clock_.now, clock_.now});
    mode_ = AudioMode::Recording;
    return true;
}

void FakeAudio::pause() {
    calls.push_back("pause");
    if (mode_ == AudioMode::Recording) {
        take.back().to = clock_.now;
        mode_ = AudioMode::Paused;
    } else if (mode_ == AudioMode::Paused) {
        take.push_back({clock_.now, clock_.now});
        mode_ = AudioMode::Recording;
    }
}

void FakeAudio::stop() {
    calls.push_back("stop");
    if (mode_ == AudioMode::Recording) take.back().to = clock_.now;
    if (mode_ == AudioMode::Recording || mode_ == AudioMode::Paused) mode_ = AudioMode::Stopped;
}

int FakeAudio::save(const QString& path) {
    calls.push_back("save");
    saved.push_back({path, takeMilliseconds()});
    return 0;
}

void FakeAudio::close() {
    calls.push_back("close");
    take.clear();
    mode_ = AudioMode::Closed;
}

int64_t FakeAudio::takeMilliseconds() const {
    int64_t ms = 0;
    for (const Stretch& s : take) ms += s.to - s.from;
    if (mode_ == AudioMode::Recording) ms += clock_.now - take.back().to;
    return ms;
}

void FakeWindows::show(FormId form, bool modal) {
    shownLog.push_back(form);
    if (!shown(form)) open.push_back(form);
    if (!modal) return;
    if (auto op = operators.find(form); op != operators.end()) op->second();
    close(form);
}

void FakeWindows::close(FormId form) {
    open.erase(std::remove(open.begin(), open.end(), form), open.end());
}

QByteArray ScriptedPort::allWritten() const {
    QByteArray all;
    for (const Written& w : written) all += w.bytes;
    return all;
}

bool ScriptedPort::open(const QString& name, const QString& settings, bool rtsCtsHandshake,
                        PortLines lines, QString* reason) {
    calls.push_back(QString("open rts %1 dtr %2").arg(lines.rts).arg(lines.dtr));
    if (!failReason.isEmpty()) {
        if (reason) *reason = failReason;
        open_ = false;
        return false;
    }
    ++opens;
    open_ = true;
    openedName = name;
    openedSettings = settings;
    rtsCts = rtsCtsHandshake;
    rtsLine = lines.rts;
    dtrLine = lines.dtr;
    return true;
}

void ScriptedPort::take() {
    for (auto it = pending_.begin(); it != pending_.end();) {
        if (it->first <= clock_.now) {
            buffer_ += it->second;
            it = pending_.erase(it);
        } else {
            ++it;
        }
    }
}

std::optional<uint32_t> ScriptedPort::nextArrival() const {
    std::optional<uint32_t> first;
    for (const auto& [ms, bytes] : pending_)
        if (!first || ms < *first) first = ms;
    return first;
}

int ScriptedPort::inBufferCount() {
    take();
    return open_ ? static_cast<int>(buffer_.size()) : 0;
}

void ScriptedPort::clearInput() {
    take();
    buffer_.clear();
}

QByteArray ScriptedPort::input(int maxBytes) {
    take();
    const qsizetype n =
        maxBytes <= 0 ? buffer_.size() : std::min<qsizetype>(maxBytes, buffer_.size());
    const QByteArray out = buffer_.left(n);
    buffer_.remove(0, n);
    return out;
}

void ScriptedPort::output(const QByteArray& bytes) {
    written.push_back({clock_.now, bytes});
    if (answer) {
        const QByteArray reply = answer(bytes);
        if (!reply.isEmpty()) arrive(clock_.now + latencyMs, reply);
    }
}

Harness::Harness(bool scriptedMainPort) {
    store = std::make_unique<IniStore>(dir.path());
    store->onTrouble = [this](const QString& text) { ReportMessage(c, text); };
    SerialPort* main = nullptr;
    if (scriptedMainPort) {
        scriptedPort = std::make_unique<ScriptedPort>(clock);
        main = scriptedPort.get();
        // Nothing but the scripted ports' bytes and the registered events moves with time.
        pump.nextChange = [this]() -> std::optional<uint32_t> {
            const auto a = scriptedPort->nextArrival(), b = pttPort.nextArrival();
            if (a && b) return std::min(*a, *b);
            return a ? a : b;
        };
    } else {
        simPort = std::make_unique<SimPort>(clock, [this] { return c.s.RigType; });
        main = simPort.get();
    }
    c.p = Platform{.MSComm1 = main,
                   .PttComPort = &pttPort,
                   .clock = &clock,
                   .pump = &pump,
                   .tmrPollInterval = &pollTimer,
                   .tmrClock = &clockTimer,
                   .store = store.get(),
                   .dialogs = &dialogs,
                   .system = &system,
                   .windows = &windows,
                   .launcher = &launcher,
                   .audio = &audio,
                   .printer = &printer};
}

QByteArray Harness::rigReceived() {
    QByteArray all;
    if (!simPort || !simPort->rig()) return all;
    for (const sim::TraceEntry& e : simPort->rig()->trace())
        if (e.dir == sim::Dir::HostToRig) all += e.bytes;
    return all;
}

Station::Station(const QString& rig, bool scripted) : Harness(scripted) {
    setting("RigType", rig);
    setting("Commport", "SIM");
    setting("HomeDir", dir.path());
    system.existingFolders.push_back(dir.path());
}

void Station::load(const QString& commandLine) {
    Form_Load(c, commandLine);
}

void Station::switchTo(int on) {
    c.f.chkOnOff.value = on;
    chkOnOff_Click(c);
}

ScriptedRig::ScriptedRig(const QString& rig) : Harness(true) {
    c.s.RigType = rig;
    c.f.chkOnOff.value = 1;
    scriptedPort->open("1", "4800,N,8,2", false, {}, nullptr);
}

Wire::Wire(const QString& rig, const QByteArray& reply) : ScriptedRig(rig) {
    if (!reply.isEmpty()) replies(reply);
    c.s.LastToneState = c.s.ToneCode + c.s.ToneEncode + c.s.ToneDecode;
}

OnAir::OnAir(const QString& rigType) : Station(rigType) {
    load();
    switchOn();
    c.s.PollingDelay = 99;
    c.s.ForceUpdate = false;
    tick();
    rig().clearTrace();
}

void OnAir::tick() {
    tmrPollInterval_Timer(c);
}

QByteArray Bytes(std::initializer_list<int> values) {
    QByteArray out;
    for (int v : values) out.append(static_cast<char>(v));
    return out;
}

}  // namespace veldor::test
