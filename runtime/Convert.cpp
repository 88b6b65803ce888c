#include "Convert.h"

#include <cmath>
#include <limits>

namespace skelda {

namespace {

// Blanks around a number: the space, and the tab and line ends, so that the last group of a
// station file ("Q1015" followed by the file's line end) still reads as a number.
bool IsBlank(QChar c) { return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n'; }
bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }

// Parses the number of a text by hand: the common case (a few plain digits) must stay cheap,
// since the decoder converts several groups of every report.
bool Parse(QStringView text, double& out) {
    qsizetype i = 0;
    const qsizetype n = text.size();
    while (i < n && IsBlank(text[i])) ++i;
    bool negative = false;
    if (i < n && (text[i] == u'+' || text[i] == u'-')) {
        negative = text[i] == u'-';
        ++i;
    }
    double mantissa = 0;
    int digits = 0;
    int fractionDigits = 0;
    while (i < n && IsDigit(text[i])) {
        mantissa = mantissa * 10 + (text[i].unicode() - u'0');
        ++digits;
        ++i;
    }
    if (i < n && text[i] == u'.') {
        ++i;
        while (i < n && IsDigit(text[i])) {
            mantissa = mantissa * 10 + (text[i].unicode() - u'0');
            ++digits;
            ++fractionDigits;
            ++i;
        }
    }
    if (digits == 0) return false;
    int exponent = 0;
    if (i < n && (text[i] == u'E' || text[i] == u'e')) {
        ++i;
        bool expNegative = false;
        if (i < n && (text[i] == u'+' || text[i] == u'-')) {
            expNegative = text[i] == u'-';
            ++i;
        }
        int expDigits = 0;
        while (i < n && IsDigit(text[i])) {
            if (exponent < 10000) exponent = exponent * 10 + (text[i].unicode() - u'0');
            ++expDigits;
            ++i;
        }
        if (expDigits == 0) return false;
        if (expNegative) exponent = -exponent;
    }
    while (i < n && IsBlank(text[i])) ++i;
    if (i != n) return false;
    const int scale = exponent - fractionDigits;
    double value = mantissa;
    if (scale != 0) value = mantissa * std::pow(10.0, scale);
    out = negative ? -value : value;
    return true;
}

template <class T>
Fallible<T> RoundTo(double value) {
    const double r = RoundHalfEven(value);
    if (!(r >= double(std::numeric_limits<T>::min()) && r <= double(std::numeric_limits<T>::max())))
        return Fallible<T>::Failed(Overflow);
    return static_cast<T>(r);
}

// Plain short digit runs convert without any floating point.
bool SmallDigits(QStringView text, int& out) {
    const qsizetype n = text.size();
    if (n == 0 || n > 4) return false;
    int v = 0;
    for (QChar c : text) {
        if (!IsDigit(c)) return false;
        v = v * 10 + (c.unicode() - u'0');
    }
    out = v;
    return true;
}

}  // namespace

double RoundHalfEven(double value) { return std::nearbyint(value); }

Fallible<double> CDblOf(QStringView text) {
    double v = 0;
    if (!Parse(text, v)) return Fallible<double>::Failed(TypeMismatch);
    return v;
}

double CDbl(QStringView text) { return CDblOf(text).Value(); }

bool IsNumeric(QStringView text) {
    double v = 0;
    return Parse(text, v);
}

Fallible<int16_t> CIntOf(double value) { return RoundTo<int16_t>(value); }

Fallible<int16_t> CIntOf(QStringView text) {
    int small = 0;
    if (SmallDigits(text, small)) return static_cast<int16_t>(small);
    double v = 0;
    if (!Parse(text, v)) return Fallible<int16_t>::Failed(TypeMismatch);
    return RoundTo<int16_t>(v);
}

int16_t CInt(double value) { return CIntOf(value).Value(); }
int16_t CInt(QStringView text) { return CIntOf(text).Value(); }

Fallible<int32_t> CLngOf(double value) { return RoundTo<int32_t>(value); }

Fallible<int32_t> CLngOf(QStringView text) {
    double v = 0;
    if (!Parse(text, v)) return Fallible<int32_t>::Failed(TypeMismatch);
    return RoundTo<int32_t>(v);
}

int32_t CLng(double value) { return CLngOf(value).Value(); }
int32_t CLng(QStringView text) { return CLngOf(text).Value(); }

Fallible<int16_t> Add16(int16_t a, int16_t b) { return RoundTo<int16_t>(double(a) + double(b)); }
Fallible<int16_t> Mul16(int16_t a, int16_t b) { return RoundTo<int16_t>(double(a) * double(b)); }

}  // namespace skelda
