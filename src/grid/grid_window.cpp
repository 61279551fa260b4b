// The grid window's life, its file between runs, and the CSV import and export.
#include "basic/basic.h"
#include "grid/csv_file.h"
#include "grid/grid.h"
#include "link/catalogue.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <iterator>

namespace veldor {

namespace {

const QString kGridFileHeader = QStringLiteral("VELDOR memory grid 1");

MsgResult Ask(Core& c, const QString& text, MsgButtons buttons) {
    return c.p.dialogs->messageBox(text, "VELDOR", buttons, MsgIcon::Question);
}
void Tell(Core& c, const QString& text) {
    c.p.dialogs->messageBox(text, "VELDOR", MsgButtons::OK, MsgIcon::None);
}

QChar Mark(const Core& c) {
    return c.s.DecimalSeparator.isEmpty() ? QChar('.') : c.s.DecimalSeparator[0];
}

// The delimiter by the locale: "," with a decimal point, ";" with a decimal comma.
void SetFieldDelimiter(Core& c) {
    c.s.FieldDelimiter = c.s.DecimalSeparator == "." ? "," : ";";
}

QString WithCsvExtension(QString name) {
    if (!name.toUpper().endsWith(".CSV")) name += ".CSV";
    return name;
}

QString Setting(Core& c, const QString& key, const QString& defaultValue) {
    return GetSetting(c, c.s.AppName, "Settings", key, defaultValue);
}

// The tone and code lists of the edit panel, by rig.
void FillToneLists(Core& c) {
    FrmCsvMem& w = c.frmCsvMem;
    const QString& rig = c.s.RigType;
    w.cboCTCSS = ComboBox{{true, true, w.cboCTCSS.toolTip}};
    w.cboDCS = ComboBox{{true, true, w.cboDCS.toolTip}};
    const RigInfo* info = FindRig(rig);
    if (rig == RigFT1000MP) {
        w.cboDCS.enabled = false;
        return;
    }
    if (!info) return;
    for (const char* tone : info->tones == ToneList::Tones50 ? Tones50() : Tones39())
        w.cboCTCSS.list << tone;
    for (const char* code : DcsCodes()) w.cboDCS.list << code;
}

// Chooses the list's item of that text; a text the list does not hold leaves the box as it was.
void Choose(ComboBox& box, const QString& text) {
    const qsizetype i = box.list.indexOf(text);
    if (i >= 0) box.listIndex = static_cast<int>(i);
}

void LoadFilterSettings(Core& c) {
    FrmCsvMem& w = c.frmCsvMem;
    for (int i = 0; i < 2; ++i) {
        w.cboShow[i].listIndex = -1;
        w.cboShow[i].text = Setting(c, QString("Show%1").arg(i), "0");
        Choose(w.cboShow[i], w.cboShow[i].text);
    }
    w.cboModeFilter.listIndex = -1;
    w.cboModeFilter.text = Setting(c, "ModeFilter", "All");
    Choose(w.cboModeFilter, w.cboModeFilter.text);
    for (int i : {0, 1, 3, 4})
        w.chkFilter[i].value = basic::Val(Setting(c, QString("Filter%1").arg(i), "0")) != 0;
    w.txtFreqLo.text = Setting(c, "FreqLo", "0");
    w.txtFreqHi.text = Setting(c, "FreqHi", "0");
}

// Reads the grid file; one that cannot be read is kept aside under another name, so that the
// next save does not write over what it holds, and the grid starts afresh.
void LoadGridFile(Core& c) {
    const QString name = GridFileName(c);
    QFile file(name);
    if (!file.exists()) {
        ResetGrid(c);
        return;
    }
    QString reason;
    std::vector<GridRow> rows;
    if (!file.open(QIODevice::ReadOnly))
        reason = file.errorString();
    else if (DecodeGrid(file.readAll(), &rows, &reason))
        c.frmCsvMem.grdMemories.rows = std::move(rows);
    file.close();
    if (reason.isEmpty()) return;
    const QString kept = name + ".bad";
    QFile::remove(kept);
    QFile::rename(name, kept);
    ReportMessage(c, "The memory grid file " + name + " could not be read (" + reason +
                         "); it is kept as " + kept + " and the grid starts afresh");
    ResetGrid(c);
}

void SaveWindowPlacement(Core& c) {
    const FrmCsvMem& w = c.frmCsvMem;
    SaveSettings(c, c.s.AppName, "Settings",
                 {{"MemoryWindowState", QString::number(w.windowState)},
                  {"MemoryHeight", QString::number(w.height)},
                  {"MemoryWidth", QString::number(w.width)},
                  {"MemoryTop", QString::number(w.top)},
                  {"MemoryLeft", QString::number(w.left)}});
}

}  // namespace

QString GridFileName(const Core& c) {
    const QString file = c.s.AppName == "VELDOR" ? "LastUsed.VDR" : c.s.AppName + ".VDR";
    return c.s.HomeDir.isEmpty() ? file : QDir(c.s.HomeDir).filePath(file);
}

void frmCsvMem_Load(Core& c) {
    FrmCsvMem& w = c.frmCsvMem;
    if (c.s.ScreenSize != "None") {
        auto number = [&](const QString& key, int current) {
            return basic::CLng(basic::Val(Setting(c, key, QString::number(current))));
        };
        w.windowState = number("MemoryWindowState", 0);
        w.height = number("MemoryHeight", w.height);
        w.width = number("MemoryWidth", w.width);
        w.top = number("MemoryTop", w.top);
        w.left = number("MemoryLeft", w.left);
    }
    FillToneLists(c);
    w.cboMode.list = w.cboTXMode.list = w.cboModeFilter.list = ModeList();
    w.cboShift.list = QStringList{"Simplex", "Plus", "Minus", "Split"};
    w.cboDecode.list = QStringList{"DEN", "DCS", "CTCSS Enc+Dec", "CTCSS Enc", ""};
    QStringList groups;
    for (QChar g : QStringLiteral("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ")) groups << QString(g);
    w.cboShow[0].list = w.cboShow[1].list = groups;

    LoadGridFile(c);
    // A grid saved under the other locale has its decimal mark mended.
    MemoryGrid& g = w.grdMemories;
    for (int r = 1; r < g.Rows(); ++r)
        for (int col : {1, 4}) {
            QString& cell = g.TextMatrix(r, col);
            const qsizetype at = cell.indexOf(c.s.OtherDecimalSeparator);
            if (at >= 0) cell.replace(at, 1, c.s.DecimalSeparator);
        }
    g.Row = std::min(1, g.Rows() - 1);
    g.Col = 1;
    ++g.revision;

    LoadFilterSettings(c);
    FilterGridRows(c);
    if (c.s.PrinterAvailable && c.p.printer) c.p.printer->setFont("Courier New", 9);
    c.s.MemoryGridLoaded = true;
}

void frmCsvMem_Unload(Core& c) {
    if (!c.s.MemoryGridLoaded) return;
    SaveGridFile(c);
    SaveWindowPlacement(c);
    c.s.GridHasScanRows = false;
    c.s.MemoryGridLoaded = false;
}

void LoadGridWindow(Core& c) {
    if (!c.s.MemoryGridLoaded) frmCsvMem_Load(c);
}

void ShowGridWindow(Core& c) {
    LoadGridWindow(c);
    if (c.p.windows) c.p.windows->show(FormId::frmCsvMem, false);
}

void frmCsvMem_Deactivate(Core& c) {
    if (c.s.MemoryGridLoaded) ApplyGridFilters(c);
}

void cmdCsvMem_Click(Core& c) {
    if (c.s.Transmitting || c.s.SpectrumRunning || c.s.ScanRunning) return;
    ShowGridWindow(c);
}

void OpenMemoryGridAtStart(Core& c) {
    if (!c.s.AutoMemoryGrid || c.s.MemoryGridLoaded) return;
    ShowGridWindow(c);
    c.s.AutoMemoryGrid = false;
}

// The grid file.

namespace {

void Escape(QString& out, const QString& cell) {
    const bool plain = std::none_of(cell.begin(), cell.end(), [](QChar ch) {
        return ch == '\\' || ch == '\t' || ch == '\n' || ch == '\r';
    });
    if (plain) {
        out += cell;
        return;
    }
    for (QChar ch : cell) {
        switch (ch.unicode()) {
            case '\\':
                out += QLatin1String("\\\\");
                break;
            case '\t':
                out += QLatin1String("\\t");
                break;
            case '\n':
                out += QLatin1String("\\n");
                break;
            case '\r':
                out += QLatin1String("\\r");
                break;
            default:
                out += ch;
        }
    }
}

bool Unescape(QStringView text, QString* cell) {
    cell->clear();
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            *cell += text[i];
            continue;
        }
        if (++i == text.size()) return false;
        switch (text[i].unicode()) {
            case '\\':
                *cell += '\\';
                break;
            case 't':
                *cell += '\t';
                break;
            case 'n':
                *cell += '\n';
                break;
            case 'r':
                *cell += '\r';
                break;
            default:
                return false;
        }
    }
    return true;
}

}  // namespace

