// The scan engine on virtual time, against the simulated FT-817 and its band of signals:
// carriers at 14.074 MHz (S9+) and 145.575 MHz (FM, no tone), nothing at 14.100 to 14.110.
#include "cycle/start_stop.h"
#include "grid/memory_grid.h"
#include "link/catalogue.h"
#include "scan/range_choice.h"
#include "scan/scan_engine.h"
#include "scan/spectrum.h"
#include "sharing/rigctl_session.h"
#include "support/fakes.h"
#include "tuning/bands.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

enum StopOn { Busy, Free, None };

struct Scanner : OnAir {
    Scanner() : OnAir(RigFT817) {}
    // Range 0 in use, as chosen from the list.
    void range(const QString& start, const QString& stop, const QString& step,
               const QString& mode = "USB") {
        ScanRange& r = c.s.ScanRanges[0];
        r = ScanRange{start, stop, step, mode, "test", "0", "0", "0", "0", "600"};
        c.f.cboScanRange.list = QStringList{"test"};
        c.f.cboScanRange.listIndex = 0;
        cboScanRange_Click(c);
    }
    void start(StopOn stop, int hangDelay = 4, bool onSignalLoss = true) {
        for (size_t i = 0; i < 3; ++i) c.f.optStopOn[i].value = i == size_t(stop);
        c.s.HangDelay = hangDelay;
        c.s.HangDelayOnSignalLoss = onSignalLoss;
        cmdStartStopScan_Click(c);
    }
    // A tick a quarter of a second after the last.
    int64_t step() {
        clock.now += 250;
        tick();
        return rig().state().frequencyHz;
    }
    // Virtual milliseconds from now to the end of the tick that moves the rig, or -1 if it
    // stays for the ticks.
    int msUntilMove(int ticks) {
        const uint32_t from = clock.now;
        const int64_t hz = rig().state().frequencyHz;
        for (int i = 0; i < ticks; ++i) {
            const uint32_t before = clock.now;
            const bool moved = step() != hz;
            tickMs = std::max(tickMs, int(clock.now - before));
            if (moved) return int(clock.now - from);
        }
        return -1;
    }
    int tickMs = 0;  // the longest tick seen, with the quarter second between ticks
    std::vector<int64_t> steps(int n) {
        std::vector<int64_t> hz;
        for (int i = 0; i < n; ++i) hz.push_back(step());
        return hz;
    }
    QString caption() const { return c.f.cmdStartStopScan.caption; }
};

using Hz = std::vector<int64_t>;

TEST(RangeScan, VisitsItsStopFrequencyThenWrapsSendingOnlyTheFrequency) {
    Scanner sc;
    sc.range("14.100", "14.110", "5.0");
    sc.start(None);
    EXPECT_EQ(sc.caption(), "Stop");
    EXPECT_FALSE(sc.c.f.cboScanRange.enabled);
    EXPECT_EQ(sc.step(), 14'105'000);  // the start goes out whole, and the first step follows
    sc.rig().clearTrace();
    EXPECT_EQ(sc.steps(4), (Hz{14'110'000, 14'100'000, 14'105'000, 14'110'000}));
    // Each step: status, one frequency write and its acknowledgement, the S-meter.
    const QByteArray sent = sc.rigReceived();
    EXPECT_EQ(sent.size(), 4 * 15);
    for (int i = 0; i < sent.size(); i += 5) EXPECT_NE(uint8_t(sent[i + 4]), 0x07);  // no mode
    EXPECT_EQ(sc.c.f.txtVfoA.text, sc.c.f.txtSpectrumFreq.text);
}

