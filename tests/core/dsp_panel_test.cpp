// The FT-450 DSP panel: the texts its controls send through the tick, their refusals, the
// panel's part of the reading, the slider hold, and the panel's place beside the main window.
#include "accessories/dsp_panel.h"
#include "cycle/poll_cycle.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

TEST(DspPanel, ControlsSendTheirTextsInTheTicksOrder) {
    Wire w(RigFT450);
    Frm450DSP& d = w.c.frm450DSP;
    d.lbl450NoiseReduction.backColour = Green;
    d.lbl450Notch.backColour = Green;
    d.sldNoiseReduction.value = 7;
    sldNoiseReduction_Change(w.c);
    d.sldNotch.value = 45;
    sldNotch_Change(w.c);
    d.sldFilter.value = 1;
    sldFilter_Change(w.c);
    lblContour_Click(w.c, 4);
    lblContourFreq_Click(w.c, 2);
    lbl450Notch_Click(w.c);
    cmdVM_Click(w.c);
    tmrPollInterval_Timer(w.c);
    EXPECT_TRUE(w.text().startsWith("VM;BP00000;RL007;BP01045;SH000;CO0001;CO0108;"))
        << w.text().data();
}

TEST(DspPanel, TheContourFrequencyIsNotAskedForWhileTheContourIsOff) {
    Wire w(RigFT450);
    w.c.frm450DSP.lblContour[3].backColour = Green;
    lblContourFreq_Click(w.c, 5);
    EXPECT_FALSE(w.c.s.PendingFT450ContourFreq);
}

TEST(DspPanel, RequestsAreDroppedWhileTransmittingScanningOrSweeping) {
    for (bool State::*job : {&State::Transmitting, &State::ScanRunning, &State::SpectrumRunning}) {
        Wire w(RigFT450);
        w.c.s.*job = true;
        w.c.s.PollingDelay = 99;
        for (auto click : {cmdVM_Click, lblSqlRFGain_Click, lbl450NoiseBlanker_Click,
                           lbl450NoiseReduction_Click, lbl450Notch_Click, sldNoiseReduction_Change,
                           sldNotch_Change, sldAFGain_Change, sldRFGain_Change, sldFilter_Change})
            click(w.c);
        lblContour_Click(w.c, 1);
        lblContourFreq_Click(w.c, 1);
        tmrPollInterval_Timer(w.c);
        EXPECT_TRUE(w.text().isEmpty()) << w.text().data();
        EXPECT_FALSE(w.c.s.PendingFT450AFGain || w.c.s.PendingFT450ContourFreq ||
                     w.c.s.PendingNoiseBlanker || w.c.s.PendingFT450VM);
    }
}

struct Ft450Panel : OnAir {
    Ft450Panel() : OnAir(RigFT450) { c.s.DspVisible = true; }
    void reading() {
        rig().clearTrace();
        mnuPollingUpdateNow_Click(c);
        tick();
    }
    bool asked(const char* command) { return rigReceived().contains(command); }
};

TEST(DspPanel, TheReadingShowsTheRigsDspState) {
    Ft450Panel st;
    sim::RigState& r = st.rig().state();
    r.noiseReduction = true;
    r.nrLevel = 9;
    r.rfGain = 200;
    r.notch = true;
    r.notchHz = 250;
    r.width = 31;
    r.contour = "CO00-1";
    r.contourFrequency = "CO0120";
    r.sqlIsRfGain = true;
    st.reading();
    const Frm450DSP& d = st.c.frm450DSP;
    EXPECT_EQ(d.lbl450NoiseBlanker.backColour, White);
    EXPECT_EQ(d.lbl450NoiseReduction.backColour, Green);
    EXPECT_EQ(d.sldNoiseReduction.value, 9);
    EXPECT_EQ(d.sldRFGain.value, 200);
    EXPECT_EQ(d.lbl450Notch.backColour, Green);
    EXPECT_EQ(d.sldNotch.value, 250);
    EXPECT_EQ(d.sldFilter.value, 3);
    EXPECT_EQ(d.lblContour[2].backColour, Green);  // "-6"
    EXPECT_EQ(d.lblContour[3].backColour, White);
    EXPECT_EQ(d.lblContourFreq[4].backColour, Green);  // "2k"
    EXPECT_EQ(d.lblSqlRFGain.caption, "RF Gain");

    // With the contour off, its frequency is not asked.
    r.contour = "CO0000";
    st.reading();
    EXPECT_EQ(d.lblContour[3].backColour, Green);
    EXPECT_TRUE(st.asked("CO00;"));
    EXPECT_FALSE(st.asked("CO01;"));
}

