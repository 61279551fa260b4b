// Dialogs and system facts on Qt Widgets.
#pragma once

#include "link/platform.h"

#include <QString>
#include <functional>

class QWidget;

namespace veldor {

class QtDialogs : public Dialogs {
  public:
    std::function<QWidget*()> parent;
    MsgResult messageBox(const QString& text, const QString& title, MsgButtons buttons,
                         MsgIcon icon) override;
    bool inputBox(const QString& prompt, const QString& title, QString* text) override;
    QString browseForFolder(const QString& prompt) override;
    QString saveFileName(const QString& title, const QString& folder, const QString& filter,
                         int filterIndex) override;
    // A line on the main window's status bar for half a minute.
    void notice(const QString& text, const QString& title) override;
    QString openFileName(const QString& title, const QString& folder, const QString& filter,
                         int filterIndex) override;
};

class QtSystem : public System {
  public:
    bool directoryExists(const QString& path) override;
    QChar decimalSeparator() override;
    int screenWidthTwips() override;
    int screenHeightTwips() override;
    QString programFolder() override;
    void endProcess() override;
    void abortProcess() override;
    void beep() override;
    QList<QPair<QString, QString>> serialPorts() override;
    int logicalDpi() override;
    bool openDocument(const QString& pathOrAddress) override;
    void setClipboardText(const QString& text) override;
    bool ended() const { return ended_; }

  private:
    bool ended_ = false;
};

}  // namespace veldor
