#include "tuning/transverter.h"

#include "basic/basic.h"
#include "protocol/read_frequency.h"
#include "protocol/transverter.h"

namespace veldor {

void LoadTransverter(Core& c) {
    State& s = c.s;
    const QString base = GetSetting(c, s.AppName, "Settings", "XvtrBaseFreq", "0");
    s.XvtrBaseFrequency = std::max(0, ParseFrequency(c, base, true));
    const QString index = GetSetting(c, s.AppName, "Settings", "XvtrOffsetIndex", "0");
    s.XvtrOffsetIndex = basic::Val(index) == 1 ? 1 : 0;
    c.f.optXvtr[0].value = s.XvtrOffsetIndex == 0;
    c.f.optXvtr[1].value = s.XvtrOffsetIndex == 1;
}

void mnuXvtr_Click(Core& c) {
    c.f.mnuXvtr.checked = !c.f.mnuXvtr.checked;
    c.f.frmXvtr.visible = c.f.mnuXvtr.checked;
    // Shown at once, not only at the next reading.
    ShowTransverter(c, c.s.CurrentFrequency);
}

void optXvtr_Click(Core& c, int index) {
    State& s = c.s;
    s.XvtrOffsetIndex = index == 1 ? 1 : 0;
    SaveSetting(c, s.AppName, "Settings", "XvtrOffsetIndex", QString::number(s.XvtrOffsetIndex));
    ShowTransverter(c, s.CurrentFrequency);
}

void txtXvtrBase_GotFocus(Core& c) {
    c.s.XvtrDisplayOff = true;
}

void txtXvtrBase_KeyPress(Core& c, int& keyAscii) {
    if (keyAscii != 13) return;
    keyAscii = 0;
    ApplyXvtrBase(c);
}

void txtXvtrBase_Validate(Core& c) {
    ApplyXvtrBase(c);
}

void ApplyXvtrBase(Core& c) {
    State& s = c.s;
    const QString text = c.f.txtXvtrBase.text.trimmed();
    if (text.isEmpty()) {
        s.XvtrBaseFrequency = 0;  // not saved
    } else {
        // A bad base goes back to the operator, the display still held off.
        if (!basic::IsNumeric(text)) {
            c.p.dialogs->messageBox(
                "You have entered a non numeric value for the Transverter Base frequency - please "
                "retry",
                "Invalid number", MsgButtons::OK, MsgIcon::Exclamation);
            SetFocus(c, c.f.txtXvtrBase);
            return;
        }
        const int32_t base = ParseFrequency(c, text);
        if (base == -1) {  // its box has told why
            SetFocus(c, c.f.txtXvtrBase);
            return;
        }
        s.XvtrBaseFrequency = base;
        SaveSetting(c, s.AppName, "Settings", "XvtrBaseFreq", FormatFrequencyShort(c, base));
    }
    s.XvtrDisplayOff = false;
    ShowTransverter(c, s.CurrentFrequency);
}

}  // namespace veldor
