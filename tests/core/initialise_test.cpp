// The start-up reading of the store into the program's values.
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

struct PollingCase {
    const char* stored;
    int32_t delay;
    bool fastTicked;
    bool offTicked;
};

class PollingDelay : public ::testing::TestWithParam<PollingCase> {};

TEST_P(PollingDelay, SmallValuesAreSecondsAndNinetyNineIsOff) {
    Harness h;
    h.setting("PollingDelay", GetParam().stored);
    InitialiseVariables(h.c);
    EXPECT_EQ(h.c.s.PollingDelay, GetParam().delay);
    EXPECT_EQ(h.c.f.mnuPolling.checked, GetParam().fastTicked);
    EXPECT_EQ(h.c.f.mnuPollingOff.checked, GetParam().offTicked);
    const uint32_t wait = GetParam().delay == 99 ? 0 : static_cast<uint32_t>(GetParam().delay);
    EXPECT_EQ(h.c.s.NextPollTime, h.clock.now + wait);
}

INSTANTIATE_TEST_SUITE_P(Stored, PollingDelay,
                         ::testing::Values(PollingCase{"0", 0, true, false},
                                           PollingCase{"2", 2000, false, false},
                                           PollingCase{"10", 10000, false, false},
                                           PollingCase{"99", 99, false, true},
                                           PollingCase{"200", 200, false, false},
                                           PollingCase{"garbage", 0, true, false}));

TEST(Initialise, TheLinkAlwaysRunsWithTwoStopBits) {
    Harness h;
    h.setting("CommSpeed", "9600,N,8,1");
    InitialiseVariables(h.c);
    EXPECT_EQ(h.c.s.CommSpeed, "9600,N,8,2");
}

struct RtsCase {
    const char* raise;
    const char* link;
    const char* txrx;
    const char* raiseAfter;
    const char* linkAfter;
    const char* txrxAfter;
};

class RtsChoices : public ::testing::TestWithParam<RtsCase> {};

TEST_P(RtsChoices, ExcludeOneAnother) {
    const RtsCase& t = GetParam();
    Harness h;
    h.setting("RaiseRTS", t.raise);
    h.setting("LinkRTS", t.link);
    h.setting("TXRXcontrolsRTS", t.txrx);
    InitialiseVariables(h.c);
    EXPECT_EQ(h.c.s.RaiseRTS, t.raiseAfter);
    EXPECT_EQ(h.c.s.LinkRTS, t.linkAfter);
    EXPECT_EQ(h.c.s.TXRXcontrolsRTS, t.txrxAfter);
    EXPECT_EQ(h.c.f.mnuRaiseRTS.checked, QString(t.raiseAfter) == "Y");
    EXPECT_EQ(h.c.f.mnuLinkRTS.checked, QString(t.linkAfter) == "Y");
}

INSTANTIATE_TEST_SUITE_P(Stored, RtsChoices,
                         ::testing::Values(RtsCase{"Y", "Y", "N", "N", "Y", "N"},
                                           RtsCase{"Y", "N", "Y", "N", "N", "Y"},
                                           RtsCase{"N", "Y", "Y", "N", "Y", "N"},
                                           RtsCase{"Y", "N", "N", "Y", "N", "N"}));

TEST(Initialise, ACommaLocaleGetsCommaShiftTextsAndSemicolonFields) {
    Harness h;
    h.system.decimalMark = ',';
    InitialiseVariables(h.c);
    EXPECT_EQ(h.c.s.DecimalSeparator, ",");
    EXPECT_EQ(h.c.s.ShiftText060, ",60000");
    EXPECT_EQ(h.c.s.ShiftText500, "5,00000");
    EXPECT_EQ(h.c.s.FieldDelimiter, ";");
    EXPECT_EQ(h.c.s.OtherDecimalSeparator, ".");
}

TEST(Initialise, APointLocaleGetsPointShiftTexts) {
    Harness h;
    InitialiseVariables(h.c);
    EXPECT_EQ(h.c.s.ShiftText060, ".60000");
    EXPECT_EQ(h.c.s.ShiftText000, ".00000");
    EXPECT_EQ(h.c.s.FieldDelimiter, ",");
}

TEST(Initialise, SisterModelsShareTheirDelayKeys) {
    Harness h;
    h.setting("FT817CMDdelay", "40");
    h.setting("FT817SmeterDelay", "120");
    h.setting("FT817NDCMDdelay", "99");  // no such key is ever read
    h.setting("RigType", "FT817ND");
    InitialiseVariables(h.c);
    EXPECT_EQ(h.c.f.sldCMDdelay.value, 40);
    EXPECT_EQ(h.c.f.sldSmeterDelay.value, 120);
    EXPECT_EQ(h.c.f.sldExtra.value, 250);
}

TEST(Initialise, TheVr5000HasItsOwnCommandDelayAndLastFrequency) {
    Harness h;
    h.setting("RigType", "VR5000");
    InitialiseVariables(h.c);
    EXPECT_EQ(h.c.f.sldCMDdelay.value, 25);
    EXPECT_EQ(h.c.s.VR5000LastFreqMode, "145.575f");
}

TEST(Initialise, TalkSpeedSetsThePollPeriodAndItsTick) {
    Harness h;
    h.setting("TalkFreq", "2");
    InitialiseVariables(h.c);
    EXPECT_EQ(h.pollTimer.period, 104);
    EXPECT_TRUE(h.c.f.mnuTalk[1].checked);
    EXPECT_FALSE(h.c.f.mnuTalk[3].checked);
}

TEST(Initialise, KeysAreFoundWhateverTheirCase) {
    Harness h;
    h.setting("uHFfreq", "43400000");
    InitialiseVariables(h.c);
    EXPECT_EQ(h.c.s.UHFfreq, 43400000);
    EXPECT_EQ(h.c.s.VHFfreq, 14500000);
}

TEST(Initialise, ASettingsFileOfGarbageLoadsAsDefaults) {
    Harness h;
    QFile file(h.dir.path() + "/VELDOR.ini");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    QByteArray garbage;
    for (int i = 0; i < 100000; ++i) garbage.append(static_cast<char>((i * 131 + 7) % 256));
    file.write(garbage);
    file.close();
    Harness fresh;  // a store that has not read the folder yet
    fresh.store = std::make_unique<IniStore>(h.dir.path());
    fresh.c.p.store = fresh.store.get();
    InitialiseVariables(fresh.c);
    EXPECT_EQ(fresh.c.s.CommSpeed, "4800,N,8,2");
    EXPECT_EQ(fresh.c.f.pbarGotSignal.value, 3);
}

}  // namespace
}  // namespace veldor::test
