// The FT-450: ";"-ended text commands, "?;" for anything it does not understand.
#include "sim_base.h"

#include <algorithm>
#include <string>

namespace veldor::sim {

namespace {

// The FT-450's mode digits ("MD0x;" and character 21 of "IF").
struct TextMode {
    const char* name;
    char digit;
};
constexpr TextMode kModes[] = {{"LSB", '1'},  {"USB", '2'},  {"CW", '3'},  {"FM", '4'},
                               {"AM", '5'},   {"RTYL", '6'}, {"CWR", '7'}, {"USRL", '8'},
                               {"RTYU", '9'}, {"FMN", 'B'},  {"USRU", 'C'}};

char ModeDigit(const QString& mode) {
    for (const TextMode& m : kModes)
        if (mode == m.name) return m.digit;
    return '2';
}

// The set commands, each of a fixed length: '#' stands for a digit, 'x' for a mode digit
// (0 to 9 or A to F), 's' for a digit or a minus sign. Any other character stands for itself.
constexpr const char* kSetForms[] = {
    "FA########", "FB########", "MD0x",    "VS#",   "TX#",    "AI#",    "CN0##", "CT0#",   "OS0#",
    "EX050###",   "EX058#",     "RA0#",    "PA0#",  "GT0#",   "AC00#",  "VV",    "VM",     "NB0#",
    "NR0#",       "BP00###",    "BP01###", "RL0##", "AG0###", "RG0###", "SH0##", "CO00s#", "CO01##",
};

bool Fits(char form, char c) {
    const bool digit = c >= '0' && c <= '9';
    switch (form) {
        case '#':
            return digit;
        case 'x':
            return digit || (c >= 'A' && c <= 'F');
        case 's':
            return digit || c == '-';
        default:
            return c == form;
    }
}

// The length of the set command at the head of the input, or 0 when none is there whole.
qsizetype SetCommandLength(const QByteArray& input) {
    for (const char* form : kSetForms) {
        const auto n = static_cast<qsizetype>(std::char_traits<char>::length(form));
        if (input.size() < n) continue;
        bool fits = true;
        for (qsizetype i = 0; i < n && fits; ++i) fits = Fits(form[i], input[i]);
        if (fits) return n;
    }
    return 0;
}

class Ft450 : public SimBase {
  protected:
    // How the rig reads its input: a set command of fixed length (CN0nn, MD0x, FAnnnnnnnn,
    // ...) is carried out as soon as its last character is in, and a ";" right after it is
    // its end. So a set command that comes without its ";" still works, and so does the
    // command glued to it: "CN012CT01;" sets the tone number, then the tone mode; "MD08"
    // followed by "FA14250000;" sets the mode, then the frequency. Everything else (the
    // reads) runs up to its ";".
    void takeCommands(int64_t now) override {
        while (!input.isEmpty()) {
            if (endMayFollow_ && input[0] == ';') {
                endMayFollow_ = false;
                input.remove(0, 1);
                continue;
            }
            endMayFollow_ = false;
            if (const qsizetype n = SetCommandLength(input); n > 0) {
                const QString cmd = QString::fromLatin1(input.left(n));
                input.remove(0, n);
                endMayFollow_ = true;
                answer(cmd, now);
                continue;
            }
            const qsizetype end = input.indexOf(';');
            if (end < 0) return;  // the rest is still on its way
            const QByteArray cmd = input.left(end);
            input.remove(0, end + 1);
            answer(QString::fromLatin1(cmd), now);
        }
    }

  private:
    QString frequencyDigits() const {
        return QString("%1").arg(state_.frequencyHz, 8, 10, QChar('0'));
    }

    static QString Digits(int value, int width) {
        return QString("%1").arg(value, width, 10, QChar('0'));
    }

    void send(const QString& text, int64_t now) { reply(text.toLatin1(), now); }

    // The tone mode as the digit of "CT0n" and of character 23 of "IF".
    char toneModeDigit() const {
        const QString& m = state_.toneMode;
        return m == "squelch" ? '1' : m == "encode" ? '2' : m == "dcs" ? '3' : '0';
    }

    char shiftDigit() const { return state_.shift == "+" ? '1' : state_.shift == "-" ? '2' : '0'; }

    void useVfo(bool b) {
        if (b == state_.vfoB) return;
        std::swap(state_.frequencyHz, state_.vfoBHz);
        state_.vfoB = b;
    }

