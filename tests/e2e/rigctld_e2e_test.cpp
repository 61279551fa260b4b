// Rig sharing end to end: Hamlib's own client (rigctl, model 2 "NET rigctl") talks to the
// real program, which talks to veldor-rigsim over a pseudo-terminal; the simulator's state
// file tells what reached the rig.
#include "e2e_support.h"
#include "link/catalogue.h"
#include "rigsim_state.h"
#include "sharing/rig_sharing.h"
#include "ui/application.h"
#include "ui/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QNetworkInterface>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>

namespace {

class SharedRig : public ::testing::Test {
  protected:
    void TearDown() override {
        app.reset();
        rigsim.terminate();
        rigsim.waitForFinished(5000);
    }

    // veldor-rigsim as the rig, and VELDOR on it with sharing on a free port of the loopback.
    void start(const QString& rig) {
        rigctl = QStandardPaths::findExecutable("rigctl");
        if (rigctl.isEmpty()) GTEST_SKIP() << "rigctl not installed";
        ASSERT_TRUE(dir.isValid());
        qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
        const QString link = dir.path() + "/tty" + rig;
        stateFile = dir.path() + "/rig.state";
        rigsim.start(QStringLiteral(VELDOR_RIGSIM),
                     {"--rig", rig, "--link", link, "--state-file", stateFile});
        ASSERT_TRUE(rigsim.waitForReadyRead(5000));
        quint16 port = 0;
        {
            QTcpServer probe;  // a port that is free now: tests run side by side
            ASSERT_TRUE(probe.listen(QHostAddress::LocalHost));
            port = probe.serverPort();
        }
        ASSERT_TRUE(veldor::test::WriteSettings(
            dir.path(), ("[Settings]\nRigType=" + rig + "\nAutoStart=Yes\nCommport=" + link +
                         "\nHomeDir=" + dir.path() +
                         "\nRigctldEnabled=Y\nRigctldPort=" + QString::number(port) + "\n")
                            .toUtf8()));
        app = std::make_unique<veldor::Application>();
        ASSERT_TRUE(app->start(""));
        ASSERT_TRUE(app->rigctld().listening());
        ASSERT_TRUE(waitForRig("catOn", "1") || rig != "FT847");
    }

    QString server() const { return "127.0.0.1:" + QString::number(app->rigctld().port()); }

    // rigctl with the commands given; the event loop runs meanwhile, as the server needs.
    QString run(const QStringList& commands, QString* errors = nullptr) {
        QProcess client;
        client.start(rigctl, QStringList{"-m", "2", "-r", server()} + commands);
        QElapsedTimer t;
        t.start();
        while (client.state() != QProcess::NotRunning && t.elapsed() < 20000) QTest::qWait(10);
        const QString out = QString::fromUtf8(client.readAllStandardOutput());
        // rigctl tells a refusal on either stream, by Hamlib's words for the code.
        if (errors) *errors = QString::fromUtf8(client.readAllStandardError()) + out;
        lastExit = client.exitCode();
        return out.trimmed();
    }

    QString rigState(const QString& key) { return veldor::test::RigsimState(stateFile, key); }
    bool waitForRig(const QString& key, const QString& value) {
        return veldor::test::WaitForRigsim(stateFile, key, value);
    }

    bool waitForDisplay(const QString& text) {
        auto* vfo = app->window().findChild<QLineEdit*>("txtVfoA");
        QElapsedTimer t;
        t.start();
        while (t.elapsed() < 5000 && vfo->text() != text) QTest::qWait(20);
        return vfo->text() == text;
    }

    // A raw client: what it sends, and what comes back within the time given.
    static QByteArray ask(QTcpSocket& socket, const QByteArray& bytes, int lines) {
        socket.write(bytes);
        QByteArray got;
        QElapsedTimer t;
        t.start();
        while (got.count('\n') < lines && t.elapsed() < 5000) {
            QTest::qWait(10);
            got += socket.readAll();
        }
        return got;
    }

