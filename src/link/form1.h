// The main window as plain state: its controls, named as the operator's window names them.
#pragma once

#include "link/controls.h"

namespace veldor {

struct Form1 {
    QString caption;
    // Placement and size in twips (1440 to the inch).
    int top = 0;
    int left = 0;
    int width = 11520;
    int height = 8640;

    // Connection group.
    CheckBox chkOnOff{{true, true, " CAT on/off "}, "&On/Off", 0, White};
    Label lblTimeoutCount{{true, true, " Number of receive timeouts from rig "}, "0"};
    Label lblUTC{{true, true, " UTC time of day "}, "00:00:00"};
    CommandButton cmdTenMinCounter{{true, true, " 10 minute counter "}, "10 Mins"};

    // Frequency display.
    TextBox txtVfoA{{true, true, " Frequency "}, {}};
    TextBox txtMode{{true, true, " Current mode "}, {}};
    Label lblRigMode{{true, true, " Tuning mode "}, {}};

    // Meter.
    ProgressBar pbarSmeter{{true, true, " S-Meter "}, 0, 0, 31};
    ProgressBar pbarGotSignal{
        {true, true, " S-meter level that indicates got a signal "}, 3, 0, 31};

    // State lights: back colour green, white or red.
    Label lblTX{{true, true, " PTT On "}, "TX", White};
    Label lblRX{{true, true, " Busy "}, "RX", White};
    Label lblSQL{{true, true, " Squelch On "}, "SQL", White};
    Label lblDCS{{true, true, {}}, "DCS", White};
    Label lblDISC{{true, true, {}}, "DISC", White};

    // FT-817 AGC, which the status read can follow.
    MenuItem mnuFT817AGCmonitor{"&AGC monitor"};
    std::array<OptionButton, 4> optFT817AGC{};

    // FT-920 indicators: the VFO shapes, antenna, dial speed and tuner.
    Colour shpTxVfoA = 0xE0E0E0, shpRxVfoA = 0xE0E0E0, shpTxVfoB = 0xE0E0E0, shpRxVfoB = 0xE0E0E0;
    Label lblAnt{{true, true, {}}, "A"};
    Label lblRXant{{true, false, {}}, "RX ant"};
    Label lblTune{{true, true, {}}, " N O R"};
    CommandButton cmdFT920Tuner{{true, true, {}}, "Tuner", White};

    // FT-450 function lights: green on, white off.
    Label lbl450Tuner{{true, true, {}}, "Tuner", White};
    Label lbl450Att{{true, true, {}}, "ATT", White};
    Label lbl450Ipo{{true, true, {}}, "IPO", White};
    std::array<Label, 4> lbl450AGC{};

    // Delays: command, S-meter and extra delay in milliseconds.
    CheckBox chkSliders{{true, true, " Show/hide the delay sliders "}, "Delays"};
    Slider sldCMDdelay{{true, false, {}}, 0, 0, 500};
    Slider sldSmeterDelay{{true, false, {}}, 50, 0, 500};
    Slider sldExtra{{true, false, {}}, 250, 0, 1000};
    Label lblCmdDelay{{true, false, {}}, "CMD delay"};
    Label lblAGCdelay{{true, false, {}}, "S-meter delay"};
    Label lblExtra{{true, false, {}}, "Extra delay"};

    // Transmit and scan controls that a connection enables.
    CommandButton cmdStartStopScan{{false, true, {}}, "Start Scan"};
    CommandButton cmdScanMemOrBank{{true, true, " Scan Memory, current Bank or Grid "}, "Scan Bnk"};
    CheckBox chkTransmitEnable{{false, true, {}}, "TX enable"};
    CheckBox chkSplit{{false, true, {}}, "Split"};

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

    // Transverter and the large GoTo box.
    std::array<OptionButton, 2> optXvtr{};
    TextBox txtGoToFreq;
    TextBox txtShowLargeGoTo{{true, false, {}}, {}};

    // Repeater shift buttons: the one the rig reports is pale green.
    CommandButton cmdShiftMinus{{true, true, {}}, "-"};
    CommandButton cmdShiftSimplex{{true, true, {}}, "S"};
    CommandButton cmdShiftPlus{{true, true, {}}, "+"};

    // Mode buttons; member 6 doubles as the FT-847's narrow and the FT-920's wide/narrow
    // button.
    std::array<CommandButton, 12> Command2{};
    Label lblNarrow{{true, false, {}}, "N"};

