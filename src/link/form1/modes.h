// Mode buttons, repeater shift and tone, and the transmit and VFO controls.
#pragma once

#include "link/controls.h"

#include <array>

namespace veldor {

struct ModesGroup {
    // Member 6 doubles as the FT-847's narrow and the FT-920's wide/narrow button.
    std::array<CommandButton, 12> Command2{};
    Label lblNarrow{{true, false, {}}, "N"};
};

struct RepeaterGroup {
    // The shift button of the shift the rig reports is pale green.
    CommandButton cmdShiftMinus{{true, true, {}}, "-"};
    CommandButton cmdShiftSimplex{{true, true, {}}, "S"};
    CommandButton cmdShiftPlus{{true, true, {}}, "+"};
    // Tone: the rig's list, encoder and decoder lights and the tone in use.
    ComboBox cboCTCSS{{true, true, " CTCSS tone "}, {}, -1};
    Label lblEnc{{true, true, " CTCSS encoder "}, "Enc", White};
    Label lblDec{{true, true, " CTCSS decoder "}, "Dec", White};
    Label lblCTCSSFreq{{true, true, " CTCSS tone frequency "}, "Freq"};
};

struct TransmitGroup {
    CommandButton cmdTxRx{{false, true, " Transmit / receive "}, "tx/RX", White};
    CheckBox chkTransmitEnable{{false, true, {}}, "TX enable"};
    CheckBox chkSplit{{false, true, {}}, "Split"};
    CommandButton cmdVFOtoggle{{true, false, " Swap VFO A and B "}, "VFO A/B"};
    CommandButton cmdVFOSEqual{{true, false, " Copy this VFO to the other "}, "VFO A=B"};
    CommandButton cmdVFOBOff{{true, false, " Switch the sub receiver off "}, "VFOB Off"};
};

}  // namespace veldor
