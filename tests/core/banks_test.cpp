// Quick memory banks: storing the rig's frequency, recalling it through the tick, the keys of
// section "Banks", and the colours that tell protected and unscanned memories.
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
    explicit Desk(QChar mark = '.') : Station(RigFT817) {
        system.decimalMark = mark;
        load();
        c.f.chkOnOff.value = 1;
        c.f.txtVfoA.text = mark == '.' ? "145.500.00" : "145,500,00";
        c.f.txtMode.text = "FM ";
    }
    QString bank(const QString& key) { return stored("Banks", key); }
};

// The rig is read now, whatever the polling rate.
void Read(OnAir& a) {
    a.c.s.ForceUpdate = true;
    a.tick();
}

TEST(QuickMemory, StoredFromAnFt817AndRecalledPutsTheRigBackWithSimplex) {
    OnAir a(RigFT817);
    a.rig().state().frequencyHz = 145500000;
    a.rig().state().mode = "FM";
    Read(a);
    lblSet_Click(a.c, 2);
    EXPECT_EQ(a.stored("Banks", "Bank1M3Freq"), "145.50000");
    EXPECT_EQ(a.stored("Banks", "Bank1M3Mode"), "FM");
    EXPECT_EQ(a.c.f.lblStore[2].caption, "145.50000\nFM");

    a.rig().state().frequencyHz = 7074000;
    a.rig().state().mode = "LSB";
    a.rig().state().shift = "+";
    Read(a);
    a.rig().clearTrace();
    lblStore_Click(a.c, 2);
    EXPECT_TRUE(a.rigReceived().isEmpty());  // the click only asks
    a.tick();
    EXPECT_EQ(a.rig().state().frequencyHz, 145500000);
    EXPECT_EQ(a.rig().state().mode, "FM");
    EXPECT_EQ(a.rig().state().shift, "0");  // shift goes out again on every recall
    // Mode (opcode 07) before frequency (opcode 01), as the rig's manual codes them.
    const QByteArray wire = a.rigReceived();
    const qsizetype mode = wire.indexOf(Bytes({0x08, 0, 0, 0, 0x07}));
    const qsizetype frequency = wire.indexOf(Bytes({0x14, 0x55, 0x00, 0x00, 0x01}));
    ASSERT_GE(mode, 0);
    EXPECT_GT(frequency, mode);
}

TEST(QuickMemory, TheFt450StoresTheToneAndShiftItReportsAndSendsThemBack) {
    OnAir a(RigFT450);
    sim::RigState& rig = a.rig().state();
    rig.frequencyHz = 29620000;
    rig.mode = "FM";
    rig.toneNumber = 8;  // 88.5 Hz
    rig.toneMode = "encode";
    rig.shift = "-";
    Read(a);
    lblSet_Click(a.c, 0);
    EXPECT_EQ(a.stored("Banks", "Bank1M1CTCSS"), "08");
    EXPECT_EQ(a.stored("Banks", "Bank1M1EncDec"), "10");
    EXPECT_EQ(a.stored("Banks", "Bank1M1Shift"), "-");

    rig.frequencyHz = 14074000;
    rig.mode = "USB";
    rig.toneNumber = 0;
    rig.toneMode = "off";
    rig.shift = "0";
    Read(a);
    lblStore_Click(a.c, 0);
    a.tick();
    EXPECT_EQ(rig.frequencyHz, 29620000);
    EXPECT_EQ(rig.toneNumber, 8);
    EXPECT_EQ(rig.toneMode, "encode");
    EXPECT_EQ(rig.shift, "-");
}

