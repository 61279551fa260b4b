// The recorder's sound card on Qt Multimedia: the system's input devices, recorded through a
// QAudioSource into a take that is written to disk as it comes in.
#pragma once

#include "link/platform.h"
#include "platform/audio/wave_file.h"

#include <QAudioDevice>
#include <QAudioFormat>
#include <QObject>

#include <memory>

class QAudioSource;
class QIODevice;

namespace veldor {

class QtAudioRecorder : public QObject, public AudioRecorder {
  public:
    // Takes are kept in takeFolder until they are saved or dropped.
    explicit QtAudioRecorder(QString takeFolder = defaultTakeFolder());
    ~QtAudioRecorder() override;

    // <data>/VELDOR/takes: where a take cut off by a crash is found again.
    static QString defaultTakeFolder();

    QStringList inputDevices() override;
    void open() override;
    int setFormat(const WaveFormat& format) override;
    bool record() override;
    void pause() override;
    void stop() override;
    int save(const QString& path) override;
    void close() override;
    AudioMode mode() const override { return mode_; }
    int64_t takeMilliseconds() const override;
    QString lastErrorText() const override { return lastError_; }

    // Error numbers of this back end.
    enum Error {
        NoElement = 1,     // nothing prepared
        NoDevice = 2,      // the chosen input is not there
        BadFormat = 3,     // the input cannot record in the format
        FormatInTake = 4,  // the take already holds sound of another format
        FileError = 5,     // the take or the saved file could not be written
        TakeFull = 6,      // the take holds all a wave file can count
        DeviceError = 7,   // the input stopped delivering sound
    };

  private:
    int fail(Error error, const QString& text);
    bool startTake();
    void takeSound();
    void endSource();

    QString folder_;
    AudioMode mode_ = AudioMode::Closed;
    QAudioDevice device_;
    QAudioFormat format_;
    std::unique_ptr<QAudioSource> source_;
    QIODevice* input_ = nullptr;
    WaveFile take_;
    QString lastError_;
};

}  // namespace veldor
