// The state of operator tuning: steps and knob, band table, GoTo and transverter.
#pragma once

#include <QString>

#include <array>
#include <cstdint>

namespace veldor {

struct TuningState {
    // Steps and knob, in 10 Hz. The grid's step starts at 20 Hz whatever row the grid shows.
    int32_t TuningStep = 2;
    int32_t TuningFrequency = 0;  // the frequency the knob tunes from
    int32_t KnobValue = 16384;    // the knob's last value
    bool KnobTuning = false;      // the next GoTo comes from the knob: shift and tone stay
    bool StatusUpdateHeld = false;
    bool GoToPending = false;
    bool MhzPlusPending = false, MhzMinusPending = false;

    // The VR-5000's steps: the step of the mode in use, and per mode group the step code that
    // rides on the mode command and the step size.
    int32_t VR5000Step = 20;  // 200 Hz
    int StepLSB = 33, StepUSB = 33, StepCW = 33, StepAM = 3, StepAMN = 67, StepWAM = 99,
        StepFMN = 20, StepWFM = 68;
    int MouseLSB = 2, MouseUSB = 2, MouseCW = 2, MouseAM = 100, MouseAMN = 500, MouseWAM = 900,
        MouseFMN = 1250, MouseWFM = 5000;
    QString LastStepMode;
    bool StepOptionsLocked = false;  // the options are being set: their clicks do nothing

    // The thirteen band buttons: row n is stored under keys numbered n+1 of section "Bands".
    std::array<QString, 13> BandName, BandFreq, BandMode, BandCTCSS, BandEncDec, BandShift,
        BandRepeaterOffset;

    // GoTo and transverter.
    QString DisplayFrequencyText;   // the frequency text last shown by a GoTo
    bool LargeGoTo = false;         // the large GoTo box is shown
    int32_t XvtrBaseFrequency = 0;  // 10 Hz, stored under XvtrBaseFreq
    int XvtrOffsetIndex = 0;        // 0: base plus rig frequency, 1: base minus it
    bool XvtrDisplayOff = false;    // the base is being typed: the display leaves it alone
};

}  // namespace veldor
