// The connection group of the main window: the link's switch, its timeout count, the UTC clock
// and the ten-minute counter.
#pragma once

#include "link/controls.h"

namespace veldor {

struct ConnectionGroup {
    CheckBox chkOnOff{{true, true, " CAT on/off "}, "&On/Off", 0, White};
    Label lblTimeoutCount{{true, true, " Number of receive timeouts from rig "}, "0"};
    Label lblUTC{{true, true, " UTC time of day "}, "00:00:00"};
    CommandButton cmdTenMinCounter{{true, true, " 10 minute counter "}, "10 Mins"};
};

}  // namespace veldor
