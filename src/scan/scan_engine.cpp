#include "scan/scan_engine.h"

#include "basic/basic.h"
#include "grid/memory_grid.h"
#include "link/catalogue.h"
#include "link/serial_link.h"
#include "protocol/read_frequency.h"
#include "protocol/read_signal.h"
#include "protocol/tones.h"
#include "protocol/write_frequency.h"

#include <limits>
#include <stdexcept>

namespace veldor {

namespace {

void Message(Core& c, const QString& text) {
    c.p.dialogs->messageBox(text, "VELDOR", MsgButtons::OK, MsgIcon::None);
}

void SaveScanSetting(Core& c, const QString& key, const QString& value) {
    SaveSetting(c, c.s.AppName, "Settings", key, value);
}

QString BooleanWord(bool value) {
    return value ? "True" : "False";
}

// Back to idle: by the button, by the rig transmitting, or by a grid with nothing left.
void EndScan(Core& c) {
    c.f.cmdStartStopScan.caption = "Start";
    c.s.ScanRunning = false;
    c.s.ScanPaused = false;
    c.f.cboScanRange.enabled = true;
}

// Off the channel: the next step comes at once.
void ResumeScan(Core& c) {
    State& s = c.s;
    s.ScanTickCount = s.ScanTickLimit;
    s.ScanJustResumed = true;
    s.ScanPaused = false;
    c.f.cmdStartStopScan.caption = "Stop";
}

void PauseScan(Core& c) {
    State& s = c.s;
    s.ScanPaused = true;
    c.f.cmdStartStopScan.caption = "Resume";
    s.ResumeTime = c.p.clock->milliseconds() + static_cast<uint32_t>(s.HangDelay) * 1000u;
}

bool BankSlotScanned(const State& s, int slot) {
    const auto i = static_cast<size_t>(slot);
    return s.MemFreq[i] != "Empty" && s.MemScan[i] == "Y";
}

void LoadBankSlot(Core& c, int slot) {
    State& s = c.s;
    const auto i = static_cast<size_t>(slot);
    s.ScanBankIndex = slot;
    s.TargetFrequency = ParseFrequency(c, s.MemFreq[i], true);
    s.TargetMode = s.MemMode[i];
}

bool GridRowScanned(const MemoryGrid& g, int row) {
    return !g.RowHidden(row) && g.TextMatrix(row, 10) == "Y";
}

void LoadGridRow(Core& c, int row) {
    State& s = c.s;
    const MemoryGrid& g = c.frmCsvMem.grdMemories;
    s.ScanGridRow = row;
    s.TargetFrequency = ParseFrequency(c, g.TextMatrix(row, 1), true);
    s.TargetMode = g.TextMatrix(row, 2);
}

// Shift, offset and tone of a grid row. A stored offset above 5 MHz gives way to the band's.
void LoadGridRepeater(Core& c, int row) {
    State& s = c.s;
    const MemoryGrid& g = c.frmCsvMem.grdMemories;
    const QString& shift = g.TextMatrix(row, 3);
    s.TargetShift = shift == "Plus" ? "+" : shift == "Minus" ? "-" : "0";
    if (s.TargetShift != "0") {
        const QString& offset = g.TextMatrix(row, 4);
        const int32_t kHz = basic::CLng(basic::Val(offset) * 1000);
        if (!offset.isEmpty() && kHz <= 5000)
            s.TargetOffset = QString::number(kHz);
        else
            s.TargetOffset = QString::number(
                basic::CLng(basic::Val(DefaultRepeaterOffset(c, s.TargetFrequency)) * 1000));
    }
    const QString& decode = g.TextMatrix(row, 6);
    if (decode.startsWith("CTC")) {
        const int index = c.frmCsvMem.cboCTCSS.list.indexOf(g.TextMatrix(row, 7));
        s.ToneCode = QString::number(index < 0 ? 0 : index);
        const bool decoding = decode.endsWith("Dec");
        s.ToneEncode = decoding ? "0" : "1";
        s.ToneDecode = decoding ? "1" : "0";
    } else {
        s.ToneCode = s.ToneEncode = s.ToneDecode = "0";
    }
}

// Tunes the channel of a bank slot or grid row: mode, tone and shift go with it.
void TuneChannel(Core& c) {
    SetFrequencyAndMode(c, c.s.TargetFrequency, c.s.TargetMode);
    ApplyRepeaterShift(c);
}

}  // namespace

void cmdStartStopScan_Click(Core& c) {
    State& s = c.s;
    Form1& f = c.f;
    if (f.chkOnOff.value == 0 || s.Transmitting || s.SpectrumRunning) return;
    const QString caption = f.cmdStartStopScan.caption;
    if (caption == "Start") {
        if (s.ScanRangeMode && ComboText(f.cboScanRange) == "Empty")
            return Message(c, "Select a valid scan range first");
        if (s.ScanBankMode && !FirstBankFrequency(c))
            return Message(c, "No frequencies found in the current bank");
        if (s.ScanGridMode) {
            if (!s.GridHasScanRows) return Message(c, "No CSV memories found to scan");
            // Deliberately goes on: the first step finds nothing and ends the scan.
            if (!FirstGridFrequency(c)) Message(c, "No CSV memories found to scan");
        }
    }
    if (caption == "Resume" && s.ScanPaused) {
        ResumeScan(c);
        s.ScanHold = false;  // the Hold button keeps its colour
        return;
    }
    if (caption != "Start") return EndScan(c);

    f.cmdStartStopScan.caption = "Stop";
    f.cboScanRange.enabled = false;
    s.ScanTickCount = 0.0;
    s.ScanTickLimit = 6 - s.ScanSpeed;
    if (s.ScanRangeMode) {
        s.TargetFrequency = s.ScanStartFrequency;
        s.TargetMode = s.ScanRangeModeName;
        const int index = s.LastScanRange < 0 ? 0 : s.LastScanRange;
        const ScanRange& range = s.ScanRanges.at(static_cast<size_t>(index));
        s.LastToneState.clear();  // the range's tone goes out again
        s.ToneCode = range.CTCSS;
        s.ToneEncode = range.Enc;
        s.ToneDecode = range.Dec;
        s.TargetShift = range.Shift;
        s.TargetOffset = range.Offset;
    }
    // The next tick sends the first channel whole, then takes its first step.
    s.FrequencyChangePending = true;
    s.ScanRunning = true;
    s.ScanPaused = false;
    SetFocus(c, f.cmdScanHold);
}

void ScanStep(Core& c) {
    State& s = c.s;
    Form1& f = c.f;
    ReadStatus(c);
    if (f.lblTX.backColour == Red) return EndScan(c);
    if (s.ScanPaused && s.HangDelay < HangDelayPermanent) {
        if (static_cast<int32_t>(c.p.clock->milliseconds() - s.ResumeTime) > 0) ResumeScan(c);
    }
    if (s.ScanPaused) return;
    s.ScanTickCount += 1.0;
    if (s.ScanTickCount < s.ScanTickLimit) return;
    s.ScanTickCount = 1.0;
    if (s.ScanRangeMode) {
        const int64_t next = int64_t{s.TargetFrequency} + s.ScanStepSize;
        if (next > std::numeric_limits<int32_t>::max() ||
            next < std::numeric_limits<int32_t>::min())
            throw std::overflow_error("Overflow");
        s.TargetFrequency = static_cast<int32_t>(next);
        if (s.TargetFrequency > s.ScanStopFrequency) s.TargetFrequency = s.ScanStartFrequency;
        SetFrequency(c, s.TargetFrequency);
    } else if (s.ScanBankMode) {
        if (NextBankFrequency(c)) TuneChannel(c);
    } else if (NextGridFrequency(c)) {
        TuneChannel(c);
    } else {
        cmdStartStopScan_Click(c);
    }
    if (s.ScanJustResumed) {
        // An FM receiver settles after a hang before the next signal test.
        if (s.TargetMode.left(2) == "FM") PauseWithEvents(c, 500);
        s.ScanJustResumed = false;
    }
    f.txtVfoA.text = FormatFrequency(c, s.TargetFrequency);
    s.DisplayFrequency = f.txtVfoA.text;
    f.txtSpectrumFreq.text = f.txtVfoA.text;
}

void ScanCheckSignal(Core& c) {
    State& s = c.s;
    ReadSignal(c);
    if (c.f.optStopOn[0].value && s.SignalPresent) {
        // Without the signal-loss setting the delay runs from the first detection.
        if (!s.HangDelayOnSignalLoss && s.ScanPaused) return;
        PauseScan(c);
    }
    // A free channel is held until it has been busy for the whole delay.
    if (c.f.optStopOn[1].value && !s.SignalPresent) PauseScan(c);
}

void cmdScanHold_Click(Core& c) {
    if (c.f.chkOnOff.value == 0) return;
    c.s.ScanHold = !c.s.ScanHold;
    c.f.cmdScanHold.backColour = c.s.ScanHold ? LightRed : Yellow;
}

void cmdScanMemOrBank_Click(Core& c) {
    State& s = c.s;
    Form1& f = c.f;
    if (s.Transmitting || s.SpectrumRunning) return;
    if (s.ScanRangeMode) {
        s.ScanRangeMode = false;
        s.ScanBankMode = true;
        f.cmdScanMemOrBank.caption = "Scan Bank";
    } else if (s.ScanBankMode) {
        s.ScanBankMode = false;
        s.ScanGridMode = true;
        f.cmdScanMemOrBank.caption = "Scan Grid";
    } else {
        s.ScanGridMode = false;
        s.ScanRangeMode = true;
        f.cmdScanMemOrBank.caption = "Scan Rnge";
    }
    if (f.cmdStartStopScan.enabled) SetFocus(c, f.cmdStartStopScan);
}

bool FirstBankFrequency(Core& c) {
    for (int slot = 0; slot < 12; ++slot) {
        if (!BankSlotScanned(c.s, slot)) continue;
        LoadBankSlot(c, slot);
        return true;
    }
    return false;
}

bool NextBankFrequency(Core& c) {
    State& s = c.s;
    int slot = s.ScanBankIndex;
    for (int tries = 0; tries < 12; ++tries) {
        slot = slot >= 11 ? 0 : slot + 1;
        if (!BankSlotScanned(s, slot)) continue;
        LoadBankSlot(c, slot);
        const auto i = static_cast<size_t>(slot);
        c.f.txtMemoryTag.text = s.MemName[i];
        s.TargetShift = s.MemShift[i];
        s.TargetOffset = s.MemOffset[i];
        s.ToneCode = s.MemCTCSS[i];
        s.ToneEncode = s.MemEncDec[i].left(1);
        s.ToneDecode = s.MemEncDec[i].right(1);
        return true;
    }
    return false;
}

bool FirstGridFrequency(Core& c) {
    const MemoryGrid& g = c.frmCsvMem.grdMemories;
    for (int row = 1; row < g.Rows(); ++row) {
        if (!GridRowScanned(g, row)) continue;
        LoadGridRow(c, row);
        return true;
    }
    return false;
}

bool NextGridFrequency(Core& c) {
    State& s = c.s;
    const MemoryGrid& g = c.frmCsvMem.grdMemories;
    if (g.Rows() < 2) return false;
    int row = s.ScanGridRow;
    for (int tries = 0; tries < g.Rows() - 1; ++tries) {
        row = row >= g.Rows() - 1 ? 1 : row + 1;
        if (!GridRowScanned(g, row)) continue;
        LoadGridRow(c, row);
        const QString& rig = s.RigType;
        if (rig == RigFRG100 || rig == RigVR5000 || rig == RigFT1000MP || rig == RigFT920)
            return true;
        LoadGridRepeater(c, row);
        return true;
    }
    return false;
}

void mnuStart_Click(Core& c) {
    if (c.f.cmdStartStopScan.caption == "Start") cmdStartStopScan_Click(c);
}

void mnuStop_Click(Core& c) {
    if (c.f.cmdStartStopScan.caption == "Stop") cmdStartStopScan_Click(c);
}

void mnuHold_Click(Core& c) {
    cmdScanHold_Click(c);
}

void mnuResume_Click(Core& c) {
    if (c.f.cmdStartStopScan.caption == "Resume") cmdStartStopScan_Click(c);
}

void SetHangDelay(Core& c, int seconds) {
    c.s.HangDelay = seconds;
    SaveScanSetting(c, "HangDelay", QString::number(seconds));
    ShowHangDelayTicks(c);
}

void ShowHangDelayTicks(Core& c) {
    Form1& f = c.f;
    const int d = c.s.HangDelay;
    MenuItem* ticked = d > 16  ? &f.mnuHangDelayPerm
                       : d > 8 ? &f.mnuHangDelay16
                       : d > 4 ? &f.mnuHangDelay8
                       : d > 2 ? &f.mnuHangDelay4
                               : &f.mnuHangDelay2;
    for (MenuItem* m : {&f.mnuHangDelay2, &f.mnuHangDelay4, &f.mnuHangDelay8, &f.mnuHangDelay16,
                        &f.mnuHangDelayPerm})
        m->checked = m == ticked;
    f.mnuHangDelayOnSignalLoss.checked = c.s.HangDelayOnSignalLoss;
}

void mnuHangDelayOnSignalLoss_Click(Core& c) {
    c.s.HangDelayOnSignalLoss = !c.s.HangDelayOnSignalLoss;
    SaveScanSetting(c, "HangDelayOnSignalLoss", BooleanWord(c.s.HangDelayOnSignalLoss));
    ShowHangDelayTicks(c);
}

void mnuScanSpeed_Click(Core& c, int speed) {
    if (c.s.SpectrumRunning) return;
    c.s.ScanSpeed = speed;
    c.s.ScanTickLimit = 6 - speed;  // at once, also during a scan
    SaveScanSetting(c, "ScanSpeed", QString::number(speed));
    ShowScanSpeedTicks(c);
}

void ShowScanSpeedTicks(Core& c) {
    for (int i = 0; i < 5; ++i)
        c.f.mnuScanSpeed[static_cast<size_t>(i)].checked = c.s.ScanSpeed == i + 1;
    c.f.mnuUseSquelch.checked = c.s.UseSquelch;
}

void mnuUseSquelch_Click(Core& c) {
    c.s.UseSquelch = !c.s.UseSquelch;
    SaveScanSetting(c, "UseSquelch", BooleanWord(c.s.UseSquelch));
    ShowScanSpeedTicks(c);
}

}  // namespace veldor
