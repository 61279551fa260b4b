#include "convert/convert.h"
#include "grid/csv_file.h"

namespace veldor {

bool ReadMemoryFile(Core& c, const QByteArray& bytes, std::vector<MemoryRow>* rows) {
    const bool repeaters = c.s.ConvertFileType == ArrlRepeaterFile;
    QStringList lines = FileLines(bytes);
    // Kenwood files end their memories at "CALL"; a repeater file has no such line.
    qsizetype end = lines.size();
    if (!repeaters) {
        for (qsizetype i = 0; i < lines.size(); ++i) {
            if (lines[i].startsWith("CALL")) {
                end = i;
                break;
            }
        }
    }
    size_t count = 0;
    for (qsizetype i = 0; i < end; ++i) {
        if (repeaters) lines[i] = BlankQuotedDelimiters(lines[i], c.s.FieldDelimiter[0]);
        if (repeaters ? IsRepeaterRecord(c, lines[i]) : IsMemoryNumber(lines[i])) ++count;
    }
    rows->assign(count, MemoryRow{});
    size_t filled = 0;
    for (qsizetype i = 0; i < end && filled < count; ++i) {
        QString& line = lines[i];
        if (repeaters) {
            if (!IsRepeaterRecord(c, line)) continue;
            if (!ParseRepeaterLine(c, line, (*rows)[filled++])) return false;
        } else {
            // The fields of a memory line are TAB-separated; the field reader splits at
            // FieldDelimiter. The count was made before the TABs were replaced.
            line.replace('\t', c.s.FieldDelimiter);
            if (IsMemoryNumber(line)) ParseKenwoodLine(c, line, (*rows)[filled++]);
        }
    }
    return true;
}

}  // namespace veldor
