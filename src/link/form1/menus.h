// The main window's menu items: captions, ticks and whether each can be chosen.
#pragma once

#include "link/controls.h"

#include <array>

namespace veldor {

struct MenuItems {
    MenuItem mnuExit{"E&xit"};
    MenuItem mnuSpectrumOnly{"Spectrum display only"};
    MenuItem mnuAddToGrid{"Add frequency to grid"};
    MenuItem mnuConvert{"&Convert freq files..."};
    MenuItem mnuResetMemoryGridPosition{"Reset Memory Grid position"};

    MenuItem mnuSettings{"&Settings..."};
    MenuItem mnuFT817AGCmonitor{"&AGC monitor"};
    MenuItem mnuRaiseDTR{"Ra&ise DTR"};
    MenuItem mnuRaiseRTS{"&Raise RTS"};
    MenuItem mnuLinkRTS{"&Link RTS to TX state"};
    MenuItem mnuTXRXcontrolsRTS{"TX/RX button only controls RTS pin"};
    MenuItem mnuPollingOff{"No polling"};
    MenuItem mnuPolling{"Fast polling"};
    MenuItem mnuPolling02{" .2 Secs"};
    MenuItem mnuPolling05{" .5 Secs"};
    MenuItem mnuPolling1{"  1 Secs"};
    MenuItem mnuPolling2{"  2 Secs"};
    MenuItem mnuPolling5{"  5 Secs"};
    MenuItem mnuPolling10{"10 Secs"};
    MenuItem mnuPollingUpdateNow{"Update now"};
    MenuItem mnuHangDelay2{"2 Secs"};
    MenuItem mnuHangDelay4{"4 Secs"};
    MenuItem mnuHangDelay8{"8 Secs"};
    MenuItem mnuHangDelay16{"16 Secs"};
    MenuItem mnuHangDelayPerm{"Permanent"};
    MenuItem mnuHangDelayOnSignalLoss{"Hang &Delay starts on signal loss"};
    std::array<MenuItem, 5> mnuTalk{
        {{"1 Slowest"}, {"2 Slower"}, {"3 Medium"}, {"4 Faster"}, {"5 Fastest"}}};
    std::array<MenuItem, 5> mnuScanSpeed{
        {{"1 Slowest"}, {"2 Slow"}, {"3 Medium"}, {"4 Fast"}, {"5 Fastest"}}};
    MenuItem mnuUseSquelch{"Use S&quelch when scanning FM"};
    MenuItem mnuXvtr{"&Xvtr On"};
    MenuItem mnuMemoryTag{"&Memory Tag On"};
    MenuItem mnuShowLargeGoTo{"Show large &GoTo frequency box"};

    // ClickSet: store into and recall the twelve memories of the bank on show.
    std::array<MenuItem, 12> mnuSetM{{{"Set M1"},
                                      {"Set M2"},
                                      {"Set M3"},
                                      {"Set M4"},
                                      {"Set M5"},
                                      {"Set M6"},
                                      {"Set M7"},
                                      {"Set M8"},
                                      {"Set M9"},
                                      {"Set M10"},
                                      {"Set M11"},
                                      {"Set M12"}}};
    std::array<MenuItem, 12> mnuGoToM{{{"GoTo M1"},
                                       {"GoTo M2"},
                                       {"GoTo M3"},
                                       {"GoTo M4"},
                                       {"GoTo M5"},
                                       {"GoTo M6"},
                                       {"GoTo M7"},
                                       {"GoTo M8"},
                                       {"GoTo M9"},
                                       {"GoTo M10"},
                                       {"GoTo M11"},
                                       {"GoTo M12"}}};

    MenuItem mnuStart{"Start"};
    MenuItem mnuStop{"Stop"};
    MenuItem mnuHold{"Hold"};
    MenuItem mnuResume{"Resume"};

    MenuItem mnuHelp{"&Help"};
    MenuItem mnuAbout{"&About VELDOR..."};
};

}  // namespace veldor
