#include "TestServices.h"

namespace skelda::test {

// The services are named one by one, so that whatever else Services holds, now or later (the
// servers here), takes its default until a test sets it. GCC warns of every member left out of
// such a list, which is the point here.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
TestServices::TestServices(const QDateTime& now, const QString& applicationPath)
    : clock(now),
      guard(boxes, [this](int number) { runTimeEnds.push_back(number); }),
      services{.clock = clock,
               .random = random,
               .boxes = boxes,
               .guard = guard,
               .applicationPath = applicationPath,
               .printer = printer,
               .processEnd = processEnd,
               .notificationArea = notificationArea} {}
#pragma GCC diagnostic pop

}  // namespace skelda::test
