// The real main window, with the real serial port, over a pseudo-terminal to veldor-rigsim:
// clicks on the widgets take the simulated FT-847 into CAT mode and out of it.
#include "e2e_support.h"
#include "link/catalogue.h"
#include "rigsim_state.h"
#include "ui/application.h"
#include "ui/main_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

QString RigsimPath() {
    return QStringLiteral(VELDOR_RIGSIM);
}

class WindowOverPty : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
        link = dir.path() + "/ttyFT847";
        stateFile = dir.path() + "/rig.state";
        control = dir.path() + "/control";
        rigsim.start(RigsimPath(), {"--rig", "FT847", "--link", link, "--state-file", stateFile,
                                    "--control", control});
        ASSERT_TRUE(rigsim.waitForStarted(5000));
        ASSERT_TRUE(rigsim.waitForReadyRead(5000));
        ASSERT_TRUE(veldor::test::WriteSettings(
            dir.path(),
            ("[Settings]\nRigType=FT847\nCommport=" + link + "\nHomeDir=" + dir.path() + "\n")
                .toUtf8()));
    }
    void TearDown() override {
        rigsim.terminate();
        rigsim.waitForFinished(5000);
    }

    QString rigState(const QString& key) { return veldor::test::RigsimState(stateFile, key); }
    bool waitForRig(const QString& key, const QString& value) {
        return veldor::test::WaitForRigsim(stateFile, key, value);
    }

    // A line to the rig's control pipe, as if the operator turned its knob.
    void tellRig(const QByteArray& line) {
        QFile pipe(control);
        ASSERT_TRUE(pipe.open(QIODevice::WriteOnly));
        pipe.write(line + "\n");
    }

    QTemporaryDir dir;
    QString link, stateFile, control;
    QProcess rigsim;
};

void ClickCheckBox(QCheckBox* box) {
    // On the box itself, at the left where the tick is drawn.
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
}

TEST_F(WindowOverPty, OnOffTakesTheFt847IntoCatModeAndOut) {
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    auto* onOff = app.window().findChild<QCheckBox*>("chkOnOff");
    ASSERT_NE(onOff, nullptr);
    EXPECT_EQ(rigState("catOn"), "0");

    ClickCheckBox(onOff);
    EXPECT_TRUE(onOff->isChecked());
    EXPECT_TRUE(waitForRig("catOn", "1"));
    EXPECT_EQ(app.core().f.chkOnOff.backColour, veldor::Red);
    EXPECT_TRUE(onOff->styleSheet().contains("rgb(255,0,0)"));

    ClickCheckBox(onOff);
    EXPECT_FALSE(onOff->isChecked());
    EXPECT_TRUE(waitForRig("catOn", "0"));
    auto* count = app.window().findChild<QLabel*>("lblTimeoutCount");
    ASSERT_NE(count, nullptr);
    EXPECT_EQ(count->text(), "0");
}

TEST_F(WindowOverPty, TheWindowFollowsTheRigAndRecordsItForOtherPrograms) {
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    ClickCheckBox(app.window().findChild<QCheckBox*>("chkOnOff"));
    auto* vfo = app.window().findChild<QLineEdit*>("txtVfoA");
    ASSERT_NE(vfo, nullptr);
    tellRig("freq 7074000");
    tellRig("mode LSB");
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < 5000 && vfo->text() != "7.074.00") QTest::qWait(20);
    EXPECT_EQ(vfo->text(), "7.074.00");
    EXPECT_EQ(app.window().findChild<QLineEdit*>("txtMode")->text(), "LSB");
    QTest::qWait(300);  // a tick or two more, for the record
    const QByteArray text = veldor::test::SettingsText(dir.path());
    EXPECT_TRUE(text.contains("Frequency=7.074.00")) << text.toStdString();
    EXPECT_TRUE(text.contains("Mode=LSB"));
    EXPECT_TRUE(text.contains("Status=Active"));
}

