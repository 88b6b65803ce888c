// The news of the run: a small page shown once, at the first poll.
#pragma once

#include <QString>

namespace skelda {

class Forms;

// Called by every poll with an argument it doesn't use (always ""). Returns at once once the
// news were shown in this run, as Module1's NouvellesVues records.
void AfficherNouvelles(const QString& Inutile, Forms& forms);

}  // namespace skelda
