// The end of the process seam: how Skelda's run stops, after the tray menu's Quit and after the
// run-time error box. The program ends at once; tests count the ends and carry on.
#pragma once

namespace skelda {

class ProcessEnd {
public:
    virtual ~ProcessEnd() = default;
    // Ends the process with ExitCode, at once, as the run time's End does: no form unloads and
    // nothing is closed, so whatever must be written was written before. In the program it never
    // returns; a stand-in may, and the caller then goes on with its next statement.
    virtual void End(int ExitCode) = 0;
};

class SystemProcessEnd : public ProcessEnd {
public:
    [[noreturn]] void End(int ExitCode) override;
};

}  // namespace skelda
