// The about box.
#pragma once

#include "link/controls.h"

namespace veldor {

struct FrmAbout {
    QString caption;
    Label lblTitle;
    Label lblVersion;
    Label lblDescription;
    // The user manual; a click opens it with the desktop's handler.
    Label lblLink{{true, true, " Open the user manual "}, {}};
    CommandButton cmdOK{{}, "OK"};
};

}  // namespace veldor
