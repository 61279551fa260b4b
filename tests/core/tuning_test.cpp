// Operator tuning: typed frequencies in both locales, the GoTo's boxes, the VR-5000's channel
// at switch-on, the transverter display, alignment to the step, the knob, the megahertz
// buttons and the VR-5000's step options.
#include "basic/basic.h"
#include "cycle/poll_cycle.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "protocol/read_frequency.h"
#include "protocol/write_frequency.h"
#include "support/fakes.h"
#include "tuning/go_to.h"
#include "tuning/steps.h"
#include "tuning/transverter.h"
#include "tuning/vr5000_steps.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// A fresh core on a system whose decimal mark is the one given.
struct Locale : Harness {
    explicit Locale(char mark) {
        system.decimalMark = QLatin1Char(mark);
        InitialiseVariables(c);
    }
    ~Locale() { basic::SetDecimalMark('.'); }
};

TEST(ParseFrequency, ReadsMegahertzWithTheMarkAndKilohertzWithout) {
    const struct {
        char mark;
        const char* text;
        bool quiet;
        int32_t frequency;
        const char* message;  // the box shown, empty for none
    } cases[] = {
        {'.', "14250", false, 1425000, ""},
        {'.', ".5", false, 50000, ""},
        {'.', "7.1234", false, 712340, ""},
        {'.', "7.0501234", false, 705012, ""},  // beyond the fifth digit: dropped, not rounded
        {'.', "14,25", false, -1, "Not a numeric number"},
        {'.', "abc", true, -1, ""},
        {'.', "14.", false, -1, "Error converting from string 14."},
        {'.', "99999999", false, -1, "Error converting from string 99999999"},
        {',', "14,25", false, 1425000, ""},
        {',', ",5", false, 50000, ""},
        {',', "14.25", false, -1, "Not a numeric number"},
    };
    for (const auto& t : cases) {
        Locale h(t.mark);
        EXPECT_EQ(ParseFrequency(h.c, t.text, t.quiet), t.frequency) << t.mark << t.text;
        const QString shown = h.dialogs.messages.empty() ? "" : h.dialogs.messages[0].text;
        EXPECT_EQ(shown, t.message) << t.text;
    }
}

TEST(DefaultRepeaterOffset, GivesTheUsualOffsetOfEachBandEdge) {
    const struct {
        int32_t frequency;
        const char *point, *comma, *goToOffset;  // the offset in kHz, as a typed GoTo sets it
    } cases[] = {
        {42000000, "5.00000", "5,00000", "5000"}, {41999999, ".60000", ",60000", "600"},
        {13700000, ".60000", ",60000", "600"},    {13699999, ".00000", ",00000", "0"},
        {7600000, ".00000", ",00000", "0"},       {7599999, "1.00000", "1,00000", "1000"},
        {3300000, "1.00000", "1,00000", "1000"},  {3299999, ".10000", ",10000", "100"},
    };
    Locale point('.');
    Locale comma(',');
    comma.c.f.chkOnOff.value = 1;
    for (const auto& t : cases) {
        EXPECT_EQ(DefaultRepeaterOffset(point.c, t.frequency), t.point);
        EXPECT_EQ(DefaultRepeaterOffset(comma.c, t.frequency), t.comma);
        comma.c.f.txtGoToFreq.text = QString::number(t.frequency / 100);  // kHz
        ApplyGoTo(comma.c);
        EXPECT_EQ(comma.c.s.TargetOffset, t.goToOffset) << t.frequency;
    }
}

TEST(GoTo, BadTextGoesBackToTheOperatorWithItsBox) {
    const struct {
        const char *text, *title, *message;
    } cases[] = {
        {"14.2x", "Invalid number", "Go To frequency is not a numeric value - please retry"},
        {"60.5u", "Invalid frequency",
         "You have entered a GoTo frequency outside the range of the rig - please retry"},
    };
    for (const auto& t : cases) {
        Wire w(RigFT817);
        w.c.f.txtGoToFreq.text = t.text;
        ApplyGoTo(w.c);
        ASSERT_EQ(w.dialogs.messages.size(), 1u) << t.text;
        EXPECT_EQ(w.dialogs.messages[0].title, t.title);
        EXPECT_EQ(w.dialogs.messages[0].text, t.message);
        EXPECT_EQ(w.c.focusRequest, &w.c.f.txtGoToFreq);
        EXPECT_TRUE(w.hex().isEmpty());
    }
}

