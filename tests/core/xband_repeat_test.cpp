// The FT-847 cross-band repeater through the simulated FT-847: what goes to the rig, when the
// two sides swap, and how a run ends.
#include "accessories/xband_repeat.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

const QString kVhfTx = "14 50 00 00 21", kVhfRx = "14 50 00 00 11";
const QString kUhfRx = "43 30 00 00 11", kUhfTx = "43 30 00 00 21";
const QString kStatus = "00 00 00 00 e7", kSatOff = "00 00 00 00 8e";

struct Repeater : OnAir {
    Repeater() : OnAir(RigFT847) {}

    // Opens the window as the tick does; the operator's part runs while it is up.
    void open(std::function<void()> operate) {
        windows.operators[FormId::frmXBandRepeat] = std::move(operate);
        cmdXBand_Click(c);
        tick();
    }
    // The operator presses Start, then Stop after ms of virtual time, then Exit.
    void runFor(uint32_t ms) {
        open([this, ms] {
            pump.at(clock.now + ms, [this] { frmXBandRepeat_cmdStop_Click(c); });
            frmXBandRepeat_cmdStart_Click(c);
            frmXBandRepeat_cmdExit_Click(c);
        });
    }
    // The five-byte frames the rig received, in order, as hex.
    QStringList frames() {
        const QByteArray all = rigReceived();
        QStringList out;
        for (qsizetype i = 0; i + 5 <= all.size(); i += 5) out << all.mid(i, 5).toHex(' ');
        return out;
    }
    sim::RigState& rigState() { return rig().state(); }
};

TEST(XBandRepeat, LoadsBothSidesInSatelliteModeAndTellsTheOperatorAboutMenu41) {
    Repeater r;
    bool pollStopped = false;
    r.open([&] {
        pollStopped = !r.pollTimer.on;
        r.pump.at(r.clock.now + 100, [&] {
            EXPECT_TRUE(r.rigState().satellite);
            EXPECT_EQ(r.rigState().satTxHz, 145000000);  // VHF transmits first, in FM
            EXPECT_EQ(r.rigState().satRxHz, 433000000);
            EXPECT_EQ(r.rigState().satTxMode, "FM");
            EXPECT_EQ(r.c.frmXBandRepeat.txtVfoA.backColour, Red);
            EXPECT_EQ(r.c.frmXBandRepeat.txtVFOB.backColour, PaleGreen);
            frmXBandRepeat_cmdStop_Click(r.c);
        });
        frmXBandRepeat_cmdStart_Click(r.c);
        frmXBandRepeat_cmdExit_Click(r.c);
    });
    EXPECT_TRUE(pollStopped);
    EXPECT_TRUE(r.pollTimer.on);  // polling goes on once the window has closed
    const QStringList f = r.frames();
    ASSERT_GE(f.size(), 8);
    EXPECT_EQ(f.mid(0, 6), (QStringList{"00 00 00 00 00", "00 00 00 00 4e", kVhfTx, kUhfRx,
                                        "08 00 00 00 27", "08 00 00 00 17"}));
    EXPECT_EQ(f[6], kStatus);
    EXPECT_EQ(r.dialogs.messages.at(0).text, "Set menu 41 X-RPT to ON, then click OK");
    // Stop, then Exit: satellite off each time, and both boxes white.
    EXPECT_EQ(f.mid(f.size() - 2), (QStringList{kSatOff, kSatOff}));
    EXPECT_FALSE(r.rigState().satellite);
    EXPECT_EQ(r.c.frmXBandRepeat.txtVfoA.backColour, White);
}

// The dwell is counted in quiet status reads: 50 less the slider's value, then the swap.
TEST(XBandRepeat, SwapsTheTwoSidesAfterTheDwellOfTheSlider) {
    for (const auto& [slider, reads] : {std::pair{30, 21}, {40, 11}, {20, 31}}) {
        Repeater r;
        r.c.frmXBandRepeat.Slider1.value = slider;
        r.runFor(1500);
        const QStringList f = r.frames();
        const qsizetype swap = f.indexOf(kVhfRx);
        ASSERT_GT(swap, 0) << slider;
        EXPECT_EQ(f.mid(0, swap).count(kStatus), reads) << slider;
        EXPECT_EQ(f.mid(swap, 4),
                  (QStringList{kVhfRx, kUhfTx, "08 00 00 00 27", "08 00 00 00 17"}));
    }
}

TEST(XBandRepeat, HoldsWhileTheSquelchIsOpenAndSwapsSoonAfterItCloses) {
    Repeater r;
    r.rigState().squelchOpen = true;
    bool heard = false;
    int swapsWhileOpen = -1;
    r.open([&] {
        const uint32_t t0 = r.clock.now;
        r.pump.at(t0 + 2000, [&] {
            heard = r.c.s.XBandSignal;
            swapsWhileOpen = r.frames().count(kVhfRx);
            r.rigState().squelchOpen = false;
        });
        r.pump.at(t0 + 2600, [&] { frmXBandRepeat_cmdStop_Click(r.c); });
        frmXBandRepeat_cmdStart_Click(r.c);
    });
    EXPECT_TRUE(heard);
    EXPECT_EQ(swapsWhileOpen, 0);
    EXPECT_EQ(r.frames().count(kVhfRx), 1);
    EXPECT_EQ(r.rigState().satTxHz, 433000000);  // UHF transmits now
}

