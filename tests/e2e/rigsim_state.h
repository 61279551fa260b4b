// The simulated rig's own account of itself, as veldor-rigsim writes it to its state file.
#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QString>
#include <QTest>

namespace veldor::test {

inline QString RigsimState(const QString& stateFile, const QString& key) {
    QFile f(stateFile);
    if (!f.open(QIODevice::ReadOnly)) return {};
    for (const QByteArray& line : f.readAll().split('\n'))
        if (line.startsWith(key.toUtf8() + "=")) return QString::fromUtf8(line.mid(key.size() + 1));
    return {};
}

// Waits up to five seconds, the event loop running, for the rig to report the value.
inline bool WaitForRigsim(const QString& stateFile, const QString& key, const QString& value) {
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < 5000) {
        if (RigsimState(stateFile, key) == value) return true;
        QTest::qWait(20);
    }
    return false;
}

}  // namespace veldor::test
