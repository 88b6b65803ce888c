#include "Clock.h"

#include "Regional.h"
#include "Variant.h"

namespace skelda {

QString Clock::TimeText() const { return skelda::TimeText(Now().time()); }

QString NowText(const Clock& clock) {
    const QDateTime now = clock.Now();
    const QTime time = now.time();
    const QDateTime second(now.date(), QTime(time.hour(), time.minute(), time.second()));
    return Variant::FromDateTime(second).ToText();
}

}  // namespace skelda
