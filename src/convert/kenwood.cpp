// Kenwood memory files: lines up to "MEMORY" and from "CALL" belong to Kenwood's software and
// are kept; between them each memory is a line of 18 TAB-separated fields.
#include "basic/basic.h"
#include "convert/convert.h"
#include "grid/csv_file.h"

namespace veldor {

namespace {

QString ShiftDigit(const QString& shift) {
    if (shift == "Simplex" || shift == "Split") return "0";
    if (shift == "Plus") return "1";
    if (shift == "Minus") return "2";
    return {};
}

QString ShiftWord(const QString& digit) {
    if (digit == "0") return "Simplex";
    if (digit == "1") return "Plus";
    if (digit == "2") return "Minus";
    return {};
}

// The place of a tone or code in a lookup list, from 1; 0 when it is not there.
int PlaceInList(const ComboBox& list, const QString& text) {
    return int(list.list.indexOf(text)) + 1;
}

// A list's item from a file's place, from 1; empty for a place the list does not have.
QString ItemAtPlace(const ComboBox& list, const QString& place) {
    const int32_t n = basic::CLng(basic::Val(place));
    return n >= 1 && n <= list.list.size() ? list.list[n - 1] : QString();
}

}  // namespace

QStringList FileLines(const QByteArray& bytes) {
    const QString text = QString::fromLatin1(bytes);
    QStringList lines;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != '\r' && text[i] != '\n') continue;
        lines.append(text.mid(start, i - start));
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        start = i + 1;
    }
    if (start < text.size()) lines.append(text.mid(start));
    return lines;
}

QString TensToMHzText(Core& c, double value) {
    QString digits = basic::Format(value, "000000000");
    for (qsizetype i = 0; i < 4 && i < digits.size() && digits[i] == '0'; ++i) digits[i] = ' ';
    return (digits.left(4) + c.s.DecimalSeparator + digits.right(5)).trimmed();
}

bool IsMemoryNumber(const QString& text) {
    const QString first = text.left(3);
    return first >= QStringLiteral("001") && first <= QStringLiteral("199");
}

void ParseKenwoodLine(Core& c, const QString& line, MemoryRow& row) {
    const auto field = [&](int index) {
        return GetCsvField(line, index, c.s.FieldDelimiter[0], c.s.DecimalSeparator[0]);
    };
    row[0] = NumberText(basic::Val(field(1)), c.s.DecimalSeparator[0]);
    // The frequency is taken from characters 7 to 14: field 2's digits without its first two
    // and its last, which holds only while field 1 is three characters wide.
    row[1] = TensToMHzText(c, basic::Val(line.mid(6, 8)));
    row[3] = ShiftWord(line.mid(18, 1));
    const ComboBox& tones = c.frmConvert.cboCTCSS;
    if (field(6) == "1") {
        row[6] = "CTCSS Enc";
        row[7] = ItemAtPlace(tones, field(9));
    }
    if (field(7) == "1") {
        row[6] = "CTCSS Enc+Dec";
        row[7] = ItemAtPlace(tones, field(11));
    }
    if (field(8) == "1") {
        row[6] = "DCS";
        row[7] = ItemAtPlace(c.frmConvert.cboDCS, field(10).left(3));
    }
    if (const QString offset = field(12); !offset.isEmpty())
        row[4] = TensToMHzText(c, basic::Val(offset) / 10);
    row[10] = field(13) == "0" ? "Y" : "N";
    row[2] = field(14) == "1" ? "AM" : "FM";
    if (const QString transmit = field(15); !transmit.isEmpty()) {
        row[3] = "Split";
        row[4] = TensToMHzText(c, basic::Val(transmit) / 10);
        row[5] = row[2];
    }
    const QString name = field(18);
    row[8] = name.isEmpty() ? "Freq" : "Name";
    row[9] = name.isEmpty() ? QString(8, ' ') : name;
    row[11] = "0";
}

bool KenwoodMemoryLine(Core& c, const MemoryRow& row, QString* line) {
    const int type = c.s.ConvertFileType;
    double receive = 0, offset = 0;
    if (!CellNumber(row[1], c.s.DecimalSeparator[0], &receive) ||
        !CellNumber(row[4], c.s.DecimalSeparator[0], &offset))
        return false;
    double channel = 0;
    const QString number = CellNumber(row[0], c.s.DecimalSeparator[0], &channel)
                               ? basic::Format(channel, "000")
                               : row[0];
    const QString& tone = row[6];  // "DEN" is written as no tone at all
    const bool split = row[3] == "Split";
    const int tonePlace = PlaceInList(c.frmConvert.cboCTCSS, row[7]);
    const auto toneField = [&](const char* kind) {
        return tone == kind && tonePlace > 0 ? basic::Format(tonePlace, "00") : QString("09");
    };
    // Only the *.700 family has DCS fields; the others leave fields 8 and 10 empty.
    QString dcsOn, dcsCode;
    if (type == 1) {
        dcsOn = tone == "DCS" ? "1" : "0";
        dcsCode = "0010";
        if (const int place = PlaceInList(c.frmConvert.cboDCS, row[7]); tone == "DCS" && place > 0)
            dcsCode = basic::Format(place, "000") + "0";
    }

    QStringList f{number, basic::Format(receive * 1000000, "00000000000"), "0"};
    // A shift other than the four words writes neither field 4 nor 5: the line is two fields
    // short, as Kenwood's own reader has always been given it.
    if (const QString shift = ShiftDigit(row[3]); !shift.isEmpty()) f << shift << "0";
    f << (tone == "CTCSS Enc" ? "1" : "0") << (tone == "CTCSS Enc+Dec" ? "1" : "0") << dcsOn
      << toneField("CTCSS Enc") << dcsCode << toneField("CTCSS Enc+Dec")
      << basic::Format(offset * 1000000, "000000000") << (row[10] == "N" ? "1" : "0")
      << (type == 0 ? QString() : QString(row[2] == "AM" ? "1" : "0"))
      << (split ? basic::Format(offset * 1000000, "00000000000") : QString()) << (split ? "0" : "")
      << QString() << row[9].left(type == 0 ? 6 : 8).trimmed();
    *line = f.join('\t');
    return true;
}

bool ExportKenwoodFile(Core& c, const QByteArray& file, const std::vector<MemoryRow>& rows,
                       QByteArray* out) {
    const QStringList lines = FileLines(file);
    QStringList written;
    qsizetype i = 0;
    while (i < lines.size()) {
        written.append(lines[i]);
        if (lines[i++].startsWith("MEMORY")) break;
    }
    for (const MemoryRow& row : rows) {
        if (row[1].isEmpty()) continue;
        QString line;
        if (!KenwoodMemoryLine(c, row, &line)) return false;
        written.append(line);
    }
    // The old memory lines are dropped up to "CALL". Without a "CALL" line the last line of
    // the file is the one that stops the drop, and it is written.
    bool dropped = false;
    QString last;
    while (i < lines.size()) {
        last = lines[i++];
        dropped = true;
        if (last.startsWith("CALL")) break;
    }
    if (dropped) written.append(last);
    while (i < lines.size()) written.append(lines[i++]);
    out->clear();
    for (const QString& line : written) out->append(line.toLatin1() + "\r\n");
    return true;
}

}  // namespace veldor
