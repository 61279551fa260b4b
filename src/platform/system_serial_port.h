// The program's serial port: the system's serial devices, opened by the program itself so that
// their lines are set as early as Linux allows, and "SIM", the built-in simulated rig of the
// chosen rig type. docs/SERIAL_LINES.md tells what is guaranteed of the lines.
#pragma once

#include "link/platform.h"
#include "platform/sim_port.h"

#include <QByteArray>
#include <QString>

namespace veldor {

class SystemSerialPort : public SerialPort {
  public:
    // stableNames: the folder of the system's stable names of serial devices, links that
    // follow a USB adapter to whichever /dev/ttyUSBn it comes back as.
    SystemSerialPort(Clock& clock, std::function<QString()> rigType,
                     QString stableNames = "/dev/serial/by-id");
    ~SystemSerialPort() override;
    SystemSerialPort(const SystemSerialPort&) = delete;
    SystemSerialPort& operator=(const SystemSerialPort&) = delete;

    bool open(const QString& name, const QString& settings, bool rtsCtsHandshake, PortLines lines,
              QString* reason) override;
    void close() override;
    bool isOpen() const override;
    int inBufferCount() override;
    void clearInput() override;
    QByteArray input(int maxBytes) override;
    void output(const QByteArray& bytes) override;
    int outBufferCount() override;
    void setRts(bool on) override;
    void setDtr(bool on) override;
    bool rts() const override { return rts_; }
    QString deviceName(const QString& name) const override;
    int descriptor() const override { return usingSim_ ? -1 : fd_; }

  private:
    void applyLines();
    bool takeInput();  // false when the device has gone, and the port is closed
    void drainOutput();

    SimPort sim_;
    bool usingSim_ = false;
    int fd_ = -1;
    QString device_;  // the device fd_ is open on
    QString stableNames_;
    QString lastName_;    // the name last opened
    QString stableName_;  // its device's stable name, if it has one
    QByteArray in_;       // read from the device and not yet taken
    QByteArray out_;      // given to output() and not yet taken by the driver
    bool rtsCts_ = false;
    bool rts_ = false;
    bool dtr_ = false;
};

}  // namespace veldor
