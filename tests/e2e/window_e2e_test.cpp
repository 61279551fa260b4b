// The real main window, with the real serial port, over a pseudo-terminal to veldor-rigsim's
// FT-847, and fitted to each rig on the built-in simulated port.
#include "e2e_support.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>

namespace {

using namespace veldor::test;

// On and off by the switch; between, the window follows the rig, records it for other programs,
// and the ClickSet keys store the rig's frequency (Shift+F2) and take the rig back (Ctrl+F2).
TEST(WindowOverPty, FollowsTheFt847BetweenOnAndOffAndItsKeysStoreAndRecall) {
    Station st("FT847", Port::Pty);
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    QWidget& w = app.window();
    w.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&w));
    auto* onOff = w.findChild<QCheckBox*>("chkOnOff");
    EXPECT_EQ(st.rig("catOn"), "0");
    Tick(onOff);
    EXPECT_TRUE(st.rigHas("catOn", "1"));
    EXPECT_TRUE(onOff->styleSheet().contains("rgb(255,0,0)"));

    st.tell("freq 145500000");
    st.tell("mode FM");
    ASSERT_TRUE(Showing(app, "145.500.00"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F2, Qt::ShiftModifier);
    EXPECT_EQ(w.findChild<QPushButton*>("lblStore_1")->text(), "145.50000\nFM");
    EXPECT_EQ(w.findChild<QPushButton*>("lblStore_0")->text(), "Empty");

    st.tell("freq 7074000");
    st.tell("mode LSB");
    ASSERT_TRUE(Showing(app, "7.074.00"));
    EXPECT_EQ(w.findChild<QLineEdit*>("txtMode")->text(), "LSB");
    QTest::qWait(300);  // a tick or two more, for the record
    const QByteArray text = st.settings();
    EXPECT_TRUE(text.contains("Frequency=7.074.00")) << text.toStdString();
    EXPECT_TRUE(text.contains("Mode=LSB"));
    EXPECT_TRUE(text.contains("Status=Active"));

    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F2, Qt::ControlModifier);
    EXPECT_TRUE(st.rigHas("frequency", "145500000"));
    EXPECT_EQ(st.rig("mode"), "FM");
    EXPECT_TRUE(Showing(app, "145.500.00"));
    EXPECT_TRUE(st.settings().contains("Bank1M2Freq=145.50000"));

    Tick(onOff);
    EXPECT_TRUE(st.rigHas("catOn", "0"));
}

// A mode button, the shift buttons, the tone list (whose choice outlives the readings), and
// TX/RX by click and by F9 once transmitting is enabled: F9 goes on working as the caption
// changes with each press.
TEST(WindowOverPty, ItsButtonsListAndF9WorkTheRig) {
    Station st("FT847", Port::Pty, "AutoStart=Yes\n");
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    QWidget& w = app.window();
    w.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&w));
    ASSERT_TRUE(st.rigHas("catOn", "1"));
    QTest::mouseClick(w.findChild<QPushButton*>("Command2_0"), Qt::LeftButton);  // LSB
    EXPECT_TRUE(st.rigHas("mode", "LSB"));
    for (auto [name, shift] : {std::pair{"cmdShiftMinus", "-"}, std::pair{"cmdShiftPlus", "+"},
                               std::pair{"cmdShiftSimplex", "0"}}) {
        auto* button = w.findChild<QPushButton*>(name);
        ASSERT_TRUE(button->isVisible()) << name;
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_TRUE(st.rigHas("shift", shift)) << name;
    }

    auto* tones = w.findChild<QComboBox*>("cboCTCSS");
    EXPECT_EQ(tones->currentIndex(), -1);
    tones->setFocus();
    for (int i = 0; i < 3; ++i) QTest::keyClick(tones, Qt::Key_Down);
    QTest::qWait(300);  // readings come and go, each showing the form again
    EXPECT_EQ(tones->currentIndex(), 2);
    EXPECT_EQ(tones->currentText(), app.core().f.cboCTCSS.list[2]);

    auto* txRx = w.findChild<QPushButton*>("cmdTxRx");
    QTest::keyClick(&w, Qt::Key_F9);  // not yet enabled: the rig stays on receive
    QTest::qWait(300);
    EXPECT_EQ(st.rig("ptt"), "0");
    Tick(w.findChild<QCheckBox*>("chkTransmitEnable"));
    const std::tuple<bool, const char*, const char*> presses[] = {
        {false, "1", "TX/rx"}, {false, "0", "tx/RX"}, {true, "1", "TX/rx"},
        {true, "0", "tx/RX"},  {true, "1", "TX/rx"},  {false, "0", "tx/RX"}};
    for (const auto& [f9, ptt, caption] : presses) {
        if (f9)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_F9);
        else
            QTest::mouseClick(txRx, Qt::LeftButton);
        EXPECT_TRUE(st.rigHas("ptt", ptt)) << caption;
        EXPECT_EQ(txRx->text(), caption);
        EXPECT_EQ(txRx->isChecked(), QString(ptt) == "1");
    }
}

