// The real program on the built-in simulated FT-817: TimedEvents.txt tunes the rig and starts
// a task through the system's launcher; the recorder records a PulseAudio sine source, started
// by the test, into a wave file chosen in the save dialog.
#include "e2e_support.h"
#include "support/pulse_server.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QtEndian>

namespace {

using namespace veldor::test;

// An FT-817 on the built-in simulator that starts at once.
struct SimStation : Station {
    SimStation() : Station("FT817", Port::BuiltIn, "AutoStart=Yes\nPollingDelay=0\n") {
        qputenv("XDG_DATA_HOME", (path() + "/data").toUtf8());
    }
};

TEST(TimedEventsInTheProgram, TheTimedButtonTunesTheRigAndStartsTheTaskOfThisMinute) {
    SimStation st;
    const QTime now = QTime::currentTime();
    QFile file(st.path() + "/TimedEvents.txt");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    // A task in this minute and in the next, should the minute turn while the test starts.
    file.write(QString("0001 FT8 all day,7.074,USB\n"
                       "Mark %1,SHELL,touch \"%3/ran at %1\"\n"
                       "Mark %2,SHELL,touch \"%3/ran at %2\"\n")
                   .arg(now.toString("HHmm"), now.addSecs(60).toString("HHmm"), st.path())
                   .toUtf8());
    file.close();
    // Run in that folder, where the program reads TimedEvents.txt.
    const QString previous = QDir::currentPath();
    QDir::setCurrent(st.path());
    {
        veldor::Application app;
        ASSERT_TRUE(app.start(""));
        auto* timed = app.window().findChild<QPushButton*>("cmdTimed");
        ASSERT_TRUE(timed->isEnabled());
        ASSERT_TRUE(Showing(app, "14.250.00"));
        QTest::mouseClick(timed, Qt::LeftButton);
        EXPECT_TRUE(timed->styleSheet().contains("rgb(0,255,0)"));
        EXPECT_TRUE(Showing(app, "7.074.00"));
        EXPECT_EQ(app.core().f.txtMode.text, "USB");
        EXPECT_EQ(app.window().findChild<QComboBox*>("cboTimedEvents")->currentText(),
                  "0001 FT8 all day 7.074 USB");
        EXPECT_TRUE(
            Eventually([&] { return QDir(st.path()).entryList({"ran at *"}).size() == 1; }, 5000));
        QTest::mouseClick(timed, Qt::LeftButton);
        EXPECT_FALSE(app.core().s.TimedActive);
        app.closeForSignal();
    }
    QDir::setCurrent(previous);
}

// The sine source chosen by the keys, 16 bits by their option, and the take saved through the
// save dialog as a wave file of 11025 samples a second.
TEST(RecorderInTheProgram, RecordsTheSineSourceIntoTheWaveFileChosen) {
    TestPulseServer server;
    QString reason;
    if (!server.start(&reason)) GTEST_SKIP() << reason.toStdString();
    SimStation st;
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    ASSERT_TRUE(Eventually([&] { return app.core().f.chkOnOff.value == 1; }, 5000));
    QTest::mouseClick(app.window().findChild<QPushButton*>("cmdRecord"), Qt::LeftButton);
    ASSERT_TRUE(Eventually([&] { return app.windows().window(veldor::FormId::frmRecord); }, 5000));
    QWidget* window = app.windows().window(veldor::FormId::frmRecord);
    auto* devices = window->findChild<QComboBox*>("Combo2");
    const int sine = devices->findText("Sine", Qt::MatchContains);
    ASSERT_GE(sine, 0);
    devices->setFocus();
    while (devices->currentIndex() < sine) QTest::keyClick(devices, Qt::Key_Down);
    QTest::mouseClick(window->findChild<QRadioButton*>("optBits_1"), Qt::LeftButton);

    QTest::mouseClick(window->findChild<QPushButton*>("MMControl2_Record"), Qt::LeftButton);
    auto* state = window->findChild<QLabel*>("lblStatus");
    ASSERT_TRUE(Eventually(
        [&] {
            return app.core().p.audio->takeMilliseconds() >= 1000 &&
                   state->text().startsWith("Recording 0:0");
        },
        5000))
        << state->text().toStdString();
    Screenshot(window, "recorder");

    TypeFile(st.path() + "/watch");
    QTest::mouseClick(window->findChild<QPushButton*>("recSave"), Qt::LeftButton);
    QFile saved(st.path() + "/watch.wav");
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    const QByteArray wave = saved.readAll();
    ASSERT_GT(wave.size(), 44 + 11025);
    EXPECT_EQ(wave.left(4), "RIFF");
    EXPECT_EQ(qFromLittleEndian<uint32_t>(wave.constData() + 24), 11025u);
    EXPECT_EQ(qFromLittleEndian<uint16_t>(wave.constData() + 34), 16);
    EXPECT_TRUE(state->text().startsWith("Stopped"));

    QTest::mouseClick(window->findChild<QPushButton*>("cmdClose"), Qt::LeftButton);
    EXPECT_TRUE(Eventually([&] { return !app.windows().window(veldor::FormId::frmRecord); }, 2000));
    EXPECT_FALSE(app.core().s.RecorderOpen);
    app.closeForSignal();
}

}  // namespace
