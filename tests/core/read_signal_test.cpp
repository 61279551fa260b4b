// The S-meter, the signal decision, the lights, and the transmit and VFO status, from replies
// written by hand from the rigs' manuals.
#include "protocol/read_signal.h"
#include "cycle/poll_cycle.h"
#include "link/catalogue.h"
#include "protocol/tones.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

struct BarCase {
    const QString* rig;
    const char* reply;
    int bar;
};

class SMeterScale : public ::testing::TestWithParam<BarCase> {};

TEST_P(SMeterScale, ScalesTheRigsReading) {
    ScriptedRig h(*GetParam().rig);
    h.replies(QByteArray::fromHex(GetParam().reply));
    ReadSignal(h.c);
    EXPECT_EQ(h.c.f.pbarSmeter.value, GetParam().bar);
}

INSTANTIATE_TEST_SUITE_P(
    Rigs, SMeterScale,
    ::testing::Values(BarCase{&RigFT817, "0f", 30}, BarCase{&RigFT817, "1f", 30},
                      BarCase{&RigFT897D, "85", 10}, BarCase{&RigFT847, "1f", 31},
                      BarCase{&RigVR5000, "13", 0}, BarCase{&RigVR5000, "12", 0},
                      BarCase{&RigVR5000, "3f", 31}, BarCase{&RigFRG100, "000000ff00", 31},
                      BarCase{&RigFRG100, "0000002e00", 20},
                      BarCase{&RigFT1000MP, "ff00000000", 31},
                      BarCase{&RigFT920, "4000000000", 8}));

TEST(SMeter, AnFt450ReadingOf255IsLimitedTo31) {
    ScriptedRig h(RigFT450);
    QList<QByteArray> answers = {"SM0255;", "BY00;"};
    h.scriptedPort->answer = [&answers](const QByteArray&) { return answers.takeFirst(); };
    ReadSignal(h.c);
    EXPECT_EQ(h.c.f.pbarSmeter.value, 31);
    EXPECT_TRUE(h.c.s.SignalPresent);  // 31 is above the threshold of 3
    EXPECT_EQ(h.c.f.lblDCS.backColour, White);
}

TEST(SMeter, ThePauseComesFirstAndGrowsOnceAfterEitherToneCommand) {
    for (void (*toneCommand)(Core&) : {SendToneSettings, ToneOff}) {
        ScriptedRig h(RigFT817);
        h.replies(QByteArray::fromHex("00"));
        h.c.f.sldExtra.value = 250;
        ToneValues(h.c, "8", "1", "0");
        toneCommand(h.c);
        for (const uint32_t pause : {300u, 50u}) {
            const size_t before = h.scriptedPort->written.size();
            const uint32_t start = h.clock.now;
            ReadSignal(h.c);
            EXPECT_EQ(h.scriptedPort->written.at(before).atMs - start, pause);
        }
    }
}

TEST(SignalDecision, AThresholdOfZeroCountsEverythingAsASignal) {
    ScriptedRig h(RigFT817);
    h.c.f.pbarGotSignal.value = 0;
    h.replies(QByteArray::fromHex("80"));
    ReadSignal(h.c);
    EXPECT_TRUE(h.c.s.SignalPresent);
    EXPECT_EQ(h.c.f.lblRX.backColour, Green);
    EXPECT_EQ(h.c.f.lblSQL.backColour, White);
}

TEST(SignalDecision, InFmTheRigsSquelchDecides) {
    ScriptedRig h(RigFT857);
    h.c.f.txtMode.text = "FMN";
    h.replies(QByteArray::fromHex("8f"));  // strong, but the squelch is closed
    ReadSignal(h.c);
    EXPECT_FALSE(h.c.s.SignalPresent);
    EXPECT_EQ(h.c.f.lblSQL.backColour, Green);
    h.c.s.UseSquelch = false;
    ReadSignal(h.c);
    EXPECT_TRUE(h.c.s.SignalPresent);
}

TEST(SignalDecision, AToneNotMatchedLeavesRxGreenButNoSignal) {
    ScriptedRig h(RigFT817);
    h.c.f.txtMode.text = "FM";
    h.c.s.ToneDecode = "1";
    h.replies(QByteArray::fromHex("4a"));  // squelch open, tone not matched, S5
    ReadSignal(h.c);
    EXPECT_EQ(h.c.f.lblRX.backColour, Green);
    EXPECT_FALSE(h.c.s.SignalPresent);
    EXPECT_EQ(h.c.f.lblDCS.backColour, White);
    EXPECT_EQ(h.c.f.lblDISC.backColour, Green);
}

