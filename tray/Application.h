// The application object of Skelda, with the run time's last word on a failure that nothing
// handled: one "Run-time error" box, then the end of the program.
#pragma once

#include <QApplication>
#include <functional>

#include "MessageBoxes.h"

namespace skelda {

// Where a failure that no procedure handled ends: the run-time error box, then the end.
class RunTimeGuard {
public:
    // Boxes shows the box; Terminer ends the program with the failure's number.
    RunTimeGuard(MessageBoxes& Boxes, std::function<void(int)> Terminer);

    // Delivers one event through Deliver and gives its result. A RuntimeError (or any other
    // exception) that escapes it is shown through RuntimeErrorBox with its number and
    // description ("Run-time error '6':" ... "Overflow"), then Terminer is called and the result
    // is false. Only the first failure is shown: those that come while the box is up (the timers
    // go on ticking under it) or after it are dropped.
    bool Deliver(const std::function<bool()>& deliver);

    bool Failed() const { return failed_; }

private:
    MessageBoxes& boxes_;
    std::function<void(int)> terminer_;
    bool failed_ = false;
};

class Application : public QApplication {
    Q_OBJECT
public:
    // Boxes shows the run-time error box; it must outlive the application.
    Application(int& argc, char** argv, MessageBoxes& boxes);

    // Every event of every handler passes here.
    bool notify(QObject* receiver, QEvent* event) override;

private:
    RunTimeGuard guard_;
};

}  // namespace skelda
