// The application shell in the real program: a new operator chooses rig and port in the
// settings dialog and the link to veldor-rigsim comes up; the menus' keys reach their items;
// the message log.
#include "e2e_support.h"

#include <QAccessible>
#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

using namespace veldor::test;

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

TEST(NewOperator, ChoosesRigAndPortInTheDialogAndTheLinkComesUp) {
    Station st("FT847", Port::Pty);
    // Nothing stored but the files folder, so that no folder chooser comes first.
    st.write("[Settings]\nHomeDir=" + st.path() + "\n");
    {
        veldor::Application app;
        ASSERT_TRUE(app.start(""));
        WhenShown([&](QWidget* d) {
            if (d->objectName() != "frmSettings") return false;
            for (auto [name, item] :
                 {std::pair{"cboRigType", "FT847"}, std::pair{"cboCommSpeed", "9600,N,8,2"}}) {
                auto* box = d->findChild<QComboBox*>(name);
                box->setCurrentIndex(box->findText(item));
                Q_EMIT box->activated(box->currentIndex());
            }
            auto* port = d->findChild<QComboBox*>("cboCommPort");
            port->lineEdit()->clear();
            QTest::keyClicks(port->lineEdit(), st.link);
            EXPECT_EQ(Unnamed(d).join(", ").toStdString(), "");
            Screenshot(d, "settings");
            QTest::mouseClick(d->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
            return true;
        });
        app.window().findChild<QAction*>("mnuSettings")->trigger();
        EXPECT_EQ(app.core().s.RigType, "FT847");
        EXPECT_EQ(app.core().s.CommPort, st.link);
        EXPECT_EQ(app.core().f.chkOnOff.toolTip, " FT847 ");

        Tick(app.window().findChild<QCheckBox*>("chkOnOff"));
        EXPECT_TRUE(st.rigHas("catOn", "1"));
        EXPECT_EQ(Unnamed(&app.window()).join(", ").toStdString(), "");
        app.closeForSignal();
    }
    // Kept for the next start.
    const QByteArray text = st.settings();
    EXPECT_TRUE(text.contains("RigType=FT847")) << text.toStdString();
    EXPECT_TRUE(text.contains("CommSpeed=9600,N,8,2"));
}

// Each item's key, as the operator's manual gives it, and no key at all on F10.
TEST(MenuKeys, ReachTheirItems) {
    Station st("FT817", Port::BuiltIn);
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    std::map<QString, QString> keys;
    for (QAction* a : app.window().menuBar()->findChildren<QAction*>())
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
    EXPECT_FALSE(keys.count("Shift+F10") || keys.count("Ctrl+F10"));

    app.closeForSignal();
}

// A message shows the log; the log goes to the real clipboard with its stamp last, and closed
// by hand, it opens again with the next line alone.
TEST(Messages, TheLogShowsGoesToTheClipboardAndOpensAgain) {
    Station st("FT817", Port::BuiltIn);
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    veldor::ReportMessage(app.core(), "COM Port 3: Permission denied");
    app.window().render();
    QWidget* log = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == "frmErrorList") log = w;
    ASSERT_TRUE(log && log->isVisible());
    QTest::mouseClick(log->findChild<QPushButton*>("cmdCopyToClipboard"), Qt::LeftButton);
    const QString copied = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(copied.startsWith("COM Port 3: Permission denied\r\n"));
    EXPECT_TRUE(copied.split("\r\n", Qt::SkipEmptyParts).last().startsWith("Copied to Clipboard "))
        << copied.toStdString();
    Screenshot(log, "messages");
    QTest::mouseClick(log->findChild<QPushButton*>("cmdClose"), Qt::LeftButton);
    EXPECT_FALSE(log->isVisible());
    veldor::ReportMessage(app.core(), "next");
    app.window().render();
    EXPECT_TRUE(log->isVisible());
    EXPECT_EQ(log->findChild<QPlainTextEdit*>("txtErrors")->toPlainText(), "next\n");
    app.closeForSignal();
}

}  // namespace
