// Tuning from a row of the grid: the row fills the tune target and the tick does the writing.
#include "basic/basic.h"
#include "grid/csv_file.h"
#include "grid/grid.h"
#include "link/catalogue.h"
#include "link/serial_link.h"
#include "protocol/model_controls.h"
#include "protocol/read_frequency.h"
#include "protocol/write_frequency.h"

namespace veldor {

namespace {

// Setting the box from code raises its click, as the operator's would.
void SetSplitBox(Core& c, bool on) {
    CheckBox& split = c.f.chkSplit;
    if (on == (split.value == 1)) return;
    split.value = on ? 1 : 0;
    chkSplit_Click(c);
}

}  // namespace

void mnuGoTo_Click(Core& c) {
    State& s = c.s;
    if (c.f.chkOnOff.value == 0 || s.Transmitting || s.ScanRunning ||
        (s.SpectrumRunning && !s.SpectrumPaused))
        return;
    LoadGridWindow(c);
    const MemoryGrid& g = c.frmCsvMem.grdMemories;
    if (g.Row < 1 || g.Row >= g.Rows()) return;
    auto cell = [&](int col) { return g.TextMatrix(g.Row, col); };
    const QChar mark = basic::DecimalMark();

    s.TargetFrequency = ParseFrequency(c, cell(1));
    s.TargetMode = cell(2);
    s.SplitTxMode.clear();
    const QString shift = cell(3);
    if (shift == "Simplex") {
        s.TargetShift = "0";
    } else if (shift == "Plus") {
        s.TargetShift = "+";
    } else if (shift == "Minus") {
        s.TargetShift = "-";
    } else if (shift == "Split") {
        s.TargetShift = "0";
        s.SplitTxFrequency = ParseFrequency(c, cell(4));
        s.SplitTxMode = cell(5);
        s.SplitRxFrequency = s.TargetFrequency;
        s.SplitRxMode = s.TargetMode;
    }
    if (s.TargetShift == "+" || s.TargetShift == "-") {
        // The row's offset up to 7600 kHz, else the band's usual one.
        double mhz = 0;
        const bool own = !cell(4).isEmpty() && CellNumber(cell(4), mark, &mhz);
        const int32_t offset = basic::CLng(mhz * 1000);
        if (own && offset <= 7600) {
            s.TargetOffset = QString::number(offset);
        } else {
            double usual = 0;
            CellNumber(DefaultRepeaterOffset(c, s.TargetFrequency), mark, &usual);
            s.TargetOffset = QString::number(static_cast<int64_t>(basic::Int(usual * 1000)));
        }
    }
    const QString tone = cell(6);
    if (tone.left(3) == "CTC") {
        const qsizetype i = c.frmCsvMem.cboCTCSS.list.indexOf(cell(7));
        s.ToneCode = " " + QString::number(i < 0 ? 0 : i);
        const bool decode = tone.right(3) == "Dec";
        s.ToneEncode = decode ? "0" : "1";
        s.ToneDecode = decode ? "1" : "0";
    } else {
        // DCS rows tune with tones off: the code stays in the grid.
        s.ToneEncode = "0";
        s.ToneDecode = "0";
    }
    s.LastShiftSent.clear();
    s.LastOffsetSent.clear();
    if (s.SplitTxMode.isEmpty()) {
        SetSplitBox(c, false);
        s.FrequencyChangePending = true;
    } else {
        s.SplitMemoryPending = true;
    }
    c.f.txtMemoryTag.text = cell(9);
    c.f.txtMemoryFreq.text = cell(1);
}

void ApplySplitMemory(Core& c) {
    State& s = c.s;
    s.SplitMemoryPending = false;
    const QString& rig = s.RigType;
    if (IsAckFamily(rig) || rig == RigFT920 || rig == RigFT1000MP) {
        // Transmit side on VFO B, receive side on VFO A, then split on.
        const auto tune = [&](const char* vfo, const auto& frequency, const QString& mode) {
            s.VfoRequest = vfo;
            if (!SelectVfo(c)) return false;
            PauseWithEvents(c, 60);
            s.TargetFrequency = frequency;
            s.TargetMode = mode;
            SetFrequencyAndMode(c, s.TargetFrequency, s.TargetMode);
            PauseWithEvents(c, 60);
            return true;
        };
        if (!tune("B", s.SplitTxFrequency, s.SplitTxMode)) return;
        if (!tune("A", s.SplitRxFrequency, s.SplitRxMode)) return;
        SetSplitBox(c, true);
    } else if (rig == RigFT847) {
        // No split in its CAT: the transmit side waits in the split pair for PTT.
        if (c.f.chkSplit.value != 1) {
            s.SplitChangedByPoll = true;
            SetSplitBox(c, true);
        }
        s.TargetFrequency = s.SplitRxFrequency;
        s.TargetMode = s.SplitRxMode;
        SetFrequencyAndMode(c, s.TargetFrequency, s.TargetMode);
    }
}

}  // namespace veldor
