#include "platform/ini_store.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringDecoder>

#include <cerrno>
#include <condition_variable>
#include <map>
#include <mutex>
#include <thread>

#include <unistd.h>

namespace veldor {

namespace {

bool SameKey(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

}  // namespace

QString EscapeIniValue(const QString& value) {
    QString out;
    out.reserve(value.size());
    for (qsizetype i = 0; i < value.size(); ++i) {
        const QChar c = value[i];
        const bool edge = i == 0 || i == value.size() - 1;
        if (c == '\\')
            out += "\\\\";
        else if (c == '\n')
            out += "\\n";
        else if (c == '\r')
            out += "\\r";
        else if (c == '\t')
            out += "\\t";
        else if (c == ' ' && edge)
            out += "\\s";  // edge blanks survive the reader's trim
        else
            out += c;
    }
    return out;
}

QString UnescapeIniValue(const QString& text) {
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            out += text[i];
            continue;
        }
        const QChar next = text[++i];
        if (next == 'n')
            out += '\n';
        else if (next == 'r')
            out += '\r';
        else if (next == 't')
            out += '\t';
        else if (next == 's')
            out += ' ';
        else
            out += next;
    }
    return out;
}

// The writer's thread and what it shares with the store: the newest text of each file not yet
// written, and the outcome of each write done.
struct IniStore::Writer {
    std::mutex lock;
    std::condition_variable changed;
    std::map<QString, QByteArray> waiting;          // by file
    std::vector<std::pair<QString, QString>> done;  // file and failure, in order
    bool writing = false;
    bool stop = false;
    std::thread thread;

    explicit Writer(const QString& folder) {
        thread = std::thread([this, folder] {
            std::unique_lock<std::mutex> held(lock);
            for (;;) {
                changed.wait(held, [this] { return stop || !waiting.empty(); });
                if (waiting.empty()) return;
                const auto next = waiting.begin();
                const QString path = next->first;
                const QByteArray bytes = std::move(next->second);
                waiting.erase(next);
                writing = true;
                held.unlock();
                const QString failure = writeFile(folder, path, bytes);
                held.lock();
                writing = false;
                done.emplace_back(path, failure);
                changed.notify_all();
            }
        });
    }
    ~Writer() {
        {
            std::lock_guard<std::mutex> held(lock);
            stop = true;
        }
        changed.notify_all();
        thread.join();  // after the texts still waiting are written
    }
    // The outcomes so far; with wait, once every text given is written.
    std::vector<std::pair<QString, QString>> outcomes(bool wait) {
        std::unique_lock<std::mutex> held(lock);
        if (wait) changed.wait(held, [this] { return waiting.empty() && !writing; });
        return std::exchange(done, {});
    }
};

IniStore::IniStore(QString folder) : folder_(std::move(folder)) {}

IniStore::~IniStore() {
    // Whoever was told of trouble may be gone already: a last failure goes to the log.
    onTrouble = nullptr;
    flush();
}

void IniStore::startWriter() {
    if (!writer_) writer_ = std::make_unique<Writer>(folder_);
}

void IniStore::flush() {
    if (!writer_) return;
    for (const auto& [path, failure] : writer_->outcomes(true)) noteWrite(path, failure);
}

QString IniStore::defaultFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/VELDOR";
}

QString IniStore::fileOf(const QString& appName) const {
    return folder_ + "/" + appName + ".ini";
}

