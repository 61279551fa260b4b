// Tuning by the step: alignment to the step, the knob and the wheel, the megahertz buttons and
// the VR-5000's step options.
#include "cycle/poll_cycle.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "protocol/write_frequency.h"
#include "support/fakes.h"
#include "tuning/go_to.h"
#include "tuning/steps.h"
#include "tuning/vr5000_steps.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// The step of a grid row, chosen as the operator chooses it.
void ChooseRow(Core& c, int row) {
    c.f.grdTuning.row = row;
    grdTuning_RowColChange(c);
}

TEST(TuningSteps, AlignTheFrequencyToTheStepAndStopAt100KHzGoingDown) {
    const struct {
        int32_t from;
        int row;
        int key;  // 37 left, 39 right
        int32_t to;
        const char* goTo;
    } cases[] = {
        {1425013, 1, 37, 1425000, "14.25000"}, {1425013, 1, 39, 1425020, "14.25020"},
        {1425013, 7, 39, 1425216, "14.25216"},  // 6.25k steps 624: 2284 x 624
        {1425013, 7, 37, 1423968, "14.23968"}, {10020, 3, 37, 10000, ".10000"},
        {10010, 0, 37, 10008, ".10008"},       {14557500, 18, 39, 14600000, "146.00000"},
    };
    for (const auto& t : cases) {
        Harness h;
        FillTuningSteps(h.c);
        ChooseRow(h.c, t.row);
        h.c.s.TuningFrequency = t.from;
        grdTuning_KeyDown(h.c, t.key);
        EXPECT_EQ(h.c.s.TuningFrequency, t.to) << t.from << " row " << t.row;
        EXPECT_EQ(h.c.f.txtGoToFreq.text, t.goTo);
        EXPECT_TRUE(h.c.s.GoToPending && h.c.s.StatusUpdateHeld);
    }
}

TEST(TuningSteps, TheFirstKeyMovesBy20HzUntilARowIsChosen) {
    Harness h;
    FillTuningSteps(h.c);
    EXPECT_EQ(h.c.f.grdTuning.rows.size(), 19);
    h.c.f.grdTuning.row = 10;  // shown, not chosen
    h.c.s.TuningFrequency = 700000;
    grdTuning_KeyDown(h.c, 39);
    EXPECT_EQ(h.c.s.TuningFrequency, 700002);
    grdTuning_KeyDown(h.c, 40);  // the down arrow is not a tuning key
    EXPECT_EQ(h.c.s.TuningFrequency, 700002);
    ChooseRow(h.c, 19);  // no such row: the step stays
    EXPECT_EQ(h.c.s.TuningStep, 2);
    grdTuning_KeyUp(h.c);
    EXPECT_FALSE(h.c.s.StatusUpdateHeld);
}

TEST(Knob, UpRaisesAndTheBarComesBackToTheMiddleAtItsEnds) {
    Harness h;
    FillTuningSteps(h.c);
    ChooseRow(h.c, 4);  // 1 kHz
    h.c.s.TuningFrequency = 700000;
    KnobWheel(h.c, 2);
    EXPECT_EQ(h.c.s.TuningFrequency, 700200);
    EXPECT_EQ(h.c.f.VScroll1.value, 16382);
    EXPECT_TRUE(h.c.s.KnobTuning);
    KnobWheel(h.c, -3);
    EXPECT_EQ(h.c.s.TuningFrequency, 699900);
    h.c.f.VScroll1.value = 0;  // dragged to the top
    VScroll1_Change(h.c);
    EXPECT_EQ(h.c.s.TuningFrequency, 700000);
    EXPECT_EQ(h.c.f.VScroll1.value, 16384);
    KnobWheel(h.c, -1);
    EXPECT_EQ(h.c.s.TuningFrequency, 699900);
}

// An FT-817 on the simulator, on 14.20000 MHz with a shifted channel and a tone, as a band
// memory would leave it, the tone state and shift sent.
struct Tuned : OnAir {
    Tuned() : OnAir(RigFT817) {
        FillTuningSteps(c);
        c.s.TargetFrequency = 1420000;
        c.s.TargetMode = "FM";
        c.s.TargetShift = "-";
        c.s.ToneCode = "8";
        c.s.ToneEncode = "1";
        c.s.FrequencyChangePending = true;
        tick();
        rig().clearTrace();
    }
};

TEST(Knob, ManyNotchesBetweenTicksGoOutAsOneFrequencyAndKeepTheChannel) {
    Tuned st;
    ChooseRow(st.c, 1);  // 100 Hz
    for (int i = 0; i < 4; ++i) KnobWheel(st.c, 1);
    st.tick();
    EXPECT_EQ(st.rigReceived().toHex(' '), "01 42 00 40 01");
    EXPECT_EQ(st.rig().state().frequencyHz, 14200400);
    EXPECT_EQ(st.c.s.TargetShift, "-");
    EXPECT_EQ(st.c.s.ToneEncode, "1");
    EXPECT_FALSE(st.c.s.KnobTuning);
    // A typed frequency is a new channel: simplex, no tone.
    st.c.f.txtGoToFreq.text = "14.2005";
    cmdGoToFreq_Click(st.c);
    st.tick();
    EXPECT_EQ(st.c.s.TargetShift, "0");
    EXPECT_EQ(st.c.s.ToneEncode, "0");
}

