// Quick memories on the main window: the bank buttons, the twelve memories of the bank on show
// and the memory tag.
#pragma once

#include "link/controls.h"

#include <array>

namespace veldor {

inline constexpr Colour BankPaleBlue = 0xC0E0FF;  // a memory defined in the dialog

struct MemoriesGroup {
    // The bank on show is green, the others pale green; captions are the bank names.
    std::array<CommandButton, 6> cmdBankNumber{{{{}, "Bank &1", Green},
                                                {{}, "Bank &2", PaleGreen},
                                                {{}, "Bank &3", PaleGreen},
                                                {{}, "Bank &4", PaleGreen},
                                                {{}, "Bank &5", PaleGreen},
                                                {{}, "Bank &6", PaleGreen}}};
    CommandButton cmdClearBank{{}, "Clear Bank"};
    // lblStore recalls a memory, lblSet stores the rig's frequency into it.
    std::array<Label, 12> lblStore{};
    std::array<Label, 12> lblSet{};

    // The memory tag: the last memory recalled, and whether the rig has left it.
    Frame frmMemoryTag{{true, false, {}}, "Memory tag"};
    TextBox txtMemoryTag;
    TextBox txtMemoryFreq{{true, true, " Frequency of last channel recalled "}, {}};
    Label lblMemoryMT{
        {true, false, " Off Frequency - actual frequency is not this channel. Click to re-tune. "},
        "Off Freq"};
};

}  // namespace veldor
