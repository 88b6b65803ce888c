// The store that the benchmarks measure against: ten years of half-hourly observations.
#pragma once

#include <QDate>
#include <QString>

namespace skelda::bench {

inline constexpr int kStoreAirports = 10;  // LF01 to LF10, "City 01" to "City 10", all active, LF01 preferred
inline constexpr int kStorePerDay = 48;    // one observation at :00 and :30 of every hour

// Creates database.mdb at Path with the program's schema and the ten airports, and fills Zefir
// with 48 observations a day for each airport over Days days from FirstDay (3652 days, ten years,
// make about 1.75 million rows). Written straight with SQLite in one transaction, so that a
// benchmark's set-up takes seconds. Throws std::runtime_error on failure.
void CreateSyntheticStore(const QString& path, QDate firstDay, int days);

// The same with another layout than the program's (SchemaSql, which makes tables Aéroports and
// Zefir): a file as an earlier version made it.
void CreateSyntheticStore(const QString& path, QDate firstDay, int days, const QString& schemaSql);

}  // namespace skelda::bench
