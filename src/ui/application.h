// The program put together: the core, the real platform and the main window.
#pragma once

#include "link/core.h"
#include "platform/audio/qt_audio_recorder.h"
#include "platform/ini_store.h"
#include "platform/launcher.h"
#include "platform/qt_platform.h"
#include "platform/rigctld_server.h"
#include "platform/system_serial_port.h"
#include "ui/qt_dialogs.h"
#include "ui/qt_printer.h"
#include "ui/qt_windows.h"
#include "ui/view_kit.h"

#include <memory>

namespace veldor {

class MainWindow;

class Application {
  public:
    Application();
    ~Application();

    // Form_Load with the command line, then the window. False if the program ended at once.
    bool start(const QString& commandLine);
    // Ends the program as closing its window does; during a long job the rig is let go all
    // the same, since the process is ending.
    void closeForSignal();

    Core& core() { return c_; }
    Views& views() { return views_; }
    QtWindows& windows() { return windows_; }
    MainWindow& window() { return *window_; }
    RigctldServer& rigctld() { return rigctld_; }

  private:
    Core c_;
    QtClock clock_;
    QtEventPump pump_;
    IniStore store_;
    QtDialogs dialogs_;
    QtSystem system_;
    QtWindows windows_;
    Views views_;
    SystemSerialPort mainPort_;
    SystemSerialPort pttPort_;
    QtTimer pollTimer_;
    QtTimer clockTimer_;
    RigctldServer rigctld_{c_};
    ProcessLauncher launcher_;
    QtAudioRecorder audio_;
    QtPrinter printer_;
    std::unique_ptr<MainWindow> window_;
};

}  // namespace veldor