    QTemporaryDir dir;
    QString rigctl, stateFile;
    QProcess rigsim;
    std::unique_ptr<veldor::Application> app;
    int lastExit = -1;
};

TEST_F(SharedRig, RigctlReadsTheRigAndSetsFrequencyModeAndPtt) {
    start("FT857");
    ASSERT_TRUE(waitForDisplay("14.250.00"));
    EXPECT_EQ(run({"f", "m"}), "14250000\nUSB\n2400");

    EXPECT_EQ(run({"F", "7074000"}), "");
    EXPECT_EQ(lastExit, 0);
    EXPECT_EQ(rigState("frequency"), "7074000");
    EXPECT_EQ(run({"M", "LSB", "0", "f", "m"}), "7074000\nLSB\n2400");
    EXPECT_EQ(rigState("mode"), "LSB");

    // Keying needs "Transmit enable", as the TX/RX button does.
    QString errors;
    run({"T", "1"}, &errors);
    EXPECT_TRUE(errors.contains("Command rejected")) << errors.toStdString();
    EXPECT_EQ(rigState("ptt"), "0");
    auto* enable = app->window().findChild<QCheckBox*>("chkTransmitEnable");
    ASSERT_NE(enable, nullptr);
    QTest::mouseClick(enable, Qt::LeftButton, {}, QPoint(8, enable->height() / 2));
    ASSERT_EQ(app->core().f.chkTransmitEnable.value, 1);
    EXPECT_EQ(run({"T", "1", "t"}), "1");
    EXPECT_EQ(rigState("ptt"), "1");
    EXPECT_EQ(run({"T", "0", "t"}), "0");
    EXPECT_EQ(rigState("ptt"), "0");

    // Each client's coming and going is logged; the last leaving may still be on its way.
    const QString& log = app->core().frmErrorList.txtErrors.text;
    QElapsedTimer t;
    t.start();
    while (log.count(" left") < log.count(" connected") && t.elapsed() < 3000) QTest::qWait(20);
    EXPECT_GE(log.count(" connected"), 6);
    EXPECT_EQ(log.count(" connected"), log.count(" left"));
}

TEST_F(SharedRig, AReceiverRefusesPtt) {
    start("FRG100");
    ASSERT_TRUE(waitForDisplay("14.250.00"));
    app->core().f.chkTransmitEnable.value = 1;
    QString errors;
    run({"T", "1"}, &errors);
    EXPECT_TRUE(errors.contains("Feature not available")) << errors.toStdString();
    EXPECT_EQ(run({"t"}), "0");
    EXPECT_EQ(run({"F", "9500000", "f"}), "9500000");
}

TEST_F(SharedRig, BadClientsLeaveTheServerAndTheLinkWorking) {
    start("FT817");
    ASSERT_TRUE(waitForDisplay("14.250.00"));
    const QHostAddress loopback(QHostAddress::LocalHost);
    const quint16 port = static_cast<quint16>(app->rigctld().port());

    QTcpSocket steady;
    steady.connectToHost(loopback, port);
    ASSERT_TRUE(steady.waitForConnected(3000));
    EXPECT_EQ(ask(steady, "f\n", 1), "14250000\n");

    QTcpSocket noisy;
    noisy.connectToHost(loopback, port);
    ASSERT_TRUE(noisy.waitForConnected(3000));
    QByteArray noise;
    for (int i = 0; i < 4096; ++i) noise += static_cast<char>((i * 7919) % 251);
    noise.replace('\n', ' ');
    EXPECT_EQ(ask(noisy, noise + "\n", 1), "RPRT -1\n");
    EXPECT_EQ(ask(noisy, QByteArray(1 << 20, 'm') + "\nv\n", 2), "RPRT -1\nVFOA\n");

    // One that floods the server with writes is let go, and so is one that never reads.
    {
        QTcpSocket flood;
        flood.connectToHost(loopback, port);
        ASSERT_TRUE(flood.waitForConnected(3000));
        QByteArray lines;
        for (int i = 0; i < 1100; ++i) lines += "F 21074000\n";
        flood.write(lines);
        QElapsedTimer t;
        t.start();
        while (flood.state() == QAbstractSocket::ConnectedState && t.elapsed() < 5000)
            QTest::qWait(20);
        EXPECT_NE(flood.state(), QAbstractSocket::ConnectedState);
    }
    {
        QTcpSocket deaf;
        deaf.setReadBufferSize(1);  // takes nothing more from the system
        deaf.connectToHost(loopback, port);
        ASSERT_TRUE(deaf.waitForConnected(3000));
        // Nor does the system take much for it: where the system's own buffers may grow to
        // tens of megabytes, the megabyte waiting in the program would come only after them.
        deaf.setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, 4096);
        QByteArray reads;
        for (int i = 0; i < 10000; ++i) reads += "\\dump_state\n";  // long replies
        QElapsedTimer t;
        t.start();
        while (deaf.state() == QAbstractSocket::ConnectedState && t.elapsed() < 20000) {
            if (deaf.bytesToWrite() < reads.size()) deaf.write(reads);
            QTest::qWait(5);
        }
        EXPECT_NE(deaf.state(), QAbstractSocket::ConnectedState);
        EXPECT_TRUE(app->core().frmErrorList.txtErrors.text.contains("does not read its replies"));
    }

    // One leaves in the middle of a line, one before its write is answered.
    {
        QTcpSocket cut;
        cut.connectToHost(loopback, port);
        ASSERT_TRUE(cut.waitForConnected(3000));
        cut.write("F 70");
        cut.waitForBytesWritten(1000);
        QTest::qWait(50);
        QTcpSocket hasty;
        hasty.connectToHost(loopback, port);
        ASSERT_TRUE(hasty.waitForConnected(3000));
        hasty.write("F 10100000\n");
        hasty.waitForBytesWritten(1000);
        QTest::qWait(20);
    }
    QTest::qWait(200);

