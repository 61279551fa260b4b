// Working the memory grid: moving, copying, swapping and deleting rows, in-place edits, the
// filters, the printed listing, an import through its questions, and tuning the simulated
// rig from a row.
#include "grid/grid.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <QFile>

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// A loaded grid window on a station, with rows of the test's making.
struct GridStation : OnAir {
    explicit GridStation(const QString& rig = RigFT817) : OnAir(rig) { frmCsvMem_Load(c); }
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
    void row(int r, std::array<QString, GridCols> cells) {
        g().rows[static_cast<size_t>(r)].cells = std::move(cells);
    }
};

TEST(GridEditing, MoveLandsOnTheNumberTypedEitherWay) {
    GridStation st;
    st.memories(9);
    st.g().Row = 3;
    st.dialogs.inputAnswers = {"7"};
    mnuMove_Click(st.c);
    EXPECT_EQ(st.dialogs.inputPrompts.back(),
              "This will move Memory 3 to the memory location you specify below");
    EXPECT_EQ(st.names(), QStringList({"M1", "M2", "M4", "M5", "M6", "M7", "M3", "M8", "M9"}));
    st.memories(9);
    st.g().Row = 7;
    st.dialogs.inputAnswers = {"3"};
    mnuMove_Click(st.c);
    EXPECT_EQ(st.names(), QStringList({"M1", "M2", "M7", "M3", "M4", "M5", "M6", "M8", "M9"}));
    for (int r = 1; r < st.g().Rows(); ++r) EXPECT_EQ(st.g().TextMatrix(r, 0), QString::number(r));
    st.dialogs.inputAnswers = {"2"};
    st.g().Row = 9;
    mnuSwap_Click(st.c);
    EXPECT_EQ(st.names().mid(0, 2), QStringList({"M1", "M9"}));
    EXPECT_EQ(st.names().back(), "M2");
}

TEST(GridEditing, RefusesAReplyThatIsNoOtherMemory) {
    GridStation st;
    st.memories(5);
    st.g().Row = 2;
    for (const char* reply : {"0", "2", "6", "1a", "-1"}) {
        st.dialogs.inputAnswers = {reply};
        mnuSwap_Click(st.c);
        EXPECT_EQ(st.lastMessage(),
                  "Memory number must be numeric, within the grid, and different to the source")
            << reply;
    }
    EXPECT_EQ(st.system.beeps, 5);
    EXPECT_EQ(st.names(), QStringList({"M1", "M2", "M3", "M4", "M5"}));
    // Copy finds its target by the text of column 0: "07" matches none, so the headings go.
    st.memories(9);
    st.g().Row = 2;
    st.dialogs.inputAnswers = {"07"};
    st.dialogs.answers = {MsgResult::Yes};
    mnuCopy_Click(st.c);
    EXPECT_EQ(st.lastMessage(), "Target memory number 0 is not Empty\r\nDo you wish to continue?");
    EXPECT_EQ(st.g().TextMatrix(0, 9), "M2");
    EXPECT_EQ(st.g().TextMatrix(0, 0), "Memory");
    st.dialogs.inputAnswers = {"4"};
    st.dialogs.answers = {MsgResult::No};
    mnuCopy_Click(st.c);
    EXPECT_EQ(st.g().TextMatrix(4, 9), "M4");
}

TEST(GridEditing, DeleteInsertAndInPlaceEdits) {
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
    EXPECT_EQ(st.g().TextMatrix(2, 0), "2");
    EXPECT_EQ(st.g().TextMatrix(2, 2), "");
    EXPECT_EQ(st.g().TextMatrix(3, 9), "M3");

    EXPECT_FALSE(grdMemories_ValidateEdit(st.c, 1, 11, "ab"));
    EXPECT_TRUE(grdMemories_ValidateEdit(st.c, 1, 11, "a"));
    EXPECT_EQ(st.g().TextMatrix(1, 11), "A");
    EXPECT_FALSE(grdMemories_ValidateEdit(st.c, 1, 10, "x"));
    EXPECT_TRUE(grdMemories_ValidateEdit(st.c, 1, 10, "n"));
    EXPECT_TRUE(grdMemories_ValidateEdit(st.c, 1, 12, "a,b;\"c\""));
    EXPECT_EQ(st.g().TextMatrix(1, 12), "a b  c ");
    EXPECT_FALSE(grdMemories_ValidateEdit(st.c, 1, 9, "name"));
    EXPECT_FALSE(grdMemories_ValidateEdit(st.c, 0, 12, "heading"));

    // Every change is on disk at once: a crash now loses nothing.
    QFile file(GridFileName(st.c));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    std::vector<GridRow> saved;
    QString reason;
    ASSERT_TRUE(DecodeGrid(file.readAll(), &saved, &reason));
    ASSERT_EQ(saved.size(), st.g().rows.size());
    EXPECT_EQ(saved[1].cells[12], "a b  c ");
}

