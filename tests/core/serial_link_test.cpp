// The serial link on virtual time: frames, delays, busy flags, reply collection, text
// framing, port opening and frequency coding.
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
    Harness h;
};

TEST_F(Link, SendCommandWritesTheFrameInIndexOrderAfterAQuarterOfTheDelay) {
    h.c.f.sldCMDdelay.value = 103;  // a quarter is 25 ms, by integer division
    h.c.s.CommandBytes = {0x01, 0x42, 0x50, 0x00, 0xEE};
    const uint32_t start = h.clock.now;
    SendCommand(h.c, 0x01);
    ASSERT_EQ(port().written.size(), 1u);
    EXPECT_EQ(port().written[0].bytes, Bytes({0x01, 0x42, 0x50, 0x00, 0x01}));
    EXPECT_EQ(port().written[0].atMs - start, 25u);
    EXPECT_FALSE(h.c.s.SendBusy);
}

TEST_F(Link, SendCommandPaysTheWholeDelayWhileScanning) {
    h.c.f.sldCMDdelay.value = 103;
    h.c.s.ScanRunning = true;
    const uint32_t start = h.clock.now;
    SendCommand(h.c, 0x03);
    EXPECT_EQ(port().written.at(0).atMs - start, 103u);
}

TEST_F(Link, ZeroDelayStillLetsEventsRunOnce) {
    h.c.f.sldCMDdelay.value = 3;  // a quarter of 3 is 0
    const uint32_t start = h.clock.now;
    SendCommand(h.c, 0x03);
    EXPECT_EQ(port().written.at(0).atMs, start);
    EXPECT_EQ(h.pump.pumps, 1);
}

TEST_F(Link, SendCommandOnAClosedPortIsDropped) {
    port().close();
    SendCommand(h.c, 0x03);
    EXPECT_TRUE(port().written.empty());
    EXPECT_FALSE(h.c.s.SendBusy);
}

TEST_F(Link, ThePortClosedDuringTheDelayDropsTheCommand) {
    h.c.f.sldCMDdelay.value = 40;
    h.pump.at(h.clock.now, [&] { port().close(); });
    SendCommand(h.c, 0x03);
    EXPECT_TRUE(port().written.empty());
    EXPECT_FALSE(h.c.s.SendBusy);
}

TEST_F(Link, ABusyFlagHoldsASendFor101PausesAtMost) {
    h.c.s.ReceiveBusy = true;  // never cleared
    const uint32_t start = h.clock.now;
    SendCommand(h.c, 0x03);
    ASSERT_EQ(port().written.size(), 1u);
    EXPECT_EQ(port().written[0].atMs - start, 101u * 5);
}

