// Typed frequencies in both locales, the GoTo of the tick with its letters and refusals, the
// large GoTo box, and the transverter display.
#include "tuning/go_to.h"
#include "basic/basic.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "protocol/read_frequency.h"
#include "protocol/transverter.h"
#include "support/fakes.h"
#include "tuning/transverter.h"

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

struct ParseCase {
    char mark;
    const char* text;
    bool quiet;
    int32_t frequency;
    const char* message;  // the box shown, empty for none
};

TEST(ParseFrequency, ReadsMegahertzWithTheMarkAndKilohertzWithout) {
    const ParseCase cases[] = {
        {'.', "14250", false, 1425000, ""},
        {'.', " 14.25 ", false, 1425000, ""},
        {'.', ".5", false, 50000, ""},
        {'.', "7.1", false, 710000, ""},
        {'.', "7.123", false, 712300, ""},
        {'.', "7.1234", false, 712340, ""},
        {'.', "7.0501234", false, 705012, ""},  // beyond the fifth digit: dropped, not rounded
        {'.', "145.57599", false, 14557599, ""},
        {'.', "14,25", false, -1, "Not a numeric number"},
        {'.', "abc", true, -1, ""},
        {'.', "14.", false, -1, "Error converting from string 14."},
        {'.', "99999999", false, -1, "Error converting from string 99999999"},
        {',', "14,25", false, 1425000, ""},
        {',', ",5", false, 50000, ""},
        {',', "14250", false, 1425000, ""},
        {',', "14.25", false, -1, "Not a numeric number"},
    };
    for (const ParseCase& t : cases) {
        Locale h(t.mark);
        EXPECT_EQ(ParseFrequency(h.c, t.text, t.quiet), t.frequency) << t.mark << t.text;
        const QString shown = h.dialogs.messages.empty() ? "" : h.dialogs.messages[0].text;
        EXPECT_EQ(shown, t.message) << t.text;
    }
}

TEST(DefaultRepeaterOffset, GivesTheUsualOffsetOfEachBandEdge) {
    const struct {
        int32_t frequency;
        const char* point;
        const char* comma;
    } cases[] = {
        {42000000, "5.00000", "5,00000"}, {41999999, ".60000", ",60000"},
        {13700000, ".60000", ",60000"},   {13699999, ".00000", ",00000"},
        {7600000, ".00000", ",00000"},    {7599999, "1.00000", "1,00000"},
        {3300000, "1.00000", "1,00000"},  {3299999, ".10000", ",10000"},
    };
    Locale point('.');
    for (const auto& t : cases) EXPECT_EQ(DefaultRepeaterOffset(point.c, t.frequency), t.point);
    Locale comma(',');
    for (const auto& t : cases) EXPECT_EQ(DefaultRepeaterOffset(comma.c, t.frequency), t.comma);
}

// A connected FT-817 on the simulator, the GoTo box filled and sent by Enter.
struct GoToRig : OnAir {
    GoToRig() : OnAir(RigFT817) {}
    void go(const QString& text) {
        c.f.txtGoToFreq.text = text;
        int key = 13;
        txtGoToFreq_KeyPress(c, key);
        EXPECT_EQ(key, 0);  // swallowed
        tick();
    }
};

TEST(GoTo, AModeLetterSendsModeThenFrequencyThenASimplexChannel) {
    GoToRig st;
    st.c.s.TargetShift = "+";
    st.c.s.ToneEncode = "1";
    st.go("7.074l");
    // FT-817: mode LSB, 7.07400 MHz, tone off, simplex; each acknowledged, nothing read back.
    EXPECT_EQ(st.rigReceived().toHex(' '),
              "00 00 00 00 07 00 70 74 00 01 8a 00 00 00 0a 89 00 00 00 09");
    EXPECT_EQ(st.rig().state().frequencyHz, 7074000);
    EXPECT_EQ(st.rig().state().mode, "LSB");
    EXPECT_EQ(st.c.f.txtVfoA.text, "7.074.00");
    EXPECT_EQ(st.c.s.DisplayFrequencyText, "7.074.00");
    EXPECT_EQ(st.c.s.TargetOffset, "100");
    EXPECT_EQ(st.c.s.ToneEncode, "0");
}

