// The FT-450 DSP panel's requests, refused while the rig is busy.
#include "accessories/dsp_panel.h"
#include "cycle/poll_cycle.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

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

}  // namespace
}  // namespace veldor::test