// Hamlib's rigctl, on the rig's second terminal, retunes it; VELDOR follows within a reading.
TEST(RigctlBesideVeldor, AFrequencySetByRigctlShowsAndIsRecorded) {
    const QString rigctl = QStandardPaths::findExecutable("rigctl");
    if (rigctl.isEmpty()) GTEST_SKIP() << "rigctl not installed";
    QTemporaryDir dir;
    qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
    const QString first = dir.path() + "/tty1", second = dir.path() + "/tty2";
    QProcess rigsim;
    rigsim.start(RigsimPath(), {"--rig", "FT817", "--link", first, "--second-link", second});
    ASSERT_TRUE(rigsim.waitForReadyRead(5000));
    ASSERT_TRUE(veldor::test::WriteSettings(
        dir.path(), ("[Settings]\nRigType=FT817\nAutoStart=Yes\nCommport=" + first +
                     "\nHomeDir=" + dir.path() + "\n")
                        .toUtf8()));
    {
        veldor::Application app;
        ASSERT_TRUE(app.start(""));
        auto* vfo = app.window().findChild<QLineEdit*>("txtVfoA");
        QElapsedTimer t;
        t.start();
        while (t.elapsed() < 5000 && vfo->text() != "14.250.00") QTest::qWait(20);
        ASSERT_EQ(vfo->text(), "14.250.00");

        QProcess client;
        client.start(rigctl, {"-m", "1020", "-r", second, "-s", "4800", "F", "7074000"});
        while (t.elapsed() < 20000 && client.state() != QProcess::NotRunning) QTest::qWait(20);
        EXPECT_EQ(client.exitCode(), 0) << client.readAllStandardError().toStdString();
        while (t.elapsed() < 25000 && vfo->text() != "7.074.00") QTest::qWait(20);
        EXPECT_EQ(vfo->text(), "7.074.00");
        QTest::qWait(300);
    }
    EXPECT_TRUE(veldor::test::SettingsText(dir.path()).contains("Frequency=7.074.00"));
    rigsim.terminate();
    rigsim.waitForFinished(5000);
}

TEST_F(WindowOverPty, AModeButtonAndTheTxRxButtonWorkTheRig) {
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    ClickCheckBox(app.window().findChild<QCheckBox*>("chkOnOff"));
    ASSERT_TRUE(waitForRig("catOn", "1"));
    auto* lsb = app.window().findChild<QPushButton*>("Command2_0");
    ASSERT_NE(lsb, nullptr);
    EXPECT_EQ(lsb->text(), "LSB");
    QTest::mouseClick(lsb, Qt::LeftButton);
    EXPECT_TRUE(waitForRig("mode", "LSB"));

    auto* txRx = app.window().findChild<QPushButton*>("cmdTxRx");
    ASSERT_NE(txRx, nullptr);
    EXPECT_FALSE(txRx->isEnabled());  // not before transmitting is enabled
    ClickCheckBox(app.window().findChild<QCheckBox*>("chkTransmitEnable"));
    ASSERT_TRUE(txRx->isEnabled());
    QTest::mouseClick(txRx, Qt::LeftButton);
    EXPECT_EQ(txRx->text(), "TX/rx");
    EXPECT_TRUE(waitForRig("ptt", "1"));
    QTest::mouseClick(txRx, Qt::LeftButton);
    EXPECT_TRUE(waitForRig("ptt", "0"));
    EXPECT_EQ(txRx->text(), "tx/RX");
}

TEST_F(WindowOverPty, TheShiftButtonsSetTheRigsRepeaterShift) {
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    ClickCheckBox(app.window().findChild<QCheckBox*>("chkOnOff"));
    ASSERT_TRUE(waitForRig("catOn", "1"));
    const std::pair<const char*, const char*> presses[] = {
        {"cmdShiftMinus", "-"}, {"cmdShiftPlus", "+"}, {"cmdShiftSimplex", "0"}};
    for (auto [name, shift] : presses) {
        auto* button = app.window().findChild<QPushButton*>(name);
        ASSERT_NE(button, nullptr) << name;
        ASSERT_TRUE(button->isVisible()) << name;
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_TRUE(waitForRig("shift", shift)) << name;
    }
}