namespace {

// The settings file's text in whatever form an editor left it: UTF-16 by its byte-order mark
// or by its zero bytes, UTF-8 when it is valid UTF-8, and Latin-1 otherwise (every byte is a
// Latin-1 character, so nothing is lost).
QString DecodeSettingsText(const QByteArray& data) {
    if (auto bom = QStringConverter::encodingForData(data)) {
        QStringDecoder decoder(*bom);
        return decoder.decode(data);
    }
    if (data.size() >= 2 && (data[0] == '\0') != (data[1] == '\0')) {
        QStringDecoder decoder(data[0] == '\0' ? QStringConverter::Utf16BE
                                               : QStringConverter::Utf16LE);
        return decoder.decode(data);
    }
    QStringDecoder utf8(QStringConverter::Utf8);
    const QString text = utf8.decode(data);
    return utf8.hasError() ? QString::fromLatin1(data) : text;
}

// A temporary file left by a write that was cut off (the program killed in mid-write): the
// settings file's name, a dot and six characters, and a minute old, so that a write of
// another instance in progress is left alone.
void RemoveLeftoverTemporaries(const QString& path) {
    const QFileInfo settings(path);
    const QDir folder = settings.dir();
    const QDateTime aMinuteAgo = QDateTime::currentDateTimeUtc().addSecs(-60);
    for (const QFileInfo& f :
         folder.entryInfoList({settings.fileName() + ".??????"}, QDir::Files | QDir::Hidden))
        if (!f.isSymLink() && f.lastModified().toUTC() < aMinuteAgo) QFile::remove(f.filePath());
}

}  // namespace

IniDocument IniDocument::parse(const QByteArray& bytes) {
    IniDocument doc;
    const QString text = DecodeSettingsText(bytes);
    Section* current = nullptr;
    QHash<QString, size_t> sectionIndex;
    for (QStringView line : QStringView(text).split('\n')) {
        line = line.trimmed();
        if (line.startsWith('[') && line.endsWith(']') && line.size() >= 2) {
            const QString name = line.mid(1, line.size() - 2).trimmed().toString();
            const QString id = name.toUpper();
            auto found = sectionIndex.constFind(id);
            if (found == sectionIndex.constEnd()) {
                found = sectionIndex.insert(id, doc.sections_.size());
                doc.sections_.push_back(Section{name, {}, {}});
            }
            current = &doc.sections_[*found];
            continue;
        }
        const qsizetype eq = line.indexOf('=');
        if (!current || eq <= 0) continue;
        const QString key = line.left(eq).trimmed().toString();
        const QString value = UnescapeIniValue(line.mid(eq + 1).trimmed().toString());
        put(*current, key, value);
    }
    return doc;
}

QByteArray IniDocument::text() const {
    QString text;
    for (const Section& s : sections_) {
        text += "[" + s.name + "]\n";
        for (const auto& [k, v] : s.entries) text += k + "=" + EscapeIniValue(v) + "\n";
        text += "\n";
    }
    return text.toUtf8();
}

const QString* IniDocument::find(const QString& section, const QString& key) const {
    for (const Section& s : sections_) {
        if (!SameKey(s.name, section)) continue;
        const auto found = s.index.constFind(key.toUpper());
        if (found != s.index.constEnd()) return &s.entries[*found].second;
    }
    return nullptr;
}

QList<QPair<QString, QString>> IniDocument::all(const QString& section) const {
    QList<QPair<QString, QString>> all;
    for (const Section& s : sections_)
        if (SameKey(s.name, section))
            for (const auto& entry : s.entries) all.append(entry);
    return all;
}

bool IniDocument::put(Section& s, const QString& key, const QString& value) {
    const QString id = key.toUpper();
    const auto found = s.index.constFind(id);
    if (found == s.index.constEnd()) {
        s.index.insert(id, s.entries.size());
        s.entries.push_back({key, value});
        return true;
    }
    QString& stored = s.entries[*found].second;
    // The poll writes the rig's values on every tick; most of them have not changed.
    if (stored == value) return false;
    stored = value;
    return true;
}

bool IniDocument::put(const QString& section, const QString& key, const QString& value) {
    auto s = std::find_if(sections_.begin(), sections_.end(),
                          [&](const Section& x) { return SameKey(x.name, section); });
    if (s == sections_.end()) s = sections_.insert(sections_.end(), Section{section, {}, {}});
    return put(*s, key, value);
}

void IniStore::tell(const QString& text) {
    if (onTrouble)
        onTrouble(text);
    else
        qWarning("VELDOR: %s", qPrintable(text));
}

void IniStore::tellWriteFailure(const QString& text) {
    if (writeFailureTold_) return;
    writeFailureTold_ = true;
    tell(text);
}

