#include "ProcessEnd.h"

#include <cstdlib>

namespace skelda {

// _Exit, not exit: no static destructor runs, so no form or connection is torn down on the way.
void SystemProcessEnd::End(int ExitCode) { std::_Exit(ExitCode); }

}  // namespace skelda
