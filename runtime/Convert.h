// Conversions of numbers and texts to the program's integer widths.
//
// Numbers go to 16-bit integers (and 32-bit "long" integers) by rounding to the nearest, halves
// to the even neighbour: 2.5 gives 2, 3.5 gives 4. A result outside the range is an Overflow; a
// text that holds no number is a Type mismatch. The ...Of forms give a Fallible and never throw;
// the plain forms throw RuntimeError.
//
// A text counts as a number when it is, after optional blanks (spaces, tabs, line ends): an
// optional sign, digits with at most one "." among or before them, an optional exponent (E or e,
// optional sign, digits), and optional blanks again. So "12", " 12 ", "-3", "2.5", "1E3" are numbers; "", "//",
// "12/10", "M05", "1 1/2SM" are not.
#pragma once

#include "Failure.h"

#include <QStringView>

#include <cstdint>

namespace skelda {

// The number a text holds: the double nearest to it, whatever the machine's locale. Type mismatch
// when it holds none; Overflow when it lies beyond the largest double; a number too small for the
// smallest one gives a zero of its sign.
Fallible<double> CDblOf(QStringView text);
double CDbl(QStringView text);

// True when the whole text is a number in the sense above (the "is numeric" test).
bool IsNumeric(QStringView text);

Fallible<int16_t> CIntOf(double value);
Fallible<int16_t> CIntOf(QStringView text);
int16_t CInt(double value);
int16_t CInt(QStringView text);

Fallible<int32_t> CLngOf(double value);
Fallible<int32_t> CLngOf(QStringView text);
int32_t CLng(double value);
int32_t CLng(QStringView text);

// 16-bit arithmetic: the result of a sum or a product must fit, or it is an Overflow.
Fallible<int16_t> Add16(int16_t a, int16_t b);
Fallible<int16_t> Mul16(int16_t a, int16_t b);

// Rounds to the nearest whole number, halves to the even neighbour, in double precision.
double RoundHalfEven(double value);

}  // namespace skelda
