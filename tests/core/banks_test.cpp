// Quick memory banks: storing the rig's frequency, recalling it through the tick, the keys of
// section "Banks", the colours that tell protected and unscanned memories, the dialog that
// defines a memory, and the memory tag.
#include "memories/banks.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "memories/memory_tag.h"
#include "memories/set_memory.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// A loaded station, its link on, showing a frequency, without touching a rig.
struct Desk : Station {
    explicit Desk(QChar mark = '.', const QString& rig = RigFT817) : Station(rig) {
        system.decimalMark = mark;
        load();
        c.f.chkOnOff.value = 1;
        c.f.txtVfoA.text = mark == '.' ? "145.500.00" : "145,500,00";
        c.f.txtMode.text = "FM ";
    }
    QString bank(const QString& key) { return stored("Banks", key); }
    // The memory dialog on a memory of the bank on show, the test playing the operator.
    void open(int index, std::function<void(FrmSetMemory&)> operate) {
        windows.operators[FormId::frmSetMemory] = [this, operate] { operate(c.frmSetMemory); };
        lblStore_MouseUp(c, index, RightButton);
    }
};

// The simulated rig is tuned by hand, and read.
void TuneRig(OnAir& a, int64_t hz, const QString& mode) {
    a.rig().state().frequencyHz = hz;
    a.rig().state().mode = mode;
    a.c.s.ForceUpdate = true;
    a.tick();
}

TEST(QuickMemory, StoredFromAnFt817AndRecalledPutsTheRigBackWithSimplex) {
    OnAir a(RigFT817);
    TuneRig(a, 145500000, "FM");
    lblSet_Click(a.c, 2);
    EXPECT_EQ(a.stored("Banks", "Bank1M3Freq"), "145.50000");
    EXPECT_EQ(a.c.f.lblStore[2].caption, "145.50000\nFM");

    a.rig().state().shift = "+";
    TuneRig(a, 7074000, "LSB");
    a.rig().clearTrace();
    lblStore_Click(a.c, 2);
    EXPECT_TRUE(a.rigReceived().isEmpty());  // the click only asks
    a.tick();
    EXPECT_EQ(a.rig().state().frequencyHz, 145500000);
    EXPECT_EQ(a.rig().state().shift, "0");  // shift goes out again on every recall
    // The mode (FM, opcode 07) before the frequency (opcode 01).
    const QByteArray wire = a.rigReceived();
    const qsizetype mode = wire.indexOf(Bytes({0x08, 0, 0, 0, 0x07}));
    ASSERT_GE(mode, 0);
    EXPECT_GT(wire.indexOf(Bytes({0x14, 0x55, 0x00, 0x00, 0x01})), mode);
}

TEST(QuickMemory, TheFt450StoresTheToneAndShiftItReportsAndSendsThemBack) {
    OnAir a(RigFT450);
    sim::RigState& rig = a.rig().state();
    rig.toneNumber = 8;  // 88.5 Hz
    rig.toneMode = "encode";
    rig.shift = "-";
    TuneRig(a, 29620000, "FM");
    lblSet_Click(a.c, 0);
    EXPECT_EQ(a.stored("Banks", "Bank1M1CTCSS"), "08");
    EXPECT_EQ(a.stored("Banks", "Bank1M1EncDec"), "10");
    EXPECT_EQ(a.stored("Banks", "Bank1M1Shift"), "-");

    rig.toneMode = "off";
    rig.shift = "0";
    TuneRig(a, 14074000, "USB");
    lblStore_Click(a.c, 0);
    a.tick();
    EXPECT_EQ(rig.frequencyHz, 29620000);
    EXPECT_EQ(rig.toneNumber, 8);
    EXPECT_EQ(rig.toneMode, "encode");
    EXPECT_EQ(rig.shift, "-");
}

TEST(QuickMemory, ADefinedMemoryIsProtectedFromAClickButNotFromADoubleClick) {
    Desk d('.', RigFT847);
    cmdBankNumber_Click(d.c, 1);
    d.open(2, [&](FrmSetMemory& f) {
        EXPECT_EQ(f.Frame1.caption, "Bank 2  Memory 3");
        EXPECT_EQ(f.cboCTCSS.list.size(), 40);  // "None", then the FT-847's 39 tones
        EXPECT_FALSE(f.cboMode.list.contains("USRU"));
        f.txtName.text = "Rpt ";
        f.txtFreq.text = "145.62500";
        f.cboMode.listIndex = static_cast<int>(f.cboMode.list.indexOf("FM"));
        f.cboCTCSS.listIndex = 3;
        f.chkEnc.value = 1;
        frmSetMemory_chkEnc_Click(d.c);
        f.chkDec.value = 1;
        frmSetMemory_chkDec_Click(d.c);  // clears the encoder
        f.optRepeaterShift = {};
        f.optRepeaterShift[1].value = true;
        frmSetMemory_cmdOK_Click(d.c);
    });
    const std::pair<const char*, const char*> keys[] = {
        {"ClickToSet", "N"}, {"Name", "Rpt"},  {"Freq", "145.62500"}, {"Mode", "FM"},
        {"CTCSS", "3"},      {"EncDec", "01"}, {"Shift", "-"}};
    for (auto [key, value] : keys) EXPECT_EQ(d.bank(QString("Bank2M3") + key), value);
    EXPECT_EQ(d.c.f.lblStore[2].caption, "Rpt\n145.62500");
    EXPECT_EQ(d.c.f.lblStore[2].backColour, BankPaleBlue);

    d.c.f.txtVfoA.text = "7.074.00";
    lblSet_Click(d.c, 2);
    EXPECT_EQ(d.bank("Bank2M3Freq"), "145.62500");
    lblSet_DblClick(d.c, 2);
    EXPECT_EQ(d.bank("Bank2M3Freq"), "Empty");
    EXPECT_EQ(d.bank("Bank2M3ClickToSet"), "Y");
    EXPECT_EQ(d.c.f.lblStore[2].backColour, PaleGreen);
}

