// The clock timer, the ten-minute counter, the delay sliders, and the tick's
// recovery.
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "support/fakes.h"
#include "tuning/delays.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace veldor::test {
namespace {

TEST(Clock, ShowsUtcAndCountsTenMinutes) {
    Harness h;
    h.clock.utc = QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5), Qt::UTC);
    h.clock.now = 0;
    tmrClock_Timer(h.c);
    EXPECT_EQ(h.c.f.lblUTC.caption, "03:04:05");
    // The ten-minute counter counts down and flashes in the last minute.
    cmdTenMinCounter_Click(h.c);
    EXPECT_EQ(h.c.f.cmdTenMinCounter.backColour, White);
    tmrClock_Timer(h.c);
    EXPECT_EQ(h.c.f.cmdTenMinCounter.caption, "09:59");
    EXPECT_EQ(h.c.f.cmdTenMinCounter.backColour, White);
    for (int i = 0; i < 540; ++i) tmrClock_Timer(h.c);
    EXPECT_EQ(h.c.f.cmdTenMinCounter.caption, "00:59");
    EXPECT_EQ(h.c.f.cmdTenMinCounter.backColour, Red);  // odd
    tmrClock_Timer(h.c);
    EXPECT_EQ(h.c.f.cmdTenMinCounter.backColour, White);  // even
    for (int i = 0; i < 58; ++i) tmrClock_Timer(h.c);
    EXPECT_EQ(h.c.f.cmdTenMinCounter.caption, "00:00");
    tmrClock_Timer(h.c);
    EXPECT_EQ(h.c.f.cmdTenMinCounter.caption, "10 Mins");
    EXPECT_EQ(h.c.f.cmdTenMinCounter.backColour, ButtonFace);
    // A second click stops it at the next second.
    cmdTenMinCounter_Click(h.c);
    tmrClock_Timer(h.c);
    cmdTenMinCounter_Click(h.c);
    tmrClock_Timer(h.c);
    EXPECT_EQ(h.c.f.cmdTenMinCounter.caption, "10 Mins");
}

TEST(DelaySliders, SaveUnderTheKeysOfTheRigFamily) {
    Harness h;
    h.c.s.RigType = RigFT897D;
    h.c.f.sldCMDdelay.value = 60;
    sldCMDdelay_Change(h.c);
    h.c.f.sldExtra.value = 10;
    sldExtra_Change(h.c);
    EXPECT_EQ(h.stored("Settings", "FT897CMDdelay"), "60");
    EXPECT_EQ(h.stored("Settings", "FT897ExtraDelay"), "10");
}

struct Connected : Station {
    Connected() : Station(RigFT847) {
        load();
        switchOn();
    }
};

// A lost reply reopens the port and takes the rig again; the red of a timeout
// lasts one tick but while a wait is in progress, when the tick leaves at once;
// a tick with the connection off stops for good.
TEST(PollTick, ALostReplyReopensThePortAndTakesTheRigAgain) {
    Connected h;
    h.rig().clearTrace();
    h.rig().state().catOn = false;  // the rig forgot its CAT mode, and so is silent
    tmrPollInterval_Timer(h.c);
    // The unanswered reading of frequency, status and signal, then CAT on again
    // after the reopening.
    EXPECT_EQ(h.rigReceived().toHex(' '),
              "00 00 00 00 03 00 00 00 00 f7 00 00 00 00 e7 00 00 00 00 00");
    EXPECT_EQ(h.c.f.lblTimeoutCount.caption, "3");
    EXPECT_EQ(h.c.f.lblTimeoutCount.backColour, Red);
    EXPECT_TRUE(h.rig().state().catOn);
    EXPECT_TRUE(h.pollTimer.on);
    EXPECT_FALSE(h.c.s.ReplyTimedOut);
    h.c.s.ReceiveBusy = true;
    h.rig().clearTrace();
    tmrPollInterval_Timer(h.c);
    EXPECT_TRUE(h.rigReceived().isEmpty());
    EXPECT_EQ(h.c.f.lblTimeoutCount.backColour, Red);
    h.c.s.ReceiveBusy = false;
    tmrPollInterval_Timer(h.c);
    EXPECT_EQ(h.rigReceived().toHex(' '), "00 00 00 00 03 00 00 00 00 f7 00 00 00 00 e7");
    EXPECT_EQ(h.c.f.txtVfoA.text, "14.250.00");
    EXPECT_EQ(h.c.f.lblTimeoutCount.backColour, ButtonFace);
    EXPECT_EQ(h.c.f.lblTimeoutCount.caption, "3");
    h.c.f.chkOnOff.value = 0;
    tmrPollInterval_Timer(h.c);
    EXPECT_FALSE(h.pollTimer.on);
}

TEST(PollTick, RecordsTheRigForOtherPrograms) {
    Connected h;
    h.clock.utc = QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7), Qt::LocalTime).toUTC();
    h.clock.now = 0;
    tmrPollInterval_Timer(h.c);
    EXPECT_EQ(h.stored("CurrentValues", "RigType"), "FT847");
    EXPECT_EQ(h.stored("CurrentValues", "GotSignal"), h.c.s.SignalPresent ? "True" : "False");
    EXPECT_EQ(h.stored("CurrentValues", "Date"), "2026/03/04");
    // The reading itself takes a moment of the rig's time.
    EXPECT_TRUE(h.stored("CurrentValues", "Time").startsWith("05:06:0"));
}

// A port whose driver fails in the middle of a reading.
class FailingPort : public ScriptedPort {
  public:
    using ScriptedPort::ScriptedPort;
    int inBufferCount() override { throw std::runtime_error("Device I/O error"); }
};

TEST(PollTick, AnErrorInTheTickIsShownAndStopsPolling) {
    Harness h;
    FailingPort port(h.clock);
    port.open("1", "4800,N,8,2", false, {}, nullptr);
    h.c.p.MSComm1 = &port;
    h.c.s.RigType = RigFT817;
    h.c.f.chkOnOff.value = 1;
    h.pollTimer.on = true;
    tmrPollInterval_Timer(h.c);
    EXPECT_FALSE(h.pollTimer.on);
    ASSERT_EQ(h.dialogs.messages.size(), 1u);
    EXPECT_EQ(h.dialogs.messages[0].text,
              "Error 5 (Device I/O error) in procedure tmrPollInterval_Timer of "
              "Form Form1");
}

TEST(Messages, TheFirstLineOpensTheWindowAndAClosedWindowStartsAfresh) {
    Harness h;
    ReportMessage(h.c, "one");
    EXPECT_TRUE(h.c.frmErrorList.visible);
    ReportMessage(h.c, "two");
    EXPECT_EQ(h.c.frmErrorList.txtErrors.text, "one\r\ntwo\r\n");
    frmErrorList_Unload(h.c);
    ReportMessage(h.c, "three");
    EXPECT_EQ(h.c.frmErrorList.txtErrors.text, "three\r\n");
    // A log past its limit is dropped whole.
    ReportMessage(h.c, QString(63992, 'x'));  // 64001 characters with the line ends
    ReportMessage(h.c, "next");
    EXPECT_EQ(h.c.frmErrorList.txtErrors.text, "next\r\n");
}

}  // namespace
}  // namespace veldor::test
