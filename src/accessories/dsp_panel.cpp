#include "accessories/dsp_panel.h"

#include "basic/basic.h"
#include "link/forms/docking.h"

namespace veldor {

void chkShowDSP_Click(Core& c) {
    State& s = c.s;
    if (c.f.chkShowDSP.value == 1) {
        s.PendingDspPanel = true;
        return;
    }
    // Hidden at once, and still loaded. A request still waiting would show it again.
    s.PendingDspPanel = false;
    s.DspVisible = false;
    c.p.windows->hide(FormId::frm450DSP);
}

void ToggleDspPanel(Core& c) {
    State& s = c.s;
    s.PendingDspPanel = false;
    if (s.DspVisible) {
        s.DspVisible = false;
        c.p.windows->hide(FormId::frm450DSP);
        return;
    }
    s.DspVisible = true;
    if (!c.frm450DSP.loaded) frm450DSP_Load(c);
    c.p.windows->show(FormId::frm450DSP, false);
}

void KeepDspPanel(Core& c) {
    State& s = c.s;
    const Form1& f = c.f;
    if (f.chkShowDSP.value == 1 && !s.DspVisible) s.PendingDspPanel = true;
    if (!s.DspVisible) return;
    Windows& windows = *c.p.windows;
    // Any state but normal hides it: minimised, and maximised too, where there is no edge
    // to stand beside.
    if (f.windowState != 0) {
        if (windows.shown(FormId::frm450DSP)) windows.hide(FormId::frm450DSP);
        return;
    }
    if (!windows.shown(FormId::frm450DSP)) windows.show(FormId::frm450DSP, false);
    // Moved only when an edge differs, so that a panel in place does not flicker.
    Frm450DSP& d = c.frm450DSP;
    if (s.DspDockLeft) {
        if (d.left + d.width != f.left) d.left = f.left - d.width;
    } else if (d.left != f.left + f.width) {
        d.left = f.left + f.width;
    }
    d.top = f.top;
}

void frm450DSP_Load(Core& c) {
    Frm450DSP& d = c.frm450DSP;
    d.loaded = true;
    DockBeside(c.f, d, true);
    c.s.DspDockLeft = true;
    d.lbl450Filter.backColour = Green;
}

void frm450DSP_Unload(Core& c) {
    c.s.DspVisible = false;
    c.frm450DSP.loaded = false;
}

void frm450DSP_cmdClose_Click(Core& c) {
    // Unticking the main window's box runs its click, as the operator's would.
    c.f.chkShowDSP.value = 0;
    chkShowDSP_Click(c);
    frm450DSP_Unload(c);
    c.p.windows->close(FormId::frm450DSP);
}

void frm450DSP_cmdDockLeft_Click(Core& c) {
    DockBeside(c.f, c.frm450DSP, true);
    c.s.DspDockLeft = true;
}

void frm450DSP_cmdDockRight_Click(Core& c) {
    DockBeside(c.f, c.frm450DSP, false);
    c.s.DspDockLeft = false;
}

void cmdVM_Click(Core& c) {
    c.s.PendingFT450VM = true;
}
void lblSqlRFGain_Click(Core& c) {
    c.s.PendingFT450SqlRf = true;
}
void lbl450NoiseBlanker_Click(Core& c) {
    c.s.PendingNoiseBlanker = true;
}
void lbl450NoiseReduction_Click(Core& c) {
    c.s.PendingFT450NR = true;
}
void lbl450Notch_Click(Core& c) {
    c.s.PendingFT450Notch = true;
}

void lblContour_Click(Core& c, int index) {
    c.s.DspContourLevelIndex = index;
    c.s.PendingFT450Contour = true;
}

void lblContourFreq_Click(Core& c, int index) {
    // With the contour off ("Off" lit) its frequency means nothing.
    if (c.frm450DSP.lblContour[3].backColour == Green) return;
    c.s.DspContourFrequencyIndex = index;
    c.s.PendingFT450ContourFreq = true;
}

void sldNoiseReduction_Change(Core& c) {
    c.s.DspNoiseReductionLevel = basic::Format(c.frm450DSP.sldNoiseReduction.value, "00");
    c.s.PendingFT450NRLevel = true;
}

void sldNotch_Change(Core& c) {
    c.s.DspNotchFrequency = basic::Format(c.frm450DSP.sldNotch.value, "000");
    c.s.PendingFT450NotchFreq = true;
}

void sldFilter_Change(Core& c) {
    c.s.DspFilterWidth = basic::Format(c.frm450DSP.sldFilter.value, "00");
    c.s.PendingFT450Filter = true;
}

void sldAFGain_Change(Core& c) {
    c.s.PendingFT450AFGain = true;
}

void sldRFGain_Change(Core& c) {
    c.s.PendingFT450RFGain = true;
}

void DspSlider_MouseDown(Core& c) {
    c.s.DspSliderHeld = true;
}

void DspSlider_MouseUp(Core& c) {
    c.s.DspSliderHeld = false;
}

}  // namespace veldor
