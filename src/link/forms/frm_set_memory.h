// The dialog that defines one quick memory in full.
#pragma once

#include "link/controls.h"

#include <array>

namespace veldor {

struct FrmSetMemory {
    QString caption = "VELDOR - Set Memory";
    Frame Frame1;  // "Bank 1  Memory 3"
    TextBox txtName;
    TextBox txtFreq;  // MHz
    ComboBox cboMode;
    ComboBox cboCTCSS;  // "None", then the rig's tones
    CheckBox chkEnc{{}, "Enc only"};
    CheckBox chkDec{{}, "Enc + Dec"};
    std::array<OptionButton, 3> optRepeaterShift{
        {{{}, "Simplex", true}, {{}, "Minus shift"}, {{}, "Plus shift"}}};
    CheckBox chkScan{{true, true, " Include this memory in scanning "}, "Scan"};
    TextBox txtOffset;  // kHz
    CommandButton cmdOK{{}, "OK"};
    CommandButton cmdCancel{{}, "Cancel"};
};

}  // namespace veldor
