// The recorder's sound card on Qt Multimedia, recording a PulseAudio sine source that the test
// starts; skipped, with the reason, where no sound server can run.
#include "platform/audio/qt_audio_recorder.h"
#include "support/pulse_server.h"
#include "wave_header.h"

#include <QCoreApplication>
#include <QDir>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>

namespace veldor::test {
namespace {

QString g_noServer;  // why no server runs, empty when one does

WaveFormat Format(int device, int rate, int bits) {
    return {.device = device,
            .channels = 1,
            .samplesPerSecond = rate,
            .averageBytesPerSecond = rate * bits / 8,
            .blockAlign = bits / 8,
            .bitsPerSample = bits};
}

// The sound's level (the root of its mean square, as a part of full scale) and its pitch (from
// its rises through zero).
std::pair<double, double> LevelAndPitch(const Wave& h) {
    const QByteArray sound = h.sound().left(h.dataSize());
    const qsizetype n = h.bits() == 16 ? sound.size() / 2 : sound.size();
    double sum = 0, last = 0;
    int rises = 0;
    for (qsizetype i = 0; i < n; ++i) {
        const double v = h.bits() == 16
                             ? qFromLittleEndian<int16_t>(sound.constData() + 2 * i) / 32768.0
                             : (static_cast<uint8_t>(sound[i]) - 128) / 128.0;
        sum += v * v;
        if (i > 0 && last < 0 && v >= 0) ++rises;
        last = v;
    }
    if (n == 0) return {0, 0};
    return {std::sqrt(sum / static_cast<double>(n)), rises * static_cast<double>(h.rate()) / n};
}

class RealAudio : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!g_noServer.isEmpty()) GTEST_SKIP() << g_noServer.toStdString();
        const QStringList names = audio.inputDevices();
        for (qsizetype i = 0; i < names.size(); ++i)
            if (names[i].contains("Sine", Qt::CaseInsensitive)) device = static_cast<int>(i);
        ASSERT_GE(device, 0) << names.join(", ").toStdString();
    }
    QTemporaryDir dir;
    QtAudioRecorder audio{dir.path() + "/takes"};
    int device = -1;
};

TEST_F(RealAudio, ASecondOfTheSineIsSavedAsAWaveOtherProgramsRead) {
    for (const auto& [rate, bits] : {std::pair{22050, 16}, std::pair{11025, 8}}) {
        SCOPED_TRACE(rate);
        audio.open();
        ASSERT_EQ(audio.setFormat(Format(device, rate, bits)), 0)
            << audio.lastErrorText().toStdString();
        ASSERT_TRUE(audio.record()) << audio.lastErrorText().toStdString();
        QTest::qWait(1000);
        const QString path = dir.path() + QString("/sine-%1.wav").arg(rate);
        ASSERT_EQ(audio.save(path), 0) << audio.lastErrorText().toStdString();
        EXPECT_EQ(audio.mode(), AudioMode::Stopped);
        const Wave h(path);
        EXPECT_EQ(h.rate(), static_cast<uint32_t>(rate));
        EXPECT_EQ(h.bits(), bits);
        EXPECT_EQ(h.sound().size(), h.dataSize() + h.dataSize() % 2);
        // The sine source hands over what it made ahead when a recording starts, so the take
        // may be longer than the wait; the sine's pitch tells that rate and size are right.
        EXPECT_GT(h.dataSize() / static_cast<double>(rate * bits / 8), 0.8);
        const auto [level, pitch] = LevelAndPitch(h);
        EXPECT_GT(level, 0.05);
        EXPECT_NEAR(pitch, 440, 10);
    }
}

TEST_F(RealAudio, HeldTimeStaysOutOfTheTakeAndACrashLeavesItsLastSecond) {
    audio.open();
    ASSERT_EQ(audio.setFormat(Format(device, 11025, 16)), 0);
    ASSERT_TRUE(audio.record());
    QTest::qWait(700);
    audio.pause();
    const int64_t held = audio.takeMilliseconds();
    QTest::qWait(800);
    EXPECT_EQ(audio.takeMilliseconds(), held);
    audio.pause();
    EXPECT_EQ(audio.mode(), AudioMode::Recording);
    // The source may be ahead of the clock: it goes on when the clock has caught up.
    for (int waited = 0; waited < 4000 && audio.takeMilliseconds() <= held + 200; waited += 20)
        QTest::qWait(20);
    EXPECT_GT(audio.takeMilliseconds(), held + 200);
    // Still recording: the take on disk is what a crash now would leave.
    const QStringList takes = QDir(dir.path() + "/takes").entryList({"*.wav"});
    ASSERT_EQ(takes.size(), 1);
    const Wave h(dir.path() + "/takes/" + takes[0]);
    EXPECT_GE(h.dataSize(), 22050u);  // at least a second told
    audio.stop();
    audio.close();
    EXPECT_TRUE(QDir(dir.path() + "/takes").entryList({"*.wav"}).isEmpty());
}

TEST(NoAudioServer, RecordingWithNoInputSaysWhyAndBreaksNothing) {
    QTemporaryDir dir;
    QtAudioRecorder audio(dir.path() + "/takes");
    EXPECT_TRUE(audio.inputDevices().isEmpty());
    audio.open();
    EXPECT_EQ(audio.setFormat(Format(0, 11025, 8)), QtAudioRecorder::NoDevice);
    EXPECT_FALSE(audio.record());
    EXPECT_FALSE(audio.lastErrorText().isEmpty());
    EXPECT_EQ(audio.mode(), AudioMode::Open);
    EXPECT_EQ(audio.save(dir.path() + "/empty.wav"), 0);
    EXPECT_EQ(Wave(dir.path() + "/empty.wav").dataSize(), 0u);
    audio.close();
}

}  // namespace
}  // namespace veldor::test

int main(int argc, char** argv) {
    using veldor::test::g_noServer;
    veldor::test::TestPulseServer server;
    if (qgetenv("VELDOR_AUDIO_SERVER") == "none") {
        g_noServer = "run without a sound server";
        qputenv("PULSE_SERVER", "unix:/nonexistent/veldor-no-server");
    } else if (!server.start(&g_noServer)) {
        qputenv("PULSE_SERVER", "unix:/nonexistent/veldor-no-server");
    }
    QCoreApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
