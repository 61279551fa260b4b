// The serial ports the system has, by the stable names udev gives them.
#pragma once

#include <QList>
#include <QPair>
#include <QString>

namespace veldor {

// Each port under devRoot/serial/by-id, by that name, with the description the system gives
// of its device in sysRoot/class/tty ("FT232R USB UART (FTDI) on ttyUSB0"); sorted by name.
QList<QPair<QString, QString>> SystemSerialPorts(const QString& devRoot = "/dev",
                                                 const QString& sysRoot = "/sys");

}  // namespace veldor
