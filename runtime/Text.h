// Text helpers that count positions from 1, as all of Skelda's procedures do.
//
// A range that runs past the end of a text gives what exists, which may be nothing: Mid("LFTH",
// 4, 5) is "H" and Mid("LFTH", 9) is empty. A start below 1 or a negative length is an
// "Invalid procedure call or argument" (RuntimeError 5). The views returned point into the text
// passed in: keep that text alive while the view is used.
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <algorithm>

namespace skelda {

// Throws the RuntimeError of a start below 1 or a negative length.
[[noreturn]] void ThrowInvalidProcedureCall();

// All the characters from Start (counted from 1). Defined here so that the decoder's many
// fixed-position reads compile to a few instructions each.
inline QStringView Mid(QStringView text, qsizetype start) {
    if (start < 1) ThrowInvalidProcedureCall();
    if (start > text.size()) return {};
    return text.sliced(start - 1);
}

// Length characters from Start, or as many as there are. Any negative length fails, -1 too: a
// length that a procedure computed is never taken for "the rest of the text", which only the
// call without a length means.
inline QStringView Mid(QStringView text, qsizetype start, qsizetype length) {
    if (start < 1 || length < 0) ThrowInvalidProcedureCall();
    if (start > text.size()) return {};
    return text.sliced(start - 1, std::min(length, text.size() - (start - 1)));
}
QStringView Left(QStringView text, qsizetype length);
QStringView Right(QStringView text, qsizetype length);

// Position (from 1) of the first Find in Text at or after Start, or 0. An empty Find is found
// at Start. CaseInsensitive compares without regard to case.
qsizetype InStr(QStringView text, QStringView find, Qt::CaseSensitivity cs = Qt::CaseSensitive);
qsizetype InStr(qsizetype start, QStringView text, QStringView find, Qt::CaseSensitivity cs = Qt::CaseSensitive);

// Blanks (the space character only, not tabs or line ends) removed at the ends.
QStringView Trim(QStringView text);
QStringView LTrim(QStringView text);
QStringView RTrim(QStringView text);

// Every Find replaced by With, in one pass from the left: what a replacement produces is not
// looked at again, so "a\r\n\r\n\r\n" with CR LF CR LF -> CR LF gives "a\r\n\r\n".
QString Replace(QStringView text, QStringView find, QStringView with, Qt::CaseSensitivity cs = Qt::CaseSensitive);

// The pieces between every single Delimiter: adjacent delimiters give empty pieces, and a text
// without any gives one piece.
QStringList Split(const QString& text, const QString& delimiter);

// The text of a whole number with at least Width digits, as Format(n, "00") writes it.
QString FormatDigits(qint64 number, int width);

// Carriage return and line feed, the line end of every text the program writes.
inline constexpr char16_t CrLf[] = u"\r\n";

}  // namespace skelda