QByteArray EncodeGrid(const std::vector<GridRow>& rows) {
    QByteArray text = kGridFileHeader.toUtf8() + '\n' + QByteArray::number(rows.size()) + '\n';
    text.reserve(static_cast<qsizetype>(rows.size()) * 96);
    // A cell of plain ASCII goes straight in; any other is escaped and converted to UTF-8.
    QString escaped;
    for (const GridRow& row : rows) {
        for (int col = 0; col < GridCols; ++col) {
            const QString& cell = row.cells[col];
            const bool plain = std::all_of(cell.begin(), cell.end(), [](QChar ch) {
                return ch.unicode() >= ' ' && ch.unicode() < 0x7f && ch != '\\';
            });
            const qsizetype at = text.size();
            text.resize(at + (col > 0 ? 1 : 0) + (plain ? cell.size() : 0));
            char* out = text.data() + at;
            if (col > 0) *out++ = '\t';
            if (plain) {
                std::transform(cell.begin(), cell.end(), out,
                               [](QChar ch) { return static_cast<char>(ch.unicode()); });
            } else {
                escaped.clear();
                Escape(escaped, cell);
                text += escaped.toUtf8();
            }
        }
        text += '\n';
    }
    return text;
}

bool DecodeGrid(const QByteArray& bytes, std::vector<GridRow>* rows, QString* reason) {
    const QString text = QString::fromUtf8(bytes);
    const QList<QStringView> lines = QStringView(text).split(u'\n');
    auto fail = [reason](const QString& why) {
        *reason = why;
        return false;
    };
    if (lines.size() < 2 || lines[0] != kGridFileHeader) return fail("not a memory grid file");
    bool ok = false;
    const qsizetype count = lines[1].toLongLong(&ok);
    // One line per row, and the empty text after the last line's end.
    if (!ok || count < 1 || lines.size() != count + 3 || !lines.back().isEmpty())
        return fail("the file is cut short or has lines beyond its rows");
    std::vector<GridRow> read(static_cast<size_t>(count));
    for (qsizetype r = 0; r < count; ++r) {
        const QList<QStringView> cells = lines[r + 2].split(u'\t');
        if (cells.size() != GridCols) return fail(QString("row %1 has not 13 cells").arg(r));
        for (int col = 0; col < GridCols; ++col)
            if (!Unescape(cells[col], &read[static_cast<size_t>(r)].cells[col]))
                return fail(QString("row %1 has a broken escape").arg(r));
    }
    *rows = std::move(read);
    return true;
}

