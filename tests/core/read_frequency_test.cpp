// Reading frequency and mode from every rig, through the simulated rigs and
// through bytes written by hand from the rigs' manuals.
#include "protocol/read_frequency.h"
#include "basic/basic.h"
#include "cycle/poll_cycle.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// A connection to a simulated rig on a given frequency and mode.
struct OnAir : Station {
    OnAir(const QString& rig, int64_t hz, const QString& mode) : Station(rig) {
        load();
        this->rig().state().frequencyHz = hz;
        this->rig().state().mode = mode;
        switchOn();
    }
};

// Each rig's frequency and mode, through the simulated rig and again after it
// moves; then replies written by hand: the FT-817's mode byte; zero is a good
// frequency; a short reply and an FT-1000MP record whose byte 1 is above 2E
// change nothing, and say nothing.
TEST(ReadFrequency, ShowsEachRigsFrequencyAndMode) {
    const std::tuple<QString, int64_t, const char*, const char*> cases[] = {
        {RigFT817, 14250000, "USB", "14.250.00"},   {RigFT817ND, 145500000, "FM", "145.500.00"},
        {RigFT847, 432100000, "CWR", "432.100.00"}, {RigFT857D, 3573000, "DIG", "3.573.00"},
        {RigFT897, 50125000, "FMN", "50.125.00"},   {RigFT450, 21074000, "RTYU", "21.074.00"},
        {RigFRG100, 9630000, "AM", "9.630.00"},     {RigFT1000MP, 18100000, "PKTF", "18.100.00"},
        {RigFT920, 28500000, "USB", "28.500.00"}};
    for (const auto& [rig, hz, mode, shown] : cases) {
        SCOPED_TRACE(rig.toStdString());
        OnAir h(rig, hz, mode);
        EXPECT_EQ(h.c.f.txtVfoA.text, shown);
        EXPECT_EQ(h.c.f.txtMode.text, mode);
        EXPECT_EQ(h.c.s.CurrentFrequency, hz / 10);
        EXPECT_EQ(h.c.s.TuningFrequency, hz / 10);
        h.rig().state().frequencyHz = 7074000;
        ReadFrequencyAndMode(h.c);
        EXPECT_EQ(h.c.f.txtVfoA.text, "7.074.00");
    }
    const std::tuple<QString, const char*, const char*> replies[] = {
        {RigFT817, "0000000006", ".000.00 FM"},
        {RigFT817, "000000008a", ".000.00 DIG"},
        {RigFT817, "0000000083", ".000.00 CWRN"},
        {RigFT847, "0000000001", ".000.00 USB"},
        {RigFT817, "014250", "1.000.00 "},
        {RigFT1000MP, "002f0000000000000000000000000000", "1.000.00 "}};
    for (const auto& [rig, reply, shown] : replies) {
        SCOPED_TRACE(reply);
        ScriptedRig h(rig);
        h.c.f.txtVfoA.text = "1.000.00";
        h.replies(QByteArray::fromHex(reply));
        ReadFrequencyAndMode(h.c);
        EXPECT_EQ(h.c.f.txtVfoA.text + " " + h.c.f.txtMode.text, shown);
        EXPECT_TRUE(h.dialogs.messages.empty());
    }
}

TEST(ReadFrequency, TheVr5000IsNeverRead) {
    OnAir h(RigVR5000, 145575000, "FM");
    h.rig().clearTrace();
    ReadFrequencyAndMode(h.c);
    EXPECT_TRUE(h.rigReceived().isEmpty());
    EXPECT_EQ(h.c.f.txtVfoA.text, "");
}

// A bad frequency is reported, changes nothing and stops the next auto start; a
// good one in between starts the count again, and the third in a row ends the
// program with nothing saved.
TEST(BadFrequency, IsReportedAndTheThirdInARowEndsTheProgram) {
    ScriptedRig h(RigFT817);
    h.c.f.txtVfoA.text = "7.000.00";
    const std::tuple<const char*, const char*, int> readings[] = {{"01425a0001", "7.000.00", 1},
                                                                  {"0142500001", "14.250.00", 0},
                                                                  {"014250f001", "14.250.00", 1},
                                                                  {"01425a0001", "14.250.00", 2},
                                                                  {"01425a0001", "14.250.00", 3}};
    for (const auto& [reply, shown, count] : readings) {
        SCOPED_TRACE(reply);
        h.replies(QByteArray::fromHex(reply));
        ReadFrequencyAndMode(h.c);
        EXPECT_EQ(h.c.f.txtVfoA.text, shown);
        EXPECT_EQ(h.system.aborted, count == 3);
        if (count < 3) {
            EXPECT_EQ(h.c.s.BadFrequencyCount, count);
        }
    }
    ASSERT_FALSE(h.dialogs.messages.empty());
    EXPECT_EQ(h.dialogs.messages[0].text,
              "Bad frequency from rig - 01425A00\r\nData flow between PC and rig "
              "will be "
              "re-synchronised.");
    EXPECT_EQ(h.stored("Settings", "AutoStart"), "No");
    EXPECT_FALSE(h.system.ended);  // no orderly end: nothing else is saved
    EXPECT_TRUE(h.dialogs.messages.back().text.startsWith(
        "We have received 3 consecutive bad frequencies. There is probably\r\n"));
}

