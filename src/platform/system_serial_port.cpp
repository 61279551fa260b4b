#include "platform/system_serial_port.h"

#include "platform/serial_settings.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace veldor {

namespace {

bool SpeedOf(int baud, speed_t* speed) {
    static constexpr std::pair<int, speed_t> kSpeeds[] = {
        {300, B300},     {600, B600},       {1200, B1200},    {2400, B2400},
        {4800, B4800},   {9600, B9600},     {19200, B19200},  {38400, B38400},
        {57600, B57600}, {115200, B115200}, {230400, B230400}};
    for (const auto& [value, code] : kSpeeds) {
        if (value != baud) continue;
        *speed = code;
        return true;
    }
    return false;
}

// Raw bytes in the form of the settings text. HUPCL: the last close of the device drops both
// lines, so a rig keyed by a line is let go when the program lets the port go, also when the
// program ends without warning. VMIN 1 with a non-blocking descriptor: a read with nothing
// there fails with EAGAIN, and a read of nothing means the device hung up.
bool Configure(int fd, const SerialSettings& line, bool rtsCts, QString* reason) {
    speed_t speed = B0;
    if (!SpeedOf(line.baud, &speed)) {
        if (reason) *reason = QString("The speed %1 is not supported").arg(line.baud);
        return false;
    }
    termios tio{};
    if (::tcgetattr(fd, &tio) != 0) return false;
    ::cfmakeraw(&tio);
    tio.c_iflag &= ~static_cast<tcflag_t>(IXOFF | IXANY);
    tio.c_iflag |= IGNPAR;
    tio.c_cflag &= ~static_cast<tcflag_t>(CSIZE | PARENB | PARODD | CMSPAR | CSTOPB | CRTSCTS);
    static constexpr tcflag_t kSizes[] = {CS5, CS6, CS7, CS8};
    tio.c_cflag |= CREAD | CLOCAL | HUPCL | kSizes[line.dataBits - 5];
    switch (line.parity.toLatin1()) {
        case 'E':
            tio.c_cflag |= PARENB;
            break;
        case 'O':
            tio.c_cflag |= PARENB | PARODD;
            break;
        case 'M':
            tio.c_cflag |= PARENB | CMSPAR | PARODD;
            break;
        case 'S':
            tio.c_cflag |= PARENB | CMSPAR;
            break;
        default:
            break;
    }
    if (line.stopBits == 2) tio.c_cflag |= CSTOPB;
    if (rtsCts) tio.c_cflag |= CRTSCTS;
    tio.c_cc[VMIN] = 1;
    tio.c_cc[VTIME] = 0;
    return ::cfsetispeed(&tio, speed) == 0 && ::cfsetospeed(&tio, speed) == 0 &&
           ::tcsetattr(fd, TCSANOW, &tio) == 0;
}

// The system's reason, with a hint where the usual cure is known.
QString Reason(int error, const QString& device) {
    QString reason = qt_error_string(error);
    if (error == EACCES)
        reason += " (access to " + device +
                  " is denied: add your user to the group that owns it, usually dialout, "
                  "then log in again)";
    else if (error == ENOENT)
        reason += " (" + device + " does not exist)";
    else if (error == EBUSY)
        reason += " (" + device + " is in use by another program)";
    return reason;
}

}  // namespace

SystemSerialPort::SystemSerialPort(Clock& clock, std::function<QString()> rigType,
                                   QString stableNames)
    : sim_(clock, std::move(rigType)), stableNames_(std::move(stableNames)) {}

namespace {

// The link in the folder of stable names that leads to the device, if there is one.
QString StableNameOf(const QString& folder, const QString& device) {
    const QString target = QFileInfo(device).canonicalFilePath();
    if (target.isEmpty()) return {};
    for (const QFileInfo& link : QDir(folder).entryInfoList(QDir::System | QDir::Files))
        if (link.isSymLink() && link.canonicalFilePath() == target) return link.filePath();
    return {};
}

}  // namespace

SystemSerialPort::~SystemSerialPort() {
    close();
}

