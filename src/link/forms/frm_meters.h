// The FT-920 meters panel: thirteen of the rig's meters as bars with their numbers, and VFO B.
#pragma once

#include "link/controls.h"

namespace veldor {

struct FrmMeters {
    QString caption = "FT-920 Meters";
    // Placement and size in twips, as the main window's; loaded until the panel is closed.
    int left = 0, top = 0, width = 4200, height = 6000;
    bool loaded = false;

    CommandButton cmdDockLeft{{true, true, " Dock on left "}, {}};
    CommandButton cmdDockRight{{true, true, " Dock on right "}, {}};
    CommandButton cmdClose{{true, true, " Close meters window "}, "Close"};

    // Each byte of the rig's meter blocks, unscaled.
    ProgressBar pbarALC{{true, true, " ALC voltage "}, 0, 0, 255};
    ProgressBar pbarVLT{{true, true, " Final amp transistor supply voltage "}, 0, 0, 255};
    ProgressBar pbarAMP{{true, true, " Final amp transistor drain current "}, 0, 0, 255};
    ProgressBar pbarFWD{{true, true, " Forward power "}, 0, 0, 255};
    ProgressBar pbarREV{{true, true, " Reverse power "}, 0, 0, 255};
    ProgressBar pbarSFT{{true, true, " IF shift "}, 0, 0, 255};
    ProgressBar pbarPCH{{true, true, " CW pitch "}, 0, 0, 255};
    ProgressBar pbarSQL{{true, true, " Squelch "}, 0, 0, 255};
    ProgressBar pbarHPF{{true, true, " High pass filter "}, 0, 0, 255};
    ProgressBar pbarLPF{{true, true, " Low pass filter "}, 0, 0, 255};
    ProgressBar pbarNR{{true, true, " Noise reduction "}, 0, 0, 255};
    ProgressBar pbarPRC{{true, true, " Processor compression level "}, 0, 0, 255};
    ProgressBar pbarDSC{{true, true, " FM discriminator "}, 0, 0, 255};
    Label lblALC{{true, true, " ALC voltage "}, {}};
    Label lblVLT{{true, true, " Final amp transistor supply voltage "}, {}};
    Label lblAMP{{true, true, " Final amp transistor drain current "}, {}};
    Label lblFWD{{true, true, " Forward power "}, {}};
    Label lblREV{{true, true, " Reverse power "}, {}};
    Label lblSFT{{true, true, " IF shift "}, {}};
    Label lblPCH{{true, true, " CW pitch "}, {}};
    Label lblSQL{{true, true, " Squelch "}, {}};
    Label lblHPF{{true, true, " High pass filter "}, {}};
    Label lblLPF{{true, true, " Low pass filter "}, {}};
    Label lblNR{{true, true, " Noise reduction "}, {}};
    Label lblPRC{{true, true, " Processor compression level "}, {}};
    Label lblDSC{{true, true, " FM discriminator "}, {}};

    // VFO B, filled by the FT-920's second status read.
    Label Label15{{}, "VFO B"};
    Label lblVFOB{{true, true, " VFO-B frequency "}, {}};
    Label lblModeB{{true, true, " VFO-B mode "}, {}};
    Label lblTxRx{{true, true, " VFO-B Tx/Rx "}, {}};
};

}  // namespace veldor
