// Start-up, connections and the program's end, against the simulated rigs on virtual time.
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "link/serial_link.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

struct NameCase {
    const char* commandLine;
    const char* appName;
    const char* captionTail;
};

class ApplicationName : public ::testing::TestWithParam<NameCase> {};

TEST_P(ApplicationName, ComesFromTheCommandLine) {
    Station st(RigNotSet);
    st.load(GetParam().commandLine);
    EXPECT_EQ(st.c.s.AppName, GetParam().appName);
    EXPECT_EQ(st.c.f.caption,
              st.c.s.ProgramVersion + " " + GetParam().appName + " " + GetParam().captionTail);
    EXPECT_TRUE(st.c.s.ProgramVersion.startsWith("V"));
}

INSTANTIATE_TEST_SUITE_P(
    Configurations, ApplicationName,
    ::testing::Values(NameCase{"", "VELDOR", ""},
                      NameCase{"/config=shack", "VELDOR_SHACK", "  SHACK"},
                      NameCase{"  /CONFIG=Radio2  ", "VELDOR_RADIO2", "  RADIO2"},
                      NameCase{"/CONFIG=", "VELDOR_", "  "}, NameCase{"/SHACK", "VELDOR", ""}));

TEST(Configurations, KeepSeparateStores) {
    Station st(RigFT817);
    st.store->save("VELDOR_RADIO2", "Settings", "RigType", "FT847");
    st.load("/config=radio2");
    EXPECT_EQ(st.c.s.RigType, "FT847");
    st.load("");
    EXPECT_EQ(st.c.s.RigType, "FT817");
}

TEST(FirstRun, StartsWithDefaultsAndAsksForAFolder) {
    Harness h;
    h.dialogs.folderAnswer = h.dir.path() + "/memories";
    Form_Load(h.c, "");
    EXPECT_EQ(h.c.s.RigType, "Not set");
    EXPECT_EQ(h.c.s.CommPort, "1");
    EXPECT_EQ(h.c.s.CommSpeed, "4800,N,8,2");
    EXPECT_EQ(h.c.f.chkOnOff.value, 0);
    ASSERT_EQ(h.dialogs.folderPrompts.size(), 1u);
    EXPECT_EQ(h.dialogs.folderPrompts[0],
              "Choose a folder to use for storing memory and .CSV files");
    EXPECT_EQ(h.c.s.HomeDir, h.dir.path() + "/memories");
    EXPECT_EQ(h.stored("Settings", "HomeDir"), h.dir.path() + "/memories");
}

TEST(FirstRun, ARemovedHomeFolderIsAskedForAgainAndCancelKeepsTheStoredText) {
    Harness h;
    h.setting("HomeDir", "/gone/away");
    Form_Load(h.c, "");
    EXPECT_EQ(h.dialogs.folderPrompts.size(), 1u);
    EXPECT_EQ(h.c.s.HomeDir, "");
    EXPECT_EQ(h.stored("Settings", "HomeDir"), "/gone/away");
}

TEST(FirstRun, AutoStartWithNoRigOpensNoDialog) {
    Station st(RigNotSet);
    st.setting("AutoStart", "Yes");
    st.load();
    EXPECT_EQ(st.windows.timesShown(FormId::frmSettings), 0);
    EXPECT_EQ(st.c.f.chkOnOff.value, 0);
}

struct PlaceCase {
    const char* top;
    const char* left;
    int expectTop;
    int expectLeft;
};

class WindowPlacement : public ::testing::TestWithParam<PlaceCase> {};

TEST_P(WindowPlacement, StaysOnTheScreen) {
    Station st(RigNotSet);
    st.setting("MainTop", GetParam().top);
    st.setting("MainLeft", GetParam().left);
    st.load();
    EXPECT_EQ(st.c.f.top, GetParam().expectTop);
    EXPECT_EQ(st.c.f.left, GetParam().expectLeft);
}

