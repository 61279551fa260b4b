#include "protocol/model_controls.h"

#include "basic/basic.h"
#include "link/catalogue.h"
#include "link/serial_link.h"
#include "protocol/read_frequency.h"
#include "protocol/read_signal.h"
#include "protocol/write_frequency.h"

namespace veldor {

bool Busy(const State& s) {
    return s.Transmitting || s.ScanRunning || s.SpectrumRunning;
}

namespace {

// A memory byte changed by read, modify and write on the FT-857 and FT-897: the pair at
// address is read, the byte at address (first) or address + 1 (second) changed, and both
// written back, the other as read. The request stays raised when the read times out, so that
// the next tick tries again after the link is recovered.
enum class Byte { First, Second };
void ToggleInMemory(Core& c, bool State::*pending, uint16_t address, Byte which,
                    CommandButton Form1::*ft857Button, CommandButton Form1::*ft897Button,
                    uint8_t (*change)(uint8_t b, bool green, bool ft897)) {
    State& s = c.s;
    const QString& rig = s.RigType;
    if (!IsFt857(rig) && !IsFt897(rig)) {
        s.*pending = false;
        return;
    }
    PutParameters(c);
    ReadEeprom(c, address);
    if (s.ReplyTimedOut) return;
    s.*pending = false;
    uint8_t pair[2] = {ReplyByte(c, 0), ReplyByte(c, 1)};
    const bool ft897 = IsFt897(rig);
    const bool green = (c.f.*(ft897 ? ft897Button : ft857Button)).backColour == Green;
    uint8_t& b = pair[which == Byte::First ? 0 : 1];
    b = change(b, green, ft897);
    WriteEeprom(c, address, pair[0], pair[1]);
    ReadResponse(c, 1);
}

// The FT-897's DSP functions share a master bit (10), cleared with the last of them.
uint8_t Ft897Dsp(uint8_t b, bool green, uint8_t offMask, uint8_t onBits) {
    if (!green) return b | onBits;
    b &= offMask;
    if ((b & 0x0F) == 0) b &= 0xE0;
    return b;
}

void SendFilter(Core& c, uint8_t stage, int index) {
    static constexpr uint8_t kBandwidth[] = {0x03, 0x02, 0x01, 0x00, 0x04};
    PutParameters(c);
    c.s.CommandBytes[0] = stage;
    if (index >= 0 && index < 5) c.s.CommandBytes[3] = kBandwidth[index];
    SendCommand(c, 0x8C);
}

// The FT-450's text for a function of the main window: it goes out whatever the rig is doing.
void Ft450Command(Core& c, bool State::*pending, const QString& text) {
    c.s.*pending = false;
    if (c.s.RigType != RigFT450 || text.isEmpty()) return;
    SendText(c, text);
}

// A request of the DSP panel: refused while transmitting, scanning or sweeping.
void Ft450Request(Core& c, bool State::*pending, const QString& text) {
    Ft450Command(c, pending, Busy(c.s) ? QString() : text);
}

bool IsOn(const Label& l) {
    return l.backColour == Green;
}

void Ask(Core& c, bool State::*pending) {
    if (c.f.chkOnOff.value == 0) return;
    c.s.*pending = true;
}

}  // namespace

void WriteEeprom(Core& c, uint16_t address, uint8_t first, uint8_t second) {
    auto& p = c.s.CommandBytes;
    p[0] = static_cast<uint8_t>(address >> 8);
    p[1] = static_cast<uint8_t>(address & 0xFF);
    p[2] = first;
    p[3] = second;
    SendCommand(c, 0xBC);
}

// Deliberately bit 0x02 of the second byte at 0xA8, the bit the processor light reads: the same
// bit of the first byte is the FT-857's DNR, which a click on PROC would otherwise switch.
void ToggleProcessor(Core& c) {
    ToggleInMemory(c, &State::PendingProcessor, 0xA8, Byte::Second, &Form1::cmdFT857Processor,
                   &Form1::cmdFT897Processor, [](uint8_t b, bool green, bool) -> uint8_t {
                       return green ? b & 0xFD : b | 0x02;
                   });
}

void ToggleNoiseBlanker(Core& c) {
    if (c.s.RigType == RigFT450) return Ft450NoiseBlanker(c);
    ToggleInMemory(c, &State::PendingNoiseBlanker, 0x6A, Byte::First, &Form1::cmdFT857NoiseBlanker,
                   &Form1::cmdFT897NoiseBlanker, [](uint8_t b, bool green, bool) -> uint8_t {
                       return green ? b & 0xDF : b | 0x20;
                   });
}

void ToggleDNF(Core& c) {
    ToggleInMemory(c, &State::PendingDNF, 0xA8, Byte::First, &Form1::cmdFT857DNF,
                   &Form1::cmdFT897DNF, [](uint8_t b, bool green, bool ft897) -> uint8_t {
                       if (ft897) return Ft897Dsp(b, green, 0xFE, 0x11);
                       return green ? b & 0xFE : b | 0x01;
                   });
}

void ToggleDNR(Core& c) {
    ToggleInMemory(c, &State::PendingDNR, 0xA8, Byte::First, &Form1::cmdFT857DNR,
                   &Form1::cmdFT897DNR, [](uint8_t b, bool green, bool ft897) -> uint8_t {
                       if (ft897) return Ft897Dsp(b, green, 0xFD, 0x12);
                       return green ? b & 0xFD : b | 0x02;
                   });
}

void ToggleDBF(Core& c) {
    ToggleInMemory(c, &State::PendingDBF, 0xA8, Byte::First, &Form1::cmdFT857DBF,
                   &Form1::cmdFT897DBF, [](uint8_t b, bool green, bool ft897) -> uint8_t {
                       if (ft897) return Ft897Dsp(b, green, 0xF3, 0x1C);
                       return green ? b & 0xF3 : b | 0x0C;
                   });
}

// Lock and Fast are the other way round: the green button sets the bit.
void ToggleLock(Core& c) {
    ToggleInMemory(
        c, &State::PendingLock, 0x6A, Byte::First, &Form1::cmdFT857Lock, &Form1::cmdFT897Lock,
        [](uint8_t b, bool green, bool) -> uint8_t { return green ? b | 0x40 : b & 0xBF; });
}

void ToggleFast(Core& c) {
    ToggleInMemory(
        c, &State::PendingFast, 0x6A, Byte::First, &Form1::cmdFT857Fast, &Form1::cmdFT897Fast,
        [](uint8_t b, bool green, bool) -> uint8_t { return green ? b | 0x80 : b & 0x7F; });
}

void SetFt817Agc(Core& c) {
    State& s = c.s;
    if (!IsFt817(s.RigType)) {
        s.PendingFT817AGC = false;
        return;
    }
    PutParameters(c);
    ReadEeprom(c, 0x56);
    if (s.ReplyTimedOut) return;
    s.PendingFT817AGC = false;
    const auto b = static_cast<uint8_t>((ReplyByte(c, 0) & 0xFC) | (s.Ft817AgcValue & 0x03));
    WriteEeprom(c, 0x56, b, ReplyByte(c, 1));
    ReadResponse(c, 1);
}

void SetFilter455(Core& c) {
    State& s = c.s;
    s.PendingFT1000Filter455 = false;
    if (s.RigType != RigFT1000MP) return;
    for (int i = 0; i < 5; ++i)
        c.f.cmdFT1000MP_Filter_455[i].backColour = i == s.Ft1000Filter455Index ? Green : White;
    SendFilter(c, 0x02, s.Ft1000Filter455Index);
}

void SetFilter82(Core& c) {
    State& s = c.s;
    s.PendingFT1000Filter82 = false;
    if (s.RigType != RigFT1000MP) return;
    SendFilter(c, 0x01, s.Ft1000Filter82Index);
}

void ToggleFt920Tuner(Core& c) {
    State& s = c.s;
    s.PendingFT920Tuner = false;
    if (s.RigType != RigFT920) return;
    PutParameters(c);
    const bool in = c.f.cmdFT920Tuner.backColour == PaleGreen;
    c.f.cmdFT920StartTune.enabled = !in;
    s.CommandBytes[3] = in ? 0x00 : 0x01;
    SendCommand(c, 0x81);
}

void StartFt920Tune(Core& c) {
    c.s.PendingFT920StartTune = false;
    if (c.s.RigType != RigFT920) return;
    PutParameters(c);
    SendCommand(c, 0x82);
}

void SetSplit(Core& c) {
    State& s = c.s;
    const QString& rig = s.RigType;
    s.PendingSplit = false;
    const bool ticked = c.f.chkSplit.value == 1;
    PutParameters(c);
    if (IsAckFamily(rig)) {
        SendCommand(c, ticked ? 0x02 : 0x82);
        ReadResponse(c, 1);
    } else if (rig == RigFT1000MP || rig == RigFT920) {
        s.CommandBytes[3] = ticked ? 0x01 : 0x00;
        SendCommand(c, 0x01);
    }
}

void ToggleVfo(Core& c) {
    State& s = c.s;
    const QString& rig = s.RigType;
    s.PendingVfoToggle = false;
    PutParameters(c);
    if (rig == RigFT450) {
        SendText(c, s.VfoAActive ? "VS1;" : "VS0;");
        c.f.lblRigMode.caption = s.VfoAActive ? "VFO B" : "VFO A";
        s.VfoLetter = s.VfoAActive ? "B" : "A";
        s.VfoAActive = !s.VfoAActive;
    } else if (rig == RigFT1000MP || rig == RigFT920) {
        // Whichever VFO is active, and the flag has no way back to false here.
        s.CommandBytes[3] = 0x01;
        SendCommand(c, 0x05);
        s.VfoAActive = true;
    } else if (rig == RigVR5000) {
        s.VfoAActive = !s.VfoAActive;
        c.f.cmdVFOtoggle.caption = s.VfoAActive ? "VFO A" : "VFO B";
        s.TargetFrequency = s.VfoAActive ? s.VR5000FrequencyMain : s.VR5000FrequencySub;
        s.TargetMode = s.VfoAActive ? s.VR5000ModeMain : s.VR5000ModeSub;
        s.FrequencyChangePending = true;
    } else if (IsAckFamily(rig)) {
        SendCommand(c, 0x81);
        ReadResponse(c, 1);
        s.VfoAActive = !s.VfoAActive;
    }
}

void VfoBOff(Core& c) {
    State& s = c.s;
    s.PendingVfoBOff = false;
    if (s.RigType != RigVR5000 || Busy(s)) return;
    PutParameters(c);
    SendCommand(c, 0x31);  // zero frequency: the sub receiver goes off
    c.f.cmdVFOtoggle.caption = "VFO A";
    s.VfoAActive = true;
    s.TargetFrequency = s.VR5000FrequencyMain;
    s.TargetMode = s.VR5000ModeMain;
    s.FrequencyChangePending = true;
}

void VfoEqual(Core& c) {
    State& s = c.s;
    s.PendingVfoEqual = false;
    if (Busy(s)) return;
    if (s.RigType == RigFT450) {
        SendText(c, "VV;");
        return;
    }
    QString text = c.f.txtVfoA.text;
    if (text.size() < 7) return;
    // Less its second separator: "14.250.00" reads as 14.25000 MHz.
    const qsizetype second = text.indexOf(s.DecimalSeparator, text.indexOf(s.DecimalSeparator) + 1);
    if (second >= 0) text.remove(second, s.DecimalSeparator.size());
    const QString mode = c.f.txtMode.text;
    ToggleVfo(c);
    s.TargetFrequency = ParseFrequency(c, text);
    s.TargetMode = mode;
    SetFrequencyAndMode(c, s.TargetFrequency, s.TargetMode);
    ToggleVfo(c);
}

bool SelectVfo(Core& c) {
    State& s = c.s;
    const QString& rig = s.RigType;
    s.PendingVfoSelect = false;
    s.VfoAActive = false;
    const bool a = s.VfoRequest == "A";
    if (IsAckFamily(rig)) {
        const uint8_t v = a ? 0x80 : 0x81;
        if (a) s.VfoAActive = true;
        const uint16_t address = IsFt817(rig) ? 0x0054 : 0x0068;
        PutParameters(c);
        ReadEeprom(c, address);
        if (s.ReplyTimedOut) return false;
        if (ReplyByte(c, 0) == v) return true;
        WriteEeprom(c, address, v, ReplyByte(c, 1));
        ReadResponse(c, 1);
    } else if (rig == RigFT450) {
        SendText(c, a ? "VS0;" : "VS1;");
        s.VfoAActive = a;
        s.VfoLetter = a ? "A" : "B";
    } else if (rig == RigFT1000MP || rig == RigFT920) {
        PutParameters(c);
        s.CommandBytes[3] = a ? 0x00 : 0x01;
        SendCommand(c, 0x05);
        s.VfoAActive = a;
    } else if (rig == RigFT847 || rig == RigFRG100) {
        s.VfoAActive = true;
    }
    return true;
}

void Ft450Tune(Core& c) {
    c.s.PendingFT450Tune = false;
    if (c.s.RigType != RigFT450 || Busy(c.s)) return;
    SendText(c, "AC002;");
    PauseWithEvents(c, 100);
}

void Ft450VfoMemory(Core& c) {
    Ft450Request(c, &State::PendingFT450VM, "VM;");
}

void Ft450Attenuator(Core& c) {
    Ft450Command(c, &State::PendingFT450Att, c.f.lbl450Att.backColour == White ? "RA01;" : "RA00;");
}

void Ft450Ipo(Core& c) {
    Ft450Command(c, &State::PendingFT450Ipo, c.f.lbl450Ipo.backColour == White ? "PA00;" : "PA01;");
}

namespace {
// The AGC values of the FT-450, by member of lbl450AGC: Auto, Slow, Fast, Off. The reading lights
// the member whose command gives the value the rig reports.
constexpr char kFt450AgcValues[] = "4210";
}  // namespace

int Ft450AgcMember(const QString& value) {
    if (value.size() != 1) return -1;
    return static_cast<int>(QLatin1String(kFt450AgcValues).indexOf(value));
}

void Ft450Agc(Core& c) {
    const int i = c.s.Ft450AgcIndex;
    const bool member = i >= 0 && i < 4;
    Ft450Command(c, &State::PendingFT450AGC,
                 member ? QString("GT0%1;").arg(kFt450AgcValues[i]) : QString());
}

void Ft450Tuner(Core& c) {
    Ft450Command(c, &State::PendingFT450Tuner, c.s.TunerOn ? "AC000;" : "AC001;");
}

void Ft450SqlMode(Core& c) {
    Ft450Request(c, &State::PendingFT450SqlRf,
                 c.frm450DSP.lblSqlRFGain.caption == "SQL" ? "EX0581;" : "EX0580;");
}

void Ft450NoiseBlanker(Core& c) {
    Ft450Request(c, &State::PendingNoiseBlanker,
                 IsOn(c.frm450DSP.lbl450NoiseBlanker) ? "NB00;" : "NB01;");
}

void Ft450NoiseReduction(Core& c) {
    Ft450Request(c, &State::PendingFT450NR,
                 IsOn(c.frm450DSP.lbl450NoiseReduction) ? "NR00;" : "NR01;");
}

void Ft450Notch(Core& c) {
    Ft450Request(c, &State::PendingFT450Notch,
                 IsOn(c.frm450DSP.lbl450Notch) ? "BP00000;" : "BP00001;");
}

void Ft450NoiseReductionLevel(Core& c) {
    const bool on = IsOn(c.frm450DSP.lbl450NoiseReduction);
    Ft450Request(c, &State::PendingFT450NRLevel,
                 on ? "RL0" + c.s.DspNoiseReductionLevel + ";" : QString());
}

void Ft450NotchFrequency(Core& c) {
    const bool on = IsOn(c.frm450DSP.lbl450Notch);
    Ft450Request(c, &State::PendingFT450NotchFreq,
                 on ? "BP01" + c.s.DspNotchFrequency + ";" : QString());
}

void Ft450AfGain(Core& c) {
    Ft450Request(c, &State::PendingFT450AFGain,
                 "AG0" + basic::Format(c.frm450DSP.sldAFGain.value, "000") + ";");
}

void Ft450RfGain(Core& c) {
    Ft450Request(c, &State::PendingFT450RFGain,
                 "RG0" + basic::Format(c.frm450DSP.sldRFGain.value, "000") + ";");
}

void Ft450Filter(Core& c) {
    static constexpr const char* kWidth[] = {"SH000;", "SH016;", "SH031;"};
    const int v = c.frm450DSP.sldFilter.value;
    Ft450Request(c, &State::PendingFT450Filter, v >= 1 && v <= 3 ? kWidth[v - 1] : "");
}

void Ft450Contour(Core& c) {
    static constexpr const char* kLevel[] = {"CO00-2;", "CO00-1;", "CO0000;", "CO0001;", "CO0002;"};
    const int i = c.s.DspContourLevelIndex;
    Ft450Request(c, &State::PendingFT450Contour, i >= 1 && i <= 5 ? kLevel[i - 1] : "");
}

void Ft450ContourFrequency(Core& c) {
    static constexpr const char* kFrequency[] = {"CO0101;", "CO0108;", "CO0114;", "CO0120;",
                                                 "CO0126;"};
    const int i = c.s.DspContourFrequencyIndex;
    Ft450Request(c, &State::PendingFT450ContourFreq, i >= 1 && i <= 5 ? kFrequency[i - 1] : "");
}

void cmdFT857Processor_Click(Core& c) {
    Ask(c, &State::PendingProcessor);
}
void cmdFT857NoiseBlanker_Click(Core& c) {
    Ask(c, &State::PendingNoiseBlanker);
}
void cmdFT857DNF_Click(Core& c) {
    Ask(c, &State::PendingDNF);
}
void cmdFT857DNR_Click(Core& c) {
    Ask(c, &State::PendingDNR);
}
void cmdFT857DBF_Click(Core& c) {
    Ask(c, &State::PendingDBF);
}
void cmdFT857Lock_Click(Core& c) {
    Ask(c, &State::PendingLock);
}
void cmdFT857Fast_Click(Core& c) {
    Ask(c, &State::PendingFast);
}

void optFT817AGC_Click(Core& c, int index) {
    if (c.f.chkOnOff.value == 0) return;
    if (c.s.Ft817AgcLocked) {
        c.s.Ft817AgcLocked = false;
        return;
    }
    c.s.Ft817AgcValue = index;
    c.s.PendingFT817AGC = true;
}

void mnuFT817AGCmonitor_Click(Core& c) {
    c.f.mnuFT817AGCmonitor.checked = !c.f.mnuFT817AGCmonitor.checked;
}

void cmdFT1000MP_Filter_455_Click(Core& c, int index) {
    if (c.f.chkOnOff.value == 0) return;
    c.s.Ft1000Filter455Index = index;
    c.s.PendingFT1000Filter455 = true;
}

void cmdFT1000MP_Filter_82_Click(Core& c, int index) {
    if (c.f.chkOnOff.value == 0) return;
    c.s.Ft1000Filter82Index = index;
    c.s.PendingFT1000Filter82 = true;
}

void cmdFT920Tuner_Click(Core& c) {
    Ask(c, &State::PendingFT920Tuner);
}
void cmdFT920StartTune_Click(Core& c) {
    Ask(c, &State::PendingFT920StartTune);
}

void chkSplit_Click(Core& c) {
    // A change the status read made is the rig's own: it does not go back as a command.
    if (c.s.SplitChangedByPoll) {
        c.s.SplitChangedByPoll = false;
        return;
    }
    c.s.PendingSplit = true;
}

void cmdVFOtoggle_Click(Core& c) {
    Ask(c, &State::PendingVfoToggle);
}
void cmdVFOBOff_Click(Core& c) {
    Ask(c, &State::PendingVfoBOff);
}
void cmdVFOSEqual_Click(Core& c) {
    Ask(c, &State::PendingVfoEqual);
}
void cmd450Tune_Click(Core& c) {
    Ask(c, &State::PendingFT450Tune);
}
void lbl450Tuner_Click(Core& c) {
    Ask(c, &State::PendingFT450Tuner);
}
void lbl450Att_Click(Core& c) {
    Ask(c, &State::PendingFT450Att);
}
void lbl450Ipo_Click(Core& c) {
    Ask(c, &State::PendingFT450Ipo);
}
void lbl450AGC_Click(Core& c, int index) {
    if (c.f.chkOnOff.value == 0) return;
    c.s.Ft450AgcIndex = index;
    c.s.PendingFT450AGC = true;
}

}  // namespace veldor
