#include "platform/ini_store.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>

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

IniStore::IniStore(QString folder) : folder_(std::move(folder)) {}

QString IniStore::defaultFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/VELDOR";
}

QString IniStore::fileOf(const QString& appName) const {
    return folder_ + "/" + appName + ".ini";
}

IniStore::Document& IniStore::document(const QString& appName) {
    const QString id = appName.toUpper();
    auto it = cache_.find(id);
    if (it != cache_.end()) return *it;
    Document doc;
    QFile file(fileOf(appName));
    if (file.open(QIODevice::ReadOnly)) {
        const QString text = QString::fromUtf8(file.readAll());
        Section* current = nullptr;
        for (QStringView line : QStringView(text).split('\n')) {
            line = line.trimmed();
            if (line.startsWith('[') && line.endsWith(']') && line.size() >= 2) {
                const QString name = line.mid(1, line.size() - 2).trimmed().toString();
                current = nullptr;
                for (Section& s : doc)
                    if (SameKey(s.name, name)) current = &s;
                if (!current) current = &doc.emplace_back(Section{name, {}});
                continue;
            }
            const qsizetype eq = line.indexOf('=');
            if (!current || eq <= 0) continue;
            const QString key = line.left(eq).trimmed().toString();
            const QString value = UnescapeIniValue(line.mid(eq + 1).trimmed().toString());
            auto found = std::find_if(current->entries.begin(), current->entries.end(),
                                      [&](const auto& e) { return SameKey(e.first, key); });
            if (found == current->entries.end())
                current->entries.push_back({key, value});
            else
                found->second = value;
        }
    }
    return *cache_.insert(id, std::move(doc));
}

QString IniStore::get(const QString& appName, const QString& section, const QString& key,
                      const QString& defaultValue) {
    for (const Section& s : document(appName)) {
        if (!SameKey(s.name, section)) continue;
        for (const auto& [k, v] : s.entries)
            if (SameKey(k, key)) return v;
    }
    return defaultValue;
}

bool IniStore::put(Document& doc, const QString& section, const QString& key,
                   const QString& value) {
    auto s = std::find_if(doc.begin(), doc.end(),
                          [&](const Section& x) { return SameKey(x.name, section); });
    if (s == doc.end()) s = doc.insert(doc.end(), Section{section, {}});
    auto e = std::find_if(s->entries.begin(), s->entries.end(),
                          [&](const auto& x) { return SameKey(x.first, key); });
    if (e == s->entries.end()) {
        s->entries.push_back({key, value});
        return true;
    }
    // The poll writes the rig's values on every tick; most of them have not changed.
    if (e->second == value) return false;
    e->second = value;
    return true;
}

void IniStore::save(const QString& appName, const QString& section, const QString& key,
                    const QString& value) {
    Document& doc = document(appName);
    if (put(doc, section, key, value)) write(appName, doc);
}

void IniStore::saveAll(const QString& appName, const QString& section,
                       const QList<QPair<QString, QString>>& values) {
    Document& doc = document(appName);
    bool changed = false;
    for (const auto& [key, value] : values) changed = put(doc, section, key, value) || changed;
    if (changed) write(appName, doc);
}

QList<QPair<QString, QString>> IniStore::getAll(const QString& appName, const QString& section) {
    QList<QPair<QString, QString>> all;
    for (const Section& s : document(appName))
        if (SameKey(s.name, section))
            for (const auto& entry : s.entries) all.append(entry);
    return all;
}

void IniStore::write(const QString& appName, const Document& doc) {
    QString text;
    for (const Section& s : doc) {
        text += "[" + s.name + "]\n";
        for (const auto& [k, v] : s.entries) text += k + "=" + EscapeIniValue(v) + "\n";
        text += "\n";
    }
    QDir().mkpath(folder_);
    // A temporary file renamed over the old one: a crash never leaves a torn file.
    QSaveFile file(fileOf(appName));
    if (!file.open(QIODevice::WriteOnly)) {
        qWarning("VELDOR: cannot write %s: %s", qPrintable(file.fileName()),
                 qPrintable(file.errorString()));
        return;
    }
    file.write(text.toUtf8());
    if (!file.commit())
        qWarning("VELDOR: cannot write %s: %s", qPrintable(file.fileName()),
                 qPrintable(file.errorString()));
    ++writes_;
}

}  // namespace veldor