TEST(QuickMemory, ADefinedMemoryWithstandsAClickButNotADoubleClick) {
    Desk d;
    d.windows.operators[FormId::frmSetMemory] = [&] {
        d.c.frmSetMemory.txtName.text = " GB3WS ";
        d.c.frmSetMemory.txtFreq.text = "145.77500";
        frmSetMemory_cmdOK_Click(d.c);
    };
    lblStore_DblClick(d.c, 4);
    EXPECT_EQ(d.c.f.lblStore[4].caption, "GB3WS\n145.77500");
    EXPECT_EQ(d.c.f.lblStore[4].backColour, BankPaleBlue);

    lblSet_Click(d.c, 4);
    EXPECT_EQ(d.bank("Bank1M5Freq"), "145.77500");
    EXPECT_EQ(d.bank("Bank1M5ClickToSet"), "N");

    lblSet_DblClick(d.c, 4);
    EXPECT_EQ(d.c.f.lblStore[4].caption, "Empty");
    EXPECT_EQ(d.bank("Bank1M5Freq"), "Empty");
    EXPECT_EQ(d.bank("Bank1M5ClickToSet"), "Y");
    EXPECT_EQ(d.c.f.lblStore[4].backColour, PaleGreen);
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

    lblSet_MouseUp(d.c, 1, 1);  // the left button's MouseUp does nothing
    lblSet_Click(d.c, 1);       // a left click stores, scanned again
    EXPECT_EQ(d.bank("Bank1M2Freq"), "145.50000");
    EXPECT_EQ(d.bank("Bank1M2Scan"), "Y");
    EXPECT_EQ(d.c.f.lblSet[1].backColour, PaleGreen);

    lblSet_MouseUp(d.c, 1, RightButton);
    lblSet_Click(d.c, 1);
    EXPECT_EQ(d.c.f.lblSet[1].backColour, White);
    EXPECT_EQ(d.c.f.lblStore[1].caption, "145.50000\nFM");  // a scan flag alone changes
}

TEST(QuickMemory, Bank6Memory12IsTheLastKeyOfTheStore) {
    Desk d;
    cmdBankNumber_Click(d.c, 5);
    EXPECT_EQ(d.c.f.cmdBankNumber[5].backColour, Green);
    EXPECT_EQ(d.c.f.cmdBankNumber[0].backColour, PaleGreen);
    mnuSetM_Click(d.c, 12);
    const std::pair<const char*, const char*> keys[] = {
        {"Bank6M12ClickToSet", "Y"}, {"Bank6M12Name", "Click"}, {"Bank6M12Freq", "145.50000"},
        {"Bank6M12Mode", "FM"},      {"Bank6M12CTCSS", "0"},    {"Bank6M12EncDec", "00"},
        {"Bank6M12Shift", "0"},      {"Bank6M12Scan", "Y"},     {"Bank6M12Offset", "600"}};
    for (auto [key, value] : keys) EXPECT_EQ(d.bank(key), value) << key;
    for (const auto& [key, value] : d.store->getAll(d.c.s.AppName, "Banks")) {
        EXPECT_FALSE(key.startsWith("Bank7")) << key.toStdString();
        EXPECT_FALSE(key.contains("M13")) << key.toStdString();
    }
    // Bank 1 is untouched, and shows again with its own button.
    cmdBankNumber_Click(d.c, 0);
    EXPECT_EQ(d.c.f.lblStore[11].caption, "Empty");
    mnuGoToM_Click(d.c, 12);
    EXPECT_FALSE(d.c.s.FrequencyChangePending);
}

TEST(QuickMemory, LoadReadsTheOtherLocalesMarkAndEncDec11As01) {
    const struct {
        QChar system;
        const char* stored;
        const char* loaded;
    } rows[] = {{'.', "145,50000", "145.50000"}, {',', "145.50000", "145,50000"}};
    for (const auto& row : rows) {
        Harness h;
        h.system.decimalMark = row.system;
        h.store->save(h.c.s.AppName, "Banks", "Bank1M1Freq", row.stored);
        h.store->save(h.c.s.AppName, "Banks", "Bank1M1Name", "Click");
        h.store->save(h.c.s.AppName, "Banks", "Bank1M1EncDec", "11");
        InitialiseVariables(h.c);
        EXPECT_EQ(h.c.s.MemFreq[0], row.loaded);
        EXPECT_EQ(h.c.f.lblStore[0].caption, QString(row.loaded) + "\n");
        EXPECT_EQ(h.c.s.MemEncDec[0], "01");
        EXPECT_EQ(h.stored("Banks", "Bank1M1EncDec"), "11");  // until the next save
        h.c.f.chkOnOff.value = 1;
        lblStore_Click(h.c, 0);
        EXPECT_EQ(h.c.s.TargetFrequency, 14550000);
        EXPECT_EQ(h.c.s.ToneEncode + h.c.s.ToneDecode, "01");
    }
}

