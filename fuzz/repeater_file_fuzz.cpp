// Any bytes as an ARRL repeater file, under either locale, read into rows; the rows are then
// written as the memory lines of a Kenwood file, as the window's export would.
#include "basic/basic.h"
#include "convert/convert.h"
#include "support/fakes.h"

#include <cstddef>
#include <cstdint>

using namespace veldor;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static test::Harness h;
    static const bool loaded = (frmConvert_Load(h.c), true);
    (void)loaded;
    // The first byte chooses the locale and the delimiter the reader is left with.
    const uint8_t choice = size > 0 ? data[0] : 0;
    const bool comma = choice & 1;
    basic::SetDecimalMark(comma ? ',' : '.');
    h.c.s.DecimalSeparator = comma ? "," : ".";
    h.c.s.FieldDelimiter = choice & 2 ? ";" : ",";
    const QByteArray bytes(reinterpret_cast<const char*>(data) + (size > 0 ? 1 : 0),
                           qsizetype(size > 0 ? size - 1 : 0));
    std::vector<MemoryRow> rows;
    h.c.s.ConvertFileType = ArrlRepeaterFile;
    ReadMemoryFile(h.c, bytes, &rows);
    h.c.s.ConvertFileType = 1 + choice / 4 % 3;
    QByteArray out;
    ExportKenwoodFile(h.c, "MEMORY\r\nCALL\r\n", rows, &out);
    return 0;
}
