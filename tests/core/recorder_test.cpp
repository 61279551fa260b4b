// The recorder window's handling of a take, on a sound card of virtual time: opening from the
// tick, the format handed to the card, the squelch watch, and saving.
#include "accessories/recorder.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <QFile>

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// A station on the simulated FT-817 whose tick reads the S-meter every time; the band's own
// carrier there (S5) stays under the threshold.
struct Recording : OnAir {
    Recording() : OnAir(RigFT817) {
        c.s.PollingDelay = 0;
        c.f.pbarGotSignal.value = 20;
    }
    void open() {
        cmdRecord_Click(c);
        tick();
    }
    // Ticks until virtual time has reached ms.
    void until(uint32_t ms) {
        while (clock.now < ms) tick();
    }
};

TEST(Recorder, TheTickOpensTheWindowOnceButNotWhileTransmitting) {
    Recording h;
    h.c.s.Transmitting = true;
    cmdRecord_Click(h.c);
    EXPECT_FALSE(h.c.s.PendingRecordStart);
    h.c.s.Transmitting = false;
    h.open();
    h.open();
    EXPECT_EQ(h.windows.timesShown(FormId::frmRecord), 1);
    EXPECT_EQ(h.c.frmRecord.Combo2.list, h.audio.devices);
    EXPECT_EQ(h.c.frmRecord.lblStatus.caption, "Ready to record");
}

TEST(Recorder, RecordHandsTheCardTheFormatOfTheOptions) {
    const struct {
        int rate, bits;
        int samples;
        int bytesPerSecond, blockAlign, sampleBits;
    } cases[] = {{0, 0, 11025, 11025, 1, 8}, {2, 1, 44100, 88200, 2, 16}};
    for (const auto& t : cases) {
        Recording h;
        h.audio.devices = {"one", "two"};
        h.open();
        FrmRecord& r = h.c.frmRecord;
        for (int i = 0; i < 3; ++i) r.optFreq[i].value = i == t.rate;
        for (int i = 0; i < 2; ++i) r.optBits[i].value = i == t.bits;
        r.Combo2.listIndex = 1;
        MMControl2_RecordClick(h.c);
        ASSERT_EQ(h.audio.formats.size(), 1u);
        const WaveFormat& f = h.audio.formats[0];
        EXPECT_EQ(
            std::vector<int>({f.device, f.channels, f.samplesPerSecond, f.averageBytesPerSecond,
                              f.blockAlign, f.bitsPerSample}),
            std::vector<int>({1, 1, t.samples, t.bytesPerSecond, t.blockAlign, t.sampleBits}));
    }
}

TEST(Recorder, TheSquelchWatchRecordsOnlyTheTransmission) {
    Recording h;
    h.open();
    h.c.frmRecord.chkSquelch.value = 1;
    const uint32_t start = h.clock.now;
    MMControl2_RecordClick(h.c);
    h.until(start + 2000);  // squelch shut: held from the first tick
    EXPECT_EQ(h.audio.mode(), AudioMode::Paused);
    const uint32_t on = h.clock.now;
    h.rig().state().sMeter = 12;  // a station comes on
    h.until(on + 5000);
    EXPECT_EQ(h.audio.mode(), AudioMode::Recording);
    const uint32_t off = h.clock.now;
    h.rig().state().sMeter = 0;
    h.until(off + 3000);
    EXPECT_EQ(h.audio.mode(), AudioMode::Paused);
    // The start before the first tick, then the transmission, each late by at most two ticks
    // (the reading that sees the squelch, the tick that follows it).
    ASSERT_EQ(h.audio.take.size(), 2u);
    EXPECT_LT(h.audio.take[0].to - start, 300u);
    EXPECT_GE(h.audio.take[1].from, on);
    EXPECT_LT(h.audio.take[1].from - on, 300u);
    EXPECT_GE(h.audio.take[1].to, off);
    EXPECT_LT(h.audio.take[1].to - off, 300u);
}

TEST(Recorder, SaveAddsTheExtensionAndAsksBeforeReplacing) {
    Recording h;
    h.c.s.HomeDir = h.dir.path();
    h.open();
    MMControl2_RecordClick(h.c);
    h.until(h.clock.now + 1000);
    const QString net = h.dir.path() + "/net";
    h.dialogs.saveAnswer = net;
    recSave_Click(h.c);
    ASSERT_EQ(h.audio.saved.size(), 1u);
    EXPECT_EQ(h.audio.saved[0].first, net + ".wav");
    QFile existing(net + ".wav");
    ASSERT_TRUE(existing.open(QIODevice::WriteOnly));
    existing.close();
    h.dialogs.answers = {MsgResult::No};
    recSave_Click(h.c);
    EXPECT_EQ(h.audio.saved.size(), 1u);
    ASSERT_EQ(h.dialogs.messages.size(), 1u);
    EXPECT_EQ(h.dialogs.messages[0].text,
              "Filename NET.WAV already exists\r\nDo you wish to replace it?");
}

}  // namespace
}  // namespace veldor::test
