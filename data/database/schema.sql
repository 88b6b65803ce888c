-- The tables, indexes and saved query of database.mdb, Skelda's one lasting store.
--
-- Conventions of the file, which the access layer of the program relies on:
--   * Names keep their accents and are matched without regard to case.
--   * Declared types say how a value reads back: DATE, TIME, BOOLEAN, SMALLINT (16 bits),
--     INTEGER (32 bits), TEXT.
--   * A date is stored as the text 'YYYY-MM-DD' and a time of day as 'HH:MM:SS', so that both
--     sort, compare and index in time order; a boolean as 1 or 0.
--   * A table named after a column, "Zefir.daterelevé", holds every distinct value of that
--     column once, kept by triggers; the access layer reads it for a query of those values.
--
-- The text can be run again on a file made by an earlier version, to bring that file up to this
-- one without touching its rows: tables and indexes are made only where missing, and the saved
-- query and the triggers are dropped first and made afresh (see UpgradeDatabase).

-- One row per airport known to the program. Rows are never deleted.
CREATE TABLE IF NOT EXISTS "Aéroports" (
    "idx"          INTEGER PRIMARY KEY AUTOINCREMENT,  -- the airport's number, given by the database
    "IDA"          TEXT COLLATE NOCASE,                -- station code, 4 letters
    "aéroport"     TEXT,
    "ville"        TEXT COLLATE NOCASE,                -- the sort key of every list
    "timezone"     TEXT,                               -- a numeric text, such as +1 or -6
    "activé"       BOOLEAN,                            -- polled and listed
    "préféré"      BOOLEAN,                            -- the one preferred airport
    "codeforecast" TEXT                                -- page of the forecast portal; Null when none
);

-- One row per stored observation. Rows are never changed or deleted.
CREATE TABLE IF NOT EXISTS "Zefir" (
    "NumAéroport"      INTEGER,   -- Aéroports.idx (0 for an unknown station); Null on a typed row
    "lieu"             TEXT,      -- "city - airport", on a typed row only
    "daterelevé"       DATE,
    "heurerelevé"      TIME,
    "forcenoeuds"      SMALLINT,  -- knots, negative for a variable wind
    "orientationdegré" TEXT,      -- three-digit direction as the report gives it; its readers also
                                  -- take it as a number
    "forcerafale"      SMALLINT,
    "zefirvariable"    BOOLEAN,
    "secteur1"         SMALLINT,
    "secteur2"         SMALLINT,
    "visibilité"       TEXT,
    "temps"            TEXT,
    "nuage"            TEXT,
    "température"      SMALLINT,
    "pression"         SMALLINT,
    "METAF"            TEXT
);

-- An observation is its airport, day and time: the same report fetched twice is refused (the
-- program counts on that refusal as its only duplicate check). A typed observation has no airport
-- number but its place, so the place is part of the key too. A column left Null (a station code
-- the lookup couldn't resolve, a date or time that couldn't be read) counts as a value here, equal
-- to itself, so that the same unreadable report stored twice is refused like any other: a plain
-- unique index would take every Null for a new value. x'' stands for Null because no column of
-- the key ever holds a blob.
CREATE UNIQUE INDEX IF NOT EXISTS "Relevé unique" ON "Zefir" (
    ifnull("NumAéroport", x''),
    ifnull("lieu", x''),
    ifnull("daterelevé", x''),
    ifnull("heurerelevé", x'')
);

-- The day chart reads one airport's day in time order.
CREATE INDEX IF NOT EXISTS "Relevé" ON "Zefir" ("NumAéroport", "daterelevé", "heurerelevé");

-- Every day of a row, for the rows of one day (the triggers below look there).
CREATE INDEX IF NOT EXISTS "Jours" ON "Zefir" ("daterelevé");

-- The list of days: every distinct day of Zefir once, so that the list reads a few thousand rows
-- rather than every row of ten years. The database keeps it as rows come and go; a Null day is
-- kept as x'' (a blob, which no day is), since a key can't be Null. The last statement fills it
-- on a file that had no such table.
CREATE TABLE IF NOT EXISTS "Zefir.daterelevé" ("valeur" PRIMARY KEY NOT NULL) WITHOUT ROWID;

DROP TRIGGER IF EXISTS "Jour ajouté";
CREATE TRIGGER "Jour ajouté" AFTER INSERT ON "Zefir" BEGIN
    INSERT OR IGNORE INTO "Zefir.daterelevé" VALUES (ifnull(NEW."daterelevé", x''));
END;

