// The handlers of frmConvert: reading a Kenwood or repeater file, or importing a memory CSV
// file, into the window's grid; writing the grid over a Kenwood file of the chosen family, or
// as a memory CSV file.
#include "convert/convert.h"
#include "grid/csv_file.h"
#include "grid/grid.h"
#include "link/catalogue.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>

namespace veldor {

namespace {

// The open dialog's filter of each ConvertFileType.
const char* const kFilters[] = {
    "Kenwood memory files (*.71)|*.71|All Files (*.*)|*.*",
    "Kenwood memory files (*.700)|*.700|All Files (*.*)|*.*",
    "Kenwood memory files (*.D7G)|*.D7G|All Files (*.*)|*.*",
    "Kenwood memory files (*.D7)|*.D7|All Files (*.*)|*.*",
    ("ARRL repeater (pre Ver 7) files (*.tpe)|*.tpe|ARRL repeater (Ver 7) files (*.CSV)|*.CSV|"
     "All Files (*.*)|*.*"),
};

void Box(Core& c, const QString& text) {
    c.p.dialogs->messageBox(text, "VELDOR", MsgButtons::OK, MsgIcon::None);
}

// A failure the platform reports as a run-time error, in its words.
void RunTimeError(Core& c, int number, const QString& description) {
    c.p.dialogs->messageBox(
        "Run-time error '" + QString::number(number) + "':\r\n\r\n" + description, "VELDOR",
        MsgButtons::OK, MsgIcon::Critical);
}

// The file the operator picks for the chosen type; empty when the dialog is cancelled or the
// file does not exist (the box has told so).
QString PickExistingFile(Core& c) {
    const int type = std::clamp(c.s.ConvertFileType, 0, ArrlRepeaterFile);
    const QString name = c.p.dialogs->openFileName("Open", c.s.HomeDir, kFilters[type], 1);
    if (name.isEmpty()) return {};
    if (!QFileInfo(name).isFile()) {
        Box(c, "Filename " + name + " does not exist");
        return {};
    }
    return name;
}

bool ReadWhole(Core& c, const QString& name, QByteArray* bytes) {
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        RunTimeError(c, 75, "Path/File access error");
        return false;
    }
    *bytes = file.readAll();
    return true;
}

// The new file goes to name.TMP first; only when it is whole on disk does the old file become
// name.BAK and name.TMP take its name, so a failure on the way leaves the old file as it was.
bool ReplaceKeepingBackup(Core& c, const QString& name, const QByteArray& bytes) {
    QSaveFile temporary(name + ".TMP");
    if (!temporary.open(QIODevice::WriteOnly) || temporary.write(bytes) != bytes.size() ||
        !temporary.commit()) {
        RunTimeError(c, 75, "Path/File access error");
        return false;
    }
    const QString backup = name + ".BAK";
    if (QFile::exists(backup) && !QFile::remove(backup)) {
        RunTimeError(c, 75, "Path/File access error");
        return false;
    }
    if (!QFile::rename(name, backup) || !QFile::rename(name + ".TMP", name)) {
        RunTimeError(c, 58, "File already exists");
        return false;
    }
    return true;
}

std::vector<MemoryRow> MemoryRows(const FrmConvert& f) {
    std::vector<MemoryRow> rows;
    rows.reserve(f.grdMemories.rows.size());
    for (size_t r = 1; r < f.grdMemories.rows.size(); ++r)
        rows.push_back(f.grdMemories.rows[r].cells);
    return rows;
}

}  // namespace

void ShowConversionFailure(Core& c) {
    RunTimeError(c, 13, "Type mismatch");
}

void frmConvert_Load(Core& c) {
    FrmConvert& f = c.frmConvert;
    f = FrmConvert{};
    for (const char* tone : Tones39()) f.cboCTCSS.list.append(tone);
    for (const char* code : DcsCodes()) f.cboDCS.list.append(code);
    c.s.GridLoaded = false;
    c.s.ConvertFileType = std::clamp(c.s.ConvertFileType, 0, ArrlRepeaterFile);
    for (size_t i = 0; i < f.optProgFile.size(); ++i)
        f.optProgFile[i].value = int(i) == c.s.ConvertFileType;
    ClearConvertGrid(c);
}

void optProgFile_Click(Core& c, int index) {
    c.s.ConvertFileType = index;
}

void ClearConvertGrid(Core& c) {
    MemoryGrid& grid = c.frmConvert.grdMemories;
    if (grid.rows.empty()) grid.rows.resize(1);
    for (size_t r = 1; r < grid.rows.size(); ++r) grid.rows[r] = GridRow{};
    grid.rows[0].cells = ColumnHeadings();
    ++grid.revision;
}

void DisableConvertButtons(Core& c) {
    FrmConvert& f = c.frmConvert;
    f.cmdExit.enabled = f.cmdExport.enabled = f.cmdExportKenwood.enabled = false;
}

void EnableConvertButtons(Core& c) {
    FrmConvert& f = c.frmConvert;
    f.cmdExit.enabled = f.cmdLoadFile.enabled = f.cmdImport.enabled = true;
    if (c.s.GridLoaded) f.cmdExport.enabled = f.cmdExportKenwood.enabled = true;
}

