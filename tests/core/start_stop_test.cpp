// Start-up, connections and the program's end, against the simulated rigs on
// virtual time.
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "link/serial_link.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// A configuration takes its name from the command line and keeps a store of its
// own; the window's stored place is kept while it is on the screen.
TEST(Configurations, TakeTheirNameFromTheCommandLineAndKeepSeparateStores) {
    const std::tuple<const char*, const char*, const char*, const char*, const char*, int, int>
        cases[] = {{"", "VELDOR", "", "300", "450", 300, 450},
                   {"/config=shack", "VELDOR_SHACK", "  SHACK", "-15", "450", 0, 0},
                   {"  /CONFIG=Radio2  ", "VELDOR_RADIO2", "  RADIO2", "300", "40000", 0, 0},
                   {"/CONFIG=", "VELDOR_", "  ", "20000", "10", 0, 0},
                   {"/SHACK", "VELDOR", "", "300", "450", 300, 450}};
    for (const auto& [commandLine, appName, captionTail, top, left, atTop, atLeft] : cases) {
        SCOPED_TRACE(commandLine);
        Station st(RigNotSet);
        st.store->save(appName, "Settings", "MainTop", top);
        st.store->save(appName, "Settings", "MainLeft", left);
        st.load(commandLine);
        EXPECT_EQ(st.c.s.AppName, appName);
        EXPECT_EQ(st.c.f.caption, st.c.s.ProgramVersion + " " + appName + " " + captionTail);
        EXPECT_EQ(st.c.f.top, atTop);
        EXPECT_EQ(st.c.f.left, atLeft);
    }
    Station st(RigFT817);
    st.store->save("VELDOR_RADIO2", "Settings", "RigType", "FT847");
    st.load("/config=radio2");
    EXPECT_EQ(st.c.s.RigType, "FT847");
    st.load("");
    EXPECT_EQ(st.c.s.RigType, "FT817");
}

// The defaults of a first run; a folder is asked for when none is stored or the
// stored one is gone, and a cancel keeps the stored text. A rig not set stays
// out of the store at the end.
TEST(FirstRun, StartsWithDefaultsAndAsksForAFolder) {
    for (const bool gone : {false, true}) {
        Harness h;
        const QString chosen = h.dir.path() + "/memories";
        if (gone) {
            h.setting("HomeDir", "/gone/away");
            h.setting("AutoStart", "Yes");  // with no rig: no dialog, no link
        } else {
            h.dialogs.folderAnswer = chosen;
        }
        Form_Load(h.c, "");
        EXPECT_EQ(h.c.s.RigType, "Not set");
        EXPECT_EQ(h.c.s.CommPort, "1");
        EXPECT_EQ(h.c.s.CommSpeed, "4800,N,8,2");
        EXPECT_EQ(h.c.f.chkOnOff.value, 0);
        EXPECT_EQ(h.windows.timesShown(FormId::frmSettings), 0);
        EXPECT_EQ(h.dialogs.folderPrompts,
                  std::vector<QString>{"Choose a folder to use for storing memory and .CSV files"});
        EXPECT_EQ(h.c.s.HomeDir, gone ? "" : chosen);
        EXPECT_EQ(h.stored("Settings", "HomeDir"), gone ? "/gone/away" : chosen);
        Form_Unload(h.c);
        EXPECT_EQ(h.stored("Settings", "RigType"), "<missing>");
        EXPECT_EQ(h.stored("Settings", "MainTop"), "10");
        EXPECT_TRUE(h.system.ended);
    }
}

