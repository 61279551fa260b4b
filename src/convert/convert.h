// File conversion: the memory files of Kenwood's programming software (*.71, *.700, *.D7G,
// *.D7) and the ARRL repeater directory's files, read into and written from the grid of
// frmConvert. Nothing here touches the rig or the memory grid.
#pragma once

#include "link/core.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace veldor {

// ConvertFileType of an ARRL repeater file.
inline constexpr int ArrlRepeaterFile = 4;

// The file's lines, as the system's single-byte code page holds them, without their ends (CR
// LF, or a lone LF or CR). A last line without an end is a line too.
QStringList FileLines(const QByteArray& bytes);

// A whole number in tens of hertz as MHz text: 14550000 is "145.50000", 350000 "3.50000".
QString TensToMHzText(Core& c, double value);

// Whether the first three characters of a line, compared as text, lie from "001" to "199".
bool IsMemoryNumber(const QString& text);

// Kenwood memory files. A memory line is read into a row, and a row written as a memory line
// of the family ConvertFileType names; false when a number column of the row is no number.
void ParseKenwoodLine(Core& c, const QString& line, MemoryRow& row);
bool KenwoodMemoryLine(Core& c, const MemoryRow& row, QString* line);
// The picked file with its memory section replaced by the rows that have a frequency: the
// lines up to "MEMORY" and from "CALL" kept. False when a row will not convert.
bool ExportKenwoodFile(Core& c, const QByteArray& file, const std::vector<MemoryRow>& rows,
                       QByteArray* out);

// ARRL repeater files: whether a line is a record (numbered 001 to 199), and the record read
// into a row; false when its frequencies are no numbers.
bool IsRepeaterRecord(Core& c, const QString& line);
bool ParseRepeaterLine(Core& c, const QString& line, MemoryRow& row);

// The records of a file of ConvertFileType's kind, read in two passes (count, then fill).
// False when a record will not convert; rows then holds what was read before it.
bool ReadMemoryFile(Core& c, const QByteArray& bytes, std::vector<MemoryRow>* rows);

// The box a conversion that fails shows, as the platform shows a run-time failure.
void ShowConversionFailure(Core& c);

// The window and its handlers.
void frmConvert_Load(Core& c);
void optProgFile_Click(Core& c, int index);
void cmdLoadFile_Click(Core& c);
void cmdExportKenwood_Click(Core& c);
// Reads a memory CSV file into the grid, in place of what it held.
void cmdImport_Click(Core& c);
// Writes the grid as a memory CSV file.
void cmdExport_Click(Core& c);
void cmdExit_Click(Core& c);
void ClearConvertGrid(Core& c);
void DisableConvertButtons(Core& c);
void EnableConvertButtons(Core& c);

}  // namespace veldor
