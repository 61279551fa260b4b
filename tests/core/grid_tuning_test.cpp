// Tuning the simulated rig from a row of the memory grid.
#include "grid/grid.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

struct Tuned : OnAir {
    explicit Tuned(const QString& rig) : OnAir(rig) { frmCsvMem_Load(c); }
    void goTo(std::array<QString, GridCols> cells) {
        MemoryGrid& g = c.frmCsvMem.grdMemories;
        g.rows[1].cells = std::move(cells);
        g.Row = 1;
        mnuGoTo_Click(c);
        tick();
        tick();
    }
    sim::RigState& state() { return rig().state(); }
};

TEST(GridGoTo, TunesSimplexRepeaterToneAndSplitRows) {
    Tuned st(RigFT817);
    st.goTo(
        {"1", "145.50000", "FM", "Simplex", ".60000", "", "", "", "Freq", "Calling", "Y", "0", ""});
    EXPECT_EQ(st.state().frequencyHz, 145500000);
    EXPECT_EQ(st.state().mode, "FM");
    EXPECT_EQ(st.state().shift, "0");
    EXPECT_EQ(st.c.f.txtMemoryTag.text, "Calling");

    st.goTo({"1", "145.60000", "FM", "Minus", ".60000", "", "CTCSS Enc", "88.5", "Freq", "", "Y",
             "0", ""});
    EXPECT_EQ(st.state().frequencyHz, 145600000);
    EXPECT_EQ(st.state().shift, "-");
    EXPECT_EQ(st.state().offsetHz, 600000);
    EXPECT_EQ(st.state().toneDeciHz, 885);
    EXPECT_EQ(st.state().toneMode, "encode");

    // A split pair: the transmit side on VFO B, the receive side on A, split on.
    Tuned split(RigFT920);
    split.goTo(
        {"1", "14.20000", "USB", "Split", "14.25000", "CW", "", "", "Freq", "", "Y", "0", ""});
    EXPECT_EQ(split.state().frequencyHz, 14200000);
    EXPECT_EQ(split.state().mode, "USB");
    EXPECT_EQ(split.state().vfoBHz, 14250000);
    EXPECT_FALSE(split.state().vfoB);
    EXPECT_TRUE(split.state().split);
}

TEST(GridGoTo, NothingIsTunedWhileTheLinkIsOffOrTheRigTransmitsOrScans) {
    for (void (*busy)(Core&) :
         {+[](Core& c) { c.f.chkOnOff.value = 0; }, +[](Core& c) { c.s.Transmitting = true; },
          +[](Core& c) { c.s.ScanRunning = true; }}) {
        Tuned st(RigFT817);
        busy(st.c);
        MemoryGrid& g = st.c.frmCsvMem.grdMemories;
        g.rows[1].cells = {"1", "7.00000", "LSB",   "Simplex", "",  "", "",
                           "",  "Freq",    "after", "Y",       "0", ""};
        g.Row = 1;
        mnuGoTo_Click(st.c);
        EXPECT_FALSE(st.c.s.FrequencyChangePending);
        EXPECT_NE(st.c.f.txtMemoryTag.text, "after");
    }
}

}  // namespace
}  // namespace veldor::test
