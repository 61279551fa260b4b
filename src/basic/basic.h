// Number and text helpers with the semantics the program relies on.
#pragma once

#include <QChar>
#include <QString>

#include <cstdint>

namespace veldor::basic {

// The system's decimal mark, used by Format and IsNumeric; "." unless set.
void SetDecimalMark(QChar mark);
QChar DecimalMark();

// The leading number of a text, 0 if there is none: blanks are skipped, "." is always the
// decimal point, an exponent and the prefixes "&H" and "&O" are understood.
double Val(const QString& text);
// The greatest whole number not above x.
double Int(double x);
// Conversion to a whole number: nearest, half to even. Values beyond the type saturate.
int32_t CLng(double x);
int16_t CInt(double x);
// A stored boolean: the platform's "True" and "False", or a number (non-zero is true).
bool BooleanText(const QString& text);
// Whether the text reads as a number in the system's locale.
bool IsNumeric(const QString& text);
// A number in a pattern such as "000", "00000000", "###.00000", "##0.00000" or "#.0": 0 is a
// digit always shown, # a digit shown only when it counts, "." the system's decimal mark.
// Rounds half away from zero.
QString Format(double value, const QString& pattern);

}  // namespace veldor::basic
