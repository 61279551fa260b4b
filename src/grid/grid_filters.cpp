// Filters hide rows of the grid, never delete them: by group, by mode and by a frequency range.
#include "basic/basic.h"
#include "grid/grid.h"
#include "link/serial_link.h"
#include "protocol/read_frequency.h"

namespace veldor {

namespace {

void Save(Core& c, const QString& key, const QString& value) {
    SaveSetting(c, c.s.AppName, "Settings", key, value);
}

// The check on leaving the Lo or Hi box: false keeps the focus there.
bool CheckFrequencyBox(Core& c, TextBox& box, const QString& key) {
    box.text = box.text.trimmed();
    if (!box.text.isEmpty()) {
        const int32_t f = ParseFrequency(c, box.text);
        if (f == -1) {
            box.text.clear();
            return false;
        }
        if (!CheckFrequencyRange(c, f)) {
            c.p.dialogs->messageBox("Frequency is outside the range of the rig", "VELDOR",
                                    MsgButtons::OK, MsgIcon::None);
            return false;
        }
        box.text = basic::Format(f / 100000.0, "###.000");
    }
    Save(c, key, box.text);
    ApplyGridFilters(c);
    return true;
}

}  // namespace

void FilterGridRows(Core& c) {
    State& s = c.s;
    FrmCsvMem& w = c.frmCsvMem;
    s.GridHasScanRows = false;
    const bool group0 = w.chkFilter[0].value == 1, group1 = w.chkFilter[1].value == 1;
    const QString show0 = ComboText(w.cboShow[0]), show1 = ComboText(w.cboShow[1]);
    QString mode = ComboText(w.cboModeFilter);
    if (mode == "SSB") mode = "SB";
    const bool byMode = w.chkFilter[3].value == 1 && mode != "All";
    const bool byRange = w.chkFilter[4].value == 1;
    // A limit that is empty or no frequency lets everything past.
    auto limit = [&](const TextBox& box) {
        return box.text.isEmpty() ? -1 : ParseFrequency(c, box.text, true);
    };
    const int32_t lo = byRange ? limit(w.txtFreqLo) : -1, hi = byRange ? limit(w.txtFreqHi) : -1;
    MemoryGrid& g = w.grdMemories;
    for (int r = 1; r < g.Rows(); ++r) {
        auto& row = g.rows[static_cast<size_t>(r)];
        const QString& group = row.cells[11];
        bool show =
            (group0 && show0 == group) || (group1 && show1 == group) || (!group0 && !group1);
        // The mode is a search within the cell: "FM" passes FM, FMN and WFM.
        if (show && byMode) show = row.cells[2].contains(mode);
        if (show && byRange) {
            const int32_t f = ParseFrequency(c, row.cells[1]);
            show = (lo < 0 || f >= lo) && (hi < 0 || f <= hi);
        }
        row.hidden = !show;
        if (show && row.cells[10] == "Y") s.GridHasScanRows = true;
    }
    ++g.revision;
}

void ApplyGridFilters(Core& c) {
    if (!c.s.MemoryGridLoaded) {
        frmCsvMem_Load(c);  // runs the filters itself
        return;
    }
    FilterGridRows(c);
}

void chkFilter_Click(Core& c, int index) {
    ApplyGridFilters(c);
    Save(c, QString("Filter%1").arg(index), QString::number(c.frmCsvMem.chkFilter[index].value));
}

void cboShow_Click(Core& c, int) {
    ApplyGridFilters(c);
}

// A typed group is upper-cased in the box and saved; it filters at the next filter event.
void cboShow_Validate(Core& c, int index) {
    ComboBox& box = c.frmCsvMem.cboShow[index];
    const QString group = ComboText(box).toUpper();
    box.listIndex = static_cast<int>(box.list.indexOf(group));
    box.text = box.listIndex < 0 ? group : QString();
    Save(c, QString("Show%1").arg(index), group);
}

void cboModeFilter_Click(Core& c) {
    ApplyGridFilters(c);
    Save(c, "ModeFilter", ComboText(c.frmCsvMem.cboModeFilter));
}

bool txtFreqLo_Check(Core& c) {
    return CheckFrequencyBox(c, c.frmCsvMem.txtFreqLo, "FreqLo");
}

bool txtFreqHi_Check(Core& c) {
    return CheckFrequencyBox(c, c.frmCsvMem.txtFreqHi, "FreqHi");
}

void mnuClearFilters_Click(Core& c) {
    LoadGridWindow(c);
    for (int i : {0, 1, 3, 4}) {
        CheckBox& box = c.frmCsvMem.chkFilter[i];
        if (box.value == 0) continue;
        box.value = 0;
        Save(c, QString("Filter%1").arg(i), "0");
    }
    ApplyGridFilters(c);
}

}  // namespace veldor
