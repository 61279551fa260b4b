// Working the memory grid: moving, copying, swapping and deleting rows, in-place edits, the
// filters, and an import through its questions.
#include "grid/grid.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <QFile>

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// A loaded grid window on a station, with rows of the test's making.
struct GridStation : OnAir {
    GridStation() : OnAir(RigFT817) { frmCsvMem_Load(c); }
    MemoryGrid& g() { return c.frmCsvMem.grdMemories; }
    // Memories 1 to n, each with its number as its name.
    void memories(int n) {
        g().rows.resize(static_cast<size_t>(n) + 1);
        for (int r = 1; r <= n; ++r)
            g().rows[static_cast<size_t>(r)].cells = {
                QString::number(r),    "145.50000", "FM", "Simplex", ".60000", "", "", "", "Freq",
                QString("M%1").arg(r), "Y",         "0",  ""};
    }
    QStringList names() {
        QStringList out;
        for (int r = 1; r < g().Rows(); ++r) out << g().TextMatrix(r, 9);
        return out;
    }
    QString lastMessage() { return dialogs.messages.empty() ? "" : dialogs.messages.back().text; }
};

TEST(GridEditing, MoveLandsOnTheNumberTyped) {
    GridStation st;
    st.memories(9);
    st.g().Row = 3;
    st.dialogs.inputAnswers = {"7"};
    mnuMove_Click(st.c);
    EXPECT_EQ(st.dialogs.inputPrompts.back(),
              "This will move Memory 3 to the memory location you specify below");
    EXPECT_EQ(st.names(), QStringList({"M1", "M2", "M4", "M5", "M6", "M7", "M3", "M8", "M9"}));
    for (int r = 1; r < st.g().Rows(); ++r) EXPECT_EQ(st.g().TextMatrix(r, 0), QString::number(r));
}

TEST(GridEditing, RefusesAReplyThatIsNoOtherMemory) {
    GridStation st;
    st.memories(5);
    st.g().Row = 2;
    for (const char* reply : {"0", "2", "6", "1a"}) {
        st.dialogs.inputAnswers = {reply};
        mnuSwap_Click(st.c);
        EXPECT_EQ(st.lastMessage(),
                  "Memory number must be numeric, within the grid, and different to the source")
            << reply;
    }
    EXPECT_EQ(st.names(), QStringList({"M1", "M2", "M3", "M4", "M5"}));
}

TEST(GridEditing, DeleteInsertAndInPlaceEditsReachTheFileAtOnce) {
    GridStation st;
    st.memories(1);
    grdMemories_KeyDown(st.c, 46);
    EXPECT_EQ(st.lastMessage(), "Must have at least 1 memory in the grid");
    st.memories(3);
    st.g().Row = 2;
    st.dialogs.answers = {MsgResult::Yes};
    grdMemories_KeyDown(st.c, 110);
    EXPECT_EQ(st.lastMessage(), "Delete memory 2 ?");
    EXPECT_EQ(st.names(), QStringList({"M1", "M3"}));
    mnuInsertAbove_Click(st.c);
    EXPECT_EQ(st.g().TextMatrix(3, 9), "M3");

    EXPECT_FALSE(grdMemories_ValidateEdit(st.c, 1, 11, "ab"));
    EXPECT_TRUE(grdMemories_ValidateEdit(st.c, 1, 11, "a"));
    EXPECT_TRUE(grdMemories_ValidateEdit(st.c, 1, 12, "a,b;\"c\""));
    EXPECT_FALSE(grdMemories_ValidateEdit(st.c, 1, 9, "name"));

    // A crash now loses nothing.
    QFile file(GridFileName(st.c));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    std::vector<GridRow> saved;
    QString reason;
    ASSERT_TRUE(DecodeGrid(file.readAll(), &saved, &reason));
    ASSERT_EQ(saved.size(), st.g().rows.size());
    EXPECT_EQ(saved[1].cells[12], "a b  c ");
}

