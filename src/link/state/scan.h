// The state of the scan engine and the spectrum sweep.
#pragma once

#include <QString>

#include <cstdint>

namespace veldor {

// A hang delay of this many seconds or more never ends by itself: the scan waits for Resume.
inline constexpr int HangDelayPermanent = 20;

struct ScanState {
    // The scan engine. ScanRunning, HangDelay and the scan settings stand with the link's
    // values, as other subsystems test them.
    bool ScanPaused = false;  // stopped on a channel, waiting for the hang delay or Resume
    bool ScanHold = false;    // Hold pressed: the tick does not run the engine at all
    // The source: exactly one is true, changed only by cmdScanMemOrBank_Click.
    bool ScanRangeMode = true, ScanBankMode = false, ScanGridMode = false;
    int ScanBankIndex = 0;       // slot 0..11 of the bank on show
    int ScanGridRow = 0;         // row of the memory grid
    double ScanTickLimit = 1.0;  // ticks that ScanTickCount must reach for a step
    double ScanTickCount = 0.0;
    bool ScanJustResumed = false;  // the next step comes straight after a resume
    uint32_t ResumeTime = 0;       // the millisecond clock's value at which the hang ends

    // The spectrum sweep, in 10 Hz.
    bool PendingSpectrumStart = false;
    bool SpectrumPaused = false;     // no stepping: set by the mouse, cleared by Resume
    bool SpectrumMouseHeld = false;  // the mouse is down on a running sweep
    bool SpectrumMouseDown = false;  // the mouse is down on the picture, sweep or not
    bool SpectrumFineDrag = false;   // the right button is the one held
    int32_t SpectrumStartFrequency = 0, SpectrumEndFrequency = 0;
    int32_t SpectrumStepSize = 0, SpectrumWidth = 0;  // 0 until first set
    int16_t SpectrumPoints = 0;                       // steps across, and the picture's scale width
    int16_t SpectrumPosition = 0;                     // x of the next bar, 0..SpectrumPoints
    bool SpectrumFirstColour = true;
    int32_t SpectrumCursorFrequency = 0;
    bool SpectrumCursorPending = false;  // a click on the picture waits to be tuned
    // The picture's mouse: the last x of a fine and of a coarse drag, the Shift state at mouse
    // down (2: Ctrl), and the guard of the move handler.
    double SpectrumFineLastX = 0, SpectrumCoarseLastX = 0;
    int SpectrumShift = 0;
    bool SpectrumMoveBusy = false;
    // The compact layout of mnuSpectrumOnly: what it replaced.
    int SpectrumSavedTop = 0, SpectrumSavedWidth = 0, SpectrumSavedHeight = 0;
};

}  // namespace veldor
