#include "shell/customise.h"

#include <exception>

#include "link/catalogue.h"

namespace veldor {

namespace {

void ShowMode(Form1& f, int index, const QString& caption) {
    f.Command2[index].visible = true;
    f.Command2[index].caption = caption;
}

void ShowButtons(std::initializer_list<Control*> controls) {
    for (Control* control : controls) control->visible = true;
}

// The tone-match and discriminator lights of the FT-8 family.
void ToneLights(Form1& f) {
    f.lblDISC.toolTip = "Discriminator centred";
    f.lblDISC.caption = "DISC";
    f.lblDCS.toolTip = "CTCSS/DCS code matched";
    f.lblDCS.caption = "DCS";
}

// The FT-817, FT-857 and FT-897 rows share all but their frame and the extra mode button.
void Ft8Row(Form1& f, Frame& frame, Label& rigName, const QString& rig) {
    frame.visible = true;
    ShowButtons({&f.cmdShiftMinus, &f.cmdShiftPlus, &f.cmdShiftSimplex, &f.chkSplit,
                 &f.cmdVFOtoggle, &f.cmdVFOSEqual});
    ShowMode(f, 6, "DIG");
    f.Command2[6].toolTip.clear();
    ShowMode(f, 7, "PKT");
    rigName.caption = rig;
    ToneLights(f);
}

void Customise(Core& c) {
    Form1& f = c.f;
    const QString& rig = c.s.RigType;
    f.chkOnOff.toolTip = " " + rig + " ";

    // The common state.
    for (Control* control :
         {static_cast<Control*>(&f.cmdShiftMinus), static_cast<Control*>(&f.cmdShiftPlus),
          static_cast<Control*>(&f.cmdShiftSimplex), static_cast<Control*>(&f.cmdVFOtoggle),
          static_cast<Control*>(&f.cmdVFOSEqual), static_cast<Control*>(&f.cmdVFOBOff),
          static_cast<Control*>(&f.chkSplit), static_cast<Control*>(&f.cmdMeters)})
        control->visible = false;
    f.chkTransmitEnable.enabled = true;
    f.cmdTxRx.enabled = false;
    static const char* const kCommon[] = {"LSB", "USB", "CW", "FM", "AM", "CW(R)"};
    for (int i = 0; i < 6; ++i) ShowMode(f, i, kCommon[i]);
    f.Command2[6].caption = "Narrow";
    f.Command2[6].toolTip = "Add Narrow to selected mode";
    f.Command2[7].caption = "PKT(L)";
    for (int i = 6; i < 12; ++i) f.Command2[i].visible = false;
    for (Frame* frame : {&f.frmFRG100, &f.frmFT450, &f.frmFT1000MP, &f.frmFT817, &f.frmFT897,
                         &f.frmFT857, &f.frmFT847, &f.frmVR5000LSB, &f.frmVR5000AM, &f.frmVR5000WFM,
                         &f.frmVR5000FMN, &f.frmFT920})
        frame->visible = false;
    f.mnuFT817AGCmonitor.visible = false;
    f.chkShowDSP.visible = false;

    if (rig == RigFT920) {
        f.frmFT920.visible = true;
        ShowButtons({&f.cmdVFOtoggle, &f.cmdVFOSEqual, &f.cmdShiftMinus, &f.cmdShiftPlus,
                     &f.cmdShiftSimplex, &f.chkSplit, &f.cmdMeters});
        ShowMode(f, 3, "CW(R)");
        ShowMode(f, 4, "FM");
        ShowMode(f, 5, "FMN");
        f.Command2[6].visible = true;
        ShowMode(f, 7, "AM");
        ShowMode(f, 8, "PKT(F)");
        ShowMode(f, 9, "RTY(U)");
        ShowMode(f, 10, "RTY(L)");
    } else if (rig == RigFT1000MP) {
        f.frmFT1000MP.visible = true;
        ShowButtons({&f.cmdVFOtoggle, &f.cmdVFOSEqual, &f.chkSplit});
        ShowMode(f, 7, "PKT(L)");
        ShowMode(f, 8, "PKT(F)");
        ShowMode(f, 9, "RTY(U)");
        ShowMode(f, 10, "RTY(L)");
        ShowMode(f, 11, "AM(S)");
    } else if (IsFt857(rig)) {
        Ft8Row(f, f.frmFT857, f.Label18, rig);
        ShowMode(f, 8, "FMN");
    } else if (IsFt897(rig)) {
        Ft8Row(f, f.frmFT897, f.Label14, rig);
        ShowMode(f, 8, "FMN");
    } else if (IsFt817(rig)) {
        Ft8Row(f, f.frmFT817, f.lblFT817, rig);
        f.mnuFT817AGCmonitor.visible = true;
    } else if (rig == RigFT847) {
        f.frmFT847.visible = true;
        ShowButtons({&f.cmdShiftMinus, &f.cmdShiftPlus, &f.cmdShiftSimplex, &f.chkSplit});
        ToneLights(f);
    } else if (rig == RigVR5000) {
        f.frmVR5000FMN.visible = true;
        ShowButtons({&f.cmdVFOtoggle, &f.cmdVFOSEqual});
        static const char* const kVr5000[] = {"LSB",   "WAM", "AM",   "WFM", nullptr, nullptr,
                                              nullptr, "USB", "AM-N", "CW",  "FM-N"};
        for (int i = 0; i < 11; ++i) {
            if (kVr5000[i])
                ShowMode(f, i, kVr5000[i]);
            else
                f.Command2[i].visible = false;
        }
        f.chkTransmitEnable.enabled = false;
        f.cmdTxRx.enabled = false;
    } else if (rig == RigFRG100) {
        f.frmFRG100.visible = true;
        ShowMode(f, 5, "CW-N");
        ShowMode(f, 6, "AMN");
        f.Command2[6].toolTip.clear();
        f.chkTransmitEnable.enabled = false;
        f.cmdTxRx.enabled = false;
        f.lblDISC.toolTip = "Not assigned";
        f.lblDISC.caption.clear();
        f.lblDCS.toolTip = "Not assigned";
        f.lblDCS.caption.clear();
    } else if (rig == RigFT450) {
        f.frmFT450.visible = true;
        f.chkShowDSP.visible = true;
        ShowButtons({&f.cmdShiftMinus, &f.cmdShiftPlus, &f.cmdShiftSimplex, &f.cmdVFOtoggle,
                     &f.cmdVFOSEqual});
        ShowMode(f, 5, "RTYL");
        ShowMode(f, 6, "CWR");
        f.Command2[6].toolTip.clear();
        ShowMode(f, 7, "USRL");
        ShowMode(f, 8, "RTYU");
        ShowMode(f, 9, "FMN");
        ShowMode(f, 10, "USRU");
        f.lblDISC.toolTip = "SWR";
        f.lblDISC.caption = "SWR";
        f.lblDCS.toolTip = "Final transistor temperature";
        f.lblDCS.caption = "TEMP";
    } else {
        ToneLights(f);
    }

    f.cboCTCSS.list = RigToneList(rig);
    f.cboCTCSS.listIndex = -1;
}

}  // namespace

void CustomiseForms(Core& c) {
    try {
        Customise(c);
    } catch (const std::exception&) {
        // A failure here leaves the window as far as it got.
    }
}

}  // namespace veldor
