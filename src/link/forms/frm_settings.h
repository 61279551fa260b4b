// The settings dialog: rig, ports and speed, window size, start-up options, the extra PTT port,
// the bank names and the band buttons.
#pragma once

#include "link/controls.h"

#include <array>

namespace veldor {

struct FrmSettings {
    QString caption = "VELDOR - Settings";

    // The rig and its link.
    ComboBox cboRigType{{true, true, " Rig type "}};
    ComboBox cboCommSpeed{{true, true, " Comm speed "}};
    // The port names offered; the description the system gives of each, "" where it gives none.
    ComboBox cboCommPort{{true, true, " Comm port number "}};
    QStringList portDescriptions;
    ComboBox cboScreenSize{{true, true, " Window size "}};
    ComboBox cboFontScale{{true, true, " Scale fonts according to window size "}};

    // The extra PTT port, keyed by its DTR or RTS line or both.
    ComboBox cboExtraPttPort{{true, true, " Comm port number "}};
    CheckBox chkExtraPttPortEnabled{{}, "Enable"};
    std::array<OptionButton, 3> optExtraPttPort{{{{}, "DTR"}, {{}, "RTS"}, {{}, "Both"}}};

    CheckBox chkAutoStart{{true, true, " Automatically start talking to the rig at program start "},
                          "Auto start"};
    // The tool tip is the start-up one as well: the program has always shown it so.
    CheckBox chkAutoMemoryGrid{
        {true, true, " Automatically start talking to the rig at program start "},
        "Auto open Memory Grid"};
    CheckBox chkAutoPowerOff{{true, true, " Automatically power off (FRG-100 only) "},
                             "Auto power off"};
    CheckBox chkClearBuffer{{true, true, " Only used as a diagnostic aid. Normally un-ticked. "},
                            "Clear Buffer"};
    // Nothing reads this box: it has no effect, and it stays so.
    CheckBox chkAllowAnyFrequency{{}, "Allow any frequency"};
    CommandButton cmdSetFiles{{}, "Set files location"};
    CommandButton cmdGetZantikoSettings{{true, true, " Retrieve Zantiko registry settings "},
                                        "Retrieve"};
    Label lblZantiko{{}, "Zantiko settings"};

    std::array<TextBox, 6> txtBank{};

    // The band editor: one row of the band table at a time.
    Frame frmBankAndMemory{{}, "Band buttons"};
    ComboBox cboBandNumber;
    TextBox txtBandName;
    TextBox txtFreq;  // MHz, or "Empty"
    ComboBox cboMode;
    Frame Frame3{{}, "CTCSS"};
    ComboBox cboCTCSS;
    CheckBox chkEnc{{}, "Enc"};
    CheckBox chkDec{{}, "Dec"};
    Frame Frame4{{}, "Repeater shift"};
    std::array<OptionButton, 3> optRepeaterShift{
        {{{}, "Simplex", true}, {{}, "Minus"}, {{}, "Plus"}}};
    TextBox txtOffset;  // kHz
    CommandButton cmdAccept{{}, "&Set Band"};
    CommandButton cmdReset{{true, true, " Clear the definition of the band number "},
                           "Clear &Band"};

    CommandButton cmdOK{{}, "OK"};
    CommandButton cmdCancel{{}, "Cancel"};
};

}  // namespace veldor
