// A PulseAudio server of the test's own, in a folder of its own, whose default input is a sine
// source: a real sound card input that any machine with the pulseaudio program can have.
#pragma once

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>

namespace veldor::test {

class TestPulseServer {
  public:
    // Starts the server and points this process's sound clients at it; false with the reason
    // when no server can run here. Call it before anything asks for the sound devices.
    bool start(QString* reason) {
        const QString program = QStandardPaths::findExecutable("pulseaudio");
        if (program.isEmpty()) return fail(reason, "the pulseaudio program is not installed");
        const QString socket = dir_.path() + "/native";
        QFile script(dir_.path() + "/default.pa");
        if (!script.open(QIODevice::WriteOnly)) return fail(reason, "no folder for the server");
        script.write(("load-module module-native-protocol-unix auth-anonymous=1 socket=" + socket +
                      "\nload-module module-sine-source source_name=veldor_sine rate=44100 "
                      "frequency=440\nload-module module-null-sink sink_name=veldor_null\n"
                      "set-default-source veldor_sine\n")
                         .toUtf8());
        script.close();
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        for (const char* key : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME"})
            env.insert(key, dir_.path());
        env.insert("PULSE_RUNTIME_PATH", dir_.path() + "/runtime");
        server_.setProcessEnvironment(env);
        server_.setProcessChannelMode(QProcess::MergedChannels);
        server_.start(program, {"-n", "-F", script.fileName(), "--daemonize=no",
                                "--exit-idle-time=-1", "--use-pid-file=no"});
        for (int i = 0; i < 100 && !QFile::exists(socket); ++i) {
            if (server_.state() == QProcess::NotRunning)
                return fail(reason, "pulseaudio did not start: " +
                                        QString::fromLocal8Bit(server_.readAll()).trimmed());
            QThread::msleep(50);
        }
        if (!QFile::exists(socket)) return fail(reason, "pulseaudio made no socket");
        qputenv("PULSE_SERVER", ("unix:" + socket).toUtf8());
        return true;
    }

    ~TestPulseServer() {
        if (server_.state() == QProcess::NotRunning) return;
        server_.terminate();
        if (!server_.waitForFinished(3000)) server_.kill();
        server_.waitForFinished(1000);
    }

  private:
    static bool fail(QString* reason, const QString& text) {
        if (reason) *reason = text;
        return false;
    }
    QTemporaryDir dir_;
    QProcess server_;
};

}  // namespace veldor::test