TEST(XBandRepeat, StopThenStartBeginsWithVhfOnTransmitAgain) {
    Repeater r;
    r.open([&] {
        // Stopped after one swap, with UHF on transmit.
        r.pump.at(r.clock.now + 600, [&] { frmXBandRepeat_cmdStop_Click(r.c); });
        frmXBandRepeat_cmdStart_Click(r.c);
        EXPECT_EQ(r.c.frmXBandRepeat.FreqVHF[4], 0x11);
        r.pump.at(r.clock.now + 100, [&] { frmXBandRepeat_cmdStop_Click(r.c); });
        frmXBandRepeat_cmdStart_Click(r.c);
    });
    const QStringList f = r.frames();
    const qsizetype restart = f.lastIndexOf("00 00 00 00 4e");
    ASSERT_GT(restart, 0);
    EXPECT_EQ(f[restart + 1], kVhfTx);
    EXPECT_EQ(r.c.frmXBandRepeat.txtVfoA.backColour, White);
}

// Closing the window (its unload) during a run ends the loop, and the rig leaves satellite mode.
TEST(XBandRepeat, ClosingTheWindowDuringARunEndsItCleanly) {
    Repeater r;
    r.open([&] {
        r.pump.at(r.clock.now + 300, [&] { frmXBandRepeat_Unload(r.c); });
        frmXBandRepeat_cmdStart_Click(r.c);
    });
    EXPECT_FALSE(r.rigState().satellite);
    EXPECT_FALSE(r.c.frmXBandRepeat.running);
    EXPECT_EQ(r.frames().last(), kSatOff);
}

// A lost status reply leaves the loop at once and leaves the rig in satellite mode; Exit
// still takes it out.
TEST(XBandRepeat, ATimeoutLeavesTheRunAsItStoodUntilExit) {
    Repeater r;
    r.open([&] {
        r.pump.at(r.clock.now + 200, [&] { r.rig().faults().silent = true; });
        frmXBandRepeat_cmdStart_Click(r.c);
        EXPECT_TRUE(r.rigState().satellite);
        EXPECT_EQ(r.c.frmXBandRepeat.txtVfoA.backColour, Red);
        EXPECT_EQ(r.frames().last(), kStatus);
        frmXBandRepeat_cmdExit_Click(r.c);
    });
    EXPECT_FALSE(r.rigState().satellite);
}

// Each digit reads the stored frequency again, and beeps rather than leave the band.
TEST(XBandRepeat, DigitButtonsStayWithinTheirBand) {
    struct Case {
        void (*press)(Core&, int);
        int digit;
        const char* stored;
        bool accepted;
        const char* shown;
    };
    const Case cases[] = {
        {frmXBandRepeat_cmdFreqAPlus_Click, 3, "14500000", true, "145.100.00"},
        {frmXBandRepeat_cmdFreqAPlus_Click, 7, "14800000", false, "148.000.00"},
        {frmXBandRepeat_cmdFreqAPlus_Click, 0, "14400000", false, "144.000.00"},
        {frmXBandRepeat_cmdFreqAMinus_Click, 2, "14499999", false, "144.999.99"},
        {frmXBandRepeat_cmdFreqAMinus_Click, 2, "14500000", true, "144.000.00"},
        {frmXBandRepeat_cmdFreqBPlus_Click, 1, "44000000", true, "450.000.00"},
        {frmXBandRepeat_cmdFreqBPlus_Click, 0, "43000000", false, "430.000.00"},
        {frmXBandRepeat_cmdFreqBMinus_Click, 6, "43000009", false, "430.000.09"},
    };
    for (const Case& t : cases) {
        Harness h;
        const bool vhf = t.press == frmXBandRepeat_cmdFreqAPlus_Click ||
                         t.press == frmXBandRepeat_cmdFreqAMinus_Click;
        const QString key = vhf ? "VHFfreq" : "UHFfreq";
        h.setting(key, t.stored);
        frmXBandRepeat_Load(h.c);
        t.press(h.c, t.digit);
        const TextBox& box = vhf ? h.c.frmXBandRepeat.txtVfoA : h.c.frmXBandRepeat.txtVFOB;
        EXPECT_EQ(box.text, t.shown) << t.stored << " digit " << t.digit;
        EXPECT_EQ(h.system.beeps, t.accepted ? 0 : 1) << t.stored << " digit " << t.digit;
        EXPECT_EQ(h.stored("Settings", key), t.accepted ? QString(t.shown).remove('.') : t.stored);
    }
}

TEST(XBandRepeat, IsRefusedDuringALongJobAndComesAfterTheReading) {
    Repeater r;
    r.c.s.Transmitting = true;
    cmdXBand_Click(r.c);
    EXPECT_FALSE(r.c.s.PendingXBand);
    r.c.s.Transmitting = false;
    r.c.s.ForceUpdate = true;
    r.runFor(100);
    const QStringList f = r.frames();
    ASSERT_GE(f.size(), 4);
    EXPECT_EQ(f[0], "00 00 00 00 03");  // the tick's reading first
    EXPECT_EQ(f.indexOf("00 00 00 00 4e"), f.indexOf("00 00 00 00 00") + 1);
    EXPECT_GT(f.indexOf("00 00 00 00 00"), 0);
}

}  // namespace
}  // namespace veldor::test
