// The memory grid window: the grid, the filter strip with GoTo, the edit panel that takes its
// place while a row is edited, and the window's menus.
#pragma once

#include "grid/memory_grid.h"
#include "link/controls.h"

#include <array>

namespace veldor {

struct FrmCsvMem {
    QString caption = "VELDOR - Memory Grid";
    // Placement and size in twips, and 0 normal, 1 minimised, 2 maximised.
    int top = 0;
    int left = 0;
    int width = 10000;
    int height = 6000;
    int windowState = 0;

    MemoryGrid grdMemories;

    // The filter strip. There is no chkFilter(2): that member stays hidden.
    Frame frmMainControl;
    std::array<CheckBox, 5> chkFilter{{
        {{true, true, " Enable/disable the Show Groups filter on the left "}, {}},
        {{true, true, " Enable/disable the Show Groups filter on the left "}, {}},
        {{false, false, {}}, {}},
        {{true, true, " Enable/disable Show Mode filter "}, {}},
        {{true, true, " Enable/disable Lo/Hi filter "}, {}},
    }};
    std::array<ComboBox, 2> cboShow{{{{true, true, " Show if group code matches "}},
                                     {{true, true, " Show if group code matches "}}}};
    ComboBox cboModeFilter{{true, true, " Show only this mode "}};
    TextBox txtFreqLo{{true, true, " Lowest frequency to show "}, {}};
    TextBox txtFreqHi{{true, true, " Highest frequency to show "}, {}};
    Label lblShowGroups{{}, "Show Groups"};
    Label lblOr{{}, " or "};
    Label lblShowMode{{}, "Show Mode"};
    CommandButton cmdGoTo{{true, true, " GoTo selected memory (F2) "}, "GoTo"};

    // The edit panel, shown in place of the filter strip while a row is edited.
    Frame frmEdit{{true, false, {}}, {}};
    TextBox txtFreqRX{{true, true, " Receive frequency "}, {}};
    ComboBox cboMode{{true, true, " RX Operating mode "}};
    ComboBox cboShift{{true, true, " Shift direction, or Split mode "}};
    TextBox txtFreqTX{{true, true, " Transmit frequency or offset "}, {}};
    ComboBox cboTXMode{{true, true, " TX Operating mode "}};
    ComboBox cboDecode{{true, true, " Encoding/decoding method "}};
    ComboBox cboCTCSS{{true, true, " CTCSS frequency "}};
    ComboBox cboDCS{{true, true, " DCS code "}};
    Label lblDisplayOnRig{{}, "Display on rig"};
    std::array<OptionButton, 2> optName{{{{}, "Freq", true}, {{}, "Name", false}}};
    Label lblName{{}, "Name"};
    TextBox txtName;
    CheckBox chkScan{{}, "Scan"};
    Label lblGroup{{}, "Group"};
    TextBox txtGroup;
    TextBox txtDescription{{true, true, " Description "}, {}};
    CommandButton cmdEditOK{{false, true, " Accept the memory changes made "}, "OK"};
    CommandButton cmdEditCancel{{false, true, " Abort the memory changes made "}, "Cancel"};
    Label lblEditing;

    MenuItem mnuNewGrid{"&New memory grid"};
    MenuItem mnuAddCSV{"&Add a CSV file to grid"};
    MenuItem mnuPrint{"&Print"};
    MenuItem mnuSaveCSV{"&Save All as a CSV file"};
    MenuItem mnuSaveFiltered{"Save &Filtered as a CSV file"};
    MenuItem mnuGoTo{"&GoTo"};
    MenuItem mnuExit{"E&xit"};
    MenuItem mnuEdit{"&Edit"};
    MenuItem mnuRenumber{"&Renumber"};
    MenuItem mnuCopy{"&Copy"};
    MenuItem mnuInsertAbove{"&Insert above"};
    MenuItem mnuMove{"&Move"};
    MenuItem mnuSwap{"&Swap"};
    MenuItem mnuClearFilters{"&Clear all filters"};
};

}  // namespace veldor
