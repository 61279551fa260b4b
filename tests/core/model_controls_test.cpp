// The controls of each model: memory toggles, filters, tuner, split, VFO buttons, the FT-450's
// functions, and the order the tick serves them in.
#include "protocol/model_controls.h"
#include "cycle/poll_cycle.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "shell/customise.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

struct ToggleCase {
    const char* rig;
    void (*click)(Core&);
    CommandButton Form1::*button;
    int address;  // of the byte changed; the other byte of its pair is the neighbour
    uint8_t before;
    bool green;
    uint8_t after;
};

TEST(MemoryToggles, ReadModifyAndWriteTheByteKeepingItsNeighbour) {
    const ToggleCase cases[] = {
        // The processor's bit is the one its light reads, in the second byte: the same bit of
        // the first byte is the FT-857's DNR.
        {"FT857", cmdFT857Processor_Click, &Form1::cmdFT857Processor, 0xA9, 0x00, false, 0x02},
        {"FT857", cmdFT857Processor_Click, &Form1::cmdFT857Processor, 0xA9, 0xFF, true, 0xFD},
        {"FT897D", cmdFT897Processor_Click, &Form1::cmdFT897Processor, 0xA9, 0x10, false, 0x12},
        {"FT857D", cmdFT857NoiseBlanker_Click, &Form1::cmdFT857NoiseBlanker, 0x6A, 0x01, false,
         0x21},
        {"FT857", cmdFT857DNF_Click, &Form1::cmdFT857DNF, 0xA8, 0x00, false, 0x01},
        {"FT857", cmdFT857DNR_Click, &Form1::cmdFT857DNR, 0xA8, 0x03, true, 0x01},
        {"FT857", cmdFT857DBF_Click, &Form1::cmdFT857DBF, 0xA8, 0x00, false, 0x0C},
        // Lock and Fast: the green button sets the bit.
        {"FT857", cmdFT857Lock_Click, &Form1::cmdFT857Lock, 0x6A, 0x00, true, 0x40},
        {"FT857", cmdFT857Lock_Click, &Form1::cmdFT857Lock, 0x6A, 0xFF, false, 0xBF},
        {"FT897", cmdFT897Fast_Click, &Form1::cmdFT897Fast, 0x6A, 0x00, true, 0x80},
        // The FT-897's DSP master bit comes on with a function and goes with the last one.
        {"FT897", cmdFT897DNF_Click, &Form1::cmdFT897DNF, 0xA8, 0x00, false, 0x11},
        {"FT897D", cmdFT897DBF_Click, &Form1::cmdFT897DBF, 0xA8, 0x00, false, 0x1C},
        {"FT897", cmdFT897DNR_Click, &Form1::cmdFT897DNR, 0xA8, 0x12, true, 0x00},
        {"FT897", cmdFT897DNR_Click, &Form1::cmdFT897DNR, 0xA8, 0x13, true, 0x11},
        {"FT897", cmdFT897DNF_Click, &Form1::cmdFT897DNF, 0xA8, 0xF1, true, 0xE0},
    };
    for (const ToggleCase& t : cases) {
        OnAir st(t.rig);
        const int neighbour = t.address ^ 1;
        st.memory(t.address) = t.before;
        st.memory(neighbour) = 0x5A;
        (st.c.f.*(t.button)).backColour = t.green ? Green : ButtonFace;
        t.click(st.c);
        EXPECT_TRUE(st.rigReceived().isEmpty());
        st.tick();
        EXPECT_EQ(st.memory(t.address), t.after) << t.rig << " " << std::hex << t.address;
        EXPECT_EQ(st.memory(neighbour), 0x5A) << t.rig << " " << std::hex << t.address;
    }
}

TEST(MemoryToggles, TwoClicksBetweenTicksGiveOneCommand) {
    OnAir st(RigFT857);
    cmdFT857Lock_Click(st.c);
    cmdFT857Lock_Click(st.c);
    st.tick();
    EXPECT_EQ(st.rigReceived().toHex(' '), "00 6a 00 00 bb 00 6a 00 00 bc");
    st.rig().clearTrace();
    st.tick();
    EXPECT_TRUE(st.rigReceived().isEmpty());
}

