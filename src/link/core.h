// The core's context: the shared state, the forms as plain structs, and the platform they
// run on. Every procedure of the program takes it first; a test builds a fresh one per case.
#pragma once

#include "link/form1.h"
#include "link/forms/frm_450_dsp.h"
#include "link/forms/frm_about.h"
#include "link/forms/frm_convert.h"
#include "link/forms/frm_csv_mem.h"
#include "link/forms/frm_error_list.h"
#include "link/forms/frm_meters.h"
#include "link/forms/frm_record.h"
#include "link/forms/frm_rig_sharing.h"
#include "link/forms/frm_scanner.h"
#include "link/forms/frm_set_memory.h"
#include "link/forms/frm_settings.h"
#include "link/forms/frm_xband_repeat.h"
#include "link/platform.h"
#include "link/state.h"

namespace veldor {

struct Platform {
    SerialPort* MSComm1 = nullptr;
    SerialPort* PttComPort = nullptr;
    Clock* clock = nullptr;
    EventPump* pump = nullptr;
    Timer* tmrPollInterval = nullptr;
    Timer* tmrClock = nullptr;
    SettingsStore* store = nullptr;
    Dialogs* dialogs = nullptr;
    System* system = nullptr;
    Windows* windows = nullptr;
    RigServer* rigServer = nullptr;  // none: rig sharing is not built in
    Launcher* launcher = nullptr;
    AudioRecorder* audio = nullptr;
    Printer* printer = nullptr;  // none: nothing can be printed
};

struct Core {
    State s;
    Form1 f;
    FrmErrorList frmErrorList;
    Frm450DSP frm450DSP;
    FrmMeters frmMeters;
    FrmRigSharing frmRigSharing;
    FrmSetMemory frmSetMemory;
    FrmScanner frmScanner;
    FrmCsvMem frmCsvMem;
    FrmConvert frmConvert;
    FrmRecord frmRecord;
    FrmXBandRepeat frmXBandRepeat;
    FrmSettings frmSettings;
    FrmAbout frmAbout;
    Platform p;
    // The control that is to take the keyboard focus, as a box at fault goes back to the
    // operator; the view gives it the focus at its next showing and clears this.
    const Control* focusRequest = nullptr;
};

inline void SetFocus(Core& c, const Control& control) {
    c.focusRequest = &control;
}

// Store operations, addressed as the system addresses them.
QString GetSetting(Core& c, const QString& appName, const QString& section, const QString& key,
                   const QString& defaultValue);
void SaveSetting(Core& c, const QString& appName, const QString& section, const QString& key,
                 const QString& value);
// Keys of one section that belong together (a bank, the scan ranges), saved in one write.
void SaveSettings(Core& c, const QString& appName, const QString& section,
                  const QList<QPair<QString, QString>>& values);
QList<QPair<QString, QString>> GetAllSettings(Core& c, const QString& appName,
                                              const QString& section);

// The messages log.
void ReportMessage(Core& c, const QString& text);
void frmErrorList_Unload(Core& c);
void frmErrorList_cmdClearMessages_Click(Core& c);
// Puts the whole log on the clipboard, after a stamp line of date, time and version.
void frmErrorList_cmdCopyToClipboard_Click(Core& c);
void frmErrorList_cmdClose_Click(Core& c);

}  // namespace veldor
