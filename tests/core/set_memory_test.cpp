// The dialog that defines a quick memory: its lists, its checks on leaving a box, what OK
// stores, and the poll stopped while it is open.
#include "memories/set_memory.h"
#include "link/catalogue.h"
#include "memories/banks.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// The dialog open on memory `index` of bank `bank` of a loaded station; the test plays the
// operator in `operate`.
struct Dialog : Station {
    explicit Dialog(const QString& rig, QChar mark = '.') : Station(rig) {
        system.decimalMark = mark;
        load();
    }
    void open(int bank, int index, std::function<void(FrmSetMemory&)> operate) {
        cmdBankNumber_Click(c, bank);
        windows.operators[FormId::frmSetMemory] = [this, operate] { operate(c.frmSetMemory); };
        lblStore_MouseUp(c, index, RightButton);
    }
    QString bank(const QString& key) { return stored("Banks", key); }
};

TEST(SetMemoryDialog, OffersTheRigsTonesAfterNoneAndNamesTheMemory) {
    Dialog d(RigFT847);
    d.open(1, 4, [&](FrmSetMemory& f) {
        EXPECT_EQ(f.Frame1.caption, "Bank 2  Memory 5");
        ASSERT_EQ(f.cboCTCSS.list.size(), 40);
        EXPECT_EQ(f.cboCTCSS.list[0], "None");
        EXPECT_EQ(f.cboCTCSS.list[1], "67.0");
        EXPECT_EQ(f.cboCTCSS.listIndex, 0);
        EXPECT_TRUE(f.cboMode.list.contains("FM"));
        EXPECT_FALSE(f.cboMode.list.contains("USRU"));  // not the FT-847's
        EXPECT_EQ(f.txtFreq.text, "Empty");
        EXPECT_EQ(f.optRepeaterShift[0].value, true);
        EXPECT_EQ(f.chkScan.value, 1);
    });
    EXPECT_EQ(d.windows.timesShown(FormId::frmSetMemory), 1);
}

TEST(SetMemoryDialog, TheEncoderAndTheDecoderExcludeEachOther) {
    Harness h;
    FrmSetMemory& f = h.c.frmSetMemory;
    f.chkEnc.value = 1;
    frmSetMemory_chkEnc_Click(h.c);
    f.chkDec.value = 1;
    frmSetMemory_chkDec_Click(h.c);
    EXPECT_EQ(f.chkEnc.value, 0);
    f.chkEnc.value = 1;
    frmSetMemory_chkEnc_Click(h.c);
    EXPECT_EQ(f.chkDec.value, 0);
}

TEST(SetMemoryDialog, TheFrequencyIsCheckedOnLeavingItsBox) {
    const struct {
        QChar mark;
        const char* typed;
        bool back;
        const char* shown;
        const char* offset;
        const char* message;
    } rows[] = {
        {'.', "", false, "Empty", "600", nullptr},
        {'.', "0", false, "Empty", "600", nullptr},
        {'.', "Empty", false, "Empty", "600", nullptr},
        {'.', "145.7", false, "145.70000", "600", nullptr},
        {'.', "433.2", false, "433.20000", "5000", nullptr},
        {'.', "51.91", false, "51.91000", "1000", nullptr},
        {'.', "29620", false, "29.62000", "100", nullptr},
        {',', "145,7", false, "145,70000", "600", nullptr},
        {'.', "2m", true, "2m", "600",
         "You have entered a non numeric value for Set Memory frequency - please retry"},
        {'.', "500.5", true, "500.5", "600",
         "You have entered a Set Memory frequency outside the range of the rig - please retry"},
    };
    for (const auto& row : rows) {
        Dialog d(RigFT817, row.mark);
        d.c.frmSetMemory.txtOffset.text = "600";
        d.c.frmSetMemory.txtFreq.text = row.typed;
        EXPECT_EQ(frmSetMemory_txtFreq_LostFocus(d.c), row.back) << row.typed;
        EXPECT_EQ(d.c.frmSetMemory.txtFreq.text, row.shown);
        EXPECT_EQ(d.c.frmSetMemory.txtOffset.text, row.offset) << row.typed;
        if (row.message) {
            ASSERT_EQ(d.dialogs.messages.size(), 1u) << row.typed;
            EXPECT_EQ(d.dialogs.messages[0].text, row.message);
            EXPECT_EQ(d.dialogs.messages[0].title, "Invalid number");
        } else {
            EXPECT_TRUE(d.dialogs.messages.empty()) << row.typed;
        }
    }
}