DROP TRIGGER IF EXISTS "Jour changé";
CREATE TRIGGER "Jour changé" AFTER UPDATE OF "daterelevé" ON "Zefir" BEGIN
    INSERT OR IGNORE INTO "Zefir.daterelevé" VALUES (ifnull(NEW."daterelevé", x''));
    DELETE FROM "Zefir.daterelevé" WHERE "valeur" = ifnull(OLD."daterelevé", x'')
        AND NOT EXISTS (SELECT 1 FROM "Zefir" WHERE "daterelevé" IS OLD."daterelevé");
END;

DROP TRIGGER IF EXISTS "Jour retiré";
CREATE TRIGGER "Jour retiré" AFTER DELETE ON "Zefir" BEGIN
    DELETE FROM "Zefir.daterelevé" WHERE "valeur" = ifnull(OLD."daterelevé", x'')
        AND NOT EXISTS (SELECT 1 FROM "Zefir" WHERE "daterelevé" IS OLD."daterelevé");
END;

INSERT OR IGNORE INTO "Zefir.daterelevé" SELECT DISTINCT ifnull("daterelevé", x'') FROM "Zefir";

-- The month of one airport, as the saved query below asks for it: the year and the month are the
-- very expressions of that query, so that its filter on mois and annee reaches this index, and the
-- days of the month come out of it in order.
CREATE INDEX IF NOT EXISTS "Mois" ON "Zefir" (
    "NumAéroport",
    CAST(substr("daterelevé", 1, 4) AS INTEGER),
    CAST(substr("daterelevé", 6, 2) AS INTEGER),
    "daterelevé"
);

-- One row per airport and day: the day's mean and highest wind with the time and direction of
-- that peak, and the day's mean, highest and lowest temperature and pressure. A variable wind is
-- stored with its speed negated, so the wind figures take the speed as a magnitude: 5 knots
-- variable count as 5 knots in the mean and can be the peak. The peak is the first observation of
-- the day at the day's highest speed. A variable wind has no direction, nor has a wind whose
-- direction is blank: such a peak gives a Null "Orientation", never 0 (North). Typed rows belong
-- to no airport and are left out. Days come in ascending order.
DROP VIEW IF EXISTS "Heure de pointe selon zefir";
CREATE VIEW "Heure de pointe selon zefir" AS
SELECT jour."NumAéroport"  AS "numaéroport",
       jour."mois"         AS "mois",
       jour."annee"        AS "annee",
       jour."daterelevé"   AS "daterelevé",
       jour."zefirmoyen"   AS "zefirmoyen",
       abs(pointe."forcenoeuds") AS "zefirmaxi",
       pointe."heurerelevé" AS "heuredepointe",
       CASE WHEN pointe."zefirvariable" OR trim(pointe."orientationdegré") = '' THEN NULL
            ELSE CAST(pointe."orientationdegré" AS INTEGER) END AS "Orientation",
       jour."tempmoyen"    AS "tempmoyen",
       jour."tempmaxi"     AS "tempmaxi",
       jour."tempmini"     AS "tempmini",
       jour."pmoyen"       AS "pmoyen",
       jour."pmaxi"        AS "pmaxi",
       jour."pmini"        AS "pmini"
FROM (SELECT z."NumAéroport",
             CAST(substr(z."daterelevé", 6, 2) AS INTEGER) AS "mois",
             CAST(substr(z."daterelevé", 1, 4) AS INTEGER) AS "annee",
             z."daterelevé",
             avg(abs(z."forcenoeuds")) AS "zefirmoyen",
             avg(z."température")  AS "tempmoyen",
             max(z."température")  AS "tempmaxi",
             min(z."température")  AS "tempmini",
             avg(z."pression")     AS "pmoyen",
             max(z."pression")     AS "pmaxi",
             min(z."pression")     AS "pmini"
      FROM "Zefir" AS z
      WHERE z."NumAéroport" IS NOT NULL
      GROUP BY z."NumAéroport", z."daterelevé") AS jour
JOIN "Zefir" AS pointe
  ON pointe.rowid = (SELECT q.rowid FROM "Zefir" AS q
                     WHERE q."NumAéroport" = jour."NumAéroport" AND q."daterelevé" = jour."daterelevé"
                     ORDER BY abs(q."forcenoeuds") DESC, q."heurerelevé"
                     LIMIT 1)
ORDER BY jour."NumAéroport", jour."daterelevé";

-- The layout's version, so that a file made under an older one can be brought up to this one
-- without losing a row. 2: Null in the observation's key counts as a value, the wind of the day is
-- taken as a magnitude, and the days are kept in a table of their own. 3: a variable peak has no
-- direction.
PRAGMA user_version = 3;
