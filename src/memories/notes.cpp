#include "memories/notes.h"

#include "protocol/read_frequency.h"
#include "tuning/steps.h"

namespace veldor {

namespace {

constexpr int kNotes = 30;

void ShowNoteLabels(Core& c) {
    c.f.lblNotes.caption = QString::number(c.s.NoteCount);
    c.f.lblCurrentNote.caption = QString::number(c.s.NoteCurrent);
}

// The link is on, the rig receives and nothing scans; sweeping is allowed only while paused
// where the caller says so.
bool CanRecall(const Core& c, bool sweepMatters) {
    const State& s = c.s;
    if (c.f.chkOnOff.value == 0 || s.Transmitting || s.ScanRunning) return false;
    return !sweepMatters || !s.SpectrumRunning || s.SpectrumPaused;
}

void Recall(Core& c) {
    State& s = c.s;
    const int n = s.NoteCurrent;
    c.f.lblCurrentNote.caption = QString::number(n);
    s.TargetFrequency = ParseFrequency(c, s.NoteFreq[n]);
    s.TargetMode = s.NoteMode[n];
    s.TargetShift = s.NoteShift[n];
    s.TargetOffset = s.NoteOffset[n];
    s.ToneCode = s.NoteCTCSS[n];
    s.ToneEncode = s.NoteEncDec[n].left(1);
    s.ToneDecode = s.NoteEncDec[n].right(1);
    s.FrequencyChangePending = true;
}

}  // namespace

void cmdNoteFreq_Click(Core& c) {
    State& s = c.s;
    Form1& f = c.f;
    if (f.chkOnOff.value == 0 || (s.ScanRunning && !s.ScanHold) || f.txtVfoA.text.size() < 7)
        return;
    if (++s.NoteLast > kNotes) s.NoteLast = 1;  // the oldest note goes
    s.NoteCurrent = s.NoteLast;
    const int n = s.NoteLast;
    s.NoteFreq[n] = WithoutSecondSeparator(f.txtVfoA.text);
    s.NoteMode[n] = f.txtMode.text.trimmed();
    s.NoteCTCSS[n] = s.ToneCode;
    s.NoteEncDec[n] = s.ToneEncode + s.ToneDecode;
    s.NoteShift[n] = s.TargetShift;
    s.NoteOffset[n] = s.TargetOffset;
    if (s.NoteLast > 1) f.cmdForward.enabled = f.cmdBack.enabled = true;
    s.NoteCount = std::min(s.NoteCount + 1, kNotes);
    ShowNoteLabels(c);
}

// After a wrap, back from note 1 goes to the note taken last and forward stops there too, so
// the older notes above it are out of reach of both buttons.
void cmdBack_Click(Core& c) {
    State& s = c.s;
    if (!CanRecall(c, true)) return;
    if (--s.NoteCurrent < 1) s.NoteCurrent = s.NoteLast;
    Recall(c);
}

void cmdForward_Click(Core& c) {
    State& s = c.s;
    if (!CanRecall(c, true)) return;
    if (++s.NoteCurrent > kNotes || s.NoteCurrent > s.NoteLast) s.NoteCurrent = 1;
    Recall(c);
}

void cmdNoteLast_Click(Core& c) {
    if (!CanRecall(c, false)) return;
    c.s.NoteCurrent = c.s.NoteLast;
    Recall(c);
}

void cmdClearNotes_Click(Core& c) {
    // The question speaks of the banks, though only the notes are cleared: it has always read
    // so.
    if (c.p.dialogs->messageBox("Are your sure you want to clear the Quick Memory Banks?", "VELDOR",
                                MsgButtons::YesNo, MsgIcon::Question) != MsgResult::Yes)
        return;
    State& s = c.s;
    for (int n = 0; n <= kNotes; ++n) {
        for (QString* field :
             {&s.NoteFreq[n], &s.NoteMode[n], &s.NoteCTCSS[n], &s.NoteEncDec[n], &s.NoteShift[n]})
            field->clear();
        s.NoteOffset[n] = "600";
    }
    s.NoteLast = s.NoteCurrent = s.NoteCount = 0;
    c.f.cmdForward.enabled = c.f.cmdBack.enabled = false;
    ShowNoteLabels(c);
}

}  // namespace veldor