// The caption of TX/RX changes with each press; F9 must go on working through the changes.
TEST_F(WindowOverPty, F9KeysAndUnkeysTheRigOnceTransmittingIsEnabled) {
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    QWidget& window = app.window();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    ClickCheckBox(window.findChild<QCheckBox*>("chkOnOff"));
    ASSERT_TRUE(waitForRig("catOn", "1"));
    auto* txRx = window.findChild<QPushButton*>("cmdTxRx");
    EXPECT_TRUE(txRx->toolTip().contains("F9"));

    QTest::keyClick(&window, Qt::Key_F9);  // not yet enabled: the rig stays on receive
    QTest::qWait(300);
    EXPECT_EQ(rigState("ptt"), "0");

    ClickCheckBox(window.findChild<QCheckBox*>("chkTransmitEnable"));
    for (int round = 0; round < 2; ++round) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F9);
        EXPECT_TRUE(waitForRig("ptt", "1")) << round;
        EXPECT_TRUE(txRx->isChecked());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F9);
        EXPECT_TRUE(waitForRig("ptt", "0")) << round;
        EXPECT_FALSE(txRx->isChecked());
    }
}

TEST_F(WindowOverPty, TheToneChosenInTheListStaysChosenThroughTheReadings) {
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    ClickCheckBox(app.window().findChild<QCheckBox*>("chkOnOff"));
    ASSERT_TRUE(waitForRig("catOn", "1"));
    auto* tones = app.window().findChild<QComboBox*>("cboCTCSS");
    ASSERT_NE(tones, nullptr);
    ASSERT_EQ(tones->count(), app.core().f.cboCTCSS.list.size());
    ASSERT_GT(tones->count(), 3);
    EXPECT_EQ(tones->currentIndex(), -1);
    tones->setFocus();
    QTest::keyClick(tones, Qt::Key_Down);
    QTest::keyClick(tones, Qt::Key_Down);
    QTest::keyClick(tones, Qt::Key_Down);
    EXPECT_EQ(app.core().f.cboCTCSS.listIndex, 2);
    QTest::qWait(300);  // readings come and go, each showing the form again
    EXPECT_EQ(tones->currentIndex(), 2);
    EXPECT_EQ(tones->currentText(), app.core().f.cboCTCSS.list[2]);
}

// What each rig's window shows beyond its frame and mode buttons.
void CheckRigWindow(const QString& rig, veldor::Application& app) {
    QWidget& w = app.window();
    const veldor::Form1& f = app.core().f;
    // Tooltips set at start-up, after the window was built, are the ones shown.
    EXPECT_EQ(w.findChild<QCheckBox*>("chkOnOff")->toolTip(), " " + rig + " ");
    EXPECT_EQ(w.findChild<QLabel*>("lblDISC")->toolTip(), f.lblDISC.toolTip);
    // The shift label goes with the shift buttons.
    auto* minus = w.findChild<QPushButton*>("cmdShiftMinus");
    bool shiftLabelShown = false;
    for (QLabel* label : w.findChildren<QLabel*>())
        if (label->text() == "Shift" && label->isVisible()) shiftLabelShown = true;
    EXPECT_EQ(shiftLabelShown, minus->isVisible()) << rig.toStdString();
    // The meters button is the FT-920's alone.
    auto* meters = w.findChild<QPushButton*>("cmdMeters");
    EXPECT_EQ(meters->isVisible(), rig == "FT920") << rig.toStdString();

    if (rig == "FT450") {
        EXPECT_EQ(w.findChild<QLabel*>("lblDISC")->toolTip(), "SWR");
        EXPECT_EQ(w.findChild<QLabel*>("lblDISC")->text(), "SWR");
    } else if (rig == "VR5000") {
        // Buttons 4 to 6 are not the receiver's; USB closes up beside WFM on the first row.
        auto* wfm = w.findChild<QPushButton*>("Command2_3");
        auto* usb = w.findChild<QPushButton*>("Command2_7");
        EXPECT_EQ(usb->y(), wfm->y());
        EXPECT_GT(usb->x(), wfm->x());
    } else if (rig == "FT920") {
        // The rig transmits and receives on VFO A: its lights are red and green, B's grey.
        const std::pair<const char*, const char*> lights[] = {{"shpTxVfoA", "rgb(255,0,0)"},
                                                              {"shpRxVfoA", "rgb(0,255,0)"},
                                                              {"shpTxVfoB", "rgb(224,224,224)"},
                                                              {"shpRxVfoB", "rgb(224,224,224)"}};
        for (auto [name, colour] : lights) {
            auto* light = w.findChild<QLabel*>(name);
            ASSERT_NE(light, nullptr) << name;
            EXPECT_TRUE(light->isVisible()) << name;
            EXPECT_TRUE(light->styleSheet().contains(colour)) << name;
        }
        ASSERT_NE(w.findChild<QLabel*>("lblTune"), nullptr);
        EXPECT_TRUE(w.findChild<QLabel*>("lblTune")->isVisible());
        EXPECT_EQ(w.findChild<QLabel*>("lblTune")->text(), f.lblTune.caption);
        EXPECT_EQ(w.findChild<QPushButton*>("cmdFT920Tuner")->text(), "Tuner in/out");
    }
}

