// The dialog that edits the twenty scan ranges.
#pragma once

#include "link/controls.h"

#include <array>

namespace veldor {

struct FrmScanner {
    QString caption = "VELDOR - Scanner Ranges";
    ComboBox cboMemoryNumber{{true, true, "Number for this scanner definition"}};
    Frame Frame2{{}, "Frequencies"};
    Frame Frame3{{}, "Other"};
    Frame Frame4{{}, "Repeater details"};
    TextBox txtDescription{{true, true, " Short description of this scan definition "}, {}};
    TextBox txtStart{{true, true, "Starting frequency of scan"}, {}};
    TextBox txtStop{{true, true, "Stop frequency for this scan"}, {}};
    TextBox txtStep{{true, true, "Step size for this scan"}, {}};
    ComboBox cboMode{{true, true, " Mode for this scan "}};
    ComboBox cboCTCSS{{true, true, "CTCSS frequency for this memory"}};
    CheckBox chkEnc{{true, true, "Encode on/off for this memory"}, "Enc only"};
    CheckBox chkDec{{true, true, "Decode on/off for this memory"}, "Enc + Dec"};
    std::array<OptionButton, 3> optRepeaterShift{
        {{{}, "Simplex", true}, {{}, "Minus shift"}, {{}, "Plus shift"}}};
    TextBox txtOffset;
    CommandButton cmdClear{{true, true, " Clear this entry "}, "Clear this entry"};
    CommandButton cmdOK{{true, true, " Apply the changes made "}, "Apply changes"};
    CommandButton cmdCancel{{true, true, " Exit this window "}, "Exit"};
};

}  // namespace veldor
