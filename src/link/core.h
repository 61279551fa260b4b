// The core's context: the shared state, the forms as plain structs, and the platform they
// run on. Every procedure of the program takes it first; a test builds a fresh one per case.
#pragma once

#include "link/form1.h"
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
    RigServer* rigServer = nullptr;  // none: rig sharing is not built in
};

struct Core {
    State s;
    Form1 f;
    FrmErrorList frmErrorList;
    Frm450DSP frm450DSP;
    FrmMeters frmMeters;
    FrmRigSharing frmRigSharing;
    Platform p;
};

// Store operations, addressed as the system addresses them.
QString GetSetting(Core& c, const QString& appName, const QString& section, const QString& key,
                   const QString& defaultValue);
void SaveSetting(Core& c, const QString& appName, const QString& section, const QString& key,
                 const QString& value);
QList<QPair<QString, QString>> GetAllSettings(Core& c, const QString& appName,
                                              const QString& section);

// The messages log.
void ReportMessage(Core& c, const QString& text);
void frmErrorList_Unload(Core& c);

}  // namespace veldor