// The window fitted to each rig on the built-in simulated port. With VELDOR_SCREENSHOTS set
// to a folder, each window is saved there as a picture.
TEST(WindowPerRig, ShowsTheFrameAndModeButtonsOfTheRig) {
    struct Row {
        const char* rig;
        const char* frame;
        int lastModeButton;
        const char* lastCaption;
    };
    const Row rows[] = {
        {"FT817", "frmFT817", 7, "PKT"},     {"FT857", "frmFT857", 8, "FMN"},
        {"FT450", "frmFT450", 10, "USRU"},   {"FT1000MP", "frmFT1000MP", 11, "AM(S)"},
        {"FT920", "frmFT920", 10, "RTY(L)"}, {"VR5000", "frmVR5000FMN", 10, "FM-N"}};
    for (const Row& row : rows) {
        QTemporaryDir dir;
        qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
        ASSERT_TRUE(veldor::test::WriteSettings(
            dir.path(), QString("[Settings]\nRigType=%1\nCommport=SIM\nAutoStart=Yes\nHomeDir=%2\n")
                            .arg(row.rig, dir.path())
                            .toUtf8()));
        veldor::Application app;
        ASSERT_TRUE(app.start(""));
        app.window().show();
        QTest::qWait(300);
        for (QGroupBox* box : app.window().findChildren<QGroupBox*>()) {
            if (!box->objectName().startsWith("frm")) continue;
            // The scan's and the sweep's frames stand on every rig.
            if (box->objectName() == "frmStop" || box->objectName() == "frmSpectrum") continue;
            EXPECT_EQ(box->isVisible(), box->objectName() == row.frame)
                << row.rig << " " << box->objectName().toStdString();
        }
        const QString last = QString("Command2_%1").arg(row.lastModeButton);
        auto* button = app.window().findChild<QPushButton*>(last);
        ASSERT_NE(button, nullptr);
        EXPECT_TRUE(button->isVisible()) << row.rig;
        EXPECT_EQ(button->text(), row.lastCaption);
        if (row.lastModeButton < 11) {
            auto* beyond = app.window().findChild<QPushButton*>(
                QString("Command2_%1").arg(row.lastModeButton + 1));
            EXPECT_FALSE(beyond->isVisible()) << row.rig;
        }
        CheckRigWindow(row.rig, app);
        // The small test screen holds the whole window; its content scrolls inside.
        const QSize screen = app.window().screen()->availableGeometry().size();
        EXPECT_LE(app.window().width(), screen.width()) << row.rig;
        EXPECT_LE(app.window().height(), screen.height()) << row.rig;
        const QString shots = qEnvironmentVariable("VELDOR_SCREENSHOTS");
        if (!shots.isEmpty())
            app.window().grab().save(shots + "/window-" + QString(row.rig).toLower() + ".png");
        app.closeForSignal();
    }
}