TEST(SignalDecision, TheDiscriminatorShowsOnlyInFmWhileReceiving) {
    ScriptedRig h(RigFT817);
    h.c.f.txtMode.text = "FM";
    h.replies(QByteArray::fromHex("25"));
    ReadSignal(h.c);
    EXPECT_EQ(h.c.f.lblDISC.backColour, Red);
    h.c.f.lblTX.backColour = Red;
    ReadSignal(h.c);
    EXPECT_EQ(h.c.f.lblDISC.backColour, White);
    h.c.f.lblTX.backColour = White;
    h.c.f.txtMode.text = "USB";
    ReadSignal(h.c);
    EXPECT_EQ(h.c.f.lblDISC.backColour, White);
}

TEST(SignalDecision, TheFt1000MpDecidesOnThePreviousReading) {
    ScriptedRig h(RigFT1000MP);
    h.replies(QByteArray::fromHex("f000000000"));
    ReadSignal(h.c);
    EXPECT_EQ(h.c.f.pbarSmeter.value, 30);  // the bar shows the signal at once
    EXPECT_FALSE(h.c.s.SignalPresent);      // but it counts one reading later
    EXPECT_EQ(h.c.f.lblRX.backColour, White);
    ReadSignal(h.c);
    EXPECT_TRUE(h.c.s.SignalPresent);
    EXPECT_EQ(h.c.f.lblRX.backColour, Green);
}

TEST(SignalDecision, AFailedReadingLeavesTheBarAndNoSignal) {
    ScriptedRig h(RigFT817);
    h.c.f.pbarSmeter.value = 20;
    h.c.s.SignalPresent = true;
    ReadSignal(h.c);  // no answer
    EXPECT_EQ(h.c.f.pbarSmeter.value, 20);
    EXPECT_FALSE(h.c.s.SignalPresent);
}

TEST(SignalDecision, AShortReplyFromAReceiverEndsTheReading) {
    ScriptedRig h(RigFRG100);
    h.c.f.pbarSmeter.value = 12;
    h.c.f.lblRX.backColour = White;
    h.replies(QByteArray::fromHex("0000"));
    ReadSignal(h.c);
    EXPECT_TRUE(h.c.s.ReplyTimedOut);
    EXPECT_EQ(h.c.f.pbarSmeter.value, 12);
    EXPECT_FALSE(h.c.s.SignalPresent);
    EXPECT_EQ(h.c.f.lblRX.backColour, White);
}

TEST(SignalBar, AClickSetsTheThreshold) {
    Harness h;
    pbarGotSignal_MouseDown(h.c, 0, 320);
    EXPECT_EQ(h.c.f.pbarGotSignal.value, 0);
    pbarGotSignal_MouseDown(h.c, 105, 320);
    EXPECT_EQ(h.c.f.pbarGotSignal.value, 10);
    pbarGotSignal_MouseDown(h.c, 400, 320);
    EXPECT_EQ(h.c.f.pbarGotSignal.value, 31);
}

// Transmit and VFO status.
TEST(TxStatus, ReceiveTurnsTheLightWhiteAndTransmitRed) {
    ScriptedRig h(RigFT817);
    h.c.f.lblTX.backColour = Red;
    h.replies(QByteArray::fromHex("ff"));
    ReadStatus(h.c);
    EXPECT_EQ(h.c.f.lblTX.backColour, White);
    h.replies(QByteArray::fromHex("08"));
    ReadStatus(h.c);
    EXPECT_EQ(h.c.f.lblTX.backColour, Red);
    h.replies(QByteArray::fromHex("88"));
    ReadStatus(h.c);
    EXPECT_EQ(h.c.f.lblTX.backColour, White);
}

TEST(TxStatus, AfterPttOffOneTransmitReadingCountsAsReceive) {
    ScriptedRig h(RigFT857);
    h.c.s.IgnoreNextTxStatus = true;
    h.replies(QByteArray::fromHex("08"));
    ReadStatus(h.c);
    EXPECT_EQ(h.c.f.lblTX.backColour, White);
    EXPECT_FALSE(h.c.s.IgnoreNextTxStatus);
    ReadStatus(h.c);
    EXPECT_EQ(h.c.f.lblTX.backColour, Red);
}

