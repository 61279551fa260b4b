#include "platform/system_serial_port.h"

#include "platform/serial_settings.h"

#include <QFileInfo>

namespace veldor {

namespace {

QSerialPort::Parity ToParity(QChar p) {
    switch (p.toLatin1()) {
        case 'E':
            return QSerialPort::EvenParity;
        case 'O':
            return QSerialPort::OddParity;
        case 'M':
            return QSerialPort::MarkParity;
        case 'S':
            return QSerialPort::SpaceParity;
        default:
            return QSerialPort::NoParity;
    }
}

// The system's reason, with a hint where the usual cure is known.
QString Reason(QSerialPort& port, const QString& systemName) {
    QString reason = port.errorString();
    if (port.error() == QSerialPort::PermissionError) {
#ifdef Q_OS_LINUX
        reason += " (access to " + systemName +
                  " is denied: add your user to the group that owns it, usually dialout, "
                  "then log in again)";
#endif
    } else if (port.error() == QSerialPort::DeviceNotFoundError) {
        reason += " (" + systemName + " does not exist)";
    }
    return reason;
}

}  // namespace

SystemSerialPort::SystemSerialPort(Clock& clock, std::function<QString()> rigType)
    : sim_(clock, std::move(rigType)) {}

bool SystemSerialPort::open(const QString& name, const QString& settings, bool rtsCtsHandshake,
                            QString* reason) {
    close();
    usingSim_ = name.compare("SIM", Qt::CaseInsensitive) == 0;
    if (usingSim_) return sim_.open(name, settings, rtsCtsHandshake, reason);

    const auto line = ParseSerialSettings(settings);
    if (!line) {
        if (reason) *reason = "Invalid serial settings \"" + settings + "\"";
        return false;
    }
    const QString systemName = SystemPortName(name);
    serial_.setPortName(systemName);
    if (!serial_.open(QIODevice::ReadWrite)) {
        if (reason) *reason = Reason(serial_, systemName);
        return false;
    }
    const bool configured =
        serial_.setBaudRate(line->baud) &&
        serial_.setDataBits(static_cast<QSerialPort::DataBits>(line->dataBits)) &&
        serial_.setParity(ToParity(line->parity)) &&
        serial_.setStopBits(line->stopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop) &&
        serial_.setFlowControl(rtsCtsHandshake ? QSerialPort::HardwareControl
                                               : QSerialPort::NoFlowControl);
    if (!configured) {
        if (reason) *reason = Reason(serial_, systemName);
        serial_.close();
        return false;
    }
    // With hardware handshaking the driver owns RTS.
    if (!rtsCtsHandshake) serial_.setRequestToSend(rts_);
    serial_.setDataTerminalReady(dtr_);
    return true;
}

void SystemSerialPort::close() {
    sim_.close();
    if (serial_.isOpen()) serial_.close();
}

bool SystemSerialPort::isOpen() const {
    if (usingSim_) return sim_.isOpen();
    return serial_.isOpen();
}

int SystemSerialPort::inBufferCount() {
    if (usingSim_) return sim_.inBufferCount();
    if (!serial_.isOpen()) return 0;
    serial_.waitForReadyRead(0);  // take in what the driver holds, without waiting
    // A device that vanished (an unplugged USB adapter) closes the port.
    if (serial_.error() == QSerialPort::ResourceError) {
        serial_.close();
        return 0;
    }
    return static_cast<int>(serial_.bytesAvailable());
}

void SystemSerialPort::clearInput() {
    if (usingSim_) return sim_.clearInput();
    if (!serial_.isOpen()) return;
    serial_.waitForReadyRead(0);
    serial_.readAll();
    serial_.clear(QSerialPort::Input);
}

QByteArray SystemSerialPort::input(int maxBytes) {
    if (usingSim_) return sim_.input(maxBytes);
    if (!serial_.isOpen()) return {};
    return maxBytes <= 0 ? serial_.readAll() : serial_.read(maxBytes);
}

void SystemSerialPort::output(const QByteArray& bytes) {
    if (usingSim_) return sim_.output(bytes);
    if (serial_.isOpen()) serial_.write(bytes);
}

int SystemSerialPort::outBufferCount() {
    if (usingSim_) return sim_.outBufferCount();
    if (!serial_.isOpen()) return 0;
    if (serial_.bytesToWrite() > 0) serial_.waitForBytesWritten(10);
    if (serial_.error() == QSerialPort::ResourceError ||
        serial_.error() == QSerialPort::WriteError) {
        serial_.close();
        return 0;
    }
    return static_cast<int>(serial_.bytesToWrite());
}

void SystemSerialPort::setRts(bool on) {
    rts_ = on;
    sim_.setRts(on);
    if (!usingSim_ && serial_.isOpen() && serial_.flowControl() != QSerialPort::HardwareControl)
        serial_.setRequestToSend(on);
}

void SystemSerialPort::setDtr(bool on) {
    dtr_ = on;
    sim_.setDtr(on);
    if (!usingSim_ && serial_.isOpen()) serial_.setDataTerminalReady(on);
}

bool SystemSerialPort::available(const QString& name) {
    if (name.compare("SIM", Qt::CaseInsensitive) == 0) return true;
    QSerialPort probe(SystemPortName(name));
    if (!probe.open(QIODevice::ReadWrite)) return false;
    probe.close();
    return true;
}

QString SystemSerialPort::deviceName(const QString& name) const {
    return DeviceName(name);
}

}  // namespace veldor
