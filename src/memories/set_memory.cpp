#include "memories/set_memory.h"

#include "basic/basic.h"
#include "link/catalogue.h"
#include "link/serial_link.h"
#include "memories/banks.h"
#include "memories/shift_options.h"
#include "protocol/read_frequency.h"
#include "protocol/write_frequency.h"

namespace veldor {

namespace {

void InvalidNumber(Core& c, const QString& text) {
    c.p.dialogs->messageBox(text, "Invalid number", MsgButtons::OK, MsgIcon::Exclamation);
}

// The offset in whole kHz of an offset text in MHz with the system's decimal mark.
QString OffsetKilohertz(const Core& c, const QString& megahertz) {
    const QString text = QString(megahertz).replace(c.s.DecimalSeparator, ".");
    return QString::number(basic::CLng(basic::Val(text) * 1000));
}

}  // namespace

void frmSetMemory_Load(Core& c) {
    const State& s = c.s;
    FrmSetMemory& d = c.frmSetMemory = FrmSetMemory{};
    const int i = s.EditMemoryIndex;
    d.cboCTCSS.list = QStringList{"None"} + RigToneList(s.RigType);
    d.cboMode.list = ButtonModes(s.RigType);
    d.Frame1.caption = QString("Bank %1  Memory %2").arg(s.CurrentBank + 1).arg(i + 1);

    d.txtName.text = s.MemName[i];
    d.txtFreq.text = s.MemFreq[i];
    // A mode the rig has no button for (a memory of another rig) stays on offer.
    const QString mode = s.MemMode[i].trimmed();
    d.cboMode.listIndex = d.cboMode.list.indexOf(mode);
    if (d.cboMode.listIndex < 0 && !mode.isEmpty()) {
        d.cboMode.list << mode;
        d.cboMode.listIndex = d.cboMode.list.size() - 1;
    }
    // The stored index counts the "None" in front of the tones, as memories have always held it.
    const int tone = basic::CLng(basic::Val(s.MemCTCSS[i]));
    d.cboCTCSS.listIndex = tone >= 0 && tone < d.cboCTCSS.list.size() ? tone : 0;
    d.chkEnc.value = s.MemEncDec[i].left(1) == "1" ? 1 : 0;
    d.chkDec.value = s.MemEncDec[i].right(1) == "1" ? 1 : 0;
    ShowShiftOption(d.optRepeaterShift, s.MemShift[i]);
    d.chkScan.value = s.MemScan[i] == "Y" ? 1 : 0;
    d.txtOffset.text = s.MemOffset[i];
}

void frmSetMemory_chkEnc_Click(Core& c) {
    if (c.frmSetMemory.chkEnc.value == 1) c.frmSetMemory.chkDec.value = 0;
}

void frmSetMemory_chkDec_Click(Core& c) {
    if (c.frmSetMemory.chkDec.value == 1) c.frmSetMemory.chkEnc.value = 0;
}

bool frmSetMemory_txtFreq_LostFocus(Core& c) {
    FrmSetMemory& d = c.frmSetMemory;
    const QString text = d.txtFreq.text.trimmed();
    // "Empty" is the box's own word for no memory, and passes as it stands.
    if (text.isEmpty() || text == "0" || text == "Empty") {
        d.txtFreq.text = "Empty";
        return false;
    }
    if (!basic::IsNumeric(text)) {
        InvalidNumber(
            c, "You have entered a non numeric value for Set Memory frequency - please retry");
        return true;
    }
    const int32_t frequency = ParseFrequency(c, text, true);
    if (!CheckFrequencyRange(c, frequency)) {
        InvalidNumber(
            c,
            "You have entered a Set Memory frequency outside the range of the rig - please retry");
        return true;
    }
    d.txtFreq.text = FormatFrequencyShort(c, frequency);
    d.txtOffset.text = OffsetKilohertz(c, DefaultRepeaterOffset(c, frequency));
    return false;
}

bool frmSetMemory_txtOffset_LostFocus(Core& c) {
    TextBox& box = c.frmSetMemory.txtOffset;
    if (basic::IsNumeric(box.text)) return false;
    if (box.text.trimmed().isEmpty()) {
        box.text = "600";
        return false;
    }
    c.p.dialogs->messageBox("Repeater offset is not numeric", "VELDOR", MsgButtons::OK,
                            MsgIcon::None);
    return true;
}

void frmSetMemory_cmdOK_Click(Core& c) {
    State& s = c.s;
    const FrmSetMemory& d = c.frmSetMemory;
    const int i = s.EditMemoryIndex;
    const QString frequency = d.txtFreq.text.trimmed();
    if (frequency == "Empty" || frequency.isEmpty()) {
        EmptyMemory(c, i);
        s.MemScan[i] = "N";
        c.f.lblStore[i].caption = "Empty";
    } else {
        s.MemClickToSet[i] = "N";
        s.MemName[i] = d.txtName.text.trimmed();
        s.MemFreq[i] = frequency;
        s.MemMode[i] = ComboText(d.cboMode).trimmed();
        s.MemCTCSS[i] = QString::number(d.cboCTCSS.listIndex);
        s.MemEncDec[i] = QString::number(d.chkEnc.value) + QString::number(d.chkDec.value);
        if (s.MemEncDec[i] == "00") s.MemCTCSS[i] = "0";
        s.MemShift[i] = ShiftOfOptions(d.optRepeaterShift);
        s.MemScan[i] = d.chkScan.value == 1 ? "Y" : "N";
        s.MemOffset[i] = d.txtOffset.text;
    }
    SaveBank(c, s.CurrentBank);
    LoadBank(c, s.CurrentBank);
    c.p.windows->close(FormId::frmSetMemory);
}

void frmSetMemory_cmdCancel_Click(Core& c) {
    c.p.windows->close(FormId::frmSetMemory);
}

}  // namespace veldor
