// The settings dialog: the speed rules, the stop bits, the band editor, the retrieve of the older
// program's settings, and the dialog's place between the poll's exchanges.
#include "shell/settings_dialog.h"
#include "cycle/shell_menus.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "support/fakes.h"
#include "tuning/bands.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

void Choose(ComboBox& box, const QString& text) {
    box.listIndex = box.list.indexOf(text);
    box.text = box.listIndex < 0 ? text : QString();
}

// A station whose settings dialog is open, with the rig on the built-in simulated port.
struct OpenDialog : Station {
    explicit OpenDialog(const QString& rig, bool scripted = false) : Station(rig, scripted) {
        load();
        frmSettings_Load(c);
        windows.open.push_back(FormId::frmSettings);
    }
    FrmSettings& d() { return c.frmSettings; }
    bool stillOpen() const { return windows.shown(FormId::frmSettings); }
};

struct SpeedCase {
    const char* rig;
    const char* speed;
    const char* saved;  // nullptr: refused
};

class SpeedRule : public ::testing::TestWithParam<SpeedCase> {};

TEST_P(SpeedRule, IsKeptOnOk) {
    const SpeedCase& k = GetParam();
    OpenDialog st(RigNotSet, true);
    Choose(st.d().cboRigType, k.rig);
    Choose(st.d().cboCommSpeed, k.speed);
    Choose(st.d().cboCommPort, "SIM");
    frmSettings_cmdOK_Click(st.c);
    // The rig is taken before the check, even when the speed is refused.
    EXPECT_EQ(st.c.s.RigType, k.rig);
    if (!k.saved) {
        ASSERT_EQ(st.dialogs.messages.size(), 1u);
        EXPECT_EQ(st.dialogs.messages[0].text,
                  QString("A Comm speed of ") + k.speed +
                      " is not valid for\r\nthe chosen rig. Please choose another speed");
        EXPECT_EQ(st.stored("Settings", "CommSpeed"), "<missing>");
        EXPECT_TRUE(st.stillOpen());
        return;
    }
    EXPECT_TRUE(st.dialogs.messages.empty());
    EXPECT_EQ(st.stored("Settings", "CommSpeed"), k.saved);
    EXPECT_FALSE(st.stillOpen());
}

INSTANTIATE_TEST_SUITE_P(Rigs, SpeedRule,
                         ::testing::Values(SpeedCase{"FT817", "19200,N,8,2", nullptr},
                                           SpeedCase{"FT817", "38400,N,8,2", "38400,N,8,2"},
                                           SpeedCase{"FT847", "38400,N,8,2", nullptr},
                                           SpeedCase{"VR5000", "19200,N,8,2", nullptr},
                                           SpeedCase{"VR5000", "57600,N,8,2", "57600,N,8,2"},
                                           SpeedCase{"FT450", "57600,N,8,2", nullptr},
                                           SpeedCase{"FT920", "57600,N,8,2", "4800,N,8,2"},
                                           SpeedCase{"FT1000MP", "38400,N,8,2", "4800,N,8,2"},
                                           SpeedCase{"Not set", "57600,N,8,2", "57600,N,8,2"}));

TEST(SettingsDialog, AnUnknownRigBecomesNotSet) {
    OpenDialog st(RigNotSet);
    Choose(st.d().cboRigType, "FT991");
    Choose(st.d().cboCommPort, "SIM");
    frmSettings_cmdOK_Click(st.c);
    ASSERT_FALSE(st.dialogs.messages.empty());
    EXPECT_EQ(st.dialogs.messages[0].text, "Rig type not yet supported - changed to Not set");
    EXPECT_EQ(st.c.s.RigType, RigNotSet);
}

// Whatever speed text the box holds, the port opens with two stop bits.
TEST(SettingsDialog, ThePortAlwaysOpensWithTwoStopBits) {
    OpenDialog st(RigFT817, true);
    Choose(st.d().cboCommSpeed, "9600,N,8,1");
    frmSettings_cmdOK_Click(st.c);
    EXPECT_EQ(st.scriptedPort->openedSettings, "9600,N,8,2");
    EXPECT_EQ(st.stored("Settings", "CommSpeed"), "9600,N,8,2");
}

TEST(SettingsDialog, APortThatFailsKeepsTheDialogAndPollingStopped) {
    OpenDialog st(RigFT817, true);
    st.switchOn();
    frmSettings_Load(st.c);
    st.scriptedPort->failReason = "No such file or directory";
    st.scriptedPort->close();
    Choose(st.d().cboCommPort, "/dev/ttyUSB7");
    frmSettings_cmdOK_Click(st.c);
    EXPECT_TRUE(st.stillOpen());
    EXPECT_FALSE(st.pollTimer.on);
    // Cancel closes it and polling goes on.
    frmSettings_cmdCancel_Click(st.c);
    EXPECT_FALSE(st.stillOpen());
    EXPECT_TRUE(st.pollTimer.on);
}

TEST(SettingsMenu, WaitsForTheEndOfATickAndIsRefusedDuringAScan) {
    Station st(RigFT817);
    st.load();
    st.switchOn();
    mnuSettings_Click(st.c);
    EXPECT_EQ(st.windows.timesShown(FormId::frmSettings), 0);
    EXPECT_TRUE(st.c.s.SettingsRequested);
    tmrPollInterval_Timer(st.c);
    EXPECT_EQ(st.windows.timesShown(FormId::frmSettings), 1);
    EXPECT_TRUE(st.pollTimer.on);

    st.c.s.ScanRunning = true;
    mnuSettings_Click(st.c);
    EXPECT_FALSE(st.c.s.SettingsRequested);
}

}  // namespace
}  // namespace veldor::test