TEST(GridEditing, TheEditPanelChecksItsBoxesAndWritesTheRow) {
    GridStation st;
    st.memories(2);
    st.g().Row = 2;
    st.g().Col = 3;
    grdMemories_DblClick(st.c);
    FrmCsvMem& w = st.c.frmCsvMem;
    EXPECT_TRUE(w.frmEdit.visible);
    EXPECT_FALSE(w.grdMemories.enabled);
    EXPECT_EQ(w.lblEditing.caption, "Editing memory 2");
    w.cboShift.listIndex = 1;  // Plus
    w.txtFreqRX.text = "433.5";
    w.txtFreqTX.text = "1.6";
    EXPECT_TRUE(CheckFreqRX(st.c));
    EXPECT_EQ(w.txtFreqTX.text, "1.6");  // with a shift, the offset stays as typed
    w.cboShift.listIndex = 0;
    EXPECT_TRUE(CheckFreqRX(st.c));
    EXPECT_EQ(w.txtFreqRX.text, "433.50000");
    EXPECT_EQ(w.txtFreqTX.text, "5.00000");
    w.txtName.text = "Too,long,name";
    EXPECT_FALSE(CheckName(st.c));
    EXPECT_EQ(st.lastMessage(), "Name cannot be more than 8 characters");
    w.txtName.text = "GB3;X";
    EXPECT_TRUE(CheckName(st.c));
    w.cboDecode.listIndex = 3;  // CTCSS Enc
    cboDecode_Click(st.c);
    EXPECT_TRUE(w.cboCTCSS.enabled);
    w.cboCTCSS.listIndex = static_cast<int>(w.cboCTCSS.list.indexOf("88.5"));
    w.cboMode.listIndex = static_cast<int>(w.cboMode.list.indexOf("USB"));
    cboMode_Click(st.c);
    EXPECT_FALSE(w.cboDecode.enabled);
    EXPECT_EQ(ComboText(w.cboCTCSS), "");
    w.cboMode.listIndex = static_cast<int>(w.cboMode.list.indexOf("FM"));
    w.cboDecode.listIndex = 1;  // DCS
    w.cboDCS.listIndex = 0;
    w.txtGroup.text = "b7";
    cmdEditOK_Click(st.c);
    EXPECT_FALSE(w.frmEdit.visible);
    EXPECT_EQ(st.g().rows[2].cells,
              (std::array<QString, GridCols>{"2", "433.50000", "FM", "Simplex", "5.00000", "",
                                             "DCS", "023", "Freq", "GB3 X", "Y", "B", ""}));
}

TEST(GridFilters, HideRowsByGroupModeAndRange) {
    GridStation st;
    st.memories(6);
    const struct {
        const char* rx;
        const char* mode;
        const char* group;
        const char* scan;
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
        const char* show0;
        const char* show1;
        const char* mode;
        const char* lo;
        const char* hi;
        const char* visible;  // one letter per row
        bool scanRows;
    } cases[] = {
        {{0, 0, 0, 0, 0}, "0", "0", "All", "", "", "vvvvvv", true},
        {{1, 1, 0, 0, 0}, "3", "A", "All", "", "", "vvv-vv", true},
        {{1, 0, 0, 1, 0}, "3", "A", "FM", "", "", "v-----", false},
        {{0, 0, 0, 1, 0}, "0", "0", "SSB", "", "", "--vv--", true},
        {{0, 0, 0, 1, 0}, "0", "0", "AM", "", "", "----vv", true},
        {{0, 0, 0, 1, 0}, "0", "0", "All", "", "", "vvvvvv", true},
        // A text without a decimal mark is kHz. A row that is no number reads as -1: it
        // passes an upper limit alone.
        {{0, 0, 0, 0, 1}, "0", "0", "All", "", "146.0", "vv-vvv", true},
        {{0, 0, 0, 0, 1}, "0", "0", "All", "", "146000", "vv-vvv", true},
        {{0, 0, 0, 0, 1}, "0", "0", "All", "145.5", "146.0", "vv----", true},
    };
    for (const auto& t : cases) {
        for (int i : {0, 1, 3, 4}) w.chkFilter[i].value = t.ticks[i];
        w.cboShow[0].listIndex = static_cast<int>(w.cboShow[0].list.indexOf(t.show0));
        w.cboShow[1].listIndex = static_cast<int>(w.cboShow[1].list.indexOf(t.show1));
        w.cboModeFilter.listIndex = static_cast<int>(w.cboModeFilter.list.indexOf(t.mode));
        w.cboModeFilter.text = t.mode;
        w.txtFreqLo.text = t.lo;
        w.txtFreqHi.text = t.hi;
        st.dialogs.messages.clear();
        ApplyGridFilters(st.c);
        QString visible;
        for (int r = 1; r < st.g().Rows(); ++r) visible += st.g().RowHidden(r) ? '-' : 'v';
        EXPECT_EQ(visible, t.visible) << t.mode << " " << t.hi;
        EXPECT_EQ(st.c.s.GridHasScanRows, t.scanRows) << t.mode << " " << t.hi;
    }
    // The Empty row is no number: its check says so, and it fails the range.
    EXPECT_EQ(st.lastMessage(), "Not a numeric number");
    chkFilter_Click(st.c, 4);
    EXPECT_EQ(st.stored("Settings", "Filter4"), "1");
    mnuClearFilters_Click(st.c);
    EXPECT_EQ(st.stored("Settings", "Filter4"), "0");
    EXPECT_FALSE(st.g().RowHidden(3));
    // A group typed in lower case is the upper-case group once the box is left, and filters
    // from the next filter event on.
    w.txtFreqLo.text = w.txtFreqHi.text = "";
    for (int i : {0, 3, 4}) w.chkFilter[i].value = 0;
    w.chkFilter[1].value = 1;
    w.cboShow[1].listIndex = -1;
    w.cboShow[1].text = "b";
    cboShow_Validate(st.c, 1);
    EXPECT_EQ(ComboText(w.cboShow[1]), "B");
    EXPECT_EQ(st.stored("Settings", "Show1"), "B");
    chkFilter_Click(st.c, 1);
    EXPECT_EQ(st.g().RowHidden(4), false);
    EXPECT_EQ(st.g().RowHidden(1), true);
}

