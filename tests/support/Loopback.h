// Ports of the loopback address for tests that must reach nobody.
#pragma once

#include <QtGlobal>

namespace skelda::test {

// A port of 127.0.0.1 on which nobody listens: a connection to it is refused at once.
quint16 ClosedPort();

}  // namespace skelda::test
