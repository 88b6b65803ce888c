#include "Convert.h"

#include <QVarLengthArray>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace skelda {

namespace {

// Blanks around a number: the space, and the tab and line ends, so that the last group of a
// station file ("Q1015" followed by the file's line end) still reads as a number.
bool IsBlank(QChar c) { return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n'; }
bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }

// Where the parts of a number stand in its text. The scan is done by hand: the common case (a
// few plain digits) must stay cheap, since the decoder converts several groups of every report.
struct NumberParts {
    bool negative = false;
    QStringView whole;     // the digits before the "." (maybe none)
    QStringView fraction;  // the digits after it (maybe none)
    int exponent = 0;      // held within +-kExponentLimit, far beyond any double
};

// An exponent larger than this gives infinity or zero whatever the digits, so counting further
// would only risk overflowing the int.
constexpr int kExponentLimit = 100000;

bool Scan(QStringView text, NumberParts& number) {
    qsizetype i = 0;
    const qsizetype n = text.size();
    auto digitsFrom = [&](qsizetype from) {
        while (i < n && IsDigit(text[i])) ++i;
        return text.sliced(from, i - from);
    };
    while (i < n && IsBlank(text[i])) ++i;
    if (i < n && (text[i] == u'+' || text[i] == u'-')) {
        number.negative = text[i] == u'-';
        ++i;
    }
    number.whole = digitsFrom(i);
    if (i < n && text[i] == u'.') {
        ++i;
        number.fraction = digitsFrom(i);
    }
    if (number.whole.isEmpty() && number.fraction.isEmpty()) return false;
    if (i < n && (text[i] == u'E' || text[i] == u'e')) {
        ++i;
        bool expNegative = false;
        if (i < n && (text[i] == u'+' || text[i] == u'-')) {
            expNegative = text[i] == u'-';
            ++i;
        }
        const QStringView digits = digitsFrom(i);
        if (digits.isEmpty()) return false;
        for (QChar c : digits) number.exponent = std::min(number.exponent * 10 + (c.unicode() - u'0'), kExponentLimit);
        if (expNegative) number.exponent = -number.exponent;
    }
    while (i < n && IsBlank(text[i])) ++i;
    return i == n;
}

// The power of ten of the leading digit's place plus one: 0 for 0.5, 3 for 123. Only asked of a
// number too large or too small for a double, to tell the two apart.
qsizetype Magnitude(const NumberParts& number) {
    qsizetype place = number.whole.size();
    for (QStringView digits : {number.whole, number.fraction}) {
        for (QChar c : digits) {
            if (c != u'0') return place + number.exponent;
            --place;
        }
    }
    return 0;
}

// The double nearest to the number, as the C++ library rounds it (correctly, whatever the
// locale); Overflow beyond the largest double. A number too small for the smallest one gives a
// zero of its sign.
Fallible<double> ValueOf(const NumberParts& number) {
    // Up to 15 plain digits are exact in a double: no rounding to do.
    if (number.fraction.isEmpty() && number.exponent == 0 && number.whole.size() <= 15) {
        double v = 0;
        for (QChar c : number.whole) v = v * 10 + (c.unicode() - u'0');
        return number.negative ? -v : v;
    }
    QVarLengthArray<char, 64> ascii;
    if (number.negative) ascii.append('-');
    if (number.whole.isEmpty()) ascii.append('0');
    for (QChar c : number.whole) ascii.append(char(c.unicode()));
    if (!number.fraction.isEmpty()) {
        ascii.append('.');
        for (QChar c : number.fraction) ascii.append(char(c.unicode()));
    }
    if (number.exponent != 0) {
        char exponent[16];
        const int size = std::snprintf(exponent, sizeof exponent, "e%d", number.exponent);
        ascii.append(exponent, size);
    }
    double v = 0;
    const auto [end, error] = std::from_chars(ascii.cbegin(), ascii.cend(), v);
    if (error == std::errc::result_out_of_range) {
        if (Magnitude(number) > 0) return Fallible<double>::Failed(Overflow);
        return number.negative ? -0.0 : 0.0;
    }
    return v;
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
    NumberParts number;
    if (!Scan(text, number)) return Fallible<double>::Failed(TypeMismatch);
    return ValueOf(number);
}

double CDbl(QStringView text) { return CDblOf(text).Value(); }

bool IsNumeric(QStringView text) {
    NumberParts number;
    return Scan(text, number);
}

Fallible<int16_t> CIntOf(double value) { return RoundTo<int16_t>(value); }

Fallible<int16_t> CIntOf(QStringView text) {
    int small = 0;
    if (SmallDigits(text, small)) return static_cast<int16_t>(small);
    return CDblOf(text).Then(RoundTo<int16_t>);
}

int16_t CInt(double value) { return CIntOf(value).Value(); }
int16_t CInt(QStringView text) { return CIntOf(text).Value(); }

Fallible<int32_t> CLngOf(double value) { return RoundTo<int32_t>(value); }

Fallible<int32_t> CLngOf(QStringView text) { return CDblOf(text).Then(RoundTo<int32_t>); }

int32_t CLng(double value) { return CLngOf(value).Value(); }
int32_t CLng(QStringView text) { return CLngOf(text).Value(); }

Fallible<int16_t> Add16(int16_t a, int16_t b) { return RoundTo<int16_t>(double(a) + double(b)); }
Fallible<int16_t> Mul16(int16_t a, int16_t b) { return RoundTo<int16_t>(double(a) * double(b)); }

}  // namespace skelda
