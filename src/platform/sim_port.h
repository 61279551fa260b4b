// A serial port with a simulated rig on the other end: the port "SIM" of the program, and the
// port of every test, where the clock is virtual.
#pragma once

#include "link/platform.h"
#include "rig_sim.h"

#include <functional>
#include <memory>

namespace veldor {

class SimPort : public SerialPort {
  public:
    // rigType tells which rig to simulate when the port opens.
    SimPort(Clock& clock, std::function<QString()> rigType);

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
    QString deviceName(const QString& name) const override;

    // The rig behind the port; it lives on across a reopening, as a real rig does.
    // Made on first use, for the rig type of the moment.
    sim::RigSim* rig();
    bool rts() const override { return rts_; }
    bool dtr() const { return dtr_; }

  private:
    int64_t now();
    bool gone();

    Clock& clock_;
    std::function<QString()> rigType_;
    std::unique_ptr<sim::RigSim> rig_;
    QString rigName_;
    bool open_ = false;
    bool rts_ = false;
    bool dtr_ = false;
};

}  // namespace veldor
