// The state of the file conversion window.
#pragma once

namespace veldor {

struct ConvertState {
    // The kind of file the window reads and writes: 0 *.71, 1 *.700, 2 *.D7G, 3 *.D7, 4 an
    // ARRL repeater file.
    int ConvertFileType = 0;
    // Rows have been read or imported into the window's grid.
    bool GridLoaded = false;
};

}  // namespace veldor