TEST(RangeScan, TheSpeedSetsTheTicksBetweenSteps) {
    struct Case {
        int speed;
        std::vector<int> stepTicks;  // the ticks, from 1, at which the rig moves on
    };
    const Case cases[] = {{1, {5, 9, 13}},
                          {2, {4, 7, 10}},
                          {3, {3, 5, 7, 9, 11}},
                          {4, {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}},
                          {5, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}}};
    for (const Case& t : cases) {
        Scanner sc;
        sc.range("14.100", "14.200", "5.0");
        mnuScanSpeed_Click(sc.c, t.speed);
        sc.start(None);
        std::vector<int> moved;
        int64_t last = 14'100'000;
        for (int tick = 1; tick <= 13; ++tick) {
            const int64_t hz = sc.step();
            if (hz != last) moved.push_back(tick);
            last = hz;
        }
        moved.resize(std::min(moved.size(), t.stepTicks.size()));
        EXPECT_EQ(moved, t.stepTicks) << "speed " << t.speed;
        EXPECT_EQ(sc.stored("Settings", "ScanSpeed"), QString::number(t.speed));
        EXPECT_TRUE(sc.c.f.mnuScanSpeed[size_t(t.speed - 1)].checked);
    }
}

TEST(RangeScan, StopsOnABusyChannelForTheHangDelay) {
    // With the delay starting on signal loss, a carrier that stays holds the scan; without,
    // the scan moves on after the delay and stops again at the next busy channel.
    for (bool onLoss : {true, false}) {
        Scanner sc;
        sc.range("14.060", "14.090", "5.0");
        sc.start(Busy, 2, onLoss);
        EXPECT_EQ(sc.steps(3).back(), 14'075'000);
        EXPECT_EQ(sc.caption(), "Resume");
        const int held = sc.msUntilMove(40);
        if (onLoss) {
            EXPECT_EQ(held, -1);
            EXPECT_TRUE(sc.c.s.ScanPaused);
            continue;
        }
        EXPECT_GT(held, 2000);
        EXPECT_LE(held, 2000 + 2 * sc.tickMs);  // within a tick of its end
        EXPECT_EQ(sc.caption(), "Stop");
        EXPECT_EQ(sc.steps(6),
                  (Hz{14'085'000, 14'090'000, 14'060'000, 14'065'000, 14'070'000, 14'075'000}));
        EXPECT_EQ(sc.caption(), "Resume");
    }
}

TEST(RangeScan, StopsOnAFreeChannelUntilItHasBeenBusyForTheWholeDelay) {
    Scanner sc;
    sc.range("14.070", "14.080", "5.0");
    sc.start(Free, 2);
    EXPECT_EQ(sc.steps(2), (Hz{14'075'000, 14'080'000}));  // 14.075 is busy: passed
    EXPECT_EQ(sc.caption(), "Resume");
    EXPECT_EQ(sc.msUntilMove(20), -1);
    sc.rig().state().sMeter = 5;  // the channel comes alive
    const int busy = sc.msUntilMove(40);
    EXPECT_GT(busy, 2000);
    EXPECT_LE(busy, 2000 + 2 * sc.tickMs);
    EXPECT_EQ(sc.caption(), "Stop");
}

TEST(RangeScan, APermanentHangWaitsForResumeAndFmSettlesAfterIt) {
    Scanner sc;
    sc.range("145.550", "145.600", "12.5", "FM");
    SetHangDelay(sc.c, HangDelayPermanent);
    EXPECT_TRUE(sc.c.f.mnuHangDelayPerm.checked);
    EXPECT_FALSE(sc.c.f.mnuHangDelay16.checked);
    sc.start(Busy, HangDelayPermanent);
    sc.steps(3);
    EXPECT_EQ(sc.rig().state().frequencyHz, 145'575'000);
    EXPECT_EQ(sc.steps(200).back(), 145'575'000);  // fifty seconds
    mnuStop_Click(sc.c);                           // not the caption: nothing
    mnuStart_Click(sc.c);
    EXPECT_EQ(sc.caption(), "Resume");
    mnuResume_Click(sc.c);
    EXPECT_EQ(sc.caption(), "Stop");
    uint32_t before = sc.clock.now;
    EXPECT_EQ(sc.step(), 145'587'500);
    const uint32_t resumed = sc.clock.now - before;
    before = sc.clock.now;
    EXPECT_EQ(sc.step(), 145'600'000);
    EXPECT_GE(resumed, sc.clock.now - before + 500);  // the half second of FM, once
}

