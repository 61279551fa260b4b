#include "platform/sim_port.h"

#include "platform/serial_settings.h"

namespace veldor {

SimPort::SimPort(Clock& clock, std::function<QString()> rigType)
    : clock_(clock), rigType_(std::move(rigType)) {}

int64_t SimPort::now() {
    return clock_.milliseconds();
}

bool SimPort::gone() {
    // A vanished device closes the port under the program, as a USB adapter does.
    if (open_ && rig_ && rig_->faults().gone) open_ = false;
    return !open_;
}

bool SimPort::open(const QString&, const QString& settings, bool, PortLines lines,
                   QString* reason) {
    open_ = false;
    rts_ = lines.rts;
    dtr_ = lines.dtr;
    const auto line = ParseSerialSettings(settings);
    if (!line) {
        if (reason) *reason = "Invalid serial settings \"" + settings + "\"";
        return false;
    }
    if (!rig()) {
        if (reason) *reason = "No simulated rig of type \"" + rigName_ + "\"";
        return false;
    }
    if (rig_->faults().gone) {
        if (reason) *reason = "No such device";
        return false;
    }
    rig_->setLine(line->baud, line->stopBits);
    open_ = true;
    return true;
}

sim::RigSim* SimPort::rig() {
    const QString rigName = rigType_();
    if (!rig_ || rigName != rigName_) {
        rig_ = sim::RigSim::create(rigName);
        rigName_ = rigName;
    }
    return rig_.get();
}

void SimPort::close() {
    open_ = false;
}
bool SimPort::isOpen() const {
    return open_ && !(rig_ && rig_->faults().gone);
}

int SimPort::inBufferCount() {
    return gone() ? 0 : rig_->available(now());
}

void SimPort::clearInput() {
    if (!gone()) rig_->discardReadable(now());
}

QByteArray SimPort::input(int maxBytes) {
    if (gone()) return {};
    return rig_->read(now(), maxBytes <= 0 ? -1 : maxBytes);
}

void SimPort::output(const QByteArray& bytes) {
    if (!gone()) rig_->write(bytes, now());
}

int SimPort::outBufferCount() {
    return 0;
}
void SimPort::setRts(bool on) {
    rts_ = on;
}
void SimPort::setDtr(bool on) {
    dtr_ = on;
}
QString SimPort::deviceName(const QString& name) const {
    return DeviceName(name);
}

}  // namespace veldor
