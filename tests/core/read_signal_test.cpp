// The S-meter, the signal decision, the lights, and the transmit and VFO
// status, from replies written by hand from the rigs' manuals.
#include "protocol/read_signal.h"
#include "cycle/poll_cycle.h"
#include "link/catalogue.h"
#include "protocol/tones.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// Replies in hex, but the FT-450's text; its 255 is limited to the bar's 31.
TEST(SMeter, ScalesEachRigsReadingToTheBar) {
    const std::tuple<QString, const char*, int> cases[] = {
        {RigFT817, "0f", 30},          {RigFT817, "1f", 30},
        {RigFT897D, "85", 10},         {RigFT847, "1f", 31},
        {RigVR5000, "13", 0},          {RigVR5000, "12", 0},
        {RigVR5000, "3f", 31},         {RigFRG100, "000000ff00", 31},
        {RigFRG100, "0000002e00", 20}, {RigFT1000MP, "ff00000000", 31},
        {RigFT920, "4000000000", 8},   {RigFT450, "SM0255;", 31}};
    for (const auto& [rig, reply, bar] : cases) {
        ScriptedRig h(rig);
        h.replies(rig == RigFT450 ? QByteArray(reply) : QByteArray::fromHex(reply));
        ReadSignal(h.c);
        EXPECT_EQ(h.c.f.pbarSmeter.value, bar) << rig.toStdString() << " " << reply;
    }
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

// The lights after a reading: whether there is a signal, then RX, SQL, DISC and
// DCS, each G(reen), W(hite) or R(ed); a dot in the expected text is any.
TEST(SignalDecision, TheLightsFollowTheReading) {
    // Rig, mode, threshold, tone decoder, squelch used, transmitting, reply,
    // lights.
    const std::tuple<const char*, const char*, int, const char*, bool, bool, const char*,
                     const char*>
        cases[] = {// A threshold of zero counts everything as a signal.
                   {"FT817", "USB", 0, "0", true, false, "80", "1 GW.."},
                   // In FM the rig's squelch decides: strong, but the squelch is closed.
                   {"FT857", "FMN", 3, "0", true, false, "8f", "0 .G.."},
                   {"FT857", "FMN", 3, "0", false, false, "8f", "1 ...."},
                   // Squelch open, tone not matched, S5: RX green but no signal.
                   {"FT817", "FM", 3, "1", true, false, "4a", "0 G.GW"},
                   // The discriminator shows only in FM while receiving.
                   {"FT817", "FM", 3, "0", true, false, "25", ". ..R."},
                   {"FT817", "FM", 3, "0", true, true, "25", ". ..W."},
                   {"FT817", "USB", 3, "0", true, false, "25", ". ..W."}};
    auto name = [](Colour colour) { return colour == Green ? 'G' : colour == Red ? 'R' : 'W'; };
    for (const auto& [rig, mode, threshold, decode, squelch, transmitting, reply, expected] :
         cases) {
        ScriptedRig h(rig);
        h.c.f.txtMode.text = mode;
        h.c.f.pbarGotSignal.value = threshold;
        h.c.s.ToneDecode = decode;
        h.c.s.UseSquelch = squelch;
        h.c.f.lblTX.backColour = transmitting ? Red : White;
        h.replies(QByteArray::fromHex(reply));
        ReadSignal(h.c);
        const Form1& f = h.c.f;
        QString lights = QString("%1 %2%3%4%5")
                             .arg(h.c.s.SignalPresent)
                             .arg(name(f.lblRX.backColour))
                             .arg(name(f.lblSQL.backColour))
                             .arg(name(f.lblDISC.backColour))
                             .arg(name(f.lblDCS.backColour));
        for (int i = 0; i < lights.size(); ++i)
            if (expected[i] == '.') lights[i] = '.';
        EXPECT_EQ(lights, expected) << rig << " " << mode << " " << reply;
    }
}

// The FT-1000MP decides on the previous reading, though its bar shows the
// signal at once. No answer, or a short one from a receiver: the bar stays, and
// there is no signal.
TEST(SignalDecision, TheFt1000MpDecidesLateAndAFailedReadingDecidesNothing) {
    ScriptedRig mp(RigFT1000MP);
    mp.replies(QByteArray::fromHex("f000000000"));
    for (const bool second : {false, true}) {
        ReadSignal(mp.c);
        EXPECT_EQ(mp.c.f.pbarSmeter.value, 30);
        EXPECT_EQ(mp.c.s.SignalPresent, second);
        EXPECT_EQ(mp.c.f.lblRX.backColour, second ? Green : White);
    }
    for (const auto& [rig, reply] : {std::pair{RigFT817, ""}, {RigFRG100, "0000"}}) {
        ScriptedRig h(rig);
        h.c.f.pbarSmeter.value = 12;
        h.c.s.SignalPresent = true;
        h.replies(QByteArray::fromHex(reply));
        ReadSignal(h.c);
        EXPECT_TRUE(h.c.s.ReplyTimedOut);
        EXPECT_EQ(h.c.f.pbarSmeter.value, 12);
        EXPECT_FALSE(h.c.s.SignalPresent);
        EXPECT_EQ(h.c.f.lblRX.backColour, White);
    }
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
// Receive turns the light white and transmit red; after PTT off, one transmit
// reading counts as receive.
TEST(TxStatus, TheLightFollowsTheRig) {
    ScriptedRig h(RigFT857);
    h.c.f.lblTX.backColour = Red;
    for (const auto& [reply, ignoreOne, colour] : {std::tuple{"ff", false, White},
                                                   {"08", false, Red},
                                                   {"88", false, White},
                                                   {"08", true, White},
                                                   {"08", false, Red}}) {
        h.c.s.IgnoreNextTxStatus = ignoreOne;
        h.replies(QByteArray::fromHex(reply));
        ReadStatus(h.c);
        EXPECT_EQ(h.c.f.lblTX.backColour, colour) << reply << ignoreOne;
        EXPECT_FALSE(h.c.s.IgnoreNextTxStatus);
    }
}

// Split follows the rig (never on the FT-847) while the box's click sends
// nothing back; the FT-1000MP leaves a pending split alone; the FT-1000MP and
// FT-920 show their state.
TEST(TxStatus, SplitAndTheIndicatorsFollowTheRig) {
    const std::tuple<QString, const char*, int> cases[] = {
        {RigFT897, "28", 1},
        {RigFT847, "28", 0},
        {RigFT1000MP, "816000000000", 1},    // TX, split, MEM and VFO bits
        {RigFT920, "0120030030001000", 1}};  // transmit on B, receive on A
    for (const auto& [rig, reply, split] : cases) {
        SCOPED_TRACE(rig.toStdString());
        ScriptedRig h(rig);
        h.replies(QByteArray::fromHex(reply));
        const bool mp = rig == RigFT1000MP;
        h.c.s.PendingSplit = mp;
        ReadStatus(h.c);
        EXPECT_EQ(h.c.f.chkSplit.value, mp ? 0 : split);
        h.c.s.PendingSplit = false;
        const size_t sent = h.scriptedPort->written.size();
        ReadStatus(h.c);
        EXPECT_EQ(h.scriptedPort->written.size(),
                  sent + 1);  // only the status read itself
        EXPECT_EQ(h.c.f.chkSplit.value, split);
        EXPECT_FALSE(h.c.s.SplitChangedByPoll || h.c.s.PendingSplit);
        if (mp) {
            EXPECT_EQ(h.c.f.lblRigMode.caption, "VFO");
            EXPECT_EQ(h.c.f.lblTX.backColour, Red);
            EXPECT_EQ(h.c.s.FT1000Flags[1], 0x60);
        }
        if (rig != RigFT920) continue;
        EXPECT_EQ(h.c.f.shpTxVfoB, Red);
        EXPECT_EQ(h.c.f.shpRxVfoA, Green);
        EXPECT_EQ(h.c.f.lblAnt.caption, "B");
        EXPECT_TRUE(h.c.f.lblRXant.visible);
        EXPECT_EQ(h.c.f.lblTune.caption, " F A S T");
        EXPECT_EQ(h.c.f.cmdFT920Tuner.backColour, PaleGreen);
        EXPECT_EQ(h.c.f.lblRigMode.caption, "VFO");
    }
}

TEST(Ft897Status, ReadsTheThreeAddresses) {
    ScriptedRig h(RigFT897);
    QList<QByteArray> answers = {"0600", "0000", "0000", "8100", "e000", "1302"};
    h.scriptedPort->answer = [&answers](const QByteArray&) {
        return QByteArray::fromHex(answers.takeFirst());
    };
    ReadFT897Status(h.c);
    EXPECT_EQ(h.c.f.lblRigMode.caption,
              "MTQMB");  // the last bit tested names the state
    h.scriptedPort->written.clear();
    ReadFT897Status(h.c);
    EXPECT_EQ(h.c.f.lblRigMode.caption, "VFO B");
    EXPECT_FALSE(h.c.s.VfoAActive);
    EXPECT_EQ(h.scriptedPort->allWritten().toHex(' '),
              "00 68 00 00 bb 00 6a 00 00 bb 00 a8 00 00 bb");
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

// A full reading on the FT-897 colours its feature buttons; the two rigs' masks
// differ.
TEST(FeatureButtons, FollowTheRigsMemory) {
    // The two bytes at 0x00A8, and whether DNF, DNR, DBF and the processor are
    // lit.
    const std::tuple<QString, const char*, bool, bool, bool, bool> cases[] = {
        {RigFT897, "1102", true, false, false, true},
        {RigFT897, "0100", false, false, false, false},
        {RigFT857, "0100", true, false, false, false},
        {RigFT857, "0e02", false, true, true, true},
        {RigFT897, "1e00", false, true, true, false}};
    for (const auto& [rig, bytes, dnf, dnr, dbf, processor] : cases) {
        SCOPED_TRACE(rig.toStdString() + " " + bytes);
        ScriptedRig h(rig);
        h.c.s.PollingDelay = 0;
        const QByteArray a8 = QByteArray::fromHex(bytes);
        h.scriptedPort->answer = [a8](const QByteArray& sent) -> QByteArray {
            const auto op = static_cast<uint8_t>(sent.at(4));
            const auto address = static_cast<uint8_t>(sent.at(1));
            if (op == 0x03) return QByteArray::fromHex("0142500001");
            if (op == 0xF7) return QByteArray::fromHex("ff");
            if (op == 0xE7) return QByteArray::fromHex("80");
            if (op == 0xBB && address == 0xA8) return a8;
            return QByteArray::fromHex(op == 0xBB && address == 0x6A ? "e000" : "8000");
        };
        PerformStatusUpdate(h.c);
        const bool ft897 = rig == RigFT897;
        const Form1& f = h.c.f;
        EXPECT_EQ((ft897 ? f.cmdFT897DNF : f.cmdFT857DNF).backColour == Green, dnf);
        EXPECT_EQ((ft897 ? f.cmdFT897DNR : f.cmdFT857DNR).backColour == Green, dnr);
        EXPECT_EQ((ft897 ? f.cmdFT897DBF : f.cmdFT857DBF).backColour == Green, dbf);
        EXPECT_EQ((ft897 ? f.cmdFT897Processor : f.cmdFT857Processor).bold, processor);
        EXPECT_TRUE((ft897 ? f.cmdFT897Fast : f.cmdFT857Fast).bold);
        EXPECT_TRUE((ft897 ? f.cmdFT897Lock : f.cmdFT857Lock).bold);
        EXPECT_TRUE((ft897 ? f.cmdFT897NoiseBlanker : f.cmdFT857NoiseBlanker).bold);
        EXPECT_EQ(f.txtVfoA.text, "14.250.00");
    }
}

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
    EXPECT_EQ(h.c.f.lbl450Att.backColour, Green);  // left as it was
    EXPECT_EQ(h.c.f.lbl450Ipo.backColour, White);  // "PA01" is IPO off
    EXPECT_EQ(h.c.f.lbl450AGC[1].backColour,
              Green);  // GT02 is the command of "AGC Slow"
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
