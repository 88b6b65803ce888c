// The one QApplication of a test program, for tests of widgets, sockets and the printer, which
// need one. Headless (offscreen) unless a platform was chosen already.
#pragma once

namespace skelda {

// Makes the application if there is none yet. Call it from a test's set-up.
void EnsureGuiApplication();

}  // namespace skelda
