#include "grid/csv_file.h"

#include "basic/basic.h"
#include "link/catalogue.h"

#include <QSet>

#include <cmath>
#include <limits>

namespace veldor {

namespace {

// Cut, or padded with blanks on the right, to eight characters.
QString FitName(const QString& name) {
    return (name + QString(8, ' ')).left(8);
}

// Blanks trimmed from both ends; the program trims blanks only, as its text functions do: a
// tab stays.
QString TrimmedText(QStringView text) {
    qsizetype from = 0, to = text.size();
    while (from < to && text[from] == ' ') ++from;
    while (to > from && text[to - 1] == ' ') --to;
    return text.sliced(from, to - from).toString();
}

// The lines of a file's text, as views into it.
std::vector<QStringView> LineViews(const QString& text) {
    std::vector<QStringView> lines;
    const qsizetype n = text.size();
    qsizetype from = 0;
    while (from < n) {
        qsizetype end = from;
        while (end < n && text[end] != '\r' && text[end] != '\n') ++end;
        lines.push_back(QStringView(text).sliced(from, end - from));
        if (end < n && text[end] == '\r' && end + 1 < n && text[end + 1] == '\n') ++end;
        from = end + 1;
    }
    return lines;
}

// The thirteen fields of a line, as views into it; a field beyond the line's end is empty.
std::array<QStringView, GridCols> FieldViews(QStringView line, QChar delimiter) {
    std::array<QStringView, GridCols> fields;
    qsizetype from = 0;
    for (int i = 0; i < GridCols && !line.isEmpty(); ++i) {
        qsizetype end = line.indexOf(delimiter, from);
        if (end < 0) end = line.size();
        fields[i] = line.sliced(from, end - from);
        if (end == line.size()) break;
        from = end + 1;
    }
    return fields;
}

// A frequency field with the decimal mark made the locale's, by the file's delimiter.
QString FrequencyField(QStringView field, QChar delimiter, QChar decimal) {
    QString text = field.toString();
    if (delimiter == ',' && decimal == ',') text.replace('.', ',');
    if (delimiter == ';' && decimal == '.') text.replace(',', '.');
    return text;
}

// The fields of a line as GetCsvField reads them one by one, read in one walk.
std::array<QString, GridCols> SplitFields(const QString& line, QChar delimiter, QChar decimal) {
    std::array<QString, GridCols> fields;
    qsizetype from = 0;
    for (int i = 0; i < GridCols && from <= line.size() && !line.isEmpty(); ++i) {
        qsizetype end = line.indexOf(delimiter, from);
        if (end < 0) end = line.size();
        fields[i] = line.mid(from, end - from);
        if (end == line.size()) break;
        from = end + 1;
    }
    for (int i : {1, 4}) {
        if (delimiter == ',' && decimal == ',') fields[i].replace('.', ',');
        if (delimiter == ';' && decimal == '.') fields[i].replace(',', '.');
    }
    return fields;
}

struct Failure {
    int number;
    const char* text;
};
constexpr Failure kTypeMismatch{13, "Type mismatch"};
constexpr Failure kOverflow{6, "Overflow"};

// A whole number of tens of hertz from MHz, as the conversion to a 32-bit whole number does.
bool TensOfHertz(double mhz, int32_t* out) {
    const double v = std::nearbyint(mhz * 100000);
    if (!(v >= std::numeric_limits<int32_t>::min() && v <= std::numeric_limits<int32_t>::max()))
        return false;
    *out = static_cast<int32_t>(v);
    return true;
}

// "|" + word + "|" within a list of words between bars.
bool InBarList(const QString& list, const QString& word) {
    return list.contains(QLatin1Char('|') + word + QLatin1Char('|'));
}

// Which entry of a bar list the word's place falls in: 0 the first, and so on; -1 none.
int BarListEntry(const QString& list, const QString& word) {
    const qsizetype at = list.indexOf(QLatin1Char('|') + word + QLatin1Char('|'));
    if (at < 0) return -1;
    return static_cast<int>(list.left(at + 1).count('|')) - 1;
}

// The tone or code of field 8 put in the form the lists hold: "88" becomes "88.0", "23"
// becomes "023".
QString MendTone(QString tone, const QString& kind) {
    tone.replace(',', '.');
    if (kind.startsWith("CTC")) {
        if (tone.size() < 2 || tone[tone.size() - 2] != '.') tone += ".0";
    } else if (kind.startsWith("DCS") || kind.startsWith("DEN")) {
        tone = tone.left(3);
        if (tone.size() == 2) tone.prepend('0');
    }
    return tone;
}

// The pattern "###.00000": five decimals, rounded half away from zero, no zero ahead of the
// mark. Written out by hand, since an import makes two for every record.
QString Fixed5(double value, QChar decimal) {
    const double scaled = std::round(std::fabs(value) * 100000);
    if (!(scaled < 9e18))
        return basic::Format(value, "###.00000").replace(basic::DecimalMark(), decimal);
    const auto units = static_cast<long long>(scaled);
    QString text = (value < 0 && units != 0) ? QStringLiteral("-") : QString();
    if (units >= 100000) text += QString::number(units / 100000);
    text += decimal;
    const QString fraction = QString::number(units % 100000);
    text += QString(5 - fraction.size(), '0') + fraction;
    return text;
}

// Texts that recur from record to record ("FM", "Plus", "Freq", "Y") are kept once and shared
// by every cell that holds them, so that a long grid holds little more than its frequencies,
// names and descriptions.
class SharedTexts {
  public:
    QString operator()(const QString& text) {
        if (text.isEmpty()) return QString();
        const auto it = texts_.constFind(text);
        if (it != texts_.cend()) return *it;
        if (texts_.size() < 4096) texts_.insert(text);
        return text;
    }

