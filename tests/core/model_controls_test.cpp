// The controls of each model: memory toggles, filters, tuner, split, VFO buttons, the FT-450's
// functions, and the order the tick serves them in.
#include "protocol/model_controls.h"
#include "cycle/poll_cycle.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

TEST(MemoryToggles, ReadModifyAndWriteTheByteKeepingItsNeighbour) {
    const struct {
        const char* rig;
        void (*click)(Core&);
        CommandButton Form1::*button;
        int address;  // of the byte changed; the other byte of its pair is the neighbour
        uint8_t before;
        bool green;
        uint8_t after;
    } cases[] = {
        // The processor's bit is the one its light reads, in the second byte: the same bit of
        // the first byte is the FT-857's DNR.
        {"FT857", cmdFT857Processor_Click, &Form1::cmdFT857Processor, 0xA9, 0x00, false, 0x02},
        {"FT857D", cmdFT857NoiseBlanker_Click, &Form1::cmdFT857NoiseBlanker, 0x6A, 0x01, false,
         0x21},
        {"FT857", cmdFT857DNR_Click, &Form1::cmdFT857DNR, 0xA8, 0x03, true, 0x01},
        // Lock and Fast: the green button sets the bit.
        {"FT857", cmdFT857Lock_Click, &Form1::cmdFT857Lock, 0x6A, 0xFF, false, 0xBF},
        {"FT897", cmdFT897Fast_Click, &Form1::cmdFT897Fast, 0x6A, 0x00, true, 0x80},
        // The FT-897's DSP master bit comes on with a function and goes with the last one.
        {"FT897", cmdFT897DNF_Click, &Form1::cmdFT897DNF, 0xA8, 0x00, false, 0x11},
        {"FT897", cmdFT897DNR_Click, &Form1::cmdFT897DNR, 0xA8, 0x12, true, 0x00},
        {"FT897", cmdFT897DNR_Click, &Form1::cmdFT897DNR, 0xA8, 0x13, true, 0x11},
    };
    for (const auto& t : cases) {
        SCOPED_TRACE(testing::Message() << t.rig << " " << std::hex << t.address);
        OnAir st(t.rig);
        const int neighbour = t.address ^ 1;
        st.memory(t.address) = t.before;
        st.memory(neighbour) = 0x5A;
        (st.c.f.*(t.button)).backColour = t.green ? Green : ButtonFace;
        t.click(st.c);
        EXPECT_TRUE(st.rigReceived().isEmpty());
        st.tick();
        EXPECT_EQ(st.memory(t.address), t.after);
        EXPECT_EQ(st.memory(neighbour), 0x5A);
    }
}

// Two clicks between ticks give one read and one write; a lost read writes nothing and the
// request waits for the next tick.
TEST(MemoryToggles, OneCommandATickAndARetryAfterALostRead) {
    OnAir st(RigFT857);
    cmdFT857Lock_Click(st.c);
    cmdFT857Lock_Click(st.c);
    st.tick();
    EXPECT_EQ(st.rigReceived().toHex(' '), "00 6a 00 00 bb 00 6a 00 00 bc");
    st.rig().clearTrace();
    st.rig().faults().dropReplies = 1;
    cmdFT857Processor_Click(st.c);
    st.tick();
    EXPECT_EQ(st.rigReceived().left(5).toHex(' '), "00 a8 00 00 bb");
    EXPECT_FALSE(st.rigReceived().contains(QByteArray::fromHex("bc")));
    st.tick();
    EXPECT_EQ(st.memory(0xA9), 0x02);
}

TEST(Ft817Agc, WritesTheLowTwoBitsAndKeepsTheRest) {
    OnAir st(RigFT817);
    st.memory(0x56) = 0xA7;
    st.memory(0x57) = 0x33;
    optFT817AGC_Click(st.c, 2);
    st.tick();
    EXPECT_EQ(st.memory(0x56), 0xA6);
    EXPECT_EQ(st.memory(0x57), 0x33);
    // An option set by the program's own reading is not sent back.
    st.c.s.Ft817AgcLocked = true;
    optFT817AGC_Click(st.c, 0);
    EXPECT_FALSE(st.c.s.PendingFT817AGC);
}

TEST(Ft1000mpFilters, SendTheBandwidthOfTheButtonForEachIf) {
    OnAir st(RigFT1000MP);
    cmdFT1000MP_Filter_455_Click(st.c, 1);
    cmdFT1000MP_Filter_82_Click(st.c, 3);
    st.tick();
    // The 8.2 MHz filter is served first.
    EXPECT_EQ(st.rigReceived().toHex(' '), "01 00 00 00 8c 02 00 00 02 8c");
    EXPECT_EQ(st.rig().state().filter82Hz, 2400);
    EXPECT_EQ(st.rig().state().filter455Hz, 500);
}

