// Any bytes as a file the conversion window reads, under either locale. A Kenwood memory file
// of any family is read into rows and those rows written back over the same bytes; an ARRL
// repeater file is read into rows, written as the memory lines of a Kenwood file of any family,
// as the window's export would.
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
    // The first byte chooses the file family (0 to 3 Kenwood's, 4 a repeater file), then the
    // locale, the delimiter the reader is left with, and the family a repeater file is written
    // as.
    const int choice = size > 0 ? data[0] : 0;
    const int family = choice % 5, rest = choice / 5;
    const bool comma = rest & 1;
    basic::SetDecimalMark(comma ? ',' : '.');
    h.c.s.DecimalSeparator = comma ? "," : ".";
    h.c.s.FieldDelimiter = rest & 2 ? ";" : ",";
    const QByteArray bytes(reinterpret_cast<const char*>(data) + (size > 0 ? 1 : 0),
                           qsizetype(size > 0 ? size - 1 : 0));
    h.c.s.ConvertFileType = family;
    std::vector<MemoryRow> rows;
    ReadMemoryFile(h.c, bytes, &rows);
    QByteArray out;
    if (family == ArrlRepeaterFile) {
        h.c.s.ConvertFileType = rest / 4 % 4;
        ExportKenwoodFile(h.c, "MEMORY\r\nCALL\r\n", rows, &out);
    } else {
        ExportKenwoodFile(h.c, bytes, rows, &out);
    }
    return 0;
}
