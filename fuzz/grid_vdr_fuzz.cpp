// Any bytes as the grid's own file: refused with a reason, or read; what was read is written
// again and reads back to the same cells.
#include "grid/grid.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace veldor;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    std::vector<GridRow> rows(1);
    rows[0].cells[0] = "as it was";
    QString reason;
    if (!DecodeGrid(bytes, &rows, &reason)) {
        // A refused file leaves the grid as it was.
        if (reason.isEmpty() || rows.size() != 1 || rows[0].cells[0] != "as it was") std::abort();
        return 0;
    }
    std::vector<GridRow> back;
    if (!DecodeGrid(EncodeGrid(rows), &back, &reason) || back.size() != rows.size()) std::abort();
    for (size_t r = 0; r < rows.size(); ++r)
        if (back[r].cells != rows[r].cells) std::abort();
    return 0;
}