void SaveGridFile(Core& c) {
    if (!c.s.MemoryGridLoaded) return;
    // Written to a temporary file and renamed over the old one: a crash leaves one or the other.
    const QString name = GridFileName(c);
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(EncodeGrid(c.frmCsvMem.grdMemories.rows)) < 0 || !file.commit())
        ReportMessage(c,
                      "The memory grid could not be saved to " + name + ": " + file.errorString());
}

void GridChanged(Core& c) {
    ++c.frmCsvMem.grdMemories.revision;
    SaveGridFile(c);
}

// Import and export.

void DisableMenus(Core& c) {
    FrmCsvMem& w = c.frmCsvMem;
    for (MenuItem* m :
         {&w.mnuExit, &w.mnuCopy, &w.mnuPrint, &w.mnuRenumber, &w.mnuInsertAbove, &w.mnuMove,
          &w.mnuSwap, &w.mnuAddCSV, &w.mnuSaveCSV, &w.mnuNewGrid, &w.mnuSaveFiltered})
        m->enabled = false;
}

void EnableMenus(Core& c) {
    FrmCsvMem& w = c.frmCsvMem;
    for (MenuItem* m :
         {&w.mnuExit, &w.mnuCopy, &w.mnuPrint, &w.mnuRenumber, &w.mnuInsertAbove, &w.mnuMove,
          &w.mnuSwap, &w.mnuAddCSV, &w.mnuSaveCSV, &w.mnuNewGrid, &w.mnuSaveFiltered, &w.mnuEdit})
        m->enabled = true;
}

bool ReadCsvImport(Core& c, const QByteArray& bytes, const CsvRules& rules, CsvImport* in) {
    QChar delimiter = c.s.FieldDelimiter[0];
    *in = ReadCsvFile(bytes, delimiter, Mark(c), rules);
    c.s.FieldDelimiter = delimiter;
    if (!in->headerValid) {
        Tell(c, "First record is not a valid header record - import aborted");
        return false;
    }
    for (const QString& message : in->messages) ReportMessage(c, message);
    if (in->failedRecord > 0) {
        c.p.dialogs->messageBox(CsvFailureText(*in), "VELDOR", MsgButtons::OK, MsgIcon::Critical);
        return false;
    }
    return in->messages.isEmpty() ||
           Ask(c, "One or more errors existing in this file. Do you want to try to load it?",
               MsgButtons::YesNo) != MsgResult::No;
}

