// The FT-450: ";"-ended text commands, "?;" for anything it does not understand.
#include "sim_base.h"

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

class Ft450 : public SimBase {
  protected:
    void takeCommands(int64_t now) override {
        for (qsizetype end = input.indexOf(';'); end >= 0; end = input.indexOf(';')) {
            const QByteArray cmd = input.left(end);
            input.remove(0, end + 1);
            answer(QString::fromLatin1(cmd), now);
        }
    }

  private:
    QString frequencyDigits() const {
        return QString("%1").arg(state_.frequencyHz, 8, 10, QChar('0'));
    }

    void send(const QString& text, int64_t now) { reply(text.toLatin1(), now); }

    void answer(const QString& cmd, int64_t now) {
        RigState& s = state_;
        if (cmd == "ID") return send("ID" + s.ft450Id + ";", now);
        if (cmd == "AI0" || cmd == "AI1") return;
        if (cmd == "AI") return send("AI0;", now);
        if (cmd == "PS") return send("PS1;", now);
        if (cmd == "FT") return send(s.split ? "FT1;" : "FT0;", now);
        if (cmd == "SH0") return send("SH016;", now);
        if (cmd == "VS0" || cmd == "VS1") {
            const bool wantB = cmd == "VS1";
            if (wantB != s.vfoB) {
                std::swap(s.frequencyHz, s.vfoBHz);
                s.vfoB = wantB;
            }
            return;
        }
        if (cmd == "VS") return send(QString("VS") + (s.vfoB ? "1" : "0") + ";", now);
        if (cmd == "FA" || cmd == "FB") {
            const int64_t hz = (cmd == "FA") != s.vfoB ? s.frequencyHz : s.vfoBHz;
            return send(cmd + QString("%1;").arg(hz, 8, 10, QChar('0')), now);
        }
        if ((cmd.startsWith("FA") || cmd.startsWith("FB")) && cmd.size() == 10) {
            bool ok = false;
            const int64_t hz = cmd.mid(2).toLongLong(&ok);
            if (!ok) return send("?;", now);
            ((cmd[1] == 'A') != s.vfoB ? s.frequencyHz : s.vfoBHz) = hz;
            return;
        }
        if (cmd == "MD0") return send(QString("MD0") + ModeDigit(s.mode) + ";", now);
        if (cmd.startsWith("MD0") && cmd.size() == 4) {
            for (const TextMode& m : kModes)
                if (cmd[3] == m.digit) s.mode = m.name;
            return;
        }
        if (cmd == "IF") {
            // IF, memory channel, frequency, clarifier, mode, VFO, tone mode and number, shift.
            return send("IF001" + frequencyDigits() + "+000000" + ModeDigit(s.mode) + "00000;",
                        now);
        }
        if (cmd == "SM0") {
            const int level = signalLevel(now) * 17;
            return send(QString("SM0%1;").arg(level, 3, 10, QChar('0')), now);
        }
        if (cmd == "BY")
            return send(signalLevel(now) > 0 || s.squelchOpen ? "BY10;" : "BY00;", now);
        if (cmd == "TX") return send(s.ptt ? "TX1;" : "TX0;", now);
        // Tuner, attenuator, IPO and AGC: all in their plain state.
        if (cmd == "AC") return send("AC000;", now);
        if (cmd == "RA0") return send("RA00;", now);
        if (cmd == "PA0") return send("PA00;", now);
        if (cmd == "GT0") return send("GT00;", now);
        if (cmd == "TX1") {
            s.ptt = true;
            return;
        }
        if (cmd == "TX0") {
            s.ptt = false;
            return;
        }
        send("?;", now);
    }
};

}  // namespace

std::unique_ptr<RigSim> MakeFt450() {
    return std::make_unique<Ft450>();
}

}  // namespace veldor::sim
