// The repeater shift options of the memory and scan range dialogs: Simplex, Minus shift, Plus
// shift, standing for the shifts "0", "-" and "+".
#pragma once

#include "link/controls.h"

#include <array>

namespace veldor {

// Selects the option of a stored shift; any other text is simplex.
inline void ShowShiftOption(std::array<OptionButton, 3>& options, const QString& shift) {
    const int chosen = shift == "-" ? 1 : shift == "+" ? 2 : 0;
    for (int k = 0; k < 3; ++k) options[k].value = k == chosen;
}

inline QString ShiftOfOptions(const std::array<OptionButton, 3>& options) {
    return options[0].value ? "0" : options[1].value ? "-" : "+";
}

}  // namespace veldor
