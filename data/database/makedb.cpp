// makedb: makes the delivered database.mdb from the schema and the seed of airports.
//
//     makedb <schema.sql> <airports.csv> <database.mdb>
//
// A seed file that doesn't exist yet gives a database without airports, so that the build never
// waits for it.
#include <QFile>
#include <QString>
#include <cstdio>

#include "SeedDatabase.h"

namespace {

bool ReadText(const QString& path, QString& text) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    text = QString::fromUtf8(file.readAll());
    return true;
}

int Fail(const QString& message) {
    std::fprintf(stderr, "makedb: %s\n", qPrintable(message));
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: makedb <schema.sql> <airports.csv> <database.mdb>\n");
        return 2;
    }
    const QString schemaPath = QString::fromLocal8Bit(argv[1]);
    const QString seedPath = QString::fromLocal8Bit(argv[2]);
    const QString databasePath = QString::fromLocal8Bit(argv[3]);

    QString schema, seed, error;
    if (!ReadText(schemaPath, schema)) return Fail(QStringLiteral("can't read %1").arg(schemaPath));
    if (QFile::exists(seedPath) && !ReadText(seedPath, seed))
        return Fail(QStringLiteral("can't read %1").arg(seedPath));

    QList<skelda::SeedAirport> airports;
    if (!skelda::ParseAirports(seed, airports, &error)) return Fail(seedPath + QStringLiteral(", ") + error);
    if (!skelda::CreateDatabase(databasePath, schema, airports, &error))
        return Fail(databasePath + QStringLiteral(": ") + error);
    std::printf("makedb: %s with %d airports\n", qPrintable(databasePath), int(airports.size()));
    return 0;
}
