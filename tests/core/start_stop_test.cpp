// Start-up, connections and the program's end, against the simulated rigs on virtual time.
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "link/serial_link.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

TEST(Configurations, TakeTheirNameFromTheCommandLineAndKeepSeparateStores) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"", "VELDOR", ""},
        {"/config=shack", "VELDOR_SHACK", "  SHACK"},
        {"  /CONFIG=Radio2  ", "VELDOR_RADIO2", "  RADIO2"},
        {"/CONFIG=", "VELDOR_", "  "},
        {"/SHACK", "VELDOR", ""}};
    for (const auto& [commandLine, appName, captionTail] : cases) {
        Station st(RigNotSet);
        st.load(commandLine);
        EXPECT_EQ(st.c.s.AppName, appName);
        EXPECT_EQ(st.c.f.caption, st.c.s.ProgramVersion + " " + appName + " " + captionTail);
    }
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
    h.setting("AutoStart", "Yes");  // with no rig: no dialog, no link
    Form_Load(h.c, "");
    EXPECT_EQ(h.dialogs.folderPrompts.size(), 1u);
    EXPECT_EQ(h.c.s.HomeDir, "");
    EXPECT_EQ(h.stored("Settings", "HomeDir"), "/gone/away");
    EXPECT_EQ(h.windows.timesShown(FormId::frmSettings), 0);
    EXPECT_EQ(h.c.f.chkOnOff.value, 0);
}

TEST(WindowPlacement, StaysOnTheScreen) {
    const std::tuple<const char*, const char*, int, int> cases[] = {
        {"300", "450", 300, 450},
        {"-15", "450", 0, 0},
        {"300", "40000", 0, 0},  // a larger screen
        {"20000", "10", 0, 0}};
    for (const auto& [top, left, expectTop, expectLeft] : cases) {
        Station st(RigNotSet);
        st.setting("MainTop", top);
        st.setting("MainLeft", left);
        st.load();
        EXPECT_EQ(st.c.f.top, expectTop) << top;
        EXPECT_EQ(st.c.f.left, expectLeft) << left;
    }
}

// What each rig is sent when a connection opens (then the first reading of frequency and
// mode: 03, or the block 10) and closes.
TEST(TakeAndRelease, SendEachRigsOpeningAndClosingBytes) {
    const std::tuple<QString, const char*, const char*, const char*> cases[] = {
        {RigFT847, "N", "0000000000 0000000003", "0000000080"},
        {RigVR5000, "N", "0000000000", "0000000080"},
        {RigFRG100, "N", "0000000005 000000020e 0000000210", ""},
        {RigFRG100, "Y", "0000000005 000000020e 0000000120 0000000210", "0000000020"},
        {RigFT817, "Y", "0000000003", ""},
        {RigFT817ND, "N", "0000000003", ""},
        {RigFT857, "N", "0000000003", ""},
        {RigFT857D, "N", "0000000003", ""},
        {RigFT897, "N", "0000000003", ""},
        {RigFT897D, "N", "0000000003", ""},
        {RigFT920, "N", "0000000210", ""},
        {RigFT1000MP, "Y", "0000000210", ""}};
    for (const auto& [rig, autoPowerOff, on, off] : cases) {
        SCOPED_TRACE(rig.toStdString() + " " + autoPowerOff);
        Station st(rig);
        st.setting("AutoPowerOff", autoPowerOff);
        st.load();
        st.switchOn();
        EXPECT_EQ(st.rigReceived().toHex(), QByteArray(on).replace(" ", ""));
        EXPECT_EQ(st.c.f.chkOnOff.backColour, Red);
        EXPECT_TRUE(st.pollTimer.on);
        EXPECT_EQ(st.stored("CurrentValues", "Status"), "Active");
        st.rig().clearTrace();
        st.switchOff();
        EXPECT_EQ(st.rigReceived().toHex(), off);
        EXPECT_FALSE(st.pollTimer.on);
        EXPECT_EQ(st.stored("CurrentValues", "Status"), "InActive");
    }
}

TEST(TakeControl, BothFt450ModelsAreAcceptedAndVfoAIsSelected) {
    for (const char* id : {"0241", "0244"}) {
        Station st(RigFT450);
        st.load();
        st.rig().state().ft450Id = id;
        st.rig().state().vfoB = true;
        st.switchOn();
        EXPECT_EQ(st.rigReceived(), "AI0;ID;VS0;IF;");
        EXPECT_FALSE(st.rig().state().vfoB);
        EXPECT_EQ(st.c.s.VfoLetter, "A");
        EXPECT_EQ(st.c.f.lblRigMode.caption, "VFO A");
        EXPECT_TRUE(st.pollTimer.on);
    }
}

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

TEST(OnOff, SwitchingOnEnablesAndSwitchingOffResetsTheConnectionControls) {
    Station st(RigFT897);
    st.load();
    EXPECT_FALSE(st.c.f.cmdFT897Lock.enabled);
    st.switchOn();
    EXPECT_TRUE(st.c.f.cmdFT897Lock.enabled);
    EXPECT_TRUE(st.c.f.cmdStartStopScan.enabled);
    st.c.f.lblTimeoutCount = {{}, "12", Red};
    st.c.f.pbarSmeter.value = 9;
    st.switchOff();
    EXPECT_FALSE(st.c.f.cmdFT857DBF.enabled);
    EXPECT_FALSE(st.c.f.cmdStartStopScan.enabled);
    EXPECT_EQ(st.c.f.lblTimeoutCount.caption, "0");
    EXPECT_EQ(st.c.f.lblTimeoutCount.backColour, ButtonFace);
    EXPECT_EQ(st.c.f.pbarSmeter.value, 0);
    EXPECT_FALSE(st.c.p.MSComm1->isOpen());
}

// Nothing while the rig transmits; then the rig is released and what is saved only at the end
// is saved.
TEST(Unload, ReleasesTheRigAndSavesWhatIsSavedOnlyAtTheEnd) {
    Station st(RigFT847);
    st.load();
    st.switchOn();
    st.c.s.Transmitting = true;
    Form_Unload(st.c);
    EXPECT_TRUE(st.rig().state().catOn);
    EXPECT_FALSE(st.system.ended);
    st.c.s.Transmitting = false;
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
