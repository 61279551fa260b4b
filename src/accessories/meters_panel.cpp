#include "accessories/meters_panel.h"

#include "link/forms/docking.h"

namespace veldor {

void cmdMeters_Click(Core& c) {
    c.s.PendingMetersPanel = true;
}

void ToggleMetersPanel(Core& c) {
    State& s = c.s;
    s.PendingMetersPanel = false;
    if (s.MetersVisible) {
        s.MetersVisible = false;
        c.p.windows->hide(FormId::frmMeters);
        return;
    }
    s.MetersVisible = true;
    if (!c.frmMeters.loaded) frmMeters_Load(c);
    c.p.windows->show(FormId::frmMeters, false);
}

void frmMeters_Load(Core& c) {
    c.frmMeters.loaded = true;
    DockBeside(c.f, c.frmMeters, true);
    c.s.MetersDockLeft = true;
}

void frmMeters_Unload(Core& c) {
    c.s.MetersVisible = false;
    c.frmMeters.loaded = false;
}

void frmMeters_cmdClose_Click(Core& c) {
    frmMeters_Unload(c);
    c.p.windows->close(FormId::frmMeters);
}

void frmMeters_cmdDockLeft_Click(Core& c) {
    DockBeside(c.f, c.frmMeters, true);
    c.s.MetersDockLeft = true;
}

void frmMeters_cmdDockRight_Click(Core& c) {
    DockBeside(c.f, c.frmMeters, false);
    c.s.MetersDockLeft = false;
}

}  // namespace veldor