void mnuAddCSV_Click(Core& c) {
    LoadGridWindow(c);
    SetFieldDelimiter(c);
    DisableMenus(c);
    // Every way out re-enables the menus.
    struct Enable {
        Core& c;
        ~Enable() { EnableMenus(c); }
    } enable{c};

    QString name = c.p.dialogs->openFileName("Open", c.s.HomeDir, CsvFileFilter, 1);
    if (name.isEmpty()) return;
    name = WithCsvExtension(name);
    QFile file(name);
    if (!file.exists()) {
        Tell(c, "Filename " + name + " does not exist");
        return;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        Tell(c, "Filename " + name + " could not be read: " + file.errorString());
        return;
    }
    const QByteArray bytes = file.readAll();
    file.close();

    const FrmCsvMem& w = c.frmCsvMem;
    CsvImport in;
    if (!ReadCsvImport(c, bytes, CsvRules{c.s.RigType, w.cboCTCSS.list, w.cboDCS.list}, &in))
        return;
    const MsgResult clear =
        Ask(c, "Do you want to clear all of the existing memories before importing?",
            MsgButtons::YesNoCancel);
    if (clear == MsgResult::Cancel) return;
    MemoryGrid& g = c.frmCsvMem.grdMemories;
    if (clear == MsgResult::Yes) g.rows.resize(1);
    // Rows read into an empty grid are taken over where they lie, below the heading row.
    const size_t first = g.rows.size();
    if (first == 1) {
        in.rows.insert(in.rows.begin(), std::move(g.rows[0]));
        g.rows = std::move(in.rows);
    } else {
        g.rows.reserve(g.rows.size() + in.rows.size());
        std::move(in.rows.begin(), in.rows.end(), std::back_inserter(g.rows));
    }
    for (size_t r = first; r < g.rows.size(); ++r) g.rows[r].cells[0] = QString::number(r);
    g.Row = std::min(1, g.Rows() - 1);
    g.Col = 1;
    mnuClearFilters_Click(c);
    GridChanged(c);
}

bool WriteCsvFile(Core& c, const QString& fileName) {
    QSaveFile file(fileName);
    const QByteArray bytes = WriteCsvRows(c.frmCsvMem.grdMemories.rows, c.s.FieldDelimiter[0],
                                          Mark(c), c.s.SaveFilteredOnly, 2);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return true;
    Tell(c, "Filename " + fileName + " could not be written: " + file.errorString());
    return false;
}

void mnuSaveCSV_Click(Core& c) {
    LoadGridWindow(c);
    SetFieldDelimiter(c);
    DisableMenus(c);
    QString name = c.p.dialogs->saveFileName("Save As", c.s.HomeDir, CsvFileFilter, 1);
    if (name.isEmpty()) {
        EnableMenus(c);
        return;
    }
    name = WithCsvExtension(name);
    if (QFileInfo::exists(name) &&
        Ask(c, "Filename " + name + " already exists" + "\r\n" + "Do you wish to replace it?",
            MsgButtons::YesNo) == MsgResult::No) {
        EnableMenus(c);
        return;
    }
    const bool written = WriteCsvFile(c, name);
    EnableMenus(c);
    if (written) Tell(c, "Save completed");
}

void mnuSaveFiltered_Click(Core& c) {
    c.s.SaveFilteredOnly = true;
    mnuSaveCSV_Click(c);
    c.s.SaveFilteredOnly = false;
}

void mnuNewGrid_Click(Core& c) {
    LoadGridWindow(c);
    const MsgResult answer =
        Ask(c, "This will destroy the existing memory grid. Do you want to save it first?",
            MsgButtons::YesNoCancel);
    if (answer == MsgResult::Cancel) return;
    if (answer == MsgResult::Yes) mnuSaveCSV_Click(c);
    ResetGrid(c);
    mnuClearFilters_Click(c);
    GridChanged(c);
}

void ResetGrid(Core& c) {
    MemoryGrid& g = c.frmCsvMem.grdMemories;
    g.rows.assign(2, GridRow{});
    for (int col = 0; col < GridCols; ++col) g.rows[0].cells[col] = ColumnHeadings()[col];
    // Literals with a point, in every locale.
    g.rows[1].cells = {"1", "7.00000", "LSB", "Simplex", ".10000", "", "",
                       "",  "Freq",    "",    "Y",       "0",      ""};
    g.Row = 1;
    g.Col = 1;
    ++g.revision;
}

void RenumberGrid(Core& c) {
    LoadGridWindow(c);
    MemoryGrid& g = c.frmCsvMem.grdMemories;
    for (int r = 1; r < g.Rows(); ++r) g.TextMatrix(r, 0) = QString::number(r);
}

void mnuRenumber_Click(Core& c) {
    RenumberGrid(c);
    GridChanged(c);
}

}  // namespace veldor
