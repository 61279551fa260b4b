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
        int32_t frequency;
        const char* message;  // the box shown, empty for none
    } cases[] = {
        {'.', "14250", 1425000, ""},
        {'.', "7.1234", 712340, ""},
        {'.', "7.0501234", 705012, ""},  // beyond the fifth digit: dropped, not rounded
        {'.', "14,25", -1, "Not a numeric number"},
        {'.', "14.", -1, "Error converting from string 14."},
        {'.', "99999999", -1, "Error converting from string 99999999"},
        {',', "14,25", 1425000, ""},
        {',', "14.25", -1, "Not a numeric number"},
    };
    for (const auto& t : cases) {
        SCOPED_TRACE(testing::Message() << t.mark << t.text);
        Locale h(t.mark);
        EXPECT_EQ(ParseFrequency(h.c, t.text), t.frequency);
        EXPECT_EQ(h.dialogs.messages.empty() ? "" : h.dialogs.messages[0].text, t.message);
    }
}

TEST(DefaultRepeaterOffset, GivesTheUsualOffsetOfEachBandEdge) {
    const struct {
        int32_t frequency;
        const char *point, *comma;
    } cases[] = {
        {42000000, "5.00000", "5,00000"}, {41999999, ".60000", ",60000"},
        {13700000, ".60000", ",60000"},   {13699999, ".00000", ",00000"},
        {7600000, ".00000", ",00000"},    {7599999, "1.00000", "1,00000"},
        {3300000, "1.00000", "1,00000"},  {3299999, ".10000", ",10000"},
    };
    Locale point('.');
    Locale comma(',');
    for (const auto& t : cases) {
        EXPECT_EQ(DefaultRepeaterOffset(point.c, t.frequency), t.point);
        EXPECT_EQ(DefaultRepeaterOffset(comma.c, t.frequency), t.comma);
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

TEST(MhzButtons, StepTheRigsOwnFrequencyWhateverThePolling) {
    Wire w(RigFT817, Bytes({0}));
    w.c.s.PollingDelay = 99;
    w.c.s.CurrentFrequency = 1420000;
    cmdMhzPlus_Click(w.c);
    cmdMhzMinus_Click(w.c);
    PerformStatusUpdate(w.c);
    EXPECT_EQ(w.hex(), "01 52 00 00 01 01 42 00 00 01");  // plus, then minus
    EXPECT_EQ(w.c.f.txtVfoA.text, "14.200.00");
}

TEST(Vr5000Steps, AnOptionStoresTheStepOfTheModeAndResendsTheMode) {
    const struct {
        void (*click)(Core&, int);
        const char* mode;
        int index;
        const char *codeKey, *code, *sizeKey, *size, *sent;
    } cases[] = {
        {optLSBUSB_Click, "USB", 1, "StepUSB", "2", "MouseUSB", "10", "01 02 00 00 07"},
        {optWFM_Click, "WFM", 3, "StepWFM", "69", "MouseWFM", "50000", "48 45 00 00 07"},
    };
    for (const auto& t : cases) {
        Wire w(RigVR5000);
        w.c.f.txtMode.text = t.mode;
        t.click(w.c, t.index);
        SCOPED_TRACE(t.mode);
        EXPECT_EQ(w.stored("Settings", t.codeKey), t.code);
        EXPECT_EQ(w.stored("Settings", t.sizeKey), t.size);
        ASSERT_TRUE(w.c.s.ModeButtonPending);
        w.c.s.StepOptionsLocked = true;  // while ShowVR5000Steps sets them, clicks do nothing
        t.click(w.c, 0);
        EXPECT_EQ(w.stored("Settings", t.codeKey), t.code);
        ApplyModeButton(w.c);
        EXPECT_EQ(w.hex(), t.sent);
    }
}

}  // namespace
}  // namespace veldor::test
