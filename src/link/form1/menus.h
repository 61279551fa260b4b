// The main window's menu items whose ticks, captions or state the program sets.
#pragma once

#include "link/controls.h"

#include <array>

namespace veldor {

struct MenuItems {
    MenuItem mnuFT817AGCmonitor{"&AGC monitor"};
    MenuItem mnuShowLargeGoTo{"Show large &GoTo frequency box"};
    std::array<MenuItem, 5> mnuTalk{
        {{"1 Slowest"}, {"2 Slower"}, {"3 Medium"}, {"4 Faster"}, {"5 Fastest"}}};
    MenuItem mnuPollingOff{"No polling"};
    MenuItem mnuPolling{"Fast polling"};
    MenuItem mnuPolling02{" .2 Secs"};
    MenuItem mnuPolling05{" .5 Secs"};
    MenuItem mnuPolling1{"  1 Secs"};
    MenuItem mnuPolling2{"  2 Secs"};
    MenuItem mnuPolling5{"  5 Secs"};
    MenuItem mnuPolling10{"10 Secs"};
    MenuItem mnuRaiseDTR{"Ra&ise DTR"};
    MenuItem mnuRaiseRTS{"&Raise RTS"};
    MenuItem mnuLinkRTS{"&Link RTS to TX state"};
    MenuItem mnuTXRXcontrolsRTS{"TX/RX button only controls RTS pin"};
};

}  // namespace veldor
