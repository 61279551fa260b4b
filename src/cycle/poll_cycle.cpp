#include "cycle/poll_cycle.h"

#include "basic/basic.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "link/serial_link.h"
#include "protocol/model_controls.h"
#include "protocol/read_frequency.h"
#include "protocol/read_signal.h"
#include "protocol/tones.h"
#include "scan/spectrum.h"
#include "tuning/steps.h"

#include <algorithm>

namespace veldor {

namespace {

// On: green and bold; off: the button face and normal weight.
void ShowFeature(CommandButton& button, bool on) {
    button.backColour = on ? Green : ButtonFace;
    button.bold = on;
}

void Show450Light(Label& light, bool on) {
    light.backColour = on ? Green : White;
}

// A reading into a slider, kept within the slider's range.
void ShowOnSlider(Slider& slider, const QString& digits) {
    slider.value = std::clamp(basic::CLng(basic::Val(digits)), slider.min, slider.max);
}

// One member of a scale (1 to 5) green for the value the rig gives, the others white; a value
// off the scale leaves it as it was.
void ShowOnScale(std::array<Label, 6>& scale, const QString& value,
                 const std::array<const char*, 5>& values) {
    const auto it = std::find(values.begin(), values.end(), value);
    if (it == values.end()) return;
    const auto lit = static_cast<size_t>(it - values.begin()) + 1;
    for (size_t i = 1; i < scale.size(); ++i) scale[i].backColour = i == lit ? Green : White;
}

// The DSP panel's state, while it is open. A slider is not read while the operator holds one,
// nor while its own request waits, so that it does not jump back under the mouse.
template <typename Ask, typename At>
void ReadDspPanel(Core& c, Ask& ask, At& at) {
    State& s = c.s;
    Frm450DSP& d = c.frm450DSP;
    const bool held = s.DspSliderHeld;
    if (ask("NB0;", "NB")) Show450Light(d.lbl450NoiseBlanker, at(4, 1) != "0");
    if (ask("NR0;", "NR")) Show450Light(d.lbl450NoiseReduction, at(4, 1) != "0");
    if (!held && !s.PendingFT450NRLevel && ask("RL0;", "RL"))
        ShowOnSlider(d.sldNoiseReduction, at(4, 2));
    if (!held && !s.PendingFT450AFGain && ask("AG0;", "AG")) ShowOnSlider(d.sldAFGain, at(4, 3));
    if (!held && !s.PendingFT450RFGain && ask("RG0;", "RG")) ShowOnSlider(d.sldRFGain, at(4, 3));
    if (ask("BP00;", "BP")) Show450Light(d.lbl450Notch, at(5, 3) != "000");
    if (!held && !s.PendingFT450NotchFreq && ask("BP01;", "BP")) ShowOnSlider(d.sldNotch, at(5, 3));
    if (!held && !s.PendingFT450Filter && ask("SH0;", "SH")) {
        const QString width = at(4, 2);
        if (width == "00") d.sldFilter.value = 1;
        if (width == "16") d.sldFilter.value = 2;
        if (width == "31") d.sldFilter.value = 3;
    }
    if (ask("CO00;", "CO")) ShowOnScale(d.lblContour, at(5, 2), {"-2", "-1", "00", "01", "02"});
    // The contour's frequency is asked only while the contour is on.
    if (d.lblContour[3].backColour != Green && ask("CO01;", "CO"))
        ShowOnScale(d.lblContourFreq, at(5, 2), {"01", "08", "14", "20", "26"});
    if (ask("EX058;", "EX")) {
        if (at(6, 1) == "0") d.lblSqlRFGain.caption = "SQL";
        if (at(6, 1) == "1") d.lblSqlRFGain.caption = "RF Gain";
    }
}

// The FT-450's function lights, one text exchange each; a reply of another kind skips only
// its own item.
void ReadFt450Extras(Core& c) {
    State& s = c.s;
    Form1& f = c.f;
    auto ask = [&c](const QString& command, const QString& prefix) {
        SendText(c, command);
        return ReceiveData(c) && c.s.TextReply.left(2) == prefix;
    };
    auto at = [&s](int position, int length = 1) { return s.TextReply.mid(position - 1, length); };
    if (ask("AC;", "AC")) {
        s.TunerOn = at(5) != "0";
        Show450Light(f.lbl450Tuner, s.TunerOn);
    }
    if (ask("RA0;", "RA")) Show450Light(f.lbl450Att, at(4) != "0");
    if (ask("PA0;", "PA")) Show450Light(f.lbl450Ipo, at(4) != "1");  // the opposite sense
    if (ask("GT0;", "GT") && at(4) != s.LastAGC) {
        s.LastAGC = at(4);
        for (Label& l : f.lbl450AGC) l.backColour = White;
        // Deliberately by the value's command, not by the value: see Ft450AgcMember.
        const int member = Ft450AgcMember(s.LastAGC);
        if (member >= 0) f.lbl450AGC[member].backColour = Green;
    }
    if (ask("VS;", "VS")) {
        s.VfoAActive = at(3) == "0";
        s.VfoLetter = s.VfoAActive ? "A" : "B";
        f.lblRigMode.caption = s.VfoAActive ? "VFO A" : "VFO B";
    }
    if (s.DspVisible) ReadDspPanel(c, ask, at);
}

// The FT-897 and FT-857 feature buttons from the rig's memory. The masks of the two rigs
// differ on purpose.
void ReadModelExtras(Core& c) {
    const QString& rig = c.s.RigType;
    Form1& f = c.f;
    if (rig == RigFT897 || rig == RigFT897D || rig == RigFT857 || rig == RigFT857D) {
        const bool ft897 = rig == RigFT897 || rig == RigFT897D;
        if (ft897)
            ReadFT897Status(c);
        else
            ReadFT857Status(c);
        if (c.s.ReplyTimedOut) return;
        const auto& b = ft897 ? c.s.FT897Flags : c.s.FT857Flags;
        // b[0..1] at 0x0068, b[2..3] at 0x006A, b[4..5] at 0x00A8.
        auto masked = [&b](uint8_t mask) { return (b[4] & mask) == mask; };
        ShowFeature(ft897 ? f.cmdFT897Processor : f.cmdFT857Processor, b[5] & 0x02);
        ShowFeature(ft897 ? f.cmdFT897NoiseBlanker : f.cmdFT857NoiseBlanker, b[2] & 0x20);
        ShowFeature(ft897 ? f.cmdFT897DNF : f.cmdFT857DNF, masked(ft897 ? 0x11 : 0x01));
        ShowFeature(ft897 ? f.cmdFT897DNR : f.cmdFT857DNR, masked(ft897 ? 0x12 : 0x02));
        ShowFeature(ft897 ? f.cmdFT897DBF : f.cmdFT857DBF, masked(ft897 ? 0x1C : 0x0C));
        ShowFeature(ft897 ? f.cmdFT897Fast : f.cmdFT857Fast, b[2] & 0x80);
        ShowFeature(ft897 ? f.cmdFT897Lock : f.cmdFT857Lock, b[2] & 0x40);
    } else if (rig == RigFT450) {
        ReadFt450Extras(c);
    }
}

}  // namespace

void PerformStatusUpdate(Core& c) {
    State& s = c.s;
    // Not held back by the polling rate.
    ApplyMhzStep(c);
    // The tone lights follow the mode at every tick, whatever the polling rate.
    if (c.f.txtMode.text.left(2) == "FM")
        ShowToneIndicators(c);
    else
        ClearToneIndicators(c);
    if (!s.ForceUpdate && s.PollingDelay == 99) return;
    s.ForceUpdate = false;
    // The next reading is due PollingDelay after the end of the last one.
    if (s.PollingDelay != 0 && static_cast<int32_t>(s.NextPollTime - c.p.clock->milliseconds()) > 0)
        return;
    ApplySpectrumCursor(c);
    // A client of rig sharing whose write waits cuts the reading short between two commands
    // (or in the S-meter pause): the tick ends and the next follows at once to carry it out.
    const auto clientWaits = [&c] { return c.p.rigServer && c.p.rigServer->writeWaiting(); };
    const auto cut = [&] { return s.ReadingCutShort = clientWaits(); };
    ReadFrequencyAndMode(c);
    if (cut()) return;
    ReadStatus(c);
    if (cut() || !ReadSignal(c, cut) || cut()) return;
    ReadModelExtras(c);
    s.NextPollTime = c.p.clock->milliseconds() + static_cast<uint32_t>(s.PollingDelay);
}

void SetPollingDelay(Core& c, int32_t delay) {
    c.s.PollingDelay = delay;
    SaveSetting(c, c.s.AppName, "Settings", "PollingDelay", QString::number(delay));
    ShowPollingTicks(c);
}

void mnuPollingUpdateNow_Click(Core& c) {
    c.s.ForceUpdate = true;
    c.s.NextPollTime = c.p.clock->milliseconds();
}

void pbarGotSignal_MouseDown(Core& c, int x, int width) {
    const int cell = width / 32;
    if (cell <= 0) return;
    c.f.pbarGotSignal.value = std::clamp(x / cell, c.f.pbarGotSignal.min, c.f.pbarGotSignal.max);
}

void mnuTalk_Click(Core& c, int talkFreq) {
    c.s.TalkFreq = std::clamp(talkFreq, 1, 5);
    c.p.tmrPollInterval->setInterval((6 - c.s.TalkFreq) * 26);
    SaveSetting(c, c.s.AppName, "Settings", "TalkFreq", QString::number(c.s.TalkFreq));
    ShowTalkSpeedTicks(c);
}

}  // namespace veldor
