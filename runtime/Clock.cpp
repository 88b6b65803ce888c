#include "Clock.h"

#include "Regional.h"

namespace skelda {

QString Clock::TimeText() const { return skelda::TimeText(Now().time()); }

}  // namespace skelda