TEST(TxStatus, SplitFollowsTheRigWhileTransmittingButNeverOnTheFt847) {
    ScriptedRig h(RigFT897);
    h.replies(QByteArray::fromHex("28"));
    ReadStatus(h.c);
    EXPECT_EQ(h.c.f.chkSplit.value, 1);
    // The box's click ran and sent nothing back.
    EXPECT_FALSE(h.c.s.SplitChangedByPoll);
    EXPECT_FALSE(h.c.s.PendingSplit);
    const size_t sent = h.scriptedPort->written.size();
    ReadStatus(h.c);
    EXPECT_EQ(h.scriptedPort->written.size(), sent + 1);  // only the status read itself

    ScriptedRig f(RigFT847);
    f.replies(QByteArray::fromHex("28"));
    ReadStatus(f.c);
    EXPECT_EQ(f.c.f.chkSplit.value, 0);
}

TEST(TxStatus, TheFt1000MpShowsItsStateAndLeavesAPendingSplitAlone) {
    ScriptedRig h(RigFT1000MP);
    h.replies(QByteArray::fromHex("816000000000"));  // TX, split, MEM and VFO bits
    h.c.s.PendingSplit = true;
    ReadStatus(h.c);
    EXPECT_EQ(h.c.f.lblRigMode.caption, "VFO");
    EXPECT_EQ(h.c.f.lblTX.backColour, Red);
    EXPECT_EQ(h.c.f.chkSplit.value, 0);
    h.c.s.PendingSplit = false;
    ReadStatus(h.c);
    EXPECT_EQ(h.c.f.chkSplit.value, 1);
    EXPECT_EQ(h.c.s.FT1000Flags[1], 0x60);
}

TEST(TxStatus, TheFt920LightsItsIndicators) {
    ScriptedRig h(RigFT920);
    h.replies(QByteArray::fromHex("0120030030001000"));
    ReadStatus(h.c);
    EXPECT_EQ(h.c.f.shpTxVfoB, Red);
    EXPECT_EQ(h.c.f.shpRxVfoA, Green);
    EXPECT_EQ(h.c.f.lblAnt.caption, "B");
    EXPECT_TRUE(h.c.f.lblRXant.visible);
    EXPECT_EQ(h.c.f.lblTune.caption, " F A S T");
    EXPECT_EQ(h.c.f.cmdFT920Tuner.backColour, PaleGreen);
    EXPECT_EQ(h.c.f.chkSplit.value, 1);  // transmit on B, receive on A
    EXPECT_EQ(h.c.f.lblRigMode.caption, "VFO");
}

TEST(Ft897Status, TheLastBitTestedNamesTheState) {
    ScriptedRig h(RigFT897);
    QList<QByteArray> answers = {"0600", "0000", "0000"};
    h.scriptedPort->answer = [&answers](const QByteArray&) {
        return QByteArray::fromHex(answers.takeFirst());
    };
    ReadFT897Status(h.c);
    EXPECT_EQ(h.c.f.lblRigMode.caption, "MTQMB");
}

TEST(Ft897Status, ReadsTheThreeAddresses) {
    ScriptedRig h(RigFT897);
    QList<QByteArray> answers = {"8100", "e000", "1302"};
    h.scriptedPort->answer = [&answers](const QByteArray&) {
        return QByteArray::fromHex(answers.takeFirst());
    };
    ReadFT897Status(h.c);
    EXPECT_EQ(h.c.f.lblRigMode.caption, "VFO B");
    EXPECT_FALSE(h.c.s.VfoAActive);
    QByteArray sent = h.scriptedPort->allWritten();
    EXPECT_EQ(sent.toHex(' '), "00 68 00 00 bb 00 6a 00 00 bb 00 a8 00 00 bb");
    EXPECT_EQ(h.c.s.FT897Flags[2], 0xE0);
    EXPECT_EQ(h.c.s.FT897Flags[5], 0x02);
}

TEST(Ft817Agc, SelectsTheRigsAgcWithoutSendingIt) {
    ScriptedRig h(RigFT817);
    h.replies(QByteArray::fromHex("0002"));
    ReadFT817AGC(h.c);
    EXPECT_TRUE(h.c.f.optFT817AGC[2].value);
    EXPECT_FALSE(h.c.s.Ft817AgcLocked);
    EXPECT_FALSE(h.c.s.PendingFT817AGC);
    EXPECT_EQ(h.scriptedPort->allWritten().toHex(' '), "00 56 00 00 bb");
}

// A full reading on the FT-897 colours its feature buttons; the two rigs' masks differ.
struct FeatureCase {
    const QString* rig;
    const char* a8;  // the two bytes at 0x00A8
    bool dnf, dnr, dbf, processor;
};

class FeatureButtons : public ::testing::TestWithParam<FeatureCase> {};

