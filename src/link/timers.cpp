#include "basic/basic.h"

#include <exception>
#include <new>

#include "link/catalogue.h"
#include "link/poll_cycle.h"
#include "link/serial_link.h"
#include "link/start_stop.h"

namespace veldor {

namespace {

QString TwoDigits(int value) {
    return basic::Format(value, "00");
}

void SaveDelayKey(Core& c, const QString& suffix, int value) {
    const RigInfo* rig = FindRig(c.s.RigType);
    if (!rig) return;
    const QString prefix = QString::fromUtf16(rig->delayPrefix.data(),
                                              static_cast<qsizetype>(rig->delayPrefix.size()));
    SaveSetting(c, c.s.AppName, "Settings", prefix + suffix, QString::number(value));
}

}  // namespace

void sldCMDdelay_Change(Core& c) {
    SaveDelayKey(c, "CMDdelay", c.f.sldCMDdelay.value);
}
void sldSmeterDelay_Change(Core& c) {
    SaveDelayKey(c, "SmeterDelay", c.f.sldSmeterDelay.value);
}
void sldExtra_Change(Core& c) {
    SaveDelayKey(c, "ExtraDelay", c.f.sldExtra.value);
}

void chkSliders_Click(Core& c) {
    const bool show = c.f.chkSliders.value == 1;
    for (Control* control :
         {static_cast<Control*>(&c.f.sldCMDdelay), static_cast<Control*>(&c.f.sldSmeterDelay),
          static_cast<Control*>(&c.f.sldExtra), static_cast<Control*>(&c.f.lblCmdDelay),
          static_cast<Control*>(&c.f.lblAGCdelay), static_cast<Control*>(&c.f.lblExtra)})
        control->visible = show;
}

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
    // Opening the memory grid one second after start joins with the grid window.
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

// The body of the tick; false ends it without restarting the timer.
bool PollTick(Core& c) {
    State& s = c.s;
    if (c.f.chkOnOff.value == 0) return false;
    c.f.lblTimeoutCount.backColour = ButtonFace;  // a timeout shows red for one tick
    if (s.RigType == RigNotSet) return false;
    if (c.p.MSComm1->isOpen()) {
        // The pending actions, the frequency change, the scan and the sweep join here with
        // their operations, before the reading.
        if (!s.ScanRunning && !s.SpectrumRunning) PerformStatusUpdate(c);
    }
    if (s.SettingsRequested) Form_DblClick(c);
    // Recovery from a lost binary reply: reopen the port and take the rig anew.
    if (c.f.chkOnOff.value == 1 && s.ReplyTimedOut) {
        OpenPorts(c, s.CommPort, s.CommSpeed);
        TakeControl(c);
    }
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
        if (PollTick(c)) c.p.tmrPollInterval->setEnabled(true);
    } catch (const std::exception& e) {
        // Polling stays stopped until the connection is opened again.
        const bool memory = dynamic_cast<const std::bad_alloc*>(&e) != nullptr;
        c.p.dialogs->messageBox(QString("Error %1 (%2) in procedure tmrPollInterval_Timer of Form "
                                        "Form1")
                                    .arg(memory ? 7 : 5)
                                    .arg(memory ? "Out of memory" : e.what()),
                                "VELDOR", MsgButtons::OK, MsgIcon::Critical);
    }
}

}  // namespace veldor
