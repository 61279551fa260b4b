// The main window as plain state: its controls, named as the operator's window names them, in
// one struct per group of the window. Handlers reach every control directly (c.f.cmdBand[4]).
#pragma once

#include "link/form1/bands.h"
#include "link/form1/connection.h"
#include "link/form1/display.h"
#include "link/form1/memories.h"
#include "link/form1/menus.h"
#include "link/form1/model_frames.h"
#include "link/form1/modes.h"
#include "link/form1/notes.h"
#include "link/form1/scan.h"
#include "link/form1/spectrum.h"
#include "link/form1/tuning.h"
#include "link/form1/windows.h"

namespace veldor {

struct Form1 : ConnectionGroup,
               DisplayGroup,
               TuningGroup,
               BandsGroup,
               ModesGroup,
               RepeaterGroup,
               TransmitGroup,
               MemoriesGroup,
               NotesGroup,
               ScanGroup,
               SpectrumGroup,
               WindowsGroup,
               ModelFrames,
               MenuItems {
    QString caption;
    // Placement and size in twips (1440 to the inch).
    int top = 0;
    int left = 0;
    int width = 11520;
    int height = 8640;
    int windowState = 0;  // 0 normal, 1 minimised, 2 maximised
};

// The connection controls: switched on and off together with the link.
template <typename F>
void ForEachConnectionControl(Form1& f, F&& fn) {
    fn(f.chkSplit);
    for (CommandButton* b : {&f.cmdFT897Processor, &f.cmdFT897NoiseBlanker, &f.cmdFT897DNF,
                             &f.cmdFT897DNR, &f.cmdFT897DBF, &f.cmdFT897Fast, &f.cmdFT897Lock,
                             &f.cmdFT857Processor, &f.cmdFT857NoiseBlanker, &f.cmdFT857DNF,
                             &f.cmdFT857DNR, &f.cmdFT857DBF, &f.cmdFT857Fast, &f.cmdFT857Lock})
        fn(*b);
}

}  // namespace veldor
