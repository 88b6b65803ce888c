// Skelda's diary: "log/log.txt" under the current directory, one line per event.
#pragma once

#include "Clock.h"

#include <QString>

namespace skelda {

// Appends one line: the current date and time as a date-and-time value reads as text (the date
// alone at exactly midnight, as the regional settings write it), one blank,
// the message, and CR LF. The file is opened and closed for this one line, so nothing is lost
// when the program ends abruptly. Logging never disturbs the caller: with no log/ folder, or a
// file that can't be opened, the line is lost without a word. No code creates the folder.
void EcrireLog(const QString& Message, const Clock& clock);

}  // namespace skelda
