// Rig sharing end to end: Hamlib's own client (rigctl, model 2 "NET rigctl") and raw sockets
// talk to the real program, which talks to veldor-rigsim over a pseudo-terminal; the
// simulator's state file tells what reached the rig.
#include "e2e_support.h"
#include "sharing/rig_sharing.h"

#include <QCheckBox>
#include <QNetworkInterface>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTcpSocket>

#include <memory>

namespace {

using namespace veldor::test;

class SharedRig : public ::testing::Test {
  protected:
    // veldor-rigsim's FT-857 as the rig, and VELDOR on it with sharing on a free port of the
    // loopback.
    void SetUp() override {
        rigctl = QStandardPaths::findExecutable("rigctl");
        if (rigctl.isEmpty()) GTEST_SKIP() << "rigctl not installed";
        QTcpServer probe;  // a port that is free now: tests run side by side
        ASSERT_TRUE(probe.listen(QHostAddress::LocalHost));
        const QString port = QString::number(probe.serverPort());
        probe.close();
        st = std::make_unique<Station>(
            "FT857", Port::Pty, "AutoStart=Yes\nRigctldEnabled=Y\nRigctldPort=" + port + "\n");
        app = std::make_unique<veldor::Application>();
        ASSERT_TRUE(app->start(""));
        ASSERT_TRUE(app->rigctld().listening());
        ASSERT_TRUE(Showing(*app, "14.250.00"));
    }

    // rigctl with the commands given; the event loop runs meanwhile, as the server needs.
    QString run(const QStringList& commands, QString* errors = nullptr) {
        QProcess client;
        client.start(rigctl, QStringList{"-m", "2", "-r",
                                         "127.0.0.1:" + QString::number(app->rigctld().port())} +
                                 commands);
        Eventually([&] { return client.state() == QProcess::NotRunning; }, 20000);
        const QString out = QString::fromUtf8(client.readAllStandardOutput());
        // rigctl tells a refusal on either stream, by Hamlib's words for the code.
        if (errors) *errors = QString::fromUtf8(client.readAllStandardError()) + out;
        return out.trimmed();
    }

    // A raw client: what it sends, and what comes back within five seconds.
    static QByteArray ask(QTcpSocket& socket, const QByteArray& bytes, int lines) {
        socket.write(bytes);
        QByteArray got;
        Eventually([&] { return (got += socket.readAll()).count('\n') >= lines; }, 5000);
        return got;
    }
    QTcpSocket* connected(QTcpSocket& socket, const QHostAddress& to = QHostAddress::LocalHost) {
        socket.connectToHost(to, static_cast<quint16>(app->rigctld().port()));
        EXPECT_TRUE(socket.waitForConnected(3000));
        return &socket;
    }

    QString rigctl;
    std::unique_ptr<Station> st;
    std::unique_ptr<veldor::Application> app;
};

TEST_F(SharedRig, RigctlReadsTheRigAndSetsFrequencyModeAndPtt) {
    EXPECT_EQ(run({"f", "m"}), "14250000\nUSB\n2400");
    EXPECT_EQ(run({"F", "7074000"}), "");
    EXPECT_EQ(st->rig("frequency"), "7074000");
    EXPECT_EQ(run({"M", "LSB", "0", "f", "m"}), "7074000\nLSB\n2400");
    EXPECT_EQ(st->rig("mode"), "LSB");

    // Keying needs "Transmit enable", as the TX/RX button does.
    QString errors;
    run({"T", "1"}, &errors);
    EXPECT_TRUE(errors.contains("Command rejected")) << errors.toStdString();
    EXPECT_EQ(st->rig("ptt"), "0");
    Tick(app->window().findChild<QCheckBox*>("chkTransmitEnable"));
    EXPECT_EQ(run({"T", "1", "t"}), "1");
    EXPECT_EQ(st->rig("ptt"), "1");
    EXPECT_EQ(run({"T", "0", "t"}), "0");
    EXPECT_EQ(st->rig("ptt"), "0");

    // Each client's coming and going is logged; the last leaving may still be on its way.
    const QString& log = app->core().frmErrorList.txtErrors.text;
    Eventually([&] { return log.count(" left") == log.count(" connected"); }, 3000);
    EXPECT_GE(log.count(" connected"), 6);
    EXPECT_EQ(log.count(" connected"), log.count(" left"));
}

TEST_F(SharedRig, BadClientsLeaveTheServerAndTheLinkWorking) {
    QTcpSocket steady, flood, deaf;
    EXPECT_EQ(ask(*connected(steady), "f\n", 1), "14250000\n");

    // One that floods the server with writes is let go, and so is one that never reads.
    QByteArray lines;
    for (int i = 0; i < 1100; ++i) lines += "F 21074000\n";
    connected(flood)->write(lines);
    EXPECT_TRUE(Eventually([&] { return flood.state() != QAbstractSocket::ConnectedState; }, 5000));

    deaf.setReadBufferSize(1);  // takes nothing more from the system
    connected(deaf);
    // Nor does the system take much for it: where the system's own buffers may grow to tens of
    // megabytes, the megabyte waiting in the program would come only after them.
    deaf.setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, 4096);
    QByteArray reads;
    for (int i = 0; i < 10000; ++i) reads += "\\dump_state\n";  // long replies
    EXPECT_TRUE(Eventually(
        [&] {
            if (deaf.bytesToWrite() < reads.size()) deaf.write(reads);
            return deaf.state() != QAbstractSocket::ConnectedState;
        },
        20000));
    EXPECT_TRUE(app->core().frmErrorList.txtErrors.text.contains("does not read its replies"));

    // One leaves in the middle of a line, one before its write is answered.
    {
        QTcpSocket cut, hasty;
        connected(cut)->write("F 70");
        cut.waitForBytesWritten(1000);
        QTest::qWait(50);
        connected(hasty)->write("F 10100000\n");
        hasty.waitForBytesWritten(1000);
        QTest::qWait(20);
    }
    QTest::qWait(200);

    // Two clients at once, and the rig still follows; only the steady client stays.
    EXPECT_EQ(run({"F", "14074000", "f"}), "14074000");
    EXPECT_EQ(st->rig("frequency"), "14074000");
    EXPECT_EQ(ask(steady, "f\n", 1), "14074000\n");
    EXPECT_TRUE(Showing(*app, "14.074.00"));
    EXPECT_TRUE(Eventually([&] { return app->rigctld().clientCount() == 1; }, 3000));
}

TEST_F(SharedRig, OtherComputersReachItOnlyWhenTheOperatorSaysSo) {
    QHostAddress outside;
    for (const QHostAddress& a : QNetworkInterface::allAddresses())
        if (!a.isLoopback() && a.protocol() == QAbstractSocket::IPv4Protocol) outside = a;
    if (outside.isNull()) GTEST_SKIP() << "no network address besides the loopback";

    QTcpSocket probe, remote;
    probe.connectToHost(outside, static_cast<quint16>(app->rigctld().port()));
    EXPECT_FALSE(probe.waitForConnected(2000));
    app->core().s.RigctldAddress = "0.0.0.0";
    ASSERT_TRUE(veldor::StartRigSharing(app->core()));
    EXPECT_EQ(ask(*connected(remote, outside), "\\get_powerstat\n", 1), "1\n");
}

}  // namespace