TEST(Split, SendsEachRigsCommand) {
    const struct {
        const char* rig;
        int ticked;
        const char* sent;
    } cases[] = {
        {"FT817", 1, "00 00 00 00 02"},
        {"FT897D", 0, "00 00 00 00 82"},
        {"FT920", 1, "00 00 00 01 01"},
        {"FT1000MP", 0, "00 00 00 00 01"},
        {"FT847", 1, ""},
        {"FT450", 1, ""},
    };
    for (const auto& t : cases) {
        Wire w(t.rig, Bytes({0}));
        w.c.f.chkSplit.value = t.ticked;
        chkSplit_Click(w.c);
        ASSERT_TRUE(w.c.s.PendingSplit);
        SetSplit(w.c);
        EXPECT_EQ(w.hex(), t.sent) << t.rig;
    }
}

TEST(VfoToggle, EachRigSwapsItsWay) {
    Wire ft450(RigFT450);
    ToggleVfo(ft450.c);
    ToggleVfo(ft450.c);
    EXPECT_EQ(ft450.text(), "VS1;VS0;");
    EXPECT_TRUE(ft450.c.s.VfoAActive);
    Wire mp(RigFT1000MP);
    mp.c.s.VfoAActive = false;
    ToggleVfo(mp.c);
    EXPECT_EQ(mp.hex(), "00 00 00 01 05");
    EXPECT_TRUE(mp.c.s.VfoAActive);
    Wire ft817(RigFT817, Bytes({0}));
    ToggleVfo(ft817.c);
    EXPECT_EQ(ft817.hex(), "00 00 00 00 81");
    EXPECT_FALSE(ft817.c.s.VfoAActive);
}

TEST(VfoEqual, IsRefusedWhileTransmitting) {
    Wire ft450(RigFT450);
    ft450.c.s.Transmitting = true;
    VfoEqual(ft450.c);
    ft450.c.s.Transmitting = false;
    VfoEqual(ft450.c);
    EXPECT_EQ(ft450.text(), "VV;");
}

TEST(Ft450Functions, SendTheirTextsInTheTicksOrder) {
    Wire w(RigFT450);
    Form1& f = w.c.f;
    f.chkOnOff.value = 1;
    f.lbl450Att.backColour = White;
    f.lbl450Ipo.backColour = Green;
    w.c.s.TunerOn = true;
    lbl450Ipo_Click(w.c);
    lbl450AGC_Click(w.c, 1);
    lbl450Att_Click(w.c);
    lbl450Tuner_Click(w.c);
    cmd450Tune_Click(w.c);
    w.c.s.PendingFT450VM = true;
    w.c.frm450DSP.lblSqlRFGain.caption = "SQL";
    w.c.s.PendingFT450SqlRf = true;
    EXPECT_TRUE(w.text().isEmpty());
    tmrPollInterval_Timer(w.c);
    EXPECT_TRUE(w.text().startsWith("AC002;AC000;RA01;GT02;PA01;EX0581;VM;")) << w.text().data();
}

TEST(Ft450Functions, TheDspPanelsRequests) {
    Wire w(RigFT450);
    Frm450DSP& d = w.c.frm450DSP;
    d.lbl450NoiseReduction.backColour = Green;
    d.lbl450Notch.backColour = White;
    d.lbl450NoiseBlanker.backColour = Green;
    w.c.s.DspNoiseReductionLevel = "07";
    w.c.s.DspNotchFrequency = "120";
    d.sldAFGain.value = 5;
    d.sldRFGain.value = 255;
    d.sldFilter.value = 3;
    w.c.s.DspContourLevelIndex = 1;
    w.c.s.DspContourFrequencyIndex = 5;
    for (bool State::*flag :
         {&State::PendingNoiseBlanker, &State::PendingFT450NR, &State::PendingFT450Notch,
          &State::PendingFT450NRLevel, &State::PendingFT450AFGain, &State::PendingFT450RFGain,
          &State::PendingFT450NotchFreq, &State::PendingFT450Filter, &State::PendingFT450Contour,
          &State::PendingFT450ContourFreq})
        w.c.s.*flag = true;
    tmrPollInterval_Timer(w.c);
    // The notch frequency is not sent while the notch is off.
    EXPECT_TRUE(w.text().startsWith("NB00;NR00;BP00001;RL007;AG0005;RG0255;SH031;CO00-2;CO0126;"))
        << w.text().data();
    EXPECT_FALSE(w.c.s.PendingFT450NotchFreq);
}

// The main window's functions go out on the air and during a scan or a sweep; the tune and
// the DSP panel's requests do not.
TEST(Ft450Functions, OnlyTheTuneAndTheDspPanelAreRefusedWhileBusy) {
    for (bool State::*busy : {&State::Transmitting, &State::ScanRunning, &State::SpectrumRunning}) {
        Wire w(RigFT450);
        w.c.s.*busy = true;
        w.c.f.lbl450Att.backColour = w.c.f.lbl450Ipo.backColour = White;
        w.c.s.Ft450AgcIndex = 3;
        for (void (*action)(Core&) : {Ft450Tune, Ft450Tuner, Ft450Attenuator, Ft450Agc, Ft450Ipo,
                                      Ft450SqlMode, Ft450VfoMemory, ToggleNoiseBlanker})
            action(w.c);
        EXPECT_EQ(w.text(), "AC001;RA01;GT00;PA00;");
    }
}

}  // namespace
}  // namespace veldor::test
