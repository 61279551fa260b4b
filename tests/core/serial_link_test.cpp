// The serial link on virtual time: frames, delays, busy flags, reply
// collection, text framing, port opening and frequency coding.
#include "link/serial_link.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

class Link : public ::testing::Test {
  protected:
    Link() : h(true) {
        port().open("1", "4800,N,8,2", false, {}, nullptr);
        h.c.f.chkOnOff.value = 1;
        h.c.s.RigType = RigFT817;
    }
    ScriptedPort& port() { return *h.scriptedPort; }
    // The milliseconds from now until the first write.
    uint32_t waitOfSend(uint8_t opcode = 0x03) {
        const uint32_t start = h.clock.now;
        SendCommand(h.c, opcode);
        return port().written.at(0).atMs - start;
    }
    Harness h;
};

// A frame goes in index order after a quarter of the delay, the whole delay
// while scanning; the events run even with no delay; with "clear buffer" the
// input is emptied first.
TEST_F(Link, SendCommandWritesTheFrameInIndexOrderAfterAQuarterOfTheDelay) {
    h.c.f.sldCMDdelay.value = 103;  // a quarter is 25 ms, by integer division
    h.c.s.CommandBytes = {0x01, 0x42, 0x50, 0x00, 0xEE};
    EXPECT_EQ(waitOfSend(0x01), 25u);
    ASSERT_EQ(port().written.size(), 1u);
    EXPECT_EQ(port().written[0].bytes, Bytes({0x01, 0x42, 0x50, 0x00, 0x01}));
    EXPECT_FALSE(h.c.s.SendBusy);
    port().written.clear();
    h.c.s.ScanRunning = true;
    EXPECT_EQ(waitOfSend(), 103u);
    h.c.s.ScanRunning = false;
    h.c.f.sldCMDdelay.value = 3;  // a quarter of 3 is 0
    port().written.clear();
    const int pumps = h.pump.pumps;
    h.c.s.ClearBuffer = "Y";
    port().arrive(0, Bytes({0x99}));
    EXPECT_EQ(waitOfSend(), 0u);
    EXPECT_EQ(h.pump.pumps - pumps, 1);
    EXPECT_EQ(port().inBufferCount(), 0);
}

TEST_F(Link, ACommandToAPortClosedBeforeOrDuringTheDelayIsDropped) {
    h.c.f.sldCMDdelay.value = 40;
    h.pump.at(h.clock.now, [&] { port().close(); });
    SendCommand(h.c, 0x03);
    SendCommand(h.c, 0x03);
    EXPECT_TRUE(port().written.empty());
    EXPECT_FALSE(h.c.s.SendBusy);
}

TEST_F(Link, ABusyFlagHoldsASendUntilItFallsOr101PausesAtMost) {
    h.c.s.ReceiveBusy = true;
    h.pump.at(h.clock.now + 22, [&] { h.c.s.ReceiveBusy = false; });
    // The pause in which the flag came down ends with it.
    EXPECT_EQ(waitOfSend(), 22u);
    port().written.clear();
    h.c.s.ReceiveBusy = true;  // never cleared
    EXPECT_EQ(waitOfSend(), 101u * 5);
}

TEST_F(Link, SendTextEmptiesTheInputAndIgnoresTheBusyFlags) {
    port().arrive(0, "stale;");
    h.c.s.SendBusy = true;
    const uint32_t start = h.clock.now;
    SendText(h.c, "FA;");
    EXPECT_EQ(port().allWritten(), "FA;");
    EXPECT_EQ(port().written[0].atMs, start);
    EXPECT_EQ(h.c.s.LastTextCommand, "FA;");
    EXPECT_EQ(port().inBufferCount(), 0);
}

// A reply in pieces ends with its last byte, the first bytes end no pause; one
// already there ends after the events have run. Surplus bytes stay in the port
// for the next read.
TEST_F(Link, AReplyInPiecesEndsWithItsLastByte) {
    uint32_t start = h.clock.now;
    port().arrive(start + 12, Bytes({0x01, 0x42}));
    port().arrive(start + 303, Bytes({0x50, 0x00, 0x01, 0x99}));
    ReadResponse(h.c, 5);
    EXPECT_FALSE(h.c.s.ReplyTimedOut);
    EXPECT_EQ(h.c.s.ReplyBytes, Bytes({0x01, 0x42, 0x50, 0x00, 0x01}));
    EXPECT_EQ(h.clock.now - start, 303u);
    EXPECT_FALSE(h.c.s.ReceiveBusy);
    ReadResponse(h.c, 1);
    EXPECT_EQ(h.c.s.ReplyBytes, Bytes({0x99}));
    for (const uint32_t after : {0u, 3u, 5u, 7u}) {
        start = h.clock.now;
        const int pumps = h.pump.pumps;
        port().arrive(start + after, Bytes({0x00}));
        ReadResponse(h.c, 1);
        EXPECT_FALSE(h.c.s.ReplyTimedOut) << after;
        EXPECT_EQ(h.clock.now - start, after);
        EXPECT_GE(h.pump.pumps - pumps, 1) << after;
    }
}

