// The real program's accessory windows: the FT-847 cross-band repeater over a pseudo-terminal
// to veldor-rigsim, the FT-450 DSP panel and the FT-920 meters panel on the built-in simulated
// rigs. With VELDOR_SCREENSHOTS set to a folder, each window is saved there as a picture.
#include "e2e_support.h"
#include "rigsim_state.h"
#include "ui/application.h"
#include "ui/main_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
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
    ASSERT_TRUE(veldor::test::WriteSettings(
        dir.path(),
        ("[Settings]\nMainLeft=6000\nMainTop=1500\nHomeDir=" + dir.path() + "\n" + lines)
            .toUtf8()));
}

void Screenshot(QWidget* w, const QString& name) {
    const QString shots = qEnvironmentVariable("VELDOR_SCREENSHOTS");
    if (!shots.isEmpty()) w->grab().save(shots + "/" + name + ".png");
}

using veldor::test::Eventually;

// A press that lands after the caller has returned: the handlers of these windows run loops and
// modal boxes of their own.
void PressLater(QAbstractButton* button) {
    QTimer::singleShot(0, button, &QAbstractButton::click);
}

TEST(CrossBandWindow, RunsTheFt847InSatelliteModeUntilExit) {
    QTemporaryDir dir;
    const QString link = dir.path() + "/ttyFT847", state = dir.path() + "/rig.state";
    QProcess rigsim;
    rigsim.start(VELDOR_RIGSIM, {"--rig", "FT847", "--link", link, "--state-file", state});
    ASSERT_TRUE(rigsim.waitForReadyRead(5000));
    WriteSettings(dir, "RigType=FT847\nCommport=" + link + "\nAutoStart=Yes\n");
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    ASSERT_TRUE(veldor::test::WaitForRigsim(state, "catOn", "1"));
    auto* open = app.window().findChild<QPushButton*>("cmdXBand");
    ASSERT_TRUE(open && open->isVisible());

    // The window is modal and runs inside the tick: the operator is a timer that looks at
    // what is on the screen, and presses after it has returned.
    auto satellite = [&] { return veldor::test::RigsimState(state, "satellite"); };
    int step = 0;
    QString told;
    QTimer operatorHand;
    QObject::connect(&operatorHand, &QTimer::timeout, [&] {
        QWidget* window = QApplication::activeModalWidget();
        if (auto* box = qobject_cast<QMessageBox*>(window)) {
            told = box->text();
            PressLater(box->button(QMessageBox::Ok));
        } else if (window && window->objectName() == "frmXBandRepeat") {
            auto press = [window](const char* name) {
                PressLater(window->findChild<QPushButton*>(name));
            };
            if (step == 0) {
                press("cmdStart");
                step = 1;
            } else if (step == 1 && satellite() == "1") {
                Screenshot(window, "xband-running");
                press("cmdExit");
                step = 2;
            }
        }
    });
    operatorHand.start(50);
    QTest::mouseClick(open, Qt::LeftButton);
    EXPECT_TRUE(Eventually([&] { return step == 2 && !QApplication::activeModalWidget(); }, 20000))
        << "step " << step;
    EXPECT_EQ(told, "Set menu 41 X-RPT to ON, then click OK");
    EXPECT_TRUE(veldor::test::WaitForRigsim(state, "satellite", "0"));
    app.closeForSignal();
    rigsim.terminate();
    rigsim.waitForFinished(5000);
}

// The real program on the built-in simulated rig, and the panel a click opens, once shown.
QWidget* OpenPanel(veldor::Application& app, QAbstractButton* opener, veldor::FormId form) {
    QTest::mouseClick(opener, Qt::LeftButton, {}, QPoint(8, opener->height() / 2));
    QWidget* panel = nullptr;
    Eventually([&] {
        panel = app.windows().window(form);
        return panel && panel->isVisible();
    });
    return panel;
}

TEST(DspPanel, OpensDockedBesideTheMainWindowAndWorksTheFt450) {
    QTemporaryDir dir;
    WriteSettings(dir, "RigType=FT450\nCommport=SIM\nAutoStart=Yes\n");
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    QWidget& main = app.window();
    auto* box = main.findChild<QCheckBox*>("chkShowDSP");
    QWidget* panel = OpenPanel(app, box, veldor::FormId::frm450DSP);
    ASSERT_NE(panel, nullptr);
    EXPECT_TRUE(Eventually([&] {
        return panel->frameGeometry().right() + 1 == main.frameGeometry().left() &&
               panel->y() == main.y();
    }));
    // A click on a light goes to the rig; the next reading lights it.
    auto* blanker = panel->findChild<QPushButton*>("lbl450NoiseBlanker");
    QTest::mouseClick(blanker, Qt::LeftButton);
    EXPECT_TRUE(Eventually([&] { return blanker->styleSheet().contains("0,255,0"); }));
    Screenshot(panel, "dsp-panel");
    QTest::mouseClick(panel->findChild<QPushButton*>("cmdClose"), Qt::LeftButton);
    EXPECT_FALSE(box->isChecked());
    app.closeForSignal();
}

TEST(MetersPanel, ShowsTheFt920sMetersAndVfoB) {
    QTemporaryDir dir;
    WriteSettings(dir, "RigType=FT920\nCommport=SIM\nAutoStart=Yes\n");
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    QWidget* panel = OpenPanel(app, app.window().findChild<QPushButton*>("cmdMeters"),
                               veldor::FormId::frmMeters);
    ASSERT_NE(panel, nullptr);
    // The simulated rig's supply voltage byte, and its VFO B.
    EXPECT_TRUE(Eventually([&] { return panel->findChild<QLabel*>("lblVLT")->text() == "190"; }));
    EXPECT_EQ(panel->findChild<QProgressBar*>("pbarVLT")->value(), 190);
    EXPECT_EQ(panel->findChild<QLabel*>("lblVFOB")->text(), "7.050.00");
    EXPECT_EQ(panel->frameGeometry().right() + 1, app.window().frameGeometry().left());
    Screenshot(panel, "meters-panel");
    app.closeForSignal();
}

}  // namespace