INSTANTIATE_TEST_SUITE_P(Positions, WindowPlacement,
                         ::testing::Values(PlaceCase{"300", "450", 300, 450},
                                           PlaceCase{"-15", "450", 0, 0},
                                           PlaceCase{"300", "40000", 0, 0},  // a larger screen
                                           PlaceCase{"20000", "10", 0, 0}));

// What each rig is sent when a connection opens and closes.
struct TakeCase {
    const QString* rig;
    const char* autoPowerOff;
    QByteArray onBytes;  // the opening, then the first reading of frequency and mode
    QByteArray offBytes;
};

class TakeAndRelease : public ::testing::TestWithParam<TakeCase> {};

TEST_P(TakeAndRelease, SendsTheRigsOpeningAndClosingBytes) {
    const TakeCase& t = GetParam();
    Station st(*t.rig);
    st.setting("AutoPowerOff", t.autoPowerOff);
    st.load();
    st.switchOn();
    EXPECT_EQ(st.rigReceived().toHex(' '), t.onBytes.toHex(' '));
    EXPECT_EQ(st.c.f.chkOnOff.backColour, Red);
    EXPECT_TRUE(st.pollTimer.on);
    EXPECT_EQ(st.stored("CurrentValues", "Status"), "Active");
    st.rig().clearTrace();
    st.switchOff();
    EXPECT_EQ(st.rigReceived().toHex(' '), t.offBytes.toHex(' '));
    EXPECT_FALSE(st.pollTimer.on);
    EXPECT_EQ(st.stored("CurrentValues", "Status"), "InActive");
}

const QByteArray kNothing;
// The first reading after the opening: frequency and mode.
QByteArray ReadBcd() {
    return Bytes({0, 0, 0, 0, 0x03});
}
QByteArray ReadBlock() {
    return Bytes({0, 0, 0, 2, 0x10});
}

INSTANTIATE_TEST_SUITE_P(
    EveryRig, TakeAndRelease,
    ::testing::Values(
        TakeCase{&RigFT847, "N", Bytes({0, 0, 0, 0, 0x00}) + ReadBcd(), Bytes({0, 0, 0, 0, 0x80})},
        TakeCase{&RigVR5000, "N", Bytes({0, 0, 0, 0, 0x00}), Bytes({0, 0, 0, 0, 0x80})},
        TakeCase{&RigFRG100, "N", Bytes({0, 0, 0, 0, 0x05, 0, 0, 0, 2, 0x0E}) + ReadBlock(),
                 kNothing},
        TakeCase{&RigFRG100, "Y",
                 Bytes({0, 0, 0, 0, 0x05, 0, 0, 0, 2, 0x0E, 0, 0, 0, 1, 0x20}) + ReadBlock(),
                 Bytes({0, 0, 0, 0, 0x20})},
        TakeCase{&RigFT817, "Y", ReadBcd(), kNothing},
        TakeCase{&RigFT817ND, "N", ReadBcd(), kNothing},
        TakeCase{&RigFT857, "N", ReadBcd(), kNothing},
        TakeCase{&RigFT857D, "N", ReadBcd(), kNothing},
        TakeCase{&RigFT897, "N", ReadBcd(), kNothing},
        TakeCase{&RigFT897D, "N", ReadBcd(), kNothing},
        TakeCase{&RigFT920, "N", ReadBlock(), kNothing},
        TakeCase{&RigFT1000MP, "Y", ReadBlock(), kNothing}));

TEST(TakeControl, TheFt847IsInCatModeOnlyWhileConnected) {
    Station st(RigFT847);
    st.load();
    st.switchOn();
    EXPECT_TRUE(st.rig().state().catOn);
    st.switchOff();
    EXPECT_FALSE(st.rig().state().catOn);
}

class Ft450Identity : public ::testing::TestWithParam<const char*> {};

