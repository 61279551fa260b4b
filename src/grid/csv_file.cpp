#include "grid/csv_file.h"

#include "basic/basic.h"
#include "link/catalogue.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <unordered_set>

namespace veldor {

namespace {

// Cut, or padded with blanks on the right, to eight characters.
QString FitName(QStringView name) {
    QString fitted(8, ' ');
    std::copy_n(name.begin(), std::min<qsizetype>(name.size(), 8), fitted.begin());
    return fitted;
}

// Text appended as Latin-1, a character beyond it as "?", as QString::toLatin1 does.
void AppendLatin1(QByteArray& out, QStringView text) {
    const qsizetype at = out.size();
    out.resize(at + text.size());
    char* p = out.data() + at;
    for (QChar ch : text) *p++ = ch.unicode() < 256 ? static_cast<char>(ch.unicode()) : '?';
}

// Blanks trimmed from both ends; the program trims blanks only, as its text functions do: a
// tab stays.
QStringView TrimmedText(QStringView text) {
    qsizetype from = 0, to = text.size();
    while (from < to && text[from] == ' ') ++from;
    while (to > from && text[to - 1] == ' ') --to;
    return text.sliced(from, to - from);
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

// A frequency field with the decimal mark made the locale's, by the file's delimiter, in a
// buffer used again from record to record.
const QString& FrequencyField(QString& buffer, QStringView field, QChar delimiter, QChar decimal) {
    buffer.setUnicode(field.data(), field.size());
    if (delimiter == ',' && decimal == ',') buffer.replace('.', ',');
    if (delimiter == ';' && decimal == '.') buffer.replace(',', '.');
    return buffer;
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

// Where "|" + word + "|" first falls within a list of words between bars: the place of the
// word, or -1.
qsizetype BarListFind(const QString& list, QStringView word) {
    for (qsizetype at = list.indexOf(word, 1); at > 0 && at + word.size() < list.size();
         at = list.indexOf(word, at + 1))
        if (list[at - 1] == '|' && list[at + word.size()] == '|') return at;
    return -1;
}

// Which entry of a bar list the word's place falls in: 0 the first, and so on; -1 none.
int BarListEntry(const QString& list, qsizetype at) {
    if (at < 0) return -1;
    return static_cast<int>(QStringView(list).first(at).count(u'|')) - 1;
}

// The tone or code of field 8 put in the form the lists hold: "88" becomes "88.0", "23"
// becomes "023".
QString MendTone(QString tone, const QString& kind) {
    tone.replace(',', '.');
    if (kind.startsWith(QLatin1String("CTC"))) {
        if (tone.size() < 2 || tone[tone.size() - 2] != '.') tone += ".0";
    } else if (kind.startsWith(QLatin1String("DCS")) || kind.startsWith(QLatin1String("DEN"))) {
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
    char text[32];
    char* p = text;
    if (value < 0 && units != 0) *p++ = '-';
    if (units >= 100000) p = std::to_chars(p, text + sizeof text, units / 100000).ptr;
    const auto mark = p - text;
    *p++ = '.';
    for (long long unit = 10000; unit >= 1; unit /= 10)
        *p++ = static_cast<char>('0' + units / unit % 10);
    QString fixed = QString::fromLatin1(text, p - text);
    fixed[mark] = decimal;
    return fixed;
}

// A plain decimal ("144.5", "-.6", "7", "5.") read straight; the general reader, many times
// slower, gives the same correctly rounded value. False for any other form, left to it.
bool PlainDecimal(QStringView text, QChar decimal, double* value) {
    char digits[40];
    if (text.isEmpty() || text.size() > static_cast<qsizetype>(sizeof digits)) return false;
    size_t n = 0;
    bool mark = false, digit = false;
    for (qsizetype i = text[0] == '+' || text[0] == '-' ? 1 : 0; i < text.size(); ++i) {
        const char16_t ch = text[i].unicode();
        if (ch >= '0' && ch <= '9') {
            digits[n++] = static_cast<char>(ch);
            digit = true;
        } else if (ch == decimal.unicode() && !mark) {
            digits[n++] = '.';
            mark = true;
        } else {
            return false;
        }
    }
    double v = 0;
    const auto [end, error] = std::from_chars(digits, digits + n, v, std::chars_format::fixed);
    if (!digit || error != std::errc() || end != digits + n) return false;
    *value = text[0] == '-' ? -v : v;
    return true;
}

// The digits of QString::number(value, 'g', 15) for a value from 0.1 on of no more than
// fifteen digits, which it writes without an exponent: the shortest digits that read back
// as the value. False for any other value, left to the general writer.
bool PlainDigits(double value, char (&out)[40], size_t* size) {
    if (value == 0) {
        out[0] = '0';
        *size = 1;
        return true;
    }
    if (!(value >= 0.1 && value < 1e15)) return false;
    const auto [end, error] = std::to_chars(out, out + sizeof out, value, std::chars_format::fixed);
    if (error != std::errc()) return false;
    *size = static_cast<size_t>(end - out);
    // The digits from the first that is not zero to the last that is not zero, and the place
    // of the decimal point among them.
    const std::string_view text(out, *size);
    const size_t point = std::min(text.find('.'), text.size());
    const size_t first = text.find_first_not_of("0.");
    const size_t last = text.find_last_not_of("0.");
    const size_t count = last - first + 1 - (first < point && point < last ? 1 : 0);
    const auto before = static_cast<long long>(point) - static_cast<long long>(first);
    return count <= 15 && before <= static_cast<long long>(count) + 1;
}

// The written form of a number appended as Latin-1.
void AppendCsvNumber(QByteArray& out, double value, QChar decimal) {
    char digits[40];
    size_t n = 0;
    if (!PlainDigits(std::fabs(value), digits, &n)) {
        AppendLatin1(out, CsvNumber(value, decimal));
        return;
    }
    const char mark = decimal.unicode() < 256 ? static_cast<char>(decimal.unicode()) : '?';
    out += value < 0 ? '-' : ' ';
    const size_t from = n > 1 && digits[0] == '0' && digits[1] == '.' ? 1 : 0;
    for (size_t i = from; i < n; ++i) out += digits[i] == '.' ? mark : digits[i];
    out += ' ';
}

struct TextHash {
    using is_transparent = void;
    size_t operator()(QStringView text) const { return qHash(text); }
};
struct TextEqual {
    using is_transparent = void;
    bool operator()(QStringView a, QStringView b) const { return a == b; }
};

// Texts that recur from record to record ("FM", "Plus", "Freq", "Y") are kept once and shared
// by every cell that holds them, so that a long grid holds little more than its frequencies,
// names and descriptions.
class SharedTexts {
  public:
    QString operator()(QStringView text) {
        if (text.isEmpty()) return QString();
        const auto it = texts_.find(text);
        if (it != texts_.end()) return *it;
        QString made = text.toString();
        if (texts_.size() < 4096) texts_.insert(made);
        return made;
    }

  private:
    std::unordered_set<QString, TextHash, TextEqual> texts_;
};

// Where the words of records fall in a bar list, looked for once for each word.
class BarListPlaces {
  public:
    explicit BarListPlaces(const QString& list) : list_(list) {}
    qsizetype operator()(const QString& word) {
        const auto it = places_.find(word);
        if (it != places_.end()) return it->second;
        const qsizetype at = BarListFind(list_, word);
        if (places_.size() < 4096) places_.emplace(word, at);
        return at;
    }

  private:
    const QString& list_;
    std::unordered_map<QString, qsizetype, TextHash, TextEqual> places_;
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

bool CellNumber(QStringView text, QChar decimal, double* value) {
    const QStringView t = text.trimmed();
    if (t.isEmpty()) return false;
    if (decimal != '.' && t.contains(u'.')) return false;
    // Digits, one mark, a sign in front and an exponent behind; nothing else.
    for (QChar ch : t)
        if (!(ch.isDigit() && ch.unicode() < 128) && ch != decimal &&
            !QStringLiteral(".+-eE").contains(ch))
            return false;
    double v = 0;
    if (!PlainDecimal(t, decimal, &v)) {
        QString general = t.toString();
        general.replace(decimal, '.');
        bool ok = false;
        v = general.toDouble(&ok);
        if (!ok) return false;
    }
    if (!std::isfinite(v)) return false;
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
    // The lines (ended by CR LF, CR or LF; the end of the file ends the last) are read one at a
    // time into one buffer, as Latin-1.
    const char* data = bytes.constData();
    const qsizetype size = bytes.size();
    qsizetype next = 0;
    QString line;
    auto readLine = [&] {
        if (next >= size) return false;
        qsizetype end = next;
        while (end < size && data[end] != '\r' && data[end] != '\n') ++end;
        line.resize(end - next);
        std::transform(data + next, data + end, line.begin(),
                       [](char ch) { return QChar(static_cast<uchar>(ch)); });
        if (end < size && data[end] == '\r' && end + 1 < size && data[end + 1] == '\n') ++end;
        next = end + 1;
        return true;
    };
    if (!readLine() || !CheckHeaderRecord(line, delimiter)) return in;
    in.headerValid = true;
    in.rows.reserve(static_cast<size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1);
    SharedTexts shared;
    BarListPlaces modes(ModeNames), shifts(ShiftWords), kinds(rules.toneKinds);
    auto fail = [&](int record, Failure f) {
        in.failedRecord = record;
        in.errorNumber = f.number;
        in.errorText = f.text;
        in.rows.clear();
        return in;
    };
    QString rxField, txField;
    for (int record = 1; readLine(); ++record) {
        auto report = [&](const QString& message) {
            in.messages.append("Record " + QString::number(record) + message);
        };
        if (line.contains(QLatin1Char('"')))
            line = BlankQuotedDelimiters(std::move(line), delimiter);
        const auto views = FieldViews(line, delimiter);

        // Field 1 must be a whole number, though the memory's number is its row in the grid. It
        // is read as a 32-bit one, so that a grid of more than 32767 memories reads back its
        // own export.
        double memory = 0, rx = 0, tx = 0.1;
        if (!CellNumber(views[0], decimal, &memory)) return fail(record, kTypeMismatch);
        int32_t whole = 0;
        if (!TensOfHertz(memory / 100000, &whole)) return fail(record, kOverflow);
        if (!CellNumber(FrequencyField(rxField, views[1], delimiter, decimal), decimal, &rx))
            return fail(record, kTypeMismatch);
        const QString& txText = FrequencyField(txField, views[4], delimiter, decimal);
        if ((!txText.isEmpty() || !rules.emptyTxIsDefault) && !CellNumber(txText, decimal, &tx))
            return fail(record, kTypeMismatch);
        // Texts that recur from record to record are shared between the rows' cells.
        const QString mode = shared(TrimmedText(views[2])), shift = shared(TrimmedText(views[3])),
                      txMode = shared(TrimmedText(views[5])), kind = shared(TrimmedText(views[6])),
                      show = shared(TrimmedText(views[8]));
        QString tone = shared(TrimmedText(views[7]));
        const QString name = FitName(TrimmedText(views[9]));
        QString scan = shared(TrimmedText(views[10])).toUpper(),
                group = shared(TrimmedText(views[11])).toUpper();
        const QString description = TrimmedText(views[12]).toString();

        if (kind.startsWith(QLatin1String("CTC")) && tone.isEmpty())
            report(".  CTCSS specified, but tone is missing");
        if ((kind.startsWith(QLatin1String("DCS")) || kind.startsWith(QLatin1String("DEN"))) &&
            tone.isEmpty())
            report(".  DCS specified, but code is missing");
        tone = shared(MendTone(tone, kind));

        int32_t rxTens = 0, txTens = 0;
        if (!TensOfHertz(rx, &rxTens)) return fail(record, kOverflow);
        if (!InRigRanges(rules.rigType, rxTens))
            report(". RX frequency of" + NumberText(rx, decimal) +
                   " is outside the range of the rig");
        if (modes(mode.toUpper()) < 0) report(". RX mode " + mode + " is invalid.");
        if (shifts(shift.toUpper()) < 0) report(". Shift of " + shift + " is invalid.");
        if (shift.toUpper() == "SPLIT") {
            if (!TensOfHertz(tx, &txTens)) return fail(record, kOverflow);
            if (!InRigRanges(rules.rigType, txTens))
                report(". TX frequency is outside the range of the rig");
            if (modes(txMode.toUpper()) < 0) report(". TX mode " + txMode + " is invalid.");
        }
        // The entry the word falls in: the empty one first, then the DCS words, then CTCSS.
        const qsizetype at = kinds(kind);
        const int entry = BarListEntry(rules.toneKinds, at);
        if (entry < 0) {
            report(". CTCSS or DCS of '" + kind + "' is invalid.");
        } else if (entry > 0) {
            const bool dcs = rules.toneKinds[at] == 'D';
            if (dcs && !rules.dcsCodes.contains(tone))
                report(". DCS code of " + tone + " is invalid.");
            if (!dcs && !rules.tones.contains(tone))
                report(". CTCSS tone of " + tone + " is invalid.");
        }
        // A name that is all number is most likely the field before it, moved up by a comma
        // left out of the line.
        double numericName = 0;
        if (rules.reportNumericName && CellNumber(name, decimal, &numericName))
            report(". Memory name of " + name + " is invalid." + "\r\n" +
                   "May be caused by a comma missing from the line");
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
                     shared(Fixed5(tx, decimal)),
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
    QByteArray text;
    text.reserve(static_cast<qsizetype>(rows.size()) * 96);
    const QStringView between(&delimiter, 1);
    const auto& headings = ColumnHeadings();
    for (int col = 0; col < GridCols; ++col) {
        if (col > 0) AppendLatin1(text, between);
        AppendLatin1(text, headings[col]);
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
        char number[24];
        text += ' ';
        text.append(number, std::to_chars(number, number + sizeof number, r).ptr - number);
        text += ' ';
        AppendLatin1(text, between);
        AppendCsvNumber(text, rx, decimal);
        for (int col : {2, 3}) {
            AppendLatin1(text, between);
            AppendLatin1(text, cells[col]);
        }
        AppendLatin1(text, between);
        AppendCsvNumber(text, tx, decimal);
        for (int col : {5, 6, 7, 8}) {
            AppendLatin1(text, between);
            AppendLatin1(text, cells[col]);
        }
        // The name cut, or padded with blanks, to eight characters.
        const QStringView name =
            QStringView(cells[9]).first(std::min<qsizetype>(cells[9].size(), 8));
        AppendLatin1(text, between);
        AppendLatin1(text, name);
        text.append(8 - name.size(), ' ');
        for (int col : {10, 11, 12}) {
            AppendLatin1(text, between);
            AppendLatin1(text, cells[col]);
        }
        text += "\r\n";
    }
    return text;
}

}  // namespace veldor
