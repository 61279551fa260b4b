// The real program on the built-in simulated FT-817: TimedEvents.txt tunes the rig and starts
// a task through the system's launcher; the recorder records a PulseAudio sine source, started
// by the test, into a wave file chosen in the save dialog.
#include "e2e_support.h"
#include "support/pulse_server.h"
#include "ui/application.h"
#include "ui/main_window.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QtEndian>

#include <gtest/gtest.h>

#include <functional>

namespace {

// A folder with the settings of an FT-817 on the built-in simulator that starts at once.
struct SimStation {
    SimStation() {
        qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
        qputenv("XDG_DATA_HOME", (dir.path() + "/data").toUtf8());
        veldor::test::WriteSettings(
            dir.path(), QString("[Settings]\nRigType=FT817\nCommport=SIM\nAutoStart=Yes\n"
                                "PollingDelay=0\nHomeDir=%1\n")
                            .arg(dir.path())
                            .toUtf8());
    }
    QTemporaryDir dir;
};

using veldor::test::Eventually;

// Runs the program in a folder of its own, where the test writes TimedEvents.txt.
struct InFolder {
    explicit InFolder(const QString& folder) : previous(QDir::currentPath()) {
        QDir::setCurrent(folder);
    }
    ~InFolder() { QDir::setCurrent(previous); }
    QString previous;
};

TEST(TimedEventsInTheProgram, TheTimedButtonTunesTheRigAndStartsTheTaskOfThisMinute) {
    SimStation station;
    const QString folder = station.dir.path();
    const QTime now = QTime::currentTime();
    QFile file(folder + "/TimedEvents.txt");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    // A task in this minute and in the next, should the minute turn while the test starts.
    file.write(QString("0001 FT8 all day,7.074,USB\n"
                       "Mark %1,SHELL,touch \"%3/ran at %1\"\n"
                       "Mark %2,SHELL,touch \"%3/ran at %2\"\n")
                   .arg(now.toString("HHmm"), now.addSecs(60).toString("HHmm"), folder)
                   .toUtf8());
    file.close();
    InFolder in(folder);
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    auto* timed = app.window().findChild<QPushButton*>("cmdTimed");
    ASSERT_NE(timed, nullptr);
    ASSERT_TRUE(timed->isEnabled());
    const veldor::Form1& f = app.core().f;
    ASSERT_TRUE(Eventually([&] { return f.txtVfoA.text == "14.250.00"; }, 5000));
    QTest::mouseClick(timed, Qt::LeftButton);
    EXPECT_TRUE(timed->styleSheet().contains("rgb(0,255,0)"));
    EXPECT_TRUE(Eventually([&] { return f.txtVfoA.text == "7.074.00"; }, 5000));
    EXPECT_EQ(app.core().f.txtMode.text, "USB");
    auto* list = app.window().findChild<QComboBox*>("cboTimedEvents");
    EXPECT_EQ(list->currentText(), "0001 FT8 all day 7.074 USB");
    EXPECT_TRUE(Eventually([&] { return QDir(folder).entryList({"ran at *"}).size() == 1; }, 5000));
    QTest::mouseClick(timed, Qt::LeftButton);
    EXPECT_FALSE(app.core().s.TimedActive);
    app.closeForSignal();
}

// Types the path into the save dialog as soon as it shows, as the operator does.
void AnswerSaveDialog(const QString& path) {
    QTimer::singleShot(200, [path] {
        for (QWidget* w : QApplication::topLevelWidgets()) {
            auto* dialog = qobject_cast<QFileDialog*>(w);
            if (!dialog || !dialog->isVisible()) continue;
            auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
            if (!name) break;
            name->setText(path);
            QTest::keyClick(name, Qt::Key_Return);
            return;
        }
        AnswerSaveDialog(path);
    });
}

TEST(RecorderInTheProgram, RecordsTheSineSourceIntoTheWaveFileChosen) {
    veldor::test::TestPulseServer server;
    QString reason;
    if (!server.start(&reason)) GTEST_SKIP() << reason.toStdString();
    SimStation station;
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    ASSERT_TRUE(Eventually([&] { return app.core().f.chkOnOff.value == 1; }, 5000));
    auto* record = app.window().findChild<QPushButton*>("cmdRecord");
    QTest::mouseClick(record, Qt::LeftButton);
    ASSERT_TRUE(Eventually([&] { return app.windows().window(veldor::FormId::frmRecord); }, 5000));
    QWidget* window = app.windows().window(veldor::FormId::frmRecord);
    EXPECT_EQ(window->windowTitle(), "VELDOR - Recorder");
    auto* devices = window->findChild<QComboBox*>("Combo2");
    ASSERT_NE(devices, nullptr);
    const int sine = devices->findText("Sine", Qt::MatchContains);
    ASSERT_GE(sine, 0);
    devices->setFocus();
    while (devices->currentIndex() < sine) QTest::keyClick(devices, Qt::Key_Down);
    EXPECT_EQ(app.core().frmRecord.Combo2.listIndex, sine);
    QTest::mouseClick(window->findChild<QRadioButton*>("optBits_1"), Qt::LeftButton);
    EXPECT_FALSE(app.core().frmRecord.optBits[0].value);

    QTest::mouseClick(window->findChild<QPushButton*>("MMControl2_Record"), Qt::LeftButton);
    auto* state = window->findChild<QLabel*>("lblStatus");
    ASSERT_TRUE(Eventually(
        [&] {
            return app.core().p.audio->takeMilliseconds() >= 1000 &&
                   state->text().startsWith("Recording 0:0");
        },
        5000))
        << state->text().toStdString();
    const QString shots = qEnvironmentVariable("VELDOR_SCREENSHOTS");
    if (!shots.isEmpty()) window->grab().save(shots + "/recorder.png");

    const QString path = station.dir.path() + "/watch";
    AnswerSaveDialog(path);
    QTest::mouseClick(window->findChild<QPushButton*>("recSave"), Qt::LeftButton);
    QFile saved(path + ".wav");
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