    // Two clients at once, and the rig still follows.
    EXPECT_EQ(run({"F", "14074000", "f"}), "14074000");
    EXPECT_EQ(rigState("frequency"), "14074000");
    EXPECT_EQ(ask(steady, "f\n", 1), "14074000\n");
    EXPECT_EQ(app->core().f.chkOnOff.value, 1);
    EXPECT_TRUE(waitForDisplay("14.074.00"));
    // The steady and the noisy client stay; the others have gone.
    QElapsedTimer t;
    t.start();
    while (app->rigctld().clientCount() != 2 && t.elapsed() < 3000) QTest::qWait(20);
    EXPECT_EQ(app->rigctld().clientCount(), 2);
}

TEST_F(SharedRig, OtherComputersReachItOnlyWhenTheOperatorSaysSo) {
    start("FT817");
    QHostAddress outside;
    for (const QHostAddress& a : QNetworkInterface::allAddresses())
        if (!a.isLoopback() && a.protocol() == QAbstractSocket::IPv4Protocol) outside = a;
    if (outside.isNull()) GTEST_SKIP() << "no network address besides the loopback";

    QTcpSocket probe;
    probe.connectToHost(outside, static_cast<quint16>(app->rigctld().port()));
    EXPECT_FALSE(probe.waitForConnected(2000));

    veldor::Core& c = app->core();
    c.s.RigctldAddress = "0.0.0.0";
    ASSERT_TRUE(veldor::StartRigSharing(c));
    QTcpSocket remote;
    remote.connectToHost(outside, static_cast<quint16>(app->rigctld().port()));
    ASSERT_TRUE(remote.waitForConnected(3000));
    EXPECT_EQ(ask(remote, "\\get_powerstat\n", 1), "1\n");
}

// The dialog from the Options menu turns sharing on at once, on the port typed in it.
TEST(RigSharingDialogOnScreen, TurnsSharingOnAtOnce) {
    const QString rigctl = QStandardPaths::findExecutable("rigctl");
    if (rigctl.isEmpty()) GTEST_SKIP() << "rigctl not installed";
    QTemporaryDir dir;
    qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
    ASSERT_TRUE(veldor::test::WriteSettings(
        dir.path(),
        ("[Settings]\nRigType=FT817\nAutoStart=Yes\nCommport=SIM\nHomeDir=" + dir.path() + "\n")
            .toUtf8()));
    quint16 port = 0;
    {
        QTcpServer probe;  // a port that is free now
        ASSERT_TRUE(probe.listen(QHostAddress::LocalHost));
        port = probe.serverPort();
    }

    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    EXPECT_FALSE(app.rigctld().listening());
    QAction* item = app.window().findChild<QAction*>("mnuRigSharing");
    ASSERT_NE(item, nullptr);
    bool seen = false;
    QTimer::singleShot(100, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        seen = true;
        EXPECT_EQ(dialog->windowTitle(), "VELDOR - Rig sharing");
        auto* address = dialog->findChild<QLineEdit*>("txtRigctldAddress");
        ASSERT_NE(address, nullptr);
        EXPECT_EQ(address->text(), "127.0.0.1");
        EXPECT_EQ(dialog->findChild<QLabel*>("lblRigctldState")->text(), "Not sharing");
        dialog->findChild<QCheckBox*>("chkRigctldEnabled")->setChecked(true);
        auto* portBox = dialog->findChild<QLineEdit*>("txtRigctldPort");
        portBox->setText(QString::number(port));
        const QString shots = qEnvironmentVariable("VELDOR_SCREENSHOTS");
        if (!shots.isEmpty()) dialog->grab().save(shots + "/rig-sharing.png");
        QTest::mouseClick(dialog->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    item->trigger();
    EXPECT_TRUE(seen);
    ASSERT_TRUE(app.rigctld().listening());
    EXPECT_EQ(app.rigctld().port(), port);

    QProcess client;
    client.start(rigctl, {"-m", "2", "-r", "127.0.0.1:" + QString::number(port), "f"});
    QElapsedTimer t;
    t.start();
    while (client.state() != QProcess::NotRunning && t.elapsed() < 20000) QTest::qWait(10);
    EXPECT_EQ(QString::fromUtf8(client.readAllStandardOutput()).trimmed(), "14250000");
    const QByteArray text = veldor::test::SettingsText(dir.path());
    EXPECT_TRUE(text.contains("RigctldEnabled=Y"));
    EXPECT_TRUE(text.contains("RigctldPort=" + QByteArray::number(port)));
}

}  // namespace
