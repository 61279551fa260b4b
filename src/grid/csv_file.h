// The memory CSV file: its field reader, the checking and loading passes of an import, and the
// written form of an export. Free functions over plain rows and bytes, with the locale's
// characters passed in, so that the memory grid and the conversion window share them.
//
// A file is text in a single-byte code page (Latin-1), one record a line. The first line is a
// header whose only use is to tell the delimiter ("," or ";"). Each record has thirteen fields
// in the order of the grid's columns; numbers are written with a blank on each side, as few
// digits as they need and no zero ahead of a leading decimal mark.
#pragma once

#include "grid/memory_grid.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace veldor {

// The CTCSS/DCS words of the grid's import, and of the conversion window's (without "DEN").
inline const QString GridToneKinds = QStringLiteral("||DCS|DEN|CTCSS Enc+Dec|CTCSS Enc|");
inline const QString ConvertToneKinds = QStringLiteral("||DCS|CTCSS Enc+Dec|CTCSS Enc|");
inline const QString ShiftWords = QStringLiteral("|SIMPLEX|PLUS|MINUS|SPLIT|");
inline const QString GroupAlphabet = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789");

// Quotes and the delimiters between them become blanks; the line keeps its length.
QString BlankQuotedDelimiters(QString line, QChar delimiter);
// True when the line holds the delimiter, or else the other one, which then becomes the
// delimiter for the rest of the file.
bool CheckHeaderRecord(const QString& line, QChar& delimiter);
// Field index (from 1) of the line; fields 2 and 5 have their decimal mark made the locale's.
QString GetCsvField(const QString& line, int index, QChar delimiter, QChar decimal);
// The lines of a file's bytes: ended by CR LF, CR or LF; the end of the file ends the last.
QStringList CsvLines(const QByteArray& bytes);

// The open and save dialogs' filter of memory CSV files.
inline constexpr const char* CsvFileFilter = "Memories CSV Files (*.CSV)|*.CSV|All Files (*.*)|*.*";

// What the checking pass of an import tests a record against. The defaults are the memory
// grid's; the conversion window reads without "DEN", without a default for an empty field 5
// (it is then no number, and the import fails), and reports a name that is a number.
struct CsvRules {
    QString rigType;       // frequencies must be in this rig's ranges
    QStringList tones;     // the CTCSS tones offered
    QStringList dcsCodes;  // the DCS codes offered
    QString toneKinds = GridToneKinds;
    bool emptyTxIsDefault = true;    // an empty field 5 reads as 0.1 MHz
    bool reportNumericName = false;  // a name that is a number as a whole is a fault
};

// An import read through: the messages of the checking pass, the records as grid rows (column
// 0 left empty, to be numbered by the grid), or the record at which reading failed.
struct CsvImport {
    bool headerValid = false;
    QStringList messages;  // one per fault found; reading goes on after each
    std::vector<GridRow> rows;
    int failedRecord = 0;  // 0 when every record was read
    int errorNumber = 0;   // the failure: 13 a field that is no number, 6 a number too large
    QString errorText;
};
// Reads a whole file. delimiter comes in as the locale's and leaves as the file's.
CsvImport ReadCsvFile(const QByteArray& bytes, QChar& delimiter, QChar decimal,
                      const CsvRules& rules);
// The box shown when reading failed.
QString CsvFailureText(const CsvImport& import);

// The written form of a number: " 7 ", " .1 ", "-2.5 ".
QString CsvNumber(double value, QChar decimal);
// A number as the program tells it in a message: "145.5", "0.1".
QString NumberText(double value, QChar decimal);
// The number a cell holds, by the locale's mark; false when it holds none.
bool CellNumber(QStringView text, QChar decimal, double* value);

// Rows written as a file: the header, then rows from 1 on, a row skipped when it is hidden
// (filteredOnly) or when its cell in skipIfEmptyColumn is empty. Field 1 is the row's number.
QByteArray WriteCsvRows(const std::vector<GridRow>& rows, QChar delimiter, QChar decimal,
                        bool filteredOnly, int skipIfEmptyColumn);

}  // namespace veldor