TEST(SetMemoryDialog, ABlankOffsetBecomes600AndAWordIsRefused) {
    Harness h;
    TextBox& offset = h.c.frmSetMemory.txtOffset;
    for (const char* blank : {"", "   "}) {
        offset.text = blank;
        EXPECT_FALSE(frmSetMemory_txtOffset_LostFocus(h.c));
        EXPECT_EQ(offset.text, "600");
    }
    offset.text = "1600";
    EXPECT_FALSE(frmSetMemory_txtOffset_LostFocus(h.c));
    offset.text = "six";
    EXPECT_TRUE(frmSetMemory_txtOffset_LostFocus(h.c));
    ASSERT_EQ(h.dialogs.messages.size(), 1u);
    EXPECT_EQ(h.dialogs.messages[0].text, "Repeater offset is not numeric");
}

TEST(SetMemoryDialog, OkStoresTheMemoryProtectedAndAnEmptyFrequencyEmptiesIt) {
    Dialog d(RigFT817);
    d.open(0, 2, [&](FrmSetMemory& f) {
        f.txtName.text = "Rpt ";
        f.txtFreq.text = "145.62500";
        f.cboMode.listIndex = static_cast<int>(f.cboMode.list.indexOf("FM"));
        f.cboCTCSS.listIndex = 3;
        f.chkDec.value = 1;
        f.optRepeaterShift = {};
        f.optRepeaterShift[1].value = true;
        f.chkScan.value = 0;
        f.txtOffset.text = "600";
        frmSetMemory_cmdOK_Click(d.c);
    });
    const std::pair<const char*, const char*> keys[] = {
        {"Bank1M3ClickToSet", "N"}, {"Bank1M3Name", "Rpt"}, {"Bank1M3Freq", "145.62500"},
        {"Bank1M3Mode", "FM"},      {"Bank1M3CTCSS", "3"},  {"Bank1M3EncDec", "01"},
        {"Bank1M3Shift", "-"},      {"Bank1M3Scan", "N"},   {"Bank1M3Offset", "600"}};
    for (auto [key, value] : keys) EXPECT_EQ(d.bank(key), value) << key;

    // Without a switch on, no tone is kept.
    d.open(0, 2, [&](FrmSetMemory& f) {
        EXPECT_EQ(f.cboCTCSS.listIndex, 3);
        EXPECT_EQ(f.chkDec.value, 1);
        EXPECT_TRUE(f.optRepeaterShift[1].value);
        f.chkDec.value = 0;
        frmSetMemory_cmdOK_Click(d.c);
    });
    EXPECT_EQ(d.bank("Bank1M3CTCSS"), "0");

    d.open(0, 2, [&](FrmSetMemory& f) {
        f.txtFreq.text = " Empty ";
        frmSetMemory_cmdOK_Click(d.c);
    });
    EXPECT_EQ(d.bank("Bank1M3Freq"), "Empty");
    EXPECT_EQ(d.bank("Bank1M3ClickToSet"), "Y");
    EXPECT_EQ(d.bank("Bank1M3Scan"), "N");  // emptied here, it leaves bank scans
    EXPECT_EQ(d.c.f.lblStore[2].caption, "Empty");
}

TEST(SetMemoryDialog, CancelChangesNothing) {
    Dialog d(RigFT817);
    d.open(0, 0, [&](FrmSetMemory& f) {
        f.txtFreq.text = "145.5";
        frmSetMemory_cmdCancel_Click(d.c);
    });
    EXPECT_EQ(d.bank("Bank1M1Freq"), "<missing>");
}

TEST(SetMemoryDialog, ThePollStopsWhileItIsOpen) {
    for (const QString& rig : {RigFT817, RigNotSet}) {
        Dialog d(rig);
        d.pollTimer.on = true;
        bool onWhileOpen = true;
        d.open(0, 0, [&](FrmSetMemory&) { onWhileOpen = d.pollTimer.on; });
        EXPECT_FALSE(onWhileOpen);
        EXPECT_EQ(d.pollTimer.on, rig != RigNotSet) << rig.toStdString();
    }
}

}  // namespace
}  // namespace veldor::test
