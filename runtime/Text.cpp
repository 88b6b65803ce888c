#include "Text.h"

#include "Failure.h"

namespace skelda {

void ThrowInvalidProcedureCall() { throw RuntimeError(InvalidProcedureCall); }

QStringView Left(QStringView text, qsizetype length) {
    if (length < 0) throw RuntimeError(InvalidProcedureCall);
    return text.first(std::min(length, text.size()));
}

QStringView Right(QStringView text, qsizetype length) {
    if (length < 0) throw RuntimeError(InvalidProcedureCall);
    return text.last(std::min(length, text.size()));
}

qsizetype InStr(QStringView text, QStringView find, Qt::CaseSensitivity cs) { return InStr(1, text, find, cs); }

qsizetype InStr(qsizetype start, QStringView text, QStringView find, Qt::CaseSensitivity cs) {
    if (start < 1) throw RuntimeError(InvalidProcedureCall);
    if (start > text.size()) return 0;
    if (find.isEmpty()) return start;
    const qsizetype at = text.indexOf(find, start - 1, cs);
    return at < 0 ? 0 : at + 1;
}

QStringView LTrim(QStringView text) {
    qsizetype i = 0;
    while (i < text.size() && text[i] == u' ') ++i;
    return text.sliced(i);
}

QStringView RTrim(QStringView text) {
    qsizetype n = text.size();
    while (n > 0 && text[n - 1] == u' ') --n;
    return text.first(n);
}

QStringView Trim(QStringView text) { return RTrim(LTrim(text)); }

QString Replace(QStringView text, QStringView find, QStringView with, Qt::CaseSensitivity cs) {
    if (find.isEmpty()) return text.toString();
    QString out;
    out.reserve(text.size());
    qsizetype from = 0;
    for (;;) {
        const qsizetype at = text.indexOf(find, from, cs);
        if (at < 0) break;
        out.append(text.sliced(from, at - from));
        out.append(with);
        from = at + find.size();
    }
    out.append(text.sliced(from));
    return out;
}

QStringList Split(const QString& text, const QString& delimiter) { return text.split(delimiter, Qt::KeepEmptyParts); }

QString FormatDigits(qint64 number, int width) {
    const bool negative = number < 0;
    QString digits = QString::number(negative ? -number : number).rightJustified(width, u'0');
    return negative ? QStringLiteral("-") + digits : digits;
}

}  // namespace skelda
