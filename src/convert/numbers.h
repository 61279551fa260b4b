// Numbers in the texts of the conversion grid, written with the locale's decimal mark.
#pragma once

#include "link/core.h"

#include <QString>

namespace veldor {

// The number a text holds, as a conversion that fails on anything else: false for a text
// that is no number in the locale, or a number beyond the range of a double.
bool CDbl(Core& c, const QString& text, double* value);
// A number as the fewest digits that express it, with the locale's decimal mark.
QString NumberText(Core& c, double value);

}  // namespace veldor