  private:
    QSet<QString> texts_;
};

}  // namespace

QString BlankQuotedDelimiters(QString line, QChar delimiter) {
    bool quoted = false;
    for (QChar& ch : line) {
        if (ch == '"') {
            ch = ' ';
            quoted = !quoted;
        } else if (quoted && ch == delimiter) {
            ch = ' ';
        }
    }
    return line;
}

bool CheckHeaderRecord(const QString& line, QChar& delimiter) {
    if (line.contains(delimiter)) return true;
    const QChar old = delimiter;
    delimiter = old == ',' ? QChar(';') : QChar(',');
    if (line.contains(delimiter)) return true;
    delimiter = old;
    return false;
}

QString GetCsvField(const QString& line, int index, QChar delimiter, QChar decimal) {
    if (index < 1 || index > GridCols) {
        // Beyond the record's thirteen fields: read the same way, one at a time.
        qsizetype from = 0;
        for (int i = 1; i < index; ++i) {
            from = line.indexOf(delimiter, from);
            if (from < 0) return {};
            ++from;
        }
        const qsizetype end = line.indexOf(delimiter, from);
        return line.mid(from, end < 0 ? -1 : end - from);
    }
    return SplitFields(line, delimiter, decimal)[index - 1];
}

QStringList CsvLines(const QByteArray& bytes) {
    const QString text = QString::fromLatin1(bytes);
    QStringList lines;
    qsizetype from = 0;
    const qsizetype n = text.size();
    while (from < n) {
        qsizetype end = from;
        while (end < n && text[end] != '\r' && text[end] != '\n') ++end;
        lines.append(text.mid(from, end - from));
        if (end < n && text[end] == '\r' && end + 1 < n && text[end + 1] == '\n') ++end;
        from = end + 1;
    }
    return lines;
}

bool CellNumber(const QString& text, QChar decimal, double* value) {
    QString t = text.trimmed();
    if (t.isEmpty()) return false;
    if (decimal != '.') {
        if (t.contains('.')) return false;
        t.replace(decimal, '.');
    }
    // Digits, one mark, a sign in front and an exponent behind; nothing else.
    for (QChar ch : t)
        if (!(ch.isDigit() && ch.unicode() < 128) && !QStringLiteral(".+-eE").contains(ch))
            return false;
    bool ok = false;
    const double v = t.toDouble(&ok);
    if (!ok || !std::isfinite(v)) return false;
    *value = v;
    return true;
}

QString NumberText(double value, QChar decimal) {
    QString text = QString::number(value, 'g', 15).toUpper();
    text.replace('.', decimal);
    return text;
}

QString CsvNumber(double value, QChar decimal) {
    QString digits = QString::number(std::fabs(value), 'g', 15).toUpper();
    if (digits.startsWith("0.")) digits.remove(0, 1);
    digits.replace('.', decimal);
    return (value < 0 ? "-" : " ") + digits + " ";
}

CsvImport ReadCsvFile(const QByteArray& bytes, QChar& delimiter, QChar decimal,
                      const CsvRules& rules) {
    CsvImport in;
    const QString text = QString::fromLatin1(bytes);
    const std::vector<QStringView> lines = LineViews(text);
    if (lines.empty() || !CheckHeaderRecord(lines[0].toString(), delimiter)) return in;
    in.headerValid = true;
    in.rows.reserve(lines.size() - 1);
    SharedTexts shared;
    auto fail = [&](int record, Failure f) {
        in.failedRecord = record;
        in.errorNumber = f.number;
        in.errorText = f.text;
        in.rows.clear();
        return in;
    };
    QString blanked;
    for (size_t i = 1; i < lines.size(); ++i) {
        const int record = static_cast<int>(i);
        auto report = [&](const QString& message) {
            in.messages.append("Record " + QString::number(record) + message);
        };
        QStringView line = lines[i];
        if (line.contains(QLatin1Char('"'))) {
            blanked = BlankQuotedDelimiters(line.toString(), delimiter);
            line = blanked;
        }
        const auto views = FieldViews(line, delimiter);
        const QString f[] = {views[0].toString(), FrequencyField(views[1], delimiter, decimal),
                             QString(), QString(), FrequencyField(views[4], delimiter, decimal)};

        // Field 1 must be a whole number, though the memory's number is its row in the grid. It
        // is read as a 32-bit one, so that a grid of more than 32767 memories reads back its
        // own export.
        double memory = 0, rx = 0, tx = 0.1;
        if (!CellNumber(f[0], decimal, &memory)) return fail(record, kTypeMismatch);
        int32_t whole = 0;
        if (!TensOfHertz(memory / 100000, &whole)) return fail(record, kOverflow);
        if (!CellNumber(f[1], decimal, &rx)) return fail(record, kTypeMismatch);
        if (!f[4].isEmpty() && !CellNumber(f[4], decimal, &tx)) return fail(record, kTypeMismatch);
        const QString mode = TrimmedText(views[2]), shift = TrimmedText(views[3]),
                      txMode = TrimmedText(views[5]), kind = TrimmedText(views[6]),
                      show = TrimmedText(views[8]);
        QString tone = TrimmedText(views[7]);
        const QString name = FitName(TrimmedText(views[9]));
        QString scan = TrimmedText(views[10]).toUpper(), group = TrimmedText(views[11]).toUpper();
        const QString description = TrimmedText(views[12]);

        if (kind.startsWith("CTC") && tone.isEmpty())
            report(".  CTCSS specified, but tone is missing");
        if ((kind.startsWith("DCS") || kind.startsWith("DEN")) && tone.isEmpty())
            report(".  DCS specified, but code is missing");
        tone = MendTone(tone, kind);

        int32_t rxTens = 0, txTens = 0;
        if (!TensOfHertz(rx, &rxTens)) return fail(record, kOverflow);
        if (!InRigRanges(rules.rigType, rxTens))
            report(". RX frequency of" + NumberText(rx, decimal) +
                   " is outside the range of the rig");
        if (!InBarList(ModeNames, mode.toUpper())) report(". RX mode " + mode + " is invalid.");
        if (!InBarList(ShiftWords, shift.toUpper())) report(". Shift of " + shift + " is invalid.");
        if (shift.toUpper() == "SPLIT") {
            if (!TensOfHertz(tx, &txTens)) return fail(record, kOverflow);
            if (!InRigRanges(rules.rigType, txTens))
                report(". TX frequency is outside the range of the rig");
            if (!InBarList(ModeNames, txMode.toUpper()))
                report(". TX mode " + txMode + " is invalid.");
        }
        // The entry the word falls in: the empty one first, then the DCS words, then CTCSS.
        const int entry = BarListEntry(rules.toneKinds, kind);
        if (entry < 0) {
            report(". CTCSS or DCS of '" + kind + "' is invalid.");
        } else if (entry > 0) {
            const bool dcs = rules.toneKinds.section('|', entry + 1, entry + 1).startsWith("D");
            if (dcs && !rules.dcsCodes.contains(tone))
                report(". DCS code of " + tone + " is invalid.");
            if (!dcs && !rules.tones.contains(tone))
                report(". CTCSS tone of " + tone + " is invalid.");
        }
        if (scan.isEmpty()) scan = "Y";
        if (scan != "Y" && scan != "N") {
            report(". Scan of " + scan + " is invalid.  " +
                   "It should be either Y or N, and will been changed to Y");
            scan = "Y";
        }
        if (group.isEmpty()) group = "0";
        if (!GroupAlphabet.contains(group)) {
            report(". Group of " + group + " is invalid.  " +
                   "It should be 0-9 or A-Z, and will be changed to 0 (zero).");
            group = "0";
        }

        GridRow& row = in.rows.emplace_back();
        row.cells = {QString(),
                     Fixed5(rx, decimal),
                     mode,
                     shift,
                     Fixed5(tx, decimal),
                     txMode,
                     kind,
                     tone,
                     show,
                     name,
                     scan,
                     group,
                     description};
    }
    return in;
}

QString CsvFailureText(const CsvImport& import) {
    return "Problem encountered reading the import file at record " +
           QString::number(import.failedRecord) + "\r\n" + "Error number" +
           QString::number(import.errorNumber) + ", " + import.errorText + "\r\n" +
           "Import aborted" + "\r\n" + "Probable cause is an extra blank line in the CSV file" +
           "\r\n" + "or one or more commas missing from the end of record(s)";
}

QByteArray WriteCsvRows(const std::vector<GridRow>& rows, QChar delimiter, QChar decimal,
                        bool filteredOnly, int skipIfEmptyColumn) {
    QString text;
    text.reserve(static_cast<qsizetype>(rows.size()) * 96);
    const auto& headings = ColumnHeadings();
    for (int col = 0; col < GridCols; ++col) {
        if (col > 0) text += delimiter;
        text += headings[col];
    }
    text += "\r\n";
    for (size_t r = 1; r < rows.size(); ++r) {
        const auto& cells = rows[r].cells;
        if (filteredOnly && rows[r].hidden) continue;
        if (cells[skipIfEmptyColumn].isEmpty()) continue;
        // A cell that holds no number ("Empty") is written as 0.
        double rx = 0, tx = 0;
        CellNumber(cells[1], decimal, &rx);
        CellNumber(cells[4], decimal, &tx);
        text += QLatin1Char(' ') + QString::number(r) + QLatin1Char(' ');
        text += delimiter;
        text += CsvNumber(rx, decimal);
        for (int col : {2, 3}) text += delimiter + cells[col];
        text += delimiter;
        text += CsvNumber(tx, decimal);
        for (int col : {5, 6, 7, 8}) text += delimiter + cells[col];
        text += delimiter + FitName(cells[9]);
        for (int col : {10, 11, 12}) text += delimiter + cells[col];
        text += "\r\n";
    }
    return text.toLatin1();
}

}  // namespace veldor
