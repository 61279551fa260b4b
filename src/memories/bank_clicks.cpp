#include "link/catalogue.h"
#include "memories/banks.h"
#include "memories/set_memory.h"
#include "protocol/read_frequency.h"

namespace veldor {

namespace {

void SaveAndShow(Core& c) {
    SaveBank(c, c.s.CurrentBank);
    LoadBank(c, c.s.CurrentBank);
}

}  // namespace

void cmdBankNumber_Click(Core& c, int index) {
    State& s = c.s;
    if (index == s.CurrentBank) return;
    LoadBank(c, index);
    c.f.cmdBankNumber[index].backColour = Green;
    c.f.cmdBankNumber[s.CurrentBank].backColour = PaleGreen;
    s.CurrentBank = index;
}

void cmdClearBank_Click(Core& c) {
    State& s = c.s;
    if (s.Transmitting) return;
    const MsgResult answer = c.p.dialogs->messageBox(
        "Are your sure you want to clear memory bank " + c.f.cmdBankNumber[s.CurrentBank].caption,
        "VELDOR", MsgButtons::YesNo, MsgIcon::Question);
    if (answer != MsgResult::Yes) return;
    ClearBank(c, s.CurrentBank);
    LoadBank(c, s.CurrentBank);
}

void lblStore_Click(Core& c, int index) {
    State& s = c.s;
    if (c.f.chkOnOff.value == 0 || s.Transmitting || s.ScanRunning) return;
    if (s.SpectrumRunning && !s.SpectrumPaused) return;
    if (s.MemName[index] == "Empty") return;
    s.TargetFrequency = ParseFrequency(c, s.MemFreq[index]);
    s.TargetMode = s.MemMode[index];
    s.TargetShift = s.MemShift[index];
    s.TargetOffset = s.MemOffset[index];
    s.ToneCode = s.MemCTCSS[index];
    s.ToneEncode = s.MemEncDec[index].left(1);
    s.ToneDecode = s.MemEncDec[index].right(1);
    // Shift and offset go out again; the tone goes out only if it differs.
    s.LastShiftSent.clear();
    s.LastOffsetSent.clear();
    c.f.txtMemoryTag.text = s.MemName[index];
    c.f.txtMemoryFreq.text = s.MemFreq[index];
    s.FrequencyChangePending = true;
}

void lblStore_DblClick(Core& c, int index) {
    // The poll cannot run on a memory that is half defined.
    c.p.tmrPollInterval->setEnabled(false);
    c.s.EditMemoryIndex = index;
    frmSetMemory_Load(c);
    c.p.windows->show(FormId::frmSetMemory, true);
    if (c.s.RigType != RigNotSet) c.p.tmrPollInterval->setEnabled(true);
}

void lblStore_MouseUp(Core& c, int index, int button) {
    if (button == RightButton) lblStore_DblClick(c, index);
}

void lblSet_Click(Core& c, int index) {
    State& s = c.s;
    if (c.f.chkOnOff.value == 0 || s.ScanRunning) return;
    if (s.SkipNextSetClick) {
        s.SkipNextSetClick = false;
        return;
    }
    // A memory defined in the dialog is kept from a click; a double click clears it.
    if (s.MemClickToSet[index] == "N") return;
    const QString vfo = c.f.txtVfoA.text;
    if (vfo.size() < 7) return;  // no frequency read yet
    s.MemName[index] = "Click";
    s.MemFreq[index] = vfo.left(vfo.size() - 3) + vfo.right(2);  // 14.250.00 to 14.25000
    s.MemMode[index] = c.f.txtMode.text.trimmed();
    s.MemCTCSS[index] = "0";
    s.MemEncDec[index] = "00";
    s.MemShift[index] = "0";
    s.MemScan[index] = "Y";
    if (s.RigType == RigFT450) {
        // The FT-450 reports its tone and shift with its frequency.
        s.MemCTCSS[index] = s.RigTone;
        s.MemEncDec[index] = s.RigToneEncode + s.RigToneDecode;
        s.MemShift[index] = s.RigShift;
    }
    SaveAndShow(c);
}

void lblSet_DblClick(Core& c, int index) {
    c.f.lblStore[index].caption = "Empty";
    EmptyMemory(c, index);
    SaveAndShow(c);
}

void lblSet_MouseUp(Core& c, int index, int button) {
    if (button != RightButton) return;
    State& s = c.s;
    s.MemScan[index] = s.MemScan[index] == "Y" ? "N" : "Y";
    SaveAndShow(c);
    s.SkipNextSetClick = true;
}

void mnuGoToM_Click(Core& c, int memory) {
    lblStore_Click(c, memory - 1);
}

void mnuSetM_Click(Core& c, int memory) {
    lblSet_Click(c, memory - 1);
}

}  // namespace veldor
