#include "scan/spectrum.h"

#include "basic/basic.h"
#include "cycle/poll_cycle.h"
#include "link/serial_link.h"
#include "protocol/read_frequency.h"
#include "protocol/read_signal.h"
#include "protocol/tones.h"
#include "protocol/write_frequency.h"
#include "scan/spectrum_math.h"

#include <algorithm>

namespace veldor {

namespace {

void SetSlider(Core& c, int value) {
    Slider& s = c.f.sldFrequency;
    s.value = std::clamp(value, s.min, s.max);
}

// A step or width as SpectrumStart reads it; 0 is never set.
int32_t ReadSpectrumBox(Core& c, const ComboBox& box) {
    return SpectrumTextValue(box.text, c.s.DecimalSeparator, ParseFrequency(c, box.text));
}

// The picture at rest: the button face, and the slider at its start.
void PrepareSpectrumPicture(Core& c) {
    State& s = c.s;
    PictureBox& p = c.f.picSpectrum;
    p.scaleHeight = SpectrumHeight;
    p.backColour = Black;
    Cls(p);
    p.foreColour = LightCyan;
    p.drawWidth = 3;
    s.SpectrumFirstColour = true;
    s.SpectrumPoints =
        SpectrumPointsFor(s.SpectrumStartFrequency, s.SpectrumEndFrequency, s.SpectrumStepSize);
    s.SpectrumPosition = 0;
    p.scaleWidth = s.SpectrumPoints;
    c.f.chkSplit.enabled = false;
}

// Tunes the cursor and shows it everywhere.
void TuneCursor(Core& c) {
    State& s = c.s;
    SetFrequency(c, s.SpectrumCursorFrequency);
    c.f.txtVfoA.text = FormatFrequency(c, s.SpectrumCursorFrequency);
    c.f.txtSpectrumFreq.text = c.f.txtVfoA.text;
    SetSlider(c, SliderAt(s.SpectrumCursorFrequency, s.SpectrumStartFrequency, s.SpectrumWidth));
}

bool Refuse(Core& c, ComboBox& box, const QString& text, const QString& title) {
    c.p.dialogs->messageBox(text, title, MsgButtons::OK, MsgIcon::Exclamation);
    SetFocus(c, box);
    return true;
}

bool CheckNumber(Core& c, ComboBox& box, const QString& what, int32_t& into) {
    if (!basic::IsNumeric(box.text))
        return Refuse(
            c, box, "You have entered a non numeric value for Spectrum " + what + " - please retry",
            "Invalid number");
    // Divided whether or not the text has a decimal mark: only a new start reads it rightly.
    into = basic::CLng(ParseFrequency(c, box.text, true) / 1000.0);
    return false;
}

}  // namespace

void cmdStartSpectrum_Click(Core& c) {
    if (c.s.ScanRunning) return;
    c.s.PendingSpectrumStart = true;
}

void SpectrumStart(Core& c) {
    State& s = c.s;
    Form1& f = c.f;
    s.PendingSpectrumStart = false;
    if (f.chkOnOff.value != 1 || s.Transmitting || s.ScanRunning) return;
    f.chkOnOff.enabled = false;  // a sweep is stopped first
    s.SpectrumRunning = true;
    s.SpectrumMouseHeld = false;
    s.SpectrumPaused = false;
    f.chkTransmitEnable.enabled = false;
    f.cmdStopSpectrum.backColour = Yellow;
    ToneOff(c);

    ComboBox& start = f.cboSpectrumStart;
    s.SpectrumStartFrequency =
        start.text == "Start" ? s.CurrentFrequency : ParseFrequency(c, start.text);
    // A second sweep stays where the first began.
    start.text = FormatFrequencyShort(c, s.SpectrumStartFrequency);
    if (s.SpectrumStepSize == 0) {
        s.SpectrumStepSize = 100;
        f.cboSpectrumStep.text = "1.0";
    } else {
        s.SpectrumStepSize = ReadSpectrumBox(c, f.cboSpectrumStep);
    }
    if (s.SpectrumWidth == 0) {
        s.SpectrumWidth = 10000;
        f.cboSpectrumWidth.text = "100";
    } else {
        s.SpectrumWidth = ReadSpectrumBox(c, f.cboSpectrumWidth);
    }
    if (s.SpectrumStepSize > s.SpectrumWidth) {
        // The sweep stays flagged, its controls disabled, until Stop.
        c.p.dialogs->messageBox("Step size must be no greater than the spectrum width", "VELDOR",
                                MsgButtons::OK, MsgIcon::None);
        return;
    }
    s.TargetFrequency = s.SpectrumStartFrequency;
    s.SpectrumEndFrequency = s.SpectrumStartFrequency + s.SpectrumWidth;
    PrepareSpectrumPicture(c);
    SetFrequency(c, s.TargetFrequency);
}

void SpectrumStep(Core& c) {
    State& s = c.s;
    Form1& f = c.f;
    if (s.ScanRunning) return;
    if (!s.SpectrumPaused) {
        s.TargetFrequency = OnStepGrid(s.TargetFrequency, s.SpectrumStepSize);
        SetFrequency(c, s.TargetFrequency);
        ReadSignal(c);
        DrawSpectrumPoint(c, f.pbarSmeter.value);
        f.txtVfoA.text = FormatFrequency(c, s.TargetFrequency);
        s.TargetFrequency = NextSweepFrequency(s.TargetFrequency, s.SpectrumStepSize,
                                               s.SpectrumStartFrequency, s.SpectrumEndFrequency);
    } else if (!s.SpectrumMouseHeld) {
        // Paused: the display follows the rig.
        PerformStatusUpdate(c);
        SetSlider(c, SliderAt(s.CurrentFrequency, s.SpectrumStartFrequency, s.SpectrumWidth));
    }
    f.lblTX.backColour = White;
    if (!s.SpectrumRunning) Cls(f.picSpectrum);
}

void DrawSpectrumPoint(Core& c, int level) {
    State& s = c.s;
    PictureBox& p = c.f.picSpectrum;
    if (s.SpectrumPoints == 0) return;
    Line(p, s.SpectrumPosition, SpectrumHeight, SpectrumHeight - level);
    SetSlider(c, SliderAtPoint(s.SpectrumPosition, s.SpectrumPoints));
    if (++s.SpectrumPosition <= s.SpectrumPoints) return;
    // Every pair of sweeps: cyan beneath, orange drawn over it; cleared after the orange one.
    s.SpectrumPosition = 0;
    if (s.SpectrumFirstColour) {
        p.foreColour = Orange;
        s.SpectrumFirstColour = false;
    } else {
        p.foreColour = LightCyan;
        s.SpectrumFirstColour = true;
        Cls(p);
    }
}

void cmdStopSpectrum_Click(Core& c) {
    State& s = c.s;
    Form1& f = c.f;
    if (f.chkOnOff.value != 1 || s.ScanRunning) return;
    f.picSpectrum.backColour = ButtonFace;
    f.picSpectrum.scaleWidth = 100;
    f.sldFrequency.value = 0;
    s.SpectrumRunning = false;
    s.SpectrumPaused = false;
    f.cmdStopSpectrum.backColour = ButtonFace;
    f.chkTransmitEnable.enabled = true;
    Cls(f.picSpectrum);
    // The next frequency change sends shift and tone again.
    s.LastShiftSent.clear();
    s.LastToneState.clear();
    f.chkSplit.enabled = true;
    f.chkOnOff.enabled = true;
}

void cmdSpectrumResume_Click(Core& c) {
    State& s = c.s;
    if (s.ScanRunning || !s.SpectrumRunning) return;
    s.SpectrumPaused = false;
    s.SpectrumMouseHeld = false;
}

void picSpectrum_MouseDown(Core& c, int button, int shift, double x) {
    State& s = c.s;
    if (c.f.chkOnOff.value != 1 || s.ScanRunning) return;
    s.SpectrumPaused = true;
    s.SpectrumMouseHeld = true;
    s.SpectrumMouseDown = true;
    s.SpectrumShift = shift;
    if (button != SpectrumRight) {
        s.SpectrumFineDrag = false;
        s.SpectrumCoarseLastX = x;
        if (s.SpectrumRunning) {
            s.SpectrumCursorFrequency =
                FrequencyAtX(x, s.SpectrumStepSize, s.SpectrumStartFrequency);
            s.SpectrumCursorPending = true;
        }
    } else {
        s.SpectrumFineDrag = true;
        s.SpectrumFineLastX = x;
    }
}

void picSpectrum_MouseUp(Core& c) {
    State& s = c.s;
    // The sweep stays paused where the operator left it.
    s.SpectrumMouseHeld = false;
    s.SpectrumShift = 0;
    s.SpectrumMouseDown = false;
}

void picSpectrum_MouseMove(Core& c, int button, int shift, double x) {
    State& s = c.s;
    Form1& f = c.f;
    (void)shift;  // the state at mouse down counts
    if (s.SpectrumMoveBusy || s.SendBusy || s.ReceiveBusy) return;
    s.SpectrumMoveBusy = true;
    if (f.chkOnOff.value == 1 && !s.ScanRunning) {
        const bool ctrl = s.SpectrumShift == CtrlMask;
        if (s.SpectrumRunning && s.SpectrumMouseHeld) {
            if (s.SpectrumFineDrag) {
                const int32_t change = ctrl ? 4 : 2;
                s.SpectrumCursorFrequency += x > s.SpectrumFineLastX ? change : -change;
                s.SpectrumFineLastX = x;
            } else {
                s.SpectrumCursorFrequency =
                    FrequencyAtX(x, s.SpectrumStepSize, s.SpectrumStartFrequency);
            }
            TuneCursor(c);
        } else if (s.SpectrumRunning) {
            // The hairline: a readout only.
            f.txtSpectrumFreq.text =
                FormatFrequency(c, FrequencyAtX(x, s.SpectrumStepSize, s.SpectrumStartFrequency));
        } else if (s.SpectrumMouseDown) {
            // The idle picture is a tuning pad on the tuning step.
            const bool fine = button == SpectrumRight;
            double& lastX = fine ? s.SpectrumFineLastX : s.SpectrumCoarseLastX;
            const int32_t change = fine ? (ctrl ? s.TuningStep / 2 : s.TuningStep / 5)
                                        : (ctrl ? 4 * s.TuningStep : s.TuningStep);
            s.TuningFrequency += x > lastX ? change : -change;
            lastX = x;
            SetFrequency(c, s.TuningFrequency);
            f.txtVfoA.text = FormatFrequency(c, s.TuningFrequency);
            f.txtSpectrumFreq.text = f.txtVfoA.text;
        }
    }
    SetFocus(c, f.txtVfoA);
    s.SpectrumMoveBusy = false;
}

void ApplySpectrumCursor(Core& c) {
    State& s = c.s;
    if (!s.SpectrumCursorPending) return;
    s.SpectrumCursorPending = false;
    SetFrequency(c, s.SpectrumCursorFrequency);
    c.f.txtSpectrumFreq.text = FormatFrequency(c, s.SpectrumCursorFrequency);
    c.f.txtVfoA.text = c.f.txtSpectrumFreq.text;
    s.DisplayFrequency = c.f.txtVfoA.text;
    SetSlider(c, SliderAt(s.SpectrumCursorFrequency, s.SpectrumStartFrequency, s.SpectrumWidth));
}

bool cboSpectrumStart_LostFocus(Core& c) {
    ComboBox& box = c.f.cboSpectrumStart;
    if (box.text == "Start") return false;
    if (!basic::IsNumeric(box.text))
        return Refuse(c, box,
                      "You have entered a non numeric value for Spectrum Start - please retry",
                      "Invalid number");
    const int32_t frequency = ParseFrequency(c, box.text, true);
    if (!CheckFrequencyRange(c, frequency))
        return Refuse(c, box,
                      "You have entered a Spectrum Start frequency outside the range of the rig "
                      "- please retry",
                      "Invalid number");
    c.s.SpectrumStartFrequency = frequency;
    return false;
}

bool cboSpectrumStep_LostFocus(Core& c) {
    return CheckNumber(c, c.f.cboSpectrumStep, "Step", c.s.SpectrumStepSize);
}

bool cboSpectrumWidth_LostFocus(Core& c) {
    return CheckNumber(c, c.f.cboSpectrumWidth, "Width", c.s.SpectrumWidth);
}

void cboSpectrumStep_Click(Core& c) {
    c.s.SpectrumStepSize = ReadSpectrumBox(c, c.f.cboSpectrumStep);
}

void mnuSpectrumOnly_Click(Core& c) {
    State& s = c.s;
    Form1& f = c.f;
    MenuItem& item = f.mnuSpectrumOnly;
    item.checked = !item.checked;
    if (item.checked) {
        s.SpectrumSavedTop = f.frmSpectrumTop;
        s.SpectrumSavedWidth = f.width;
        s.SpectrumSavedHeight = f.height;
        f.frmSpectrumTop = -80;
    } else {
        f.frmSpectrumTop = s.SpectrumSavedTop;
        f.width = s.SpectrumSavedWidth;
        f.height = s.SpectrumSavedHeight;
    }
}

}  // namespace veldor