TEST(QuickMemory, ClearBankAsksAndKeepsShiftScanAndOffset) {
    Desk d;
    lblSet_Click(d.c, 0);
    lblSet_MouseUp(d.c, 0, RightButton);  // scan flag "N"
    d.store->save(d.c.s.AppName, "Banks", "Bank1M1Shift", "+");
    d.store->save(d.c.s.AppName, "Banks", "Bank1M1Offset", "1600");

    d.dialogs.answers = {MsgResult::No};
    cmdClearBank_Click(d.c);
    EXPECT_EQ(d.dialogs.messages.back().text,
              "Are your sure you want to clear memory bank Bank &1");
    EXPECT_EQ(d.bank("Bank1M1Freq"), "145.50000");

    d.dialogs.answers = {MsgResult::Yes};
    cmdClearBank_Click(d.c);
    EXPECT_EQ(d.bank("Bank1M1Freq"), "Empty");
    EXPECT_EQ(d.bank("Bank1M1Name"), "Empty");
    EXPECT_EQ(d.bank("Bank1M1Mode"), "");
    EXPECT_EQ(d.bank("Bank1M1Shift"), "+");
    EXPECT_EQ(d.bank("Bank1M1Scan"), "N");
    EXPECT_EQ(d.bank("Bank1M1Offset"), "1600");
    EXPECT_EQ(d.c.f.lblStore[0].caption, "Empty");
    EXPECT_EQ(d.c.f.lblSet[0].backColour, White);  // still passed over by bank scans
}

TEST(QuickMemory, RecallWaitsForTheLinkAndGivesWayToLongJobs) {
    const struct {
        const char* what;
        void (*set)(Core&);
        bool recalls;
    } rows[] = {
        {"link off", [](Core& c) { c.f.chkOnOff.value = 0; }, false},
        {"transmitting", [](Core& c) { c.s.Transmitting = true; }, false},
        {"scanning", [](Core& c) { c.s.ScanRunning = true; }, false},
        {"sweeping", [](Core& c) { c.s.SpectrumRunning = true; }, false},
        {"sweep paused",
         [](Core& c) {
             c.s.SpectrumRunning = true;
             c.s.SpectrumPaused = true;
         },
         true},
    };
    for (const auto& row : rows) {
        Desk d;
        lblSet_Click(d.c, 0);
        row.set(d.c);
        mnuGoToM_Click(d.c, 1);
        EXPECT_EQ(d.c.s.FrequencyChangePending, row.recalls) << row.what;
        EXPECT_EQ(d.c.f.txtMemoryFreq.text.isEmpty(), !row.recalls) << row.what;
    }
}

TEST(MemoryTag, OffFreqShowsOnceTheRigLeavesTheMemoryAndAClickAsksToGoBack) {
    for (QChar mark : {QChar('.'), QChar(',')}) {
        Desk d(mark);
        d.c.p.MSComm1->open("SIM", "4800,N,8,2", false, nullptr);
        d.c.s.PollingDelay = 99;
        mnuMemoryTag_Click(d.c);
        EXPECT_TRUE(d.c.f.frmMemoryTag.visible);
        EXPECT_EQ(d.stored("Settings", "ShowMemoryTag"), "Y");
        lblSet_Click(d.c, 0);
        lblStore_Click(d.c, 0);
        EXPECT_EQ(d.c.f.txtMemoryTag.text, "Click");
        d.c.s.FrequencyChangePending = false;

        d.c.s.LastDisplayedFrequency = 14550000;
        tmrPollInterval_Timer(d.c);
        EXPECT_FALSE(d.c.f.lblMemoryMT.visible) << mark.toLatin1();
        d.c.s.LastDisplayedFrequency = 14552500;
        tmrPollInterval_Timer(d.c);
        EXPECT_TRUE(d.c.f.lblMemoryMT.visible) << mark.toLatin1();

        lblMemoryMT_Click(d.c);
        EXPECT_EQ(d.c.f.txtGoToFreq.text, d.c.f.txtMemoryFreq.text);
        EXPECT_TRUE(d.c.s.GoToPending);
        mnuMemoryTag_Click(d.c);
        EXPECT_FALSE(d.c.f.frmMemoryTag.visible);
        EXPECT_EQ(d.stored("Settings", "ShowMemoryTag"), "N");
    }
}

}  // namespace
}  // namespace veldor::test
