// The field reader of delimited lines, as the memory grid's CSV import reads them.
#pragma once

#include "link/core.h"

#include <QString>

namespace veldor {

// Quotes become blanks, and so do delimiters between quotes: a quoted text keeps its length.
void BlankQuotedDelimiters(Core& c, QString& line);
// Field index (from 1) of a line split at FieldDelimiter; empty when the line has too few
// delimiters. Fields 2 and 5 (the frequencies) have their decimal mark made the locale's.
QString GetCsvField(Core& c, const QString& line, int index);

}  // namespace veldor
