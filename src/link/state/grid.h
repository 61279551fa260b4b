// The state of the memory grid.
#pragma once

#include <QString>

#include <cstdint>

namespace veldor {

struct GridState {
    // A visible row has Scan "Y": the grid window is open and a grid scan can run.
    bool GridHasScanRows = false;
    // The grid window is loaded (its rows read, its lists filled).
    bool MemoryGridLoaded = false;
    // The export leaves hidden rows out.
    bool SaveFilteredOnly = false;
    // The system has a printer.
    bool PrinterAvailable = false;
};

}  // namespace veldor
