// The start-up reading of the store into the program's values.
#include "cycle/poll_cycle.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// Small values are seconds, 99 is off.
TEST(Initialise, ThePollingDelay) {
    const std::tuple<const char*, int32_t, bool, bool> cases[] = {
        {"0", 0, true, false},   {"2", 2000, false, false},  {"10", 10000, false, false},
        {"99", 99, false, true}, {"200", 200, false, false}, {"garbage", 0, true, false}};
    for (const auto& [stored, delay, fastTicked, offTicked] : cases) {
        Harness h;
        h.setting("PollingDelay", stored);
        InitialiseVariables(h.c);
        EXPECT_EQ(h.c.s.PollingDelay, delay) << stored;
        EXPECT_EQ(h.c.f.mnuPolling.checked, fastTicked) << stored;
        EXPECT_EQ(h.c.f.mnuPollingOff.checked, offTicked) << stored;
        EXPECT_EQ(h.c.s.NextPollTime, h.clock.now + (delay == 99 ? 0 : delay)) << stored;
    }
}

TEST(Initialise, TheRtsChoicesExcludeOneAnother) {
    // RaiseRTS, LinkRTS and TXRXcontrolsRTS as stored, and as taken.
    const std::pair<const char*, const char*> cases[] = {
        {"YYN", "NYN"}, {"YNY", "NNY"}, {"NYY", "NYN"}, {"YNN", "YNN"}};
    for (const auto& [stored, taken] : cases) {
        Harness h;
        h.setting("RaiseRTS", QString(stored[0]));
        h.setting("LinkRTS", QString(stored[1]));
        h.setting("TXRXcontrolsRTS", QString(stored[2]));
        InitialiseVariables(h.c);
        EXPECT_EQ(h.c.s.RaiseRTS + h.c.s.LinkRTS + h.c.s.TXRXcontrolsRTS, taken) << stored;
        EXPECT_EQ(h.c.f.mnuRaiseRTS.checked, taken[0] == 'Y') << stored;
        EXPECT_EQ(h.c.f.mnuLinkRTS.checked, taken[1] == 'Y') << stored;
    }
}

TEST(Initialise, TheLocalesMarkGoesIntoTheShiftTextsAndChoosesTheFieldDelimiter) {
    for (const auto& [mark, other, delimiter] : {std::tuple{',', ".", ";"}, {'.', ",", ","}}) {
        Harness h;
        h.system.decimalMark = mark;
        InitialiseVariables(h.c);
        EXPECT_EQ(h.c.s.DecimalSeparator, QString(mark));
        EXPECT_EQ(h.c.s.OtherDecimalSeparator, other);
        EXPECT_EQ(h.c.s.ShiftText060, QString(mark) + "60000");
        EXPECT_EQ(h.c.s.ShiftText500, QString("5") + mark + "00000");
        EXPECT_EQ(h.c.s.FieldDelimiter, delimiter);
    }
}

// Sister models share their delay keys (the FT-817ND's own is never read); the VR-5000 has
// its own command delay and last frequency; the link always runs with two stop bits.
TEST(Initialise, DelaysLastFrequencyAndStopBits) {
    Harness h;
    h.setting("FT817CMDdelay", "40");
    h.setting("FT817SmeterDelay", "120");
    h.setting("FT817NDCMDdelay", "99");
    h.setting("RigType", "FT817ND");
    h.setting("CommSpeed", "9600,N,8,1");
    InitialiseVariables(h.c);
    EXPECT_EQ(h.c.f.sldCMDdelay.value, 40);
    EXPECT_EQ(h.c.f.sldSmeterDelay.value, 120);
    EXPECT_EQ(h.c.f.sldExtra.value, 250);
    EXPECT_EQ(h.c.s.CommSpeed, "9600,N,8,2");
    h.setting("RigType", "VR5000");
    InitialiseVariables(h.c);
    EXPECT_EQ(h.c.f.sldCMDdelay.value, 25);
    EXPECT_EQ(h.c.s.VR5000LastFreqMode, "145.575f");
}

TEST(Initialise, TalkSpeedSetsThePollPeriodAndItsTickAndIsStoredWhenChosen) {
    Harness h;
    h.setting("TalkFreq", "2");
    InitialiseVariables(h.c);
    EXPECT_EQ(h.pollTimer.period, 104);
    EXPECT_TRUE(h.c.f.mnuTalk[1].checked);
    mnuTalk_Click(h.c, 5);
    EXPECT_EQ(h.pollTimer.period, 26);
    EXPECT_TRUE(h.c.f.mnuTalk[4].checked);
    EXPECT_FALSE(h.c.f.mnuTalk[1].checked);
    EXPECT_EQ(h.stored("Settings", "TalkFreq"), "5");
}

}  // namespace
}  // namespace veldor::test