TEST(Vr5000, GoesAtSwitchOnToTheChannelLastSentToIt) {
    Station st(RigVR5000);
    st.setting("VR5000LastFreqMode", "14.250u00");
    st.load();
    st.switchOn();
    st.rig().clearTrace();
    st.c.s.PollingDelay = 99;
    tmrPollInterval_Timer(st.c);
    // USB with its stored step code 21, then 14.25000 MHz in binary.
    EXPECT_EQ(st.rigReceived().toHex(' '), "01 21 00 00 07 00 15 be 68 01");
    EXPECT_EQ(st.c.f.txtVfoA.text, "14.250.00");
    EXPECT_EQ(st.c.f.txtMode.text, "USB");
}

// The base typed in MHz or kHz, the rig's frequency added or subtracted.
TEST(Transverter, ShowsTheRigFrequencyOnTheTransvertersBand) {
    const struct {
        char mark;
        int option;
        const char* base;
        int32_t frequency;
        const char *shown, *baseShown;
    } cases[] = {
        {'.', 0, "116.0", 2825000, "000.144.250.00", "00116.00000"},
        {',', 0, "116,0", 2825000, "000,144,250,00", "00116,00000"},
        {'.', 1, "42000", 2800000, "000.014.000.00", "00042.00000"},
        {'.', 1, "28", 2801, "Error", "00000.02800"},
    };
    for (const auto& t : cases) {
        Locale h(t.mark);
        h.c.f.optXvtr[0].value = t.option == 0;
        h.c.f.optXvtr[1].value = t.option == 1;
        optXvtr_Click(h.c, t.option);
        mnuXvtr_Click(h.c);
        txtXvtrBase_GotFocus(h.c);
        h.c.f.txtXvtrBase.text = t.base;
        int key = 13;
        txtXvtrBase_KeyPress(h.c, key);
        FormatFrequency(h.c, t.frequency);
        EXPECT_EQ(h.c.f.txtXvtr.text, t.shown);
        EXPECT_EQ(h.c.f.txtXvtrBase.text, t.baseShown);
    }
    Locale h('.');
    h.c.f.txtXvtrBase.text = "116.0x";
    txtXvtrBase_Validate(h.c);
    ASSERT_EQ(h.dialogs.messages.size(), 1u);
    EXPECT_EQ(h.dialogs.messages[0].title, "Invalid number");
    EXPECT_EQ(h.dialogs.messages[0].text,
              "You have entered a non numeric value for the Transverter Base frequency - please "
              "retry");
    EXPECT_EQ(h.c.focusRequest, &h.c.f.txtXvtrBase);
}

// The step of a grid row, chosen as the operator chooses it.
void ChooseRow(Core& c, int row) {
    c.f.grdTuning.row = row;
    grdTuning_RowColChange(c);
}

// Until a row is chosen (-1 here) the step is 20 Hz, whatever row the grid shows.
TEST(TuningSteps, AlignTheFrequencyToTheStepAndStopAt100KHzGoingDown) {
    const struct {
        int32_t from;
        int row, key;  // key 37 left, 39 right
        int32_t to;
        const char* goTo;
    } cases[] = {
        {1425013, 1, 37, 1425000, "14.25000"},     {1425013, 1, 39, 1425020, "14.25020"},
        {1425013, 7, 39, 1425216, "14.25216"},  // 6.25k steps 624: 2284 x 624
        {1425013, 7, 37, 1423968, "14.23968"},     {10020, 3, 37, 10000, ".10000"},
        {14557500, 18, 39, 14600000, "146.00000"}, {700000, -1, 39, 700002, "7.00002"},
    };
    for (const auto& t : cases) {
        Harness h;
        if (t.row >= 0) ChooseRow(h.c, t.row);
        h.c.s.TuningFrequency = t.from;
        grdTuning_KeyDown(h.c, t.key);
        EXPECT_EQ(h.c.s.TuningFrequency, t.to) << t.from << " row " << t.row;
        EXPECT_EQ(h.c.f.txtGoToFreq.text, t.goTo);
        EXPECT_TRUE(h.c.s.GoToPending && h.c.s.StatusUpdateHeld);
        grdTuning_KeyUp(h.c);
        EXPECT_FALSE(h.c.s.StatusUpdateHeld);
    }
}

