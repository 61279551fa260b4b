#include "accessories/recorder.h"

#include <QFileInfo>

namespace veldor {

namespace {

// The desktop's own sound recorder and mixer, the first of each list that starts.
const QStringList kPlayers = {"gnome-sound-recorder", "audacity", "kwave", "vlc"};
const QStringList kMixers = {"pavucontrol", "pavucontrol-qt", "gnome-control-center sound", "kmix",
                             "xfce4-mixer"};

void StartFirst(Core& c, const QStringList& programs) {
    for (const QString& program : programs)
        if (c.p.launcher->start(program)) return;
}

QString Length(int64_t ms) {
    const int64_t seconds = ms / 1000;
    QString text = QString("%1:%2").arg(seconds / 60 % 60).arg(seconds % 60, 2, 10, QChar('0'));
    if (seconds >= 3600) {
        text = QString("%1:%2").arg(seconds / 3600).arg(text.rightJustified(5, '0'));
    }
    return text;
}

void ErrorBox(Core& c, int result) {
    c.p.dialogs->messageBox(QString::number(result) + " RC=" + c.p.audio->lastErrorText(), "VELDOR",
                            MsgButtons::OK, MsgIcon::Exclamation);
}

}  // namespace

void cmdRecord_Click(Core& c) {
    if (c.s.Transmitting || c.s.SpectrumRunning || c.f.chkOnOff.value != 1) return;
    c.s.PendingRecordStart = true;
}

void ShowRecorder(Core& c) {
    State& s = c.s;
    s.PendingRecordStart = false;
    if (s.RecorderOpen) return;
    s.RecorderOpen = true;
    frmRecord_Load(c);
    c.p.windows->show(FormId::frmRecord, false);
    if (s.RecorderUsable) recOpen_Click(c);
}

void frmRecord_Load(Core& c) {
    c.frmRecord = FrmRecord{};
    const QStringList devices = c.p.audio->inputDevices();
    if (devices.isEmpty()) {
        c.p.dialogs->messageBox("No Wave-In devices found - cannot record", "VELDOR",
                                MsgButtons::OK, MsgIcon::Exclamation);
        c.f.cmdRecord.enabled = false;
        ShowRecordState(c);
        return;
    }
    c.frmRecord.Combo2.list = devices;
    c.frmRecord.Combo2.listIndex = 0;
    c.s.RecorderUsable = true;
    c.s.PendingRecordPause = false;
    ShowRecordState(c);
}

void frmRecord_Unload(Core& c) {
    c.p.audio->close();
    c.s.RecorderOpen = false;
    c.s.PendingRecordPause = false;
    ShowRecordState(c);
}

void recOpen_Click(Core& c) {
    // A new element: whatever was recorded and not saved is dropped.
    c.p.audio->close();
    c.p.audio->open();
    ShowRecordState(c);
}

void optFreq_Click(Core& c, int) {
    recOpen_Click(c);
}

void optBits_Click(Core& c, int) {
    recOpen_Click(c);
}

double GetRecordFormat(Core& c) {
    State& s = c.s;
    const FrmRecord& r = c.frmRecord;
    s.RecordBits = r.optBits[0].value ? 8 : 16;
    static constexpr int32_t kRates[] = {11025, 22050, 44100};
    for (size_t i = 0; i < r.optFreq.size(); ++i)
        if (r.optFreq[i].value) s.RecordRate = kRates[i];
    s.RecordBytesPerSecond = s.RecordRate * s.RecordBits / 8;
    s.RecordBlockAlign = static_cast<int16_t>(s.RecordBits / 8);
    return s.RecordBytesPerSecond / 1024.0;
}

void MMControl2_RecordClick(Core& c) {
    State& s = c.s;
    GetRecordFormat(c);
    const WaveFormat format{.device = c.frmRecord.Combo2.listIndex,
                            .channels = 1,
                            .samplesPerSecond = s.RecordRate,
                            .averageBytesPerSecond = s.RecordBytesPerSecond,
                            .blockAlign = s.RecordBlockAlign,
                            .bitsPerSample = s.RecordBits};
    const int result = c.p.audio->setFormat(format);
    if (result != 0) {
        ErrorBox(c, result);
    } else {
        s.PendingRecordPause = true;
    }
    // With the squelch watch the element is paused first; the button then records as it always
    // does, and the next tick holds the recording again while the squelch is shut.
    if (c.frmRecord.chkSquelch.value == 1) c.p.audio->pause();
    c.p.audio->record();
    ShowRecordState(c);
}

void MMControl2_PauseClick(Core& c) {
    c.p.audio->pause();
    ShowRecordState(c);
}

void MMControl2_StopClick(Core& c) {
    c.p.audio->stop();
    ShowRecordState(c);
}

void RecordSquelchGate(Core& c) {
    if (c.frmRecord.chkSquelch.value != 1) return;
    const bool squelchOpen = c.f.lblSQL.backColour == White;
    const bool paused = c.p.audio->mode() == AudioMode::Paused;
    // The pause command toggles: on with a signal, off without one.
    if (squelchOpen == paused) {
        c.p.audio->pause();
        ShowRecordState(c);
    }
}

void recSave_Click(Core& c) {
    c.p.audio->stop();
    ShowRecordState(c);
    QString path = c.p.dialogs->saveFileName("Save As", c.s.HomeDir,
                                             "Wave Files (*.wav)|*.wav|All Files (*.*)|*.*", 1);
    if (path.isEmpty()) return;
    if (path.right(4).toLower() != ".wav") path += ".wav";
    const QFileInfo existing(path);
    if (existing.exists()) {
        const QString name = existing.fileName().toUpper();
        if (path.toUpper().endsWith(name) &&
            c.p.dialogs->messageBox("Filename " + name +
                                        " already exists\r\nDo you wish to "
                                        "replace it?",
                                    "VELDOR", MsgButtons::YesNo,
                                    MsgIcon::Question) == MsgResult::No)
            return;
    }
    const int result = c.p.audio->save(path);
    if (result != 0) ErrorBox(c, result);
    ShowRecordState(c);
}

void cmdPlayer_Click(Core& c) {
    StartFirst(c, kPlayers);
}

void cmdVolume_Click(Core& c) {
    StartFirst(c, kMixers);
}

void cmdClose_Click(Core& c) {
    frmRecord_Unload(c);
    c.p.windows->close(FormId::frmRecord);
}

void ShowRecordState(Core& c) {
    MediaControl& m = c.frmRecord.MMControl2;
    const AudioMode mode = c.s.RecorderOpen ? c.p.audio->mode() : AudioMode::Closed;
    m.Record.enabled = mode == AudioMode::Open || mode == AudioMode::Stopped;
    m.Pause.enabled = mode == AudioMode::Recording || mode == AudioMode::Paused;
    m.Pause.pressed = mode == AudioMode::Paused;
    m.Stop.enabled = m.Pause.enabled;
    c.frmRecord.recSave.enabled = mode != AudioMode::Closed && mode != AudioMode::Open;
    c.frmRecord.recOpen.enabled = c.s.RecorderUsable;

    const QString length = Length(c.p.audio->takeMilliseconds());
    QString text;
    switch (mode) {
        case AudioMode::Closed:
            text = "Closed";
            break;
        case AudioMode::Open:
            text = "Ready to record";
            break;
        case AudioMode::Recording:
            text = "Recording " + length;
            break;
        case AudioMode::Paused:
            text = "Paused " + length;
            break;
        case AudioMode::Stopped:
            text = "Stopped " + length;
            break;
    }
    const QString error = c.p.audio->lastErrorText();
    if (!error.isEmpty()) text += " - " + error;
    c.frmRecord.lblStatus.caption = text;
}

}  // namespace veldor
