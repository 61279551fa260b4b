#include "platform/audio/qt_audio_recorder.h"

#include <QAudioSource>
#include <QDateTime>
#include <QDir>
#include <QMediaDevices>
#include <QStandardPaths>
#include <QSysInfo>

namespace veldor {

namespace {

// Recording in the format the element was given, or else in this one.
QAudioFormat DefaultFormat() {
    QAudioFormat format;
    format.setSampleRate(11025);
    format.setChannelCount(1);
    format.setSampleFormat(QAudioFormat::UInt8);
    return format;
}

}  // namespace

QtAudioRecorder::QtAudioRecorder(QString takeFolder)
    : folder_(std::move(takeFolder)), format_(DefaultFormat()) {}

QtAudioRecorder::~QtAudioRecorder() {
    close();
}

QString QtAudioRecorder::defaultTakeFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/VELDOR/takes";
}

int QtAudioRecorder::fail(Error error, const QString& text) {
    lastError_ = text;
    return error;
}

QStringList QtAudioRecorder::inputDevices() {
    QStringList names;
    for (const QAudioDevice& device : QMediaDevices::audioInputs())
        names.append(device.description());
    return names;
}

void QtAudioRecorder::open() {
    close();
    lastError_.clear();
    mode_ = AudioMode::Open;
}

int QtAudioRecorder::setFormat(const WaveFormat& wave) {
    lastError_.clear();
    if (mode_ == AudioMode::Closed) return fail(NoElement, "No recording has been prepared");
    const QList<QAudioDevice> devices = QMediaDevices::audioInputs();
    if (wave.device < 0 || wave.device >= devices.size())
        return fail(NoDevice, "The sound input chosen is not there");
    QAudioFormat format;
    format.setSampleRate(wave.samplesPerSecond);
    format.setChannelCount(wave.channels);
    format.setSampleFormat(wave.bitsPerSample == 8 ? QAudioFormat::UInt8 : QAudioFormat::Int16);
    const QAudioDevice& device = devices[wave.device];
    if ((wave.bitsPerSample != 8 && wave.bitsPerSample != 16) || !device.isFormatSupported(format))
        return fail(BadFormat, QString("%1 cannot record %2 Hz in %3 bits")
                                   .arg(device.description())
                                   .arg(wave.samplesPerSecond)
                                   .arg(wave.bitsPerSample));
    if (take_.isOpen() && take_.dataBytes() > 0 && format != format_)
        return fail(FormatInTake, "The take holds sound of another format");
    device_ = device;
    format_ = format;
    return 0;
}

bool QtAudioRecorder::startTake() {
    if (take_.isOpen()) return true;
    if (!QDir().mkpath(folder_)) {
        fail(FileError, "Cannot make the folder " + folder_);
        return false;
    }
    const QString stem =
        folder_ + "/VELDOR take " + QDateTime::currentDateTime().toString("yyyy-MM-dd HHmmss");
    QString path = stem + ".wav";
    for (int n = 2; QFile::exists(path); ++n) path = QString("%1 %2.wav").arg(stem).arg(n);
    if (!take_.create(path, format_.sampleRate(), format_.bytesPerSample() * 8)) {
        fail(FileError, take_.errorText());
        return false;
    }
    return true;
}

bool QtAudioRecorder::record() {
    lastError_.clear();
    switch (mode_) {
        case AudioMode::Closed:
            fail(NoElement, "No recording has been prepared");
            return false;
        case AudioMode::Recording:
            return true;
        case AudioMode::Paused:
            pause();
            return true;
        case AudioMode::Open:
        case AudioMode::Stopped:
            break;
    }
    if (device_.isNull()) device_ = QMediaDevices::defaultAudioInput();
    if (device_.isNull()) {
        fail(NoDevice, "There is no sound input to record from");
        return false;
    }
    if (!startTake()) return false;
    source_ = std::make_unique<QAudioSource>(device_, format_);
    input_ = source_->start();
    if (!input_ || source_->error() != QAudio::NoError) {
        endSource();
        fail(DeviceError, device_.description() + " cannot be opened for recording");
        return false;
    }
    connect(input_, &QIODevice::readyRead, this, &QtAudioRecorder::takeSound);
    connect(source_.get(), &QAudioSource::stateChanged, this, [this] {
        if (source_->error() == QAudio::NoError) return;
        // Not inside the source's own signal: stopping deletes it.
        QMetaObject::invokeMethod(
            this,
            [this] {
                stop();
                fail(DeviceError, device_.description() + " stopped delivering sound");
            },
            Qt::QueuedConnection);
    });
    mode_ = AudioMode::Recording;
    return true;
}

void QtAudioRecorder::takeSound() {
    if (!input_) return;
    QByteArray sound = input_->readAll();
    if (sound.isEmpty() || mode_ != AudioMode::Recording) return;
    if constexpr (QSysInfo::ByteOrder == QSysInfo::BigEndian) {
        if (format_.sampleFormat() == QAudioFormat::Int16)
            for (qsizetype i = 0; i + 1 < sound.size(); i += 2) std::swap(sound[i], sound[i + 1]);
    }
    const int64_t room = WaveFile::kMaxDataBytes - take_.dataBytes();
    const bool full = sound.size() >= room;
    if (full) sound.truncate(room - room % format_.bytesPerFrame());
    if (!take_.append(sound)) {
        stop();
        fail(FileError, take_.errorText());
    } else if (full) {
        stop();
        fail(TakeFull, "The take holds all that a wave file can");
    }
}

void QtAudioRecorder::endSource() {
    if (!source_) return;
    source_->disconnect(this);
    if (input_) input_->disconnect(this);
    source_->stop();
    source_.reset();
    input_ = nullptr;
}

// The input goes on running while held, and what it brings is dropped: going on again is
// at once, with none of the lead some sources hand over when a stream starts anew.
void QtAudioRecorder::pause() {
    if (mode_ == AudioMode::Recording) {
        takeSound();
        take_.updateSizes();
        mode_ = AudioMode::Paused;
    } else if (mode_ == AudioMode::Paused) {
        if (input_) input_->readAll();
        mode_ = AudioMode::Recording;
    }
}

void QtAudioRecorder::stop() {
    if (mode_ != AudioMode::Recording && mode_ != AudioMode::Paused) return;
    if (mode_ == AudioMode::Recording) takeSound();
    endSource();
    take_.updateSizes();
    mode_ = AudioMode::Stopped;
}

int QtAudioRecorder::save(const QString& path) {
    lastError_.clear();
    if (mode_ == AudioMode::Closed) return fail(NoElement, "No recording has been prepared");
    stop();
    if (!startTake()) return FileError;
    if (!take_.copyTo(path)) return fail(FileError, take_.errorText());
    return 0;
}

void QtAudioRecorder::close() {
    endSource();
    take_.remove();
    device_ = {};
    format_ = DefaultFormat();
    mode_ = AudioMode::Closed;
}

int64_t QtAudioRecorder::takeMilliseconds() const {
    const int perSecond = take_.bytesPerSecond();
    return perSecond > 0 ? take_.dataBytes() * 1000 / perSecond : 0;
}

}  // namespace veldor
