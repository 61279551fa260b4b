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
using Hz = std::vector<int64_t>;

struct Scanner : OnAir {
    Scanner() : OnAir(RigFT817) {}
    // Range 0 in use, as chosen from the list.
    void range(const QString& start, const QString& stop, const QString& step,
               const QString& mode = "USB") {
        c.s.ScanRanges[0] = ScanRange{start, stop, step, mode, "test", "0", "0", "0", "0", "600"};
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
    Hz steps(int n) {
        Hz hz;
        for (int i = 0; i < n; ++i) hz.push_back(step());
        return hz;
    }
    // Virtual milliseconds from now to the end of the tick that moves the rig, or -1 if it
    // stays for the ticks; each must come within a tick of the hang delay's end.
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
    QString caption() const { return c.f.cmdStartStopScan.caption; }
};

TEST(RangeScan, VisitsItsStopFrequencyThenWrapsSendingOnlyTheFrequency) {
    Scanner sc;
    sc.range("14.100", "14.110", "5.0");
    sc.start(None);
    EXPECT_EQ(sc.step(), 14'105'000);  // the start goes out whole, and the first step follows
    sc.rig().clearTrace();
    EXPECT_EQ(sc.steps(4), (Hz{14'110'000, 14'100'000, 14'105'000, 14'110'000}));
    // Each step: status, one frequency write and its acknowledgement, the S-meter.
    const QByteArray sent = sc.rigReceived();
    EXPECT_EQ(sent.size(), 4 * 15);
    for (int i = 0; i < sent.size(); i += 5) EXPECT_NE(uint8_t(sent[i + 4]), 0x07);  // no mode
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
            continue;
        }
        EXPECT_GT(held, 2000);
        EXPECT_LE(held, 2000 + 2 * sc.tickMs);
        EXPECT_EQ(sc.steps(6),
                  (Hz{14'085'000, 14'090'000, 14'060'000, 14'065'000, 14'070'000, 14'075'000}));
        EXPECT_EQ(sc.caption(), "Resume");
    }
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
}

TEST(ScanSources, StartRefusesASourceWithNothingToScan) {
    const std::pair<int, const char*> cases[] = {// presses of cmdScanMemOrBank: range, bank, grid
                                                 {0, "Select a valid scan range first"},
                                                 {1, "No frequencies found in the current bank"},
                                                 {2, "No CSV memories found to scan"}};
    for (const auto& [presses, message] : cases) {
        Scanner sc;
        sc.c.f.cboScanRange.list = QStringList{"Empty"};
        sc.c.f.cboScanRange.listIndex = 0;
        for (QString& f : sc.c.s.MemFreq) f = "Empty";
        for (int i = 0; i < presses; ++i) cmdScanMemOrBank_Click(sc.c);
        sc.start(Busy);
        ASSERT_EQ(sc.dialogs.messages.size(), 1u);
        EXPECT_EQ(sc.dialogs.messages[0].text, message);
        EXPECT_FALSE(sc.c.s.ScanRunning);
    }
}

TEST(ScanRefusals, NoScanStartsWhileTheRigTransmitsOrSweeps) {
    for (bool State::*busy : {&State::Transmitting, &State::SpectrumRunning}) {
        Scanner sc;
        sc.range("14.100", "14.200", "5.0");
        sc.c.s.*busy = true;
        sc.start(None);
        EXPECT_FALSE(sc.c.s.ScanRunning);
        EXPECT_FALSE(sc.c.s.FrequencyChangePending);
    }
}

TEST(ScanRefusals, TheOperatorAndSharingClientsWaitWhileAScanRuns) {
    Scanner sc;
    sc.range("14.100", "14.200", "5.0");
    sc.start(None);
    sc.step();
    cmdBand_Click(sc.c, 4);
    cmdStartSpectrum_Click(sc.c);
    EXPECT_FALSE(sc.c.s.FrequencyChangePending);
    EXPECT_FALSE(sc.c.s.PendingSpectrumStart);
    RigctlSession client;
    EXPECT_EQ(RigctlReceive(sc.c, client, "F 7074000\nT 1\n"), "RPRT -9\nRPRT -9\n");
}

}  // namespace
}  // namespace veldor::test