TEST(GoTo, TheLettersNameTheirModesWhateverTheirCase) {
    const std::pair<const char*, const char*> cases[] = {
        {"14.2u", "USB"},  {"7.03C", "CW"},   {"29.6f", "FM"}, {"7.1a", "AM"},
        {"14.07d", "DIG"}, {"144.8P", "PKT"}, {"88.1w", "FM"}, {"14.2", "USB"}};
    for (auto [text, mode] : cases) {
        GoToRig st;
        st.go(text);
        EXPECT_EQ(st.rig().state().mode, mode) << text;
    }
}

TEST(GoTo, TheTypedOffsetIsTheBandsUsualOneInKilohertz) {
    const std::pair<const char*, const char*> cases[] = {
        {"433.5", "5000"}, {"145.6", "600"}, {"51.5", "1000"}, {"29.6", "100"}};
    for (auto [text, offset] : cases) {
        Locale h(',');
        h.c.s.RigType = RigFT847;
        QString typed = text;
        h.c.f.txtGoToFreq.text = typed.replace('.', ',');
        h.c.f.chkOnOff.value = 1;
        ApplyGoTo(h.c);
        EXPECT_EQ(h.c.s.TargetOffset, offset) << text;
    }
}

TEST(GoTo, BadTextGoesBackToTheOperatorWithItsBox) {
    const struct {
        const char* text;
        const char* title;
        const char* message;
    } cases[] = {
        {"14.2x", "Invalid number", "Go To frequency is not a numeric value - please retry"},
        {"60.5u", "Invalid frequency",
         "You have entered a GoTo frequency outside the range of the rig - please retry"},
    };
    for (const auto& t : cases) {
        GoToRig st;
        st.go(t.text);
        ASSERT_EQ(st.dialogs.messages.size(), 1u) << t.text;
        EXPECT_EQ(st.dialogs.messages[0].title, t.title);
        EXPECT_EQ(st.dialogs.messages[0].text, t.message);
        EXPECT_EQ(st.c.focusRequest, &st.c.f.txtGoToFreq);
        EXPECT_EQ(st.c.f.txtGoToFreq.text, t.text);
        EXPECT_TRUE(st.rigReceived().isEmpty());
    }
}

TEST(GoTo, WhileTransmittingTheTextWaitsForTheNextGoTo) {
    GoToRig st;
    st.c.s.Transmitting = true;
    st.c.f.txtGoToFreq.text = "7.1";
    cmdGoToFreq_Click(st.c);
    st.tick();
    EXPECT_FALSE(st.c.s.GoToPending);
    EXPECT_EQ(st.c.f.txtGoToFreq.text, "7.1");
    st.c.s.Transmitting = false;
    cmdGoToFreq_Click(st.c);
    st.tick();
    EXPECT_EQ(st.rig().state().frequencyHz, 7100000);
}

TEST(LargeGoTo, ShowsTakesTheFocusAndHandsItsTextToTheGoTo) {
    GoToRig st;
    mnuShowLargeGoTo_Click(st.c);
    EXPECT_TRUE(st.c.f.txtShowLargeGoTo.visible);
    EXPECT_EQ(st.c.focusRequest, &st.c.f.txtShowLargeGoTo);
    EXPECT_EQ(st.stored("Settings", "LargeGoTo"), "True");
    st.c.f.txtShowLargeGoTo.text = "10.125u";
    int key = 13;
    txtShowLargeGoTo_KeyPress(st.c, key);
    st.tick();
    EXPECT_EQ(st.rig().state().frequencyHz, 10125000);
    EXPECT_TRUE(st.c.f.txtShowLargeGoTo.text.isEmpty());
    mnuShowLargeGoTo_Click(st.c);
    EXPECT_FALSE(st.c.f.txtShowLargeGoTo.visible);
    EXPECT_EQ(st.stored("Settings", "LargeGoTo"), "False");
}

