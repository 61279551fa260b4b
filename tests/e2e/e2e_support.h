// What the end-to-end tests share: waiting with the event loop running, and the settings file
// a test starts the program with.
#pragma once

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <functional>

namespace veldor::test {

// Waits up to ms, the event loop running, for done; its last answer.
inline bool Eventually(const std::function<bool()>& done, int ms = 8000) {
    QElapsedTimer t;
    t.start();
    while (!done() && t.elapsed() < ms) QTest::qWait(20);
    return done();
}

// Writes the program's settings file in the configuration folder given ($XDG_CONFIG_HOME).
inline bool WriteSettings(const QString& folder, const QByteArray& text) {
    QDir().mkpath(folder + "/VELDOR");
    QFile ini(folder + "/VELDOR/VELDOR.ini");
    return ini.open(QIODevice::WriteOnly) && ini.write(text) == text.size();
}

// The settings file as the program left it.
inline QByteArray SettingsText(const QString& folder) {
    QFile ini(folder + "/VELDOR/VELDOR.ini");
    return ini.open(QIODevice::ReadOnly) ? ini.readAll() : QByteArray();
}

}  // namespace veldor::test