TEST(DspPanel, IsNotReadWhileClosed) {
    Ft450Panel st;
    st.c.s.DspVisible = false;
    st.reading();
    EXPECT_TRUE(st.asked("VS;"));
    EXPECT_FALSE(st.asked("NB0;"));
}

TEST(DspPanel, ASliderHeldUnderTheMouseIsNotPulledBackByTheReading) {
    Ft450Panel st;
    st.rig().state().afGain = 120;
    st.rig().state().noiseBlanker = true;
    Frm450DSP& d = st.c.frm450DSP;
    DspSlider_MouseDown(st.c);
    d.sldAFGain.value = 30;
    st.reading();
    EXPECT_EQ(d.sldAFGain.value, 30);
    EXPECT_FALSE(st.asked("AG0;"));
    EXPECT_EQ(d.lbl450NoiseBlanker.backColour, Green);  // the lights go on being read
    DspSlider_MouseUp(st.c);
    st.reading();
    EXPECT_EQ(d.sldAFGain.value, 120);

    // A move the rig has not had yet is not read back either; once sent, the rig has it.
    d.sldAFGain.value = 64;
    sldAFGain_Change(st.c);
    st.reading();
    EXPECT_EQ(st.rig().state().afGain, 64);
    EXPECT_EQ(d.sldAFGain.value, 64);
}

TEST(DspPanel, OpensWithTheBoxDocksAndFollowsTheMainWindow) {
    Ft450Panel st;
    st.c.s.DspVisible = false;
    Form1& f = st.c.f;
    const Frm450DSP& d = st.c.frm450DSP;
    f.left = 30000;
    f.top = 1500;
    f.chkShowDSP.value = 1;
    chkShowDSP_Click(st.c);
    st.tick();
    ASSERT_TRUE(st.windows.shown(FormId::frm450DSP));
    EXPECT_EQ(d.left + d.width, f.left);
    EXPECT_EQ(d.top, f.top);

    f.left = 45000;
    f.top = 3000;
    st.tick();
    EXPECT_EQ(d.left + d.width, 45000);
    EXPECT_EQ(d.top, 3000);

    frm450DSP_cmdDockRight_Click(st.c);
    f.left = 15000;
    st.tick();
    EXPECT_EQ(d.left, 15000 + f.width);

    f.windowState = 1;  // minimised
    st.tick();
    EXPECT_FALSE(st.windows.shown(FormId::frm450DSP));
    f.windowState = 0;
    st.tick();
    EXPECT_TRUE(st.windows.shown(FormId::frm450DSP));

    f.chkShowDSP.value = 0;
    chkShowDSP_Click(st.c);
    EXPECT_FALSE(st.windows.shown(FormId::frm450DSP));
    st.tick();
    EXPECT_FALSE(st.windows.shown(FormId::frm450DSP));
    EXPECT_TRUE(st.c.frm450DSP.loaded);  // hidden, not unloaded
}

TEST(DspPanel, CloseUnticksTheBoxAndUnloads) {
    Ft450Panel st;
    st.c.s.DspVisible = false;
    st.c.f.chkShowDSP.value = 1;
    chkShowDSP_Click(st.c);
    st.tick();
    frm450DSP_cmdClose_Click(st.c);
    EXPECT_EQ(st.c.f.chkShowDSP.value, 0);
    EXPECT_FALSE(st.c.frm450DSP.loaded);
    st.tick();
    EXPECT_FALSE(st.windows.shown(FormId::frm450DSP));
}

}  // namespace
}  // namespace veldor::test
