#include "Log.h"

#include <QFile>

namespace skelda {

void EcrireLog(const QString& Message, const Clock& clock) {
    // Relative on purpose: the log follows the current directory, unlike the database, which
    // lies beside the program.
    QFile file(QStringLiteral("log/log.txt"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append)) return;  // the entry is lost, silently
    // The stamp is the moment as any date-and-time value reads as text: the date alone at exactly
    // midnight.
    const QString line = NowText(clock) + u' ' + Message + QStringLiteral("\r\n");
    file.write(line.toUtf8());
    file.close();
}

}  // namespace skelda
