// The FT-847 cross-band repeater window.
#pragma once

#include "link/controls.h"

#include <array>
#include <cstdint>

namespace veldor {

// A five-byte frame as it goes to the port: P1, P2, P3, P4, opcode.
using CatFrame = std::array<uint8_t, 5>;

struct FrmXBandRepeat {
    QString caption = "FT-847 X-Band Repeater";
    Label Label1;  // how to use the window, filled at load
    Slider Slider1{{true, true, " Speed of switching frequency "}, 30, 20, 40};
    CommandButton cmdStart{{}, "Start"};
    CommandButton cmdStop{{}, "Stop"};
    CommandButton cmdExit{{}, "Exit"};
    Frame fraVHF{{}, "VHF Frequency 144 - 148MHz "};
    Frame fraUHF{{}, "UHF Frequency 430 - 450MHz "};
    // Red marks the side that transmits, pale green the side that receives.
    TextBox txtVfoA{{true, true, " Frequency "}, {}, White};
    TextBox txtVFOB{{true, true, " Frequency "}, {}, White};
    // One button above and one below each of the eight digits, 100 MHz down to 10 Hz.
    std::array<CommandButton, 8> cmdFreqAPlus = Digits(" Up "), cmdFreqAMinus = Digits(" Down "),
                                 cmdFreqBPlus = Digits(" Up "), cmdFreqBMinus = Digits(" Down ");

    // The frames of a run, written to the port as they stand. Start builds them anew; the
    // satellite-off frame is whole from the first, since unloading writes it in any case.
    CatFrame CatOn{}, SatOn{}, SatOff{0, 0, 0, 0, 0x8E}, FreqVHF{}, FreqUHF{}, ModeTx{}, ModeRx{},
        ReadStatus{}, Swap{};
    bool loaded = false;
    bool running = false;  // the repeat loop runs

  private:
    static std::array<CommandButton, 8> Digits(const QString& way) {
        static const char* const kStep[] = {"100 MHz", "10 MHz", "1 MHz",  "100 kHz",
                                            "10 kHz",  "1 kHz",  "100 Hz", "10 Hz"};
        std::array<CommandButton, 8> buttons{};
        for (size_t i = 0; i < buttons.size(); ++i) buttons[i].toolTip = way + kStep[i] + " ";
        return buttons;
    }
};

}  // namespace veldor
