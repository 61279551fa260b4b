// The screen sizing, the messages log, and the convert window opened between two exchanges.
#include "cycle/shell_menus.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "shell/screen_size.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

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
}

INSTANTIATE_TEST_SUITE_P(
    Screens, ScreenSize,
    ::testing::Values(ScreenCase{1920, 1080, 96, "Medium", "Medium", 1.28, 1.28, false},
                      ScreenCase{800, 600, 96, "Small", "Small", 1.0, 1.0, true},
                      ScreenCase{1280, 1024, 120, "Large", "Medium", 1.28, 1.28, false},
                      ScreenCase{800, 600, 120, "Large", "Small", 1.0, 1.0, true},
                      ScreenCase{640, 480, 120, "Small", nullptr, 0, 0, false}));

TEST(Messages, OpenAfreshKeepTheNewestAndDropTheWholeLogPastTheLimit) {
    Harness h;
    FrmErrorList& w = h.c.frmErrorList;
    ReportMessage(h.c, "first");
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
}

}  // namespace
}  // namespace veldor::test
