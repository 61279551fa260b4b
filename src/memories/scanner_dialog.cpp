#include "memories/scanner_dialog.h"

#include "basic/basic.h"
#include "link/catalogue.h"
#include "link/serial_link.h"
#include "memories/scan_ranges.h"
#include "memories/shift_options.h"
#include "protocol/read_frequency.h"

namespace veldor {

namespace {

void InvalidNumber(Core& c, const QString& text) {
    c.p.dialogs->messageBox(text, "Invalid number", MsgButtons::OK, MsgIcon::Exclamation);
}

// A blank box is accepted and "0" becomes "Empty"; "Empty", the box's own word for no value,
// passes as it stands.
bool BlankOrZero(TextBox& box) {
    if (box.text.isEmpty() || box.text == "Empty") return true;
    if (box.text == "0") {
        box.text = "Empty";
        return true;
    }
    return false;
}

// Start and stop: a number within the rig's ranges, rewritten as 14.25000.
bool CheckFrequencyBox(Core& c, TextBox& box, const QString& nonNumeric, const QString& outside) {
    if (BlankOrZero(box)) return false;
    if (!basic::IsNumeric(box.text)) {
        InvalidNumber(c, nonNumeric);
        return true;
    }
    const int32_t frequency = ParseFrequency(c, box.text, true);
    if (!CheckFrequencyRange(c, frequency)) {
        InvalidNumber(c, outside);
        return true;
    }
    box.text = FormatFrequencyShort(c, frequency);
    return false;
}

}  // namespace

void frmScanner_Load(Core& c) {
    const State& s = c.s;
    FrmScanner& d = c.frmScanner = FrmScanner{};
    for (const ScanRange& range : s.ScanRanges) d.cboMemoryNumber.list << range.Desc;
    d.cboMode.list = ModeList();
    d.cboCTCSS.list = RigToneList(s.RigType);
    d.cboMemoryNumber.listIndex =
        s.LastScanRange >= 0 && s.LastScanRange < 20 ? s.LastScanRange : 0;
    frmScanner_cboMemoryNumber_Click(c);
    // These rigs have no repeater shift.
    d.Frame4.enabled = s.RigType != RigFT1000MP && s.RigType != RigVR5000 && s.RigType != RigFRG100;
}

void frmScanner_cboMemoryNumber_Click(Core& c) {
    FrmScanner& d = c.frmScanner;
    const int index = d.cboMemoryNumber.listIndex;
    if (index < 0 || index >= 20) return;
    const ScanRange& range = c.s.ScanRanges[index];
    d.txtDescription.text = range.Desc;
    d.txtStart.text = range.Start;
    d.txtStep.text = range.Step;
    d.txtStop.text = range.Stop;
    // A mode or tone the lists do not hold leaves the list as it was.
    const int mode = static_cast<int>(d.cboMode.list.indexOf(range.Mode));
    if (!range.Mode.isEmpty() && mode >= 0) d.cboMode.listIndex = mode;
    const int tone = basic::CLng(basic::Val(range.CTCSS));
    if (tone >= 0 && tone < d.cboCTCSS.list.size()) d.cboCTCSS.listIndex = tone;
    d.chkEnc.value = basic::Val(range.Enc) != 0 ? 1 : 0;
    d.chkDec.value = basic::Val(range.Dec) != 0 ? 1 : 0;
    frmScanner_chkDec_Click(c);
    d.txtOffset.text = range.Offset;
    ShowShiftOption(d.optRepeaterShift, range.Shift);
}

void frmScanner_chkDec_Click(Core& c) {
    if (c.frmScanner.chkDec.value == 1) c.frmScanner.chkEnc.value = 0;
}

void frmScanner_cmdClear_Click(Core& c) {
    FrmScanner& d = c.frmScanner;
    d.txtDescription.text = "Empty";
    d.txtStart.text.clear();
    d.txtStop.text.clear();
    d.txtStep.text.clear();
    d.cboMode.listIndex = static_cast<int>(d.cboMode.list.indexOf("USB"));
    d.cboCTCSS.listIndex = d.cboCTCSS.list.isEmpty() ? -1 : 0;
    d.chkEnc.value = 0;
    d.chkDec.value = 0;
    d.txtOffset.text = "600";
    const int index = d.cboMemoryNumber.listIndex;
    if (index >= 0 && index < d.cboMemoryNumber.list.size())
        d.cboMemoryNumber.list[index] = "Empty";
}

void frmScanner_cmdOK_Click(Core& c) {
    State& s = c.s;
    FrmScanner& d = c.frmScanner;
    if (d.txtDescription.text != "Empty") {
        const std::pair<TextBox*, const char*> checks[] = {
            {&d.txtStart, "Start frequency is not valid - please correct and retry"},
            {&d.txtStep, "Step frequency is not valid - please correct and retry"},
            {&d.txtStop, "Stop frequency is not valid - please correct and retry"}};
        for (auto [box, message] : checks) {
            if (ParseFrequency(c, box->text, true) != -1) continue;
            c.p.dialogs->messageBox(message, "VELDOR", MsgButtons::OK, MsgIcon::Exclamation);
            SetFocus(c, *box);
            return;
        }
    }
    const int index = d.cboMemoryNumber.listIndex;
    if (index < 0 || index >= 20) return;
    frmScanner_chkDec_Click(c);
    ScanRange& range = s.ScanRanges[index];
    range.Desc = d.txtDescription.text;
    range.Start = d.txtStart.text;
    range.Step = d.txtStep.text;
    range.Stop = d.txtStop.text;
    range.Mode = ComboText(d.cboMode);
    range.CTCSS = QString::number(d.cboCTCSS.listIndex);
    range.Enc = QString::number(d.chkEnc.value);
    range.Dec = QString::number(d.chkDec.value);
    range.Shift = ShiftOfOptions(d.optRepeaterShift);
    range.Offset = d.txtOffset.text;
    SaveScanRanges(c, 0);
    LoadScanRanges(c, 0);
    d.cboMemoryNumber.list[index] = range.Desc;
}

void frmScanner_cmdCancel_Click(Core& c) {
    c.p.windows->close(FormId::frmScanner);
}

bool frmScanner_txtStart_LostFocus(Core& c) {
    return CheckFrequencyBox(
        c, c.frmScanner.txtStart,
        "You have entered a non numeric value for Scanner Start frequency - please retry",
        "You have entered a Scanner Start frequency outside the range of the rig - please retry");
}

bool frmScanner_txtStop_LostFocus(Core& c) {
    return CheckFrequencyBox(
        c, c.frmScanner.txtStop,
        "You have entered a non numeric value for Scanner Stop - please retry",
        "You have entered a Scanner Stop frequency outside the range of the rig - please retry");
}

bool frmScanner_txtStep_LostFocus(Core& c) {
    TextBox& box = c.frmScanner.txtStep;
    if (BlankOrZero(box)) return false;
    if (!basic::IsNumeric(box.text)) {
        InvalidNumber(c, "You have entered a non numeric value for Scanner Step - please retry");
        return true;
    }
    if (basic::Val(box.text) > 100) {
        InvalidNumber(c, "You have entered a Scanner Step increment > 100 KHz - please retry");
        return true;
    }
    return false;
}

bool frmScanner_txtOffset_LostFocus(Core& c) {
    TextBox& box = c.frmScanner.txtOffset;
    if (box.text.isEmpty() || box.text == " ") {
        box.text = "600";
        return false;
    }
    if (basic::IsNumeric(box.text)) return false;
    c.p.dialogs->messageBox("Repeater offset is not numeric", "VELDOR", MsgButtons::OK,
                            MsgIcon::None);
    return true;
}

}  // namespace veldor
