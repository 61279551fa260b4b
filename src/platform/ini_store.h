// The settings store: one INI file per application name, keys case-insensitive, values
// text, every write atomic.
#pragma once

#include "link/platform.h"

#include <QHash>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace veldor {

// The sections and keys of one settings file in memory: keys case-insensitive, kept in the
// order first written.
class IniDocument {
  public:
    // Any bytes parse: UTF-16 (by its mark or its zero bytes), UTF-8, or else Latin-1; lines
    // that are neither a section nor a key are passed over.
    static IniDocument parse(const QByteArray& bytes);
    // The text of the file, in UTF-8.
    QByteArray text() const;
    // The key's value, or nullptr; the section's name is case-insensitive too.
    const QString* find(const QString& section, const QString& key) const;
    QList<QPair<QString, QString>> all(const QString& section) const;
    // Puts the value in; false when it was there already.
    bool put(const QString& section, const QString& key, const QString& value);

  private:
    struct Section {
        QString name;
        std::vector<QPair<QString, QString>> entries;  // key as first written, value
        QHash<QString, size_t> index;                  // upper-cased key to its entry
    };
    static bool put(Section& s, const QString& key, const QString& value);
    std::vector<Section> sections_;
};

class IniStore : public SettingsStore {
  public:
    explicit IniStore(QString folder);
    // Waits for the writes given to the writer, if any.
    ~IniStore() override;

    // <config location>/VELDOR, so that $XDG_CONFIG_HOME moves it.
    static QString defaultFolder();
    QString fileOf(const QString& appName) const;

    QString get(const QString& appName, const QString& section, const QString& key,
                const QString& defaultValue) override;
    void save(const QString& appName, const QString& section, const QString& key,
              const QString& value) override;
    // One write for them all, and none when no value changes.
    void saveAll(const QString& appName, const QString& section,
                 const QList<QPair<QString, QString>>& values) override;
    QList<QPair<QString, QString>> getAll(const QString& appName, const QString& section) override;

    // How many times the file was written (a save of an unchanged value writes nothing).
    int writes() {
        flush();
        return writes_;
    }

    // With a writer, a save changes the store at once and hands the file's new text to a thread
    // of its own, which writes the newest text of each file as soon as it can: the caller (the
    // poll tick, which records the rig at every step of a scan) never waits for the disk. A
    // failed write is told at the next save or flush.
    void startWriter();
    // Waits until every text given to the writer is on the disk, and tells a failure.
    void flush();

    // Where the store tells the operator what it could not read or write (the messages
    // window). A failed write is told once, until a write succeeds again.
    std::function<void(const QString&)> onTrouble;

    // A larger settings file is not read: no settings file grows this big.
    static constexpr qint64 kSizeLimit = 16 * 1024 * 1024;

  private:
    struct Document {
        IniDocument values;
        // The file is there but could not be read: writing would lose what it holds.
        bool unreadable = false;
    };

    Document& document(const QString& appName);
    void write(const QString& appName, const Document& doc);
    // Writes the text to the file, atomically; the failure's words, or an empty text.
    static QString writeFile(const QString& folder, const QString& path, const QByteArray& bytes);
    // The outcome of one write.
    void noteWrite(const QString& path, const QString& failure);
    Document load(const QString& path);
    void tell(const QString& text);
    void tellWriteFailure(const QString& text);

    QString folder_;
    QHash<QString, Document> cache_;  // by upper-cased application name
    int writes_ = 0;
    bool writeFailureTold_ = false;
    struct Writer;
    std::unique_ptr<Writer> writer_;
};

// The text of a document and back; any bytes parse, lines that are neither a section nor a
// key are passed over.
QString EscapeIniValue(const QString& value);
QString UnescapeIniValue(const QString& text);

}  // namespace veldor