// A lost or short reply times out after about half a second and counts in red;
// a lost one leaves the former reply, which is why callers test the flag first.
// Switching off during a read ends it as a timeout with the counter back at
// zero; a read of the closed port gives one byte and leaves the flag as it was.
TEST_F(Link, ALostOrShortReplyTimesOutAfterAboutHalfASecondAndCountsInRed) {
    h.c.s.ReplyBytes = Bytes({0x11, 0x22});
    h.c.f.lblTimeoutCount.caption = "4";
    const uint32_t start = h.clock.now;
    ReadResponse(h.c, 5);
    EXPECT_TRUE(h.c.s.ReplyTimedOut);
    EXPECT_EQ(h.clock.now - start, 505u);
    EXPECT_EQ(h.c.f.lblTimeoutCount.caption, "5");
    EXPECT_EQ(h.c.f.lblTimeoutCount.backColour, Red);
    EXPECT_EQ(h.c.s.ReplyBytes, Bytes({0x11, 0x22}));
    EXPECT_FALSE(h.c.s.ReceiveBusy);
    port().arrive(0, Bytes({0x01, 0x42, 0x50}));
    ReadResponse(h.c, 5);
    EXPECT_TRUE(h.c.s.ReplyTimedOut);
    EXPECT_EQ(h.c.s.ReplyBytes, Bytes({0x01, 0x42, 0x50}));
    EXPECT_EQ(h.c.f.lblTimeoutCount.caption, "6");
    h.c.s.ReplyTimedOut = false;
    h.pump.at(h.clock.now + 100, [&] {
        h.c.f.chkOnOff.value = 0;  // as chkOnOff_Click does
        port().close();
    });
    ReadResponse(h.c, 5);
    EXPECT_TRUE(h.c.s.ReplyTimedOut);
    EXPECT_EQ(h.c.s.ReplyBytes, Bytes({0}));
    EXPECT_EQ(h.c.f.lblTimeoutCount.caption, "0");
    EXPECT_EQ(h.c.f.lblTimeoutCount.backColour, ButtonFace);
    ReadResponse(h.c, 5);
    EXPECT_EQ(h.c.s.ReplyBytes.size(), 1);
    EXPECT_TRUE(h.c.s.ReplyTimedOut);
}

// Text replies of the FT-450. Each case: what was left over from earlier reads,
// what arrives, then whether a reply was taken, the reply, and what stays in
// the buffer.
TEST_F(Link, TextFramingCollectsOneReply) {
    const QString cases =
        "|FA014250000;|1|FA014250000;| "
        "|ID0241;FA014250000;|1|ID0241;|FA014250000; "
        "FA0142|50000;|1|FA014250000;| |FA014250000;?;|1|FA014250000;| "
        "|?;FA014250000;|1|FA014250000;| |?;|0||?; "
        "FA01|42?;50000;|1|FA014250000;|";
    for (const QString& c : cases.split(' ')) {
        SCOPED_TRACE(c.toStdString());
        const QStringList t = c.split('|');
        port().clearInput();
        h.c.s.TextReply.clear();
        h.c.s.ReceiveBuffer = t[0];
        port().arrive(h.clock.now + 7, t[1].toLatin1());
        EXPECT_EQ(ReceiveData(h.c), t[2] == "1");
        EXPECT_EQ(h.c.s.TextReply, t[3]);
        EXPECT_EQ(h.c.s.ReceiveBuffer, t[4]);
        EXPECT_EQ(h.c.f.lblTimeoutCount.caption, "0");
    }
}

// A silent rig costs about 125 ms; a fragment waits for its end while its bytes
// keep coming, each within half a second.
TEST_F(Link, ATextReadWaitsOnlyWhileBytesKeepComing) {
    uint32_t start = h.clock.now;
    EXPECT_FALSE(ReceiveData(h.c));
    EXPECT_EQ(h.clock.now - start, 125u);
    EXPECT_EQ(h.c.f.lblTimeoutCount.caption, "1");
    EXPECT_EQ(h.c.f.lblTimeoutCount.backColour, Red);
    h.c.f.lblTimeoutCount.caption = "0";
    start = h.clock.now;
    port().arrive(start + 2, "FA0142");
    port().arrive(start + 400, "500");
    port().arrive(start + 800, "00;");
    EXPECT_TRUE(ReceiveData(h.c));
    EXPECT_EQ(h.c.s.TextReply, "FA014250000;");
    EXPECT_EQ(h.c.f.lblTimeoutCount.caption, "0");
    // Resynchronisation throws away what was buffered.
    h.c.s.ReceiveBuffer = "MD02;";
    h.c.s.TextResyncNeeded = true;
    port().arrive(0, "FA007000000;");
    EXPECT_TRUE(ReceiveData(h.c));
    EXPECT_EQ(h.c.s.TextReply, "FA007000000;");
    EXPECT_FALSE(h.c.s.TextResyncNeeded);
}

