// The memory grid's handlers: the window and its file, import and export, editing, filters,
// tuning from a row, and the printed listing. They work on c.frmCsvMem; none of them sends to
// the rig (GoTo fills the tune target for the next tick).
#pragma once

#include "grid/csv_file.h"
#include "link/core.h"

#include <QByteArray>
#include <QStringList>

namespace veldor {

// The window. Load fills its lists, reads the grid file and runs the filters; it is run by
// anything that needs the grid while the window is not loaded. Unload saves the grid and the
// window's placement.
void frmCsvMem_Load(Core& c);
void frmCsvMem_Unload(Core& c);
void LoadGridWindow(Core& c);  // loads the window unless it is loaded
void ShowGridWindow(Core& c);  // loads it and shows it beside the main window
void frmCsvMem_Deactivate(Core& c);
// "Mem Grid" on the main window; ignored while transmitting, sweeping or scanning.
void cmdCsvMem_Click(Core& c);
// Run each second by the clock: the grid opens once, one second after start.
void OpenMemoryGridAtStart(Core& c);

// The grid between runs: LastUsed.VDR (or AppName + ".VDR") in HomeDir, written whole and
// atomically after every change.
QString GridFileName(const Core& c);
void SaveGridFile(Core& c);
// Every change of cells or rows ends here: the view shows the rows anew, and the file is saved.
void GridChanged(Core& c);
// The file's text: a first line naming the format, the number of rows, then one line per row
// of thirteen cells separated by tabs, with backslash, tab, CR and LF escaped.
QByteArray EncodeGrid(const std::vector<GridRow>& rows);
// False, with the reason, for anything that is not such a file; rows is then left as it was.
bool DecodeGrid(const QByteArray& bytes, std::vector<GridRow>* rows, QString* reason);

// Files.
void mnuAddCSV_Click(Core& c);
// The checking pass of an import by the rules given, with its messages and questions: false
// when the import goes no further (no valid header, a record that fails, or the operator
// declines a file with errors).
bool ReadCsvImport(Core& c, const QByteArray& bytes, const CsvRules& rules, CsvImport* in);
void mnuSaveCSV_Click(Core& c);
void mnuSaveFiltered_Click(Core& c);
bool WriteCsvFile(Core& c, const QString& fileName);
void mnuNewGrid_Click(Core& c);
void ResetGrid(Core& c);
void RenumberGrid(Core& c);
void mnuRenumber_Click(Core& c);
void DisableMenus(Core& c);
void EnableMenus(Core& c);

// Editing.
void mnuInsertAbove_Click(Core& c);
void mnuCopy_Click(Core& c);
void mnuMove_Click(Core& c);
void mnuSwap_Click(Core& c);
// Key codes as the grid has them: 37 left, 39 right, 46 Delete, 110 the pad's decimal key.
void grdMemories_KeyDown(Core& c, int keyCode);
void grdMemories_DblClick(Core& c);
// Whether a cell may be edited in place: Scan, Group and Description of a memory.
bool grdMemories_CanEdit(const Core& c, int row, int col);
// An in-place edit: false refuses it; otherwise the text (as mended) is stored.
bool grdMemories_ValidateEdit(Core& c, int row, int col, QString text);
QString SanitiseFieldText(QString text);
void mnuEdit_Click(Core& c);
void LoadEditPanel(Core& c);
void ShowEditPanel(Core& c);
void CloseEditPanel(Core& c);
void cmdEditOK_Click(Core& c);
void cmdEditCancel_Click(Core& c);
void cboShift_Click(Core& c);
void cboMode_Click(Core& c);
void cboDecode_Click(Core& c);
void SetToneControls(Core& c);
bool CheckFreqRX(Core& c);
bool CheckFreqTX(Core& c);
bool CheckName(Core& c);
// "Add frequency to grid" (F4) on the main window.
void mnuAddToGrid_Click(Core& c);

// Filters. ApplyGridFilters loads the window first if need be; FilterGridRows is its body.
void ApplyGridFilters(Core& c);
void FilterGridRows(Core& c);
void chkFilter_Click(Core& c, int index);
void cboShow_Click(Core& c, int index);
void cboShow_Validate(Core& c, int index);
void cboModeFilter_Click(Core& c);
// The checks on leaving the Lo and Hi boxes; false keeps the focus in the box.
bool txtFreqLo_Check(Core& c);
bool txtFreqHi_Check(Core& c);
void mnuClearFilters_Click(Core& c);

// Tuning from the current row; the tick runs ApplySplitMemory for a split row.
void mnuGoTo_Click(Core& c);
void ApplySplitMemory(Core& c);

// Printing: the listing's lines, and the menu that sends them to the default printer. failed
// is set where a run of empty memories is too long a text for its field: the listing ends
// there, and nothing is printed.
QStringList PrintListing(const MemoryGrid& grid, QChar decimal, bool* failed);
void mnuPrint_Click(Core& c);

}  // namespace veldor
