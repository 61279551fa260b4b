#include "platform/serial_settings.h"

#include <QFileInfo>
#include <QStringList>

namespace veldor {

std::optional<SerialSettings> ParseSerialSettings(const QString& text) {
    const QStringList parts = text.split(',');
    if (parts.size() != 4) return std::nullopt;
    bool ok[3] = {};
    SerialSettings s;
    s.baud = parts[0].trimmed().toInt(&ok[0]);
    const QString parity = parts[1].trimmed().toUpper();
    s.dataBits = parts[2].trimmed().toInt(&ok[1]);
    s.stopBits = parts[3].trimmed().toInt(&ok[2]);
    if (!ok[0] || !ok[1] || !ok[2] || s.baud <= 0 || parity.size() != 1 ||
        !QString("NEOMS").contains(parity) || s.dataBits < 5 || s.dataBits > 8 ||
        (s.stopBits != 1 && s.stopBits != 2))
        return std::nullopt;
    s.parity = parity[0];
    return s;
}

QString SystemPortName(const QString& stored) {
    bool isNumber = false;
    const int n = stored.trimmed().toInt(&isNumber);
    if (!isNumber || n < 1) return stored;
#ifdef Q_OS_WIN
    return QString("COM%1").arg(n);
#else
    return QString("/dev/ttyS%1").arg(n - 1);
#endif
}

QString DeviceName(const QString& stored) {
    if (stored.trimmed().compare("SIM", Qt::CaseInsensitive) == 0) return "SIM";
    const QString name = SystemPortName(stored.trimmed());
    const QString device = QFileInfo(name).canonicalFilePath();  // empty when it does not exist
    return device.isEmpty() ? name : device;
}

}  // namespace veldor
