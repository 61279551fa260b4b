#include "shell/about.h"

namespace veldor {

void frmAbout_Load(Core& c) {
    FrmAbout& d = c.frmAbout = FrmAbout{};
    d.caption = "About " + ApplicationTitle;
    d.lblTitle.caption = ApplicationTitle;
    d.lblVersion.caption = QString("Version %1.%2.%3")
                               .arg(VELDOR_VERSION_MAJOR)
                               .arg(VELDOR_VERSION_MINOR)
                               .arg(VELDOR_VERSION_REVISION);
    d.lblDescription.caption =
        "Control of Yaesu transceivers and receivers over their CAT link: frequency, mode, "
        "memories, scanning and spectrum.";
    // The manual that ships with the program stands where a maker's web address would.
    d.lblLink.caption = c.s.HelpFile;
}

void frmAbout_lblLink_Click(Core& c) {
    c.p.system->openDocument(c.frmAbout.lblLink.caption);
}

void frmAbout_cmdOK_Click(Core& c) {
    c.p.windows->close(FormId::frmAbout);
}

}  // namespace veldor