TEST(Ft1000Mp, RoundsHalfToEvenAndLightsTheFilters) {
    ScriptedRig h(RigFT1000MP);
    QByteArray block(16, '\0');
    // 1 425 000.5 x 16 = 22 800 008: half way, rounds to the even 1 425 000.
    block[1] = 0x01, block[2] = 0x5B, block[3] = static_cast<char>(0xE6);
    block[4] = static_cast<char>(0x88);
    block[7] = 5;     // RTTY, no alternate flag: the "RTTL" spelling
    block[8] = 0x32;  // 8.2 MHz filter member 1, 455 kHz member 2
    h.replies(block);
    ReadFrequencyAndMode(h.c);
    EXPECT_EQ(h.c.s.CurrentFrequency, 1425000);
    EXPECT_EQ(h.c.f.txtMode.text, "RTTL");
    EXPECT_EQ(h.c.f.cmdFT1000MP_Filter_82[1].backColour, PaleGreen);
    EXPECT_EQ(h.c.f.cmdFT1000MP_Filter_82[0].backColour, White);
    EXPECT_EQ(h.c.f.cmdFT1000MP_Filter_455[2].backColour, PaleGreen);
    EXPECT_EQ(h.c.f.cmdFT1000MP_Filter_455[4].backColour, White);
}

TEST(Ft920, TheNarrowFlagLightsTheButtonAndTheMetersShowVfoB) {
    ScriptedRig h(RigFT920);
    QByteArray block(28, '\0');
    block[1] = 0x00, block[2] = static_cast<char>(0xD9), block[3] = 0x70, block[4] = 0x10;
    block[7] = static_cast<char>(0x83);  // FM, narrow
    h.replies(block);
    ReadFrequencyAndMode(h.c);
    EXPECT_EQ(h.c.f.txtVfoA.text, "14.250.00");
    EXPECT_EQ(h.c.f.txtMode.text, "FMN");
    EXPECT_EQ(h.c.f.Command2[6].backColour, PaleGreen);
    EXPECT_TRUE(h.c.f.lblNarrow.visible);
    // With the meters open a second read holds VFO B, kept until the next
    // reading.
    OnAir st(RigFT920, 14250000, "USB");
    st.rig().state().vfoBHz = 7050000;
    st.c.s.MetersVisible = true;
    ReadFrequencyAndMode(st.c);
    EXPECT_EQ(st.c.f.txtVfoA.text, "14.250.00");  // the main display keeps VFO A
    EXPECT_EQ(st.c.frmMeters.lblVFOB.caption, "7.050.00");
    EXPECT_EQ(st.c.s.CurrentFrequency, 705000);
}

TEST(Ft450, ReadsTheIfReplysPositions) {
    // Frequency, mode, shift, tone encoder and decoder.
    const std::tuple<const char*, int32_t, const char*, const char*, const char*, const char*>
        cases[] = {// 14.250005 and 14.250015 MHz round to the even tens of hertz.
                   {"IF00114250005+000000200000;", 1425000, "USB", "0", "0", "0"},
                   {"IF00114250015+000000200000;", 1425002, "USB", "0", "0", "0"},
                   {"IF00129620000+000000402121;", 2962000, "FM", "+", "1", "0"},
                   {"IF00129620000+000000401082;", 2962000, "FM", "-", "0", "1"},
                   {"IF00107074000+000000Z00000;", 707400, "???", "0", "0", "0"}};
    for (const auto& [reply, frequency, mode, shift, encode, decode] : cases) {
        SCOPED_TRACE(reply);
        ScriptedRig h(RigFT450);
        h.replies(reply);
        ReadFrequencyAndMode(h.c);
        EXPECT_EQ(h.c.s.CurrentFrequency, frequency);
        EXPECT_EQ(h.c.f.txtMode.text, mode);
        EXPECT_EQ(h.c.s.TargetShift, shift);
        EXPECT_EQ(h.c.s.ToneEncode, encode);
        EXPECT_EQ(h.c.s.ToneDecode, decode);
    }
}