// Opening the ports.
TEST_F(Link, EachRigOpensWithItsHandshakeAndLinesAndAnUnavailablePortSaysWhy) {
    port().close();
    port().failReason = "Permission denied (add your user to dialout)";
    OpenPorts(h.c, "/dev/ttyUSB7", "4800,N,8,2");
    EXPECT_FALSE(port().isOpen());
    ASSERT_EQ(h.dialogs.messages.size(), 1u);
    EXPECT_EQ(h.dialogs.messages[0].text,
              "COM Port /dev/ttyUSB7 is not available. It may be in use by "
              "another program\r\n"
              "If yes, then close that program and retry by clicking the On/Off "
              "button.\r\n"
              "If no, then change the CommPort to another port and try again.");
    EXPECT_TRUE(h.c.frmErrorList.txtErrors.text.contains("Permission denied"));
    // The FT-450 opens with handshaking and RTS raised; the others without, their
    // lines as stored.
    port().failReason.clear();
    h.c.s.RaiseRTS = "N";
    h.c.s.RaiseDTR = "Y";
    OpenPorts(h.c, "2", "4800,N,8,2");
    EXPECT_FALSE(port().rtsCts);
    EXPECT_FALSE(port().rtsLine);
    EXPECT_TRUE(port().dtrLine);
    h.c.s.RigType = RigFT450;
    OpenPorts(h.c, "2", "38400,N,8,2");
    EXPECT_TRUE(port().rtsCts);
    EXPECT_EQ(h.c.s.RaiseRTS, "Y");
    EXPECT_TRUE(port().rtsLine);
    EXPECT_EQ(port().openedSettings, "38400,N,8,2");
}

// The extra PTT port is compared with the main port by the device they name: on
// the main port it is disabled for the run, unsaved; one that cannot be had
// gives its message and the system's reason, and the main port stays open.
TEST(ExtraPttPort, OpensOnlyBesideTheMainPort) {
    const char* const samePort = "The Extra PTT port must be different to the main Com port";
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"2", "2", "",
         "The Extra PTT port must be different to the main Com port "
         "(port 2)\r\n"
         "The Extra PTT port feature has been disabled. Use the "
         "Settings screen to re-enable."},
        {"1", "/dev/ttyS0", "", samePort},
        {"/dev/ttyS1", "2", "", samePort},
        {"sim", "SIM", "", samePort},
        {"1", "3", "", ""},
        {"2", "3", "Device or resource busy", "PTT COM Port 3 is not available."}};
    for (const auto& [main, extra, reason, message] : cases) {
        SCOPED_TRACE(std::string(main) + " " + extra);
        Harness h(true);
        h.c.s.ExtraPttPortEnabled = true;
        h.c.s.ExtraPttPort = extra;
        h.pttPort.failReason = reason;
        OpenPorts(h.c, main, "4800,N,8,2");
        const bool same = QString(message).startsWith(samePort);
        EXPECT_EQ(h.c.s.ExtraPttPortEnabled, !same);
        EXPECT_EQ(h.pttPort.isOpen(), !*message);
        EXPECT_EQ(h.pttPort.openedName, *message ? "" : extra);
        EXPECT_TRUE(h.scriptedPort->isOpen());
        ASSERT_EQ(h.dialogs.messages.size(), *message ? 1u : 0u);
        if (*message) {
            EXPECT_TRUE(h.dialogs.messages[0].text.startsWith(message));
        }
        EXPECT_TRUE(h.c.frmErrorList.txtErrors.text.contains(reason));
        EXPECT_EQ(h.stored("Settings", "ExtraPttPortEnabled"), "<missing>");
    }
}

// While the link is dead every tick reopens the ports: the lines go with each
// opening, no port is let go, no line goes up, and the extra PTT port is opened
// once, without a trial opening.
TEST(Recovery, ReopeningKeepsTheLinesLowThroughout) {
    ScriptedRig h(RigFT817);
    h.c.s.ExtraPttPortEnabled = true;
    h.scriptedPort->calls.clear();
    for (int tick = 0; tick < 2; ++tick) tmrPollInterval_Timer(h.c);
    const QString open = "open rts 0 dtr 0";
    EXPECT_EQ(h.scriptedPort->calls,
              (std::vector<QString>{open, "rts 0", "dtr 0", open, "rts 0", "dtr 0"}));
    EXPECT_EQ(h.pttPort.calls, (std::vector<QString>{open, open}));
}

TEST_F(Link, AVr5000DragSnapsToTheTuningStep) {
    h.c.s.RigType = RigVR5000;
    h.c.s.VR5000Step = 20;
    for (const bool dragging : {true, false}) {
        h.c.s.SpectrumMouseDown = dragging;
        int32_t f = 14557511;
        PrepareFrequency(h.c, f);
        EXPECT_EQ(f, dragging ? 14557520 : 14557511);
        EXPECT_EQ(h.c.s.CurrentFrequency, f);
    }
}

}  // namespace
}  // namespace veldor::test
