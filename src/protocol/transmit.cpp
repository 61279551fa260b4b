#include "protocol/transmit.h"

#include "link/catalogue.h"
#include "link/serial_link.h"
#include "protocol/write_frequency.h"

namespace veldor {

namespace {

void ShowReceive(CommandButton& b) {
    b.backColour = White;
    b.pressed = false;
    b.caption = "tx/RX";
}

void ShowTransmit(CommandButton& b) {
    b.backColour = Red;
    b.pressed = true;
    b.caption = "TX/rx";
}

// The FT-847 has no split of its own: it is moved to the other frequency of the pair.
void MoveFt847(Core& c, int32_t frequency, const QString& mode) {
    State& s = c.s;
    if (c.f.chkSplit.value != 1) return;
    s.TargetFrequency = frequency;
    s.TargetMode = mode;
    SetFrequencyAndMode(c, s.TargetFrequency, s.TargetMode);
}

void SaveLine(Core& c, const QString& key, const QString& value) {
    SaveSetting(c, c.s.AppName, "Settings", key, value);
}

// The three RTS items exclude each other: turning one on turns the other two off.
void ChooseRtsUse(Core& c, QString State::*chosen) {
    State& s = c.s;
    Form1& f = c.f;
    const bool on = s.*chosen != "Y";
    s.*chosen = on ? "Y" : "N";
    if (on) {
        for (QString State::*other : {&State::RaiseRTS, &State::LinkRTS, &State::TXRXcontrolsRTS})
            if (other != chosen) s.*other = "N";
    }
    f.mnuRaiseRTS.checked = s.RaiseRTS == "Y";
    f.mnuLinkRTS.checked = s.LinkRTS == "Y";
    f.mnuTXRXcontrolsRTS.checked = s.TXRXcontrolsRTS == "Y";
    SaveLine(c, "RaiseRTS", s.RaiseRTS);
    SaveLine(c, "LinkRTS", s.LinkRTS);
    SaveLine(c, "TXRXcontrolsRTS", s.TXRXcontrolsRTS);
}

// The CAT switch of the rig, on or off. The FT-847 is moved to the split frequency of the
// direction first, since it has no split of its own.
void SwitchPtt(Core& c, bool on) {
    State& s = c.s;
    const QString& rig = s.RigType;
    const uint8_t opcode = on ? 0x08 : 0x88;
    PutParameters(c);
    if (rig == RigFT847) {
        if (on)
            MoveFt847(c, s.SplitTxFrequency, s.SplitTxMode);
        else
            MoveFt847(c, s.SplitRxFrequency, s.SplitRxMode);
        PutParameters(c);
        SendCommand(c, opcode);
    } else if (IsAckFamily(rig)) {
        SendCommand(c, opcode);
        ReadResponse(c, 1);
        if (!on) s.IgnoreNextTxStatus = true;
    } else if (rig == RigFT450) {
        SendText(c, on ? "TX1;" : "TX0;");
    } else if (rig == RigFT1000MP || rig == RigFT920) {
        s.CommandBytes[3] = on ? 0x01 : 0x00;
        SendCommand(c, 0x0F);
    }
    s.Transmitting = on;
    (on ? s.PttOnPending : s.PttOffPending) = false;
}

// The lines of the TX/RX button when it works only lines: the extra PTT port's, or else RTS of
// the rig's port.
void KeyLines(Core& c, bool on) {
    if (c.s.ExtraPttPortEnabled)
        SetExtraPtt(c, on);
    else
        c.p.MSComm1->setRts(on);
}

}  // namespace

void PttOn(Core& c) {
    SwitchPtt(c, true);
}

void PttOff(Core& c) {
    SwitchPtt(c, false);
}

bool PttKeyed(const Core& c) {
    // Deliberately the button's own state when it works only lines, not the RTS line of the
    // rig's port: with the extra PTT port that line never changes, and the button could never
    // unkey. The button unkeys what it keyed, whatever became of the lines meanwhile.
    return c.s.TXRXcontrolsRTS == "Y" ? c.f.cmdTxRx.pressed : c.s.Transmitting;
}

void cmdTxRx_Click(Core& c) {
    State& s = c.s;
    Form1& f = c.f;
    if (f.chkOnOff.value == 0 || f.chkTransmitEnable.value == 0) return;
    if (s.SpectrumRunning || s.ScanRunning) return;
    const bool toReceive = PttKeyed(c);
    if (toReceive) {
        ShowReceive(f.cmdTxRx);
    } else {
        ShowTransmit(f.cmdTxRx);
    }
    if (s.TXRXcontrolsRTS == "Y") {
        // Only the line: the rig is keyed by RTS, and Transmitting stays as it was.
        KeyLines(c, !toReceive);
        return;
    }
    if (toReceive)
        s.PttOffPending = true;
    else
        s.PttOnPending = true;
    if (s.ExtraPttPortEnabled) SetExtraPtt(c, !toReceive);
}

void chkTransmitEnable_Click(Core& c) {
    Form1& f = c.f;
    const bool enabled = f.chkTransmitEnable.value == 1;
    f.cmdTxRx.enabled = enabled;
    f.cmd450Tune.enabled = enabled;
    ShowReceive(f.cmdTxRx);
    c.s.PttOffPending = true;
    // Deliberately the lines as well: the CAT switch alone would leave a rig keyed by a line
    // on the air, with its button dead.
    if (c.s.TXRXcontrolsRTS == "Y")
        KeyLines(c, false);
    else if (c.s.ExtraPttPortEnabled)
        SetExtraPtt(c, false);
}

void SetExtraPtt(Core& c, bool state) {
    SerialPort& port = *c.p.PttComPort;
    switch (c.s.ExtraPttPortPins) {
        case 0:
            port.setDtr(state);
            break;
        case 1:
            port.setRts(state);
            break;
        default:
            port.setRts(state);
            port.setDtr(state);
            break;
    }
}

void FollowTxState(Core& c) {
    const bool onAir = c.f.lblTX.backColour == Red;
    c.p.MSComm1->setRts(onAir);
    SetExtraPtt(c, onAir);
}

void mnuRaiseDTR_Click(Core& c) {
    State& s = c.s;
    c.f.mnuRaiseDTR.checked = !c.f.mnuRaiseDTR.checked;
    s.RaiseDTR = c.f.mnuRaiseDTR.checked ? "Y" : "N";
    c.p.MSComm1->setDtr(c.f.mnuRaiseDTR.checked);
    SaveLine(c, "RaiseDTR", s.RaiseDTR);
}

void mnuRaiseRTS_Click(Core& c) {
    ChooseRtsUse(c, &State::RaiseRTS);
    c.p.MSComm1->setRts(c.s.RaiseRTS == "Y");
}

void mnuLinkRTS_Click(Core& c) {
    ChooseRtsUse(c, &State::LinkRTS);
}

void mnuTXRXcontrolsRTS_Click(Core& c) {
    ChooseRtsUse(c, &State::TXRXcontrolsRTS);
}

}  // namespace veldor
