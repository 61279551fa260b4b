// The program's serial port: the system's ports through QSerialPort, and "SIM", the built-in
// simulated rig of the chosen rig type.
#pragma once

#include "link/platform.h"
#include "platform/sim_port.h"

#include <QSerialPort>

#include <memory>

namespace veldor {

class SystemSerialPort : public SerialPort {
  public:
    SystemSerialPort(Clock& clock, std::function<QString()> rigType);

    bool open(const QString& name, const QString& settings, bool rtsCtsHandshake,
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
    bool available(const QString& name) override;
    QString deviceName(const QString& name) const override;

  private:
    bool usingSim() const { return usingSim_; }

    SimPort sim_;
    QSerialPort serial_;
    bool usingSim_ = false;
    bool rts_ = false;
    bool dtr_ = false;
};

}  // namespace veldor
