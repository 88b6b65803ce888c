#include "RunTime.h"

#include "Failure.h"

#include <utility>

namespace skelda {

namespace {
// The state of the one user-interface thread's events: whether the handler about to run was
// raised by a statement (RaiseEvent), and the failure it hands back. Events run one inside the
// other, never side by side, so two values are enough.
bool raising = false;
std::exception_ptr handedBack;
}  // namespace

void RaiseEvent(const std::function<void()>& Raise) {
    const bool outer = raising;
    raising = true;
    try {
        Raise();
    } catch (...) {
        raising = outer;
        throw;
    }
    raising = outer;
    if (handedBack) std::rethrow_exception(std::exchange(handedBack, nullptr));
}

bool RunTimeGuard::EnterHandler() noexcept {
    // The handler's own statements start afresh: an event that comes while it lets events run is
    // an event from outside.
    return std::exchange(raising, false);
}

void RunTimeGuard::LeaveHandler(bool raised) noexcept { raising = raised; }

void RunTimeGuard::HandBack(std::exception_ptr failure) noexcept {
    // Two handlers of one raised event both failing: the first failure is the statement's.
    if (!handedBack) handedBack = std::move(failure);
}

RunTimeGuard::RunTimeGuard(MessageBoxes& Boxes, std::function<void(int)> Terminer)
    : boxes_(Boxes), terminer_(std::move(Terminer)) {}

bool RunTimeGuard::Deliver(const std::function<bool()>& deliver) noexcept {
    bool result = false;
    Handle([&] { result = deliver(); });
    return result;
}

void RunTimeGuard::Fail(const std::exception_ptr& failure) noexcept {
    int number = InternalError;
    QString description;
    try {
        std::rethrow_exception(failure);
    } catch (const RuntimeError& e) {
        number = e.Number();
        description = e.Description();
    } catch (const std::exception& e) {
        // A failure of the C++ library itself, which the run time would call an internal error.
        description = QStringLiteral("Internal error (%1)").arg(QString::fromLocal8Bit(e.what()));
    } catch (...) {
        description = QStringLiteral("Internal error");
    }
    if (failed_) return;
    failed_ = true;
    try {
        boxes_.RuntimeErrorBox(number, description);
    } catch (...) {
        // The box itself failing changes nothing: the program ends all the same.
    }
    terminer_(number);
}

}  // namespace skelda
