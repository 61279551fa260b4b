// Editing the grid: row commands, the Delete key, in-place edits, the edit panel, and "Add
// frequency to grid" from the main window.
#include "basic/basic.h"
#include "grid/csv_file.h"
#include "grid/grid.h"
#include "link/serial_link.h"
#include "protocol/read_frequency.h"

namespace veldor {

namespace {

MsgResult Ask(Core& c, const QString& text, MsgButtons buttons) {
    return c.p.dialogs->messageBox(text, "VELDOR", buttons, MsgIcon::Question);
}
void Tell(Core& c, const QString& text) {
    c.p.dialogs->messageBox(text, "VELDOR", MsgButtons::OK, MsgIcon::None);
}

MemoryGrid& Grid(Core& c) {
    return c.frmCsvMem.grdMemories;
}

void InsertRow(MemoryGrid& g, int before) {
    g.rows.insert(g.rows.begin() + before, GridRow{});
}
void RemoveRow(MemoryGrid& g, int row) {
    g.rows.erase(g.rows.begin() + row);
    if (g.Row >= g.Rows()) g.Row = g.Rows() - 1;
}
void CopyCells(MemoryGrid& g, int from, int to) {
    for (int col = 1; col < GridCols; ++col) g.TextMatrix(to, col) = g.TextMatrix(from, col);
}

// The reply to "which memory?": empty ends the command; anything but a memory number other
// than the current one is refused with a beep and a box. 0 when the command is to end.
int AskMemoryNumber(Core& c, const QString& prompt, QString* reply) {
    reply->clear();
    if (!c.p.dialogs->inputBox(prompt, "", reply) || reply->isEmpty()) return 0;
    const MemoryGrid& g = c.frmCsvMem.grdMemories;
    const double value = basic::Val(*reply);
    for (QChar ch : *reply) {
        if (ch < '0' || ch > '9' || value == g.Row || value < 1 || value > g.Rows() - 1) {
            c.p.system->beep();
            Tell(c, "Memory number must be numeric, within the grid, and different to the source");
            return 0;
        }
    }
    return static_cast<int>(value);
}

QString MemoryNumber(const MemoryGrid& g) {
    return QString::number(g.Row);
}

QString Fixed5(double value) {
    return basic::Format(value, "###.00000");
}

}  // namespace

QString SanitiseFieldText(QString text) {
    for (QChar bad : {QChar('"'), QChar(';'), QChar(',')}) text.replace(bad, ' ');
    return text;
}

void mnuInsertAbove_Click(Core& c) {
    LoadGridWindow(c);
    MemoryGrid& g = Grid(c);
    InsertRow(g, std::max(1, g.Row));
    RenumberGrid(c);
    GridChanged(c);
}

void mnuCopy_Click(Core& c) {
    LoadGridWindow(c);
    MemoryGrid& g = Grid(c);
    QString reply;
    if (AskMemoryNumber(c,
                        "This will copy Memory " + MemoryNumber(g) +
                            " to the memory location you specify below",
                        &reply) == 0)
        return;
    // The last row whose number reads as the reply; none leaves the heading row as the target.
    int target = 0;
    for (int r = 1; r < g.Rows(); ++r)
        if (g.TextMatrix(r, 0) == reply) target = r;
    if (!g.TextMatrix(target, 1).isEmpty() &&
        Ask(c,
            "Target memory number " + QString::number(target) + " is not Empty" + "\r\n" +
                "Do you wish to continue?",
            MsgButtons::YesNo) == MsgResult::No)
        return;
    CopyCells(g, g.Row, target);
    GridChanged(c);
}

void mnuMove_Click(Core& c) {
    LoadGridWindow(c);
    MemoryGrid& g = Grid(c);
    QString reply;
    int target = AskMemoryNumber(
        c, "This will move Memory " + MemoryNumber(g) + " to the memory location you specify below",
        &reply);
    if (target == 0) return;
    int source = g.Row;
    if (target < source)
        ++source;
    else
        ++target;
    InsertRow(g, target);
    CopyCells(g, source, target);
    RemoveRow(g, source);
    mnuRenumber_Click(c);
}

void mnuSwap_Click(Core& c) {
    LoadGridWindow(c);
    MemoryGrid& g = Grid(c);
    QString reply;
    const int other = AskMemoryNumber(
        c, "This will swap Memory " + MemoryNumber(g) + " with the memory number you specify below",
        &reply);
    if (other == 0) return;
    for (int col = 1; col < GridCols; ++col)
        std::swap(g.TextMatrix(g.Row, col), g.TextMatrix(other, col));
    mnuRenumber_Click(c);
}

void grdMemories_KeyDown(Core& c, int keyCode) {
    MemoryGrid& g = Grid(c);
    if ((keyCode == 37 && g.Col == 0) || (keyCode == 39 && g.Col == 12)) {
        mnuGoTo_Click(c);
    } else if (keyCode == 46 || keyCode == 110) {
        if (g.Rows() < 3) {
            Tell(c, "Must have at least 1 memory in the grid");
            return;
        }
        if (g.Row < 1) return;
        if (Ask(c, "Delete memory " + MemoryNumber(g) + " ?", MsgButtons::YesNoCancel) !=
            MsgResult::Yes)
            return;
        RemoveRow(g, g.Row);
        mnuRenumber_Click(c);
    }
}

void grdMemories_DblClick(Core& c) {
    if (Grid(c).Col == 0 || Grid(c).Col == 12)
        mnuGoTo_Click(c);
    else
        mnuEdit_Click(c);
}

bool grdMemories_CanEdit(const Core& c, int row, int col) {
    return c.frmCsvMem.grdMemories.enabled && row != 0 && col > 9;
}

bool grdMemories_ValidateEdit(Core& c, int row, int col, QString text) {
    if (!grdMemories_CanEdit(c, row, col) || row >= Grid(c).Rows()) return false;
    if (col == 10) {
        text = text.toUpper();
        if (text != "Y" && text != "N") return false;
    } else if (col == 11) {
        text = text.toUpper();
        if (!GroupAlphabet.contains(text) || text.size() > 1) return false;
    } else {
        text = SanitiseFieldText(text);
    }
    Grid(c).TextMatrix(row, col) = text;
    GridChanged(c);
    return true;
}

// The edit panel.

void mnuEdit_Click(Core& c) {
    LoadGridWindow(c);
    if (Grid(c).Row < 1) return;
    LoadEditPanel(c);
    c.frmCsvMem.lblEditing.caption = "Editing memory " + MemoryNumber(Grid(c));
    ShowEditPanel(c);
}

void LoadEditPanel(Core& c) {
    FrmCsvMem& w = c.frmCsvMem;
    const MemoryGrid& g = w.grdMemories;
    auto cell = [&](int col) { return g.TextMatrix(g.Row, col); };
    auto choose = [](ComboBox& box, const QString& text) {
        const qsizetype i = box.list.indexOf(text);
        if (i >= 0) box.listIndex = static_cast<int>(i);
    };
    w.txtFreqTX.text = cell(4);
    w.txtFreqRX.text = cell(1);
    choose(w.cboMode, cell(2));
    choose(w.cboTXMode, cell(5));
    choose(w.cboShift, cell(3));
    w.optName[1].value = cell(8) == "Name";
    w.optName[0].value = !w.optName[1].value;
    w.txtName.text = cell(9);
    w.cboTXMode.enabled = ComboText(w.cboShift) == "Split";
    choose(w.cboDecode, cell(6));
    w.cboDCS.listIndex = w.cboCTCSS.listIndex = -1;
    const QString decode = ComboText(w.cboDecode);
    if (!decode.isEmpty())
        choose(decode == "DCS" || decode == "DEN" ? w.cboDCS : w.cboCTCSS, cell(7));
    SetToneControls(c);
    w.txtDescription.text = cell(12);
    w.chkScan.value = cell(10) == "Y" ? 1 : 0;
    w.txtGroup.text = cell(11);
}

namespace {

// While the edit panel shows, the grid, the Edit menu, Exit and the filter strip stand aside.
void ShowEditPanelAs(Core& c, bool shown) {
    FrmCsvMem& w = c.frmCsvMem;
    w.grdMemories.enabled = w.mnuEdit.enabled = w.mnuExit.enabled = !shown;
    w.cmdEditOK.enabled = w.cmdEditCancel.enabled = shown;
    w.frmEdit.visible = shown;
    w.frmMainControl.visible = !shown;
}

}  // namespace

void ShowEditPanel(Core& c) {
    ShowEditPanelAs(c, true);
    SetFocus(c, c.frmCsvMem.txtFreqRX);
}

void CloseEditPanel(Core& c) {
    ShowEditPanelAs(c, false);
}

void cmdEditCancel_Click(Core& c) {
    CloseEditPanel(c);
    ++Grid(c).revision;
}

void cmdEditOK_Click(Core& c) {
    FrmCsvMem& w = c.frmCsvMem;
    if (w.txtFreqRX.text.isEmpty()) {
        SetFocus(c, w.txtFreqRX);
        return;
    }
    if (ComboText(w.cboMode).isEmpty())
        w.cboMode.listIndex = static_cast<int>(w.cboMode.list.indexOf("LSB"));
    MemoryGrid& g = w.grdMemories;
    auto& cells = g.rows[static_cast<size_t>(g.Row)].cells;
    const QString decode = ComboText(w.cboDecode);
    cells[1] = w.txtFreqRX.text;
    cells[4] = w.txtFreqTX.text;
    cells[2] = ComboText(w.cboMode);
    cells[5] = ComboText(w.cboTXMode);
    cells[3] = ComboText(w.cboShift);
    cells[6] = decode;
    cells[8] = w.optName[1].value ? "Name" : "Freq";
    cells[9] = w.txtName.text;
    cells[7] = decode == "DEN" || decode == "DCS" ? ComboText(w.cboDCS)
               : decode.isEmpty()                 ? QString()
                                                  : ComboText(w.cboCTCSS);
    // Not sanitised, unlike the in-place edit: a delimiter typed here reaches a saved file.
    cells[12] = w.txtDescription.text;
    cells[11] = w.txtGroup.text.left(1).toUpper();
    cells[10] = w.chkScan.value == 1 ? "Y" : "N";
    CloseEditPanel(c);
    GridChanged(c);
}

void cboShift_Click(Core& c) {
    FrmCsvMem& w = c.frmCsvMem;
    if (ComboText(w.cboShift) == "Split") {
        w.cboTXMode.enabled = true;
        w.cboTXMode.listIndex = w.cboMode.listIndex;
    } else {
        w.cboTXMode.listIndex = -1;
        w.cboTXMode.enabled = false;
    }
}

void cboMode_Click(Core& c) {
    SetToneControls(c);
}
void cboDecode_Click(Core& c) {
    SetToneControls(c);
}

void SetToneControls(Core& c) {
    FrmCsvMem& w = c.frmCsvMem;
    auto off = [](ComboBox& box) {
        box.listIndex = -1;
        box.enabled = false;
    };
    if (ComboText(w.cboMode).left(2) != "FM") {
        off(w.cboDCS);
        off(w.cboCTCSS);
        off(w.cboDecode);
        return;
    }
    w.cboDecode.enabled = true;
    const QString kind = ComboText(w.cboDecode).left(3);
    if (kind == "CTC") {
        off(w.cboDCS);
        w.cboCTCSS.enabled = true;
    } else if (kind == "DCS" || kind == "DEN") {
        off(w.cboCTCSS);
        w.cboDCS.enabled = !w.cboDCS.list.isEmpty();
    } else {
        off(w.cboDCS);
        off(w.cboCTCSS);
    }
}

bool CheckFreqRX(Core& c) {
    FrmCsvMem& w = c.frmCsvMem;
    const QString text = w.txtFreqRX.text;
    if (text == "Empty" || text.isEmpty()) {
        w.txtFreqTX.text.clear();
        return true;
    }
    const int32_t f = ParseFrequency(c, text);
    if (f == -1) {
        w.txtFreqRX.text.clear();
        return false;
    }
    if (!CheckFrequencyRange(c, f)) {
        Tell(c, "Frequency is outside the range of the rig");
        return false;
    }
    w.txtFreqRX.text = Fixed5(f / 100000.0);
    const QString shift = ComboText(w.cboShift);
    if (shift == "Simplex" || shift.isEmpty()) {
        w.cboShift.listIndex = static_cast<int>(w.cboShift.list.indexOf("Simplex"));
        w.txtFreqTX.text = DefaultRepeaterOffset(c, f);
    }
    return true;
}

bool CheckFreqTX(Core& c) {
    FrmCsvMem& w = c.frmCsvMem;
    int32_t f = 0;
    if (!w.txtFreqTX.text.isEmpty()) {
        f = ParseFrequency(c, w.txtFreqTX.text);
        if (f == -1) {
            w.txtFreqTX.text.clear();
            return false;
        }
    } else {
        double rx = 0;
        CellNumber(w.txtFreqRX.text, basic::DecimalMark(), &rx);
        w.txtFreqTX.text = DefaultRepeaterOffset(c, basic::CLng(rx * 100000));
        f = ParseFrequency(c, w.txtFreqTX.text);
    }
    // Only a split's transmit frequency is range-tested; other shifts hold an offset.
    if (ComboText(w.cboShift) == "Split" && !CheckFrequencyRange(c, f)) {
        Tell(c, "Frequency is outside the range of the rig");
        return false;
    }
    w.txtFreqTX.text = Fixed5(f / 100000.0);
    return true;
}

bool CheckName(Core& c) {
    TextBox& box = c.frmCsvMem.txtName;
    box.text = SanitiseFieldText(box.text).trimmed();
    if (box.text.size() >= 9) {
        Tell(c, "Name cannot be more than 8 characters");
        return false;
    }
    return true;
}

void mnuAddToGrid_Click(Core& c) {
    const State& s = c.s;
    if (c.f.chkOnOff.value == 0 || s.Transmitting || s.ScanRunning ||
        (s.SpectrumRunning && !s.SpectrumPaused) || c.f.txtVfoA.text.size() < 7)
        return;
    if (!s.GridHasScanRows) ShowGridWindow(c);
    LoadGridWindow(c);
    FrmCsvMem& w = c.frmCsvMem;
    bool unticked = false;
    for (int i : {0, 1, 3, 4}) {
        if (w.chkFilter[i].value == 0) continue;
        w.chkFilter[i].value = 0;
        SaveSetting(c, c.s.AppName, "Settings", QString("Filter%1").arg(i), "0");
        unticked = true;
    }
    if (unticked) ApplyGridFilters(c);
    MemoryGrid& g = w.grdMemories;
    InsertRow(g, 1);
    RenumberGrid(c);
    QString frequency = c.f.txtVfoA.text;
    frequency.remove(frequency.size() - 3, 1);  // 145.500.00 becomes 145.50000
    const QDate today = c.p.clock->localNow().date();
    g.rows[1].cells = {"1",
                       frequency,
                       c.f.txtMode.text.trimmed(),
                       "Simplex",
                       DefaultRepeaterOffset(c, ParseFrequency(c, frequency, true)),
                       "",
                       "",
                       "",
                       "Freq",
                       "",
                       "Y",
                       "0",
                       QString("%1/%2/%3 ").arg(today.year()).arg(today.month()).arg(today.day()) +
                           c.f.lblUTC.caption};
    g.Row = 1;
    GridChanged(c);
}

}  // namespace veldor
