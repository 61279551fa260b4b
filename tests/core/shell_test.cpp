// The window fitted to each rig, the screen sizing, the messages log and the about box.
#include "cycle/shell_menus.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "shell/about.h"
#include "shell/customise.h"
#include "shell/screen_size.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

const QString kVersion = QString("%1.%2.%3")
                             .arg(VELDOR_VERSION_MAJOR)
                             .arg(VELDOR_VERSION_MINOR)
                             .arg(VELDOR_VERSION_REVISION);

struct RigRow {
    const char* rig;
    const char* frame;  // the model frame on show, "" for none
    const char* modes;  // the captions of the mode buttons on show
    const char* extra;  // V: VFO toggle and equal, S: shift buttons, P: split, M: meters
    bool transmits;
    int tones;
};

// The rows as the operator's manual tables them for each rig.
const RigRow kRows[] = {
    {"FT920", "frmFT920", "LSB|USB|CW|CW(R)|FM|FMN|Narrow|AM|PKT(F)|RTY(U)|RTY(L)", "VSPM", true,
     39},
    {"FT1000MP", "frmFT1000MP", "LSB|USB|CW|FM|AM|CW(R)|PKT(L)|PKT(F)|RTY(U)|RTY(L)|AM(S)", "VP",
     true, 33},
    {"FT857", "frmFT857", "LSB|USB|CW|FM|AM|CW(R)|DIG|PKT|FMN", "VSP", true, 50},
    {"FT857D", "frmFT857", "LSB|USB|CW|FM|AM|CW(R)|DIG|PKT|FMN", "VSP", true, 50},
    {"FT897", "frmFT897", "LSB|USB|CW|FM|AM|CW(R)|DIG|PKT|FMN", "VSP", true, 50},
    {"FT897D", "frmFT897", "LSB|USB|CW|FM|AM|CW(R)|DIG|PKT|FMN", "VSP", true, 50},
    {"FT817", "frmFT817", "LSB|USB|CW|FM|AM|CW(R)|DIG|PKT", "VSP", true, 50},
    {"FT817ND", "frmFT817", "LSB|USB|CW|FM|AM|CW(R)|DIG|PKT", "VSP", true, 50},
    {"FT847", "frmFT847", "LSB|USB|CW|FM|AM|CW(R)", "SP", true, 39},
    {"VR5000", "frmVR5000FMN", "LSB|WAM|AM|WFM|USB|AM-N|CW|FM-N", "V", false, 39},
    {"FRG100", "frmFRG100", "LSB|USB|CW|FM|AM|CW-N|AMN", "", false, 39},
    {"FT450", "frmFT450", "LSB|USB|CW|FM|AM|RTYL|CWR|USRL|RTYU|FMN|USRU", "VS", true, 50},
    {"Not set", "", "LSB|USB|CW|FM|AM|CW(R)", "", true, 0},
};

QString FrameShown(const Form1& f) {
    const std::pair<const char*, const Frame*> frames[] = {
        {"frmFRG100", &f.frmFRG100},       {"frmFT450", &f.frmFT450},
        {"frmFT1000MP", &f.frmFT1000MP},   {"frmFT817", &f.frmFT817},
        {"frmFT897", &f.frmFT897},         {"frmFT857", &f.frmFT857},
        {"frmFT847", &f.frmFT847},         {"frmVR5000LSB", &f.frmVR5000LSB},
        {"frmVR5000AM", &f.frmVR5000AM},   {"frmVR5000WFM", &f.frmVR5000WFM},
        {"frmVR5000FMN", &f.frmVR5000FMN}, {"frmFT920", &f.frmFT920}};
    QStringList shown;
    for (const auto& [name, frame] : frames)
        if (frame->visible) shown << name;
    return shown.join(",");
}