bool SystemSerialPort::open(const QString& name, const QString& settings, bool rtsCtsHandshake,
                            PortLines lines, QString* reason) {
    rts_ = lines.rts;
    dtr_ = lines.dtr;
    if (name.trimmed().compare("SIM", Qt::CaseInsensitive) == 0) {
        close();
        usingSim_ = true;
        return sim_.open(name, settings, rtsCtsHandshake, lines, reason);
    }
    sim_.close();
    usingSim_ = false;
    const auto line = ParseSerialSettings(settings);
    if (!line) {
        if (reason) *reason = "Invalid serial settings \"" + settings + "\"";
        close();
        return false;
    }
    rtsCts_ = rtsCtsHandshake;
    QString device = SystemPortName(name.trimmed());
    // A device that vanished (an unplugged USB adapter) is found again by its stable name,
    // whichever /dev/ttyUSBn it came back as.
    const bool sameName = name.trimmed() == lastName_;
    if (fd_ < 0 && sameName && !stableName_.isEmpty() && QFileInfo::exists(stableName_))
        device = stableName_;
    if (fd_ >= 0 && (device == device_ || sameName)) {
        // Restarted in place: the device is not let go, so its lines do not move.
        in_.clear();
        out_.clear();
        ::tcflush(fd_, TCIOFLUSH);
    } else {
        close();
        fd_ = ::open(device.toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        if (fd_ < 0) {
            if (reason) *reason = Reason(errno, device);
            return false;
        }
        // The very next call: opening raised DTR and RTS, and this puts them as asked.
        applyLines();
        device_ = device;
        ::ioctl(fd_, TIOCEXCL);  // no other program opens it while it is ours
        lastName_ = name.trimmed();
        stableName_ = StableNameOf(stableNames_, device);
    }
    if (!Configure(fd_, *line, rtsCts_, reason)) {
        if (reason && reason->isEmpty()) *reason = Reason(errno, device);
        close();
        return false;
    }
    // Again: a device left at speed 0 raises both lines when its speed is set.
    applyLines();
    return true;
}

// Lowers first, in one call, then raises what is to be high. A device without modem lines
// (a pseudo-terminal) refuses both calls, which is of no matter.
void SystemSerialPort::applyLines() {
    int low = 0, high = 0;
    (dtr_ ? high : low) |= TIOCM_DTR;
    if (!rtsCts_) (rts_ ? high : low) |= TIOCM_RTS;  // with handshaking the driver owns RTS
    if (low) ::ioctl(fd_, TIOCMBIC, &low);
    if (high) ::ioctl(fd_, TIOCMBIS, &high);
}

void SystemSerialPort::close() {
    sim_.close();
    if (fd_ >= 0) {
        ::ioctl(fd_, TIOCNXCL);
        ::close(fd_);  // HUPCL: both lines drop
    }
    fd_ = -1;
    device_.clear();
    in_.clear();
    out_.clear();
}

bool SystemSerialPort::isOpen() const {
    if (usingSim_) return sim_.isOpen();
    return fd_ >= 0;
}

bool SystemSerialPort::takeInput() {
    if (fd_ < 0) return false;
    char buffer[512];
    for (;;) {
        const ssize_t n = ::read(fd_, buffer, sizeof buffer);
        if (n > 0) {
            in_.append(buffer, n);
        } else if (n < 0 && errno == EINTR) {
            continue;
        } else if (n < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) {
            return true;
        } else {
            // Nothing read means a hang-up, an error a device that vanished (an unplugged
            // USB adapter): the port closes under the program.
            close();
            return false;
        }
    }
}

int SystemSerialPort::inBufferCount() {
    if (usingSim_) return sim_.inBufferCount();
    return takeInput() ? static_cast<int>(in_.size()) : 0;
}

void SystemSerialPort::clearInput() {
    if (usingSim_) return sim_.clearInput();
    if (fd_ < 0) return;
    ::tcflush(fd_, TCIFLUSH);
    in_.clear();
}

QByteArray SystemSerialPort::input(int maxBytes) {
    if (usingSim_) return sim_.input(maxBytes);
    takeInput();
    const qsizetype n = maxBytes <= 0 ? in_.size() : std::min<qsizetype>(maxBytes, in_.size());
    const QByteArray taken = in_.left(n);
    in_.remove(0, n);
    return taken;
}

void SystemSerialPort::drainOutput() {
    while (fd_ >= 0 && !out_.isEmpty()) {
        const ssize_t n = ::write(fd_, out_.constData(), static_cast<size_t>(out_.size()));
        if (n > 0) {
            out_.remove(0, n);
        } else if (n < 0 && errno == EINTR) {
            continue;
        } else if (n < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) {
            return;
        } else {
            close();
        }
    }
}

void SystemSerialPort::output(const QByteArray& bytes) {
    if (usingSim_) return sim_.output(bytes);
    if (fd_ < 0) return;
    out_ += bytes;
    drainOutput();
}

// The bytes the driver has not yet taken; a full driver buffer is waited for 10 ms at most.
int SystemSerialPort::outBufferCount() {
    if (usingSim_) return sim_.outBufferCount();
    drainOutput();
    if (fd_ >= 0 && !out_.isEmpty()) {
        pollfd writable{fd_, POLLOUT, 0};
        // A hang-up or an error is not waited out: the device has gone, the port closes.
        if (::poll(&writable, 1, 10) > 0 && (writable.revents & (POLLHUP | POLLERR | POLLNVAL)))
            close();
        drainOutput();
    }
    return static_cast<int>(out_.size());
}

void SystemSerialPort::setRts(bool on) {
    rts_ = on;
    sim_.setRts(on);
    if (usingSim_ || fd_ < 0 || rtsCts_) return;
    int bit = TIOCM_RTS;
    ::ioctl(fd_, on ? TIOCMBIS : TIOCMBIC, &bit);
}

void SystemSerialPort::setDtr(bool on) {
    dtr_ = on;
    sim_.setDtr(on);
    if (usingSim_ || fd_ < 0) return;
    int bit = TIOCM_DTR;
    ::ioctl(fd_, on ? TIOCMBIS : TIOCMBIC, &bit);
}

QString SystemSerialPort::deviceName(const QString& name) const {
    return DeviceName(name);
}

}  // namespace veldor
