// The FT-920 meters panel: the rig's meter blocks to bars, and a lost block.
#include "accessories/meters_panel.h"
#include "cycle/poll_cycle.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "protocol/read_meters.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

std::vector<int> Bars(const FrmMeters& m) {
    std::vector<int> v;
    for (const ProgressBar* b :
         {&m.pbarALC, &m.pbarVLT, &m.pbarAMP, &m.pbarFWD, &m.pbarREV, &m.pbarSFT, &m.pbarPCH,
          &m.pbarSQL, &m.pbarHPF, &m.pbarLPF, &m.pbarNR, &m.pbarPRC, &m.pbarDSC})
        v.push_back(b->value);
    return v;
}

TEST(MetersPanel, ShowsEachByteOfTheRigsMeterBlocksAndVfoB) {
    OnAir st(RigFT920);
    cmdMeters_Click(st.c);
    st.tick();
    ASSERT_TRUE(st.windows.shown(FormId::frmMeters));
    auto& bytes = st.rig().state().meters;
    for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<uint8_t>(100 + i);
    st.rig().state().vfoBHz = 7050000;
    st.c.f.left = 30000;
    mnuPollingUpdateNow_Click(st.c);
    st.tick();
    // Block 0 byte 0 is the S-meter and block 2 byte 0 is not shown; block 3 has three.
    EXPECT_EQ(Bars(st.c.frmMeters),
              (std::vector<int>{101, 102, 103, 104, 105, 106, 107, 109, 110, 111, 112, 113, 114}));
    EXPECT_EQ(st.c.frmMeters.lblDSC.caption, "114");
    EXPECT_EQ(st.c.frmMeters.lblVFOB.caption, "7.050.00");
    EXPECT_EQ(st.c.frmMeters.left + st.c.frmMeters.width, 30000);  // docked again at the reading
}

// A short or lost block ends the refresh: what was read so far shows, the rest keeps its
// figures, and the blocks after it are not asked.
TEST(MetersPanel, ALostBlockEndsTheRefresh) {
    ScriptedRig h(RigFT920);
    int round = 1;
    h.scriptedPort->answer = [&round](const QByteArray& frame) -> QByteArray {
        const int block = static_cast<uint8_t>(frame[3]);
        if (round == 2 && block == 2) return Bytes({1, 2, 3});
        const int base = 100 * round + 10 * block;
        return Bytes({base, base + 1, base + 2, base + 3, 0});
    };
    ReadMeters(h.c, Bytes({0, 1, 2, 3, 0}));
    round = 2;
    h.scriptedPort->written.clear();
    ReadMeters(h.c, Bytes({0, 4, 5, 6, 0}));
    EXPECT_EQ(Bars(h.c.frmMeters),
              (std::vector<int>{4, 5, 6, 210, 211, 212, 213, 121, 122, 123, 130, 131, 132}));
    EXPECT_EQ(h.scriptedPort->written.size(), 2u);
}

}  // namespace
}  // namespace veldor::test
