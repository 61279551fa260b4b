#include "link/core.h"
#include "shell/about.h"

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

void frmErrorList_cmdClearMessages_Click(Core& c) {
    c.frmErrorList.txtErrors.text.clear();
}

void frmErrorList_cmdCopyToClipboard_Click(Core& c) {
    const QDateTime now = c.p.clock->localNow();
    // As it has always been built: no blank between the time and the title, two before the V.
    ReportMessage(c, "Copied to Clipboard " + now.toString("yyyy/MM/dd") + " " +
                         now.toString("HH:mm:ss") + ApplicationTitle + " " +
                         QString(" V%1.%2.%3")
                             .arg(VELDOR_VERSION_MAJOR)
                             .arg(VELDOR_VERSION_MINOR)
                             .arg(VELDOR_VERSION_REVISION) +
                         "\r\n");
    c.p.system->setClipboardText(c.frmErrorList.txtErrors.text);
}

void frmErrorList_cmdClose_Click(Core& c) {
    frmErrorList_Unload(c);
}

}  // namespace veldor
