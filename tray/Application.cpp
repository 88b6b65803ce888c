#include "Application.h"

#include <cstdlib>
#include <exception>
#include <utility>

#include "Failure.h"

namespace skelda {

namespace {
constexpr int InternalError = 51;
}  // namespace

RunTimeGuard::RunTimeGuard(MessageBoxes& Boxes, std::function<void(int)> Terminer)
    : boxes_(Boxes), terminer_(std::move(Terminer)) {}

bool RunTimeGuard::Deliver(const std::function<bool()>& deliver) {
    int number = 0;
    QString description;
    try {
        return deliver();
    } catch (const RuntimeError& e) {
        number = e.Number();
        description = e.Description();
    } catch (const std::exception& e) {
        // A failure of the C++ library itself, which the run time would call an internal error.
        number = InternalError;
        description = QStringLiteral("Internal error (%1)").arg(QString::fromLocal8Bit(e.what()));
    }
    if (failed_) return false;
    failed_ = true;
    boxes_.RuntimeErrorBox(number, description);
    terminer_(number);
    return false;
}

// After the box the program ends at once, as the run time ends it: no form unloads.
Application::Application(int& argc, char** argv, MessageBoxes& boxes)
    : QApplication(argc, argv), guard_(boxes, [](int) { std::_Exit(1); }) {}

bool Application::notify(QObject* receiver, QEvent* event) {
    return guard_.Deliver([&] { return QApplication::notify(receiver, event); });
}

}  // namespace skelda
