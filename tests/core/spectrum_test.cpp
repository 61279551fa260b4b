// The spectrum sweep: the picture's arithmetic at its edges, and sweeps on virtual time
// against the simulated FT-817, whose band has an S9+ carrier at 14.074 MHz.
#include "scan/spectrum.h"
#include "link/catalogue.h"
#include "scan/spectrum_math.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

namespace veldor::test {
namespace {

TEST(SpectrumMath, PointsRoundHalfToEvenAndRefuseWhatTheScaleCannotHold) {
    EXPECT_EQ(SpectrumPointsFor(0, 250, 100), 2);  // 2.5
    EXPECT_EQ(SpectrumPointsFor(0, 350, 100), 4);  // 3.5
    EXPECT_EQ(SpectrumPointsFor(0, 32767, 1), 32767);
    EXPECT_THROW(SpectrumPointsFor(0, 32768, 1), std::overflow_error);
    EXPECT_THROW(SpectrumPointsFor(0, 100, 0), std::domain_error);
    EXPECT_THROW(OnStepGrid(1407230, 0), std::domain_error);
}

TEST(SpectrumMath, GridCursorSliderAndTexts) {
    EXPECT_EQ(OnStepGrid(1407230, 100), 1407200);
    EXPECT_EQ(NextSweepFrequency(1407700, 100, 1407230, 1407730), 1407230);
    EXPECT_EQ(NextSweepFrequency(1407630, 100, 1407230, 1407730), 1407730);  // the edge is in
    EXPECT_EQ(FrequencyAtX(2.49, 50, 1000), 1100);
    EXPECT_EQ(FrequencyAtX(2.5, 50, 1000), 1150);
    EXPECT_EQ(SliderAt(1005, 1000, 10), 500);
    EXPECT_EQ(SliderAtPoint(1, 3), 333);
    // "0.5" parses as 50000 (MHz) and means 500 Hz, rounded to the nearest unit; "25" parses
    // as 2500 (kHz) as it stands.
    EXPECT_EQ(SpectrumTextValue("0.5", ".", 50000), 50);
    EXPECT_EQ(SpectrumTextValue("0.0175", ".", 1750), 2);
    EXPECT_EQ(SpectrumTextValue("0.0125", ".", 1250), 1);
    EXPECT_EQ(SpectrumTextValue("25", ".", 2500), 2500);
    EXPECT_EQ(SpectrumTextValue("0,5", ",", 50000), 50);
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
    std::vector<PictureBox::Stroke> strokes() { return std::exchange(c.f.picSpectrum.strokes, {}); }
};

TEST(SpectrumSweep, AFirstStartTakesOneKilohertzOverAHundredAndToneOff) {
    Sweep sw;
    sw.rig().state().toneMode = "encode";
    sw.start();
    EXPECT_EQ(sw.rig().state().toneMode, "off");
    EXPECT_EQ(sw.c.s.SpectrumStepSize, 100);
    EXPECT_EQ(sw.c.f.cboSpectrumStart.text, "14.25000");
    EXPECT_EQ(sw.c.s.SpectrumPoints, 100);
    // Each point: the frequency and its acknowledgement, the S-meter; no mode, no tone.
    sw.rig().clearTrace();
    sw.point();
    EXPECT_EQ(sw.rigReceived().toHex(' '), "01 42 51 00 01 00 00 00 00 e7");
}

TEST(SpectrumSweep, PointsSitOnTheStepGridAndTheSweepWrapsToTheUnroundedStart) {
    Sweep sw;
    sw.c.s.SpectrumStepSize = sw.c.s.SpectrumWidth = 1;  // not a first start: the texts are read
    sw.c.f.cboSpectrumStart.text = "14.0723";
    sw.c.f.cboSpectrumStep.text = "1.0";
    sw.c.f.cboSpectrumWidth.text = "5";
    sw.start();
    EXPECT_EQ(sw.c.s.SpectrumPoints, 5);
    auto strokes = sw.strokes();
    std::vector<int64_t> hz{sw.rig().state().frequencyHz};
    for (int i = 0; i < 12; ++i) {
        hz.push_back(sw.point());
        for (const PictureBox::Stroke& s : sw.strokes()) strokes.push_back(s);
    }
    EXPECT_EQ(hz, (std::vector<int64_t>{14072000, 14073000, 14074000, 14075000, 14076000, 14077000,
                                        14072000, 14073000, 14074000, 14075000, 14076000, 14077000,
                                        14072000}));
    // Two sweeps of six bars, cyan then orange over it, then cleared before the third.
    ASSERT_EQ(strokes.size(), 14u);
    for (size_t i = 1; i < 12; ++i) {
        EXPECT_EQ(strokes[i].x, int((i - 1) % 6));
        EXPECT_EQ(strokes[i].colour, i <= 6 ? LightCyan : Orange);
    }
    EXPECT_EQ(strokes[3].y2, 32 - 22);  // the carrier: S-meter 22 of 31
    EXPECT_TRUE(strokes[12].clear);
}

TEST(SpectrumSweep, AStepWiderThanTheWidthWarnsAndWaitsForStop) {
    Sweep sw;
    sw.c.s.SpectrumStepSize = sw.c.s.SpectrumWidth = 1;
    sw.c.f.cboSpectrumStep.text = "10";
    sw.c.f.cboSpectrumWidth.text = "5";
    sw.start();
    ASSERT_EQ(sw.dialogs.messages.size(), 1u);
    EXPECT_EQ(sw.dialogs.messages[0].text, "Step size must be no greater than the spectrum width");
    sw.strokes();
    sw.point();
    EXPECT_TRUE(sw.strokes().empty());  // no points: nothing drawn
    cmdStopSpectrum_Click(sw.c);
    EXPECT_TRUE(sw.c.f.chkOnOff.enabled);
}

}  // namespace
}  // namespace veldor::test
