// The FT-450 DSP panel: the rig's noise blanker, noise reduction, notch, contour, width, gains,
// SQL/RF knob and VFO/memory, in a window docked beside the main one. Every control only
// raises a request; the tick sends it, and the reading shows what the rig did.
#pragma once

#include "link/core.h"

namespace veldor {

// The main window's box: ticked asks the tick for the panel, unticked hides it at once.
void chkShowDSP_Click(Core& c);
// The tick's request: shows the panel, loading it if need be, or hides it.
void ToggleDspPanel(Core& c);
// At the head of every FT-450 tick: asks for the panel while the box is ticked, hides it while
// the main window is minimised, and keeps it docked.
void KeepDspPanel(Core& c);

void frm450DSP_Load(Core& c);
void frm450DSP_Unload(Core& c);
void frm450DSP_cmdClose_Click(Core& c);
void frm450DSP_cmdDockLeft_Click(Core& c);
void frm450DSP_cmdDockRight_Click(Core& c);

void cmdVM_Click(Core& c);
void lblSqlRFGain_Click(Core& c);
void lbl450NoiseBlanker_Click(Core& c);
void lbl450NoiseReduction_Click(Core& c);
void lbl450Notch_Click(Core& c);
// Members 1 to 5 from the left end of each scale.
void lblContour_Click(Core& c, int index);
void lblContourFreq_Click(Core& c, int index);

void sldNoiseReduction_Change(Core& c);
void sldNotch_Change(Core& c);
void sldAFGain_Change(Core& c);
void sldRFGain_Change(Core& c);
void sldFilter_Change(Core& c);
// The mouse down and up on any of the five sliders.
void DspSlider_MouseDown(Core& c);
void DspSlider_MouseUp(Core& c);

}  // namespace veldor
