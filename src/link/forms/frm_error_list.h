// The messages window: the program's running log.
#pragma once

#include "link/controls.h"

namespace veldor {

struct FrmErrorList {
    bool visible = false;
    QString caption = "Messages";
    TextBox txtErrors;
    CommandButton cmdCopyToClipboard{{}, "Copy to clipboard"};
    CommandButton cmdClearMessages{{}, "Clear messages"};
    CommandButton cmdClose{{}, "Close"};
};

}  // namespace veldor
