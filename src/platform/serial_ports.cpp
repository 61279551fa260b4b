#include "platform/serial_ports.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace veldor {

namespace {

QString FirstLine(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readLine(256)).trimmed();
}

// The product and maker the USB device above the tty reports, nearest first.
QString Description(const QString& sysRoot, const QString& tty) {
    QString dir = QFileInfo(sysRoot + "/class/tty/" + tty + "/device").canonicalFilePath();
    for (int up = 0; up < 4 && !dir.isEmpty(); ++up) {
        const QString product = FirstLine(dir + "/product");
        if (!product.isEmpty()) {
            const QString maker = FirstLine(dir + "/manufacturer");
            return product + (maker.isEmpty() ? QString() : " (" + maker + ")") + " on " + tty;
        }
        const QString interface = FirstLine(dir + "/interface");
        if (!interface.isEmpty()) return interface + " on " + tty;
        dir = QFileInfo(dir).path();
    }
    return tty;
}

}  // namespace

QList<QPair<QString, QString>> SystemSerialPorts(const QString& devRoot, const QString& sysRoot) {
    QList<QPair<QString, QString>> ports;
    const QString folder = devRoot + "/serial/by-id";
    const QFileInfoList links =
        QDir(folder).entryInfoList(QDir::Files | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    for (const QFileInfo& link : links) {
        const QString device = link.symLinkTarget();
        if (device.isEmpty()) continue;
        ports.append(
            {folder + "/" + link.fileName(), Description(sysRoot, QFileInfo(device).fileName())});
    }
    return ports;
}

}  // namespace veldor
