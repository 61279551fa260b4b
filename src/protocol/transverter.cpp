#include "protocol/transverter.h"

#include "basic/basic.h"

namespace veldor {

QString TransverterFrequencyText(const Core& c, int32_t frequency) {
    const int64_t base = c.s.XvtrBaseFrequency;
    const int64_t shifted = c.f.optXvtr[0].value ? base + frequency : base - frequency;
    if (shifted < 0) return "Error";
    const QString d = basic::Format(static_cast<double>(shifted), "00000000000");
    const QString& mark = c.s.DecimalSeparator;
    return d.left(3) + mark + d.mid(3, 3) + mark + d.mid(6, 3) + mark + d.right(2);
}

QString TransverterBaseText(const Core& c) {
    const QString d = basic::Format(c.s.XvtrBaseFrequency, "0000000000");
    return d.left(5) + c.s.DecimalSeparator + d.right(5);
}

void ShowTransverter(Core& c, int32_t frequency) {
    if (!c.f.mnuXvtr.checked || c.s.XvtrDisplayOff) return;
    c.f.txtXvtr.text = TransverterFrequencyText(c, frequency);
    c.f.txtXvtrBase.text = TransverterBaseText(c);
}

}  // namespace veldor