// The window fitted to each rig: its frame, its mode buttons, the tooltip set at start-up after
// the window was built, the FT-920's meters button, and the whole window on the small screen.
TEST(WindowPerRig, ShowsTheFrameAndModeButtonsOfTheRig) {
    const struct {
        const char *rig, *frame;
        int lastModeButton;
        const char* lastCaption;
    } rows[] = {{"FT817", "frmFT817", 7, "PKT"},     {"FT857", "frmFT857", 8, "FMN"},
                {"FT450", "frmFT450", 10, "USRU"},   {"FT1000MP", "frmFT1000MP", 11, "AM(S)"},
                {"FT920", "frmFT920", 10, "RTY(L)"}, {"VR5000", "frmVR5000FMN", 10, "FM-N"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.rig);
        Station st(row.rig, Port::BuiltIn, "AutoStart=Yes\n");
        veldor::Application app;
        ASSERT_TRUE(app.start(""));
        QWidget& w = app.window();
        w.show();
        QTest::qWait(300);
        for (QGroupBox* box : w.findChildren<QGroupBox*>()) {
            const QString name = box->objectName();
            // The scan's and the sweep's frames stand on every rig.
            if (!name.startsWith("frm") || name == "frmStop" || name == "frmSpectrum") continue;
            EXPECT_EQ(box->isVisible(), name == row.frame) << name.toStdString();
        }
        const auto mode = [&](int i) {
            return w.findChild<QPushButton*>(QString("Command2_%1").arg(i));
        };
        EXPECT_TRUE(mode(row.lastModeButton)->isVisible());
        EXPECT_EQ(mode(row.lastModeButton)->text(), row.lastCaption);
        EXPECT_FALSE(row.lastModeButton < 11 && mode(row.lastModeButton + 1)->isVisible());
        // The receiver has no buttons 4 to 6: USB closes up beside WFM on the first row.
        EXPECT_TRUE(QString(row.rig) != "VR5000" || mode(7)->y() == mode(3)->y());
        EXPECT_EQ(w.findChild<QCheckBox*>("chkOnOff")->toolTip(), QString(" %1 ").arg(row.rig));
        EXPECT_EQ(w.findChild<QPushButton*>("cmdMeters")->isVisible(), QString(row.rig) == "FT920");
        const QSize screen = w.screen()->availableGeometry().size();
        EXPECT_LE(w.width(), screen.width());
        EXPECT_LE(w.height(), screen.height());
        Screenshot(&w, "window-" + QString(row.rig).toLower());
        app.closeForSignal();
    }
}

// "Spectrum display only" (F2) leaves the spectrum's frame alone in a window shrunk around it,
// whole; a second F2 brings every group back in the window's former size. A render while
// compact (the link's tick) does not bring a group back.
TEST(WindowSpectrumOnly, ShrinksTheWindowToTheSpectrumAndGrowsItBack) {
    Station st("FT817", Port::BuiltIn, "AutoStart=Yes\n");
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    veldor::MainWindow& w = app.window();
    w.show();
    QTest::qWait(300);
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
    Screenshot(&w, "window-spectrum-only");
    EXPECT_EQ(shown(), QStringList{"frmSpectrum"});
    EXPECT_LT(w.height(), full.height() / 2);
    EXPECT_LT(w.width(), full.width());
    EXPECT_TRUE(w.rect().contains(QRect(spectrum->mapTo(&w, QPoint()), spectrum->size())));
    for (QScrollBar* bar : w.findChildren<QScrollBar*>())
        EXPECT_FALSE(bar->isVisible() && bar->window() == &w) << bar->objectName().toStdString();

    QTest::keyClick(&w, Qt::Key_F2);
    QTest::qWait(100);
    EXPECT_EQ(shown(), groups);
    EXPECT_EQ(w.size(), full);
    app.closeForSignal();
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
