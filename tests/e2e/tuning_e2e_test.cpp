// The operator tunes the real window over a pseudo-terminal to veldor-rigsim's FT-817: the
// mouse wheel over the frequency, a typed GoTo with a mode letter, the arrow keys on the step
// grid, and the large GoTo box.
#include "e2e_support.h"
#include "rigsim_state.h"
#include "ui/application.h"
#include "ui/main_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace {

TEST(TuningOverPty, TheWheelArrowsAndATypedGoToTuneTheRig) {
    QTemporaryDir dir;
    qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
    const QString link = dir.path() + "/ttyFT817", stateFile = dir.path() + "/rig.state";
    QProcess rigsim;
    rigsim.start(VELDOR_RIGSIM, {"--rig", "FT817", "--link", link, "--state-file", stateFile});
    ASSERT_TRUE(rigsim.waitForReadyRead(5000));
    ASSERT_TRUE(veldor::test::WriteSettings(dir.path(), ("[Settings]\nRigType=FT817\nCommport=" +
                                                         link + "\nHomeDir=" + dir.path() + "\n")
                                                            .toUtf8()));
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
        for (int i = 0; i < 250 && vfo->text() != "14.250.00"; ++i) QTest::qWait(20);
        ASSERT_EQ(vfo->text(), "14.250.00");

        // Three notches away from the operator, 20 Hz each: one write of the sum.
        const QPointF at(vfo->width() / 2.0, vfo->height() / 2.0);
        for (int i = 0; i < 3; ++i) {
            QWheelEvent wheel(at, vfo->mapToGlobal(at), QPoint(), QPoint(0, 120), Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(vfo, &wheel);
        }
        EXPECT_TRUE(rigHas("frequency", "14250060"));

        auto* goTo = w.findChild<QLineEdit*>("txtGoToFreq");
        goTo->setFocus();
        goTo->selectAll();
        QTest::keyClicks(goTo, "7.074l");
        QTest::keyClick(goTo, Qt::Key_Return);
        EXPECT_TRUE(rigHas("frequency", "7074000"));
        EXPECT_TRUE(rigHas("mode", "LSB"));
        EXPECT_EQ(vfo->text(), "7.074.00");

        auto* grid = w.findChild<QListWidget*>("grdTuning");
        grid->setFocus();
        QTest::keyClick(grid, Qt::Key_Right);
        EXPECT_TRUE(rigHas("frequency", "7074020"));

        // F7: the large box shows and takes the focus.
        QTest::keyClick(&w, Qt::Key_F7);
        auto* large = w.findChild<QLineEdit*>("txtShowLargeGoTo");
        EXPECT_TRUE(large->isVisible());
        EXPECT_TRUE(large->hasFocus());
        app.closeForSignal();
    }
    rigsim.terminate();
    rigsim.waitForFinished(5000);
}

}  // namespace
