// What the end-to-end tests share: a station to start the real program in (a folder with its
// settings file, and veldor-rigsim on a pseudo-terminal where a test asks for it), the
// operator's hand on dialogs that run their own event loop, and waiting with the loop running.
#pragma once

#include "ui/application.h"
#include "ui/main_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace veldor::test {

// Waits up to ms, the event loop running, for done; its last answer.
inline bool Eventually(const std::function<bool()>& done, int ms = 8000) {
    QElapsedTimer t;
    t.start();
    while (!done() && t.elapsed() < ms) QTest::qWait(20);
    return done();
}

// The main window's frequency shows text within five seconds.
inline bool Showing(Application& app, const QString& text) {
    auto* vfo = app.window().findChild<QLineEdit*>("txtVfoA");
    return Eventually([&] { return vfo->text() == text; }, 5000);
}

// A click on a check box or option, at its left where the mark is drawn.
inline void Tick(QAbstractButton* box) {
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
}

// With VELDOR_SCREENSHOTS set to a folder, the window is saved there as a picture.
inline void Screenshot(QWidget* w, const QString& name) {
    const QString shots = qEnvironmentVariable("VELDOR_SCREENSHOTS");
    if (!shots.isEmpty()) w->grab().save(shots + "/" + name + ".png");
}

// Runs act on each visible top-level window until it answers true, as soon as one shows: the
// answer to a modal dialog. It gives up after ten seconds, so that it never acts in a later test.
inline void WhenShown(const std::function<bool(QWidget*)>& act, int triesLeft = 500) {
    QTimer::singleShot(20, [act, triesLeft] {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->isVisible() && act(w)) return;
        if (triesLeft > 0) WhenShown(act, triesLeft - 1);
    });
}

// A file name typed into the next file dialog, as the operator does.
inline void TypeFile(const QString& path) {
    WhenShown([path](QWidget* w) {
        auto* name =
            qobject_cast<QFileDialog*>(w) ? w->findChild<QLineEdit*>("fileNameEdit") : nullptr;
        if (!name) return false;
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
        return true;
    });
}

// The next message box with that button: its text kept in texts, and the button pressed.
inline void Answer(QStringList* texts, QMessageBox::StandardButton button) {
    WhenShown([texts, button](QWidget* w) {
        auto* box = qobject_cast<QMessageBox*>(w);
        if (!box || !box->button(button)) return false;
        *texts << box->text();
        box->button(button)->click();
        return true;
    });
}

enum class Port { BuiltIn, Pty };

// A folder of its own with the program's settings file for the rig named, on the built-in
// simulated port or on a pseudo-terminal to veldor-rigsim playing that rig; more is added to
// the settings. The rig simulator ends with the station.
struct Station {
    Station(const QString& rig, Port port, const QString& more = {}) {
        qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
        link = port == Port::Pty ? dir.path() + "/tty" + rig : QString("SIM");
        state = dir.path() + "/rig.state";
        if (port == Port::Pty) {
            rigsim.start(VELDOR_RIGSIM, {"--rig", rig, "--link", link, "--state-file", state,
                                         "--control", dir.path() + "/control"});
            EXPECT_TRUE(rigsim.waitForReadyRead(5000));
        }
        write("[Settings]\nRigType=" + rig + "\nCommport=" + link + "\nHomeDir=" + dir.path() +
              "\n" + more);
    }
    ~Station() {
        rigsim.terminate();
        rigsim.waitForFinished(5000);
    }

    QString path() const { return dir.path(); }
    void write(const QString& settings) const {
        QDir().mkpath(path() + "/VELDOR");
        QFile ini(path() + "/VELDOR/VELDOR.ini");
        EXPECT_TRUE(ini.open(QIODevice::WriteOnly) && ini.write(settings.toUtf8()) > 0);
    }
    // The settings file as the program left it.
    QByteArray settings() const {
        QFile ini(path() + "/VELDOR/VELDOR.ini");
        return ini.open(QIODevice::ReadOnly) ? ini.readAll() : QByteArray();
    }

    // The simulated rig's own account of itself, from its state file.
    QString rig(const QString& key) const {
        QFile f(state);
        const QByteArray text = "\n" + (f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray());
        const qsizetype at = text.indexOf("\n" + key.toUtf8() + "=");
        return at < 0 ? QString() : QString::fromUtf8(text.mid(at + key.size() + 2).split('\n')[0]);
    }
    bool rigHas(const QString& key, const QString& value) const {
        return Eventually([&] { return rig(key) == value; }, 5000);
    }
    // A line to the rig's control pipe, as if the operator turned its knob.
    void tell(const QByteArray& line) const {
        QFile pipe(path() + "/control");
        EXPECT_TRUE(pipe.open(QIODevice::WriteOnly) && pipe.write(line + "\n") > 0);
    }

    QTemporaryDir dir;
    QString link, state;
    QProcess rigsim;
};

}  // namespace veldor::test
