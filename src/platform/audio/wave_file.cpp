#include "platform/audio/wave_file.h"

#include <QSaveFile>
#include <QtEndian>

namespace veldor {

namespace {

constexpr qint64 kRiffSizeAt = 4;
constexpr qint64 kDataSizeAt = 40;
constexpr qint64 kHeaderBytes = 44;

void PutLe32(QByteArray& out, uint32_t value) {
    char bytes[4];
    qToLittleEndian(value, bytes);
    out.append(bytes, 4);
}

void PutLe16(QByteArray& out, uint16_t value) {
    char bytes[2];
    qToLittleEndian(value, bytes);
    out.append(bytes, 2);
}

}  // namespace

QByteArray WaveFile::header(int samplesPerSecond, int bitsPerSample, int64_t dataBytes,
                            bool padded) {
    const uint16_t blockAlign = static_cast<uint16_t>(bitsPerSample / 8);
    const auto data = static_cast<uint32_t>(dataBytes);
    QByteArray h;
    h.append("RIFF");
    PutLe32(h, 36 + data + (padded ? 1 : 0));
    h.append("WAVE");
    h.append("fmt ");
    PutLe32(h, 16);
    PutLe16(h, 1);  // PCM
    PutLe16(h, 1);  // one channel
    PutLe32(h, static_cast<uint32_t>(samplesPerSecond));
    PutLe32(h, static_cast<uint32_t>(samplesPerSecond) * blockAlign);
    PutLe16(h, blockAlign);
    PutLe16(h, static_cast<uint16_t>(bitsPerSample));
    h.append("data");
    PutLe32(h, data);
    return h;
}

bool WaveFile::fail(const QFileDevice& file) {
    error_ = file.fileName() + ": " + file.errorString();
    return false;
}

bool WaveFile::create(const QString& path, int samplesPerSecond, int bitsPerSample) {
    remove();
    rate_ = samplesPerSecond;
    bits_ = bitsPerSample;
    dataBytes_ = sizedBytes_ = 0;
    error_.clear();
    file_.setFileName(path);
    if (!file_.open(QIODevice::ReadWrite | QIODevice::Truncate)) return fail(file_);
    if (file_.write(header(rate_, bits_, 0, false)) != kHeaderBytes || !file_.flush())
        return fail(file_);
    return true;
}

bool WaveFile::append(const QByteArray& samples) {
    if (file_.write(samples) != samples.size()) return fail(file_);
    dataBytes_ += samples.size();
    if (dataBytes_ - sizedBytes_ >= bytesPerSecond()) return updateSizes();
    return true;
}

bool WaveFile::updateSizes() {
    if (!file_.isOpen()) return false;
    char riff[4], data[4];
    qToLittleEndian(static_cast<uint32_t>(36 + dataBytes_), riff);
    qToLittleEndian(static_cast<uint32_t>(dataBytes_), data);
    const bool ok = file_.seek(kRiffSizeAt) && file_.write(riff, 4) == 4 &&
                    file_.seek(kDataSizeAt) && file_.write(data, 4) == 4 &&
                    file_.seek(kHeaderBytes + dataBytes_) && file_.flush();
    if (!ok) return fail(file_);
    sizedBytes_ = dataBytes_;
    return true;
}

bool WaveFile::copyTo(const QString& path) {
    if (file_.isOpen() && !updateSizes()) return false;
    QSaveFile out(path);
    if (!out.open(QIODevice::WriteOnly)) return fail(out);
    const bool padded = dataBytes_ % 2 == 1;
    out.write(header(rate_, bits_, dataBytes_, padded));
    if (file_.isOpen()) {
        QFile in(file_.fileName());
        if (!in.open(QIODevice::ReadOnly) || !in.seek(kHeaderBytes)) return fail(in);
        for (int64_t left = dataBytes_; left > 0;) {
            const QByteArray chunk = in.read(std::min<int64_t>(left, 1 << 20));
            if (chunk.isEmpty()) return fail(in);
            out.write(chunk);
            left -= chunk.size();
        }
    }
    if (padded) out.write(QByteArray(1, '\0'));
    if (!out.commit()) return fail(out);
    return true;
}

void WaveFile::remove() {
    if (!file_.isOpen()) return;
    file_.close();
    file_.remove();
    dataBytes_ = sizedBytes_ = 0;
}

}  // namespace veldor
