#include "basic/basic.h"

#include <exception>
#include <new>
#include <stdexcept>
#include <utility>

#include "accessories/dsp_panel.h"
#include "accessories/meters_panel.h"
#include "accessories/recorder.h"
#include "accessories/timed_events.h"
#include "accessories/xband_repeat.h"
#include "cycle/poll_cycle.h"
#include "cycle/shell_menus.h"
#include "cycle/start_stop.h"
#include "grid/grid.h"
#include "link/catalogue.h"
#include "link/serial_link.h"
#include "memories/memory_tag.h"
#include "protocol/model_controls.h"
#include "protocol/read_frequency.h"
#include "protocol/tones.h"
#include "protocol/transmit.h"
#include "protocol/write_frequency.h"
#include "scan/scan_engine.h"
#include "scan/spectrum.h"
#include "tuning/go_to.h"

namespace veldor {

namespace {

QString TwoDigits(int value) {
    return basic::Format(value, "00");
}

}  // namespace

void tmrClock_Timer(Core& c) {
    const QTime utc = c.p.clock->utcNow().time();
    c.f.lblUTC.caption =
        TwoDigits(utc.hour()) + ":" + TwoDigits(utc.minute()) + ":" + TwoDigits(utc.second());

    CommandButton& counter = c.f.cmdTenMinCounter;
    int& seconds = c.s.TenMinuteSeconds;
    if (seconds == 0) {
        counter.caption = "10 Mins";
        counter.backColour = ButtonFace;
    } else if (seconds > 0) {
        --seconds;
        counter.caption = TwoDigits(seconds / 60) + ":" + TwoDigits(seconds % 60);
        // The last minute flashes.
        if (seconds < 60) counter.backColour = seconds % 2 == 1 ? Red : White;
    }
    OpenMemoryGridAtStart(c);
}

void cmdTenMinCounter_Click(Core& c) {
    if (c.s.TenMinuteSeconds == 0) {
        c.s.TenMinuteSeconds = 600;
        c.f.cmdTenMinCounter.backColour = White;
    } else {
        c.s.TenMinuteSeconds = 0;
    }
}

namespace {

// The requests of the controls, served one after the other in this order at every tick. A
// row without a flag runs at every tick. Rows of windows still to come join in their place.
struct PendingAction {
    bool State::*flag;
    void (*action)(Core&);
};
constexpr PendingAction kPendingActions[] = {
    {&State::TimedActive, RunTimedEvents},
    {nullptr, CheckMemoryTag},
    {&State::PendingMetersPanel, ToggleMetersPanel},
    {&State::PendingDspPanel, ToggleDspPanel},
    {&State::GoToPending, ApplyGoTo},
    {&State::PendingConvert, OpenConvert},
    {&State::PendingFT920Tuner, ToggleFt920Tuner},
    {&State::PendingFT920StartTune, StartFt920Tune},
    {&State::PttOffPending, PttOff},
    {&State::PendingRecordStart, ShowRecorder},
    {&State::PendingRecordPause, RecordSquelchGate},
    {&State::PttOnPending, PttOn},
    {nullptr,
     [](Core& c) {
         if (c.s.LinkRTS == "Y") FollowTxState(c);
     }},
    {&State::PendingFT817AGC, SetFt817Agc},
    {&State::PendingVfoSelect, [](Core& c) { SelectVfo(c); }},
    {&State::PendingFT1000Filter82, SetFilter82},
    {&State::PendingFT1000Filter455, SetFilter455},
    {&State::PendingVfoToggle, ToggleVfo},
    {&State::PendingSplit, SetSplit},
    {&State::PendingProcessor, ToggleProcessor},
    {&State::PendingFT450Tune, Ft450Tune},
    {&State::PendingFT450Tuner, Ft450Tuner},
    {&State::PendingFT450Att, Ft450Attenuator},
    {&State::PendingFT450AGC, Ft450Agc},
    {&State::PendingFT450Ipo, Ft450Ipo},
    {&State::PendingFT450SqlRf, Ft450SqlMode},
    {&State::PendingFT450VM, Ft450VfoMemory},
    {&State::PendingNoiseBlanker, ToggleNoiseBlanker},
    {&State::PendingFT450NR, Ft450NoiseReduction},
    {&State::PendingFT450Notch, Ft450Notch},
    {&State::PendingFT450NRLevel, Ft450NoiseReductionLevel},
    {&State::PendingFT450AFGain, Ft450AfGain},
    {&State::PendingFT450RFGain, Ft450RfGain},
    {&State::PendingFT450NotchFreq, Ft450NotchFrequency},
    {&State::PendingFT450Filter, Ft450Filter},
    {&State::PendingFT450Contour, Ft450Contour},
    {&State::PendingFT450ContourFreq, Ft450ContourFrequency},
    {&State::PendingDNF, ToggleDNF},
    {&State::PendingDNR, ToggleDNR},
    {&State::PendingDBF, ToggleDBF},
    {&State::PendingLock, ToggleLock},
    {&State::PendingFast, ToggleFast},
    {&State::ShiftPending, ApplyRepeaterShift},
    {&State::ModeButtonPending, ApplyModeButton},
    {&State::SplitMemoryPending, ApplySplitMemory},
    {&State::PendingVfoEqual, VfoEqual},
    {&State::PendingVfoBOff, VfoBOff},
};

void ChangeFrequency(Core& c) {
    State& s = c.s;
    s.FrequencyChangePending = false;
    SetFrequencyAndMode(c, s.TargetFrequency, s.TargetMode);
    ApplyRepeaterShift(c);
    ReadFrequencyAndMode(c);
    if (s.ReplyTimedOut) ReadFrequencyAndMode(c);
}

// The body of the tick; false ends it without restarting the timer.
bool PollTick(Core& c) {
    State& s = c.s;
    if (c.f.chkOnOff.value == 0) return false;
    c.f.lblTimeoutCount.backColour = ButtonFace;  // a timeout shows red for one tick
    if (s.RigType == RigNotSet) return false;
    if (s.RigType == RigFT450) KeepDspPanel(c);
    if (c.p.MSComm1->isOpen()) {
        for (const PendingAction& row : kPendingActions)
            if (!row.flag || s.*(row.flag)) row.action(c);
        if (s.FrequencyChangePending) ChangeFrequency(c);
        if (c.p.rigServer) c.p.rigServer->requestsServed();
        // A running scan feeds the display itself; a held one shows live status.
        if (s.ScanRunning && !s.ScanHold) {
            ScanStep(c);
            ScanCheckSignal(c);
        } else if (!s.SpectrumMouseDown && !s.SpectrumRunning && !s.StatusUpdateHeld) {
            PerformStatusUpdate(c);
        }
        if (s.PendingSpectrumStart) SpectrumStart(c);
        if (s.SpectrumRunning) SpectrumStep(c);
        // The cross-band repeater's window owns the port while it is open.
        if (s.PendingXBand) ShowXBandRepeat(c);
    }
    if (s.SettingsRequested) Form_DblClick(c);
    // Recovery from a lost binary reply: reopen the port and take the rig anew. The same after
    // a run of lost text replies and when the port went away under the link (departures: the
    // text rig was never recovered, and a vanished device was never found again).
    if (c.f.chkOnOff.value == 1 && (s.ReplyTimedOut || !c.p.MSComm1->isOpen() ||
                                    s.TextTimeoutsInRow >= kTextTimeoutsBeforeRecovery))
        RecoverLink(c);
    SaveCurrentValues(c, c.f.txtVfoA.text, c.f.txtMode.text);
    c.p.pump->processEvents();
    return true;
}

}  // namespace

void tmrPollInterval_Timer(Core& c) {
    // A tick that overtakes a wait in progress leaves at once, the timer still running.
    if (c.s.ReceiveBusy || c.s.SendBusy) return;
    // The tick never overlaps itself: the timer runs again only at its end.
    c.p.tmrPollInterval->setEnabled(false);
    try {
        bool again = PollTick(c);
        if (std::exchange(c.s.ReadingCutShort, false) && again) again = PollTick(c);
        if (again) c.p.tmrPollInterval->setEnabled(true);
    } catch (const std::exception& e) {
        // Polling stays stopped until the connection is opened again.
        int number = 5;
        QString description = e.what();
        if (dynamic_cast<const std::bad_alloc*>(&e)) {
            number = 7;
            description = "Out of memory";
        } else if (dynamic_cast<const std::overflow_error*>(&e)) {
            number = 6;
            description = "Overflow";
        } else if (dynamic_cast<const std::domain_error*>(&e)) {
            number = 11;
            description = "Division by zero";
        } else if (dynamic_cast<const std::out_of_range*>(&e)) {
            number = 9;
            description = "Subscript out of range";
        }
        c.p.dialogs->messageBox(QString("Error %1 (%2) in procedure tmrPollInterval_Timer of Form "
                                        "Form1")
                                    .arg(number)
                                    .arg(description),
                                "VELDOR", MsgButtons::OK, MsgIcon::Critical);
    }
}

}  // namespace veldor