TEST(RangeScan, EndsWhenTheRigTransmitsAndHoldsOnHold) {
    Scanner sc;
    sc.range("14.100", "14.200", "5.0");
    sc.start(None);
    sc.steps(2);
    mnuHold_Click(sc.c);
    EXPECT_EQ(sc.c.f.cmdScanHold.backColour, LightRed);
    const int64_t held = sc.rig().state().frequencyHz;
    EXPECT_EQ(sc.steps(4), (Hz(4, held)));
    cmdScanHold_Click(sc.c);
    EXPECT_EQ(sc.c.f.cmdScanHold.backColour, Yellow);
    EXPECT_EQ(sc.step(), held + 5'000);
    sc.rig().state().ptt = true;
    sc.step();
    EXPECT_FALSE(sc.c.s.ScanRunning);
    EXPECT_EQ(sc.caption(), "Start");
    EXPECT_TRUE(sc.c.f.cboScanRange.enabled);
}

TEST(ScanSources, BankScansSkipSlotsNotMarkedAndCarryTheirTones) {
    Scanner sc;
    const struct {
        const char *freq, *scan, *encDec;
    } slots[] = {
        {"14.100", "Y", "00"}, {"14.105", "N", "00"}, {"Empty", "Y", "00"}, {"145.575", "Y", "10"}};
    for (size_t i = 0; i < 12; ++i) {
        sc.c.s.MemFreq[i] = i < 4 ? slots[i].freq : "Empty";
        sc.c.s.MemScan[i] = i < 4 ? slots[i].scan : "N";
        sc.c.s.MemEncDec[i] = i < 4 ? slots[i].encDec : "00";
        sc.c.s.MemMode[i] = i == 3 ? "FM" : "USB";
        sc.c.s.MemName[i] = QString("M%1").arg(i + 1);
        sc.c.s.MemCTCSS[i] = "8";
    }
    cmdScanMemOrBank_Click(sc.c);
    EXPECT_EQ(sc.c.f.cmdScanMemOrBank.caption, "Scan Bank");
    sc.start(None);
    EXPECT_EQ(sc.steps(3), (Hz{145'575'000, 14'100'000, 145'575'000}));
    EXPECT_EQ(sc.rig().state().mode, "FM");
    EXPECT_EQ(sc.c.f.txtMemoryTag.text, "M4");
    EXPECT_EQ(sc.c.s.ToneEncode, "1");
    EXPECT_EQ(sc.c.s.ToneDecode, "0");
    // With every flag cleared the scan runs on and sends nothing.
    for (QString& flag : sc.c.s.MemScan) flag = "N";
    sc.rig().clearTrace();
    sc.steps(3);
    EXPECT_TRUE(sc.c.s.ScanRunning);
    const QByteArray sent = sc.rigReceived();
    for (int i = 4; i < sent.size(); i += 5) {
        EXPECT_NE(uint8_t(sent[i]), 0x01);
        EXPECT_NE(uint8_t(sent[i]), 0x07);
    }
    EXPECT_EQ(sc.rig().state().frequencyHz, 145'575'000);
}

TEST(ScanSources, GridScansSkipHiddenAndUnmarkedRowsAndCarryTheirRepeater) {
    Scanner sc;
    const struct {
        const char *freq, *mode, *shift, *offset, *decode, *scan;
        bool hidden;
    } rows[] = {{"14.100", "USB", "Simplex", "", "", "Y", false},
                {"14.105", "USB", "Simplex", "", "", "Y", true},
                {"145.575", "FM", "Plus", "9.0", "CTCSS", "Y", false},
                {"14.110", "USB", "Simplex", "", "", "N", false}};
    MemoryGrid& g = sc.c.frmCsvMem.grdMemories;
    g.rows.resize(5);
    for (size_t i = 0; i < 4; ++i) {
        auto& cells = g.rows[i + 1].cells;
        cells[1] = rows[i].freq;
        cells[2] = rows[i].mode;
        cells[3] = rows[i].shift;
        cells[4] = rows[i].offset;
        cells[6] = rows[i].decode;
        cells[10] = rows[i].scan;
        g.rows[i + 1].hidden = rows[i].hidden;
    }
    sc.c.s.GridHasScanRows = true;
    cmdScanMemOrBank_Click(sc.c);
    cmdScanMemOrBank_Click(sc.c);
    EXPECT_EQ(sc.c.f.cmdScanMemOrBank.caption, "Scan Grid");
    sc.start(None);
    EXPECT_EQ(sc.steps(3), (Hz{145'575'000, 14'100'000, 145'575'000}));
    // An offset above 5 MHz gives way to the band's own.
    EXPECT_EQ(sc.rig().state().shift, "+");
    EXPECT_EQ(sc.rig().state().offsetHz, 600'000);
    EXPECT_EQ(sc.c.s.ToneEncode, "1");
    // A grid with nothing left to scan ends the scan at the next step.
    for (GridRow& row : g.rows) row.cells[10] = "N";
    sc.step();
    EXPECT_FALSE(sc.c.s.ScanRunning);
    EXPECT_EQ(sc.caption(), "Start");
}

TEST(ScanSources, StartRefusesASourceWithNothingToScan) {
    struct Case {
        int presses;  // of cmdScanMemOrBank: range, bank, grid
        const char* message;
    };
    for (const Case& t : {Case{0, "Select a valid scan range first"},
                          Case{1, "No frequencies found in the current bank"},
                          Case{2, "No CSV memories found to scan"}}) {
        Scanner sc;
        sc.c.f.cboScanRange.list = QStringList{"Empty"};
        sc.c.f.cboScanRange.listIndex = 0;
        for (QString& f : sc.c.s.MemFreq) f = "Empty";
        for (int i = 0; i < t.presses; ++i) cmdScanMemOrBank_Click(sc.c);
        sc.start(Busy);
        ASSERT_EQ(sc.dialogs.messages.size(), 1u);
        EXPECT_EQ(sc.dialogs.messages[0].text, t.message);
        EXPECT_EQ(sc.caption(), "Start");
        EXPECT_FALSE(sc.c.s.ScanRunning);
    }
}

TEST(ScanRefusals, NoScanStartsWhileTheRigTransmitsOrSweeps) {
    using Flag = bool State::*;
    for (Flag busy : {Flag{&State::Transmitting}, Flag{&State::SpectrumRunning}}) {
        Scanner sc;
        sc.range("14.100", "14.200", "5.0");
        sc.c.s.*busy = true;
        sc.start(None);
        EXPECT_FALSE(sc.c.s.ScanRunning);
        EXPECT_FALSE(sc.c.s.FrequencyChangePending);
        EXPECT_EQ(sc.caption(), "Start");
    }
}

TEST(ScanRefusals, TheOperatorAndSharingClientsWaitWhileAScanRuns) {
    Scanner sc;
    sc.range("14.100", "14.200", "5.0");
    sc.start(None);
    sc.step();
    sc.c.f.chkOnOff.value = 0;
    chkOnOff_Click(sc.c);
    EXPECT_EQ(sc.c.f.chkOnOff.value, 1);
    cmdBand_Click(sc.c, 4);
    cmdStartSpectrum_Click(sc.c);
    EXPECT_FALSE(sc.c.s.FrequencyChangePending);
    EXPECT_FALSE(sc.c.s.PendingSpectrumStart);
    RigctlSession client;
    EXPECT_EQ(RigctlReceive(sc.c, client, "F 7074000\nT 1\n"), "RPRT -9\nRPRT -9\n");
    mnuScanSpeed_Click(sc.c, 1);
    EXPECT_EQ(sc.c.s.ScanTickLimit, 5.0);  // at once
}

}  // namespace
}  // namespace veldor::test