// Each rig after every other: nothing of the rig before may stay.
TEST(Customise, FitsTheWindowToEachRigWhateverCameBefore) {
    Harness h;
    Form1& f = h.c.f;
    for (const RigRow& before : kRows) {
        for (const RigRow& row : kRows) {
            h.c.s.RigType = before.rig;
            CustomiseForms(h.c);
            h.c.s.RigType = row.rig;
            CustomiseForms(h.c);
            QStringList modes;
            for (const CommandButton& b : f.Command2)
                if (b.visible) modes << b.caption;
            QString extra;
            if (f.cmdVFOtoggle.visible && f.cmdVFOSEqual.visible) extra += "V";
            if (f.cmdShiftMinus.visible && f.cmdShiftSimplex.visible && f.cmdShiftPlus.visible)
                extra += "S";
            if (f.chkSplit.visible) extra += "P";
            if (f.cmdMeters.visible) extra += "M";
            const std::string at = std::string(row.rig) + " after " + before.rig;
            EXPECT_EQ(FrameShown(f), row.frame) << at;
            EXPECT_EQ(modes.join("|"), row.modes) << at;
            EXPECT_EQ(extra, row.extra) << at;
            EXPECT_EQ(f.chkTransmitEnable.enabled, row.transmits) << at;
            EXPECT_FALSE(f.cmdTxRx.enabled) << at;
            EXPECT_FALSE(f.cmdVFOBOff.visible) << at;
            EXPECT_EQ(f.cboCTCSS.list.size(), row.tones) << at;
            EXPECT_EQ(f.mnuFT817AGCmonitor.visible, IsFt817(row.rig)) << at;
            EXPECT_EQ(f.chkOnOff.toolTip, QString(" ") + row.rig + " ") << at;
        }
    }
}

struct ScreenCase {
    int width, height, dpi;
    const char* size;
    const char* effective;  // the size in force after; nullptr: the program ends
    double x, y;
    bool adjusted;  // told that the size was fitted to the screen
};

class ScreenSize : public ::testing::TestWithParam<ScreenCase> {};

TEST_P(ScreenSize, ScalesTheDesignToTheScreen) {
    const ScreenCase& k = GetParam();
    Harness h;
    h.system.screenWidth = k.width * 15;
    h.system.screenHeight = k.height * 15;
    h.system.dpi = k.dpi;
    h.c.s.ScreenSize = k.size;
    const bool runs = SetScreenSize(h.c);
    EXPECT_EQ(runs, k.effective != nullptr);
    EXPECT_EQ(h.system.ended, k.effective == nullptr);
    if (!runs) {
        ASSERT_EQ(h.dialogs.messages.size(), 1u);
        return;
    }
    EXPECT_EQ(h.c.s.ScreenSize, k.effective);
    EXPECT_DOUBLE_EQ(h.c.s.ScaleX, k.x);
    EXPECT_DOUBLE_EQ(h.c.s.ScaleY, k.y);
    EXPECT_EQ(h.dialogs.messages.size(), k.adjusted ? 1u : 0u);
    // Applied once: the same size again says and changes nothing.
    SetScreenSize(h.c);
    EXPECT_EQ(h.dialogs.messages.size(), k.adjusted ? 1u : 0u);
}

INSTANTIATE_TEST_SUITE_P(
    Screens, ScreenSize,
    ::testing::Values(ScreenCase{1920, 1080, 96, "Small", "Small", 1.0, 1.0, false},
                      ScreenCase{1920, 1080, 96, "Medium", "Medium", 1.28, 1.28, false},
                      ScreenCase{1024, 768, 96, "Large", "Large", 1.6, 1.6, false},
                      ScreenCase{1024, 768, 96, "None", "None", 1.0, 1.0, false},
                      ScreenCase{800, 600, 96, "Small", "Small", 1.0, 1.0, true},
                      ScreenCase{800, 600, 96, "Large", "Large", 1.25, 1.25, false},
                      ScreenCase{1280, 1024, 120, "Large", "Medium", 1.28, 1.28, false},
                      ScreenCase{800, 600, 120, "Large", "Small", 1.0, 1.0, true},
                      ScreenCase{640, 480, 120, "Small", nullptr, 0, 0, false},
                      ScreenCase{600, 480, 96, "Small", nullptr, 0, 0, false}));

