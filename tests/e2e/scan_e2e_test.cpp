// The operator scans a range in the real window over a pseudo-terminal to veldor-rigsim's
// FT-817: Ctrl+S starts it, and it stops on the carrier of the simulated band at 14.074 MHz.
#include "e2e_support.h"
#include "rigsim_state.h"
#include "ui/application.h"
#include "ui/main_window.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

TEST(ScanOverPty, ARangeScanStopsOnACarrier) {
    QTemporaryDir dir;
    qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
    const QString link = dir.path() + "/ttyFT817", stateFile = dir.path() + "/rig.state";
    QProcess rigsim;
    rigsim.start(VELDOR_RIGSIM, {"--rig", "FT817", "--link", link, "--state-file", stateFile});
    ASSERT_TRUE(rigsim.waitForReadyRead(5000));
    ASSERT_TRUE(veldor::test::WriteSettings(
        dir.path(), ("[Settings]\nRigType=FT817\nCommport=" + link + "\nHomeDir=" + dir.path() +
                     "\nHangDelay=20\n[Scanner]\nScan0Desc0=FT8\nScan0Start0=14.060\n"
                     "Scan0Stop0=14.090\nScan0Step0=5.0\nScan0Mode0=USB\n")
                        .toUtf8()));
    {
        veldor::Application app;
        ASSERT_TRUE(app.start(""));
        QWidget& w = app.window();
        auto* onOff = w.findChild<QCheckBox*>("chkOnOff");
        QTest::mouseClick(onOff, Qt::LeftButton, {}, QPoint(8, onOff->height() / 2));
        auto* vfo = w.findChild<QLineEdit*>("txtVfoA");
        for (int i = 0; i < 250 && vfo->text() != "14.250.00"; ++i) QTest::qWait(20);
        ASSERT_EQ(vfo->text(), "14.250.00");

        QTest::keyClick(&w, Qt::Key_S, Qt::ControlModifier);
        auto* scan = w.findChild<QPushButton*>("cmdStartStopScan");
        EXPECT_TRUE(veldor::test::WaitForRigsim(stateFile, "frequency", "14075000"));
        for (int i = 0; i < 100 && scan->text() != "Resume"; ++i) QTest::qWait(20);
        EXPECT_EQ(scan->text(), "Resume");
        EXPECT_EQ(vfo->text(), "14.075.00");
        // Held for good: the hang delay is Permanent.
        QTest::qWait(500);
        EXPECT_EQ(veldor::test::RigsimState(stateFile, "frequency"), "14075000");

        // Resume, then Stop at once from the menu.
        QTest::mouseClick(scan, Qt::LeftButton);
        QTest::keyClick(&w, Qt::Key_T, Qt::ControlModifier);
        EXPECT_EQ(scan->text(), "Start");
        app.closeForSignal();
    }
    rigsim.terminate();
    rigsim.waitForFinished(5000);
}

}  // namespace
