// The real program's accessory windows: the FT-847 cross-band repeater over a pseudo-terminal
// to veldor-rigsim, the FT-450 DSP panel and the FT-920 meters panel on the built-in simulated
// rigs. With VELDOR_SCREENSHOTS set to a folder, each window is saved there as a picture.
#include "rigsim_state.h"
#include "ui/application.h"
#include "ui/main_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace {

void WriteSettings(const QTemporaryDir& dir, const QString& lines) {
    qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
    QDir().mkpath(dir.path() + "/VELDOR");
    QFile ini(dir.path() + "/VELDOR/VELDOR.ini");
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write(
        ("[Settings]\nMainLeft=6000\nMainTop=1500\nHomeDir=" + dir.path() + "\n" + lines).toUtf8());
}

void Screenshot(QWidget* w, const QString& name) {
    const QString shots = qEnvironmentVariable("VELDOR_SCREENSHOTS");
    if (!shots.isEmpty()) w->grab().save(shots + "/" + name + ".png");
}

bool WaitFor(const std::function<bool()>& done, int ms = 8000) {
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < ms) {
        if (done()) return true;
        QTest::qWait(20);
    }
    return done();
}

// A press that lands after the caller has returned: the handlers of these windows run loops and
// modal boxes of their own.
void PressLater(QAbstractButton* button) {
    QTimer::singleShot(0, button, &QAbstractButton::click);
}

TEST(CrossBandWindow, RunsTheFt847AsARepeaterUntilStopAndExit) {
    QTemporaryDir dir;
    const QString link = dir.path() + "/ttyFT847", state = dir.path() + "/rig.state";
    const QString control = dir.path() + "/control";
    QProcess rigsim;
    rigsim.start(VELDOR_RIGSIM,
                 {"--rig", "FT847", "--link", link, "--state-file", state, "--control", control});
    ASSERT_TRUE(rigsim.waitForReadyRead(5000));
    WriteSettings(dir, "RigType=FT847\nCommport=" + link + "\nAutoStart=Yes\n");
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    ASSERT_TRUE(veldor::test::WaitForRigsim(state, "catOn", "1"));
    auto* open = app.window().findChild<QPushButton*>("cmdXBand");
    ASSERT_NE(open, nullptr);
    ASSERT_TRUE(open->isVisible());
    Screenshot(&app.window(), "window-ft847");

    // The window is modal and runs inside the tick: the operator's part is played by a timer
    // that looks at what is on the screen.
    auto rig = [&](const char* key) { return veldor::test::RigsimState(state, key); };
    int step = 0;
    QString told;
    QTimer operatorHand;
    QObject::connect(&operatorHand, &QTimer::timeout, [&] {
        auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (auto* box = qobject_cast<QMessageBox*>(window)) {
            told = box->text();
            PressLater(box->button(QMessageBox::Ok));
            return;
        }
        if (!window || window->objectName() != "frmXBandRepeat") return;
        auto press = [window](const char* name) {
            PressLater(window->findChild<QPushButton*>(name));
        };
        if (step == 0) {
            EXPECT_EQ(window->windowTitle(), "FT-847 X-Band Repeater");
            press("cmdFreqAPlus_3");  // 145.100.00
            press("cmdStart");
            step = 1;
        } else if (step == 1 && rig("satellite") == "1" && rig("satTx") == "145100000") {
            Screenshot(window, "xband-running");
            EXPECT_TRUE(window->findChild<QLineEdit*>("txtVfoA")->styleSheet().contains("255,0,0"));
            step = 2;
        } else if (step == 2 && rig("satTx") == "433000000") {  // the sides have swapped
            press("cmdStop");
            step = 3;
        } else if (step == 3 && rig("satellite") == "0") {
            press("cmdExit");
            step = 4;
        }
    });
    operatorHand.start(50);
    QTest::mouseClick(open, Qt::LeftButton);
    EXPECT_TRUE(WaitFor([&] { return step == 4 && !QApplication::activeModalWidget(); }, 20000))
        << "step " << step;
    EXPECT_EQ(told, "Set menu 41 X-RPT to ON, then click OK");
    EXPECT_EQ(rig("satellite"), "0");
    // The poll goes on after the window: a retune at the rig shows.
    QFile pipe(control);
    ASSERT_TRUE(pipe.open(QIODevice::WriteOnly));
    pipe.write("freq 7074000\n");
    pipe.close();
    EXPECT_TRUE(WaitFor(
        [&] { return app.window().findChild<QLineEdit*>("txtVfoA")->text() == "7.074.00"; }));
    app.closeForSignal();
    rigsim.terminate();
    rigsim.waitForFinished(5000);
}

