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
    lblContour_Click(w.c, 4);
    lblContourFreq_Click(w.c, 2);
    lbl450Notch_Click(w.c);
    cmdVM_Click(w.c);
    tmrPollInterval_Timer(w.c);
    EXPECT_TRUE(w.text().startsWith("VM;BP00000;RL007;BP01045;CO0001;CO0108;")) << w.text().data();
}

TEST(DspPanel, RequestsAreDroppedWhileTransmittingScanningOrSweeping) {
    for (bool State::*job : {&State::Transmitting, &State::ScanRunning, &State::SpectrumRunning}) {
        Wire w(RigFT450);
        w.c.s.*job = true;
        // Held, so that the tick runs neither the scan nor the sweep.
        w.c.s.ScanHold = w.c.s.SpectrumPaused = w.c.s.SpectrumMouseHeld = true;
        w.c.s.PollingDelay = 99;
        for (auto click :
             {cmdVM_Click, lbl450NoiseBlanker_Click, sldNotch_Change, sldAFGain_Change})
            click(w.c);
        lblContourFreq_Click(w.c, 1);
        tmrPollInterval_Timer(w.c);
        EXPECT_TRUE(w.text().isEmpty()) << w.text().data();
        EXPECT_FALSE(w.c.s.PendingFT450AFGain || w.c.s.PendingFT450ContourFreq);
    }
}

struct Ft450Panel : OnAir {
    Ft450Panel() : OnAir(RigFT450) { c.s.DspVisible = true; }
    void reading() {
        rig().clearTrace();
        mnuPollingUpdateNow_Click(c);
        tick();
    }
};

TEST(DspPanel, TheReadingShowsTheRigsDspState) {
    Ft450Panel st;
    sim::RigState& r = st.rig().state();
    r.noiseReduction = r.notch = r.sqlIsRfGain = true;
    r.nrLevel = 9;
    r.notchHz = 250;
    r.width = 31;
    r.contour = "CO00-1";
    r.contourFrequency = "CO0120";
    st.reading();
    const Frm450DSP& d = st.c.frm450DSP;
    EXPECT_EQ(d.lbl450NoiseBlanker.backColour, White);
    EXPECT_EQ(d.lbl450NoiseReduction.backColour, Green);
    EXPECT_EQ(d.lbl450Notch.backColour, Green);
    EXPECT_EQ((std::vector<int>{d.sldNoiseReduction.value, d.sldNotch.value, d.sldFilter.value}),
              (std::vector<int>{9, 250, 3}));
    EXPECT_EQ(d.lblContour[2].backColour, Green);      // "-6"
    EXPECT_EQ(d.lblContourFreq[4].backColour, Green);  // "2k"
    EXPECT_EQ(d.lblSqlRFGain.caption, "RF Gain");
    // With the contour off, its frequency is not asked.
    r.contour = "CO0000";
    st.reading();
    EXPECT_EQ(d.lblContour[3].backColour, Green);
    EXPECT_FALSE(st.rigReceived().contains("CO01;"));
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
    EXPECT_EQ(d.lbl450NoiseBlanker.backColour, Green);  // the lights go on being read
    DspSlider_MouseUp(st.c);
    st.reading();
    EXPECT_EQ(d.sldAFGain.value, 120);
}

TEST(DspPanel, OpensWithTheBoxFollowsTheMainWindowAndHidesWhileItIsMinimised) {
    Ft450Panel st;
    st.c.s.DspVisible = false;
    Form1& f = st.c.f;
    const Frm450DSP& d = st.c.frm450DSP;
    f.chkShowDSP.value = 1;
    chkShowDSP_Click(st.c);
    f.left = 45000;
    f.top = 3000;
    st.tick();
    ASSERT_TRUE(st.windows.shown(FormId::frm450DSP));
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
}

}  // namespace
}  // namespace veldor::test
