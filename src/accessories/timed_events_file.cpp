#include "accessories/timed_events.h"

#include <QFile>

#include <cstdint>
#include <optional>

namespace veldor {

namespace {

const QStringList kTimedModes = {"LSB", "USB",  "CW",  "CWR", "AM",  "FM",
                                 "CWN", "CWRN", "AMN", "FMN", "DIG", "PKT"};

bool IsBlank(QChar ch) {
    return ch == ' ' || ch == '\t';
}

// A line read as free-format input: fields separated by commas, blanks around a bare field
// dropped, a field in double quotes taken as it stands (what follows its closing quote, up to
// the next comma, is ignored).
QStringList FreeFormatFields(const QString& line) {
    QStringList fields;
    qsizetype pos = 0;
    const qsizetype end = line.size();
    for (;;) {
        while (pos < end && IsBlank(line[pos])) ++pos;
        QString field;
        if (pos < end && line[pos] == '"') {
            const qsizetype close = line.indexOf('"', pos + 1);
            field = line.mid(pos + 1, close < 0 ? -1 : close - pos - 1);
            pos = close < 0 ? end : close + 1;
            while (pos < end && line[pos] != ',') ++pos;
        } else {
            const qsizetype comma = line.indexOf(',', pos);
            field = line.mid(pos, comma < 0 ? -1 : comma - pos);
            while (!field.isEmpty() && IsBlank(field.back())) field.chop(1);
            pos = comma < 0 ? end : comma;
        }
        fields.append(field);
        if (pos >= end) return fields;
        ++pos;  // the comma
    }
}

struct TimedRecord {
    QString time, text, frequency, mode;  // a frequency record
    bool task = false;
    QString command;
};

// The records of the file, or the number of the record at fault. Blank lines are no records.
std::optional<std::vector<TimedRecord>> ReadRecords(const QByteArray& bytes, int* recordNumber) {
    std::vector<TimedRecord> records;
    for (QString line : QString::fromUtf8(bytes).split('\n')) {
        if (line.endsWith('\r')) line.chop(1);
        if (line.trimmed().isEmpty()) continue;
        // The tables count in 16 bits: a longer file is at fault at the record that overflows.
        if (++*recordNumber > INT16_MAX) return std::nullopt;
        const QStringList f = FreeFormatFields(line);
        if (f.size() != 3) return std::nullopt;
        TimedRecord r;
        r.task = f[1].toUpper() == "SHELL";
        if (r.task) {
            r.time = f[0].right(4);  // a task's time ends its first field
            r.command = f[2];
        } else {
            if (!kTimedModes.contains(f[2].trimmed().toUpper())) return std::nullopt;
            r.text = f[0] + " " + f[1] + " " + f[2];
            r.frequency = f[1];
            r.mode = f[2];
        }
        records.push_back(r);
    }
    return records;
}

void Box(Core& c, const QString& text) {
    c.p.dialogs->messageBox(text, "VELDOR", MsgButtons::OK, MsgIcon::Exclamation);
}

void RefuseFile(Core& c, int recordNumber) {
    // The number is shown with the blank a number's text leads with.
    Box(c, "Problem encountered reading the TimedEvents.txt file at record " +
               QString(" %1").arg(recordNumber) + "\r\nAll timed activities disabled");
    c.f.cmdTimed.enabled = false;
}

}  // namespace

void LoadTimedEvents(Core& c) {
    QFile file(kTimedEventsFile);
    if (!file.exists()) {
        Box(c,
            "The TimedEvents.txt file is missing or empty.\r\nAll timed activities are "
            "disabled");
        c.f.cmdTimed.enabled = false;
        return;
    }
    if (!file.open(QIODevice::ReadOnly)) return RefuseFile(c, 0);
    const QByteArray bytes = file.readAll();
    file.close();
    ReadTimedEvents(c, bytes);
}

void ReadTimedEvents(Core& c, const QByteArray& bytes) {
    State& s = c.s;
    int recordNumber = 0;
    const std::optional<std::vector<TimedRecord>> records = ReadRecords(bytes, &recordNumber);
    if (!records) return RefuseFile(c, recordNumber);
    for (const TimedRecord& r : *records) {
        if (r.task) {
            s.TimedTaskTime.append(r.time);
            s.TimedTaskCommand.append(r.command);
            s.TimedTaskStarted.push_back(false);
        } else {
            s.TimedEntryText.append(r.text);
            s.TimedEntryFrequency.append(r.frequency);
            s.TimedEntryMode.append(r.mode);
            c.f.cboTimedEvents.list.append(r.text);
        }
    }
    s.TimedEntryLast = static_cast<int16_t>(s.TimedEntryText.size() - 1);
    s.TimedTaskLast = static_cast<int16_t>(s.TimedTaskTime.size() - 1);
    // Deliberately from the second record on: the first record's frequency keeps the mark of
    // the other locale.
    for (qsizetype i = 1; i < s.TimedEntryFrequency.size(); ++i) {
        QString& frequency = s.TimedEntryFrequency[i];
        const qsizetype mark = frequency.indexOf(s.OtherDecimalSeparator);
        if (mark >= 0) frequency.replace(mark, 1, s.DecimalSeparator);
    }
}

}  // namespace veldor
