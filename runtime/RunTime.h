// Where a failure that no procedure handled ends: one "Run-time error" box, then the end of the
// program.
//
// Every event enters Skelda's code through one RunTimeGuard: the handlers connected to signals
// and timers (through On, below), the forms' own event handlers, and the queued start of the
// program. So a failure that escapes a handler is caught right where the event came in, and never
// travels back through Qt's signal and event dispatch, which isn't made for exceptions.
//
// An event raised by a statement of Skelda's own (setting a list's ListIndex raises its Click) is
// another matter: a failure of its handler is the failure of that statement, and goes on to the
// caller's own handling, as the run time passes it up its call stack. RaiseEvent carries it past
// the signal's dispatch and throws it again at the statement.
#pragma once

#include "MessageBoxes.h"

#include <QObject>

#include <exception>
#include <functional>
#include <type_traits>
#include <utility>

namespace skelda {

class RunTimeGuard {
public:
    // Boxes shows the box; Terminer ends the program with the failure's number. In the program it
    // never returns; in tests it may, and the guard then carries on with the next event.
    RunTimeGuard(MessageBoxes& Boxes, std::function<void(int)> Terminer);
    RunTimeGuard(const RunTimeGuard&) = delete;
    RunTimeGuard& operator=(const RunTimeGuard&) = delete;

    // Runs one event's handler. A RuntimeError (or any other exception) that escapes it is shown
    // through RuntimeErrorBox with its number and description ("Run-time error '6':" ...
    // "Overflow"), then Terminer is called. Only the first failure is shown: those that come while
    // the box is up (the timers go on ticking under it) or after it are dropped. Never throws.
    // A handler of an event raised by RaiseEvent gives its failure back to RaiseEvent instead.
    template <class F>
    void Handle(F&& handler) noexcept {
        const bool raised = EnterHandler();
        try {
            std::forward<F>(handler)();
        } catch (...) {
            if (raised)
                HandBack(std::current_exception());
            else
                Fail(std::current_exception());
        }
        LeaveHandler(raised);
    }

    // The same for an event that gives a result (the application's notify): false after a failure.
    bool Deliver(const std::function<bool()>& deliver) noexcept;

    bool Failed() const { return failed_; }

private:
    static bool EnterHandler() noexcept;
    static void LeaveHandler(bool raised) noexcept;
    static void HandBack(std::exception_ptr failure) noexcept;
    void Fail(const std::exception_ptr& failure) noexcept;

    MessageBoxes& boxes_;
    std::function<void(int)> terminer_;
    bool failed_ = false;
};

// Runs Raise, a statement that emits a signal to raise an event (a list's Click, say). A failure
// that a handler of the event didn't handle comes out of RaiseEvent, after the dispatch, as the
// failure of the statement; it doesn't go to the run-time error box.
void RaiseEvent(const std::function<void()>& Raise);

// Connects Signal of Sender to Handler, run inside Guard whenever the signal comes. The handler
// takes the signal's arguments, or none. Context ends the connection when it goes, as with
// QObject::connect.
// Calls Handler with the signal's arguments when it takes them, else with none. A function of its
// own, so that the call without arguments is only compiled for a handler that takes none.
template <class Handler, class... Args>
void CallWithOrWithout(Handler& handler, Args&&... args) {
    if constexpr (std::is_invocable_v<Handler&, Args...>)
        handler(std::forward<Args>(args)...);
    else
        handler();
}

template <class Sender, class Signal, class Handler>
QMetaObject::Connection On(RunTimeGuard& guard, const Sender* sender, Signal signal, const QObject* context,
                           Handler handler) {
    return QObject::connect(
        sender, signal, context, [&guard, handler = std::move(handler)](auto&&... args) mutable -> void {
            guard.Handle([&] { CallWithOrWithout(handler, std::forward<decltype(args)>(args)...); });
        });
}

}  // namespace skelda
