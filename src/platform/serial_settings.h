// The settings text of a serial port, "4800,N,8,2": speed, parity, data bits, stop bits.
#pragma once

#include <QString>

#include <optional>

namespace veldor {

struct SerialSettings {
    int baud = 4800;
    QChar parity = 'N';  // N, E, O, M or S
    int dataBits = 8;
    int stopBits = 2;
};

// nullopt when the text is not of that form.
std::optional<SerialSettings> ParseSerialSettings(const QString& text);

// The system name of a stored port: a bare number n is the n-th serial port of the system.
QString SystemPortName(const QString& stored);

// The device a stored port name stands for: "SIM" in any case, or the system name with the
// links it goes through resolved, so that "1", "/dev/ttyS0" and a link to it are one device.
QString DeviceName(const QString& stored);

}  // namespace veldor
