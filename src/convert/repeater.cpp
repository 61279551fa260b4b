// The ARRL repeater directory's export files (*.tpe, and the Ver 7 *.CSV): one repeater a line,
// fields separated by FieldDelimiter and possibly quoted. Lines are given to these functions
// after BlankQuotedDelimiters.
#include "basic/basic.h"
#include "convert/convert.h"
#include "grid/csv_file.h"

namespace veldor {

namespace {

// A frequency field with its decimal mark made the locale's: a point if there is one,
// otherwise the first comma.
QString WithLocaleMark(Core& c, QString text) {
    const qsizetype point = text.indexOf('.');
    const qsizetype at = point >= 0 ? point : text.indexOf(',');
    if (at >= 0) text.replace(at, 1, c.s.DecimalSeparator);
    return text;
}

// The usual repeater offset for a receive frequency in MHz. These limits are the directory
// reader's own, not those of DefaultRepeaterOffset: 144.00000 gets 1 MHz here.
QString DirectoryOffset(Core& c, double mhz) {
    const QString& mark = c.s.DecimalSeparator;
    if (mhz > 410) return "5" + mark + "00000";
    if (mhz > 144) return mark + "60000";
    if (mhz > 50) return "1" + mark + "00000";
    return mark + "10000";
}

}  // namespace

bool IsRepeaterRecord(Core& c, const QString& line) {
    // Field 1 formatted "000": a number takes the pattern, any other text stays as it is.
    const QString first = GetCsvField(line, 1, c.s.FieldDelimiter[0], c.s.DecimalSeparator[0]);
    double number = 0;
    const QString text =
        CellNumber(first, c.s.DecimalSeparator[0], &number) ? basic::Format(number, "000") : first;
    return text >= QStringLiteral("001") && text <= QStringLiteral("199");
}

bool ParseRepeaterLine(Core& c, const QString& line, MemoryRow& row) {
    const auto field = [&](int index) {
        return GetCsvField(line, index, c.s.FieldDelimiter[0], c.s.DecimalSeparator[0]);
    };
    row[0] = field(1);
    double receive = 0;
    if (!CellNumber(WithLocaleMark(c, field(6).trimmed()), c.s.DecimalSeparator[0], &receive))
        return false;
    row[1] = basic::Format(receive, "##0.00000");
    row[2] = "FM";

    const QString input = field(7).trimmed();
    if (input == "+") {
        row[3] = "Plus";
    } else if (input == "-") {
        row[3] = "Minus";
    } else if (input.isEmpty()) {
        row[3] = "Simplex";
    } else {
        double transmit = 0;
        if (!CellNumber(WithLocaleMark(c, input), c.s.DecimalSeparator[0], &transmit)) return false;
        row[4] = basic::Format(transmit, "##0.00000");
        if (row[4] == row[1]) {
            row[3] = "Simplex";
        } else {
            row[3] = "Split";
            row[5] = "FM";
        }
    }
    if (row[4].isEmpty()) row[4] = DirectoryOffset(c, receive);

    if (const QString tone = field(10).trimmed(); !tone.isEmpty()) {
        row[6] = "CTCSS Enc";
        row[7] = tone;
    }
    // A call sign longer than eight characters is not cut here.
    const QString call = field(8);
    row[8] = call.isEmpty() ? "Freq" : "Name";
    row[9] = call.isEmpty() ? QString(8, ' ') : call;
    row[10] = "Y";
    row[11] = "0";
    return true;
}

}  // namespace veldor
