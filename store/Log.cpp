#include "Log.h"

#include "Variant.h"

#include <QFile>

namespace skelda {

namespace {

// The stamp is the moment as any date-and-time value reads as text: at exactly midnight that is
// the date alone. The system's clock counts whole seconds, so the fraction is dropped first, or
// 00:00:00.4 would still show its time.
QString Stamp(const QDateTime& now) {
    const QTime time = now.time();
    const QDateTime second(now.date(), QTime(time.hour(), time.minute(), time.second()));
    return Variant::FromDateTime(second).ToText();
}

}  // namespace

void EcrireLog(const QString& Message, const Clock& clock) {
    // Relative on purpose: the log follows the current directory, unlike the database, which
    // lies beside the program.
    QFile file(QStringLiteral("log/log.txt"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append)) return;  // the entry is lost, silently
    const QString line = Stamp(clock.Now()) + u' ' + Message + QStringLiteral("\r\n");
    file.write(line.toUtf8());
    file.close();
}

}  // namespace skelda
