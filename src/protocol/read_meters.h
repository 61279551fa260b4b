// The FT-920's meter blocks, for the meters panel.
#pragma once

#include "link/core.h"

namespace veldor {

// Docks the meters panel, then fills its bars and numbers: block 0 from the S-meter read's
// reply, blocks 1 to 3 each by one more read (opcode F7, P4 the block).
void ReadMeters(Core& c, const QByteArray& firstReply);

}  // namespace veldor
