// The one shared state record of the program: plain values, read and written by any
// procedure, alive from InitialiseVariables to the end of the program. The values of the link
// and the rig's protocol stand here; each subsystem above keeps its own in link/state/, and
// State gathers them all, so that every value is read as c.s.Name.
#pragma once

#include "link/state/convert.h"
#include "link/state/grid.h"
#include "link/state/memories.h"
#include "link/state/notes.h"
#include "link/state/panels.h"
#include "link/state/recorder.h"
#include "link/state/scan.h"
#include "link/state/shell.h"
#include "link/state/timed_events.h"
#include "link/state/tuning.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <cstdint>

namespace veldor {

struct State : TuningState,
               MemoriesState,
               NotesState,
               ScanState,
               GridState,
               ConvertState,
               TimedEventsState,
               RecorderState,
               PanelsState,
               ShellState {
    // Store and files.
    QString AppName = "VELDOR";
    QString ConfigName;  // the name given with /CONFIG=, empty without one
    QString ProgramVersion;
    QString HomeDir;  // working home folder; empty when the stored one does not exist
    QString HelpFile;

    // Rig.
    QString RigType = "Not set";
    int32_t CurrentFrequency = 0;
    QString CurrentMode;
    bool VfoAActive = true;
    QString VfoLetter = "A";
    bool FrequencyOutOfRange = false;
    QString FrequencyDigits;

    // The last reading of frequency and mode.
    QString FrequencyText;
    QString DisplayFrequency;
    int32_t LastDisplayedFrequency = 0;
    int BadFrequencyCount = 0;
    // FT-450 tone and shift as the rig reports them.
    QString RigTone, RigToneEncode, RigToneDecode, RigShift;
    bool SplitMemoryPending = false;
    bool ForceUpdate = false;

    // Signal and status reading.
    // Raised by every tone command: the next signal reading pauses sldExtra longer, once.
    bool ExtraDelayNeeded = false;
    bool IgnoreNextTxStatus = false;
    bool SplitChangedByPoll = false;
    bool PendingSplit = false;
    bool Ft817AgcLocked = false;  // the AGC option is set by the poll, not the operator
    std::array<uint8_t, 6> FT1000Flags{};
    std::array<uint8_t, 8> FT920Flags{};
    std::array<uint8_t, 6> FT897Flags{};  // bytes at 0x0068, 0x006A and 0x00A8
    std::array<uint8_t, 6> FT857Flags{};
    bool TunerOn = false;
    QString LastAGC;

    // Jobs that forbid switching off.
    bool Transmitting = false;
    bool SpectrumRunning = false;
    bool ScanRunning = false;
    bool SignalPresent = false;

    // Serial link.
    std::array<uint8_t, 5> CommandBytes{};
    QByteArray ReplyBytes;
    bool SendBusy = false;
    bool ReceiveBusy = false;
    bool ReplyTimedOut = false;
    QString TextReply;
    QString ReceiveBuffer;
    bool TextResyncNeeded = false;
    // Text replies lost in a row: a run of them reopens the port, as a lost binary reply does.
    int TextTimeoutsInRow = 0;
    // The port went away under a running link (a device unplugged, a port in error); the tick
    // tries it again, quietly, until it is back.
    bool PortLost = false;
    // Replies found out of step have been told of in this connection.
    bool OutOfStepNoted = false;
    QString LastTextCommand;
    QString ClearBuffer = "N";
    QString CommPort = "1";
    QString CommSpeed = "4800,N,8,2";
    QString ExtraPttPort = "3";
    bool ExtraPttPortEnabled = false;
    int ExtraPttPortPins = 1;
    QString RaiseRTS = "N";
    QString RaiseDTR = "N";
    QString LinkRTS = "N";
    QString TXRXcontrolsRTS = "N";

    // Start and stop.
    QString AutoStart = "No";
    QString AutoPowerOff = "N";
    bool AutoMemoryGrid = false;
    bool NoCmdRejMessages = false;
    QString ClearIPO = "N";
    QString ScreenSize = "Small";
    QString RescaleFonts = "Yes";
    bool SettingsRequested = false;

    // Poll cycle.
    int TalkFreq = 4;
    int32_t PollingDelay = 0;  // ms; 99 means polling off
    uint32_t NextPollTime = 0;
    bool ReadingCutShort = false;  // for a client's write: the next tick follows at once
    bool FrequencyChangePending = false;
    int ScanSpeed = 5;
    int HangDelay = 4;
    bool HangDelayOnSignalLoss = true;
    bool UseSquelch = true;
    int TenMinuteSeconds = 0;

    // Band edges, in 10 Hz.
    int32_t VHFfreq = 14500000;
    int32_t UHFfreq = 43300000;

    // Tone and shift defaults of the tune target.
    QString TargetOffset = "600";
    QString TargetShift = "0";
    QString ToneCode = "0";
    QString ToneEncode = "0";
    QString ToneDecode = "0";
    QString VR5000LastFreqMode = "145.575f";

    // Writing frequency and mode.
    int32_t TargetFrequency = 0;
    QString TargetMode;
    QString LastModeSent;
    bool ModeButtonPending = false;
    int ModeButtonIndex = 0;
    QString VR5000ModeLetter = "f";
    QString VR5000ModeMain, VR5000ModeSub;
    int32_t VR5000FrequencyMain = 0, VR5000FrequencySub = 0;

    // Tones and repeater shift.
    QString LastToneState;
    uint8_t ToneByte = 0, ToneByteHigh = 0, ToneByteLow = 0, ToneModeByte = 0;
    QString LastShiftSent;
    QString LastOffsetSent;
    bool ShiftPending = false;
    int32_t OffsetValue = 0;

    // Transmit switching; the split pairs come from a grid row.
    bool PttOnPending = false;
    bool PttOffPending = false;
    int32_t SplitTxFrequency = 0, SplitRxFrequency = 0;
    QString SplitTxMode, SplitRxMode;

    // Model controls: one request flag per operation, served by the tick in its order.
    bool PendingFT920Tuner = false, PendingFT920StartTune = false;
    bool PendingFT817AGC = false, PendingVfoSelect = false;
    bool PendingFT1000Filter82 = false, PendingFT1000Filter455 = false;
    bool PendingVfoToggle = false, PendingProcessor = false;
    bool PendingFT450Tune = false, PendingFT450Tuner = false, PendingFT450Att = false;
    bool PendingFT450AGC = false, PendingFT450Ipo = false, PendingFT450SqlRf = false;
    bool PendingFT450VM = false, PendingNoiseBlanker = false, PendingFT450NR = false;
    bool PendingFT450Notch = false, PendingFT450NRLevel = false, PendingFT450AFGain = false;
    bool PendingFT450RFGain = false, PendingFT450NotchFreq = false, PendingFT450Filter = false;
    bool PendingFT450Contour = false, PendingFT450ContourFreq = false;
    bool PendingDNF = false, PendingDNR = false, PendingDBF = false, PendingLock = false;
    bool PendingFast = false, PendingVfoEqual = false, PendingVfoBOff = false;
    int Ft1000Filter455Index = 0, Ft1000Filter82Index = 0, Ft450AgcIndex = 0;
    int Ft817AgcValue = 0;
    QString VfoRequest = "A";

    // Locale characters and the shift texts that depend on them.
    QString DecimalSeparator = ".";
    QString OtherDecimalSeparator = ",";
    QString FieldDelimiter = ",";
    QString ShiftText500, ShiftText060, ShiftText100, ShiftText010, ShiftText000;

    // Rig sharing: other programs reach the rig through Hamlib's network rig protocol.
    QString RigctldEnabled = "N";
    int RigctldPort = 4532;
    QString RigctldAddress = "127.0.0.1";
};

}  // namespace veldor