TEST_F(Link, ASendWaitsOnlyUntilTheReadInProgressEnds) {
    h.c.s.ReceiveBusy = true;
    const uint32_t start = h.clock.now;
    h.pump.at(start + 22, [&] { h.c.s.ReceiveBusy = false; });
    SendCommand(h.c, 0x03);
    // The pause in which the flag came down ends with it.
    EXPECT_EQ(port().written.at(0).atMs - start, 22u);
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

TEST_F(Link, AReplyInPiecesIsCollectedWithinTheHundredPolls) {
    const uint32_t start = h.clock.now;
    port().arrive(start + 12, Bytes({0x01, 0x42}));
    port().arrive(start + 303, Bytes({0x50, 0x00, 0x01}));
    ReadResponse(h.c, 5);
    EXPECT_FALSE(h.c.s.ReplyTimedOut);
    EXPECT_EQ(h.c.s.ReplyBytes, Bytes({0x01, 0x42, 0x50, 0x00, 0x01}));
    // The pause in which the last byte came ends with it; the first bytes end none.
    EXPECT_EQ(h.clock.now - start, 303u);
    EXPECT_FALSE(h.c.s.ReceiveBusy);
}

TEST_F(Link, AReadEndsAsSoonAsItsBytesAreThereAfterTheEventsHaveRun) {
    struct Case {
        uint32_t arrivesAfter;
        uint32_t endsAfter;
    };
    for (const Case& k : {Case{0, 0}, Case{3, 3}, Case{5, 5}, Case{7, 7}}) {
        port().clearInput();
        const uint32_t start = h.clock.now;
        const int pumps = h.pump.pumps;
        port().arrive(start + k.arrivesAfter, Bytes({0x00}));
        ReadResponse(h.c, 1);
        EXPECT_FALSE(h.c.s.ReplyTimedOut) << k.arrivesAfter;
        EXPECT_EQ(h.clock.now - start, k.endsAfter) << k.arrivesAfter;
        EXPECT_GE(h.pump.pumps - pumps, 1) << k.arrivesAfter;
    }
}

TEST_F(Link, ALostReplyTimesOutAfterAboutHalfASecondAndCountsInRed) {
    h.c.s.ReplyBytes = Bytes({0x11, 0x22});
    h.c.f.lblTimeoutCount.caption = "4";
    const uint32_t start = h.clock.now;
    ReadResponse(h.c, 5);
    EXPECT_TRUE(h.c.s.ReplyTimedOut);
    EXPECT_EQ(h.clock.now - start, 505u);
    EXPECT_EQ(h.c.f.lblTimeoutCount.caption, "5");
    EXPECT_EQ(h.c.f.lblTimeoutCount.backColour, Red);
    // Nothing came: the former reply stays, which is why callers test the flag first.
    EXPECT_EQ(h.c.s.ReplyBytes, Bytes({0x11, 0x22}));
    EXPECT_FALSE(h.c.s.ReceiveBusy);
}

TEST_F(Link, AShortReplyTimesOutWithTheBytesThatCame) {
    port().arrive(0, Bytes({0x01, 0x42, 0x50}));
    ReadResponse(h.c, 5);
    EXPECT_TRUE(h.c.s.ReplyTimedOut);
    EXPECT_EQ(h.c.s.ReplyBytes, Bytes({0x01, 0x42, 0x50}));
    EXPECT_EQ(h.c.f.lblTimeoutCount.caption, "1");
}

TEST_F(Link, SurplusBytesStayInThePortForTheNextRead) {
    port().arrive(0, Bytes({0x01, 0x42, 0x50, 0x00, 0x01, 0x99, 0x98}));
    ReadResponse(h.c, 5);
    EXPECT_EQ(h.c.s.ReplyBytes.size(), 5);
    ReadResponse(h.c, 1);
    EXPECT_EQ(h.c.s.ReplyBytes, Bytes({0x99}));
}

TEST_F(Link, ClearBufferEmptiesTheInputBeforeEachSend) {
    h.c.s.ClearBuffer = "Y";
    port().arrive(0, Bytes({0x99}));
    SendCommand(h.c, 0x03);
    EXPECT_EQ(port().inBufferCount(), 0);
}

TEST_F(Link, SwitchingOffDuringAReadEndsItAsATimeoutAndPutsTheCounterBackToZero) {
    h.c.f.lblTimeoutCount.caption = "7";
    h.c.s.ReplyBytes = Bytes({1, 2, 3, 4, 5});  // the last reply
    h.pump.at(h.clock.now + 100, [&] {
        h.c.f.chkOnOff.value = 0;  // as chkOnOff_Click does
        port().close();
    });
    ReadResponse(h.c, 5);
    EXPECT_TRUE(h.c.s.ReplyTimedOut);
    EXPECT_EQ(h.c.s.ReplyBytes, Bytes({0}));
    EXPECT_EQ(h.c.f.lblTimeoutCount.caption, "0");
    EXPECT_EQ(h.c.f.lblTimeoutCount.backColour, ButtonFace);
}

TEST_F(Link, AReadOnAClosedPortGivesOneByteAndLeavesTheFlag) {
    port().close();
    h.c.s.ReplyTimedOut = true;
    ReadResponse(h.c, 5);
    EXPECT_EQ(h.c.s.ReplyBytes.size(), 1);
    EXPECT_TRUE(h.c.s.ReplyTimedOut);
}

// Text replies of the FT-450.
struct TextCase {
    const char* name;
    const char* buffered;  // left over from earlier reads
    const char* arriving;
    bool result;
    const char* reply;
    const char* bufferAfter;
};

class TextFraming : public Link, public ::testing::WithParamInterface<TextCase> {};

TEST_P(TextFraming, CollectsOneReply) {
    const TextCase& t = GetParam();
    h.c.s.ReceiveBuffer = t.buffered;
    port().arrive(h.clock.now + 7, t.arriving);
    EXPECT_EQ(ReceiveData(h.c), t.result);
    EXPECT_EQ(h.c.s.TextReply, t.reply);
    EXPECT_EQ(h.c.s.ReceiveBuffer, t.bufferAfter);
    EXPECT_EQ(h.c.f.lblTimeoutCount.caption, "0");
}

INSTANTIATE_TEST_SUITE_P(
    Ft450, TextFraming,
    ::testing::Values(
        TextCase{"Whole", "", "FA014250000;", true, "FA014250000;", ""},
        TextCase{"TwoReplies", "", "ID0241;FA014250000;", true, "ID0241;", "FA014250000;"},
        TextCase{"RestOfAFragment", "FA0142", "50000;", true, "FA014250000;", ""},
        TextCase{"RejectionBehindAReply", "", "FA014250000;?;", true, "FA014250000;", ""},
        TextCase{"RejectionInFront", "", "?;FA014250000;", true, "FA014250000;", ""},
        TextCase{"RejectionAlone", "", "?;", false, "", "?;"},
        TextCase{"RejectionInsideAFragment", "FA01", "42?;50000;", true, "FA014250000;", ""}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(Link, ASilentRigCostsAbout125MsAndEmptiesTheInput) {
    const uint32_t start = h.clock.now;
    EXPECT_FALSE(ReceiveData(h.c));
    EXPECT_EQ(h.clock.now - start, 125u);
    EXPECT_EQ(h.c.f.lblTimeoutCount.caption, "1");
    EXPECT_EQ(h.c.f.lblTimeoutCount.backColour, Red);
}

// A fragment waits for its end while its bytes keep coming, each within half a second.
TEST_F(Link, AFragmentWaitsForItsEndWhileItsBytesKeepComing) {
    const uint32_t start = h.clock.now;
    port().arrive(start + 2, "FA0142");
    port().arrive(start + 400, "500");
    port().arrive(start + 800, "00;");
    EXPECT_TRUE(ReceiveData(h.c));
    EXPECT_EQ(h.c.s.TextReply, "FA014250000;");
    EXPECT_EQ(h.c.f.lblTimeoutCount.caption, "0");
}

TEST_F(Link, ResynchronisationThrowsAwayWhatWasBuffered) {
    h.c.s.ReceiveBuffer = "MD02;";
    h.c.s.TextResyncNeeded = true;
    port().arrive(0, "FA007000000;");
    EXPECT_TRUE(ReceiveData(h.c));
    EXPECT_EQ(h.c.s.TextReply, "FA007000000;");
    EXPECT_FALSE(h.c.s.TextResyncNeeded);
}

// The tick tells of the port once; the read shows no box of its own.
TEST_F(Link, APortThatVanishesUnderATextReadEndsItWithoutABox) {
    h.c.s.ReceiveBuffer = "FA01";
    h.pump.at(h.clock.now + 50, [&] { port().close(); });
    EXPECT_FALSE(ReceiveData(h.c));
    EXPECT_TRUE(h.dialogs.messages.empty());
}

TEST_F(Link, GarbageOfAnyLengthNeverHangsTheTextReader) {
    QByteArray garbage;
    for (int i = 0; i < 5000; ++i) garbage.append(static_cast<char>((i * 37 + 11) % 256));
    garbage.replace(';', 'x');
    port().arrive(0, garbage + ";");
    EXPECT_TRUE(ReceiveData(h.c));
    EXPECT_TRUE(h.c.s.TextReply.endsWith(';'));
}

// Opening the ports.
TEST_F(Link, AnUnavailablePortGivesTheMessageAndTheSystemReason) {
    port().close();
    port().failReason = "Permission denied (add your user to dialout)";
    OpenPorts(h.c, "/dev/ttyUSB7", "4800,N,8,2");
    EXPECT_FALSE(port().isOpen());
    ASSERT_EQ(h.dialogs.messages.size(), 1u);
    EXPECT_EQ(h.dialogs.messages[0].text,
              "COM Port /dev/ttyUSB7 is not available. It may be in use by another program\r\n"
              "If yes, then close that program and retry by clicking the On/Off button.\r\n"
              "If no, then change the CommPort to another port and try again.");
    EXPECT_TRUE(h.c.frmErrorList.txtErrors.text.contains("Permission denied"));
}

TEST_F(Link, TheFt450OpensAsTextWithHandshakingAndRaisesRts) {
    h.c.s.RigType = RigFT450;
    h.c.s.RaiseRTS = "N";
    OpenPorts(h.c, "2", "38400,N,8,2");
    EXPECT_TRUE(port().rtsCts);
    EXPECT_EQ(h.c.s.RaiseRTS, "Y");
    EXPECT_TRUE(port().rtsLine);
    EXPECT_EQ(port().openedSettings, "38400,N,8,2");
}

TEST_F(Link, OtherRigsOpenWithoutHandshakingAndTheLinesAsStored) {
    h.c.s.RaiseRTS = "N";
    h.c.s.RaiseDTR = "Y";
    OpenPorts(h.c, "2", "4800,N,8,2");
    EXPECT_FALSE(port().rtsCts);
    EXPECT_FALSE(port().rtsLine);
    EXPECT_TRUE(port().dtrLine);
}

TEST_F(Link, AnExtraPttPortOnTheMainPortIsDisabledForTheRun) {
    h.c.s.ExtraPttPortEnabled = true;
    h.c.s.ExtraPttPort = "2";
    OpenPorts(h.c, "2", "4800,N,8,2");
    EXPECT_FALSE(h.c.s.ExtraPttPortEnabled);
    ASSERT_EQ(h.dialogs.messages.size(), 1u);
    EXPECT_EQ(h.dialogs.messages[0].text,
              "The Extra PTT port must be different to the main Com port (port 2)\r\n"
              "The Extra PTT port feature has been disabled. Use the Settings screen to "
              "re-enable.");
    EXPECT_FALSE(h.pttPort.isOpen());
    EXPECT_EQ(h.stored("Settings", "ExtraPttPortEnabled"), "<missing>");
}

TEST(ExtraPttPort, IsComparedWithTheMainPortByTheDeviceTheyName) {
    const std::tuple<const char*, const char*, bool> cases[] = {{"1", "/dev/ttyS0", true},
                                                                {"/dev/ttyS1", "2", true},
                                                                {"sim", "SIM", true},
                                                                {"1", "2", false}};
    for (const auto& [main, extra, same] : cases) {
        Harness h(true);
        h.c.s.ExtraPttPortEnabled = true;
        h.c.s.ExtraPttPort = extra;
        OpenPorts(h.c, main, "4800,N,8,2");
        EXPECT_EQ(h.pttPort.isOpen(), !same) << main << " " << extra;
    }
}

TEST_F(Link, AnExtraPttPortThatCannotBeHadGivesItsMessage) {
    h.c.s.ExtraPttPortEnabled = true;
    h.c.s.ExtraPttPort = "3";
    h.pttPort.failReason = "Device or resource busy";
    OpenPorts(h.c, "2", "4800,N,8,2");
    ASSERT_EQ(h.dialogs.messages.size(), 1u);
    EXPECT_TRUE(h.dialogs.messages[0].text.startsWith("PTT COM Port 3 is not available."));
    EXPECT_TRUE(h.c.frmErrorList.txtErrors.text.contains("Device or resource busy"));
    EXPECT_FALSE(h.pttPort.isOpen());
    EXPECT_TRUE(port().isOpen());
}

// While the link is dead every tick reopens the ports: the lines go with each opening, no port
// is let go, no line goes up, and the extra PTT port is opened once, without a trial opening.
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

TEST_F(Link, TheExtraPttPortOpensBesideTheMainPort) {
    h.c.s.ExtraPttPortEnabled = true;
    h.c.s.ExtraPttPort = "3";
    OpenPorts(h.c, "2", "4800,N,8,2");
    EXPECT_TRUE(h.pttPort.isOpen());
    EXPECT_EQ(h.pttPort.openedName, "3");
    EXPECT_TRUE(h.dialogs.messages.empty());
}

// Frequency coding, from the manuals' worked examples.
struct CodingCase {
    const QString* rig;
    int32_t frequency;
    std::array<uint8_t, 4> bytes;
};

class FrequencyCoding : public Link, public ::testing::WithParamInterface<CodingCase> {};

TEST_P(FrequencyCoding, CodesTheRigsForm) {
    const CodingCase& t = GetParam();
    h.c.s.RigType = *t.rig;
    int32_t f = t.frequency;
    PrepareFrequency(h.c, f);
    EXPECT_FALSE(h.c.s.FrequencyOutOfRange);
    EXPECT_EQ(h.c.s.CurrentFrequency, t.frequency);
    EXPECT_EQ(h.c.s.TuningFrequency, t.frequency);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(h.c.s.CommandBytes[i], t.bytes[i]) << "byte " << i;
}

INSTANTIATE_TEST_SUITE_P(
    AllFamilies, FrequencyCoding,
    ::testing::Values(CodingCase{&RigFT817, 1425000, {0x01, 0x42, 0x50, 0x00}},
                      CodingCase{&RigFT847, 43912345, {0x43, 0x91, 0x23, 0x45}},
                      CodingCase{&RigFT920, 1425000, {0x00, 0x50, 0x42, 0x01}},
                      CodingCase{&RigFT1000MP, 702512, {0x12, 0x25, 0x70, 0x00}},
                      CodingCase{&RigFRG100, 5000, {0x00, 0x50, 0x00, 0x00}},
                      // 145.575 MHz as a binary count of 10 Hz: 0x00DE213C.
                      CodingCase{&RigVR5000, 14557500, {0x00, 0xDE, 0x21, 0x3C}}));

TEST_F(Link, TheFt450GetsItsFrequencyAsEightDigitsOfHertz) {
    h.c.s.RigType = RigFT450;
    int32_t f = 707400;
    PrepareFrequency(h.c, f);
    EXPECT_EQ(h.c.s.FrequencyDigits, "07074000");
}

TEST_F(Link, AnOutOfRangeFrequencyCodesNothingAndFallsBackTo7MHz) {
    h.c.s.RigType = RigFT817;
    h.c.s.CommandBytes = {9, 9, 9, 9, 9};
    int32_t f = 5600001;
    PrepareFrequency(h.c, f);
    EXPECT_TRUE(h.c.s.FrequencyOutOfRange);
    EXPECT_EQ(h.c.s.CurrentFrequency, 700000);
    EXPECT_EQ(h.c.s.CommandBytes[0], 9);
}

TEST_F(Link, AVr5000DragSnapsToTheTuningStep) {
    h.c.s.RigType = RigVR5000;
    h.c.s.SpectrumMouseDown = true;
    h.c.s.VR5000Step = 20;
    int32_t f = 14557511;
    PrepareFrequency(h.c, f);
    EXPECT_EQ(f, 14557520);
    EXPECT_EQ(h.c.s.CurrentFrequency, 14557520);
    h.c.s.SpectrumMouseDown = false;
    f = 14557511;
    PrepareFrequency(h.c, f);
    EXPECT_EQ(f, 14557511);
}

struct RangeCase {
    const QString* rig;
    int32_t frequency;
    bool inRange;
};

class RangeCheck : public Link, public ::testing::WithParamInterface<RangeCase> {};

TEST_P(RangeCheck, FollowsTheRigsRanges) {
    const RangeCase& t = GetParam();
    h.c.s.RigType = *t.rig;
    EXPECT_EQ(CheckFrequencyRange(h.c, t.frequency), t.inRange);
    EXPECT_EQ(h.c.s.FrequencyOutOfRange, !t.inRange);
}

INSTANTIATE_TEST_SUITE_P(
    Edges, RangeCheck,
    ::testing::Values(RangeCase{&RigFT847, 760000, true}, RangeCase{&RigFT847, 7600001, false},
                      RangeCase{&RigFT847, 10800000, true}, RangeCase{&RigFT817, 5600000, true},
                      RangeCase{&RigFT817, 5600001, false}, RangeCase{&RigFT817ND, 47000000, true},
                      RangeCase{&RigFT857D, 11800000, true}, RangeCase{&RigFT897, 11799999, false},
                      RangeCase{&RigFT450, 2999, false}, RangeCase{&RigFT920, 4800000, true},
                      RangeCase{&RigFT920, 4000000, false}, RangeCase{&RigVR5000, 259999998, true},
                      RangeCase{&RigFRG100, 0, true}, RangeCase{&RigFT1000MP, 0, true},
                      RangeCase{&RigFT1000MP, -5, false}, RangeCase{&RigNotSet, 999999999, true}));

}  // namespace
}  // namespace veldor::test
