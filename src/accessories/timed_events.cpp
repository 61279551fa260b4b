#include "accessories/timed_events.h"

#include "basic/basic.h"
#include "protocol/read_frequency.h"

namespace veldor {

namespace {

// The colour the Timed button takes when the file has no frequency to follow.
constexpr Colour PalePink = 0xFFC0FF;

bool LongJobRunning(const State& s) {
    return s.Transmitting || s.SpectrumRunning || s.ScanRunning;
}

// The time of day as a record writes it, "0630".
QString Now(Core& c) {
    const QTime t = c.p.clock->localNow().time();
    return basic::Format(t.hour(), "00") + basic::Format(t.minute(), "00");
}

QString EntryTime(const State& s, int entry) {
    return s.TimedEntryText[entry].left(4);
}

}  // namespace

void cmdTimed_Click(Core& c) {
    State& s = c.s;
    if (c.f.chkOnOff.value != 1 || LongJobRunning(s)) return;
    c.p.tmrPollInterval->setEnabled(false);
    if (s.TimedActive) {
        s.TimedActive = false;
        c.f.cmdTimed.backColour = ButtonFace;
        c.p.tmrPollInterval->setInterval((6 - s.TalkFreq) * 26);
    } else {
        s.TimedActive = true;
        c.f.cmdTimed.backColour = Green;
        c.p.tmrPollInterval->setInterval(1000);
    }
    c.p.tmrPollInterval->setEnabled(true);
}

void RunTimedEvents(Core& c) {
    State& s = c.s;
    const QString now = Now(c);
    // A task starts once in its minute, and again in the same minute of the next day.
    for (int i = 0; i <= s.TimedTaskLast; ++i) {
        if (s.TimedTaskTime[i] != now) {
            s.TimedTaskStarted[i] = false;
        } else if (!s.TimedTaskStarted[i]) {
            c.p.launcher->start(s.TimedTaskCommand[i]);  // a failure is ignored
            s.TimedTaskStarted[i] = true;
        }
    }
    // The latest time of the day; of equal times the first, and "0000" never counts.
    QString best = "0000";
    int bestIndex = -1;
    for (int i = 0; i <= s.TimedEntryLast; ++i) {
        if (EntryTime(s, i) > best) {
            best = EntryTime(s, i);
            bestIndex = i;
        }
    }
    if (bestIndex < 0) {
        c.p.dialogs->messageBox("No timed definitions found", "VELDOR", MsgButtons::OK,
                                MsgIcon::Exclamation);
        s.TimedActive = false;
        // Deliberately pink rather than the button face, and the tick stays at one second
        // until the button is pressed again.
        c.f.cmdTimed.backColour = PalePink;
        return;
    }
    // The entry before the first one still to come; before the first of the day, yesterday's
    // latest.
    int inForce = s.TimedEntryLast;
    for (int i = 0; i <= s.TimedEntryLast; ++i) {
        if (EntryTime(s, i) > now) {
            inForce = i == 0 ? bestIndex : i - 1;
            break;
        }
    }
    ComboBox& box = c.f.cboTimedEvents;
    box.listIndex = static_cast<int>(box.list.indexOf(s.TimedEntryText[inForce]));
    cboTimedEvents_Click(c);
}

void cboTimedEvents_Click(Core& c) {
    State& s = c.s;
    if (c.f.chkOnOff.value != 1 || LongJobRunning(s)) return;
    const ComboBox& box = c.f.cboTimedEvents;
    if (box.listIndex < 0 || box.listIndex >= box.list.size()) return;
    const qsizetype entry = s.TimedEntryText.indexOf(box.list[box.listIndex]);
    if (entry < 0) return;
    QString frequency = s.TimedEntryFrequency[entry];
    if (!frequency.contains(s.DecimalSeparator)) {
        // kHz to MHz: the mark before the last three digits.
        frequency = frequency.rightJustified(3, '0');
        frequency.insert(frequency.size() - 3, s.DecimalSeparator);
    }
    s.TargetFrequency = ParseFrequency(c, frequency);
    s.TargetMode = s.TimedEntryMode[entry];
    s.TargetShift = "";
    s.TargetOffset = "600";
    s.ToneCode = "";
    s.ToneEncode = "0";
    s.ToneDecode = "0";
    s.FrequencyChangePending = true;
}

}  // namespace veldor
