#include "link/core.h"

namespace veldor {

namespace {
// The log is dropped whole, not trimmed, when it passes the size of a text box.
constexpr qsizetype kLogLimit = 64000;
}  // namespace

void ReportMessage(Core& c, const QString& text) {
    FrmErrorList& w = c.frmErrorList;
    // The log starts afresh each time the window has been closed.
    if (!w.visible) {
        w.visible = true;
        w.txtErrors.text.clear();
    }
    if (w.txtErrors.text.size() > kLogLimit) w.txtErrors.text.clear();
    w.txtErrors.text += text + "\r\n";
}

void frmErrorList_Unload(Core& c) {
    c.frmErrorList.visible = false;
}

}  // namespace veldor
