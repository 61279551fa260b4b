// A wave file read back whole, its header's fields read by offset as the RIFF/WAVE layout
// gives them.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QtEndian>

namespace veldor::test {

struct Wave {
    explicit Wave(const QString& path) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly)) bytes = file.readAll();
    }
    uint32_t u32(int at) const {
        return bytes.size() < at + 4 ? 0 : qFromLittleEndian<uint32_t>(bytes.constData() + at);
    }
    uint16_t u16(int at) const {
        return bytes.size() < at + 2 ? 0 : qFromLittleEndian<uint16_t>(bytes.constData() + at);
    }
    uint32_t rate() const { return u32(24); }
    uint16_t bits() const { return u16(34); }
    uint32_t dataSize() const { return u32(40); }
    QByteArray sound() const { return bytes.mid(44); }
    QByteArray bytes;
};

}  // namespace veldor::test
