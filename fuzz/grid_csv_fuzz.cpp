// Any bytes as a memory CSV file, read under either locale for an FT-817, by the memory grid's
// rules or the conversion window's; what was read is written again and must read back.
#include "grid/csv_file.h"
#include "link/catalogue.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace veldor;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const CsvRules grid = [] {
        CsvRules r{RigFT817, {}, {}};
        for (const char* t : Tones50()) r.tones << t;
        for (const char* d : DcsCodes()) r.dcsCodes << d;
        return r;
    }();
    static const CsvRules convert = [] {
        CsvRules r = grid;
        r.toneKinds = ConvertToneKinds;
        r.emptyTxIsDefault = false;
        r.reportNumericName = true;
        return r;
    }();
    // The first byte chooses the locale and the rules.
    const QChar decimal = size > 0 && data[0] % 2 ? ',' : '.';
    const CsvRules& rules = size > 0 && data[0] & 2 ? convert : grid;
    QChar delimiter = decimal == '.' ? ',' : ';';
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const CsvImport in = ReadCsvFile(bytes.mid(1), delimiter, decimal, rules);
    if (in.failedRecord > 0) CsvFailureText(in);
    if (!in.headerValid || in.failedRecord > 0) return 0;
    std::vector<GridRow> rows(1);
    rows.insert(rows.end(), in.rows.begin(), in.rows.end());
    for (size_t r = 1; r < rows.size(); ++r) rows[r].cells[0] = QString::number(r);
    // The program writes with the locale's delimiter, whatever the file read had, and quotes
    // nothing: a cell that holds that delimiter cannot come back whole.
    const QChar locale = decimal == '.' ? ',' : ';';
    for (const GridRow& row : rows)
        for (const QString& cell : row.cells)
            if (cell.contains(locale)) return 0;
    const QByteArray written = WriteCsvRows(rows, locale, decimal, false, 2);
    QChar again = locale;
    const CsvImport back = ReadCsvFile(written, again, decimal, rules);
    // Rows whose mode field was empty are not written; every other reads back as it was, but
    // for cells that held the delimiter or a quote, which the writer cannot carry.
    if (back.failedRecord > 0 || back.rows.size() > in.rows.size()) std::abort();
    return 0;
}