TEST(Knob, UpRaisesAndTheBarComesBackToTheMiddleAtItsEnds) {
    Harness h;
    ChooseRow(h.c, 4);  // 1 kHz
    h.c.s.TuningFrequency = 700000;
    KnobWheel(h.c, 2);
    EXPECT_EQ(h.c.s.TuningFrequency, 700200);
    EXPECT_EQ(h.c.f.VScroll1.value, 16382);
    h.c.f.VScroll1.value = 0;  // dragged to the top
    VScroll1_Change(h.c);
    EXPECT_EQ(h.c.f.VScroll1.value, 16384);
    KnobWheel(h.c, -2);
    EXPECT_EQ(h.c.s.TuningFrequency, 700100);
}

TEST(MhzButtons, StepTheRigsOwnFrequencyWhateverThePolling) {
    Wire w(RigFT817, Bytes({0}));
    w.c.s.PollingDelay = 99;
    w.c.s.CurrentFrequency = 1420000;
    cmdMhzPlus_Click(w.c);
    cmdMhzMinus_Click(w.c);
    PerformStatusUpdate(w.c);
    EXPECT_EQ(w.hex(), "01 52 00 00 01 01 42 00 00 01");  // plus, then minus
    EXPECT_EQ(w.c.f.txtVfoA.text, "14.200.00");
    // A plus beyond the rig sends nothing and leaves the minus waiting.
    w.clear();
    w.c.s.CurrentFrequency = 5550000;
    cmdMhzPlus_Click(w.c);
    cmdMhzMinus_Click(w.c);
    ApplyMhzStep(w.c);
    EXPECT_TRUE(w.hex().isEmpty());
    EXPECT_TRUE(w.c.s.MhzMinusPending);
}

TEST(Vr5000Steps, AnOptionStoresTheStepOfTheModeAndResendsTheMode) {
    const struct {
        void (*click)(Core&, int);
        const char* mode;
        int index;
        const char *codeKey, *code, *sizeKey, *size, *sent;
    } cases[] = {
        {optLSBUSB_Click, "USB", 1, "StepUSB", "2", "MouseUSB", "10", "01 02 00 00 07"},
        {optAM_Click, "WAM", 2, "StepWAM", "99", "MouseAMN", "900", "44 63 00 00 07"},
        {optFMN_Click, "FMN", 1, "StepFMN", "83", "MouseFMN", "625", "88 53 00 00 07"},
        {optWFM_Click, "WFM", 3, "StepWFM", "69", "MouseWFM", "50000", "48 45 00 00 07"},
    };
    for (const auto& t : cases) {
        Wire w(RigVR5000);
        w.c.f.txtMode.text = t.mode;
        t.click(w.c, t.index);
        EXPECT_EQ(w.stored("Settings", t.codeKey), t.code) << t.mode;
        EXPECT_EQ(w.stored("Settings", t.sizeKey), t.size) << t.mode;
        ASSERT_TRUE(w.c.s.ModeButtonPending);
        w.c.s.StepOptionsLocked = true;  // while ShowVR5000Steps sets them, clicks do nothing
        t.click(w.c, 0);
        EXPECT_EQ(w.stored("Settings", t.codeKey), t.code);
        ApplyModeButton(w.c);
        EXPECT_EQ(w.hex(), t.sent) << t.mode;
    }
}

}  // namespace
}  // namespace veldor::test