TEST(SetMemoryDialog, TheFrequencyIsCheckedOnLeavingItsBox) {
    const struct {
        QChar mark;
        const char* typed;
        const char* shown;
        const char* offset;  // kHz, the band's usual offset
        const char* message;
    } rows[] = {
        {'.', "0", "Empty", "", nullptr},
        {'.', "Empty", "Empty", "", nullptr},  // the box's own word passes
        {'.', "433.2", "433.20000", "5000", nullptr},
        {'.', "29620", "29.62000", "100", nullptr},  // kHz without a decimal mark
        {',', "145,7", "145,70000", "600", nullptr},
        {'.', "2m", "2m", "",
         "You have entered a non numeric value for Set Memory frequency - please retry"},
        {'.', "500.5", "500.5", "",
         "You have entered a Set Memory frequency outside the range of the rig - please retry"},
    };
    for (const auto& row : rows) {
        Desk d(row.mark);
        d.c.frmSetMemory.txtFreq.text = row.typed;
        EXPECT_EQ(frmSetMemory_txtFreq_LostFocus(d.c), row.message != nullptr) << row.typed;
        EXPECT_EQ(d.c.frmSetMemory.txtFreq.text, row.shown);
        EXPECT_EQ(d.c.frmSetMemory.txtOffset.text, row.offset) << row.typed;
        if (row.message) {
            ASSERT_EQ(d.dialogs.messages.size(), 1u);
            EXPECT_EQ(d.dialogs.messages[0].text, row.message);
            EXPECT_EQ(d.dialogs.messages[0].title, "Invalid number");
        }
    }
}

TEST(SetMemoryDialog, ThePollStopsWhileOpenAndAnEmptyFrequencyEmptiesTheMemory) {
    Desk d;
    lblSet_Click(d.c, 0);
    d.pollTimer.on = true;
    d.open(0, [&](FrmSetMemory& f) {
        EXPECT_FALSE(d.pollTimer.on);
        f.txtFreq.text = " Empty ";
        frmSetMemory_cmdOK_Click(d.c);
    });
    EXPECT_TRUE(d.pollTimer.on);
    EXPECT_EQ(d.bank("Bank1M1Freq"), "Empty");
    EXPECT_EQ(d.bank("Bank1M1Scan"), "N");  // emptied here, it leaves bank scans
    EXPECT_EQ(d.c.f.lblStore[0].caption, "Empty");
}

TEST(QuickMemory, ARightClickOnSetTogglesTheScanFlagAndSwallowsItsOwnClick) {
    Desk d;
    // The platform's order for a right click: MouseUp with button 2, then Click.
    lblSet_MouseUp(d.c, 1, RightButton);
    lblSet_Click(d.c, 1);
    EXPECT_EQ(d.bank("Bank1M2Scan"), "N");
    EXPECT_EQ(d.bank("Bank1M2Freq"), "Empty");  // the click was swallowed
    EXPECT_EQ(d.c.f.lblSet[1].backColour, White);
    EXPECT_EQ(d.c.f.lblStore[1].backColour, PaleGreen);
    lblSet_MouseUp(d.c, 1, 1);  // the left button's does nothing
    lblSet_Click(d.c, 1);       // a left click stores, and scanned again
    EXPECT_EQ(d.bank("Bank1M2Freq"), "145.50000");
    EXPECT_EQ(d.c.f.lblSet[1].backColour, PaleGreen);
}