// "Spectrum display only" (F2) leaves the spectrum's frame alone in a window shrunk around it,
// whole; a second F2 brings every group back in the window's former size. A render while
// compact (the link's tick) does not bring a group back.
TEST(WindowSpectrumOnly, ShrinksTheWindowToTheSpectrumAndGrowsItBack) {
    QTemporaryDir dir;
    qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
    ASSERT_TRUE(veldor::test::WriteSettings(
        dir.path(), QString("[Settings]\nRigType=FT817\nCommport=SIM\nAutoStart=Yes\nHomeDir=%1\n")
                        .arg(dir.path())
                        .toUtf8()));
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    veldor::MainWindow& w = app.window();
    w.show();
    QTest::qWait(300);
    const QString shots = qEnvironmentVariable("VELDOR_SCREENSHOTS");
    auto* spectrum = w.findChild<QGroupBox*>("frmSpectrum");
    const QSize full = w.size();
    const auto shown = [&] {
        QStringList names;
        for (QWidget* g :
             spectrum->parentWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            if (g->isVisible()) names << g->objectName();
        return names;
    };
    const QStringList groups = shown();

    QTest::keyClick(&w, Qt::Key_F2);
    QTest::qWait(300);  // ticks of the link render meanwhile
    if (!shots.isEmpty()) w.grab().save(shots + "/window-spectrum-only.png");
    EXPECT_EQ(shown(), QStringList{"frmSpectrum"});
    EXPECT_LT(w.height(), full.height() / 2);
    EXPECT_LT(w.width(), full.width());
    // Whole, with no scroll bar.
    EXPECT_TRUE(w.rect().contains(QRect(spectrum->mapTo(&w, QPoint()), spectrum->size())));
    for (QScrollBar* bar : w.findChildren<QScrollBar*>())
        EXPECT_FALSE(bar->isVisible() && bar->window() == &w) << bar->objectName().toStdString();

    QTest::keyClick(&w, Qt::Key_F2);
    QTest::qWait(100);
    EXPECT_EQ(shown(), groups);
    EXPECT_EQ(w.size(), full);
    app.closeForSignal();
}

TEST_F(WindowOverPty, APortThatDoesNotExistPutsTheSwitchBackWithAReason) {
    ASSERT_TRUE(veldor::test::WriteSettings(dir.path(),
                                            ("[Settings]\nRigType=FT847\nCommport=" + dir.path() +
                                             "/nothing\nHomeDir=" + dir.path() + "\n")
                                                .toUtf8()));
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    auto* onOff = app.window().findChild<QCheckBox*>("chkOnOff");
    // The message box is modal: answer it as soon as it shows.
    QTimer::singleShot(200, [] {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->inherits("QMessageBox") && w->isVisible()) QTest::keyClick(w, Qt::Key_Enter);
    });
    ClickCheckBox(onOff);
    EXPECT_FALSE(onOff->isChecked());
    EXPECT_EQ(app.core().f.chkOnOff.value, 0);
    EXPECT_TRUE(app.core().frmErrorList.txtErrors.text.contains("does not exist"));
}

// The ClickSet keys: Shift+F2 stores the rig's frequency in memory 2, Ctrl+F2 takes the rig back.
TEST_F(WindowOverPty, ShiftF2StoresTheRigsFrequencyAndCtrlF2TakesTheRigBack) {
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    QWidget& window = app.window();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    ClickCheckBox(window.findChild<QCheckBox*>("chkOnOff"));
    ASSERT_TRUE(waitForRig("catOn", "1"));
    auto* vfo = window.findChild<QLineEdit*>("txtVfoA");
    auto showing = [vfo](const QString& text) {
        QElapsedTimer t;
        t.start();
        while (t.elapsed() < 5000 && vfo->text() != text) QTest::qWait(20);
        return vfo->text() == text;
    };
    tellRig("freq 145500000");
    tellRig("mode FM");
    ASSERT_TRUE(showing("145.500.00"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F2, Qt::ShiftModifier);
    EXPECT_EQ(window.findChild<QPushButton*>("lblStore_1")->text(), "145.50000\nFM");
    EXPECT_EQ(window.findChild<QPushButton*>("lblStore_0")->text(), "Empty");

    tellRig("freq 7074000");
    tellRig("mode LSB");
    ASSERT_TRUE(showing("7.074.00"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F2, Qt::ControlModifier);
    EXPECT_TRUE(waitForRig("frequency", "145500000"));
    EXPECT_EQ(rigState("mode"), "FM");
    EXPECT_TRUE(showing("145.500.00"));
    EXPECT_TRUE(veldor::test::SettingsText(dir.path()).contains("Bank1M2Freq=145.50000"));
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
