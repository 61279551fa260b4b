#include "ui/application.h"

#include "cycle/start_stop.h"
#include "sharing/rig_sharing.h"
#include "ui/about_dialog.h"
#include "ui/convert_window.h"
#include "ui/dsp_panel.h"
#include "ui/grid_window.h"
#include "ui/main_window.h"
#include "ui/meters_panel.h"
#include "ui/record_window.h"
#include "ui/scanner_dialog.h"
#include "ui/set_memory_dialog.h"
#include "ui/settings_dialog.h"
#include "ui/xband_window.h"

#include <QCoreApplication>

namespace veldor {

Application::Application()
    : store_(IniStore::defaultFolder()),
      mainPort_(clock_, [this] { return c_.s.RigType; }),
      pttPort_(clock_, [this] { return c_.s.RigType; }),
      pollTimer_([this] {
          tmrPollInterval_Timer(c_);
          views_.renderSoon(pollTimer_.enabled());
      }),
      clockTimer_([this] {
          tmrClock_Timer(c_);
          views_.renderSoon();
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
    store_.startWriter();
    // Whatever the core has reached shows while the link waits, at the pace of the eye.
    pump_.beforeEvents = [this] { views_.renderSoon(); };
    windows_.add(FormId::frmSettings,
                 [this] { return new SettingsDialog(c_, views_, window_.get()); });
    windows_.add(FormId::frmAbout, [this] { return new AboutDialog(c_, views_, window_.get()); });
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
    windows_.add(FormId::frmConvert,
                 [this] { return new ConvertWindow(c_, views_, window_.get()); });
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
    // Sized once shown, when the layouts know which of the rig's frames stand.
    window_->fitToScreen();
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
