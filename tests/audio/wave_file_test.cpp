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
    WaveHeader h = ReadWave(path);  // what a crash now would leave
    EXPECT_EQ(h.riff, "RIFF");
    EXPECT_EQ(h.wave, "WAVE");
    EXPECT_EQ(h.fmt, "fmt ");
    EXPECT_EQ(h.fmtSize, 16u);
    EXPECT_EQ(h.format, 1);  // PCM
    EXPECT_EQ(h.channels, 1);
    EXPECT_EQ(h.rate, 11025u);
    EXPECT_EQ(h.byteRate, 11025u);
    EXPECT_EQ(h.blockAlign, 1);
    EXPECT_EQ(h.bits, 8);
    EXPECT_EQ(h.data, "data");
    EXPECT_EQ(h.dataSize, 0u);  // under a second: not told yet
    ASSERT_TRUE(take.append(QByteArray(6000, '\x80')));
    h = ReadWave(path);
    EXPECT_EQ(h.dataSize, 12000u);
    EXPECT_EQ(h.riffSize, 36u + 12000u);
    EXPECT_EQ(h.sound.size(), 12000);
}

TEST(WaveFile, TheSavedCopyIsPaddedAndReplacesTheOldFileWhole) {
    QTemporaryDir dir;
    WaveFile take;
    ASSERT_TRUE(take.create(dir.path() + "/take.wav", 22050, 16));
    ASSERT_TRUE(take.append(QByteArray("\x01\x02\x03\x04", 4)));
    const QString saved = dir.path() + "/net.wav";
    QFile old(saved);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write(QByteArray(100000, 'x'));
    old.close();
    ASSERT_TRUE(take.copyTo(saved));
    WaveHeader h = ReadWave(saved);
    EXPECT_EQ(h.rate, 22050u);
    EXPECT_EQ(h.byteRate, 44100u);
    EXPECT_EQ(h.blockAlign, 2);
    EXPECT_EQ(h.bits, 16);
    EXPECT_EQ(h.dataSize, 4u);
    EXPECT_EQ(h.sound, QByteArray("\x01\x02\x03\x04", 4));

    WaveFile odd;
    ASSERT_TRUE(odd.create(dir.path() + "/odd.wav", 11025, 8));
    ASSERT_TRUE(odd.append("abc"));
    ASSERT_TRUE(odd.copyTo(saved));
    h = ReadWave(saved);
    EXPECT_EQ(h.dataSize, 3u);
    EXPECT_EQ(h.riffSize, 36u + 3u + 1u);
    EXPECT_EQ(h.sound, QByteArray("abc\0", 4));

    EXPECT_FALSE(odd.copyTo(dir.path() + "/no such folder/x.wav"));
    EXPECT_TRUE(odd.errorText().contains("x.wav"));
    odd.remove();
    EXPECT_FALSE(QFile::exists(dir.path() + "/odd.wav"));
}

}  // namespace
}  // namespace veldor::test
