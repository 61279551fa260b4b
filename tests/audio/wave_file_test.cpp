// The take on disk: a header other programs read, its sizes kept up as the take grows, and the
// saved copy written whole.
#include "platform/audio/wave_file.h"
#include "wave_header.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

TEST(WaveFile, AGrowingTakeTellsItsSizesOnceASecondOfSound) {
    QTemporaryDir dir;
    const QString path = dir.path() + "/take.wav";
    WaveFile take;
    ASSERT_TRUE(take.create(path, 11025, 8));
    ASSERT_TRUE(take.append(QByteArray(6000, '\x80')));
    Wave h(path);  // what a crash now would leave
    EXPECT_EQ(h.bytes.left(4), "RIFF");
    // "WAVE", "fmt " of 16 bytes: PCM, one channel, 11025 Hz, 11025 bytes a second, blocks of
    // one byte, 8 bits; then "data".
    EXPECT_EQ(h.bytes.mid(8, 32).toHex(),
              "57415645666d74201000000001000100112b0000112b00000100080064617461");
    EXPECT_EQ(h.dataSize(), 0u);  // under a second: not told yet
    ASSERT_TRUE(take.append(QByteArray(6000, '\x80')));
    h = Wave(path);
    EXPECT_EQ(h.dataSize(), 12000u);
    EXPECT_EQ(h.u32(4), 36u + 12000u);
    EXPECT_EQ(h.sound().size(), 12000);
}

TEST(WaveFile, TheSavedCopyIsPaddedAndReplacesTheOldFileWhole) {
    QTemporaryDir dir;
    const QString saved = dir.path() + "/net.wav";
    QFile old(saved);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write(QByteArray(100000, 'x'));
    old.close();
    WaveFile take;
    ASSERT_TRUE(take.create(dir.path() + "/take.wav", 22050, 16));
    ASSERT_TRUE(take.append(QByteArray("\x01\x02\x03\x04", 4)));
    ASSERT_TRUE(take.copyTo(saved));
    // 22050 Hz, 44100 bytes a second, blocks of two bytes, 16 bits.
    EXPECT_EQ(Wave(saved).bytes.mid(24, 12).toHex(), "2256000044ac000002001000");
    EXPECT_EQ(Wave(saved).sound(), QByteArray("\x01\x02\x03\x04", 4));

    WaveFile odd;
    ASSERT_TRUE(odd.create(dir.path() + "/odd.wav", 11025, 8));
    ASSERT_TRUE(odd.append("abc"));
    ASSERT_TRUE(odd.copyTo(saved));
    const Wave h(saved);
    EXPECT_EQ(h.dataSize(), 3u);
    EXPECT_EQ(h.u32(4), 36u + 3u + 1u);
    EXPECT_EQ(h.sound(), QByteArray("abc\0", 4));
    EXPECT_FALSE(odd.copyTo(dir.path() + "/no such folder/x.wav"));
    EXPECT_TRUE(odd.errorText().contains("x.wav"));
}

}  // namespace
}  // namespace veldor::test