TEST(GridPrinting, ListsRowsDescriptionsAndRunsOfEmptyMemories) {
    GridStation st;
    st.memories(7);
    for (int r : {3, 4, 5, 7}) st.g().TextMatrix(r, 1) = "Empty";
    st.row(2, {"2", "145.50000", "FM", "Plus", ".60000", "", "CTCSS Enc", "88.5", "Name",
               "GB3X    ", "Y", "A", "Hill top"});
    bool failed = false;
    const QStringList lines = PrintListing(st.g(), '.', &failed);
    EXPECT_FALSE(failed);
    const QString blanks(15, ' ');
    EXPECT_EQ(lines, QStringList({
                         blanks + "Memories print",
                         "",
                         blanks + "RX Freq    Mode   Shift   TX/Offset  TX Mode  Decode       "
                                  "Tone   Show  Name   Scan/Group",
                         "",
                         "           1   145.50000  FM     Simplex    .60000                "
                         "               Freq  M1         Y/0",
                         "           2   145.50000  FM     Plus       .60000         CTCSS Enc  "
                         "    88.5   Name  GB3X       Y/A",
                         blanks + "Hill top",
                         "         3-5   Empty      ",
                         "           6   145.50000  FM     Simplex    .60000                "
                         "               Freq  M6         Y/0",
                         "           7   Empty      ",
                     }));
    st.printer.present = false;
    st.c.s.PrinterAvailable = false;
    mnuPrint_Click(st.c);
    EXPECT_EQ(st.lastMessage(), "No printer is available on this machine");
    // A run whose text is longer than five places stops the listing, and nothing is printed.
    st.memories(120);
    for (int r = 100; r <= 120; ++r) st.g().TextMatrix(r, 1) = "Empty";
    PrintListing(st.g(), '.', &failed);
    EXPECT_TRUE(failed);
    st.c.s.PrinterAvailable = true;
    mnuPrint_Click(st.c);
    EXPECT_TRUE(st.printer.documents.empty());
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
    EXPECT_TRUE(st.c.frmCsvMem.mnuAddCSV.enabled);
    st.dialogs.openAnswer = name;
    st.dialogs.answers = {MsgResult::Yes, MsgResult::No};
    mnuAddCSV_Click(st.c);
    ASSERT_GE(st.dialogs.messages.size(), 2u);
    EXPECT_EQ(st.dialogs.messages[st.dialogs.messages.size() - 2].text,
              "One or more errors existing in this file. Do you want to try to load it?");
    EXPECT_EQ(st.lastMessage(),
              "Do you want to clear all of the existing memories before importing?");
    EXPECT_TRUE(st.c.frmErrorList.txtErrors.text.contains("Record 1. Scan of X is invalid."));
    ASSERT_EQ(st.g().Rows(), 4);
    EXPECT_EQ(st.g().rows[3].cells,
              (std::array<QString, GridCols>{"3", "145.60000", "FM", "Minus", ".60000", "", "", "",
                                             "Freq", "Rpt     ", "Y", "1", "North"}));
    EXPECT_EQ(st.c.frmCsvMem.chkFilter[0].value, 0);
    EXPECT_EQ(st.c.s.FieldDelimiter, ";");

    st.dialogs.saveAnswer = name;
    st.dialogs.answers = {MsgResult::Yes};
    mnuSaveCSV_Click(st.c);
    EXPECT_EQ(st.dialogs.messages[st.dialogs.messages.size() - 2].text,
              "Filename " + name + " already exists\r\nDo you wish to replace it?");
    EXPECT_EQ(st.lastMessage(), "Save completed");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray saved = file.readAll();
    EXPECT_TRUE(saved.startsWith("Memory,RX Freq,"));
    EXPECT_TRUE(saved.endsWith("\r\n 3 , 145.6 ,FM,Minus, .6 ,,,,Freq,Rpt     ,Y,1,North\r\n"));
}

}  // namespace
}  // namespace veldor::test
