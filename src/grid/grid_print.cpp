// The printed listing: plain lines of fixed-pitch text, runs of empty memories on one line.
#include "grid/grid.h"

namespace veldor {

namespace {

// Left-justified, cut or blank-padded to the width.
QString Field(const QString& text, int width) {
    return (text + QString(width, ' ')).left(width);
}

// Blanks, of which a negative count cannot be made: the listing fails there.
bool Blanks(qsizetype count, QString* out) {
    if (count < 0) return false;
    *out = QString(count, ' ');
    return true;
}

// Seven blanks, then the number right-justified in five places, in a field of fifteen.
bool NumberField(const QString& number, QString* out) {
    QString lead;
    if (!Blanks(5 - number.size(), &lead)) return false;
    *out = Field("       " + lead + number, 15);
    return true;
}

// The decimal mark in the fourth place of an eleven-wide field.
bool AlignedField(const QString& text, QChar decimal, QString* out) {
    QString lead;
    if (!Blanks(4 - (text.indexOf(decimal) + 1), &lead)) return false;
    *out = Field(lead + text, 11);
    return true;
}

}  // namespace

QStringList PrintListing(const MemoryGrid& grid, QChar decimal, bool* failed) {
    QStringList lines = {QString(15, ' ') + "Memories print", "",
                         QString(15, ' ') + "RX Freq    " + "Mode   " + "Shift   " + "TX/Offset  " +
                             "TX Mode  " + "Decode       " + "Tone   " + "Show  " + "Name   " +
                             "Scan/Group",
                         ""};
    *failed = false;
    auto emptyRun = [&](int first, int last) {
        const QString run = first == last ? QString::number(first)
                                          : QString::number(first) + "-" + QString::number(last);
        QString number;
        if (!NumberField(run, &number)) return false;
        lines.append(number + Field("Empty", 11));
        return true;
    };
    int emptyStart = 0;
    for (int r = 1; r < grid.Rows(); ++r) {
        const auto& cells = grid.rows[static_cast<size_t>(r)].cells;
        if (cells[1] == "Empty") {
            if (emptyStart == 0) emptyStart = r;
            continue;
        }
        if (emptyStart != 0) {
            if (!emptyRun(emptyStart, r - 1)) return *failed = true, lines;
            emptyStart = 0;
        }
        QString number, rx, tx;
        if (!NumberField(QString::number(r), &number) || !AlignedField(cells[1], decimal, &rx) ||
            !AlignedField(cells[4], decimal, &tx))
            return *failed = true, lines;
        lines.append(number + rx + Field(cells[2], 7) + Field(cells[3], 8) + tx +
                     Field(cells[5], 7) + Field(cells[6], 15) + Field(cells[7], 7) +
                     Field(cells[8], 6) + Field(cells[9], 8) +
                     Field("   " + cells[10] + "/" + cells[11], 6));
        if (!cells[12].isEmpty()) lines.append(QString(15, ' ') + cells[12]);
    }
    if (emptyStart != 0 && !emptyRun(emptyStart, grid.Rows() - 1)) *failed = true;
    return lines;
}

void mnuPrint_Click(Core& c) {
    auto tell = [&](const QString& text) {
        c.p.dialogs->messageBox(text, "VELDOR", MsgButtons::OK, MsgIcon::None);
    };
    if (!c.s.PrinterAvailable || !c.p.printer) {
        tell("No printer is available on this machine");
        return;
    }
    LoadGridWindow(c);
    bool failed = false;
    const QString decimal = c.s.DecimalSeparator;
    const QStringList lines =
        PrintListing(c.frmCsvMem.grdMemories, decimal.isEmpty() ? QChar('.') : decimal[0], &failed);
    if (failed) {
        // A number too long for its field stops the listing, and nothing is sent.
        c.p.dialogs->messageBox(
            "Error 5 (Invalid procedure call or argument) in procedure mnuPrint_Click of Form "
            "frmCsvMem",
            "VELDOR", MsgButtons::OK, MsgIcon::Critical);
        return;
    }
    QString reason;
    if (!c.p.printer->print(lines, &reason))
        tell("The memory grid could not be printed: " + reason);
}

}  // namespace veldor