    // Tone: the rig's list, encoder and decoder lights and the tone in use.
    ComboBox cboCTCSS{{true, true, " CTCSS tone "}, {}, -1};
    Label lblEnc{{true, true, " CTCSS encoder "}, "Enc", White};
    Label lblDec{{true, true, " CTCSS decoder "}, "Dec", White};
    Label lblCTCSSFreq{{true, true, " CTCSS tone frequency "}, "Freq"};

    // Transmit.
    CommandButton cmdTxRx{{false, true, " Transmit / receive "}, "tx/RX", White};
    CommandButton cmd450Tune{{false, true, " Start the antenna tuner "}, "Tune"};

    // VFO buttons and the meters panel button.
    CommandButton cmdVFOtoggle{{true, false, " Swap VFO A and B "}, "VFO A/B"};
    CommandButton cmdVFOSEqual{{true, false, " Copy this VFO to the other "}, "VFO A=B"};
    CommandButton cmdVFOBOff{{true, false, " Switch the sub receiver off "}, "VFOB Off"};
    CommandButton cmdMeters{{true, false, " Show the meters panel "}, "Meters"};
    CommandButton cmdFT920StartTune{{true, true, {}}, "Start Tune"};
    CheckBox chkShowDSP{{true, false, " Show the DSP panel "}, "showDSP"};

    // The model frames; one at most is shown, by the rig in use.
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
    // VR-5000 step options of the four mode groups.
    std::array<OptionButton, 5> optLSBUSB{};
    std::array<OptionButton, 9> optAM{};
    std::array<OptionButton, 9> optFMN{};
    std::array<OptionButton, 4> optWFM{};

    // FT-1000MP filter buttons of the 8.2 MHz and 455 kHz stages.
    std::array<CommandButton, 5> cmdFT1000MP_Filter_82{};
    std::array<CommandButton, 5> cmdFT1000MP_Filter_455{};

    // Menus whose ticks the start-up sets.
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

// The connection controls: switched on and off together with the link.
template <typename F>
void ForEachConnectionControl(Form1& f, F&& fn) {
    fn(f.chkSplit);
    for (CommandButton* b : {&f.cmdFT897Processor, &f.cmdFT897NoiseBlanker, &f.cmdFT897DNF,
                             &f.cmdFT897DNR, &f.cmdFT897DBF, &f.cmdFT897Fast, &f.cmdFT897Lock,
                             &f.cmdFT857Processor, &f.cmdFT857NoiseBlanker, &f.cmdFT857DNF,
                             &f.cmdFT857DNR, &f.cmdFT857DBF, &f.cmdFT857Fast, &f.cmdFT857Lock})
        fn(*b);
}

// The FT-450 DSP panel: its lights and sliders, which the requests read.
struct Frm450DSP {
    Label lbl450Mode{{true, true, " Current operating mode "}, "Mode"};
    Label lblSqlRFGain{{true, true, " Click to change state "}, "SQL or RF Gain"};
    Label lbl450NoiseBlanker{{true, true, " Click to change state "}, "Noise Blanker", White};
    Label lbl450NoiseReduction{{true, true, " Click to change state "}, "Noise reduction", White};
    Label lbl450Notch{{true, true, " Click to change state "}, {}, White};
    Slider sldNoiseReduction{{true, true, " Drag slider to change algorithm "}, 1, 1, 11};
    Slider sldNotch{{true, true, {}}, 1, 1, 400};
    Slider sldAFGain{{true, true, " Click to change state "}, 0, 0, 255};
    Slider sldRFGain{{true, true, " Click to change state "}, 0, 0, 255};
    Slider sldFilter{{true, true, {}}, 2, 1, 3};
    std::array<Label, 6> lblContour{};      // 1..5
    std::array<Label, 6> lblContourFreq{};  // 1..5
};

// The meters panel's VFO B display, filled by the FT-920's second read.
struct FrmMeters {
    Label lblVFOB;
    Label lblModeB;
};

// The rig sharing dialog: whether, and where, other programs reach the rig through Hamlib's
// network rig protocol.
struct FrmRigSharing {
    QString caption = "VELDOR - Rig sharing";
    CheckBox chkRigctldEnabled{
        {true, true, " Let programs such as WSJT-X, fldigi and loggers use the rig "},
        "Share the rig (Hamlib NET rigctl)"};
    TextBox txtRigctldAddress{{true, true, " 127.0.0.1: programs on this computer only "}, {}};
    TextBox txtRigctldPort{{true, true, " TCP port; Hamlib's rigctld uses 4532 "}, {}};
    Label lblRigctldState;
};

// The messages window: the program's running log.
struct FrmErrorList {
    bool visible = false;
    QString caption = "Messages";
    TextBox txtErrors;
};

}  // namespace veldor