TEST(Messages, OpenAfreshKeepTheNewestAndDropTheWholeLogPastTheLimit) {
    Harness h;
    FrmErrorList& w = h.c.frmErrorList;
    ReportMessage(h.c, "first");
    EXPECT_TRUE(w.visible);
    ReportMessage(h.c, "second");
    EXPECT_EQ(w.txtErrors.text, "first\r\nsecond\r\n");
    // Closed by hand: the next message reopens it with that line alone.
    frmErrorList_cmdClose_Click(h.c);
    ReportMessage(h.c, "third");
    EXPECT_EQ(w.txtErrors.text, "third\r\n");
    // Up to the limit the log grows; past it, the next line stands alone.
    w.txtErrors.text = QString(64000, 'x');
    ReportMessage(h.c, "kept");
    EXPECT_TRUE(w.txtErrors.text.endsWith("kept\r\n"));
    EXPECT_EQ(w.txtErrors.text.size(), 64006);
    ReportMessage(h.c, "alone");
    EXPECT_EQ(w.txtErrors.text, "alone\r\n");
    frmErrorList_cmdClearMessages_Click(h.c);
    EXPECT_EQ(w.txtErrors.text, "");
}

TEST(Messages, TheClipboardTakesTheWholeLogWithItsStampLast) {
    Harness h;
    ReportMessage(h.c, "COM Port 1: permission denied");
    frmErrorList_cmdCopyToClipboard_Click(h.c);
    const QStringList lines = h.system.clipboard.split("\r\n", Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0], "COM Port 1: permission denied");
    const QDateTime now = h.clock.localNow();
    EXPECT_EQ(lines[1], "Copied to Clipboard " + now.toString("yyyy/MM/dd") + " " +
                            now.toString("HH:mm:ss") + "VELDOR  V" + kVersion);
    EXPECT_EQ(h.c.frmErrorList.txtErrors.text, h.system.clipboard);
}

TEST(ShellMenus, ConvertWaitsForTheTickAndGivesUpTheLinkWhileOpen) {
    Station st(RigFT847);
    st.load();
    st.switchOn();
    mnuConvert_Click(st.c);
    EXPECT_TRUE(st.c.s.PendingConvert);
    EXPECT_EQ(st.windows.timesShown(FormId::frmConvert), 0);
    bool catDuring = true;
    st.windows.operators[FormId::frmConvert] = [&] { catDuring = st.rig().state().catOn; };
    tmrPollInterval_Timer(st.c);
    EXPECT_EQ(st.windows.timesShown(FormId::frmConvert), 1);
    EXPECT_FALSE(catDuring);
    EXPECT_TRUE(st.rig().state().catOn);
    EXPECT_FALSE(st.c.s.PendingConvert);
    EXPECT_TRUE(st.c.frmErrorList.txtErrors.text.contains("Messages from the Convert routine"));

    mnuResetMemoryGridPosition_Click(st.c);
    for (const auto& [key, value] : {std::pair{"MemoryTop", "0"},
                                     {"MemoryLeft", "0"},
                                     {"MemoryHeight", "6000"},
                                     {"MemoryWidth", "10000"}})
        EXPECT_EQ(st.stored("Settings", key), value);
}

TEST(About, ShowsTitleAndVersion) {
    Station st(RigFT817);
    st.load();
    mnuAbout_Click(st.c);
    EXPECT_EQ(st.windows.timesShown(FormId::frmAbout), 1);
    EXPECT_EQ(st.c.frmAbout.caption, "About VELDOR");
    EXPECT_EQ(st.c.frmAbout.lblVersion.caption, "Version " + kVersion);
    frmAbout_lblLink_Click(st.c);
    ASSERT_EQ(st.system.opened.size(), 1u);
    EXPECT_TRUE(st.system.opened[0].endsWith("/manual/index.html"));
}

}  // namespace
}  // namespace veldor::test
