#include "News.h"

#include "Forms.h"

namespace skelda {

void AfficherNouvelles(const QString& /*Inutile*/, Forms& forms) {
    // Shown once per run: the flag is compared exactly, and it is set only after the page is
    // shown, so a failed fetch doesn't count as seen.
    if (forms.module1().NouvellesVues.Concat() == QStringLiteral("vu")) return;
    // Fetching the page from the news server and showing it in the news form come with that
    // form. Until then nothing is fetched and the flag stays empty, so every poll passes here.
}

}  // namespace skelda
