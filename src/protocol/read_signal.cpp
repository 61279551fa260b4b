#include "protocol/read_signal.h"

#include "basic/basic.h"
#include "link/catalogue.h"
#include "link/serial_link.h"
#include "protocol/model_controls.h"
#include "protocol/read_meters.h"

namespace veldor {

namespace {

bool IsFm(const Core& c) {
    return c.f.txtMode.text.left(2) == "FM";
}

void DecideByThreshold(Core& c) {
    c.s.SignalPresent = c.f.pbarSmeter.value >= c.f.pbarGotSignal.value;
}

void ShowSignalLights(Core& c) {
    c.f.lblSQL.backColour = c.s.SignalPresent ? White : Green;
    c.f.lblRX.backColour = c.s.SignalPresent ? Green : White;
}

bool ReadOneByte(Core& c, uint8_t opcode, int count, uint8_t p4 = 0) {
    PutParameters(c);
    c.s.CommandBytes[3] = p4;
    SendCommand(c, opcode);
    ReadResponse(c, count);
    return !c.s.ReplyTimedOut;
}

// The five-byte family: FT-817, FT-857, FT-897 and FT-847.
void ReadBcdRigSignal(Core& c) {
    if (!ReadOneByte(c, 0xE7, 1) || c.s.ReplyBytes.size() != 1) return;
    const uint8_t b = ReplyByte(c, 0);
    c.f.pbarSmeter.value = c.s.RigType == RigFT847 ? b % 32 : 2 * (b % 16);
    DecideByThreshold(c);
    // In FM the rig's own squelch decides.
    if (c.s.UseSquelch && IsFm(c)) c.s.SignalPresent = !(b & 0x80);
    ShowSignalLights(c);
    // A tone not matched: what the squelch let through is not for us.
    if (b & 0x40) {
        c.f.lblDCS.backColour = White;
        if (c.s.ToneDecode == "1") c.s.SignalPresent = false;
    } else {
        c.f.lblDCS.backColour = Green;
    }
    if (c.f.lblTX.backColour != Red && IsFm(c))
        c.f.lblDISC.backColour = (b & 0x20) ? Red : Green;
    else
        c.f.lblDISC.backColour = White;
}

void ReadFt450Signal(Core& c) {
    SendText(c, "SM0;");
    if (!ReceiveData(c)) return;
    if (c.s.TextReply.left(2) != "SM") {
        c.s.TextResyncNeeded = true;
        return;
    }
    c.f.pbarSmeter.value = std::min(31, basic::CLng(basic::Val(c.s.TextReply.mid(3, 3)) / 8));
    c.f.lblDCS.backColour = White;
    SendText(c, "BY;");
    if (!ReceiveData(c)) return;
    if (c.s.TextReply.left(2) != "BY") {
        c.s.TextResyncNeeded = true;
        return;
    }
    DecideByThreshold(c);
    if (c.s.UseSquelch && IsFm(c)) c.s.SignalPresent = c.s.TextReply.mid(2, 1) == "1";
    ShowSignalLights(c);
}

// The receivers: an unexpected length skips only the bar, and the decision uses the old value.
void ReadReceiverSignal(Core& c) {
    const bool frg = c.s.RigType == RigFRG100;
    if (!ReadOneByte(c, frg ? 0xF7 : 0xE7, frg ? 5 : 1)) return;
    if (frg && c.s.ReplyBytes.size() == 5)
        c.f.pbarSmeter.value = std::min(31, basic::CLng(ReplyByte(c, 3) / 2.3));
    if (!frg && c.s.ReplyBytes.size() == 1)
        c.f.pbarSmeter.value = std::clamp((ReplyByte(c, 0) & 0x3F) - 19, 0, 31);
    DecideByThreshold(c);
    ShowSignalLights(c);
}

// The FT-1000MP and FT-920 decide on the previous reading, then show the new one.
void ReadMeterBlockSignal(Core& c) {
    if (!ReadOneByte(c, 0xF7, 5) || c.s.ReplyBytes.size() != 5) return;
    DecideByThreshold(c);
    c.f.pbarSmeter.value = std::min(31, ReplyByte(c, 0) / 8);
    ShowSignalLights(c);
    // The rest of the FT-920's reply, and its other meters, go to the meters panel.
    if (c.s.RigType == RigFT920 && c.s.MetersVisible) ReadMeters(c, c.s.ReplyBytes);
}

void FollowSplit(Core& c, bool on) {
    CheckBox& split = c.f.chkSplit;
    if (on == (split.value == 1)) return;
    // A value set from code raises the box's click, as the operator's would; the mark makes
    // that click send nothing back to the rig.
    c.s.SplitChangedByPoll = true;
    split.value = on ? 1 : 0;
    chkSplit_Click(c);
}

void ShowRigModeByte(Core& c, uint8_t b) {
    QString& caption = c.f.lblRigMode.caption;
    if (b & 0x80) caption = "GEN";
    if (b & 0x40) caption = "MEM";
    if (b & 0x20) caption = "VFO";
    if (b & 0x10) caption = "M Tune";
}

void ReadBcdRigStatus(Core& c) {
    State& s = c.s;
    if ((s.RigType == RigFT817 || s.RigType == RigFT817ND) && c.f.mnuFT817AGCmonitor.checked)
        ReadFT817AGC(c);
    if (!ReadOneByte(c, 0xF7, 1) || s.ReplyBytes.size() != 1) return;
    const uint8_t b = ReplyByte(c, 0);
    if (b == 0xFF || s.IgnoreNextTxStatus) {
        s.IgnoreNextTxStatus = false;
        c.f.lblTX.backColour = White;
        return;
    }
    // Bit 7 clear means transmitting.
    if (b >= 0x80) {
        c.f.lblTX.backColour = White;
        return;
    }
    // The split bit means something only while transmitting.
    if (s.RigType != RigFT847) FollowSplit(c, b & 0x20);
    c.f.lblTX.backColour = Red;
}

void ReadFt1000MpStatus(Core& c) {
    State& s = c.s;
    if (!ReadOneByte(c, 0xFA, 6, 1)) return;
    if (s.ReplyBytes.size() != 6) {
        s.FT1000Flags.fill(0);
        c.f.lblRigMode.caption.clear();
        return;
    }
    for (int i = 0; i < 6; ++i) s.FT1000Flags[i] = ReplyByte(c, i);
    if (!s.PendingSplit) FollowSplit(c, s.FT1000Flags[0] & 0x01);
    c.f.lblTX.backColour = (s.FT1000Flags[0] & 0x80) ? Red : White;
    ShowRigModeByte(c, s.FT1000Flags[1]);
}

void ReadFt920Status(Core& c) {
    State& s = c.s;
    Form1& f = c.f;
    if (!ReadOneByte(c, 0xFA, 8, 1)) return;
    if (s.ReplyBytes.size() != 8) {
        s.FT920Flags.fill(0);
        f.lblRigMode.caption.clear();
        return;
    }
    for (int i = 0; i < 8; ++i) s.FT920Flags[i] = ReplyByte(c, i);
    const auto& b = s.FT920Flags;
    f.lblAnt.caption = (b[4] & 0x10) ? "B" : "A";
    f.lblRXant.visible = b[4] & 0x20;
    constexpr Colour kGrey = 0xE0E0E0;
    const bool txOnB = b[0] & 0x01, rxOnB = b[0] & 0x02;
    f.shpTxVfoA = txOnB ? kGrey : Red;
    f.shpTxVfoB = txOnB ? Red : kGrey;
    f.shpRxVfoA = rxOnB ? kGrey : Green;
    f.shpRxVfoB = rxOnB ? Green : kGrey;
    f.lblTune.caption = (b[2] & 0x01) ? " F A S T" : (b[6] & 0x10) ? " F I N E" : " N O R";
    f.cmdFT920Tuner.backColour = (b[2] & 0x02) ? PaleGreen : White;
    if (!s.PendingSplit) {
        const int vfos = b[0] & 0x03;
        FollowSplit(c, vfos == 1 || vfos == 2);
    }
    f.lblTX.backColour = (b[0] & 0x80) ? Red : White;
    ShowRigModeByte(c, b[1]);
}

void ReadFt450Status(Core& c) {
    SendText(c, "TX;");
    if (!ReceiveData(c)) return;
    c.f.lblTX.backColour = c.s.TextReply.mid(2, 1) != "0" ? Red : White;
}

// The FT-897 and FT-857 keep their state in memory at 0x0068, 0x006A and 0x00A8.
void ReadModelStatus(Core& c, std::array<uint8_t, 6>& flags) {
    ReadEeprom(c, 0x0068);
    if (!c.s.ReplyTimedOut) {
        flags[0] = ReplyByte(c, 0);
        flags[1] = ReplyByte(c, 1);
        QString& caption = c.f.lblRigMode.caption;
        if (flags[0] < 128) {
            // Not on a VFO: the last bit that is set names the state.
            if (flags[0] & 0x40) caption = "MEM";
            if (flags[0] & 0x20) caption = "M Tune";
            if (flags[0] & 0x10) caption = "Home";
            if (flags[0] & 0x04) caption = "QMB";
            if (flags[0] & 0x02) caption = "MTQMB";
        } else {
            c.s.VfoAActive = !(flags[0] & 0x01);
            caption = c.s.VfoAActive ? "VFO A" : "VFO B";
        }
    }
    for (const auto& [address, at] : {std::pair<uint16_t, int>{0x006A, 2}, {0x00A8, 4}}) {
        ReadEeprom(c, address);
        if (c.s.ReplyTimedOut) continue;
        flags[at] = ReplyByte(c, 0);
        flags[at + 1] = ReplyByte(c, 1);
    }
}

}  // namespace

bool ReadSignal(Core& c, const std::function<bool()>& cutShort) {
    State& s = c.s;
    s.SignalPresent = false;
    // After a tone change the rig answers slowly.
    const int pause = c.f.sldSmeterDelay.value + (s.ExtraDelayNeeded ? c.f.sldExtra.value : 0);
    if (cutShort) {
        PauseUntil(c, pause, EventPump::kWatchEventsOnly, cutShort);
        if (cutShort()) return false;
    } else {
        PauseWithEvents(c, pause);
    }
    s.ExtraDelayNeeded = false;
    const QString& rig = s.RigType;
    if (IsAckFamily(rig) || rig == RigFT847)
        ReadBcdRigSignal(c);
    else if (rig == RigFT450)
        ReadFt450Signal(c);
    else if (rig == RigFRG100 || rig == RigVR5000)
        ReadReceiverSignal(c);
    else if (rig == RigFT1000MP || rig == RigFT920)
        ReadMeterBlockSignal(c);
    return true;
}

void ReadStatus(Core& c) {
    const QString& rig = c.s.RigType;
    if (IsAckFamily(rig) || rig == RigFT847)
        ReadBcdRigStatus(c);
    else if (rig == RigFT450)
        ReadFt450Status(c);
    else if (rig == RigFT1000MP)
        ReadFt1000MpStatus(c);
    else if (rig == RigFT920)
        ReadFt920Status(c);
    // The receivers cannot transmit.
}

void ReadEeprom(Core& c, uint16_t address) {
    // P3 and P4 stay as the caller left them.
    c.s.CommandBytes[0] = static_cast<uint8_t>(address / 256);
    c.s.CommandBytes[1] = static_cast<uint8_t>(address % 256);
    SendCommand(c, 0xBB);
    ReadResponse(c, 2);
    if (!c.s.ReplyTimedOut && c.s.ReplyBytes.size() != 2) c.s.ReplyTimedOut = true;
}

void ReadFT897Status(Core& c) {
    ReadModelStatus(c, c.s.FT897Flags);
}
void ReadFT857Status(Core& c) {
    ReadModelStatus(c, c.s.FT857Flags);
}

void ReadFT817AGC(Core& c) {
    PutParameters(c);
    ReadEeprom(c, 0x0056);
    if (c.s.ReplyTimedOut) return;
    const int agc = ReplyByte(c, 1) & 0x03;
    if (c.f.optFT817AGC[agc].value) return;
    // Selecting the option raises its click, which the mark keeps from going back to the rig.
    c.s.Ft817AgcLocked = true;
    for (int i = 0; i < 4; ++i) c.f.optFT817AGC[i].value = i == agc;
    optFT817AGC_Click(c, agc);
}

}  // namespace veldor
