#include "ui/application.h"

#include "cycle/start_stop.h"
#include "sharing/rig_sharing.h"
#include "ui/main_window.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace veldor {

Application::Application()
    : store_(IniStore::defaultFolder()),
      mainPort_(clock_, [this] { return c_.s.RigType; }),
      pttPort_(clock_, [this] { return c_.s.RigType; }),
      pollTimer_([this] {
          tmrPollInterval_Timer(c_);
          if (window_) window_->render();
      }),
      clockTimer_([this] {
          tmrClock_Timer(c_);
          if (window_) window_->render();
      }) {
    clockTimer_.setInterval(1000);
    c_.p = Platform{&mainPort_,   &pttPort_, &clock_,   &pump_,   &pollTimer_,
                    &clockTimer_, &store_,   &dialogs_, &system_, &rigctld_};
    dialogs_.parent = [this]() -> QWidget* { return window_.get(); };
    // Whatever the core has reached shows before the events of a pause run.
    pump_.beforeEvents = [this] {
        if (window_) window_->render();
    };
    system_.onShowSettings = [this] {
        QMessageBox::information(
            window_.get(), "Settings",
            "Settings are kept in\n" + IniStore::defaultFolder() + "/" + c_.s.AppName + ".ini");
    };
    window_ = std::make_unique<MainWindow>(c_);
}

Application::~Application() = default;

bool Application::start(const QString& commandLine) {
    Form_Load(c_, commandLine);
    if (system_.ended()) return false;
    StartRigSharing(c_);
    window_->place();
    window_->render();
    window_->show();
    clockTimer_.setEnabled(true);
    tmrClock_Timer(c_);
    window_->render();
    return true;
}

void Application::closeForSignal() {
    Form_Unload(c_);
    if (system_.ended()) return;
    ReleaseControl(c_);
    rigctld_.stop();
    mainPort_.close();
    pttPort_.close();
    QCoreApplication::exit(0);
}

}  // namespace veldor
