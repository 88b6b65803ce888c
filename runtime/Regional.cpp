#include "Regional.h"

#include "Convert.h"
#include "Text.h"

#include <QList>

#include <cmath>

namespace skelda {

QString DateText(QDate date) {
    // Written by hand: a format string is read again at every call, and the list of days writes
    // thousands of dates at a time.
    if (!date.isValid()) return {};
    int year = 0, month = 0, day = 0;
    date.getDate(&year, &month, &day);
    if (year < 0 || year > 9999) return date.toString(QStringLiteral("dd/MM/yyyy"));
    const char16_t text[] = {
        char16_t(u'0' + day / 10),    char16_t(u'0' + day % 10),        u'/',
        char16_t(u'0' + month / 10),  char16_t(u'0' + month % 10),      u'/',
        char16_t(u'0' + year / 1000), char16_t(u'0' + year / 100 % 10), char16_t(u'0' + year / 10 % 10),
        char16_t(u'0' + year % 10)};
    return QString(reinterpret_cast<const QChar*>(text), 10);
}
QString TimeText(QTime time) { return time.toString(QStringLiteral("HH:mm:ss")); }
QString ShortTimeText(QTime time) { return time.toString(QStringLiteral("HH:mm")); }
QString DateTimeText(const QDateTime& moment) { return DateText(moment.date()) + u' ' + TimeText(moment.time()); }

QString NumberText(double value) {
    if (value == 0) return QStringLiteral("0");
    QString text = QString::number(value, 'g', 15);
    if (text.contains(u'e')) {
        // The run time writes exponents as E+15 / E-05.
        const qsizetype e = text.indexOf(u'e');
        QString mantissa = text.left(e);
        int exponent = text.mid(e + 1).toInt();
        return mantissa + (exponent < 0 ? QStringLiteral("E-") : QStringLiteral("E+")) +
               FormatDigits(std::abs(exponent), 2);
    }
    return text;
}

namespace {

QList<QStringView> Pieces(QStringView text, QChar separator) {
    QList<QStringView> out;
    qsizetype from = 0;
    for (;;) {
        const qsizetype at = text.indexOf(separator, from);
        if (at < 0) break;
        out.append(text.sliced(from, at - from));
        from = at + 1;
    }
    out.append(text.sliced(from));
    return out;
}

bool AllDigits(QStringView text) {
    if (text.isEmpty()) return false;
    for (QChar c : text)
        if (!c.isDigit()) return false;
    return true;
}

}  // namespace

std::optional<QDate> ParseDate(QStringView text) {
    text = Trim(text);
    if (text.size() == 10 && text[4] == u'-' && text[7] == u'-') {
        const QDate iso = QDate::fromString(text.toString(), Qt::ISODate);
        if (iso.isValid()) return iso;
        return std::nullopt;
    }
    QChar separator = u'/';
    if (!text.contains(separator)) separator = text.contains(u'-') ? u'-' : u'.';
    const auto parts = Pieces(text, separator);
    if (parts.size() != 3) return std::nullopt;
    for (auto p : parts)
        if (!AllDigits(p)) return std::nullopt;
    const int day = parts[0].toInt();
    const int month = parts[1].toInt();
    int year = parts[2].toInt();
    if (parts[2].size() <= 2) year += year < 30 ? 2000 : 1900;
    const QDate date(year, month, day);
    if (!date.isValid()) return std::nullopt;
    return date;
}

std::optional<QTime> ParseTime(QStringView text) {
    text = Trim(text);
    int addHours = 0;
    bool twelveHour = false;
    if (text.endsWith(u"PM", Qt::CaseInsensitive) || text.endsWith(u"AM", Qt::CaseInsensitive)) {
        twelveHour = true;
        addHours = text.endsWith(u"PM", Qt::CaseInsensitive) ? 12 : 0;
        text = Trim(text.chopped(2));
    }
    const auto parts = Pieces(text, u':');
    if (parts.size() < 2 || parts.size() > 3) return std::nullopt;
    for (auto p : parts)
        if (!AllDigits(p)) return std::nullopt;
    int hour = parts[0].toInt();
    const int minute = parts[1].toInt();
    const int second = parts.size() == 3 ? parts[2].toInt() : 0;
    if (twelveHour) hour = hour % 12 + addHours;
    const QTime time(hour, minute, second);
    if (!time.isValid()) return std::nullopt;
    return time;
}

}  // namespace skelda
