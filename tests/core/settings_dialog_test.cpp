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
    EXPECT_EQ(st.stored("Settings", "Commport"), "SIM");
    EXPECT_FALSE(st.stillOpen());
}

INSTANTIATE_TEST_SUITE_P(Rigs, SpeedRule,
                         ::testing::Values(SpeedCase{"FT817", "19200,N,8,2", nullptr},
                                           SpeedCase{"FT817", "38400,N,8,2", "38400,N,8,2"},
                                           SpeedCase{"FT857D", "57600,N,8,2", nullptr},
                                           SpeedCase{"FT897", "9600,N,8,2", "9600,N,8,2"},
                                           SpeedCase{"FT847", "38400,N,8,2", nullptr},
                                           SpeedCase{"VR5000", "19200,N,8,2", nullptr},
                                           SpeedCase{"VR5000", "57600,N,8,2", "57600,N,8,2"},
                                           SpeedCase{"FT450", "38400,N,8,2", "38400,N,8,2"},
                                           SpeedCase{"FT450", "57600,N,8,2", nullptr},
                                           SpeedCase{"FT920", "57600,N,8,2", "4800,N,8,2"},
                                           SpeedCase{"FRG100", "9600,N,8,2", "4800,N,8,2"},
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
    EXPECT_FALSE(st.pollTimer.on);
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

TEST(SettingsDialog, ANewRigRecustomisesTheWindowAndRereadsItsDelays) {
    OpenDialog st(RigFT817);
    st.setting("FT450CMDdelay", "12");
    Choose(st.d().cboRigType, RigFT450);
    Choose(st.d().cboCommPort, "SIM");
    st.c.f.sldExtra.value = 250;
    frmSettings_cmdOK_Click(st.c);
    EXPECT_TRUE(st.c.f.frmFT450.visible);
    EXPECT_FALSE(st.c.f.frmFT817.visible);
    EXPECT_EQ(st.c.f.sldCMDdelay.value, 12);
    EXPECT_EQ(st.c.f.sldExtra.value, 0);
    EXPECT_EQ(st.c.s.VR5000Step, 25);
}

TEST(SettingsDialog, OffersNumbersTheSystemsPortsAndTheSimulator) {
    OpenDialog st(RigFT817);
    const QString adapter = "/dev/serial/by-id/usb-FTDI_FT232R_USB_UART_A50285BI-if00-port0";
    st.system.ports = {{adapter, "FT232R USB UART (FTDI) on ttyUSB0"}};
    frmSettings_Load(st.c);
    const QStringList& ports = st.d().cboCommPort.list;
    EXPECT_EQ(ports.first(), "1");
    EXPECT_EQ(ports[15], "16");
    EXPECT_EQ(ports[16], adapter);
    EXPECT_EQ(st.d().portDescriptions[16], "FT232R USB UART (FTDI) on ttyUSB0");
    EXPECT_EQ(ports.last(), "SIM");
    EXPECT_EQ(ports.size(), st.d().portDescriptions.size());
    EXPECT_TRUE(st.d().cboExtraPttPort.list.contains(adapter));
    // A stored port the system does not list is still offered, and chosen.
    st.setting("Commport", "/tmp/ttyRig");
    st.load();
    frmSettings_Load(st.c);
    EXPECT_EQ(ComboText(st.d().cboCommPort), "/tmp/ttyRig");
}

TEST(BandEditor, AcceptsSavesOnOkAndClearBandBringsTheStoredRowBack) {
    OpenDialog st(RigFT817);
    FrmSettings& d = st.d();
    d.cboBandNumber.listIndex = 4;
    frmSettings_cboBandNumber_Click(st.c);
    EXPECT_EQ(d.txtBandName.text, "14");
    d.txtBandName.text = " 20m ";
    d.txtFreq.text = "14.2";
    EXPECT_FALSE(frmSettings_txtFreq_LostFocus(st.c));
    EXPECT_EQ(d.txtFreq.text, "14.20000");
    d.chkEnc.value = 1;
    d.chkDec.value = 1;
    frmSettings_cmdAccept_Click(st.c);
    EXPECT_EQ(st.c.f.cmdBand[4].caption, "20m");
    EXPECT_EQ(st.c.s.BandEncDec[4], "01");
    // Not yet in the store: "Clear Band" drops the edit.
    frmSettings_cmdReset_Click(st.c);
    EXPECT_EQ(st.c.f.cmdBand[4].caption, "14");
    EXPECT_EQ(d.txtBandName.text, "14");

    d.txtBandName.text = "20m";
    d.chkDec.value = 1;
    Choose(d.cboCommPort, "SIM");
    frmSettings_cmdOK_Click(st.c);
    EXPECT_EQ(st.store->get("VELDOR", "Bands", "Band5Name", ""), "20m");
    EXPECT_EQ(st.store->get("VELDOR", "Bands", "Band5EncDec", ""), "01");
    LoadBands(st.c);
    EXPECT_EQ(st.c.s.BandName[4], "20m");
}

TEST(BandEditor, RefusesAFrequencyThatIsNoNumberOrOutsideTheRig) {
    OpenDialog st(RigFT817);
    FrmSettings& d = st.d();
    const struct {
        const char* typed;
        const char* message;  // nullptr: accepted
        const char* shown;
    } cases[] = {
        {"abc", "You have entered a non numeric value for the Band frequency - please retry",
         "abc"},
        {"900.0", "You have entered a Band frequency outside the range of the rig - please retry",
         "900.0"},
        {"0", nullptr, "Empty"},
        {"", nullptr, ""},
    };
    for (const auto& k : cases) {
        st.dialogs.messages.clear();
        d.txtFreq.text = k.typed;
        EXPECT_EQ(frmSettings_txtFreq_LostFocus(st.c), k.message != nullptr) << k.typed;
        EXPECT_EQ(d.txtFreq.text, k.shown);
        if (k.message) {
            ASSERT_EQ(st.dialogs.messages.size(), 1u);
            EXPECT_EQ(st.dialogs.messages[0].text, k.message);
            EXPECT_EQ(st.dialogs.messages[0].title, "Invalid number");
        }
    }
}

TEST(Retrieve, CopiesTheOlderProgramsSectionsOnlyWhenItWasUsed) {
    OpenDialog st(RigFT817);
    st.load("/CONFIG=radio2");
    frmSettings_cmdGetZantikoSettings_Click(st.c);
    EXPECT_TRUE(st.dialogs.messages.empty());
    EXPECT_EQ(st.store->get("VELDOR_RADIO2", "Settings", "CommSpeed", "none"), "none");

    st.store->save("Zantiko", "Bands", "Band1EncDec", "10");
    st.store->save("Zantiko_RADIO2", "Bands", "Band1EncDec", "01");
    st.store->save("Zantiko_RADIO2", "Settings", "CommSpeed", "9600,N,8,2");
    st.store->save("Zantiko_RADIO2", "Banks", "Bank1Name", "Local");
    st.store->save("VELDOR_RADIO2", "Settings", "CommSpeed", "4800,N,8,2");
    frmSettings_cmdGetZantikoSettings_Click(st.c);
    EXPECT_EQ(st.store->get("VELDOR_RADIO2", "Bands", "Band1EncDec", ""), "01");
    EXPECT_EQ(st.store->get("VELDOR_RADIO2", "Settings", "CommSpeed", ""), "9600,N,8,2");
    EXPECT_EQ(st.store->get("VELDOR_RADIO2", "Banks", "Bank1Name", ""), "Local");
    // Taken at the next start, not now.
    EXPECT_EQ(st.c.s.CommSpeed, "4800,N,8,2");
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
    EXPECT_FALSE(st.c.s.SettingsRequested);
    EXPECT_TRUE(st.pollTimer.on);

    st.c.s.ScanRunning = true;
    mnuSettings_Click(st.c);
    EXPECT_FALSE(st.c.s.SettingsRequested);
    st.c.s.ScanRunning = false;
    st.switchOff();
    mnuSettings_Click(st.c);
    EXPECT_EQ(st.windows.timesShown(FormId::frmSettings), 2);
}

}  // namespace
}  // namespace veldor::test
