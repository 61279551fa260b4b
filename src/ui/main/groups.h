// The groups of the main window, each built into its own widget through the window's kit.
#pragma once

#include "ui/view_kit.h"

class QWidget;

namespace veldor {

// On/off, the timeout count, the UTC clock and the ten-minute counter.
QWidget* BuildConnectionGroup(ViewKit& kit, QWidget* parent);
// Frequency, mode and tuning state, with the VFO buttons beside them.
QWidget* BuildFrequencyGroup(ViewKit& kit, QWidget* parent);
// The S-meter under its scale, the signal threshold, and the state lights.
QWidget* BuildMeterGroup(ViewKit& kit, QWidget* parent);
// The mode buttons, packed without gaps where the rig has no button.
QWidget* BuildModesGroup(ViewKit& kit, QWidget* parent);
// TX/RX, its enable box and split.
QWidget* BuildTransmitGroup(ViewKit& kit, QWidget* parent);
// Repeater shift and CTCSS tone.
QWidget* BuildRepeaterGroup(ViewKit& kit, QWidget* parent);
// The frames of each rig model's own controls.
QWidget* BuildModelFrames(ViewKit& kit, QWidget* parent);
// The buttons that open the other windows, and the timed events.
QWidget* BuildWindowsGroup(ViewKit& kit, QWidget* parent);
// The delay sliders.
QWidget* BuildDelaysGroup(ViewKit& kit, QWidget* parent);
// The step grid and knob, the megahertz buttons, GoTo and the transverter frame.
QWidget* BuildTuningGroup(ViewKit& kit, QWidget* parent);
// The thirteen band buttons.
QWidget* BuildBandsGroup(ViewKit& kit, QWidget* parent);
// The ring of frequency notes.
QWidget* BuildNotesGroup(ViewKit& kit, QWidget* parent);
// The mouse wheel over the widget turns the tuning knob, a step a notch.
void WheelTunes(ViewKit& kit, QWidget* over);
// The bank buttons, the twelve memories of the bank on show, and the memory tag.
QWidget* BuildMemoriesGroup(ViewKit& kit, QWidget* parent);
// The scan range, the button that defines the ranges, and the scan buttons.
QWidget* BuildScanGroup(ViewKit& kit, QWidget* parent);
// The spectrum sweep: the trace, its boxes and buttons.
QWidget* BuildSpectrumGroup(ViewKit& kit, QWidget* parent);

}  // namespace veldor
