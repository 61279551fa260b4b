#include "shell/settings_dialog.h"

#include "basic/basic.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "link/serial_link.h"
#include "memories/shift_options.h"
#include "protocol/read_frequency.h"
#include "shell/customise.h"
#include "shell/screen_size.h"
#include "tuning/bands.h"
#include "tuning/delays.h"

namespace veldor {

namespace {

const QStringList kRigTypes = {RigNotSet, RigFT450,    RigFT817, RigFT817ND, RigFT847,
                               RigFT857,  RigFT857D,   RigFT897, RigFT897D,  RigFT920,
                               RigFRG100, RigFT1000MP, RigVR5000};
const QStringList kCommSpeeds = {"4800,N,8,2", "9600,N,8,2", "19200,N,8,2", "38400,N,8,2",
                                 "57600,N,8,2"};
const QStringList kScreenSizes = {"Small", "Medium", "Large", "None"};
const QStringList kYesNo = {"Yes", "No"};

// Which speeds each rig refuses, by the first five characters of the speed text.
struct SpeedRule {
    QStringList rigs;
    QStringList refused;
    bool forced4800;
};
const SpeedRule kSpeedRules[] = {
    {{RigFT817, RigFT817ND, RigFT857, RigFT857D, RigFT897, RigFT897D}, {"57600", "19200"}, false},
    {{RigFT847, RigVR5000}, {"38400", "19200"}, false},
    {{RigFT450}, {"57600"}, false},
    {{RigFRG100, RigFT920, RigFT1000MP}, {}, true},
    {{RigNotSet}, {}, false},
};

QStringList Numbers1To16() {
    QStringList list;
    for (int n = 1; n <= 16; ++n) list << QString::number(n);
    return list;
}

// Chooses the item with the text; a text not in the list is shown as the box's own.
void Choose(ComboBox& box, const QString& text) {
    box.listIndex = box.list.indexOf(text);
    box.text = box.listIndex < 0 ? text : QString();
}

// A port list with the stored port in it, wherever it leads.
void ChoosePort(ComboBox& box, const QString& port) {
    if (!port.isEmpty() && !box.list.contains(port)) box.list << port;
    Choose(box, port);
}

void SaveKey(Core& c, const QString& key, const QString& value) {
    SaveSetting(c, c.s.AppName, "Settings", key, value);
}

void InvalidNumber(Core& c, const QString& text) {
    c.p.dialogs->messageBox(text, "Invalid number", MsgButtons::OK, MsgIcon::Exclamation);
}

// The offset in whole kHz of an offset text in MHz with the system's decimal mark.
QString OffsetKilohertz(const Core& c, const QString& megahertz) {
    const QString text = QString(megahertz).replace(c.s.DecimalSeparator, ".");
    return QString::number(basic::CLng(basic::Val(text) * 1000));
}

void CloseDialog(Core& c) {
    frmSettings_Unload(c);
    c.p.windows->close(FormId::frmSettings);
}

}  // namespace

SpeedCheck CheckCommSpeed(const QString& rig, const QString& speed) {
    for (const SpeedRule& rule : kSpeedRules) {
        if (!rule.rigs.contains(rig)) continue;
        if (rule.forced4800) return SpeedCheck::Forced4800;
        return rule.refused.contains(speed.left(5)) ? SpeedCheck::Refused : SpeedCheck::Accepted;
    }
    return SpeedCheck::Unsupported;
}

QString WithTwoStopBits(const QString& speed) {
    if (speed.isEmpty()) return speed;
    return speed.left(speed.size() - 1) + "2";
}

QStringList CommPortList(Core& c, QStringList* descriptions) {
    QStringList names = Numbers1To16();
    QStringList texts(names.size());
    for (const auto& [name, description] : c.p.system->serialPorts()) {
        names << name;
        texts << description;
    }
    names << "SIM";
    texts << "The built-in simulated rig of the chosen type";
    if (descriptions) *descriptions = texts;
    return names;
}

void frmSettings_Load(Core& c) {
    State& s = c.s;
    FrmSettings& d = c.frmSettings = FrmSettings{};
    c.p.tmrPollInterval->setEnabled(false);
    s.ScreenSizeChanged = false;

    for (int i = 0; i < 6; ++i) {
        d.txtBank[i].text = c.f.cmdBankNumber[i].caption;
        d.txtBank[i].toolTip = " Name on bank change button face ";
    }

    d.cboCommPort.list = CommPortList(c, &d.portDescriptions);
    ChoosePort(d.cboCommPort, s.CommPort);
    d.cboExtraPttPort.list = Numbers1To16();
    for (const auto& port : c.p.system->serialPorts()) d.cboExtraPttPort.list << port.first;
    ChoosePort(d.cboExtraPttPort, GetSetting(c, s.AppName, "Settings", "ExtraPttPort", "3"));
    d.chkExtraPttPortEnabled.value =
        basic::BooleanText(GetSetting(c, s.AppName, "Settings", "ExtraPttPortEnabled", "False"));
    for (int k = 0; k < 3; ++k) d.optExtraPttPort[k].value = s.ExtraPttPortPins == k;

    d.cboRigType.list = kRigTypes;
    Choose(d.cboRigType, s.RigType);
    d.cboCommSpeed.list = kCommSpeeds;
    Choose(d.cboCommSpeed, s.CommSpeed);
    d.cboScreenSize.list = kScreenSizes;
    Choose(d.cboScreenSize, s.ScreenSize);
    d.cboFontScale.list = kYesNo;
    Choose(d.cboFontScale, s.RescaleFonts);

    d.chkAutoMemoryGrid.value =
        basic::BooleanText(GetSetting(c, s.AppName, "Settings", "AutoMemoryGrid", "False"));
    d.chkAutoStart.value = s.AutoStart == "Yes" ? 1 : 0;
    d.chkAutoPowerOff.value = s.AutoPowerOff == "Y" ? 1 : 0;
    d.chkClearBuffer.value = s.ClearBuffer == "Y" ? 1 : 0;

    // These rigs take no repeater details from a band button.
    if (s.RigType == RigFT1000MP || s.RigType == RigVR5000 || s.RigType == RigFRG100)
        d.Frame4.enabled = false;
    d.cboBandNumber.list = Numbers1To16().mid(0, 13);
    d.cboMode.list = ModeList();
    if (s.RigType != RigFT1000MP) d.cboCTCSS.list = RigToneList(s.RigType);
}

void frmSettings_Unload(Core& c) {
    if (c.f.chkOnOff.value == 1 && c.s.RigType != RigNotSet) c.p.tmrPollInterval->setEnabled(true);
}

void frmSettings_cboScreenSize_Click(Core& c) {
    c.s.ScreenSizeChanged = true;
}

void frmSettings_chkAutoStart_Click(Core& c) {
    c.s.AutoStart = c.frmSettings.chkAutoStart.value == 1 ? "Yes" : "No";
}

void frmSettings_chkClearBuffer_Click(Core& c) {
    c.s.ClearBuffer = c.frmSettings.chkClearBuffer.value == 1 ? "Y" : "N";
}

void frmSettings_cmdSetFiles_Click(Core& c) {
    ChooseHomeDir(c);
}

void frmSettings_cmdGetZantikoSettings_Click(Core& c) {
    const QString& app = c.s.AppName;
    // A "/CONFIG=" instance takes the older program's configuration of the same name.
    const QString source = "Zantiko" + (app.size() > 6 ? app.mid(6) : QString());
    if (GetSetting(c, source, "Bands", "Band1EncDec", "Missing") == "Missing") return;
    // They take effect at the next start: the running program does not read them again.
    for (const char* section : {"Bands", "Banks", "CurrentValues", "Scanner", "Settings"})
        SaveSettings(c, app, section, GetAllSettings(c, source, section));
}

void frmSettings_cboBandNumber_Click(Core& c) {
    const State& s = c.s;
    FrmSettings& d = c.frmSettings;
    const int row = d.cboBandNumber.listIndex;
    if (row < 0 || row > 12) return;
    d.txtFreq.text = s.BandFreq[row];
    d.txtBandName.text = s.BandName[row];
    Choose(d.cboMode, s.BandMode[row]);
    const int tone = basic::CLng(basic::Val(s.BandCTCSS[row]));
    d.cboCTCSS.listIndex = tone >= 0 && tone < d.cboCTCSS.list.size() ? tone : -1;
    d.chkEnc.value = s.BandEncDec[row].left(1) == "1" ? 1 : 0;
    d.chkDec.value = s.BandEncDec[row].mid(1, 1) == "1" ? 1 : 0;
    ShowShiftOption(d.optRepeaterShift, s.BandShift[row]);
    d.txtOffset.text = s.BandRepeaterOffset[row];
}

bool frmSettings_txtFreq_LostFocus(Core& c) {
    FrmSettings& d = c.frmSettings;
    const QString text = d.txtFreq.text.trimmed();
    if (text.isEmpty()) return false;
    if (text == "0") {
        d.txtFreq.text = "Empty";
        return false;
    }
    if (!basic::IsNumeric(text)) {
        InvalidNumber(c,
                      "You have entered a non numeric value for the Band frequency - please retry");
        return true;
    }
    const int32_t frequency = ParseFrequency(c, text, true);
    if (!CheckFrequencyRange(c, frequency)) {
        InvalidNumber(
            c, "You have entered a Band frequency outside the range of the rig - please retry");
        return true;
    }
    d.txtFreq.text = FormatFrequencyShort(c, frequency);
    d.txtOffset.text = OffsetKilohertz(c, DefaultRepeaterOffset(c, frequency));
    return false;
}

void frmSettings_cmdAccept_Click(Core& c) {
    State& s = c.s;
    FrmSettings& d = c.frmSettings;
    // Encoder and decoder are never stored together.
    if (d.chkDec.value == 1) d.chkEnc.value = 0;
    const int row = d.cboBandNumber.listIndex;
    if (row < 0 || row > 12) return;
    s.BandName[row] = d.txtBandName.text.trimmed();
    s.BandFreq[row] = d.txtFreq.text.trimmed();
    s.BandMode[row] = ComboText(d.cboMode).trimmed();
    s.BandCTCSS[row] = QString::number(std::max(d.cboCTCSS.listIndex, 0));
    s.BandEncDec[row] = QString::number(d.chkEnc.value) + QString::number(d.chkDec.value);
    s.BandShift[row] = ShiftOfOptions(d.optRepeaterShift);
    s.BandRepeaterOffset[row] = d.txtOffset.text;
    c.f.cmdBand[row].caption = s.BandName[row];
}

// Deliberate: for all its caption, this drops every band edit not yet saved and clears nothing.
void frmSettings_cmdReset_Click(Core& c) {
    LoadBands(c);
    ShowBandCaptions(c);
    frmSettings_cboBandNumber_Click(c);
}

void frmSettings_cmdOK_Click(Core& c) {
    State& s = c.s;
    FrmSettings& d = c.frmSettings;
    frmSettings_cmdAccept_Click(c);
    QList<QPair<QString, QString>> names;
    for (int i = 0; i < 6; ++i) {
        c.f.cmdBankNumber[i].caption = d.txtBank[i].text;
        names.append({QString("Bank%1Name").arg(i + 1), d.txtBank[i].text});
    }
    SaveSettings(c, s.AppName, s.BankSection, names);
    SaveBands(c);

    // The rig takes the box's text before the speed is checked, and keeps it if it is refused.
    const QString previousRig = s.RigType;
    s.RigType = ComboText(d.cboRigType);
    switch (CheckCommSpeed(s.RigType, ComboText(d.cboCommSpeed))) {
        case SpeedCheck::Accepted:
            break;
        case SpeedCheck::Forced4800:
            Choose(d.cboCommSpeed, kCommSpeeds[0]);
            break;
        case SpeedCheck::Unsupported:
            c.p.dialogs->messageBox("Rig type not yet supported - changed to Not set", "VELDOR",
                                    MsgButtons::OK, MsgIcon::Exclamation);
            s.RigType = RigNotSet;
            Choose(d.cboRigType, RigNotSet);
            break;
        case SpeedCheck::Refused:
            c.p.dialogs->messageBox("A Comm speed of " + ComboText(d.cboCommSpeed) +
                                        " is not valid for\r\nthe chosen rig. Please choose "
                                        "another speed",
                                    "VELDOR", MsgButtons::OK, MsgIcon::Exclamation);
            return;
    }

    SaveKey(c, "AutoStart", s.AutoStart);
    s.CommPort = ComboText(d.cboCommPort).trimmed();
    // Two stop bits, whatever was chosen: the rigs want them.
    s.CommSpeed = WithTwoStopBits(ComboText(d.cboCommSpeed));
    SaveKey(c, "Commport", s.CommPort);
    SaveKey(c, "CommSpeed", s.CommSpeed);

    s.ExtraPttPort = ComboText(d.cboExtraPttPort).trimmed();
    s.ExtraPttPortEnabled = d.chkExtraPttPortEnabled.value == 1;
    s.ExtraPttPortPins = d.optExtraPttPort[0].value ? 0 : d.optExtraPttPort[1].value ? 1 : 2;
    SaveKey(c, "ExtraPttPort", s.ExtraPttPort);
    SaveKey(c, "ExtraPttPortEnabled", s.ExtraPttPortEnabled ? "True" : "False");
    SaveKey(c, "ExtraPttPortPins", QString::number(s.ExtraPttPortPins));
    OpenPorts(c, s.CommPort, s.CommSpeed);

    s.AutoMemoryGrid = d.chkAutoMemoryGrid.value == 1;
    s.AutoPowerOff = d.chkAutoPowerOff.value == 1 ? "Y" : "N";
    SaveKey(c, "AutoMemoryGrid", s.AutoMemoryGrid ? "True" : "False");
    SaveKey(c, "AutoPowerOff", s.AutoPowerOff);
    SaveKey(c, "ClearBuffer", s.ClearBuffer);

    if (s.RigType != previousRig) {
        // The delays of the new rig; its extra delay starts at nothing.
        s.VR5000Step = 25;
        LoadDelaySliders(c, "0");
        CustomiseForms(c);
    }
    s.ScreenSize = ComboText(d.cboScreenSize);
    s.RescaleFonts = ComboText(d.cboFontScale);

    // A port that could not be opened keeps the dialog, so that another can be tried.
    if (c.p.MSComm1->isOpen()) CloseDialog(c);
}

void frmSettings_cmdCancel_Click(Core& c) {
    c.s.ScreenSizeChanged = false;
    CloseDialog(c);
}

}  // namespace veldor
