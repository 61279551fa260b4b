// The window that converts Kenwood memory files and ARRL repeater files.
#pragma once

#include "grid/memory_grid.h"
#include "link/controls.h"

#include <QString>

#include <array>

namespace veldor {

struct FrmConvert {
    QString caption = "VELDOR - Convert memory files";
    Frame frmRigType{{}, "Supported Kenwood rig types"};
    std::array<OptionButton, 5> optProgFile{{{{}, "TH-G71", true},
                                             {{}, "TM-D700"},
                                             {{}, "TH-D7A(G)"},
                                             {{}, "TH-D7A"},
                                             {{}, "ARRL Rpt"}}};
    CommandButton cmdLoadFile{{true, true, " Read a Kenwood memory file or an ARRL Repeater file "},
                              "Read &Disk File"};
    CommandButton cmdImport{{true, true, " Import a CSV file ready for Export to Kenwood "},
                            "&Import CSV"};
    CommandButton cmdExport{{false, true, " Export a CSV file of memories "}, "&Export CSV"};
    CommandButton cmdExportKenwood{{false, true, " Export a CSV file of memories "},
                                   "Export &Kenwood"};
    CommandButton cmdExit{{true, true, " Exit this screen "}, ""};
    Label lblFileLoaded{{true, true, "The name of the File last loaded"}, "No file loaded"};
    MemoryGrid grdMemories;  // its own, apart from the memory grid's; no row is hidden
    // Lookup lists: a file holds a tone or a code as its place in these, from 1. Never shown.
    ComboBox cboCTCSS{{true, false, {}}};
    ComboBox cboDCS{{true, false, {}}};
};

}  // namespace veldor
