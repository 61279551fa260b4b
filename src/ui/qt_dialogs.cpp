#include "ui/qt_dialogs.h"

#include "platform/serial_ports.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QInputDialog>
#include <QLocale>
#include <QMainWindow>
#include <QMessageBox>
#include <QScreen>
#include <QStatusBar>
#include <QUrl>

#include <cstdlib>

namespace veldor {

namespace {
constexpr int kTwipsPerPixel = 15;
}

MsgResult QtDialogs::messageBox(const QString& text, const QString& title, MsgButtons buttons,
                                MsgIcon icon) {
    QMessageBox box(parent ? parent() : nullptr);
    box.setWindowTitle(title);
    box.setText(QString(text).replace("\r\n", "\n"));
    switch (icon) {
        case MsgIcon::Information:
            box.setIcon(QMessageBox::Information);
            break;
        case MsgIcon::Question:
            box.setIcon(QMessageBox::Question);
            break;
        case MsgIcon::Exclamation:
            box.setIcon(QMessageBox::Warning);
            break;
        case MsgIcon::Critical:
            box.setIcon(QMessageBox::Critical);
            break;
        case MsgIcon::None:
            break;
    }
    switch (buttons) {
        case MsgButtons::OK:
            box.setStandardButtons(QMessageBox::Ok);
            break;
        case MsgButtons::OKCancel:
            box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
            break;
        case MsgButtons::YesNo:
            box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
            break;
        case MsgButtons::YesNoCancel:
            box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
            break;
        case MsgButtons::RetryCancel:
            box.setStandardButtons(QMessageBox::Retry | QMessageBox::Cancel);
            break;
    }
    switch (box.exec()) {
        case QMessageBox::Cancel:
            return MsgResult::Cancel;
        case QMessageBox::Yes:
            return MsgResult::Yes;
        case QMessageBox::No:
            return MsgResult::No;
        case QMessageBox::Retry:
            return MsgResult::Retry;
        default:
            return MsgResult::OK;
    }
}

bool QtDialogs::inputBox(const QString& prompt, const QString& title, QString* text) {
    bool ok = false;
    const QString answer = QInputDialog::getText(parent ? parent() : nullptr, title, prompt,
                                                 QLineEdit::Normal, text ? *text : QString(), &ok);
    if (ok && text) *text = answer;
    return ok;
}

QString QtDialogs::browseForFolder(const QString& prompt) {
    return QFileDialog::getExistingDirectory(parent ? parent() : nullptr, prompt, QDir::homePath());
}

namespace {

// A file dialog of the program's own kind: the same on every desktop, its filter given as
// description and pattern pairs separated by "|" ("Wave Files (*.wav)|*.wav|..."), each
// description naming its patterns already.
QString FileName(QWidget* parent, QFileDialog::AcceptMode mode, const QString& title,
                 const QString& folder, const QString& filter, int filterIndex) {
    const QStringList parts = filter.split('|');
    QStringList filters;
    for (qsizetype i = 0; i < parts.size(); i += 2) filters.append(parts[i]);
    QFileDialog dialog(parent, title, folder);
    dialog.setObjectName("CommonDialog1");
    dialog.setAcceptMode(mode);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    // The program tells of a missing file itself.
    if (mode == QFileDialog::AcceptOpen) dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(filters);
    if (filterIndex >= 1 && filterIndex <= filters.size())
        dialog.selectNameFilter(filters[filterIndex - 1]);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return dialog.selectedFiles().constFirst();
}

}  // namespace

QString QtDialogs::saveFileName(const QString& title, const QString& folder, const QString& filter,
                                int filterIndex) {
    return FileName(parent ? parent() : nullptr, QFileDialog::AcceptSave, title, folder, filter,
                    filterIndex);
}

QString QtDialogs::openFileName(const QString& title, const QString& folder, const QString& filter,
                                int filterIndex) {
    return FileName(parent ? parent() : nullptr, QFileDialog::AcceptOpen, title, folder, filter,
                    filterIndex);
}

void QtDialogs::notice(const QString& text, const QString& title) {
    // On the main window's status line: no box to answer, and nothing held up.
    if (auto* main = qobject_cast<QMainWindow*>(parent ? parent() : nullptr)) {
        main->statusBar()->showMessage(text, 30000);
        return;
    }
    messageBox(text, title, MsgButtons::OK, MsgIcon::Information);
}

QList<QPair<QString, QString>> QtSystem::serialPorts() {
    return SystemSerialPorts();
}

int QtSystem::logicalDpi() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? qRound(screen->logicalDotsPerInchY()) : 96;
}

bool QtSystem::openDocument(const QString& pathOrAddress) {
    const QUrl url = QFileInfo(pathOrAddress).isAbsolute() ? QUrl::fromLocalFile(pathOrAddress)
                                                           : QUrl(pathOrAddress);
    return QDesktopServices::openUrl(url);
}

void QtSystem::setClipboardText(const QString& text) {
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(text);
}

bool QtSystem::directoryExists(const QString& path) {
    return QDir(path).exists();
}

QChar QtSystem::decimalSeparator() {
    return QLocale().decimalPoint().at(0);
}

int QtSystem::screenWidthTwips() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry().width() * kTwipsPerPixel : 0;
}

int QtSystem::screenHeightTwips() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry().height() * kTwipsPerPixel : 0;
}

QString QtSystem::programFolder() {
    return QCoreApplication::applicationDirPath();
}

void QtSystem::abortProcess() {
    std::_Exit(0);
}

void QtSystem::beep() {
    QApplication::beep();
}

void QtSystem::endProcess() {
    ended_ = true;
    QCoreApplication::exit(0);
}

}  // namespace veldor
