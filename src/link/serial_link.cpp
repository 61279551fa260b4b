#include "link/serial_link.h"

#include "basic/basic.h"
#include "link/catalogue.h"

namespace veldor {

namespace {

constexpr int kLinkPause = 5;         // ms: the timing base of the link
constexpr int kBusyWaitLimit = 101;   // pauses before a send or read proceeds regardless
constexpr int kReplyPollLimit = 100;  // polls of a binary reply before it counts as lost
constexpr int kTextWaitTests = 25;    // tests for the first byte of a text reply
// Rounds of kTextWaitTests without a new byte that a text fragment waits for its ";": about
// half a second, as long as a lost binary reply.
constexpr int kFragmentWaitRounds = 4;
// Tests of the output buffer before a send gives up on it; the system's port waits up to 10 ms
// for room at each test, so about a second.
constexpr int kDrainTestLimit = 100;

bool LinkBusy(const Core& c) {
    return c.s.ReceiveBusy || c.s.SendBusy;
}

// A busy flag is only a courtesy: after about half a second the caller goes on regardless. A
// pause ends early once the flags are down.
void WaitForLink(Core& c) {
    for (int pauses = 0; LinkBusy(c) && pauses < kBusyWaitLimit; ++pauses)
        PauseUntil(c, kLinkPause, -1, [&c] { return !LinkBusy(c); });
}

QString PortUnavailableText(const QString& prefix, const QString& port) {
    return prefix + port +
           " is not available. It may be in use by another program\r\n"
           "If yes, then close that program and retry by clicking the On/Off button.\r\n"
           "If no, then change the CommPort to another port and try again.";
}

void ShowMessage(Core& c, const QString& text) {
    c.p.dialogs->messageBox(text, "VELDOR", MsgButtons::OK, MsgIcon::None);
}

}  // namespace

void PauseWithEvents(Core& c, int milliseconds) {
    c.p.pump->processEvents();
    c.p.pump->sleep(milliseconds);
}

void PauseUntil(Core& c, int milliseconds, int watch, const std::function<bool()>& ready) {
    c.p.pump->processEvents();
    c.p.pump->sleepUntil(milliseconds, watch, ready);
}

bool CheckFrequencyRange(Core& c, int32_t frequency) {
    const bool inRange = InRigRanges(c.s.RigType, frequency);
    c.s.FrequencyOutOfRange = !inRange;
    return inRange;
}

void PutParameters(Core& c) {
    for (int i = 0; i < 4; ++i) c.s.CommandBytes[i] = 0;
}

void SendCommand(Core& c, uint8_t opcode) {
    SerialPort& port = *c.p.MSComm1;
    if (!port.isOpen()) return;
    WaitForLink(c);
    c.s.SendBusy = true;
    if (c.s.ClearBuffer == "Y")
        port.clearInput();
    else if (port.inBufferCount() > 0)
        // Departure: bytes waiting before a command answer nothing it asks. Left there they
        // would shift every reply after them for good, so they go as with ClearBuffer "Y".
        Realign(c, "bytes no command had asked for were waiting");
    c.s.CommandBytes[4] = opcode;
    // The whole command delay while scanning, so the rig settles between retunes; a quarter
    // of it otherwise, which keeps an ordinary poll quick.
    const int delay = c.s.ScanRunning ? c.f.sldCMDdelay.value : c.f.sldCMDdelay.value / 4;
    PauseWithEvents(c, delay);
    if (!port.isOpen()) {
        c.s.SendBusy = false;
        return;
    }
    port.output(QByteArray(reinterpret_cast<const char*>(c.s.CommandBytes.data()), 5));
    // Five bytes leave in a few milliseconds: spin on purpose, without pumping events. But not
    // without end: a device that takes nothing (gone, or held by its handshake) ends the spin,
    // and the read that follows times out.
    for (int tests = 0; tests < kDrainTestLimit && port.isOpen() && port.outBufferCount() > 0;
         ++tests) {
    }
    c.s.SendBusy = false;
}

void SendText(Core& c, const QString& command) {
    c.s.LastTextCommand = command;
    SerialPort& port = *c.p.MSComm1;
    if (!port.isOpen()) return;
    port.clearInput();
    port.output(command.toLatin1());
}

void CountTimeout(Core& c) {
    Label& count = c.f.lblTimeoutCount;
    count.caption = QString::number(static_cast<qint64>(basic::Val(count.caption)) + 1);
    count.backColour = Red;
    // The connection ended during the wait: the counter starts afresh.
    if (c.f.chkOnOff.value == 0) {
        count.caption = "0";
        count.backColour = ButtonFace;
    }
}

void Realign(Core& c, const QString& why) {
    c.p.MSComm1->clearInput();
    if (c.s.OutOfStepNoted) return;
    c.s.OutOfStepNoted = true;
    ReportMessage(c, "The rig's replies were out of step (" + why +
                         "): the input was emptied to bring them back in step");
}

void ReadResponse(Core& c, int count) {
    SerialPort& port = *c.p.MSComm1;
    WaitForLink(c);
    if (!port.isOpen()) {
        c.s.ReplyBytes = QByteArray(1, '\0');
        return;
    }
    c.s.ReceiveBusy = true;
    c.s.ReplyTimedOut = false;
    // The pause comes before each test, and ends as soon as the whole reply is there (or the
    // port has gone): a lost reply still takes its hundred pauses, about 505 ms.
    const auto replyThere = [&port, count] {
        return !port.isOpen() || port.inBufferCount() >= count;
    };
    for (int polls = 0;;) {
        PauseUntil(c, kLinkPause, port.descriptor(), replyThere);
        // A port closed under the read (switched off, a vanished device) ends it as a timeout.
        if (++polls > kReplyPollLimit || !port.isOpen()) {
            c.s.ReplyTimedOut = true;
            break;
        }
        if (port.inBufferCount() >= count) break;
    }
    const int inBuffer = port.isOpen() ? port.inBufferCount() : 0;
    if (inBuffer != count && c.s.ReplyTimedOut) CountTimeout(c);
    if (!port.isOpen()) {
        c.s.ReplyBytes = QByteArray(1, '\0');
        c.s.ReceiveBusy = false;
        return;
    }
    if (inBuffer < 1) {
        c.s.ReceiveBusy = false;
        return;
    }
    // At most count bytes: surplus stays in the port for the next read.
    c.s.ReplyBytes = port.input(count);
    c.s.ReceiveBusy = false;
}

bool ReceiveData(Core& c) {
    SerialPort& port = *c.p.MSComm1;
    c.s.TextReply.clear();
    if (c.s.TextResyncNeeded) {
        c.s.TextResyncNeeded = false;
        c.s.ReceiveBuffer.clear();
    }
    for (int quietRounds = 0;;) {
        bool byteCame = false;
        for (int tests = 0; tests < kTextWaitTests; ++tests) {
            // The port went away under the read (switched off, or the device vanished): the
            // tick finds it closed and tells of it once.
            if (!port.isOpen()) return false;
            if (port.inBufferCount() >= 1) {
                byteCame = true;
                break;
            }
            PauseUntil(c, kLinkPause, port.descriptor(),
                       [&port] { return !port.isOpen() || port.inBufferCount() >= 1; });
        }
        quietRounds = byteCame ? 0 : quietRounds + 1;
        // Departure: a fragment without its ";" (a reply cut short, a noise byte that took the
        // ";" of a rejection with it, a device gone in mid-reply) waits for more only so long.
        // Without a limit the poll would stop for good on one lost byte.
        if (quietRounds > 0 &&
            (c.s.ReceiveBuffer.isEmpty() || quietRounds >= kFragmentWaitRounds)) {
            CountTimeout(c);
            ++c.s.TextTimeoutsInRow;
            c.s.ReceiveBuffer.clear();
            port.clearInput();
            return false;
        }
        c.s.ReceiveBuffer += QString::fromLatin1(port.input(0));

        // The rig's rejection answer.
        const qsizetype rejection = c.s.ReceiveBuffer.indexOf("?;");
        if (rejection >= 0) {
            if (c.s.ReceiveBuffer == "?;") return false;
            c.s.ReceiveBuffer.remove(rejection, 2);
        }
        const qsizetype end = c.s.ReceiveBuffer.indexOf(';');
        if (end >= 0) {
            c.s.TextTimeoutsInRow = 0;
            c.s.TextReply = c.s.ReceiveBuffer.left(end + 1);
            c.s.ReceiveBuffer.remove(0, end + 1);
            return true;
        }
    }
}

// Deliberately, a port is not closed before it is opened again: open() restarts a port that is
// open on the same device in place, so that the recovery after a lost reply, which reopens at
// every tick while the link is dead, never lets the lines go up. For the same reason the extra
// PTT port is opened once, without a trial opening to ask whether it can be had.
void OpenPorts(Core& c, const QString& port, const QString& speed, bool quietly) {
    SerialPort& main = *c.p.MSComm1;
    c.s.CommPort = port;
    bool rtsCts = false;
    if (c.s.RigType == RigFT450) {
        rtsCts = true;
        c.s.RaiseRTS = "Y";
    }
    QString reason;
    if (!main.open(port, speed, rtsCts, {c.s.RaiseRTS == "Y", c.s.RaiseDTR == "Y"}, &reason)) {
        if (quietly) return;
        ReportMessage(c, "COM Port " + port + ": " + reason);
        ShowMessage(c, PortUnavailableText("COM Port ", port));
        return;
    }
    PauseWithEvents(c, 100);
    main.clearInput();

    SerialPort& ptt = *c.p.PttComPort;
    // The ports are compared by the device they name: "1" and "/dev/ttyS0" are one port.
    if (c.s.ExtraPttPortEnabled &&
        ptt.deviceName(c.s.ExtraPttPort) == main.deviceName(c.s.CommPort)) {
        ShowMessage(c, "The Extra PTT port must be different to the main Com port (port " + port +
                           ")\r\nThe Extra PTT port feature has been disabled. Use the Settings "
                           "screen to re-enable.");
        c.s.ExtraPttPortEnabled = false;
        return;
    }
    if (!c.s.ExtraPttPortEnabled) {
        if (ptt.isOpen()) ptt.close();
        return;
    }
    // At rest: the PTT lines are low until the TX/RX button keys them.
    if (!ptt.open(c.s.ExtraPttPort, speed, false, {}, &reason) && !quietly) {
        ReportMessage(c, "PTT COM Port " + c.s.ExtraPttPort + ": " + reason);
        ShowMessage(c, PortUnavailableText("PTT COM Port ", c.s.ExtraPttPort));
    }
}

void PutBcdDigits(Core& c, int32_t value) {
    c.s.FrequencyDigits = basic::Format(value, "00000000");
    for (int i = 0; i < 4; ++i) {
        const int high = c.s.FrequencyDigits[2 * i].digitValue();
        const int low = c.s.FrequencyDigits[2 * i + 1].digitValue();
        c.s.CommandBytes[i] = static_cast<uint8_t>(high << 4 | low);
    }
}

void PrepareFrequency(Core& c, int32_t& frequency) {
    const RigInfo* rig = FindRig(c.s.RigType);
    const LinkFamily family = rig ? rig->family : LinkFamily::None;
    if (family == LinkFamily::Binary && c.s.SpectrumMouseDown) {
        const int32_t step = c.s.VR5000Step;
        frequency = basic::CLng(frequency + step / 2.0) / step * step;
    }
    if (!CheckFrequencyRange(c, frequency)) {
        // Deliberate: an out-of-range request leaves the display on 7 MHz.
        c.s.CurrentFrequency = 700000;
        return;
    }
    c.s.CurrentFrequency = frequency;
    c.s.TuningFrequency = frequency;

    auto& bytes = c.s.CommandBytes;
    switch (family) {
        case LinkFamily::Bcd:
        case LinkFamily::ReversedBcd: {
            PutBcdDigits(c, frequency);
            if (family == LinkFamily::ReversedBcd) {
                // Byte 4 is the scratch of the swap; the opcode overwrites it later.
                bytes[4] = bytes[0], bytes[0] = bytes[3], bytes[3] = bytes[4];
                bytes[4] = bytes[1], bytes[1] = bytes[2], bytes[2] = bytes[4];
            }
            break;
        }
        case LinkFamily::Binary: {
            const auto value = static_cast<uint32_t>(frequency);
            bytes[0] = static_cast<uint8_t>(value >> 24);
            bytes[1] = static_cast<uint8_t>(value >> 16);
            bytes[2] = static_cast<uint8_t>(value >> 8);
            bytes[3] = static_cast<uint8_t>(value);
            break;
        }
        case LinkFamily::Text:
            c.s.FrequencyDigits = basic::Format(static_cast<double>(frequency) * 10, "00000000");
            break;
        case LinkFamily::None:
            break;
    }
}

}  // namespace veldor