// What each rig is sent when a connection opens (then the first reading of
// frequency and mode: 03, or the block 10) and closes.
TEST(TakeAndRelease, SendEachRigsOpeningAndClosingBytes) {
    const std::tuple<QString, const char*, const char*, const char*> cases[] = {
        {RigFT847, "N", "0000000000 0000000003", "0000000080"},
        {RigVR5000, "N", "0000000000", "0000000080"},
        {RigFRG100, "N", "0000000005 000000020e 0000000210", ""},
        {RigFRG100, "Y", "0000000005 000000020e 0000000120 0000000210", "0000000020"},
        {RigFT817, "Y", "0000000003", ""},
        {RigFT857, "N", "0000000003", ""},
        {RigFT897, "N", "0000000003", ""},
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

// The FT-450 is taken on VFO A when it names either model; one that names
// another, stays silent or refuses the identification is reported and not
// polled, though formally on.
TEST(TakeControl, TheFt450IsTakenOnlyWhenItNamesItsModel) {
    const char* const noCommunication =
        "TakeControl: no communication with "
        "radio - check cabling and Com setup\r\n";
    struct Case {
        const char* id;  // none: the identification is refused
        bool silent;
        const char* errors;
        const char* timeouts;
    };
    const Case cases[] = {{"0241", false, "", "0"},
                          {"0244", false, "", "0"},
                          {"0123", false,
                           "TakeControl: FT-450 not recognised - check cabling and Com setup\r\n"
                           "TakeControl: ID received was 0123\r\n",
                           "0"},
                          // The identification and then the first reading of the frequency went
                          // unanswered.
                          {"0241", true, noCommunication, "2"},
                          {nullptr, false, noCommunication, "0"}};  // a rejection is not a timeout
    for (const Case& t : cases) {
        SCOPED_TRACE(t.id ? t.id : "refused");
        Station st(RigFT450, !t.id);
        if (!t.id)
            st.scriptedPort->answer = [](const QByteArray& sent) {
                return sent == "ID;" ? QByteArray("?;") : QByteArray();
            };
        st.load();
        if (t.id) {
            st.rig().state().ft450Id = t.id;
            st.rig().state().vfoB = true;
            st.rig().faults().silent = t.silent;
        }
        st.switchOn();
        const bool taken = !*t.errors;
        EXPECT_EQ(st.c.frmErrorList.txtErrors.text, t.errors);
        EXPECT_EQ(st.pollTimer.on, taken);
        EXPECT_EQ(st.c.f.lblTimeoutCount.caption, t.timeouts);
        EXPECT_EQ(st.c.f.chkOnOff.value, 1);
        EXPECT_EQ(st.stored("CurrentValues", "Status"), taken ? "Active" : "<missing>");
        EXPECT_TRUE(st.dialogs.messages.empty());
        if (!taken) continue;
        EXPECT_EQ(st.rigReceived(), "AI0;ID;VS0;IF;");
        EXPECT_FALSE(st.rig().state().vfoB);
        EXPECT_EQ(st.c.s.VfoLetter, "A");
        EXPECT_EQ(st.c.f.lblRigMode.caption, "VFO A");
    }
}

// With no rig the settings open instead. On and off enable and reset the
// connection controls, and a switch off during a scan is refused.
TEST(OnOff, SwitchingOnEnablesAndSwitchingOffResetsTheConnectionControls) {
    Station none(RigNotSet);
    none.load();
    none.switchOn();
    EXPECT_EQ(none.windows.timesShown(FormId::frmSettings), 1);
    EXPECT_EQ(none.c.f.chkOnOff.value, 0);
    EXPECT_EQ(none.c.f.chkOnOff.backColour, White);
    EXPECT_FALSE(none.c.p.MSComm1->isOpen());

    Station st(RigFT897);
    st.load();
    EXPECT_FALSE(st.c.f.cmdFT897Lock.enabled);
    st.switchOn();
    EXPECT_TRUE(st.c.f.cmdFT897Lock.enabled);
    EXPECT_TRUE(st.c.f.cmdStartStopScan.enabled);
    st.c.s.ScanRunning = true;
    st.switchOff();
    EXPECT_EQ(st.c.f.chkOnOff.value, 1);
    EXPECT_TRUE(st.c.p.MSComm1->isOpen());
    st.c.s.ScanRunning = false;
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

// Nothing while the rig transmits; then, even from a wait of the tick's
// reading, the rig is released, the rest of the tick does not take it again,
// and what is saved only at the end is saved.
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
    st.pump.at(st.clock.now + 10, [&st] { Form_Unload(st.c); });
    tmrPollInterval_Timer(st.c);
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

}  // namespace
}  // namespace veldor::test
