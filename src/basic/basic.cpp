#include "basic/basic.h"

#include <cmath>
#include <limits>

namespace veldor::basic {

namespace {

QChar gDecimalMark = '.';

bool IsBlank(QChar c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

template <typename T>
T RoundHalfEven(double x) {
    if (std::isnan(x)) return 0;
    const double r = std::nearbyint(x);  // the default rounding mode is to nearest, even
    if (r >= static_cast<double>(std::numeric_limits<T>::max()))
        return std::numeric_limits<T>::max();
    if (r <= static_cast<double>(std::numeric_limits<T>::min()))
        return std::numeric_limits<T>::min();
    return static_cast<T>(r);
}

double RadixPrefix(const QString& t, int i) {
    // "&H1F" or "&O17": stops at the first digit that does not belong.
    const QChar kind = t[i + 1].toUpper();
    const int base = kind == 'H' ? 16 : 8;
    double value = 0;
    for (int j = i + 2; j < t.size(); ++j) {
        const int d = t[j].isDigit() ? t[j].digitValue()
                                     : (base == 16 && QString("ABCDEF").contains(t[j].toUpper())
                                            ? t[j].toUpper().unicode() - 'A' + 10
                                            : -1);
        if (d < 0 || d >= base) break;
        value = value * base + d;
    }
    return value;
}

}  // namespace

void SetDecimalMark(QChar mark) {
    gDecimalMark = mark;
}
QChar DecimalMark() {
    return gDecimalMark;
}

double Val(const QString& text) {
    // Blanks anywhere in the number are passed over.
    QString t;
    t.reserve(text.size());
    for (QChar c : text)
        if (!IsBlank(c)) t += c;
    if (t.size() >= 2 && t[0] == '&' && (t[1].toUpper() == 'H' || t[1].toUpper() == 'O'))
        return RadixPrefix(t, 0);
    int i = 0;
    QString number;
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) number += t[i++];
    bool digits = false, point = false;
    for (; i < t.size(); ++i) {
        if (t[i].isDigit() && t[i].unicode() < 128) {
            number += t[i];
            digits = true;
        } else if (t[i] == '.' && !point) {
            number += '.';
            point = true;
        } else {
            break;
        }
    }
    if (!digits) return 0;
    // An exponent counts only when digits follow it.
    if (i < t.size() && (t[i].toUpper() == 'E' || t[i].toUpper() == 'D')) {
        int j = i + 1;
        QString exponent = "e";
        if (j < t.size() && (t[j] == '+' || t[j] == '-')) exponent += t[j++];
        const int start = j;
        while (j < t.size() && t[j].isDigit() && t[j].unicode() < 128) exponent += t[j++];
        if (j > start) number += exponent;
    }
    bool ok = false;
    const double value = number.toDouble(&ok);
    return ok && std::isfinite(value) ? value : 0;
}

double Int(double x) {
    return std::floor(x);
}

int32_t CLng(double x) {
    return RoundHalfEven<int32_t>(x);
}
int16_t CInt(double x) {
    return RoundHalfEven<int16_t>(x);
}

bool BooleanText(const QString& text) {
    const QString t = text.trimmed();
    if (t.compare("True", Qt::CaseInsensitive) == 0) return true;
    if (t.compare("False", Qt::CaseInsensitive) == 0) return false;
    return Val(t) != 0;
}

bool IsNumeric(const QString& text) {
    const QString t = text.trimmed();
    if (t.isEmpty()) return false;
    if (t.size() >= 3 && t[0] == '&' && (t[1].toUpper() == 'H' || t[1].toUpper() == 'O')) {
        const int base = t[1].toUpper() == 'H' ? 16 : 8;
        bool ok = false;
        t.mid(2).toLongLong(&ok, base);
        return ok;
    }
    int i = 0;
    if (t[i] == '+' || t[i] == '-') ++i;
    bool digits = false, point = false;
    for (; i < t.size(); ++i) {
        if (t[i].isDigit() && t[i].unicode() < 128) {
            digits = true;
        } else if (t[i] == gDecimalMark && !point) {
            point = true;
        } else {
            break;
        }
    }
    if (!digits) return false;
    if (i < t.size() && (t[i].toUpper() == 'E' || t[i].toUpper() == 'D')) {
        ++i;
        if (i < t.size() && (t[i] == '+' || t[i] == '-')) ++i;
        const int start = i;
        while (i < t.size() && t[i].isDigit() && t[i].unicode() < 128) ++i;
        if (i == start) return false;
    }
    return i == t.size();
}

QString Format(double value, const QString& pattern) {
    const qsizetype pointAt = pattern.indexOf('.');
    const QString intPattern = pointAt < 0 ? pattern : pattern.left(pointAt);
    const QString fracPattern = pointAt < 0 ? QString() : pattern.mid(pointAt + 1);
    const int decimals = static_cast<int>(fracPattern.count('0') + fracPattern.count('#'));

    // Half away from zero, on the decimal digits the pattern keeps.
    const bool negative = value < 0;
    const double scaled = std::round(std::fabs(value) * std::pow(10.0, decimals));
    QString digits = QString::number(scaled, 'f', 0);
    while (digits.size() <= decimals) digits.prepend('0');
    QString whole = digits.left(digits.size() - decimals);
    QString fraction = digits.right(decimals);
    if (whole == "0") whole.clear();

    // Whole part: the digits right-aligned into the pattern; extra digits go in front.
    const int zeroSlots = [&] {
        const qsizetype first = intPattern.indexOf('0');
        if (first < 0) return 0;
        int n = 0;
        for (qsizetype i = first; i < intPattern.size(); ++i)
            if (intPattern[i] == '0' || intPattern[i] == '#') ++n;
        return n;
    }();
    while (whole.size() < zeroSlots) whole.prepend('0');
    QString outWhole;
    qsizetype d = whole.size() - 1;
    for (qsizetype i = intPattern.size() - 1; i >= 0; --i) {
        const QChar p = intPattern[i];
        if (p == '0' || p == '#') {
            if (d >= 0) outWhole.prepend(whole[d--]);
        } else {
            outWhole.prepend(p);
        }
    }
    if (d >= 0) outWhole.prepend(whole.left(d + 1));

    // Fraction: '#' places drop trailing zeros.
    QString outFraction;
    int kept = static_cast<int>(fraction.size());
    for (qsizetype i = fracPattern.size() - 1; i >= 0 && kept > 0; --i) {
        if (fracPattern[i] == '#' && fraction[kept - 1] == '0')
            --kept;
        else
            break;
    }
    int f = 0;
    for (QChar p : fracPattern) {
        if (p == '0' || p == '#') {
            if (f < kept) outFraction += fraction[f];
            ++f;
        } else {
            outFraction += p;
        }
    }
    QString out = outWhole;
    if (pointAt >= 0) out += gDecimalMark + outFraction;
    const bool allZero = scaled == 0;
    if (negative && !allZero) out.prepend('-');
    return out;
}

}  // namespace veldor::basic