TEST(DspPanel, OpensDockedBesideTheMainWindowAndWorksTheFt450) {
    QTemporaryDir dir;
    WriteSettings(dir, "RigType=FT450\nCommport=SIM\nAutoStart=Yes\n");
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    QWidget& main = app.window();
    auto* box = main.findChild<QCheckBox*>("chkShowDSP");
    ASSERT_TRUE(box && box->isVisible());
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    QWidget* panel = nullptr;
    ASSERT_TRUE(WaitFor([&] {
        panel = app.windows().window(veldor::FormId::frm450DSP);
        return panel && panel->isVisible();
    }));
    EXPECT_TRUE(WaitFor([&] {
        return panel->frameGeometry().right() + 1 == main.frameGeometry().left() &&
               panel->y() == main.y();
    })) << panel->frameGeometry().x()
        << " " << main.frameGeometry().x();

    // A click on a light goes to the rig; the next reading lights it.
    auto* blanker = panel->findChild<QPushButton*>("lbl450NoiseBlanker");
    ASSERT_NE(blanker, nullptr);
    QTest::mouseClick(blanker, Qt::LeftButton);
    EXPECT_TRUE(WaitFor([&] { return blanker->styleSheet().contains("0,255,0"); }));
    Screenshot(panel, "dsp-panel");

    QTest::mouseClick(panel->findChild<QPushButton*>("cmdDockRight"), Qt::LeftButton);
    EXPECT_TRUE(WaitFor([&] { return panel->x() == main.frameGeometry().right() + 1; }));
    QTest::mouseClick(panel->findChild<QPushButton*>("cmdClose"), Qt::LeftButton);
    EXPECT_FALSE(box->isChecked());
    EXPECT_TRUE(WaitFor([&] { return !app.windows().window(veldor::FormId::frm450DSP); }));
    app.closeForSignal();
}

TEST(MetersPanel, ShowsTheFt920sMetersAndVfoB) {
    QTemporaryDir dir;
    WriteSettings(dir, "RigType=FT920\nCommport=SIM\nAutoStart=Yes\n");
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    auto* open = app.window().findChild<QPushButton*>("cmdMeters");
    ASSERT_TRUE(open && open->isVisible() && open->isEnabled());
    QTest::mouseClick(open, Qt::LeftButton);
    QWidget* panel = nullptr;
    ASSERT_TRUE(WaitFor([&] {
        panel = app.windows().window(veldor::FormId::frmMeters);
        return panel && panel->isVisible();
    }));
    // The simulated rig's supply voltage byte, and its VFO B.
    EXPECT_TRUE(WaitFor([&] { return panel->findChild<QLabel*>("lblVLT")->text() == "190"; }));
    EXPECT_EQ(panel->findChild<QProgressBar*>("pbarVLT")->value(), 190);
    EXPECT_TRUE(
        WaitFor([&] { return panel->findChild<QLabel*>("lblVFOB")->text() == "7.050.00"; }));
    EXPECT_EQ(panel->frameGeometry().right() + 1, app.window().frameGeometry().left());
    Screenshot(panel, "meters-panel");
    QTest::mouseClick(open, Qt::LeftButton);  // a second press closes it
    EXPECT_TRUE(WaitFor([&] { return !panel->isVisible(); }));
    app.closeForSignal();
}

}  // namespace
