#include "sharing/rigctl_session.h"

#include "basic/basic.h"
#include "link/catalogue.h"
#include "protocol/model_controls.h"
#include "protocol/transmit.h"
#include "sharing/hamlib_terms.h"

#include <QRegularExpression>

#include <cmath>

namespace veldor {

namespace {

// What a command comes to: a read's values, or the request that the tick is to carry out.
struct Outcome {
    int code = RigctlOk;
    QStringList values;
    bool State::*waitFor = nullptr;
    bool thenReading = false;  // the rig's new state shows only after a reading
    bool quit = false;
};

Outcome Code(int code) {
    Outcome o;
    o.code = code;
    return o;
}

Outcome Values(QStringList values) {
    Outcome o;
    o.values = std::move(values);
    return o;
}

Outcome Wait(bool State::*flag) {
    Outcome o;
    o.waitFor = flag;
    return o;
}

bool LinkRunning(const Core& c) {
    return c.f.chkOnOff.value == 1 && c.p.MSComm1 && c.p.MSComm1->isOpen();
}

// The test of a click that tunes: the link runs, and nothing forbids a change.
int TuneGate(const Core& c) {
    if (!LinkRunning(c)) return RigctlLinkDown;
    if (Busy(c.s)) return RigctlRefused;
    return RigctlOk;
}

// A frequency the rig can be put on (a zero passes the catalogue's test, not the rig).
bool Tunable(const Core& c, int32_t frequency) {
    return frequency > 0 && InRigRanges(c.s.RigType, frequency);
}

bool Number(const QString& text, int* out) {
    bool ok = false;
    *out = text.toInt(&ok);
    return ok;
}

bool OnAir(const Core& c) {
    return PttKeyed(c) || c.f.lblTX.backColour == Red;
}

// The mode that goes with a new frequency: the one shown, if the program knows it.
QString ModeToKeep(const Core& c) {
    const QString shown = c.f.txtMode.text.trimmed();
    return IsKnownMode(shown) ? shown : c.s.LastModeSent;
}

Outcome GetFreq(Core& c, const QStringList&) {
    return Values({QString::number(static_cast<int64_t>(c.s.CurrentFrequency) * 10)});
}

Outcome SetFreq(Core& c, const QStringList& args) {
    bool ok = false;
    const double hz = args[0].toDouble(&ok);
    if (!ok || !std::isfinite(hz) || hz <= 0 || hz > 2e10) return Code(RigctlInvalid);
    if (const int gate = TuneGate(c)) return Code(gate);
    const int32_t frequency = basic::CLng(hz / 10);
    if (!Tunable(c, frequency)) return Code(RigctlInvalid);
    c.s.TargetFrequency = frequency;
    c.s.TargetMode = ModeToKeep(c);
    c.s.FrequencyChangePending = true;
    return Wait(&State::FrequencyChangePending);
}

Outcome GetMode(Core& c, const QStringList&) {
    HamlibMode mode;
    if (!HamlibModeOf(c.f.txtMode.text.trimmed(), &mode)) return Code(RigctlNotAvailable);
    return Values({mode.name, QString::number(mode.passband)});
}

Outcome SetMode(Core& c, const QStringList& args) {
    int passband = 0;
    if (!Number(args[1], &passband)) return Code(RigctlInvalid);
    const QString mode = ModeForHamlib(c, args[0], passband);
    if (mode.isEmpty()) return Code(RigctlInvalid);
    if (const int gate = TuneGate(c)) return Code(gate);
    const int32_t frequency = c.s.CurrentFrequency;
    if (!Tunable(c, frequency)) return Code(RigctlRefused);
    c.s.TargetFrequency = frequency;
    c.s.TargetMode = mode;
    c.s.FrequencyChangePending = true;
    return Wait(&State::FrequencyChangePending);
}

Outcome GetVfo(Core& c, const QStringList&) {
    return Values({c.s.VfoAActive ? "VFOA" : "VFOB"});
}

Outcome SetVfo(Core& c, const QStringList& args) {
    const QString letter = VfoLetterOf(c, args[0]);
    if (letter.isEmpty()) return Code(RigctlInvalid);
    if (const int gate = TuneGate(c)) return Code(gate);
    const QString current = c.s.VfoAActive ? "A" : "B";
    if (letter == current) return Code(RigctlOk);
    // Deliberately the rig's VFO toggle, not SelectVfo: on the FT-817, FT-857 and FT-897 that
    // rewrites a byte of the rig's memory, and a client may choose the VFO at every
    // connection. A client's choice never writes the rig's memory.
    if (!RigTogglesVfo(c.s.RigType)) return Code(RigctlNotAvailable);
    c.s.PendingVfoToggle = true;
    // The other VFO's frequency and mode are known once the tick after has read them.
    Outcome o = Wait(&State::PendingVfoToggle);
    o.thenReading = true;
    return o;
}

Outcome GetPtt(Core& c, const QStringList&) {
    return Values({OnAir(c) ? "1" : "0"});
}

// As the TX/RX button: refused where the button is, and only when it changes something.
Outcome SetPtt(Core& c, const QStringList& args) {
    int ptt = 0;
    if (!Number(args[0], &ptt) || ptt < 0 || ptt > 3) return Code(RigctlInvalid);
    if (!LinkRunning(c)) return Code(RigctlLinkDown);
    const RigInfo* rig = FindRig(c.s.RigType);
    if (!rig || rig->receiver) return Code(RigctlNotAvailable);
    if (c.f.chkTransmitEnable.value == 0 || c.s.ScanRunning || c.s.SpectrumRunning)
        return Code(RigctlRefused);
    const bool on = ptt != 0;
    if (on == PttKeyed(c)) return Code(RigctlOk);
    cmdTxRx_Click(c);
    bool State::*flag = on ? &State::PttOnPending : &State::PttOffPending;
    if (c.s.*flag) return Wait(flag);
    return Code(RigctlOk);  // the RTS line alone keys the rig, and it is set already
}

Outcome GetSplit(Core& c, const QStringList&) {
    const bool split = c.f.chkSplit.value == 1;
    return Values({split ? "1" : "0", split ? "VFOB" : "VFOA"});
}

Outcome SetSplit(Core& c, const QStringList& args) {
    int split = 0;
    if (!Number(args[0], &split) || split < 0 || split > 1) return Code(RigctlInvalid);
    if (VfoLetterOf(c, args[1]).isEmpty()) return Code(RigctlInvalid);
    if (!LinkRunning(c)) return Code(RigctlLinkDown);
    if (!c.f.chkSplit.visible) return Code(RigctlNotAvailable);
    // A sweep holds the split box, as it does for the operator.
    if (!c.f.chkSplit.enabled) return Code(RigctlRefused);
    if (c.f.chkSplit.value == split) return Code(RigctlOk);
    c.f.chkSplit.value = split;
    chkSplit_Click(c);
    if (c.s.PendingSplit) return Wait(&State::PendingSplit);
    return Code(RigctlOk);
}

Outcome GetLevel(Core& c, const QStringList& args) {
    const int meter = c.f.pbarSmeter.value;
    if (args[0] == "STRENGTH") return Values({QString::number(StrengthOfMeter(meter))});
    if (args[0] == "RAWSTR") return Values({QString::number(meter)});
    return Code(RigctlNotAvailable);
}

Outcome GetPowerstat(Core& c, const QStringList&) {
    // A rig whose port has gone away is reported off until it is back.
    return Values({LinkRunning(c) ? "1" : "0"});
}

Outcome Zero(Core&, const QStringList&) {
    return Values({"0"});
}

Outcome Accept(Core&, const QStringList&) {
    return Code(RigctlOk);
}

Outcome GetInfo(Core& c, const QStringList&) {
    return Values({"VELDOR " + c.s.RigType});
}

Outcome DumpStateOf(Core& c, const QStringList&) {
    QString text = DumpState(c);
    text.chop(1);
    return Values({text});
}

Outcome Quit(Core&, const QStringList&) {
    Outcome o;
    o.quit = true;
    return o;
}

using Handler = Outcome (*)(Core&, const QStringList&);

struct Command {
    char letter;       // the one-letter form; 0 when there is none
    const char* name;  // the long form, written with a backslash or without
    int args;          // the arguments it takes, a leading VFO name aside
    Handler run;       // nullptr: a Hamlib command that this rig sharing does not offer
    bool read;
    const char* labels[2];  // a read's value labels in extended replies; nullptr: none
    bool bare = false;      // its extended reply is the labelled value alone
};

constexpr Command kCommands[] = {
    {'f', "get_freq", 0, GetFreq, true, {"Frequency", nullptr}},
    {'F', "set_freq", 1, SetFreq, false, {}},
    {'m', "get_mode", 0, GetMode, true, {"Mode", "Passband"}},
    {'M', "set_mode", 2, SetMode, false, {}},
    {'v', "get_vfo", 0, GetVfo, true, {"VFO", nullptr}},
    {'V', "set_vfo", 1, SetVfo, false, {}},
    {'t', "get_ptt", 0, GetPtt, true, {"PTT", nullptr}},
    {'T', "set_ptt", 1, SetPtt, false, {}},
    {'s', "get_split_vfo", 0, GetSplit, true, {"Split", "TX VFO"}},
    {'S', "set_split_vfo", 2, SetSplit, false, {}},
    {'l', "get_level", 1, GetLevel, true, {}},
    {'_', "get_info", 0, GetInfo, true, {"Info", nullptr}},
    {'q', "quit", 0, Quit, false, {}},
    {'Q', "quit", 0, Quit, false, {}},
    {0, "chk_vfo", 0, Zero, true, {"ChkVFO", nullptr}, true},
    {0, "dump_state", 0, DumpStateOf, true, {}},
    {0, "get_powerstat", 0, GetPowerstat, true, {"Power Status", nullptr}},
    {0, "get_lock_mode", 0, Zero, true, {"Locked", nullptr}},
    {0, "set_vfo_opt", 1, Accept, false, {}},
    {'i', "get_split_freq", 0, nullptr, true, {}},
    {'I', "set_split_freq", 1, nullptr, false, {}},
    {'x', "get_split_mode", 0, nullptr, true, {}},
    {'X', "set_split_mode", 2, nullptr, false, {}},
    {'r', "get_rptr_shift", 0, nullptr, true, {}},
    {'R', "set_rptr_shift", 1, nullptr, false, {}},
    {'o', "get_rptr_offs", 0, nullptr, true, {}},
    {'O', "set_rptr_offs", 1, nullptr, false, {}},
    {'c', "get_ctcss_tone", 0, nullptr, true, {}},
    {'C', "set_ctcss_tone", 1, nullptr, false, {}},
    {'j', "get_rit", 0, nullptr, true, {}},
    {'J', "set_rit", 1, nullptr, false, {}},
    {'z', "get_xit", 0, nullptr, true, {}},
    {'Z', "set_xit", 1, nullptr, false, {}},
    {'u', "get_func", 1, nullptr, true, {}},
    {'U', "set_func", 2, nullptr, false, {}},
    {'L', "set_level", 2, nullptr, false, {}},
    {0, "set_powerstat", 1, nullptr, false, {}},
};

const Command* FindCommand(const QString& word) {
    const bool longForm = word.startsWith('\\') || word.size() > 1;
    const QString name = word.startsWith('\\') ? word.mid(1) : word;
    for (const Command& command : kCommands) {
        if (longForm ? name == QLatin1String(command.name)
                     : command.letter && name == QChar(command.letter))
            return &command;
    }
    return nullptr;
}

QByteArray Latin1(const QString& text) {
    return text.toLatin1();
}

// The head of an extended reply: the command's long name and the arguments it was given.
QByteArray ExtendedHead(const Command& command, const QStringList& args, char separator) {
    QString head = QString(command.name) + ":";
    if (!args.isEmpty()) head += " " + args.join(' ');
    return Latin1(head) + separator;
}

QByteArray Report(int code) {
    return "RPRT " + QByteArray::number(code);
}

QByteArray Reply(const Command& command, const QStringList& args, const Outcome& o,
                 char separator) {
    if (!separator) {
        if (command.read && o.code == RigctlOk) return Latin1(o.values.join('\n')) + "\n";
        return Report(o.code) + "\n";
    }
    QByteArray out = command.bare ? QByteArray() : ExtendedHead(command, args, separator);
    if (command.read && o.code == RigctlOk) {
        for (qsizetype i = 0; i < o.values.size(); ++i) {
            const char* label = i < 2 ? command.labels[i] : nullptr;
            out +=
                (label ? QByteArray(label) + ": " : QByteArray()) + Latin1(o.values[i]) + separator;
        }
    }
    if (command.bare) return out.replace(separator, '\n');
    return out + Report(o.code) + "\n";
}

// One line of the client, without its end; an empty reply when a write waits for the tick.
QByteArray Serve(Core& c, RigctlSession& session, const QByteArray& line) {
    if (line.size() >= RigctlLineLimit) return Report(RigctlInvalid) + "\n";
    static const QRegularExpression blanks("\\s+");
    QStringList words = QString::fromLatin1(line).split(blanks, Qt::SkipEmptyParts);
    if (words.isEmpty()) return {};
    char separator = 0;
    const QChar first = words[0].front();
    if (first == '+' || first == ';' || first == '|' || first == ',') {
        separator = first == '+' ? '\n' : static_cast<char>(first.toLatin1());
        words[0].remove(0, 1);
        if (words[0].isEmpty()) words.removeFirst();
        if (words.isEmpty()) return Report(RigctlInvalid) + "\n";
    }
    const Command* command = FindCommand(words.takeFirst());
    if (!command) return Report(RigctlInvalid) + "\n";
    QStringList& args = words;
    // A client that names the VFO puts it before the arguments.
    if (args.size() == command->args + 1 && !VfoLetterOf(c, args[0]).isEmpty()) args.removeFirst();
    Outcome outcome;
    if (!command->run)
        outcome.code = RigctlNotAvailable;
    else if (args.size() != command->args)
        outcome.code = RigctlInvalid;
    else
        outcome = command->run(c, args);

    if (outcome.waitFor) {
        session.waitingFor = outcome.waitFor;
        session.waitingForReading = outcome.thenReading;
        session.waitingSince = c.p.clock->milliseconds();
        session.waitingHead = separator ? ExtendedHead(*command, args, separator) : QByteArray();
        return {};
    }
    if (outcome.quit) session.closing = true;
    return Reply(*command, args, outcome, separator);
}

QByteArray Finish(RigctlSession& session, int code) {
    QByteArray out = session.waitingHead + Report(code) + "\n";
    session.waitingFor = nullptr;
    session.waitingForReading = false;
    session.waitingHead.clear();
    return out;
}

// Whether a line would cost the rig a command: a write, or a command not known (which is
// refused and costs nothing, so counted as a read).
bool CostsTheRig(const QByteArray& line) {
    static const QRegularExpression blanks("\\s+");
    QStringList words = QString::fromLatin1(line).split(blanks, Qt::SkipEmptyParts);
    if (words.isEmpty()) return false;
    QString word = words[0];
    if (word.size() > 1 && QStringLiteral("+;|,").contains(word[0])) word.remove(0, 1);
    const Command* command = FindCommand(word);
    return command && !command->read;
}

// Serves the lines in turn until one waits for the tick.
QByteArray Drain(Core& c, RigctlSession& session) {
    QByteArray out;
    while (!session.waitingFor && !session.closing && !session.queue.isEmpty()) {
        const QByteArray line = session.queue.takeFirst();
        session.queuedBytes -= line.size();
        if (CostsTheRig(line)) --session.queuedWrites;
        out += Serve(c, session, line);
    }
    return out;
}

QByteArray FailIfStuck(Core& c, RigctlSession& session) {
    if (!session.waitingFor) return {};
    if (!LinkRunning(c)) return Finish(session, RigctlLinkDown);
    if (c.p.clock->milliseconds() - session.waitingSince >= RigctlWriteLimitMs)
        return Finish(session, RigctlTimedOut);
    return {};
}

}  // namespace

QByteArray RigctlReceive(Core& c, RigctlSession& session, const QByteArray& bytes) {
    if (session.closing) return {};
    QByteArray out;
    qsizetype start = 0;
    while (start < bytes.size()) {
        const qsizetype end = bytes.indexOf('\n', start);
        const qsizetype stop = end < 0 ? bytes.size() : end;
        // Past the limit the line is only counted, not kept: it is refused as a whole.
        const qsizetype room = RigctlLineLimit - session.partial.size();
        if (room > 0) session.partial += bytes.mid(start, std::min(stop - start, room));
        if (end < 0) break;
        QByteArray line = std::move(session.partial);
        session.partial.clear();
        if (line.endsWith('\r')) line.chop(1);
        start = end + 1;
        if (CostsTheRig(line)) ++session.queuedWrites;
        session.queuedBytes += line.size();
        session.queue.append(std::move(line));
        // A client that floods the server behind a write is let go.
        if (session.queuedWrites > RigctlQueueLimit || session.queuedBytes > RigctlQueueByteLimit) {
            session.closing = true;
            return out;
        }
        out += Drain(c, session);
    }
    return out;
}

QByteArray RigctlRequestsServed(Core& c, RigctlSession& session) {
    QByteArray out;
    if (session.waitingFor && !(c.s.*session.waitingFor) && !c.s.SendBusy && !c.s.ReceiveBusy) {
        // Carried out; a write whose effect a reading shows waits for the tick after.
        if (session.waitingForReading)
            session.waitingForReading = false;
        else
            out = Finish(session, RigctlOk);
    }
    out += FailIfStuck(c, session);
    return out + Drain(c, session);
}

bool RigctlWriteWaiting(const Core& c, const RigctlSession& session) {
    return session.waitingFor && c.s.*session.waitingFor;
}

QByteArray RigctlCheckWaiting(Core& c, RigctlSession& session) {
    const QByteArray out = FailIfStuck(c, session);
    return out + Drain(c, session);
}

}  // namespace veldor