// Only a regular file of a sane size is read: a named pipe in its place would hang the start,
// a link to a device would be read without end.
IniStore::Document IniStore::load(const QString& path) {
    Document doc;
    RemoveLeftoverTemporaries(path);
    const QFileInfo info(path);
    if (!info.exists() && !info.isSymLink()) return doc;
    QString why;
    QByteArray data;
    if (!info.exists())
        why = "it is a link to nothing";
    else if (!info.isFile())
        why = "it is not a regular file";
    else if (info.size() > kSizeLimit)
        why = QString("it is larger than %1 MB").arg(kSizeLimit / (1024 * 1024));
    if (why.isEmpty()) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly)) {
            // In pieces: a read of the whole limit at once would take 16 MB for every file.
            while (data.size() <= kSizeLimit) {
                const QByteArray piece = file.read(64 * 1024);
                if (piece.isEmpty()) break;
                data += piece;
            }
            if (data.size() > kSizeLimit) why = "it is too large";
        } else {
            why = file.errorString();
        }
    }
    if (!why.isEmpty()) {
        doc.unreadable = true;
        tell("The settings file " + path + " cannot be read (" + why +
             "): VELDOR runs on its defaults and will not write over it.");
        return doc;
    }
    doc.values = IniDocument::parse(data);
    return doc;
}

IniStore::Document& IniStore::document(const QString& appName) {
    const QString id = appName.toUpper();
    auto it = cache_.find(id);
    if (it != cache_.end()) return *it;
    return *cache_.insert(id, load(fileOf(appName)));
}

QString IniStore::get(const QString& appName, const QString& section, const QString& key,
                      const QString& defaultValue) {
    const QString* value = document(appName).values.find(section, key);
    return value ? *value : defaultValue;
}

void IniStore::save(const QString& appName, const QString& section, const QString& key,
                    const QString& value) {
    Document& doc = document(appName);
    if (doc.values.put(section, key, value)) write(appName, doc);
}

void IniStore::saveAll(const QString& appName, const QString& section,
                       const QList<QPair<QString, QString>>& values) {
    Document& doc = document(appName);
    bool changed = false;
    for (const auto& [key, value] : values)
        changed = doc.values.put(section, key, value) || changed;
    if (changed) write(appName, doc);
}

QList<QPair<QString, QString>> IniStore::getAll(const QString& appName, const QString& section) {
    return document(appName).values.all(section);
}

// A temporary file renamed over the old one, and only when every byte reached the disk: a
// crash or a full disk never leaves a torn or empty file, and the old one stays.
void IniStore::write(const QString& appName, const Document& doc) {
    const QString path = fileOf(appName);
    if (doc.unreadable) {
        tellWriteFailure("Settings are not saved: " + path + " could not be read.");
        return;
    }
    const QByteArray bytes = doc.values.text();
    if (!writer_) return noteWrite(path, writeFile(folder_, path, bytes));
    {
        std::lock_guard<std::mutex> held(writer_->lock);
        writer_->waiting[path] = bytes;
    }
    writer_->changed.notify_all();
    for (const auto& [file, failure] : writer_->outcomes(false)) noteWrite(file, failure);
}

QString IniStore::writeFile(const QString& folder, const QString& path, const QByteArray& bytes) {
    QDir().mkpath(folder);
    QSaveFile file(path);
    QString failure;
    if (!file.open(QIODevice::WriteOnly)) {
        failure = file.errorString();
    } else if (file.write(bytes) != bytes.size() || !file.flush() || ::fsync(file.handle()) != 0) {
        failure =
            file.error() != QFileDevice::NoError ? file.errorString() : qt_error_string(errno);
        file.cancelWriting();
        file.commit();  // removes the temporary file
    } else if (!file.commit()) {
        failure = file.errorString();
    }
    return failure;
}

void IniStore::noteWrite(const QString& path, const QString& failure) {
    if (!failure.isEmpty()) {
        tellWriteFailure("Settings could not be saved to " + path + " (" + failure +
                         "); the file keeps its earlier values.");
        return;
    }
    writeFailureTold_ = false;
    ++writes_;
}

}  // namespace veldor
