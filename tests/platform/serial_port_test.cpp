// The real serial port: settings texts, port names, failures with the system's reason, and
// bytes through a pseudo-terminal.
#include "platform/serial_ports.h"
#include "platform/serial_settings.h"
#include "platform/system_serial_port.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <memory>

#include <fcntl.h>
#include <pty.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

namespace veldor::test {
namespace {

// Each case: the text, and after "=" what it reads as (nothing when it is refused).
TEST(SerialSettingsText, ParsesOnlyAWholeText) {
    const QString cases =
        "4800,N,8,2=4800 N 8 2;38400,e,7,1=38400 E 7 1; 9600 , N , 8 , 2 =9600 N 8 2;4800,N,8=;=;"
        "fast,N,8,2=;4800,X,8,2=;4800,N,9,2=;4800,N,8,3=;-4800,N,8,2=";
    for (const QString& c : cases.split(';')) {
        const auto s = ParseSerialSettings(c.section('=', 0, 0));
        EXPECT_EQ(
            s ? QString("%1 %2 %3 %4").arg(s->baud).arg(s->parity).arg(s->dataBits).arg(s->stopBits)
              : QString(),
            c.section('=', 1))
            << c.toStdString();
    }
}

TEST(PortNames, ANumberIsTheSystemsNthPort) {
    EXPECT_EQ(SystemPortName("1"), "/dev/ttyS0");
    EXPECT_EQ(SystemPortName("16"), "/dev/ttyS15");
    EXPECT_EQ(SystemPortName("/dev/ttyUSB0"), "/dev/ttyUSB0");
    EXPECT_EQ(SystemPortName("SIM"), "SIM");
    EXPECT_EQ(SystemPortName("0"), "0");
}

// The system's ports by their stable names, described as the USB device above each reports it.
TEST(PortNames, TheSystemsPortsAreListedByIdWithTheirDescription) {
    QTemporaryDir root;
    const QString dev = root.path() + "/dev", sys = root.path() + "/sys";
    QDir().mkpath(dev + "/serial/by-id");
    const QString usb = sys + "/devices/usb1/1-2";
    QDir().mkpath(usb + "/1-2:1.0/ttyUSB0");
    QDir().mkpath(sys + "/devices/pci0/ttyACM0");
    QDir().mkpath(sys + "/class/tty");
    auto write = [](const QString& path, const QByteArray& text) {
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(text);
    };
    write(usb + "/product", "FT232R USB UART\n");
    write(usb + "/manufacturer", "FTDI\n");
    write(sys + "/devices/pci0/interface", "CDC ACM\n");
    QFile::link(usb + "/1-2:1.0/ttyUSB0", sys + "/class/tty/ttyUSB0");
    QFile::link(usb + "/1-2:1.0/ttyUSB0", usb + "/1-2:1.0/ttyUSB0/device");
    QFile::link(sys + "/devices/pci0/ttyACM0", sys + "/class/tty/ttyACM0");
    QFile::link(sys + "/devices/pci0", sys + "/devices/pci0/ttyACM0/device");
    QFile::link("../../ttyUSB0", dev + "/serial/by-id/usb-FTDI_FT232R-if00-port0");
    QFile::link("../../ttyACM0", dev + "/serial/by-id/usb-Yaesu_CAT-if00");
    QFile::link("../../ttyUSB9", dev + "/serial/by-id/usb-gone-if00");  // unplugged

    const auto ports = SystemSerialPorts(dev, sys);
    ASSERT_EQ(ports.size(), 3);
    EXPECT_EQ(ports[0].first, dev + "/serial/by-id/usb-FTDI_FT232R-if00-port0");
    EXPECT_EQ(ports[0].second, "FT232R USB UART (FTDI) on ttyUSB0");
    EXPECT_EQ(ports[1].second, "CDC ACM on ttyACM0");
    EXPECT_EQ(ports[2].second, "ttyUSB9");
    EXPECT_TRUE(SystemSerialPorts(root.path() + "/none", sys).isEmpty());
}

TEST(PortNames, ALinkNamesTheDeviceItLeadsTo) {
    QTemporaryDir dir;
    const QString link = dir.filePath("ttyRig");
    ASSERT_TRUE(QFile::link("/dev/null", link));
    EXPECT_EQ(DeviceName(link), DeviceName("/dev/null"));
}

TEST(SystemPort, AMissingDeviceOrABadSettingsTextFailsWithTheReason) {
    VirtualClock clock;
    SystemSerialPort port(clock, [] { return QString("FT817"); });
    QString reason;
    EXPECT_FALSE(port.open("/dev/veldor-no-such-port", "4800,N,8,2", false, {}, &reason));
    EXPECT_FALSE(port.isOpen());
    EXPECT_TRUE(reason.contains("/dev/veldor-no-such-port")) << reason.toStdString();
    EXPECT_EQ(port.inBufferCount(), 0);
    EXPECT_FALSE(port.open("SIM", "4800;N;8;2", false, {}, &reason));
    EXPECT_TRUE(reason.contains("4800;N;8;2"));
}

// A raw pseudo-terminal whose master side the test holds; the port opens the other side.
struct Pty {
    Pty() {
        int slave = -1;
        ::openpty(&master, &slave, name, nullptr, nullptr);
        ::close(slave);
        termios tio{};
        ::tcgetattr(master, &tio);
        ::cfmakeraw(&tio);
        ::tcsetattr(master, TCSANOW, &tio);
    }
    ~Pty() { ::close(master); }
    int master = -1;
    char name[256] = {};
};

TEST(SystemPort, CarriesBytesBothWaysThroughAPseudoTerminal) {
    Pty pty;
    const int master = pty.master;
    VirtualClock clock;
    SystemSerialPort port(clock, [] { return QString("FT817"); });
    QString reason;
    ASSERT_TRUE(port.open(pty.name, "4800,N,8,2", false, {}, &reason)) << reason.toStdString();
    port.output(QByteArray::fromHex("0000000003"));
    while (port.outBufferCount() > 0) {
    }
    char got[5] = {};
    ssize_t n = 0;
    for (int tries = 0; n < 5 && tries < 200; ++tries) {
        const ssize_t r = ::read(master, got + n, sizeof got - static_cast<size_t>(n));
        if (r > 0)
            n += r;
        else
            QThread::msleep(5);
    }
    EXPECT_EQ(QByteArray(got, static_cast<int>(n)).toHex(), "0000000003");

    const QByteArray reply = QByteArray::fromHex("0142500001");
    ASSERT_EQ(::write(master, reply.constData(), 5), 5);
    for (int tries = 0; port.inBufferCount() < 5 && tries < 200; ++tries) QThread::msleep(5);
    EXPECT_EQ(port.input(3).toHex(), "014250");
    EXPECT_EQ(port.inBufferCount(), 2);
    port.clearInput();
    EXPECT_EQ(port.inBufferCount(), 0);
    port.close();
    EXPECT_FALSE(port.isOpen());
}

// A pseudo-terminal has no modem lines, so what the lines do cannot be seen here; what can be
// seen is that a restart on the same device never lets it go, as the system tells anyone who
// watches the device.
TEST(SystemPort, ARestartOnTheSameDeviceKeepsItOpenAndEmptiesTheInput) {
    Pty pty;
    VirtualClock clock;
    SystemSerialPort port(clock, [] { return QString("FT817"); });
    ASSERT_TRUE(port.open(pty.name, "4800,N,8,2", false, {}, nullptr));
    const int watch = ::inotify_init1(IN_NONBLOCK);
    ASSERT_GE(::inotify_add_watch(watch, pty.name, IN_OPEN | IN_CLOSE), 0);
    auto watched = [watch] {
        alignas(inotify_event) char events[4096];
        return ::read(watch, events, sizeof events) > 0;
    };
    ASSERT_EQ(::write(pty.master, "\x01", 1), 1);
    for (int tries = 0; port.inBufferCount() < 1 && tries < 200; ++tries) QThread::msleep(5);
    ASSERT_TRUE(port.open(pty.name, "9600,N,8,2", false, {}, nullptr));
    EXPECT_EQ(port.inBufferCount(), 0);
    EXPECT_FALSE(watched());  // neither closed nor opened again
    port.close();
    EXPECT_TRUE(watched());  // the watch does see a closing
    ::close(watch);
}

// An adapter pulled out: the port closes at the hang-up, and never spins on it. Put back, it
// comes as another device, found again by its stable name.
TEST(SystemPort, AVanishedDeviceClosesThePortAndIsFoundAgainByItsStableName) {
    QTemporaryDir byId;
    auto first = std::make_unique<Pty>();
    const QString stable = byId.path() + "/usb-FTDI_FT232R_A1B2C3-if00-port0";
    ASSERT_TRUE(QFile::link(first->name, stable));
    VirtualClock clock;
    SystemSerialPort port(
        clock, [] { return QString("FT817"); }, byId.path());
    const QString name = first->name;
    ASSERT_TRUE(port.open(name, "4800,N,8,2", false, {}, nullptr));
    Pty second;  // the adapter back, under another number
    first.reset();
    QElapsedTimer spent;
    spent.start();
    port.output(QByteArray(4096, 'x'));
    for (int i = 0; i < 100 && port.isOpen(); ++i) {
        port.outBufferCount();
        port.inBufferCount();
    }
    EXPECT_FALSE(port.isOpen());
    EXPECT_LT(spent.elapsed(), 500);

    QFile::remove(stable);
    ASSERT_TRUE(QFile::link(second.name, stable));
    ASSERT_TRUE(port.open(name, "4800,N,8,2", false, {}, nullptr));
    ASSERT_EQ(::write(second.master, "\x42", 1), 1);
    for (int tries = 0; port.inBufferCount() < 1 && tries < 200; ++tries) QThread::msleep(5);
    EXPECT_EQ(port.input(0), "\x42");
}

}  // namespace
}  // namespace veldor::test
