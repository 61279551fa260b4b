// The about box: the program's title and version, and where its manual is.
#pragma once

#include "link/core.h"

namespace veldor {

// The program's title as the windows show it.
inline const QString ApplicationTitle = QStringLiteral("VELDOR");

void frmAbout_Load(Core& c);
void frmAbout_lblLink_Click(Core& c);
void frmAbout_cmdOK_Click(Core& c);

}  // namespace veldor
