// The application shell in the real program: a new operator chooses rig and port in the
// settings dialog and the link to veldor-rigsim comes up; the menus' keys reach their items.
#include "e2e_support.h"
#include "rigsim_state.h"
#include "ui/application.h"
#include "ui/main_window.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

// Runs fn on the window named as soon as it shows.
void WhenShown(const QString& name, std::function<void(QWidget*)> fn) {
    auto poll = std::make_shared<std::function<void()>>();
    *poll = [name, fn, poll] {
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (w->objectName() == name && w->isVisible()) {
                fn(w);
                return;
            }
        }
        QTimer::singleShot(20, *poll);
    };
    QTimer::singleShot(20, *poll);
}

// The focusable controls on show in a window that a screen reader could not name.
QStringList Unnamed(QWidget* window) {
    QStringList unnamed;
    for (QWidget* w : window->findChildren<QWidget*>()) {
        if (!w->isVisible() || !(w->focusPolicy() & Qt::TabFocus)) continue;
        // The line edit inside a list box is named through its box.
        if (qobject_cast<QComboBox*>(w->parentWidget())) continue;
        QAccessibleInterface* a = QAccessible::queryAccessibleInterface(w);
        if (!a || a->text(QAccessible::Name).trimmed().isEmpty())
            unnamed << w->objectName() + " (" + w->metaObject()->className() + ")";
    }
    return unnamed;
}

void ChooseItem(QComboBox* box, const QString& text) {
    const int i = box->findText(text);
    ASSERT_GE(i, 0) << text.toStdString();
    box->setCurrentIndex(i);
    Q_EMIT box->activated(i);
}