TEST_P(FeatureButtons, FollowTheRigsMemory) {
    const FeatureCase& t = GetParam();
    ScriptedRig h(*t.rig);
    h.c.s.PollingDelay = 0;
    const QByteArray a8 = QByteArray::fromHex(t.a8);
    h.scriptedPort->answer = [a8](const QByteArray& sent) -> QByteArray {
        const auto op = static_cast<uint8_t>(sent.at(4));
        if (op == 0x03) return QByteArray::fromHex("0142500001");
        if (op == 0xF7) return QByteArray::fromHex("ff");
        if (op == 0xE7) return QByteArray::fromHex("80");
        if (op == 0xBB && static_cast<uint8_t>(sent.at(1)) == 0xA8) return a8;
        if (op == 0xBB && static_cast<uint8_t>(sent.at(1)) == 0x6A)
            return QByteArray::fromHex("e000");
        return QByteArray::fromHex("8000");
    };
    PerformStatusUpdate(h.c);
    const bool ft897 = t.rig == &RigFT897;
    const Form1& f = h.c.f;
    EXPECT_EQ((ft897 ? f.cmdFT897DNF : f.cmdFT857DNF).backColour == Green, t.dnf);
    EXPECT_EQ((ft897 ? f.cmdFT897DNR : f.cmdFT857DNR).backColour == Green, t.dnr);
    EXPECT_EQ((ft897 ? f.cmdFT897DBF : f.cmdFT857DBF).backColour == Green, t.dbf);
    EXPECT_EQ((ft897 ? f.cmdFT897Processor : f.cmdFT857Processor).bold, t.processor);
    EXPECT_TRUE((ft897 ? f.cmdFT897Fast : f.cmdFT857Fast).bold);
    EXPECT_TRUE((ft897 ? f.cmdFT897Lock : f.cmdFT857Lock).bold);
    EXPECT_TRUE((ft897 ? f.cmdFT897NoiseBlanker : f.cmdFT857NoiseBlanker).bold);
    EXPECT_EQ(f.txtVfoA.text, "14.250.00");
}

INSTANTIATE_TEST_SUITE_P(
    Masks, FeatureButtons,
    ::testing::Values(FeatureCase{&RigFT897, "1102", true, false, false, true},
                      FeatureCase{&RigFT897, "0100", false, false, false, false},
                      FeatureCase{&RigFT857, "0100", true, false, false, false},
                      FeatureCase{&RigFT857, "0e02", false, true, true, true},
                      FeatureCase{&RigFT897, "1e00", false, true, true, false}));

TEST(Ft450Extras, EachLightFollowsItsReplyAndAWrongOneIsSkipped) {
    ScriptedRig h(RigFT450);
    h.c.s.PollingDelay = 0;
    h.scriptedPort->answer = [](const QByteArray& sent) -> QByteArray {
        if (sent == "IF;") return "IF00114250000+000000200000;";
        if (sent == "TX;") return "TX0;";
        if (sent == "SM0;") return "SM0000;";
        if (sent == "BY;") return "BY00;";
        if (sent == "AC;") return "AC001;";
        if (sent == "RA0;") return "MD02;";  // another kind: skipped
        if (sent == "PA0;") return "PA01;";
        if (sent == "GT0;") return "GT02;";
        if (sent == "VS;") return "VS1;";
        return "?;";
    };
    h.c.f.lbl450Att.backColour = Green;
    PerformStatusUpdate(h.c);
    EXPECT_EQ(h.c.f.lbl450Tuner.backColour, Green);
    EXPECT_TRUE(h.c.s.TunerOn);
    EXPECT_EQ(h.c.f.lbl450Att.backColour, Green);     // left as it was
    EXPECT_EQ(h.c.f.lbl450Ipo.backColour, White);     // "PA01" is IPO off
    EXPECT_EQ(h.c.f.lbl450AGC[1].backColour, Green);  // GT02 is the command of "AGC Slow"
    EXPECT_EQ(h.c.f.lbl450AGC[2].backColour, White);
    EXPECT_EQ(h.c.s.LastAGC, "2");
    EXPECT_EQ(h.c.f.lblRigMode.caption, "VFO B");
    EXPECT_EQ(h.c.s.VfoLetter, "B");
    // The AGC lights are redrawn only when the value changes.
    h.c.f.lbl450AGC[0].backColour = Red;
    PerformStatusUpdate(h.c);
    EXPECT_EQ(h.c.f.lbl450AGC[0].backColour, Red);
}

}  // namespace
}  // namespace veldor::test
