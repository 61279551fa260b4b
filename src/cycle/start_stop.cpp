#include "cycle/start_stop.h"

#include <QDir>

#include "basic/basic.h"
#include "grid/grid.h"
#include "link/catalogue.h"
#include "link/serial_link.h"
#include "memories/scan_ranges.h"
#include "protocol/read_frequency.h"
#include "shell/customise.h"
#include "shell/screen_size.h"
#include "shell/settings_dialog.h"
#include "tuning/go_to.h"

namespace veldor {

namespace {

bool LongJobRunning(const State& s) {
    return s.Transmitting || s.SpectrumRunning || s.ScanRunning;
}

void EnableConnectionControls(Core& c, bool on) {
    ForEachConnectionControl(c.f, [on](Control& control) { control.enabled = on; });
}

void SaveSettingsKey(Core& c, const QString& key, const QString& value) {
    SaveSetting(c, c.s.AppName, "Settings", key, value);
}

}  // namespace

void Form_Load(Core& c, const QString& commandLine) {
    State& s = c.s;
    // The manual stands beside the program in the build, and under share/doc when installed.
    const QString folder = c.p.system->programFolder();
    s.HelpFile = c.p.system->directoryExists(folder + "/manual")
                     ? folder + "/manual/index.html"
                     : QDir::cleanPath(folder + "/../share/doc/veldor/manual/index.html");
    // One installation, several independent configurations: "/CONFIG=name" selects a store.
    s.AppName = "VELDOR";
    s.ConfigName.clear();
    const QString line = commandLine.trimmed().toUpper();
    const bool configGiven = line.left(8) == "/CONFIG=";
    if (configGiven) {
        s.ConfigName = line.mid(8);
        s.AppName = "VELDOR_" + s.ConfigName;
    }
    InitialiseVariables(c);

    s.ProgramVersion = QString("V%1.%2.%3")
                           .arg(VELDOR_VERSION_MAJOR)
                           .arg(VELDOR_VERSION_MINOR)
                           .arg(VELDOR_VERSION_REVISION);
    c.f.caption = s.ProgramVersion + " " + s.AppName + " ";
    if (configGiven) c.f.caption += "  " + s.ConfigName;
    if (!SetScreenSize(c)) return;
    CustomiseForms(c);

    // Placement: a position stored on a larger screen, or a negative one, starts at 0, 0.
    const int top = basic::CLng(basic::Val(GetSetting(c, s.AppName, "Settings", "MainTop", "10")));
    const int left =
        basic::CLng(basic::Val(GetSetting(c, s.AppName, "Settings", "MainLeft", "10")));
    if (top < 0 || left < 0 || left + c.f.width > c.p.system->screenWidthTwips() ||
        top + c.f.height > c.p.system->screenHeightTwips()) {
        c.f.top = 0;
        c.f.left = 0;
    } else {
        c.f.top = top;
        c.f.left = left;
    }

    if (s.AutoStart == "Yes" && s.RigType != RigNotSet) SetChkOnOff(c, 1);

    LoadLargeGoTo(c);

    if (s.HomeDir.isEmpty()) ChooseHomeDir(c);
}

void ChooseHomeDir(Core& c) {
    const QString folder =
        c.p.dialogs->browseForFolder("Choose a folder to use for storing memory and .CSV files");
    if (folder.isEmpty()) return;
    c.s.HomeDir = folder;
    SaveSettingsKey(c, "HomeDir", folder);
}

void SetChkOnOff(Core& c, int value) {
    if (c.f.chkOnOff.value == value) return;
    c.f.chkOnOff.value = value;
    chkOnOff_Click(c);
}

void chkOnOff_Click(Core& c) {
    State& s = c.s;
    Form1& f = c.f;
    // A long job holds the connection: the tick mark comes back.
    if (LongJobRunning(s)) {
        SetChkOnOff(c, 1);
        return;
    }
    s.FrequencyChangePending = false;
    s.PortLost = false;
    s.TextTimeoutsInRow = 0;
    if (f.chkOnOff.value == 1) {
        s.OutOfStepNoted = false;
        if (s.RigType == RigNotSet) {
            Form_DblClick(c);
            SetChkOnOff(c, 0);
            f.chkOnOff.backColour = White;
            return;
        }
        OpenPorts(c, s.CommPort, s.CommSpeed);
        if (!c.p.MSComm1->isOpen()) {
            SetChkOnOff(c, 0);
            return;
        }
        TakeControl(c);
        f.chkOnOff.backColour = Red;
        f.cmdStartStopScan.enabled = true;
        f.chkTransmitEnable.enabled = true;
        ReadFrequencyAndMode(c);
        if (s.RigType == RigVR5000) GoToVr5000LastFreqMode(c);
        EnableConnectionControls(c, true);
    } else {
        ReleaseControl(c);
        f.chkOnOff.backColour = White;
        f.lblTimeoutCount.caption = "0";
        f.lblTimeoutCount.backColour = ButtonFace;
        f.cmdStartStopScan.enabled = false;
        f.chkTransmitEnable.enabled = false;
        f.pbarSmeter.value = 0;
        if (c.p.MSComm1->isOpen()) c.p.MSComm1->close();
        if (c.p.PttComPort->isOpen()) c.p.PttComPort->close();
        EnableConnectionControls(c, false);
    }
}

void TakeControl(Core& c) {
    State& s = c.s;
    // This also runs after the port was reopened, so the lines are set again.
    c.p.MSComm1->setRts(s.RaiseRTS == "Y");
    c.p.MSComm1->setDtr(s.RaiseDTR == "Y");
    s.ReplyTimedOut = false;
    PutParameters(c);

    if (s.RigType == RigFT847) {
        SendCommand(c, 0x00);  // CAT on
    } else if (s.RigType == RigVR5000) {
        s.CommandBytes[3] = 0;
        SendCommand(c, 0x00);
    } else if (s.RigType == RigFRG100) {
        SendCommand(c, 0x05);
        s.CommandBytes[3] = 2;  // P4 = 2, the other parameters as they were
        SendCommand(c, 0x0E);
        if (s.AutoPowerOff == "Y") {
            PutParameters(c);
            s.CommandBytes[3] = 1;
            SendCommand(c, 0x20);  // power on
        }
    } else if (s.RigType == RigFT450) {
        s.TextResyncNeeded = true;
        SendText(c, "AI0;");  // no auto information
        SendText(c, "ID;");
        if (!ReceiveData(c)) {
            ReportMessage(c,
                          "TakeControl: no communication with radio - check cabling and Com setup");
            return;
        }
        const QString id = s.TextReply.mid(2, 4);
        if (id != "0241" && id != "0244") {
            ReportMessage(c, "TakeControl: FT-450 not recognised - check cabling and Com setup");
            ReportMessage(c, "TakeControl: ID received was " + id);
            return;
        }
        SendText(c, "VS0;");  // VFO A
        s.VfoLetter = "A";
        c.f.lblRigMode.caption = "VFO A";
    }
    SaveSetting(c, s.AppName, "CurrentValues", "Status", "Active");
    c.p.tmrPollInterval->setEnabled(true);
}

void RecoverLink(Core& c) {
    State& s = c.s;
    SerialPort& port = *c.p.MSComm1;
    // Quietly: while the device is away this runs at every tick.
    OpenPorts(c, s.CommPort, s.CommSpeed, true);
    if (!port.isOpen()) {
        if (s.PortLost) return;
        s.PortLost = true;
        ReportMessage(c, "COM Port " + s.CommPort +
                             " has gone away (the device was unplugged or failed). VELDOR "
                             "will take the rig again when it is back.");
        SaveSetting(c, s.AppName, "CurrentValues", "Status", "InActive");
        return;
    }
    if (s.PortLost) {
        s.PortLost = false;
        ReportMessage(c, "COM Port " + s.CommPort + " is back: taking the rig again.");
    }
    s.TextTimeoutsInRow = 0;
    TakeControl(c);
}

void ReleaseControl(Core& c) {
    State& s = c.s;
    c.p.tmrPollInterval->setEnabled(false);
    PutParameters(c);
    if (s.RigType == RigFT847) {
        SendCommand(c, 0x80);  // CAT off
    } else if (s.RigType == RigVR5000) {
        SendCommand(c, 0x80);
    } else if (s.RigType == RigFRG100 && s.AutoPowerOff == "Y") {
        s.CommandBytes[3] = 0;
        SendCommand(c, 0x20);  // power off
    }
    SaveSetting(c, s.AppName, "CurrentValues", "Status", "InActive");
}

void SaveCurrentValues(Core& c, const QString& frequency, const QString& mode) {
    const QString app = c.s.AppName;
    const QDateTime now = c.p.clock->localNow();
    // One write of the store for the record, and none when nothing in it changed.
    SaveSettings(c, app, "CurrentValues",
                 {{"Frequency", frequency},
                  {"Mode", mode},
                  {"Date", now.toString("yyyy/MM/dd")},
                  {"Time", now.toString("HH:mm:ss")},
                  {"RigType", c.s.RigType},
                  {"GotSignal", c.s.SignalPresent ? "True" : "False"}});
}

void Form_DblClick(Core& c) {
    if (LongJobRunning(c.s)) return;
    c.s.SettingsRequested = false;
    frmSettings_Load(c);
    c.p.windows->show(FormId::frmSettings, true);
    // The dialog has closed: the main window takes the size it was given.
    if (c.s.ScreenSizeChanged) SetScreenSize(c);
}

void Form_Unload(Core& c) {
    State& s = c.s;
    // Closing during a long job is ignored: the job keeps the rig.
    if (LongJobRunning(s)) return;
    c.p.tmrPollInterval->setEnabled(false);
    // The grid window saves its grid and placement as it unloads.
    if (s.MemoryGridLoaded) {
        frmCsvMem_Unload(c);
        if (c.p.windows) c.p.windows->close(FormId::frmCsvMem);
    }
    ReleaseControl(c);
    if (c.p.MSComm1->isOpen()) c.p.MSComm1->close();
    if (c.p.PttComPort->isOpen()) c.p.PttComPort->close();
    // The process ends once the event loop is reached again. A tick whose wait this unloading
    // came in goes on until then, and must find the link off: its read ends as a timeout, and
    // the recovery would otherwise open the port and take the rig again.
    c.f.chkOnOff.value = 0;
    if (s.RigType != RigNotSet) SaveSettingsKey(c, "RigType", s.RigType);
    SaveSettingsKey(c, "ScreenSize", s.ScreenSize);
    SaveSettingsKey(c, "RescaleFonts", s.RescaleFonts);
    SaveSettingsKey(c, "MainTop", QString::number(c.f.top));
    SaveSettingsKey(c, "MainLeft", QString::number(c.f.left));
    SaveScanRanges(c, 0);
    SaveSettingsKey(c, "GotSignal", QString::number(c.f.pbarGotSignal.value));
    c.p.system->endProcess();
}

void mnuExit_Click(Core& c) {
    Form_Unload(c);
}

}  // namespace veldor