// A reply of another kind asks for resynchronisation; a short one of any length
// is survived.
TEST(Ft450, AWrongOrShortReplyIsSurvived) {
    for (const char* reply : {"MD02;", "IF;", "IF0011425;", "IF00114250000+00000;", "I;"}) {
        SCOPED_TRACE(reply);
        ScriptedRig h(RigFT450);
        h.c.f.txtVfoA.text = "1.000.00";
        h.replies(reply);
        ReadFrequencyAndMode(h.c);
        if (*reply == 'M') {
            EXPECT_TRUE(h.c.s.TextResyncNeeded);
            EXPECT_EQ(h.c.f.txtVfoA.text, "1.000.00");
        } else {
            EXPECT_EQ(h.c.f.txtMode.text.isEmpty(), QByteArray(reply).size() < 3);
        }
    }
}

TEST(Ft450, APendingChangeKeepsItsToneState) {
    ScriptedRig h(RigFT450);
    h.c.s.FrequencyChangePending = true;
    h.c.s.ToneEncode = "1";
    h.replies("IF00129620000+000000400001;");
    ReadFrequencyAndMode(h.c);
    EXPECT_EQ(h.c.s.ToneEncode, "1");
    EXPECT_EQ(h.c.s.RigToneEncode, "0");
    EXPECT_EQ(h.c.f.cmdShiftSimplex.backColour, ButtonFace);
    EXPECT_EQ(h.c.f.cmdShiftPlus.backColour, PaleGreen);
}

TEST(FrequencyText, HasBothFormsWithTheSystemsDecimalMark) {
    const std::tuple<int32_t, char, const char*, const char*> cases[] = {
        {1425000, '.', "14.250.00", "14.25000"},
        {1425000, ',', "14,250,00", "14,25000"},
        {13600, '.', ".136.00", ".13600"},
        {259999998, '.', "2599.999.98", "2599.99998"},
        {100500000, '.', "1005.000.00", "1005.00000"}};
    for (const auto& [frequency, mark, full, shortForm] : cases) {
        Harness h;
        h.c.s.DecimalSeparator = QString(mark);
        basic::SetDecimalMark(mark);
        EXPECT_EQ(FormatFrequency(h.c, frequency), full);
        EXPECT_EQ(FormatFrequencyShort(h.c, frequency), shortForm);
        EXPECT_EQ(h.c.s.LastDisplayedFrequency, frequency);
        basic::SetDecimalMark('.');
    }
}

// The rate of full readings, counted by the frequency reads the rig received.
int Readings(Harness& h) {
    return static_cast<int>(h.rigReceived().count(QByteArray::fromHex("0000000003")));
}

// With polling off nothing is read until "Update now", which reads once; the
// tone lights are refreshed at each tick all the same. Polling on, a reading
// falls due after the end of the last one.
TEST(Polling, ReadsOnlyWhenDue) {
    OnAir h(RigFT817, 145500000, "FM");
    SetPollingDelay(h.c, 99);
    EXPECT_EQ(h.stored("Settings", "PollingDelay"), "99");
    EXPECT_TRUE(h.c.f.mnuPollingOff.checked);
    h.rig().clearTrace();
    h.c.s.ToneCode = "8";
    h.c.s.ToneDecode = "1";
    PerformStatusUpdate(h.c);
    EXPECT_TRUE(h.rigReceived().isEmpty());
    EXPECT_EQ(h.c.f.lblDec.backColour, Green);
    EXPECT_EQ(h.c.f.lblCTCSSFreq.caption, "88.5");
    h.c.f.txtMode.text = "USB";
    PerformStatusUpdate(h.c);
    EXPECT_EQ(h.c.f.lblDec.backColour, White);
    EXPECT_EQ(h.c.f.lblCTCSSFreq.caption, "Freq");
    mnuPollingUpdateNow_Click(h.c);
    PerformStatusUpdate(h.c);
    EXPECT_EQ(Readings(h), 1);
    PerformStatusUpdate(h.c);
    EXPECT_EQ(Readings(h), 1);  // one reading only
    SetPollingDelay(h.c, 5000);
    h.c.s.NextPollTime = h.clock.now;
    PerformStatusUpdate(h.c);
    const uint32_t ended = h.clock.now;
    EXPECT_EQ(Readings(h), 2);
    h.clock.now = ended + 4999;
    PerformStatusUpdate(h.c);
    EXPECT_EQ(Readings(h), 2);
    h.clock.now = ended + 5000;
    PerformStatusUpdate(h.c);
    EXPECT_EQ(Readings(h), 3);
}

}  // namespace
}  // namespace veldor::test
