// Skelda's regional settings: one set for the whole program, whatever the machine says.
//
// English (United Kingdom): a date is written day first, 02/11/2004; a time on the 24-hour
// clock, 15:07:09; a number with a full stop before its decimals and no thousands separator,
// 20.8. The decoder writes its dates day first and the database reads them back that way, so
// these settings are part of the data, not only of the display.
#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringView>
#include <QTime>

#include <optional>

namespace skelda {

QString DateText(QDate date);                   // 02/11/2004
QString TimeText(QTime time);                   // 15:07:09
QString ShortTimeText(QTime time);              // 15:07, the 'Short Time' format
QString DateTimeText(const QDateTime& moment);  // 02/11/2004 15:07:09, the log's stamp

// A number as the default conversion to text writes it: up to 15 significant digits, no
// trailing zeros, "." before the decimals: 20.8, 0, -3, 995.
QString NumberText(double value);

// Reads a date written day first (d/m/yyyy, d/m/yy, also with "-" or "."), or an ISO date
// (yyyy-mm-dd). Two-digit years 00 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999.
std::optional<QDate> ParseDate(QStringView text);
// Reads a time h:mm or h:mm:ss, optionally followed by AM or PM.
std::optional<QTime> ParseTime(QStringView text);

}  // namespace skelda
