#include "scan/range_choice.h"

#include "basic/basic.h"
#include "link/catalogue.h"
#include "memories/scanner_dialog.h"
#include "protocol/model_controls.h"
#include "protocol/read_frequency.h"

namespace veldor {

void cboScanRange_Click(Core& c) {
    State& s = c.s;
    if (s.SpectrumRunning) return;
    const int index = c.f.cboScanRange.listIndex;
    // The list grows by twenty names at each reload of the ranges; a name beyond the first
    // twenty names no range.
    if (index < 0 || index >= 20) {
        c.p.dialogs->messageBox(
            "Error 9 (Subscript out of range) in procedure cboScanRange_Click of Form Form1",
            "VELDOR", MsgButtons::OK, MsgIcon::Critical);
        return;
    }
    s.LastScanRange = index;
    const ScanRange& range = s.ScanRanges[index];
    if (range.Desc == "Empty") return;
    s.ScanStartFrequency = ParseFrequency(c, range.Start);
    s.ScanStopFrequency = ParseFrequency(c, range.Stop);
    // Divided whether or not the step holds a decimal mark, unlike the load of the ranges: a
    // step typed in kHz comes out a thousand times too small here. Deliberately kept.
    s.ScanStepSize = basic::CLng(ParseFrequency(c, range.Step) / 1000.0);
    s.ScanRangeModeName = range.Mode;
    s.TargetShift = range.Shift;
    s.TargetOffset = range.Offset;
    s.ToneCode = range.CTCSS;
    s.ToneEncode = range.Enc;
    s.ToneDecode = range.Dec;
    SaveSetting(c, s.AppName, "Settings", "LastScanRange", QString::number(index));
    if (c.f.cmdStartStopScan.enabled) SetFocus(c, c.f.cmdStartStopScan);
}

void cmdShowScanSettings_Click(Core& c) {
    if (Busy(c.s)) return;
    if (c.s.RigType == RigNotSet) {
        c.p.dialogs->messageBox("You must choose a rig type before you can set Scan ranges",
                                "VELDOR", MsgButtons::OK, MsgIcon::None);
        return;
    }
    frmScanner_Load(c);
    c.p.windows->show(FormId::frmScanner, true);
}

}  // namespace veldor