TEST(GridFilters, HideRowsByGroupModeAndRange) {
    GridStation st;
    st.memories(6);
    const struct {
        const char *rx, *mode, *group, *scan;
    } rows[] = {{"145.50000", "FM", "3", "N"},  {"146.00000", "WFM", "A", "Y"},
                {"146.00001", "USB", "3", "Y"}, {"7.05000", "LSB", "B", "Y"},
                {"Empty", "AM", "A", "Y"},      {"121.50000", "AMN", "3", "N"}};
    for (int r = 0; r < 6; ++r) {
        auto& cells = st.g().rows[static_cast<size_t>(r) + 1].cells;
        cells[1] = rows[r].rx;
        cells[2] = rows[r].mode;
        cells[11] = rows[r].group;
        cells[10] = rows[r].scan;
    }
    FrmCsvMem& w = st.c.frmCsvMem;
    const struct {
        std::array<int, 5> ticks;
        const char *show0, *show1, *mode, *lo, *hi;
        const char* visible;  // one letter per row
        bool scanRows;
    } cases[] = {
        {{1, 1, 0, 0, 0}, "3", "A", "All", "", "", "vvv-vv", true},
        {{1, 0, 0, 1, 0}, "3", "A", "FM", "", "", "v-----", false},
        {{0, 0, 0, 1, 0}, "0", "0", "SSB", "", "", "--vv--", true},
        {{0, 0, 0, 1, 0}, "0", "0", "AM", "", "", "----vv", true},
        // A text without a decimal mark is kHz. A row that is no number reads as -1: it
        // passes an upper limit alone.
        {{0, 0, 0, 0, 1}, "0", "0", "All", "", "146000", "vv-vvv", true},
        {{0, 0, 0, 0, 1}, "0", "0", "All", "145.5", "146.0", "vv----", true},
    };
    for (const auto& t : cases) {
        SCOPED_TRACE(testing::Message() << t.mode << " " << t.hi);
        for (int i : {0, 1, 3, 4}) w.chkFilter[i].value = t.ticks[i];
        w.cboShow[0].listIndex = static_cast<int>(w.cboShow[0].list.indexOf(t.show0));
        w.cboShow[1].listIndex = static_cast<int>(w.cboShow[1].list.indexOf(t.show1));
        w.cboModeFilter.listIndex = static_cast<int>(w.cboModeFilter.list.indexOf(t.mode));
        w.cboModeFilter.text = t.mode;
        w.txtFreqLo.text = t.lo;
        w.txtFreqHi.text = t.hi;
        ApplyGridFilters(st.c);
        QString visible;
        for (int r = 1; r < st.g().Rows(); ++r) visible += st.g().RowHidden(r) ? '-' : 'v';
        EXPECT_EQ(visible, t.visible);
        EXPECT_EQ(st.c.s.GridHasScanRows, t.scanRows);
    }
    // The Empty row is no number: its check says so, and it fails the range.
    EXPECT_EQ(st.lastMessage(), "Not a numeric number");
}

TEST(GridImport, AsksItsQuestionsAppendsAndClearsTheFilters) {
    GridStation st;
    st.memories(2);
    st.c.frmCsvMem.chkFilter[0].value = 1;
    const QString name = st.dir.path() + "/club.csv";
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("Memory;RX Freq\r\n1;145,6;FM;Minus;,6;;;;Freq;Rpt;x;1;North\r\n");
    file.close();
    st.dialogs.openAnswer = st.dir.path() + "/missing";
    mnuAddCSV_Click(st.c);
    EXPECT_EQ(st.lastMessage(), "Filename " + st.dir.path() + "/missing.CSV does not exist");
    st.dialogs.openAnswer = name;
    st.dialogs.answers = {MsgResult::Yes, MsgResult::No};
    mnuAddCSV_Click(st.c);
    ASSERT_GE(st.dialogs.messages.size(), 2u);
    EXPECT_EQ(st.dialogs.messages[st.dialogs.messages.size() - 2].text,
              "One or more errors existing in this file. Do you want to try to load it?");
    EXPECT_EQ(st.lastMessage(),
              "Do you want to clear all of the existing memories before importing?");
    ASSERT_EQ(st.g().Rows(), 4);
    EXPECT_EQ(st.g().rows[3].cells,
              (std::array<QString, GridCols>{"3", "145.60000", "FM", "Minus", ".60000", "", "", "",
                                             "Freq", "Rpt     ", "Y", "1", "North"}));
    EXPECT_EQ(st.c.frmCsvMem.chkFilter[0].value, 0);
}

}  // namespace
}  // namespace veldor::test
