// The spectrum sweep: the picture's arithmetic at its edges, and sweeps on virtual time
// against the simulated FT-817, whose band has an S9+ carrier at 14.074 MHz.
#include "scan/spectrum.h"
#include "link/catalogue.h"
#include "scan/spectrum_math.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace veldor::test {
namespace {

TEST(SpectrumMath, PointsRoundHalfToEvenAndRefuseWhatTheScaleCannotHold) {
    EXPECT_EQ(SpectrumPointsFor(0, 10000, 100), 100);
    EXPECT_EQ(SpectrumPointsFor(0, 250, 100), 2);  // 2.5
    EXPECT_EQ(SpectrumPointsFor(0, 350, 100), 4);  // 3.5
    EXPECT_EQ(SpectrumPointsFor(0, 50, 50), 1);
    EXPECT_EQ(SpectrumPointsFor(0, 32767, 1), 32767);
    EXPECT_THROW(SpectrumPointsFor(0, 32768, 1), std::overflow_error);
    EXPECT_THROW(SpectrumPointsFor(0, 100, 0), std::domain_error);
    EXPECT_THROW(OnStepGrid(1407230, 0), std::domain_error);
}

TEST(SpectrumMath, GridCursorSliderAndTexts) {
    EXPECT_EQ(OnStepGrid(1407230, 100), 1407200);
    EXPECT_EQ(OnStepGrid(1407200, 100), 1407200);
    EXPECT_EQ(NextSweepFrequency(1407700, 100, 1407230, 1407730), 1407230);
    EXPECT_EQ(NextSweepFrequency(1407600, 100, 1407230, 1407730), 1407700);
    EXPECT_EQ(NextSweepFrequency(1407630, 100, 1407230, 1407730), 1407730);  // the edge is in
    EXPECT_EQ(FrequencyAtX(2.49, 50, 1000), 1100);
    EXPECT_EQ(FrequencyAtX(2.5, 50, 1000), 1150);
    EXPECT_EQ(SliderAt(1005, 1000, 10), 500);
    EXPECT_EQ(SliderAtPoint(1, 3), 333);
    EXPECT_EQ(SliderAtPoint(3, 3), 1000);
    // "0.5" parses as 50000 (MHz) and means 500 Hz; "25" parses as 2500 (kHz) as it stands.
    EXPECT_EQ(SpectrumTextValue("0.5", ".", 50000), 50);
    EXPECT_EQ(SpectrumTextValue("25", ".", 2500), 2500);
    EXPECT_EQ(SpectrumTextValue("0,5", ",", 50000), 50);
}

TEST(SpectrumMath, AMegahertzTextRoundsToTheNearestUnit) {
    EXPECT_EQ(SpectrumTextValue("0.0175", ".", 1750), 2);
    EXPECT_EQ(SpectrumTextValue("0.0125", ".", 1250), 1);
}

struct Sweep : OnAir {
    Sweep() : OnAir(RigFT817) {}
    void start() {
        cmdStartSpectrum_Click(c);
        tick();
    }
    int64_t point() {
        clock.now += 250;
        tick();
        return rig().state().frequencyHz;
    }
    std::vector<PictureBox::Stroke> strokes() {
        auto s = std::move(c.f.picSpectrum.strokes);
        c.f.picSpectrum.strokes.clear();
        return s;
    }
};

TEST(SpectrumSweep, AFirstStartTakesOneKilohertzOverAHundredAndToneOff) {
    Sweep sw;
    EXPECT_EQ(sw.c.f.cboSpectrumStep.text, "0.5");  // shown, but never read
    sw.rig().state().toneMode = "encode";
    sw.start();
    EXPECT_EQ(sw.rig().state().toneMode, "off");
    EXPECT_EQ(sw.c.s.SpectrumStepSize, 100);
    EXPECT_EQ(sw.c.f.cboSpectrumStep.text, "1.0");
    EXPECT_EQ(sw.c.f.cboSpectrumWidth.text, "100");
    EXPECT_EQ(sw.c.f.cboSpectrumStart.text, "14.25000");
    EXPECT_EQ(sw.c.s.SpectrumPoints, 100);
    EXPECT_EQ(sw.c.f.picSpectrum.scaleWidth, 100);
    EXPECT_FALSE(sw.c.f.chkOnOff.enabled);
    EXPECT_FALSE(sw.c.f.chkSplit.enabled);
    // Each point: the frequency and its acknowledgement, the S-meter; no mode, no tone.
    sw.rig().clearTrace();
    sw.point();
    EXPECT_EQ(sw.rigReceived().toHex(' '), "01 42 51 00 01 00 00 00 00 e7");
}

TEST(SpectrumSweep, PointsSitOnTheStepGridAndTheSweepWrapsToTheUnroundedStart) {
    Sweep sw;
    sw.c.s.SpectrumStepSize = 1;  // set before: the texts are read
    sw.c.s.SpectrumWidth = 1;
    sw.c.f.cboSpectrumStart.text = "14.0723";
    sw.c.f.cboSpectrumStep.text = "1.0";
    sw.c.f.cboSpectrumWidth.text = "5";
    sw.start();
    EXPECT_EQ(sw.c.s.SpectrumStepSize, 100);
    EXPECT_EQ(sw.c.s.SpectrumWidth, 500);
    EXPECT_EQ(sw.c.s.SpectrumPoints, 5);
    // The strokes as the view takes them, after each tick.
    auto strokes = sw.strokes();
    std::vector<int64_t> hz{sw.rig().state().frequencyHz};
    for (int i = 0; i < 12; ++i) {
        hz.push_back(sw.point());
        for (const PictureBox::Stroke& s : sw.strokes()) strokes.push_back(s);
    }
    EXPECT_EQ(hz, (std::vector<int64_t>{14072000, 14073000, 14074000, 14075000, 14076000, 14077000,
                                        14072000, 14073000, 14074000, 14075000, 14076000, 14077000,
                                        14072000}));
    EXPECT_EQ(sw.c.s.TargetFrequency, 1407300);
    // Two sweeps of six bars, cyan then orange over it, then cleared before the third: the
    // last orange bar goes with the picture, so the view never draws it.
    ASSERT_EQ(strokes.size(), 14u);
    EXPECT_TRUE(strokes[0].clear);
    for (size_t i = 1; i < 12; ++i) {
        EXPECT_FALSE(strokes[i].clear);
        EXPECT_EQ(strokes[i].x, int((i - 1) % 6));
        EXPECT_EQ(strokes[i].y1, 32);
        EXPECT_EQ(strokes[i].colour, i <= 6 ? LightCyan : Orange);
    }
    EXPECT_EQ(strokes[3].y2, 32 - 22);  // the carrier: S-meter 22 of 31
    EXPECT_TRUE(strokes[12].clear);
    EXPECT_EQ(strokes[13].colour, LightCyan);
    EXPECT_EQ(strokes[13].x, 0);
}

TEST(SpectrumSweep, AStepWiderThanTheWidthWarnsAndWaitsForStop) {
    Sweep sw;
    sw.c.s.SpectrumStepSize = 1;
    sw.c.s.SpectrumWidth = 1;
    sw.c.f.cboSpectrumStep.text = "10";
    sw.c.f.cboSpectrumWidth.text = "5";
    sw.start();
    ASSERT_EQ(sw.dialogs.messages.size(), 1u);
    EXPECT_EQ(sw.dialogs.messages[0].text, "Step size must be no greater than the spectrum width");
    EXPECT_TRUE(sw.c.s.SpectrumRunning);
    EXPECT_FALSE(sw.c.f.chkOnOff.enabled);
    EXPECT_EQ(sw.c.s.SpectrumPoints, 0);
    sw.strokes();
    sw.point();
    EXPECT_TRUE(sw.strokes().empty());  // no points: nothing drawn
    cmdStopSpectrum_Click(sw.c);
    EXPECT_FALSE(sw.c.s.SpectrumRunning);
    EXPECT_TRUE(sw.c.f.chkOnOff.enabled);
    EXPECT_TRUE(sw.c.f.chkTransmitEnable.enabled);
}

TEST(SpectrumSweep, AClickTunesAtTheNextReadingAndTheSweepStaysPaused) {
    Sweep sw;
    sw.c.s.PollingDelay = 0;
    sw.start();
    sw.point();
    picSpectrum_MouseDown(sw.c, SpectrumLeft, 0, 5.4);
    EXPECT_TRUE(sw.c.s.SpectrumPaused);
    EXPECT_EQ(sw.c.s.SpectrumCursorFrequency, 1425500);
    const int64_t was = sw.point();  // held: nothing moves
    EXPECT_EQ(was, sw.point());
    picSpectrum_MouseUp(sw.c);
    EXPECT_EQ(sw.point(), 14'255'000);
    EXPECT_EQ(sw.c.f.txtVfoA.text, sw.c.f.txtSpectrumFreq.text);
    EXPECT_EQ(sw.c.f.sldFrequency.value, 50);
    EXPECT_EQ(sw.point(), 14'255'000);  // still paused
    // A right drag moves the cursor 20 Hz a message, 40 with Ctrl held at mouse down.
    picSpectrum_MouseDown(sw.c, SpectrumRight, CtrlMask, 10.0);
    picSpectrum_MouseMove(sw.c, SpectrumRight, 0, 11.0);
    EXPECT_EQ(sw.rig().state().frequencyHz, 14'255'040);
    picSpectrum_MouseMove(sw.c, SpectrumRight, 0, 11.0);
    EXPECT_EQ(sw.rig().state().frequencyHz, 14'255'000);
    picSpectrum_MouseUp(sw.c);
    // Hovering only reads out.
    picSpectrum_MouseMove(sw.c, 0, 0, 50.0);
    EXPECT_EQ(sw.c.f.txtSpectrumFreq.text, "14.300.00");
    EXPECT_EQ(sw.rig().state().frequencyHz, 14'255'000);
    cmdSpectrumResume_Click(sw.c);
    EXPECT_EQ(sw.point(), 14'252'000);  // on from where the sweep was, not from the click
}

TEST(SpectrumSweep, TheIdlePictureTunesByTheTuningStep) {
    struct Case {
        int button, shift;
        int32_t change;  // per message, from a step of 100 (1 kHz)
    };
    for (const Case& t : {Case{SpectrumLeft, 0, 100}, Case{SpectrumLeft, CtrlMask, 400},
                          Case{SpectrumRight, 0, 20}, Case{SpectrumRight, CtrlMask, 50}}) {
        Sweep sw;
        sw.c.s.TuningStep = 100;
        sw.c.s.TuningFrequency = 1425000;
        picSpectrum_MouseDown(sw.c, t.button, t.shift, 10);
        picSpectrum_MouseMove(sw.c, t.button, 0, 12);
        picSpectrum_MouseMove(sw.c, t.button, 0, 14);
        picSpectrum_MouseMove(sw.c, t.button, 0, 13);
        EXPECT_EQ(sw.rig().state().frequencyHz, 14'250'000 + 10 * t.change)
            << t.button << " " << t.shift;
        EXPECT_EQ(sw.c.f.txtSpectrumFreq.text, sw.c.f.txtVfoA.text);
    }
}

}  // namespace
}  // namespace veldor::test