TEST(QuickMemory, Bank6Memory12StoresUnderItsKeys) {
    Desk d;
    cmdBankNumber_Click(d.c, 5);
    EXPECT_EQ(d.c.f.cmdBankNumber[5].backColour, Green);
    EXPECT_EQ(d.c.f.cmdBankNumber[0].backColour, PaleGreen);
    mnuSetM_Click(d.c, 12);
    const std::pair<const char*, const char*> keys[] = {
        {"ClickToSet", "Y"}, {"Name", "Click"}, {"Freq", "145.50000"},
        {"Mode", "FM"},      {"CTCSS", "0"},    {"EncDec", "00"},
        {"Shift", "0"},      {"Scan", "Y"},     {"Offset", "600"}};
    for (auto [key, value] : keys) EXPECT_EQ(d.bank(QString("Bank6M12") + key), value);
    cmdBankNumber_Click(d.c, 0);
    EXPECT_EQ(d.c.f.lblStore[11].caption, "Empty");  // bank 1 untouched
}

TEST(QuickMemory, LoadReadsTheOtherLocalesMarkAndEncDec11As01) {
    const std::pair<QChar, const char*> rows[] = {{'.', "145,50000"}, {',', "145.50000"}};
    for (auto [mark, stored] : rows) {
        Harness h;
        h.system.decimalMark = mark;
        for (auto [key, value] : {std::pair{"Bank1M1Freq", stored}, {"Bank1M1EncDec", "11"}})
            h.store->save(h.c.s.AppName, "Banks", key, value);
        InitialiseVariables(h.c);
        EXPECT_EQ(h.c.s.MemFreq[0], QString("145") + mark + "50000");
        EXPECT_EQ(h.c.s.MemEncDec[0], "01");
        EXPECT_EQ(h.stored("Banks", "Bank1M1EncDec"), "11");  // until the next save
    }
}

TEST(QuickMemory, ClearBankAsksAndKeepsShiftScanAndOffset) {
    Desk d;
    lblSet_Click(d.c, 0);
    lblSet_MouseUp(d.c, 0, RightButton);  // out of bank scans
    d.store->save(d.c.s.AppName, "Banks", "Bank1M1Offset", "1600");
    d.dialogs.answers = {MsgResult::No, MsgResult::Yes};
    cmdClearBank_Click(d.c);
    EXPECT_EQ(d.dialogs.messages[0].text, "Are your sure you want to clear memory bank Bank &1");
    EXPECT_EQ(d.bank("Bank1M1Freq"), "145.50000");
    cmdClearBank_Click(d.c);
    const std::pair<const char*, const char*> keys[] = {
        {"Freq", "Empty"}, {"Name", "Empty"}, {"Mode", ""}, {"Scan", "N"}, {"Offset", "1600"}};
    for (auto [key, value] : keys) EXPECT_EQ(d.bank(QString("Bank1M1") + key), value);
    EXPECT_EQ(d.c.f.lblStore[0].caption, "Empty");
    EXPECT_EQ(d.c.f.lblSet[0].backColour, White);
}

TEST(QuickMemory, RecallWaitsForTheLinkAndGivesWayToLongJobs) {
    using Set = void (*)(Core&);
    const std::pair<Set, bool> rows[] = {
        {[](Core& c) { c.f.chkOnOff.value = 0; }, false},
        {[](Core& c) { c.s.Transmitting = true; }, false},
        {[](Core& c) { c.s.ScanRunning = true; }, false},
        {[](Core& c) { c.s.SpectrumRunning = true; }, false},
        {[](Core& c) { c.s.SpectrumRunning = c.s.SpectrumPaused = true; }, true}};
    for (auto [set, recalls] : rows) {
        Desk d;
        lblSet_Click(d.c, 0);
        set(d.c);
        mnuGoToM_Click(d.c, 1);
        EXPECT_EQ(d.c.s.FrequencyChangePending, recalls);
        EXPECT_EQ(d.c.f.txtMemoryFreq.text.isEmpty(), !recalls);
    }
}

TEST(MemoryTag, OffFreqShowsOnceTheRigLeavesTheMemoryAndAClickAsksToGoBack) {
    for (QChar mark : {QChar('.'), QChar(',')}) {
        Desk d(mark);
        d.c.p.MSComm1->open("SIM", "4800,N,8,2", false, {}, nullptr);
        d.c.s.PollingDelay = 99;
        mnuMemoryTag_Click(d.c);
        EXPECT_TRUE(d.c.f.frmMemoryTag.visible);
        EXPECT_EQ(d.stored("Settings", "ShowMemoryTag"), "Y");
        lblSet_Click(d.c, 0);
        lblStore_Click(d.c, 0);
        EXPECT_EQ(d.c.f.txtMemoryTag.text, "Click");
        d.c.s.FrequencyChangePending = false;
        for (auto [shown, visible] : {std::pair{14550000, false}, {14552500, true}}) {
            d.c.s.LastDisplayedFrequency = shown;
            tmrPollInterval_Timer(d.c);
            EXPECT_EQ(d.c.f.lblMemoryMT.visible, visible) << mark.toLatin1();
        }
        lblMemoryMT_Click(d.c);
        EXPECT_EQ(d.c.f.txtGoToFreq.text, d.c.f.txtMemoryFreq.text);
        EXPECT_TRUE(d.c.s.GoToPending);
    }
}

}  // namespace
}  // namespace veldor::test
