#include "cycle/open_convert.h"

#include "convert/convert.h"
#include "cycle/start_stop.h"

namespace veldor {

void OpenConvert(Core& c) {
    c.s.PendingConvert = false;
    ReleaseControl(c);
    ReportMessage(c, "Messages from the Convert routine");
    frmConvert_Load(c);
    c.p.windows->show(FormId::frmConvert, true);
    if (c.f.chkOnOff.value == 1) TakeControl(c);
}

void mnuConvert_Click(Core& c) {
    const State& s = c.s;
    if (s.Transmitting || s.SpectrumRunning || s.ScanRunning) return;
    if (c.f.chkOnOff.value == 0)
        OpenConvert(c);
    else
        c.s.PendingConvert = true;
}

}  // namespace veldor