TEST_P(Ft450Identity, IsAcceptedAndVfoAIsSelected) {
    Station st(RigFT450);
    st.load();
    st.rig().state().ft450Id = GetParam();
    st.rig().state().vfoB = true;
    st.switchOn();
    EXPECT_EQ(st.rigReceived(), "AI0;ID;VS0;IF;");
    EXPECT_FALSE(st.rig().state().vfoB);
    EXPECT_EQ(st.c.s.VfoLetter, "A");
    EXPECT_EQ(st.c.f.lblRigMode.caption, "VFO A");
    EXPECT_TRUE(st.pollTimer.on);
    EXPECT_EQ(st.stored("CurrentValues", "Status"), "Active");
}

INSTANTIATE_TEST_SUITE_P(BothModels, Ft450Identity, ::testing::Values("0241", "0244"));

TEST(TakeControl, AnUnknownFt450IsReportedAndNotPolled) {
    Station st(RigFT450);
    st.load();
    st.rig().state().ft450Id = "0123";
    st.switchOn();
    EXPECT_EQ(st.c.frmErrorList.txtErrors.text,
              "TakeControl: FT-450 not recognised - check cabling and Com setup\r\n"
              "TakeControl: ID received was 0123\r\n");
    EXPECT_FALSE(st.pollTimer.on);
    EXPECT_EQ(st.c.f.chkOnOff.value, 1);  // formally on, but nothing polls
    EXPECT_EQ(st.stored("CurrentValues", "Status"), "<missing>");
    EXPECT_TRUE(st.dialogs.messages.empty());
}

TEST(TakeControl, ASilentFt450IsReportedAsNoCommunication) {
    Station st(RigFT450);
    st.load();
    st.rig().faults().silent = true;
    st.switchOn();
    EXPECT_EQ(st.c.frmErrorList.txtErrors.text,
              "TakeControl: no communication with radio - check cabling and Com setup\r\n");
    EXPECT_FALSE(st.pollTimer.on);
    // The identification and then the first reading of the frequency went unanswered.
    EXPECT_EQ(st.c.f.lblTimeoutCount.caption, "2");
}

TEST(TakeControl, ARejectedIdCountsAsNoCommunication) {
    Station st(RigFT450, true);
    st.scriptedPort->answer = [](const QByteArray& sent) {
        return sent == "ID;" ? QByteArray("?;") : QByteArray();
    };
    st.load();
    st.switchOn();
    EXPECT_EQ(st.c.frmErrorList.txtErrors.text,
              "TakeControl: no communication with radio - check cabling and Com setup\r\n");
    EXPECT_FALSE(st.pollTimer.on);
    EXPECT_EQ(st.c.f.lblTimeoutCount.caption, "0");  // a rejection is not a timeout
}

TEST(OnOff, ASwitchOffDuringAScanIsRefused) {
    Station st(RigFT847);
    st.load();
    st.switchOn();
    st.c.s.ScanRunning = true;
    st.rig().clearTrace();
    st.switchOff();
    EXPECT_EQ(st.c.f.chkOnOff.value, 1);
    EXPECT_TRUE(st.rigReceived().isEmpty());
    EXPECT_TRUE(st.rig().state().catOn);
}

TEST(OnOff, WithNoRigTheSettingsOpenInstead) {
    Station st(RigNotSet);
    st.load();
    st.switchOn();
    EXPECT_EQ(st.windows.timesShown(FormId::frmSettings), 1);
    EXPECT_EQ(st.c.f.chkOnOff.value, 0);
    EXPECT_EQ(st.c.f.chkOnOff.backColour, White);
    EXPECT_FALSE(st.c.p.MSComm1->isOpen());
}

TEST(OnOff, APortThatCannotBeHadPutsTheControlBack) {
    Station st(RigFT847, true);
    st.scriptedPort->failReason = "Device or resource busy";
    st.load();
    st.switchOn();
    EXPECT_EQ(st.c.f.chkOnOff.value, 0);
    ASSERT_EQ(st.dialogs.messages.size(), 1u);
    EXPECT_TRUE(st.dialogs.messages[0].text.startsWith("COM Port SIM is not available."));
    EXPECT_FALSE(st.pollTimer.on);
}

