// Quick memory banks: storing the rig's frequency, recalling it through the tick, the keys of
// section "Banks", and the dialog that defines a memory.
#include "memories/banks.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
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
    void expectKeys(const QString& memory,
                    std::initializer_list<std::pair<const char*, const char*>> keys) {
        for (auto [key, value] : keys) EXPECT_EQ(bank(memory + key), value) << key;
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

TEST(SetMemoryDialog, TheFrequencyIsCheckedOnLeavingItsBox) {
    const struct {
        QChar mark;
        const char *typed, *shown;
        const char* offset;  // kHz, the band's usual offset
        const char* message;
    } rows[] = {
        {'.', "0", "Empty", "", nullptr},
        {'.', "433.2", "433.20000", "5000", nullptr},
        {'.', "29620", "29.62000", "100", nullptr},  // kHz without a decimal mark
        {',', "145,7", "145,70000", "600", nullptr},
        {'.', "2m", "2m", "",
         "You have entered a non numeric value for Set Memory frequency - please retry"},
        {'.', "500.5", "500.5", "",
         "You have entered a Set Memory frequency outside the range of the rig - please retry"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.typed);
        Desk d(row.mark);
        d.c.frmSetMemory.txtFreq.text = row.typed;
        EXPECT_EQ(frmSetMemory_txtFreq_LostFocus(d.c), row.message != nullptr);
        EXPECT_EQ(d.c.frmSetMemory.txtFreq.text, row.shown);
        EXPECT_EQ(d.c.frmSetMemory.txtOffset.text, row.offset);
        if (row.message) {
            ASSERT_EQ(d.dialogs.messages.size(), 1u);
            EXPECT_EQ(d.dialogs.messages[0].text, row.message);
            EXPECT_EQ(d.dialogs.messages[0].title, "Invalid number");
        }
    }
}

TEST(QuickMemory, StoresUnderItsKeysAndClearBankAsksAndKeepsTheOffset) {
    Desk d;
    cmdBankNumber_Click(d.c, 5);
    mnuSetM_Click(d.c, 12);
    d.expectKeys("Bank6M12", {{"ClickToSet", "Y"},
                              {"Name", "Click"},
                              {"Freq", "145.50000"},
                              {"Mode", "FM"},
                              {"EncDec", "00"},
                              {"Shift", "0"},
                              {"Offset", "600"}});
    d.store->save(d.c.s.AppName, "Banks", "Bank6M12Offset", "1600");
    d.dialogs.answers = {MsgResult::No, MsgResult::Yes};
    cmdClearBank_Click(d.c);
    EXPECT_EQ(d.dialogs.messages[0].text, "Are your sure you want to clear memory bank Bank &6");
    EXPECT_EQ(d.bank("Bank6M12Freq"), "145.50000");
    cmdClearBank_Click(d.c);
    d.expectKeys("Bank6M12", {{"Freq", "Empty"}, {"Name", "Empty"}, {"Offset", "1600"}});
    EXPECT_EQ(d.c.f.lblStore[11].caption, "Empty");
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
    }
}

}  // namespace
}  // namespace veldor::test