    // A query: the answer, or an empty text when the command is no query the rig knows.
    QString query(const QString& cmd, int64_t now) const {
        const RigState& s = state_;
        if (cmd == "ID") return "ID" + s.ft450Id + ";";
        if (cmd == "AI") return "AI0;";
        if (cmd == "PS") return "PS1;";
        if (cmd == "FT") return s.split ? "FT1;" : "FT0;";
        if (cmd == "VS") return QString("VS") + (s.vfoB ? "1" : "0") + ";";
        if (cmd == "FA" || cmd == "FB") {
            const int64_t hz = (cmd == "FA") != s.vfoB ? s.frequencyHz : s.vfoBHz;
            return cmd + QString("%1;").arg(hz, 8, 10, QChar('0'));
        }
        if (cmd == "MD0") return QString("MD0") + ModeDigit(s.mode) + ";";
        if (cmd == "IF") {
            // IF, memory channel, frequency, clarifier, mode, VFO or memory, tone mode, tone
            // number, shift.
            return "IF001" + frequencyDigits() + "+000000" + ModeDigit(s.mode) +
                   (s.memoryMode ? '1' : '0') + toneModeDigit() +
                   Digits(std::max(0, s.toneNumber), 2) + shiftDigit() + ";";
        }
        if (cmd == "SM0") return "SM0" + Digits(signalLevel(now) * 17, 3) + ";";
        if (cmd == "BY") return signalLevel(now) > 0 || s.squelchOpen ? "BY10;" : "BY00;";
        if (cmd == "TX") return s.ptt ? "TX1;" : "TX0;";
        if (cmd == "CN0") return "CN0" + Digits(std::max(0, s.toneNumber), 2) + ";";
        if (cmd == "CT0") return QString("CT0") + toneModeDigit() + ";";
        if (cmd == "OS0") return QString("OS0") + shiftDigit() + ";";
        if (cmd == "AC") return "AC00" + Digits(s.tunerState, 1) + ";";
        if (cmd == "RA0") return s.attenuator ? "RA01;" : "RA00;";
        if (cmd == "PA0") return s.ipo ? "PA01;" : "PA00;";
        if (cmd == "GT0") return "GT0" + Digits(s.agc, 1) + ";";
        if (cmd == "NB0") return s.noiseBlanker ? "NB01;" : "NB00;";
        if (cmd == "NR0") return s.noiseReduction ? "NR01;" : "NR00;";
        if (cmd == "RL0") return "RL0" + Digits(s.nrLevel, 2) + ";";
        if (cmd == "AG0") return "AG0" + Digits(s.afGain, 3) + ";";
        if (cmd == "RG0") return "RG0" + Digits(s.rfGain, 3) + ";";
        if (cmd == "BP00") return s.notch ? "BP00001;" : "BP00000;";
        if (cmd == "BP01") return "BP01" + Digits(s.notchHz, 3) + ";";
        if (cmd == "SH0") return "SH0" + Digits(s.width, 2) + ";";
        if (cmd == "CO00") return s.contour + ";";
        if (cmd == "CO01") return s.contourFrequency + ";";
        if (cmd == "EX058") return s.sqlIsRfGain ? "EX0581;" : "EX0580;";
        return {};
    }

    // A set command of a known form; false when its value means nothing to the rig.
    bool set(const QString& cmd) {
        RigState& s = state_;
        const char last = cmd.back().toLatin1();
        const int digit = last - '0';
        const auto is = [&cmd](const char* prefix) { return cmd.startsWith(prefix); };
        // The number after a prefix of the given length.
        const auto value = [&cmd](int prefixLength) { return cmd.mid(prefixLength).toInt(); };
        if (is("FA") || is("FB")) {
            ((cmd[1] == 'A') != s.vfoB ? s.frequencyHz : s.vfoBHz) = cmd.mid(2).toLongLong();
        } else if (is("MD0")) {
            for (const TextMode& m : kModes)
                if (last == m.digit) {
                    s.mode = m.name;
                    return true;
                }
            return false;
        } else if (is("VS") || is("TX") || is("AI")) {
            if (last != '0' && last != '1') return false;
            if (is("VS")) useVfo(last == '1');
            if (is("TX")) s.ptt = last == '1';
        } else if (is("CN0")) {
            s.toneNumber = value(3);
        } else if (is("CT0")) {
            static constexpr const char* kToneModes[] = {"off", "squelch", "encode", "dcs"};
            if (last > '3') return false;
            s.toneMode = kToneModes[digit];
        } else if (is("OS0")) {
            static constexpr const char* kShifts[] = {"0", "+", "-"};
            if (last > '2') return false;
            s.shift = kShifts[digit];
        } else if (is("EX050")) {  // repeater offset in steps of 100 kHz
            s.offsetHz = static_cast<int64_t>(value(5)) * 100'000;
        } else if (is("EX058")) {  // what the SQL/RF knob sets: 0 squelch, 1 RF gain
            if (last > '1') return false;
            s.sqlIsRfGain = last == '1';
        } else if (is("RA0") || is("PA0") || is("NB0") || is("NR0")) {
            if (last > '1') return false;
            bool& on = is("RA0")   ? s.attenuator
                       : is("PA0") ? s.ipo
                       : is("NB0") ? s.noiseBlanker
                                   : s.noiseReduction;
            on = last == '1';
        } else if (is("GT0")) {  // AGC: 0 off, 1 fast, 2 slow, 4 auto
            if (last > '4') return false;
            s.agc = digit;
        } else if (is("AC00")) {  // tuner: 0 off, 1 on, 2 start tuning
            if (last > '2') return false;
            s.tunerState = digit;
            if (s.tunerState == 2) ++s.tuneStarts;
        } else if (cmd == "VV") {  // VFO A=B: the other VFO takes the one in use
            ++s.vfoEqualCount;
            s.vfoBHz = s.frequencyHz;
        } else if (cmd == "VM") {
            s.memoryMode = !s.memoryMode;
        } else if (is("BP00")) {
            s.notch = value(4) != 0;
        } else if (is("BP01")) {
            s.notchHz = value(4);
        } else if (is("RL0")) {
            s.nrLevel = value(3);
        } else if (is("AG0")) {
            s.afGain = value(3);
        } else if (is("RG0")) {
            s.rfGain = value(3);
        } else if (is("SH0")) {
            s.width = value(3);
        } else if (is("CO00")) {
            s.contour = cmd;
        } else if (is("CO01")) {
            s.contourFrequency = cmd;
        }
        return true;
    }

    void answer(const QString& cmd, int64_t now) {
        if (!cmd.isEmpty() && SetCommandLength(cmd.toLatin1()) == cmd.size()) {
            if (!set(cmd)) send("?;", now);
            return;
        }
        const QString text = query(cmd, now);
        send(text.isEmpty() ? QString("?;") : text, now);
    }

    bool endMayFollow_ = false;  // the last command was taken by its length
};

}  // namespace

std::unique_ptr<RigSim> MakeFt450() {
    return std::make_unique<Ft450>();
}

}  // namespace veldor::sim