TEST(OnOff, SwitchingOnEnablesAndSwitchingOffResetsTheConnectionControls) {
    Station st(RigFT897);
    st.load();
    EXPECT_FALSE(st.c.f.cmdFT897Lock.enabled);
    st.switchOn();
    EXPECT_TRUE(st.c.f.cmdFT897Lock.enabled);
    EXPECT_TRUE(st.c.f.chkSplit.enabled);
    EXPECT_TRUE(st.c.f.cmdStartStopScan.enabled);
    EXPECT_TRUE(st.c.f.chkTransmitEnable.enabled);
    st.c.f.lblTimeoutCount = {{}, "12", Red};
    st.c.f.pbarSmeter.value = 9;
    st.switchOff();
    EXPECT_FALSE(st.c.f.cmdFT857DBF.enabled);
    EXPECT_FALSE(st.c.f.cmdStartStopScan.enabled);
    EXPECT_EQ(st.c.f.lblTimeoutCount.caption, "0");
    EXPECT_EQ(st.c.f.lblTimeoutCount.backColour, ButtonFace);
    EXPECT_EQ(st.c.f.pbarSmeter.value, 0);
    EXPECT_EQ(st.c.f.chkOnOff.backColour, White);
    EXPECT_FALSE(st.c.p.MSComm1->isOpen());
}

TEST(Unload, ReleasesTheRigAndSavesWhatIsSavedOnlyAtTheEnd) {
    Station st(RigFT847);
    st.load();
    st.switchOn();
    st.c.f.top = 600;
    st.c.f.left = 900;
    st.c.f.pbarGotSignal.value = 7;
    Form_Unload(st.c);
    EXPECT_FALSE(st.rig().state().catOn);
    EXPECT_FALSE(st.c.p.MSComm1->isOpen());
    EXPECT_EQ(st.stored("Settings", "RigType"), "FT847");
    EXPECT_EQ(st.stored("Settings", "MainTop"), "600");
    EXPECT_EQ(st.stored("Settings", "MainLeft"), "900");
    EXPECT_EQ(st.stored("Settings", "GotSignal"), "7");
    EXPECT_EQ(st.stored("Settings", "ScreenSize"), "Small");
    EXPECT_EQ(st.stored("CurrentValues", "Status"), "InActive");
    EXPECT_TRUE(st.system.ended);
}

// The program's end may come in a wait of the tick's reading; the rest of that tick must not
// take the rig again.
TEST(Unload, InTheMiddleOfAReadingLeavesTheRigReleased) {
    Station st(RigFT847);
    st.load();
    st.switchOn();
    st.pump.at(st.clock.now + 10, [&st] { Form_Unload(st.c); });
    tmrPollInterval_Timer(st.c);
    EXPECT_FALSE(st.rig().state().catOn);
    EXPECT_FALSE(st.c.p.MSComm1->isOpen());
    EXPECT_EQ(st.stored("CurrentValues", "Status"), "InActive");
}

TEST(Unload, DoesNothingWhileTransmitting) {
    Station st(RigFT847);
    st.load();
    st.switchOn();
    st.c.s.Transmitting = true;
    Form_Unload(st.c);
    EXPECT_TRUE(st.rig().state().catOn);
    EXPECT_FALSE(st.system.ended);
}

TEST(Unload, KeepsANotSetRigOutOfTheStore) {
    Harness h;
    h.dialogs.folderAnswer = h.dir.path();
    Form_Load(h.c, "");
    Form_Unload(h.c);
    EXPECT_EQ(h.stored("Settings", "RigType"), "<missing>");
    EXPECT_EQ(h.stored("Settings", "MainTop"), "10");
    EXPECT_TRUE(h.system.ended);
}

}  // namespace
}  // namespace veldor::test