void cmdLoadFile_Click(Core& c) {
    DisableConvertButtons(c);
    const QString name = PickExistingFile(c);
    QByteArray bytes;
    std::vector<MemoryRow> rows;
    if (name.isEmpty() || !ReadWhole(c, name, &bytes)) {
        EnableConvertButtons(c);
        return;
    }
    if (!ReadMemoryFile(c, bytes, &rows)) {
        // The grid keeps what it had: the file's rows are taken only when all of them read.
        ShowConversionFailure(c);
    } else if (rows.empty()) {
        Box(c, "No memory records found - please try another file");
    } else {
        MemoryGrid& grid = c.frmConvert.grdMemories;
        grid.rows.resize(rows.size() + 1);
        ClearConvertGrid(c);
        for (size_t r = 0; r < rows.size(); ++r) grid.rows[r + 1].cells = std::move(rows[r]);
        grid.Row = grid.Col = 1;
        c.frmConvert.lblFileLoaded.caption = name + " ";
        c.s.GridLoaded = true;
    }
    EnableConvertButtons(c);
}

void cmdExportKenwood_Click(Core& c) {
    if (!c.s.GridLoaded) {
        Box(c,
            "Import a CSV file or read a Kenwood file into the grid before trying to Export to "
            "Kenwood");
        return;
    }
    if (c.s.ConvertFileType == ArrlRepeaterFile) {
        Box(c, "Select a Kenwood rig to export to");
        return;
    }
    DisableConvertButtons(c);
    // The file picked is the template and the target at once.
    const QString name = PickExistingFile(c);
    QByteArray file, exported;
    if (!name.isEmpty() && ReadWhole(c, name, &file)) {
        if (!ExportKenwoodFile(c, file, MemoryRows(c.frmConvert), &exported))
            ShowConversionFailure(c);
        else if (ReplaceKeepingBackup(c, name, exported))
            Box(c, "Export to Kenwood complete");
    }
    EnableConvertButtons(c);
}

void cmdImport_Click(Core& c) {
    c.s.FieldDelimiter = c.s.DecimalSeparator == "." ? "," : ";";
    DisableConvertButtons(c);
    // Every way out enables the buttons again.
    struct Enable {
        Core& c;
        ~Enable() { EnableConvertButtons(c); }
    } enable{c};

    QString name = c.p.dialogs->openFileName("Open", c.s.HomeDir, CsvFileFilter, 1);
    if (name.isEmpty()) return;
    if (!name.toUpper().endsWith(".CSV")) name += ".CSV";
    if (!QFileInfo(name).isFile()) {
        Box(c, "Filename " + name + " does not exist");
        return;
    }
    QByteArray bytes;
    if (!ReadWhole(c, name, &bytes)) return;

    // The memory grid's reader, with the tone lists of this window whatever the rig.
    FrmConvert& f = c.frmConvert;
    CsvRules rules{c.s.RigType, f.cboCTCSS.list, f.cboDCS.list, ConvertToneKinds};
    rules.emptyTxIsDefault = false;
    rules.reportNumericName = true;
    CsvImport in;
    if (!ReadCsvImport(c, bytes, rules, &in)) return;

    // The file's records replace whatever the grid held, numbered from 1.
    MemoryGrid& grid = f.grdMemories;
    grid.rows.resize(1);
    grid.rows.reserve(in.rows.size() + 1);
    for (GridRow& row : in.rows) {
        row.cells[0] = QString::number(grid.rows.size());
        grid.rows.push_back(std::move(row));
    }
    grid.Row = grid.Col = 1;
    ++grid.revision;
    f.lblFileLoaded.caption = name + " ";
    c.s.GridLoaded = true;
}

void cmdExport_Click(Core& c) {
    c.s.FieldDelimiter = c.s.DecimalSeparator == "." ? "," : ";";
    DisableConvertButtons(c);
    QString name = c.p.dialogs->saveFileName("Save As", c.s.HomeDir, CsvFileFilter, 1);
    if (!name.isEmpty() && !name.toUpper().endsWith(".CSV")) name += ".CSV";
    const bool refused =
        name.isEmpty() || (QFileInfo::exists(name) &&
                           c.p.dialogs->messageBox(
                               "Filename " + name + " already exists\r\nDo you wish to replace it?",
                               "VELDOR", MsgButtons::YesNo, MsgIcon::Question) == MsgResult::No);
    if (!refused) {
        // The memory grid's writer; here a row without a receive frequency is left out.
        const QByteArray bytes = WriteCsvRows(c.frmConvert.grdMemories.rows, c.s.FieldDelimiter[0],
                                              c.s.DecimalSeparator[0], false, 1);
        QSaveFile file(name);
        if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
            Box(c, "Export completed");
        else
            RunTimeError(c, 75, "Path/File access error");
    }
    EnableConvertButtons(c);
}

void cmdExit_Click(Core& c) {
    c.p.windows->close(FormId::frmConvert);
}

}  // namespace veldor