TEST(Knob, AStepAboveTheRigEndsInTheGoToMessage) {
    Tuned st;
    st.c.s.TuningFrequency = 5600000;  // the top of the FT-817's first range
    ChooseRow(st.c, 4);
    KnobWheel(st.c, 1);
    st.tick();
    ASSERT_EQ(st.dialogs.messages.size(), 1u);
    EXPECT_EQ(st.dialogs.messages[0].title, "Invalid frequency");
    EXPECT_EQ(st.c.s.TuningFrequency, 5600100);
    EXPECT_TRUE(st.rigReceived().isEmpty());
}

TEST(MhzButtons, StepTheRigsOwnFrequencyAtEveryTickWhateverThePolling) {
    Tuned st;
    cmdMhzPlus_Click(st.c);
    cmdMhzPlus_Click(st.c);  // two clicks between ticks count once
    cmdMhzMinus_Click(st.c);
    st.tick();
    // Plus, then minus; each acknowledged.
    EXPECT_EQ(st.rigReceived().toHex(' '), "01 52 00 00 01 01 42 00 00 01");
    EXPECT_EQ(st.c.f.txtVfoA.text, "14.200.00");
    EXPECT_EQ(st.c.s.TuningFrequency, 1420000);
    EXPECT_EQ(st.c.s.LastShiftSent, "-");  // no tone or shift is touched
}

TEST(MhzButtons, APlusOutOfRangeSendsNothingAndLeavesTheMinusWaiting) {
    Wire w(RigFT817, Bytes({0}));
    w.c.s.PollingDelay = 99;
    w.c.s.CurrentFrequency = 5550000;
    cmdMhzPlus_Click(w.c);
    cmdMhzMinus_Click(w.c);
    PerformStatusUpdate(w.c);
    EXPECT_TRUE(w.hex().isEmpty());
    EXPECT_FALSE(w.c.s.MhzPlusPending);
    EXPECT_TRUE(w.c.s.MhzMinusPending);
}

TEST(MhzButtons, TheVr5000RemembersTheTuneTargetAsItsChannel) {
    Wire w(RigVR5000);
    w.c.s.CurrentFrequency = 14557500;
    w.c.s.TargetFrequency = 43342500;
    cmdMhzMinus_Click(w.c);
    ApplyMhzStep(w.c);
    EXPECT_EQ(w.hex(), "00 dc 9a 9c 01");            // 144.57500 MHz in binary
    EXPECT_EQ(w.c.s.VR5000FrequencyMain, 43342500);  // deliberately the target
    EXPECT_EQ(w.stored("Settings", "VR5000LastFreqMode"), "<missing>");
}

TEST(Vr5000Steps, AnOptionStoresTheStepOfTheModeAndResendsTheMode) {
    const struct {
        void (*click)(Core&, int);
        const char* mode;
        int index;
        const char* codeKey;
        const char* code;
        const char* sizeKey;
        const char* size;
        int button;
        const char* sent;
    } cases[] = {
        {optLSBUSB_Click, "USB", 1, "StepUSB", "2", "MouseUSB", "10", 7, "01 02 00 00 07"},
        {optAM_Click, "WAM", 2, "StepWAM", "99", "MouseAMN", "900", 1, "44 63 00 00 07"},
        {optAM_Click, "AM", 0, "StepAM", "3", "MouseAMN", "100", 2, "04 03 00 00 07"},
        {optFMN_Click, "FMN", 1, "StepFMN", "83", "MouseFMN", "625", 10, "88 53 00 00 07"},
        {optWFM_Click, "WFM", 3, "StepWFM", "69", "MouseWFM", "50000", 3, "48 45 00 00 07"},
    };
    for (const auto& t : cases) {
        Wire w(RigVR5000);
        w.c.f.txtMode.text = t.mode;
        t.click(w.c, t.index);
        EXPECT_EQ(w.stored("Settings", t.codeKey), t.code) << t.mode;
        EXPECT_EQ(w.stored("Settings", t.sizeKey), t.size) << t.mode;
        EXPECT_EQ(w.c.s.VR5000Step, QString(t.size).toInt());
        ASSERT_TRUE(w.c.s.ModeButtonPending);
        EXPECT_EQ(w.c.s.ModeButtonIndex, t.button);
        ApplyModeButton(w.c);
        EXPECT_EQ(w.hex(), t.sent) << t.mode;
    }
}

TEST(Vr5000Steps, ClicksWhileTheOptionsAreSetOrInAnotherModeStoreNothing) {
    Wire w(RigVR5000);
    w.c.f.txtMode.text = "FMN";
    w.c.s.StepOptionsLocked = true;
    optFMN_Click(w.c, 0);
    EXPECT_FALSE(w.c.s.ModeButtonPending);
    w.c.s.StepOptionsLocked = false;
    optLSBUSB_Click(w.c, 4);
    EXPECT_TRUE(w.c.s.ModeButtonPending);  // the mode is sent again all the same
    EXPECT_EQ(w.stored("Settings", "StepLSB"), "<missing>");
    EXPECT_EQ(w.c.s.StepLSB, 33);
}

}  // namespace
}  // namespace veldor::test
