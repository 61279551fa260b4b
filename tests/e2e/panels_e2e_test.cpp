// The real program's accessory windows: the FT-847 cross-band repeater over a pseudo-terminal
// to veldor-rigsim, the FT-450 DSP panel and the FT-920 meters panel on the built-in simulated
// rigs, each docked beside the main window.
#include "e2e_support.h"

#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace {

using namespace veldor::test;

// Placed where the panels have room beside the main window.
const QString kPlace = "AutoStart=Yes\nMainLeft=6000\nMainTop=1500\n";

// A press that lands after the caller has returned: the handlers of these windows run loops and
// modal boxes of their own.
void PressLater(QAbstractButton* button) {
    QTimer::singleShot(0, button, &QAbstractButton::click);
}

TEST(CrossBandWindow, RunsTheFt847InSatelliteModeUntilExit) {
    Station st("FT847", Port::Pty, kPlace);
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    ASSERT_TRUE(st.rigHas("catOn", "1"));
    auto* open = app.window().findChild<QPushButton*>("cmdXBand");

    // The window is modal and runs inside the tick: the operator is a timer that looks at what
    // is on the screen, and presses after it has returned.
    int step = 0;
    QString told;
    QTimer operatorHand;
    QObject::connect(&operatorHand, &QTimer::timeout, [&] {
        QWidget* window = QApplication::activeModalWidget();
        if (auto* box = qobject_cast<QMessageBox*>(window)) {
            told = box->text();
            PressLater(box->button(QMessageBox::Ok));
        } else if (window && window->objectName() == "frmXBandRepeat") {
            if (step == 0) {
                PressLater(window->findChild<QPushButton*>("cmdStart"));
                step = 1;
            } else if (step == 1 && st.rig("satellite") == "1") {
                Screenshot(window, "xband-running");
                PressLater(window->findChild<QPushButton*>("cmdExit"));
                step = 2;
            }
        }
    });
    operatorHand.start(50);
    QTest::mouseClick(open, Qt::LeftButton);
    EXPECT_TRUE(Eventually([&] { return step == 2 && !QApplication::activeModalWidget(); }, 20000))
        << "step " << step;
    EXPECT_EQ(told, "Set menu 41 X-RPT to ON, then click OK");
    EXPECT_TRUE(st.rigHas("satellite", "0"));
    app.closeForSignal();
}

// The panel a click opens, once shown, with its right edge on the main window's left.
QWidget* OpenPanel(veldor::Application& app, QAbstractButton* opener, veldor::FormId form) {
    Tick(opener);
    QWidget* panel = nullptr;
    EXPECT_TRUE(Eventually([&] {
        panel = app.windows().window(form);
        return panel && panel->isVisible() &&
               panel->frameGeometry().right() + 1 == app.window().frameGeometry().left() &&
               panel->y() == app.window().y();
    }));
    return panel;
}

// A click on a light goes to the rig; the next reading lights it. Close unticks the box.
TEST(DspPanel, OpensDockedBesideTheMainWindowAndWorksTheFt450) {
    Station st("FT450", Port::BuiltIn, kPlace);
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    auto* box = app.window().findChild<QCheckBox*>("chkShowDSP");
    QWidget* panel = OpenPanel(app, box, veldor::FormId::frm450DSP);
    ASSERT_NE(panel, nullptr);
    auto* blanker = panel->findChild<QPushButton*>("lbl450NoiseBlanker");
    QTest::mouseClick(blanker, Qt::LeftButton);
    EXPECT_TRUE(Eventually([&] { return blanker->styleSheet().contains("0,255,0"); }));
    Screenshot(panel, "dsp-panel");
    QTest::mouseClick(panel->findChild<QPushButton*>("cmdClose"), Qt::LeftButton);
    EXPECT_FALSE(box->isChecked());
    app.closeForSignal();
}

// The simulated rig's supply voltage byte, and its VFO B.
TEST(MetersPanel, ShowsTheFt920sMetersAndVfoB) {
    Station st("FT920", Port::BuiltIn, kPlace);
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    QWidget* panel = OpenPanel(app, app.window().findChild<QPushButton*>("cmdMeters"),
                               veldor::FormId::frmMeters);
    ASSERT_NE(panel, nullptr);
    EXPECT_TRUE(Eventually([&] { return panel->findChild<QLabel*>("lblVLT")->text() == "190"; }));
    EXPECT_EQ(panel->findChild<QProgressBar*>("pbarVLT")->value(), 190);
    EXPECT_EQ(panel->findChild<QLabel*>("lblVFOB")->text(), "7.050.00");
    Screenshot(panel, "meters-panel");
    app.closeForSignal();
}

}  // namespace
