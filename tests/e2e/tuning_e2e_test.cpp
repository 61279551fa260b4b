// The operator tunes and scans in the real window over a pseudo-terminal to veldor-rigsim's
// FT-817, switched on by a click.
#include "e2e_support.h"

#include <QCheckBox>
#include <QListWidget>
#include <QPushButton>
#include <QWheelEvent>

namespace {

using namespace veldor::test;

// The mouse wheel over the frequency, a typed GoTo with a mode letter, the arrow keys on the
// step grid, and the large GoTo box (F7).
TEST(TuningOverPty, TheWheelArrowsAndATypedGoToTuneTheRig) {
    Station st("FT817", Port::Pty);
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    QWidget& w = app.window();
    Tick(w.findChild<QCheckBox*>("chkOnOff"));
    ASSERT_TRUE(Showing(app, "14.250.00"));

    // Three notches away from the operator, 20 Hz each: one write of the sum.
    auto* vfo = w.findChild<QLineEdit*>("txtVfoA");
    const QPointF at(vfo->width() / 2.0, vfo->height() / 2.0);
    for (int i = 0; i < 3; ++i) {
        QWheelEvent wheel(at, vfo->mapToGlobal(at), QPoint(), QPoint(0, 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(vfo, &wheel);
    }
    EXPECT_TRUE(st.rigHas("frequency", "14250060"));

    auto* goTo = w.findChild<QLineEdit*>("txtGoToFreq");
    goTo->setFocus();
    goTo->selectAll();
    QTest::keyClicks(goTo, "7.074l");
    QTest::keyClick(goTo, Qt::Key_Return);
    EXPECT_TRUE(st.rigHas("frequency", "7074000"));
    EXPECT_TRUE(st.rigHas("mode", "LSB"));
    EXPECT_EQ(vfo->text(), "7.074.00");

    auto* grid = w.findChild<QListWidget*>("grdTuning");
    grid->setFocus();
    QTest::keyClick(grid, Qt::Key_Right);
    EXPECT_TRUE(st.rigHas("frequency", "7074020"));

    QTest::keyClick(&w, Qt::Key_F7);
    auto* large = w.findChild<QLineEdit*>("txtShowLargeGoTo");
    EXPECT_TRUE(large->isVisible());
    EXPECT_TRUE(large->hasFocus());
    app.closeForSignal();
}

// Ctrl+S scans a range; it stops on the carrier of the simulated band at 14.074 MHz and holds
// there for good, the hang delay being Permanent. Resume, then Ctrl+T stops it.
TEST(ScanOverPty, ARangeScanStopsOnACarrier) {
    Station st("FT817", Port::Pty,
               "HangDelay=20\n[Scanner]\nScan0Desc0=FT8\nScan0Start0=14.060\n"
               "Scan0Stop0=14.090\nScan0Step0=5.0\nScan0Mode0=USB\n");
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    QWidget& w = app.window();
    Tick(w.findChild<QCheckBox*>("chkOnOff"));
    ASSERT_TRUE(Showing(app, "14.250.00"));

    QTest::keyClick(&w, Qt::Key_S, Qt::ControlModifier);
    auto* scan = w.findChild<QPushButton*>("cmdStartStopScan");
    EXPECT_TRUE(st.rigHas("frequency", "14075000"));
    EXPECT_TRUE(Eventually([&] { return scan->text() == "Resume"; }, 2000));
    EXPECT_TRUE(Showing(app, "14.075.00"));
    QTest::qWait(500);
    EXPECT_EQ(st.rig("frequency"), "14075000");

    QTest::mouseClick(scan, Qt::LeftButton);
    QTest::keyClick(&w, Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(scan->text(), "Start");
    app.closeForSignal();
}

}  // namespace
