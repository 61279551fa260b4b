// The fields of a wave file's header, read by offset as the RIFF/WAVE layout gives them.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QtEndian>

namespace veldor::test {

struct WaveHeader {
    QByteArray riff, wave, fmt, data;
    uint32_t riffSize = 0, fmtSize = 0, dataSize = 0, rate = 0, byteRate = 0;
    uint16_t format = 0, channels = 0, blockAlign = 0, bits = 0;
    QByteArray sound;  // what follows the header
};

inline WaveHeader ReadWave(const QString& path) {
    QFile file(path);
    WaveHeader h;
    if (!file.open(QIODevice::ReadOnly)) return h;
    const QByteArray b = file.readAll();
    if (b.size() < 44) return h;
    auto u32 = [&b](int at) { return qFromLittleEndian<uint32_t>(b.constData() + at); };
    auto u16 = [&b](int at) { return qFromLittleEndian<uint16_t>(b.constData() + at); };
    h.riff = b.mid(0, 4);
    h.riffSize = u32(4);
    h.wave = b.mid(8, 4);
    h.fmt = b.mid(12, 4);
    h.fmtSize = u32(16);
    h.format = u16(20);
    h.channels = u16(22);
    h.rate = u32(24);
    h.byteRate = u32(28);
    h.blockAlign = u16(32);
    h.bits = u16(34);
    h.data = b.mid(36, 4);
    h.dataSize = u32(40);
    h.sound = b.mid(44);
    return h;
}

}  // namespace veldor::test
