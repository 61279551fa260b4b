// Any bytes as a Kenwood memory file of any family, under either locale: read into rows, and
// those rows written back over the same bytes.
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
    // The first byte chooses the family and the locale.
    const uint8_t choice = size > 0 ? data[0] : 0;
    const bool comma = choice & 4;
    basic::SetDecimalMark(comma ? ',' : '.');
    h.c.s.DecimalSeparator = comma ? "," : ".";
    h.c.s.FieldDelimiter = comma ? ";" : ",";
    h.c.s.ConvertFileType = choice % 4;
    const QByteArray bytes(reinterpret_cast<const char*>(data) + (size > 0 ? 1 : 0),
                           qsizetype(size > 0 ? size - 1 : 0));
    std::vector<MemoryRow> rows;
    ReadMemoryFile(h.c, bytes, &rows);
    QByteArray out;
    ExportKenwoodFile(h.c, bytes, rows, &out);
    return 0;
}
