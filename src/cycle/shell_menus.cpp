#include "cycle/shell_menus.h"

#include "convert/convert.h"
#include "cycle/start_stop.h"
#include "grid/grid.h"
#include "shell/about.h"

namespace veldor {

namespace {

bool LongJobRunning(const State& s) {
    return s.Transmitting || s.SpectrumRunning || s.ScanRunning;
}

}  // namespace

void mnuSettings_Click(Core& c) {
    if (LongJobRunning(c.s)) return;
    // Between two exchanges with the rig: the dialog changes what the poll uses.
    if (c.f.chkOnOff.value == 0 || c.s.RigType == "Not set")
        Form_DblClick(c);
    else
        c.s.SettingsRequested = true;
}

void mnuConvert_Click(Core& c) {
    if (LongJobRunning(c.s)) return;
    if (c.f.chkOnOff.value == 0)
        OpenConvert(c);
    else
        c.s.PendingConvert = true;
}

void OpenConvert(Core& c) {
    c.s.PendingConvert = false;
    ReleaseControl(c);
    ReportMessage(c, "Messages from the Convert routine");
    frmConvert_Load(c);
    c.p.windows->show(FormId::frmConvert, true);
    if (c.f.chkOnOff.value == 1) TakeControl(c);
}

void mnuResetMemoryGridPosition_Click(Core& c) {
    // An open grid window is closed first, keeping its rows, and opened again at the new place.
    const bool shown = c.p.windows->shown(FormId::frmCsvMem);
    if (shown) c.p.windows->close(FormId::frmCsvMem);
    const QString& app = c.s.AppName;
    SaveSetting(c, app, "Settings", "MemoryTop", "0");
    SaveSetting(c, app, "Settings", "MemoryLeft", "0");
    SaveSetting(c, app, "Settings", "MemoryHeight", "6000");
    SaveSetting(c, app, "Settings", "MemoryWidth", "10000");
    FrmCsvMem& grid = c.frmCsvMem;
    grid.top = 0;
    grid.left = 0;
    grid.height = 6000;
    grid.width = 10000;
    if (shown) ShowGridWindow(c);
}

void mnuHelp_Click(Core& c) {
    // Failures are ignored: no manual, or nothing to show it with, and nothing happens.
    c.p.system->openDocument(c.s.HelpFile);
}

void mnuAbout_Click(Core& c) {
    frmAbout_Load(c);
    c.p.windows->show(FormId::frmAbout, true);
}

}  // namespace veldor
