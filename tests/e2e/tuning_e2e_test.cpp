// The operator tunes the real window over a pseudo-terminal to veldor-rigsim's FT-817: a step
// chosen in the grid, the mouse wheel over the frequency, the arrow keys, and a typed GoTo
// with a mode letter.
#include "rigsim_state.h"
#include "ui/application.h"
#include "ui/main_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace {

// Wheel notches away from the operator over the widget.
void TurnWheel(QWidget* over, int notches) {
    const QPointF at(over->width() / 2.0, over->height() / 2.0);
    for (int i = 0; i < notches; ++i) {
        QWheelEvent wheel(at, over->mapToGlobal(at), QPoint(), QPoint(0, 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(over, &wheel);
    }
}

TEST(TuningOverPty, TheWheelArrowsAndATypedGoToTuneTheRig) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
    const QString link = dir.path() + "/ttyFT817", stateFile = dir.path() + "/rig.state";
    QProcess rigsim;
    rigsim.start(VELDOR_RIGSIM, {"--rig", "FT817", "--link", link, "--state-file", stateFile});
    ASSERT_TRUE(rigsim.waitForReadyRead(5000));
    QDir().mkpath(dir.path() + "/VELDOR");
    QFile ini(dir.path() + "/VELDOR/VELDOR.ini");
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write(("[Settings]\nRigType=FT817\nCommport=" + link + "\nHomeDir=" + dir.path() + "\n")
                  .toUtf8());
    ini.close();
    auto rigHas = [&stateFile](const char* key, const char* value) {
        return veldor::test::WaitForRigsim(stateFile, key, value);
    };
    {
        veldor::Application app;
        ASSERT_TRUE(app.start(""));
        QWidget& w = app.window();
        auto* onOff = w.findChild<QCheckBox*>("chkOnOff");
        QTest::mouseClick(onOff, Qt::LeftButton, {}, QPoint(8, onOff->height() / 2));
        auto* vfo = w.findChild<QLineEdit*>("txtVfoA");
        QElapsedTimer t;
        t.start();
        while (t.elapsed() < 5000 && vfo->text() != "14.250.00") QTest::qWait(20);
        ASSERT_EQ(vfo->text(), "14.250.00");

        auto* grid = w.findChild<QListWidget*>("grdTuning");
        ASSERT_NE(grid, nullptr);
        ASSERT_EQ(grid->item(4)->text(), "1k");
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                          grid->visualItemRect(grid->item(4)).center());
        TurnWheel(vfo, 3);
        EXPECT_TRUE(rigHas("frequency", "14253000"));

        auto* goTo = w.findChild<QLineEdit*>("txtGoToFreq");
        goTo->setFocus();
        goTo->selectAll();
        QTest::keyClicks(goTo, "7.074l");
        QTest::keyClick(goTo, Qt::Key_Return);
        EXPECT_TRUE(rigHas("frequency", "7074000"));
        EXPECT_TRUE(rigHas("mode", "LSB"));
        EXPECT_EQ(vfo->text(), "7.074.00");

        grid->setFocus();
        QTest::keyClick(grid, Qt::Key_Right);
        EXPECT_TRUE(rigHas("frequency", "7075000"));
        EXPECT_EQ(grid->currentRow(), 4);  // the arrow tuned, it did not move the row

        // F5: the transverter frame; a 137.925 MHz base puts the rig on 145 MHz.
        QTest::keyClick(&w, Qt::Key_F5);
        auto* frame = w.findChild<QGroupBox*>("frmXvtr");
        EXPECT_TRUE(frame->isVisible());
        auto* base = w.findChild<QLineEdit*>("txtXvtrBase");
        base->setFocus();
        base->selectAll();
        QTest::keyClicks(base, "137.925");
        QTest::keyClick(base, Qt::Key_Return);
        EXPECT_EQ(w.findChild<QLineEdit*>("txtXvtr")->text(), "000.145.000.00");
        EXPECT_EQ(base->text(), "00137.92500");
        const QString shots = qEnvironmentVariable("VELDOR_SCREENSHOTS");
        if (!shots.isEmpty()) w.grab().save(shots + "/window-tuning.png");
        app.closeForSignal();
    }
    rigsim.terminate();
    rigsim.waitForFinished(5000);
}

}  // namespace
