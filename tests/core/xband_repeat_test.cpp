// The FT-847 cross-band repeater through the simulated FT-847: what goes to the rig, when the
// two sides swap, and how a run ends.
#include "accessories/xband_repeat.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

const QString kVhfTx = "14 50 00 00 21", kVhfRx = "14 50 00 00 11", kUhfRx = "43 30 00 00 11";
const QString kStatus = "00 00 00 00 e7", kSatOn = "00 00 00 00 4e", kSatOff = "00 00 00 00 8e";

struct Repeater : OnAir {
    Repeater() : OnAir(RigFT847) {}
    // Opens the window as the tick does and presses Start; each event runs at its virtual
    // millisecond of the run, and then, with the window still up, what comes after.
    void run(std::vector<std::pair<uint32_t, std::function<void()>>> events,
             std::function<void()> after = {}) {
        windows.operators[FormId::frmXBandRepeat] = [this, events, after] {
            for (const auto& [ms, event] : events) pump.at(clock.now + ms, event);
            frmXBandRepeat_cmdStart_Click(c);
            if (after) after();
        };
        cmdXBand_Click(c);
        tick();
    }
    std::function<void()> stop() {
        return [this] { frmXBandRepeat_cmdStop_Click(c); };
    }
    // The five-byte frames the rig received, in order, as hex.
    QStringList frames() {
        const QByteArray all = rigReceived();
        QStringList out;
        for (qsizetype i = 0; i + 5 <= all.size(); i += 5) out << all.mid(i, 5).toHex(' ');
        return out;
    }
};

TEST(XBandRepeat, PutsBothSidesInSatelliteModeAndTakesItOutAtStop) {
    Repeater r;
    bool running = false;
    r.run(
        {{100, [&] { running = r.rig().state().satellite && !r.pollTimer.on; }}, {200, r.stop()}});
    EXPECT_TRUE(running);
    const QStringList f = r.frames();
    EXPECT_EQ(f.mid(0, 7), (QStringList{"00 00 00 00 00", kSatOn, kVhfTx, kUhfRx, "08 00 00 00 27",
                                        "08 00 00 00 17", kStatus}));
    EXPECT_EQ(r.dialogs.messages.at(0).text, "Set menu 41 X-RPT to ON, then click OK");
    EXPECT_EQ(f.last(), kSatOff);
    EXPECT_FALSE(r.rig().state().satellite);
    EXPECT_TRUE(r.pollTimer.on);  // polling goes on once the window has closed
}

// The dwell is counted in quiet status reads: 50 less the slider's value, then the swap.
TEST(XBandRepeat, SwapsTheTwoSidesAfterTheDwellOfTheSlider) {
    for (const auto& [slider, reads] : {std::pair{30, 21}, {40, 11}}) {
        Repeater r;
        r.c.frmXBandRepeat.Slider1.value = slider;
        r.run({{1500, r.stop()}});
        const QStringList f = r.frames();
        const qsizetype swap = f.indexOf(kVhfRx);
        ASSERT_GT(swap, 0) << slider;
        EXPECT_EQ(f.mid(0, swap).count(kStatus), reads) << slider;
        EXPECT_EQ(f.mid(swap + 1, 3),
                  (QStringList{"43 30 00 00 21", "08 00 00 00 27", "08 00 00 00 17"}));
    }
}

}  // namespace
}  // namespace veldor::test
