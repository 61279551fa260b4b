#include "convert/csv_fields.h"

namespace veldor {

void BlankQuotedDelimiters(Core& c, QString& line) {
    const QString& delimiter = c.s.FieldDelimiter;
    bool quoted = false;
    for (QChar& ch : line) {
        if (ch == '"') {
            ch = ' ';
            quoted = !quoted;
        } else if (quoted && delimiter.size() == 1 && ch == delimiter[0]) {
            ch = ' ';
        }
    }
}

QString GetCsvField(Core& c, const QString& line, int index) {
    const QString& delimiter = c.s.FieldDelimiter;
    if (line.isEmpty() || index < 1 || delimiter.isEmpty()) return {};
    qsizetype start = 0;
    for (int i = 1; i < index; ++i) {
        const qsizetype at = line.indexOf(delimiter, start);
        if (at < 0) return {};
        start = at + delimiter.size();
    }
    const qsizetype end = line.indexOf(delimiter, start);
    QString field = line.mid(start, end < 0 ? -1 : end - start);
    if (index == 2 || index == 5) {
        const QString& mark = c.s.DecimalSeparator;
        if (delimiter == "," && mark == ",") field.replace('.', ',');
        if (delimiter == ";" && mark == ".") field.replace(',', '.');
    }
    return field;
}

}  // namespace veldor
