#include "platform/launcher.h"

#include <QProcess>

namespace veldor {

std::optional<QStringList> SplitCommandLine(const QString& commandLine) {
    QStringList words;
    QString word;
    bool inWord = false;  // a word has begun, though it may still be empty ("")
    const qsizetype end = commandLine.size();
    for (qsizetype i = 0; i < end; ++i) {
        const QChar ch = commandLine[i];
        if (ch == ' ' || ch == '\t' || ch == '\n') {
            if (inWord) words.append(word);
            word.clear();
            inWord = false;
            continue;
        }
        inWord = true;
        if (ch == '\\') {
            if (i + 1 == end) {
                word += ch;
            } else if (commandLine[++i] != '\n') {  // a backslash and line end join lines
                word += commandLine[i];
            }
        } else if (ch == '\'') {
            const qsizetype close = commandLine.indexOf('\'', i + 1);
            if (close < 0) return std::nullopt;
            word += commandLine.mid(i + 1, close - i - 1);
            i = close;
        } else if (ch == '"') {
            for (++i;; ++i) {
                if (i == end) return std::nullopt;
                const QChar q = commandLine[i];
                if (q == '"') break;
                if (q == '\\' && i + 1 < end && QString("$`\"\\\n").contains(commandLine[i + 1])) {
                    if (commandLine[++i] != '\n') word += commandLine[i];
                } else {
                    word += q;
                }
            }
        } else {
            word += ch;
        }
    }
    if (inWord) words.append(word);
    return words;
}

bool ProcessLauncher::start(const QString& commandLine) {
    const std::optional<QStringList> words = SplitCommandLine(commandLine);
    if (!words || words->isEmpty()) return false;
    return QProcess::startDetached(words->constFirst(), words->mid(1));
}

}  // namespace veldor