TEST(Vr5000, GoesAtSwitchOnToTheChannelLastSentToIt) {
    Station st(RigVR5000);
    st.setting("VR5000LastFreqMode", "14.250u00");
    st.load();
    st.switchOn();
    EXPECT_EQ(st.c.f.txtGoToFreq.text, "14.25000u");
    st.rig().clearTrace();
    st.c.s.PollingDelay = 99;
    tmrPollInterval_Timer(st.c);
    // USB with its stored step code 21, then 14.25000 MHz in binary.
    EXPECT_EQ(st.rigReceived().toHex(' '), "01 21 00 00 07 00 15 be 68 01");
    EXPECT_EQ(st.c.f.txtVfoA.text, "14.250.00");
    EXPECT_EQ(st.c.f.txtMode.text, "USB");
}

TEST(Transverter, ShowsTheRigFrequencyOnTheTransvertersBand) {
    const struct {
        char mark;
        int option;
        int32_t base, frequency;
        const char* shown;
        const char* baseShown;
    } cases[] = {
        {'.', 0, 11600000, 2825000, "000.144.250.00", "00116.00000"},
        {',', 0, 11600000, 2825000, "000,144,250,00", "00116,00000"},
        {'.', 1, 4200000, 2800000, "000.014.000.00", "00042.00000"},
        {'.', 1, 2800000, 2800001, "Error", "00028.00000"},
    };
    for (const auto& t : cases) {
        Locale h(t.mark);
        h.c.s.XvtrBaseFrequency = t.base;
        h.c.f.optXvtr[0].value = t.option == 0;
        h.c.f.optXvtr[1].value = t.option == 1;
        optXvtr_Click(h.c, t.option);
        mnuXvtr_Click(h.c);
        EXPECT_TRUE(h.c.f.frmXvtr.visible);
        FormatFrequency(h.c, t.frequency);
        EXPECT_EQ(h.c.f.txtXvtr.text, t.shown);
        EXPECT_EQ(h.c.f.txtXvtrBase.text, t.baseShown);
    }
}

TEST(Transverter, TheBaseIsTakenOnEnterAndABadOneGoesBack) {
    Locale h('.');
    mnuXvtr_Click(h.c);
    txtXvtrBase_GotFocus(h.c);
    h.c.f.txtXvtrBase.text = "116.0x";
    FormatFrequency(h.c, 2825000);  // the reading leaves the box alone while typed in
    EXPECT_EQ(h.c.f.txtXvtrBase.text, "116.0x");
    int key = 13;
    txtXvtrBase_KeyPress(h.c, key);
    EXPECT_EQ(key, 0);
    ASSERT_EQ(h.dialogs.messages.size(), 1u);
    EXPECT_EQ(h.dialogs.messages[0].title, "Invalid number");
    EXPECT_EQ(h.dialogs.messages[0].text,
              "You have entered a non numeric value for the Transverter Base frequency - please "
              "retry");
    EXPECT_EQ(h.c.focusRequest, &h.c.f.txtXvtrBase);
    EXPECT_TRUE(h.c.s.XvtrDisplayOff);

    h.c.f.txtXvtrBase.text = "116";  // kilohertz
    txtXvtrBase_Validate(h.c);
    EXPECT_EQ(h.c.s.XvtrBaseFrequency, 11600);
    EXPECT_EQ(h.stored("Settings", "XvtrBaseFreq"), ".11600");
    EXPECT_FALSE(h.c.s.XvtrDisplayOff);
    h.c.f.txtXvtrBase.text = "";
    txtXvtrBase_Validate(h.c);
    EXPECT_EQ(h.c.s.XvtrBaseFrequency, 0);
    EXPECT_EQ(h.stored("Settings", "XvtrBaseFreq"), ".11600");  // an empty base is not kept
}

TEST(Transverter, BaseAndDirectionComeBackAtStart) {
    Harness h;
    h.setting("XvtrBaseFreq", "116.00000");
    h.setting("XvtrOffsetIndex", "1");
    InitialiseVariables(h.c);
    EXPECT_EQ(h.c.s.XvtrBaseFrequency, 11600000);
    EXPECT_TRUE(h.c.f.optXvtr[1].value);
    EXPECT_FALSE(h.c.f.optXvtr[0].value);
}

}  // namespace
}  // namespace veldor::test
