// The frames of each rig model's own controls; one at most is shown, by the rig in use.
#pragma once

#include "link/controls.h"

#include <array>

namespace veldor {

struct ModelFrames {
    Frame frmFRG100{{true, false, {}}, "FRG-100"};
    Frame frmFT450{{true, false, {}}, "FT-450"};
    Frame frmFT1000MP{{true, false, {}}, "FT-1000MP"};
    Frame frmFT817{{true, false, {}}, "FT-817"};
    Frame frmFT897{{true, false, {}}, "FT-897"};
    Frame frmFT857{{true, false, {}}, "FT-857"};
    Frame frmFT847{{true, false, {}}, "FT-847"};
    Frame frmFT920{{true, false, {}}, "FT-920"};
    Frame frmVR5000LSB{{true, false, {}}, "Step"};
    Frame frmVR5000AM{{true, false, {}}, "Step"};
    Frame frmVR5000WFM{{true, false, {}}, "Step"};
    Frame frmVR5000FMN{{true, false, {}}, "Step"};
    Label lblFT817{{true, true, {}}, {}};
    Label Label14{{true, true, {}}, {}};  // the FT-897 frame's rig name
    Label Label18{{true, true, {}}, {}};  // the FT-857 frame's rig name

    // FT-817 AGC, which the status read can follow.
    std::array<OptionButton, 4> optFT817AGC{};

    // The FT-897 and FT-857 feature buttons: enabled only while connected.
    CommandButton cmdFT897Processor{{false, true, {}}, "PROC"};
    CommandButton cmdFT897NoiseBlanker{{false, true, {}}, "NB"};
    CommandButton cmdFT897DNF{{false, true, {}}, "DNF"};
    CommandButton cmdFT897DNR{{false, true, {}}, "DNR"};
    CommandButton cmdFT897DBF{{false, true, {}}, "DBF"};
    CommandButton cmdFT897Fast{{false, true, {}}, "Fast"};
    CommandButton cmdFT897Lock{{false, true, {}}, "Lock"};
    CommandButton cmdFT857Processor{{false, true, {}}, "PROC"};
    CommandButton cmdFT857NoiseBlanker{{false, true, {}}, "NB"};
    CommandButton cmdFT857DNF{{false, true, {}}, "DNF"};
    CommandButton cmdFT857DNR{{false, true, {}}, "DNR"};
    CommandButton cmdFT857DBF{{false, true, {}}, "DBF"};
    CommandButton cmdFT857Fast{{false, true, {}}, "Fast"};
    CommandButton cmdFT857Lock{{false, true, {}}, "Lock"};

    // FT-920 indicators: the VFO shapes, antenna, dial speed and tuner.
    Colour shpTxVfoA = 0xE0E0E0, shpRxVfoA = 0xE0E0E0, shpTxVfoB = 0xE0E0E0, shpRxVfoB = 0xE0E0E0;
    Label lblAnt{{true, true, {}}, "A"};
    Label lblRXant{{true, false, {}}, "RX ant"};
    Label lblTune{{true, true, {}}, " N O R"};
    CommandButton cmdFT920Tuner{{true, true, {}}, "Tuner in/out", White};
    CommandButton cmdFT920StartTune{{true, true, {}}, "Start Tune"};

    // FT-847: the cross-band repeater.
    CommandButton cmdXBand{{true, true, " Run the FT-847 as a cross-band repeater "}, "X-Band"};

    // FT-450 function lights: green on, white off.
    Label lbl450Tuner{{true, true, {}}, "Tuner", White};
    Label lbl450Att{{true, true, {}}, "ATT", White};
    Label lbl450Ipo{{true, true, {}}, "IPO", White};
    std::array<Label, 4> lbl450AGC{};
    CommandButton cmd450Tune{{false, true, " Start the antenna tuner "}, "Tune"};
    CheckBox chkShowDSP{{true, false, " Show the DSP panel "}, "showDSP"};

    // FT-1000MP filter buttons of the 8.2 MHz and 455 kHz stages.
    std::array<CommandButton, 5> cmdFT1000MP_Filter_82{};
    std::array<CommandButton, 5> cmdFT1000MP_Filter_455{};

    // VR-5000 step options of the four mode groups.
    std::array<OptionButton, 5> optLSBUSB{};
    std::array<OptionButton, 9> optAM{};
    std::array<OptionButton, 9> optFMN{};
    std::array<OptionButton, 4> optWFM{};
};

}  // namespace veldor
