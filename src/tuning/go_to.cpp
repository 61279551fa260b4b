#include "tuning/go_to.h"

#include "basic/basic.h"
#include "link/serial_link.h"
#include "protocol/model_controls.h"
#include "protocol/read_frequency.h"
#include "protocol/tones.h"
#include "protocol/write_frequency.h"

namespace veldor {

namespace {

// A last letter of the GoTo text names the mode.
struct ModeLetter {
    char letter;
    const char* mode;
};
constexpr ModeLetter kModeLetters[] = {{'L', "LSB"}, {'U', "USB"}, {'C', "CW"},  {'F', "FM"},
                                       {'W', "WFM"}, {'A', "AM"},  {'D', "DIG"}, {'P', "PKT"}};

const char* ModeOfLetter(QChar letter) {
    for (const ModeLetter& m : kModeLetters)
        if (letter.toUpper() == QLatin1Char(m.letter)) return m.mode;
    return nullptr;
}

void Refuse(Core& c, const QString& text, const QString& title) {
    c.p.dialogs->messageBox(text, title, MsgButtons::OK, MsgIcon::Exclamation);
    SetFocus(c, c.f.txtGoToFreq);
}

// A typed frequency is a channel of its own: simplex, the band's usual offset, no tone.
void ResetChannel(Core& c) {
    State& s = c.s;
    s.TargetShift = "0";
    QString offset = DefaultRepeaterOffset(c, s.TargetFrequency);
    offset.replace(s.DecimalSeparator, ".");
    s.TargetOffset = QString::number(basic::CLng(basic::Int(basic::Val(offset) * 1000)));
    s.ToneCode = "0";
    s.ToneEncode = "0";
    s.ToneDecode = "0";
}

}  // namespace

void cmdGoToFreq_Click(Core& c) {
    c.s.GoToPending = true;
}

void txtGoToFreq_KeyPress(Core& c, int& keyAscii) {
    if (Busy(c.s) || keyAscii != 13) return;
    keyAscii = 0;
    cmdGoToFreq_Click(c);
}

void txtShowLargeGoTo_KeyPress(Core& c, int& keyAscii) {
    if (Busy(c.s) || keyAscii != 13) return;
    c.f.txtGoToFreq.text = c.f.txtShowLargeGoTo.text;
    txtGoToFreq_KeyPress(c, keyAscii);
}

void ApplyGoTo(Core& c) {
    State& s = c.s;
    s.GoToPending = false;
    s.StatusUpdateHeld = false;
    // Refused, the text stays for the next GoTo.
    if (c.f.chkOnOff.value == 0 || s.Transmitting || s.ScanRunning ||
        (s.SpectrumRunning && !s.SpectrumPaused))
        return;
    QString text = c.f.txtGoToFreq.text.trimmed();
    if (text.isEmpty()) return;
    const char* mode = ModeOfLetter(text.back());
    if (mode) {
        s.TargetMode = mode;
        text.chop(1);
    }
    if (!basic::IsNumeric(text))
        return Refuse(c, "Go To frequency is not a numeric value - please retry", "Invalid number");
    const int32_t frequency = ParseFrequency(c, text);
    if (!CheckFrequencyRange(c, frequency)) {
        return Refuse(c,
                      "You have entered a GoTo frequency outside the range of the rig - please "
                      "retry",
                      "Invalid frequency");
    }
    s.TargetFrequency = frequency;
    // A knob step keeps the shift and tone of the channel.
    if (!s.KnobTuning) ResetChannel(c);
    s.KnobTuning = false;
    if (mode) {
        SetFrequencyAndMode(c, s.TargetFrequency, s.TargetMode);
        ApplyRepeaterShift(c);
    } else {
        SetFrequency(c, s.TargetFrequency);
    }
    c.f.txtVfoA.text = FormatFrequency(c, s.TargetFrequency);
    s.DisplayFrequencyText = c.f.txtVfoA.text;
    c.f.txtShowLargeGoTo.text.clear();
}

void LoadLargeGoTo(Core& c) {
    State& s = c.s;
    const QString stored = GetSetting(c, s.AppName, "Settings", "LargeGoTo", "False").trimmed();
    s.LargeGoTo = stored.compare("True", Qt::CaseInsensitive) == 0 || basic::Val(stored) != 0;
    c.f.mnuShowLargeGoTo.checked = s.LargeGoTo;
    c.f.txtShowLargeGoTo.visible = s.LargeGoTo;
    if (s.LargeGoTo) SetFocus(c, c.f.txtShowLargeGoTo);
}

void mnuShowLargeGoTo_Click(Core& c) {
    State& s = c.s;
    s.LargeGoTo = !c.f.mnuShowLargeGoTo.checked;
    c.f.mnuShowLargeGoTo.checked = s.LargeGoTo;
    c.f.txtShowLargeGoTo.visible = s.LargeGoTo;
    SaveSetting(c, s.AppName, "Settings", "LargeGoTo", s.LargeGoTo ? "True" : "False");
    if (s.LargeGoTo) SetFocus(c, c.f.txtShowLargeGoTo);
}

void GoToVr5000LastFreqMode(Core& c) {
    // The store keeps "14.250u00", the display text with its mode letter in place of the last
    // separator; the GoTo box reads the same channel as "14.25000u".
    QString text = c.s.VR5000LastFreqMode.trimmed();
    if (text.size() > 3 && text[text.size() - 3].isLetter())
        text = text.left(text.size() - 3) + text.right(2) + text[text.size() - 3];
    c.f.txtGoToFreq.text = text;
    cmdGoToFreq_Click(c);
}

}  // namespace veldor
