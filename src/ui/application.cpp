#include "ui/application.h"

#include "cycle/start_stop.h"
#include "sharing/rig_sharing.h"
#include "ui/dsp_panel.h"
#include "ui/grid_window.h"
#include "ui/main_window.h"
#include "ui/meters_panel.h"
#include "ui/record_window.h"
#include "ui/scanner_dialog.h"
#include "ui/set_memory_dialog.h"
#include "ui/xband_window.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace veldor {

Application::Application()
    : store_(IniStore::defaultFolder()),
      mainPort_(clock_, [this] { return c_.s.RigType; }),
      pttPort_(clock_, [this] { return c_.s.RigType; }),
      pollTimer_([this] {
          tmrPollInterval_Timer(c_);
          views_.renderAll();
      }),
      clockTimer_([this] {
          tmrClock_Timer(c_);
          views_.renderAll();
      }) {
    clockTimer_.setInterval(1000);
    c_.p = Platform{.MSComm1 = &mainPort_,
                    .PttComPort = &pttPort_,
                    .clock = &clock_,
                    .pump = &pump_,
                    .tmrPollInterval = &pollTimer_,
                    .tmrClock = &clockTimer_,
                    .store = &store_,
                    .dialogs = &dialogs_,
                    .system = &system_,
                    .windows = &windows_,
                    .rigServer = &rigctld_,
                    .launcher = &launcher_,
                    .audio = &audio_,
                    .printer = &printer_};
    dialogs_.parent = [this]() -> QWidget* { return window_.get(); };
    store_.onTrouble = [this](const QString& text) { ReportMessage(c_, text); };
    // Whatever the core has reached shows before the events of a pause run.
    pump_.beforeEvents = [this] { views_.renderAll(); };
    // Until the settings dialog is built, the operator is told where the settings are kept.
    windows_.add(FormId::frmSettings, [this] {
        auto* box = new QMessageBox(
            QMessageBox::Information, "Settings",
            "Settings are kept in\n" + IniStore::defaultFolder() + "/" + c_.s.AppName + ".ini",
            QMessageBox::Ok, window_.get());
        return box;
    });
    windows_.add(FormId::frmRecord, [this] { return new RecordWindow(c_, views_, window_.get()); });
    windows_.add(FormId::frmXBandRepeat,
                 [this] { return new XBandWindow(c_, views_, window_.get()); });
    windows_.add(FormId::frm450DSP, [this] { return new DspPanel(c_, views_, window_.get()); });
    windows_.add(FormId::frmMeters, [this] { return new MetersPanel(c_, views_, window_.get()); });
    windows_.add(FormId::frmSetMemory,
                 [this] { return new SetMemoryDialog(c_, views_, window_.get()); });
    windows_.add(FormId::frmCsvMem, [this] { return new GridWindow(c_, views_, window_.get()); });
    windows_.add(FormId::frmScanner,
                 [this] { return new ScannerDialog(c_, views_, window_.get()); });
    window_ = std::make_unique<MainWindow>(c_, views_);
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
