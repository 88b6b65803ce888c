// The tables of a database.mdb made by an earlier version of Skelda, as that version made them:
// the airports, the observations with their two unique keys, and the index of days; none of this
// version's other indexes, saved query or table of days. Tests of the upgrade and the start's
// benchmark build earlier files from it.
#pragma once

namespace skelda::test {

inline constexpr char EarlierTables[] = R"(
CREATE TABLE "Aéroports" ("idx" INTEGER PRIMARY KEY AUTOINCREMENT, "IDA" TEXT COLLATE NOCASE, "aéroport" TEXT,
    "ville" TEXT COLLATE NOCASE, "timezone" TEXT, "activé" BOOLEAN, "préféré" BOOLEAN, "codeforecast" TEXT);
CREATE TABLE "Zefir" ("NumAéroport" INTEGER, "lieu" TEXT, "daterelevé" DATE, "heurerelevé" TIME,
    "forcenoeuds" SMALLINT, "orientationdegré" TEXT, "forcerafale" SMALLINT, "zefirvariable" BOOLEAN,
    "secteur1" SMALLINT, "secteur2" SMALLINT, "visibilité" TEXT, "temps" TEXT, "nuage" TEXT,
    "température" SMALLINT, "pression" SMALLINT, "METAF" TEXT);
CREATE UNIQUE INDEX "Relevé" ON "Zefir" ("NumAéroport", "daterelevé", "heurerelevé");
CREATE UNIQUE INDEX "Relevé saisi" ON "Zefir" ("lieu", "daterelevé", "heurerelevé") WHERE "NumAéroport" IS NULL;
CREATE INDEX "Jours" ON "Zefir" ("daterelevé");
)";

}  // namespace skelda::test
