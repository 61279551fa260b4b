#include "convert/numbers.h"

#include "basic/basic.h"

#include <cmath>

namespace veldor {

bool CDbl(Core& c, const QString& text, double* value) {
    if (!basic::IsNumeric(text)) return false;
    QString t = text.trimmed();
    if (c.s.DecimalSeparator != ".") t.replace(c.s.DecimalSeparator, ".");
    *value = basic::Val(t);
    return std::isfinite(*value);
}

QString NumberText(Core& c, double value) {
    return QString::number(value, 'g', 15).replace('.', c.s.DecimalSeparator);
}

}  // namespace veldor
