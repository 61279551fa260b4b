// A take kept on disk as a RIFF/WAVE file (PCM, one channel) while it grows: the sizes in its
// header are brought up to date at least once a second of sound, so a take cut off by a crash
// still opens in other programs, up to its last second.
#pragma once

#include <QFile>
#include <QString>

#include <cstdint>

namespace veldor {

class WaveFile {
  public:
    // The most sound data a wave file can count.
    static constexpr int64_t kMaxDataBytes = 0xFFFFFFFFLL - 36 - 1;

    // Creates the file anew, with the header of an empty take.
    bool create(const QString& path, int samplesPerSecond, int bitsPerSample);
    // Adds sound at the end of the take.
    bool append(const QByteArray& samples);
    // Writes the sizes into the header and hands everything written to the system.
    bool updateSizes();
    // Writes a copy of the take to path, replacing any file there at once and whole, with the
    // pad byte that an odd length of data needs.
    bool copyTo(const QString& path);
    // Closes and deletes the take.
    void remove();

    bool isOpen() const { return file_.isOpen(); }
    int64_t dataBytes() const { return dataBytes_; }
    int bytesPerSecond() const { return rate_ * (bits_ / 8); }
    QString errorText() const { return error_; }

    // The 44 bytes in front of the sound data.
    static QByteArray header(int samplesPerSecond, int bitsPerSample, int64_t dataBytes,
                             bool padded);

  private:
    bool fail(const QFileDevice& file);
    QFile file_;
    int rate_ = 11025;
    int bits_ = 8;
    int64_t dataBytes_ = 0;
    int64_t sizedBytes_ = 0;  // the data size the header tells
    QString error_;
};

}  // namespace veldor