TEST(NewOperator, ChoosesRigAndPortInTheDialogAndTheLinkComesUp) {
    QTemporaryDir dir;
    qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
    const QString link = dir.path() + "/ttyFT847", state = dir.path() + "/rig.state";
    QProcess rigsim;
    rigsim.start(VELDOR_RIGSIM, {"--rig", "FT847", "--link", link, "--state-file", state});
    ASSERT_TRUE(rigsim.waitForReadyRead(5000));
    // Nothing stored but the files folder, so that no folder chooser comes first.
    ASSERT_TRUE(veldor::test::WriteSettings(dir.path(),
                                            ("[Settings]\nHomeDir=" + dir.path() + "\n").toUtf8()));
    {
        veldor::Application app;
        ASSERT_TRUE(app.start(""));
        bool operated = false;
        WhenShown("frmSettings", [&](QWidget* d) {
            ChooseItem(d->findChild<QComboBox*>("cboRigType"), "FT847");
            ChooseItem(d->findChild<QComboBox*>("cboCommSpeed"), "9600,N,8,2");
            auto* port = d->findChild<QComboBox*>("cboCommPort");
            port->lineEdit()->clear();
            QTest::keyClicks(port->lineEdit(), link);
            EXPECT_EQ(Unnamed(d).join(", ").toStdString(), "");
            const QString shots = qEnvironmentVariable("VELDOR_SCREENSHOTS");
            if (!shots.isEmpty()) d->grab().save(shots + "/settings.png");
            QTest::mouseClick(d->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
            operated = true;
        });
        app.window().findChild<QAction*>("mnuSettings")->trigger();
        EXPECT_TRUE(operated);
        EXPECT_EQ(app.core().s.RigType, "FT847");
        EXPECT_EQ(app.core().s.CommPort, link);
        EXPECT_EQ(app.core().f.chkOnOff.toolTip, " FT847 ");

        auto* onOff = app.window().findChild<QCheckBox*>("chkOnOff");
        QTest::mouseClick(onOff, Qt::LeftButton, {}, QPoint(8, onOff->height() / 2));
        EXPECT_TRUE(veldor::test::WaitForRigsim(state, "catOn", "1"));
        EXPECT_EQ(Unnamed(&app.window()).join(", ").toStdString(), "");
        app.closeForSignal();
    }
    // Kept for the next start.
    const QByteArray text = veldor::test::SettingsText(dir.path());
    EXPECT_TRUE(text.contains("RigType=FT847")) << text.toStdString();
    EXPECT_TRUE(text.contains("CommSpeed=9600,N,8,2"));
    rigsim.terminate();
    rigsim.waitForFinished(5000);
}

// Each item's key, as the operator's manual gives it; no key at all on F10.
TEST(MenuKeys, ReachTheirItems) {
    QTemporaryDir dir;
    qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
    ASSERT_TRUE(veldor::test::WriteSettings(
        dir.path(),
        ("[Settings]\nRigType=FT817\nCommport=SIM\nHomeDir=" + dir.path() + "\n").toUtf8()));
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    QMainWindow& window = static_cast<QMainWindow&>(app.window());
    std::map<QString, QString> keys;
    for (QAction* a : window.menuBar()->findChildren<QAction*>())
        if (!a->shortcut().isEmpty()) keys[a->shortcut().toString()] = a->objectName();
    const std::map<QString, QString> expected = {
        {"F1", "mnuHelp"},          {"F2", "mnuSpectrumOnly"},  {"F3", "mnuPollingUpdateNow"},
        {"F4", "mnuAddToGrid"},     {"F5", "mnuXvtr"},          {"F6", "mnuMemoryTag"},
        {"F7", "mnuShowLargeGoTo"}, {"Ctrl+S", "mnuStart"},     {"Ctrl+T", "mnuStop"},
        {"Ctrl+H", "mnuHold"},      {"Ctrl+R", "mnuResume"},    {"Shift+F1", "mnuSetM1"},
        {"Shift+F9", "mnuSetM9"},   {"Shift+F11", "mnuSetM11"}, {"Shift+F12", "mnuSetM12"},
        {"Ctrl+F1", "mnuGoToM1"},   {"Ctrl+F12", "mnuGoToM12"}};
    for (const auto& [key, name] : expected) EXPECT_EQ(keys[key], name) << key.toStdString();
    EXPECT_EQ(keys.size(), 33u);  // the rest are Set and GoTo M2 to M8
    EXPECT_FALSE(keys.count("Shift+F10"));
    EXPECT_FALSE(keys.count("Ctrl+F10"));

    // A key pressed in the window runs its item's handler.
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const bool large = app.core().f.mnuShowLargeGoTo.checked;
    QTest::keyClick(&window, Qt::Key_F7);
    EXPECT_NE(app.core().f.mnuShowLargeGoTo.checked, large);
    QTest::keyClick(&window, Qt::Key_F7);
    EXPECT_EQ(app.core().f.mnuShowLargeGoTo.checked, large);
    app.closeForSignal();
}

// The about box from the Help menu, and the log on the real clipboard.
TEST(HelpAndMessages, AboutTellsTheVersionAndTheLogGoesToTheClipboard) {
    QTemporaryDir dir;
    qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
    ASSERT_TRUE(veldor::test::WriteSettings(
        dir.path(),
        ("[Settings]\nRigType=FT817\nCommport=SIM\nHomeDir=" + dir.path() + "\n").toUtf8()));
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    const QString shots = qEnvironmentVariable("VELDOR_SCREENSHOTS");
    QString version;
    WhenShown("frmAbout", [&](QWidget* d) {
        version = d->findChild<QLabel*>("lblVersion")->text();
        EXPECT_EQ(d->windowTitle(), "About VELDOR");
        if (!shots.isEmpty()) d->grab().save(shots + "/about.png");
        QTest::mouseClick(d->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    app.window().findChild<QAction*>("mnuAbout")->trigger();
    EXPECT_TRUE(version.startsWith("Version ")) << version.toStdString();

    veldor::ReportMessage(app.core(), "COM Port 3: Permission denied");
    app.window().render();
    QWidget* log = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == "frmErrorList") log = w;
    ASSERT_NE(log, nullptr);
    EXPECT_TRUE(log->isVisible());
    EXPECT_EQ(Unnamed(log).join(", ").toStdString(), "");
    QTest::mouseClick(log->findChild<QPushButton*>("cmdCopyToClipboard"), Qt::LeftButton);
    const QString copied = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(copied.startsWith("COM Port 3: Permission denied\r\n"));
    const QStringList lines = copied.split("\r\n", Qt::SkipEmptyParts);
    EXPECT_TRUE(lines.last().startsWith("Copied to Clipboard ")) << copied.toStdString();
    EXPECT_TRUE(lines.last().endsWith("VELDOR  " + version.mid(8).prepend("V")));
    if (!shots.isEmpty()) log->grab().save(shots + "/messages.png");
    // Closed by hand, it opens again with the next line alone.
    QTest::mouseClick(log->findChild<QPushButton*>("cmdClose"), Qt::LeftButton);
    EXPECT_FALSE(log->isVisible());
    veldor::ReportMessage(app.core(), "next");
    app.window().render();
    EXPECT_TRUE(log->isVisible());
    EXPECT_EQ(log->findChild<QPlainTextEdit*>("txtErrors")->toPlainText(), "next\n");
    app.closeForSignal();
}

}  // namespace