TEST(MemoryToggles, ATimedOutReadWritesNothingAndTriesAgain) {
    OnAir st(RigFT857);
    st.rig().faults().dropReplies = 1;
    cmdFT857Processor_Click(st.c);
    st.tick();
    EXPECT_EQ(st.rigReceived().left(5).toHex(' '), "00 a8 00 00 bb");
    EXPECT_FALSE(st.rigReceived().contains(QByteArray::fromHex("bc")));
    EXPECT_TRUE(st.c.s.PendingProcessor);
    st.rig().clearTrace();
    st.tick();
    EXPECT_FALSE(st.c.s.PendingProcessor);
    EXPECT_EQ(st.memory(0xA9), 0x02);
}

TEST(MemoryToggles, OtherRigsClearTheRequestAndSendNothing) {
    Wire w(RigFT817, Bytes({0}));
    w.c.s.PendingLock = true;
    ToggleLock(w.c);
    EXPECT_FALSE(w.c.s.PendingLock);
    EXPECT_TRUE(w.hex().isEmpty());
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
    EXPECT_FALSE(st.c.s.Ft817AgcLocked);
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
    EXPECT_EQ(st.c.f.cmdFT1000MP_Filter_455[1].backColour, Green);
    EXPECT_EQ(st.c.f.cmdFT1000MP_Filter_455[0].backColour, White);
}

TEST(Ft920Tuner, SwitchesInAndOutAndStartsTuning) {
    OnAir st(RigFT920);
    st.c.f.cmdFT920Tuner.backColour = White;
    cmdFT920Tuner_Click(st.c);
    cmdFT920StartTune_Click(st.c);
    st.tick();
    EXPECT_TRUE(st.rig().state().tunerIn);
    EXPECT_EQ(st.rig().state().tuneStarts, 1);
    EXPECT_TRUE(st.c.f.cmdFT920StartTune.enabled);
    st.c.f.cmdFT920Tuner.backColour = PaleGreen;
    cmdFT920Tuner_Click(st.c);
    st.rig().clearTrace();
    st.tick();
    EXPECT_EQ(st.rigReceived().left(5).toHex(' '), "00 00 00 00 81");
    EXPECT_FALSE(st.rig().state().tunerIn);
    EXPECT_FALSE(st.c.f.cmdFT920StartTune.enabled);
}

struct SplitCase {
    const char* rig;
    int ticked;
    const char* sent;
};

TEST(Split, SendsEachRigsCommand) {
    const SplitCase cases[] = {
        {"FT817", 1, "00 00 00 00 02"},
        {"FT897D", 0, "00 00 00 00 82"},
        {"FT920", 1, "00 00 00 01 01"},
        {"FT1000MP", 0, "00 00 00 00 01"},
        {"FT847", 1, ""},
        {"FT450", 1, ""},
    };
    for (const SplitCase& t : cases) {
        Wire w(t.rig, Bytes({0}));
        w.c.f.chkSplit.value = t.ticked;
        chkSplit_Click(w.c);
        ASSERT_TRUE(w.c.s.PendingSplit);
        SetSplit(w.c);
        EXPECT_EQ(w.hex(), t.sent) << t.rig;
        EXPECT_FALSE(w.c.s.PendingSplit);
    }
}

TEST(Split, AChangeTheRigMadeItselfIsNotSentBack) {
    OnAir st(RigFT817);
    st.c.s.PollingDelay = 0;
    st.rig().state().split = true;
    st.rig().state().ptt = true;  // the rig reports split only while transmitting
    st.tick();
    ASSERT_EQ(st.c.f.chkSplit.value, 1);
    EXPECT_FALSE(st.c.s.PendingSplit);
    EXPECT_FALSE(st.c.s.SplitChangedByPoll);
    // The operator's own click afterwards goes to the rig.
    st.c.f.chkSplit.value = 0;
    chkSplit_Click(st.c);
    EXPECT_TRUE(st.c.s.PendingSplit);
}

TEST(VfoToggle, EachRigSwapsItsWay) {
    Wire ft450(RigFT450);
    ToggleVfo(ft450.c);
    EXPECT_EQ(ft450.text(), "VS1;");
    EXPECT_EQ(ft450.c.f.lblRigMode.caption, "VFO B");
    EXPECT_EQ(ft450.c.s.VfoLetter, "B");
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

TEST(VfoToggle, TheVr5000RetunesToItsOtherReceiver) {
    OnAir st(RigVR5000);
    st.c.s.VR5000FrequencyMain = 9880000;
    st.c.s.VR5000ModeMain = "WFM";
    st.c.s.VR5000FrequencySub = 14550000;
    // Not the mode of the main receiver's channel at switch-on, which counts as sent.
    st.c.s.VR5000ModeSub = "AMN";
    cmdVFOtoggle_Click(st.c);
    st.tick();
    EXPECT_EQ(st.c.f.cmdVFOtoggle.caption, "VFO B");
    EXPECT_EQ(st.rig().state().vfoBHz, 145500000);
    EXPECT_EQ(st.rig().state().subMode, "AMN");
    cmdVFOBOff_Click(st.c);
    st.tick();
    EXPECT_FALSE(st.rig().state().subOn);
    EXPECT_EQ(st.c.f.cmdVFOtoggle.caption, "VFO A");
    EXPECT_TRUE(st.c.s.VfoAActive);
    EXPECT_EQ(st.rig().state().frequencyHz, 98800000);
}

TEST(VfoEqual, TheOtherVfoTakesTheFrequencyAndModeShown) {
    OnAir st(RigFT857);
    st.c.f.txtVfoA.text = "7.074.00";
    st.c.f.txtMode.text = "USB";
    st.rig().state().frequencyHz = 7074000;
    st.rig().state().vfoBHz = 3700000;
    st.rig().state().mode = "USB";
    cmdVFOSEqual_Click(st.c);
    st.tick();
    EXPECT_EQ(st.rig().state().vfoBHz, 7074000);
    EXPECT_FALSE(st.rig().state().vfoB);
    EXPECT_TRUE(st.c.s.VfoAActive);

    Wire ft450(RigFT450);
    ft450.c.s.Transmitting = true;
    VfoEqual(ft450.c);
    EXPECT_TRUE(ft450.text().isEmpty());
    ft450.c.s.Transmitting = false;
    VfoEqual(ft450.c);
    EXPECT_EQ(ft450.text(), "VV;");
}

TEST(SelectVfo, PutsTheFt857OnTheNamedVfoThroughItsMemory) {
    OnAir st(RigFT857);
    st.c.s.VfoRequest = "B";
    EXPECT_TRUE(SelectVfo(st.c));
    EXPECT_TRUE(st.rig().state().vfoB);
    EXPECT_FALSE(st.c.s.VfoAActive);
    st.rig().clearTrace();
    EXPECT_TRUE(SelectVfo(st.c));  // already there: read only
    EXPECT_EQ(st.rigReceived().toHex(' '), "00 68 00 00 bb");
    st.c.s.VfoRequest = "A";
    SelectVfo(st.c);
    EXPECT_FALSE(st.rig().state().vfoB);
    EXPECT_TRUE(st.c.s.VfoAActive);
    st.rig().faults().silent = true;
    EXPECT_FALSE(SelectVfo(st.c));
}

TEST(SelectVfo, OtherRigsByName) {
    Wire ft450(RigFT450);
    ft450.c.s.VfoRequest = "B";
    SelectVfo(ft450.c);
    EXPECT_EQ(ft450.text(), "VS1;");
    EXPECT_EQ(ft450.c.s.VfoLetter, "B");
    Wire ft920(RigFT920);
    ft920.c.s.VfoRequest = "A";
    SelectVfo(ft920.c);
    EXPECT_EQ(ft920.hex(), "00 00 00 00 05");
    EXPECT_TRUE(ft920.c.s.VfoAActive);
    Wire ft847(RigFT847);
    ft847.c.s.VfoRequest = "B";
    SelectVfo(ft847.c);
    EXPECT_TRUE(ft847.hex().isEmpty());
    EXPECT_TRUE(ft847.c.s.VfoAActive);
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

TEST(Ft450Functions, TheSimulatedRigFollows) {
    OnAir st(RigFT450);
    st.c.f.lbl450Att.backColour = White;
    lbl450Att_Click(st.c);
    lbl450AGC_Click(st.c, 2);
    st.tick();
    EXPECT_TRUE(st.rig().state().attenuator);
    EXPECT_EQ(st.rig().state().agc, 1);
    // The next reading lights the attenuator.
    mnuPollingUpdateNow_Click(st.c);
    st.tick();
    EXPECT_EQ(st.c.f.lbl450Att.backColour, Green);
}

// The light that comes on is the one the operator chose, whichever value the rig reports for it.
TEST(Ft450Functions, TheAgcLightReadBackIsTheOneChosen) {
    for (int chosen = 0; chosen < 4; ++chosen) {
        OnAir st(RigFT450);
        lbl450AGC_Click(st.c, chosen);
        st.tick();
        mnuPollingUpdateNow_Click(st.c);
        st.tick();
        for (int member = 0; member < 4; ++member)
            EXPECT_EQ(st.c.f.lbl450AGC[member].backColour, member == chosen ? Green : White);
    }
}

TEST(Customise, ShowsTheControlsOfTheRigInUse) {
    Harness h;
    Form1& f = h.c.f;
    h.c.s.RigType = RigFT450;
    CustomiseForms(h.c);
    EXPECT_TRUE(f.frmFT450.visible);
    EXPECT_FALSE(f.chkSplit.visible);  // split is worked through the VFO buttons
    EXPECT_TRUE(f.cmdVFOtoggle.visible);
    EXPECT_EQ(f.Command2[7].caption, "USRL");
    EXPECT_TRUE(f.Command2[10].visible);
    EXPECT_FALSE(f.Command2[11].visible);
    EXPECT_EQ(f.cboCTCSS.list.size(), 50);
    EXPECT_EQ(f.lblDCS.caption, "TEMP");

    h.c.s.RigType = RigVR5000;
    CustomiseForms(h.c);
    EXPECT_FALSE(f.frmFT450.visible);
    EXPECT_TRUE(f.frmVR5000FMN.visible);
    EXPECT_FALSE(f.Command2[4].visible);
    EXPECT_EQ(f.Command2[8].caption, "AM-N");
    EXPECT_FALSE(f.chkTransmitEnable.enabled);
    EXPECT_FALSE(f.cmdShiftPlus.visible);
    EXPECT_EQ(f.cboCTCSS.list.size(), 39);

    h.c.s.RigType = RigFT1000MP;
    CustomiseForms(h.c);
    EXPECT_EQ(f.Command2[11].caption, "AM(S)");
    EXPECT_TRUE(f.chkSplit.visible);
    EXPECT_FALSE(f.cmdShiftPlus.visible);
    EXPECT_EQ(f.cboCTCSS.list.first(), "67.0");
    EXPECT_EQ(f.cboCTCSS.list.size(), 33);

    h.c.s.RigType = RigFT857D;
    CustomiseForms(h.c);
    EXPECT_TRUE(f.frmFT857.visible);
    EXPECT_EQ(f.Label18.caption, "FT857D");
    EXPECT_EQ(f.Command2[8].caption, "FMN");
    EXPECT_EQ(f.Command2[6].toolTip, "");
    EXPECT_EQ(f.lblDISC.caption, "DISC");
    EXPECT_EQ(f.chkOnOff.toolTip, " FT857D ");

    h.c.s.RigType = RigFRG100;
    CustomiseForms(h.c);
    EXPECT_EQ(f.Command2[5].caption, "CW-N");
    EXPECT_EQ(f.lblDISC.toolTip, "Not assigned");
    EXPECT_TRUE(f.lblDISC.caption.isEmpty());
}

}  // namespace
}  // namespace veldor::test
