#include "Application.h"

namespace skelda {

Application::Application(int& argc, char** argv, RunTimeGuard& guard) : QApplication(argc, argv), guard_(guard) {}

bool Application::notify(QObject* receiver, QEvent* event) {
    return guard_.Deliver([&] { return QApplication::notify(receiver, event); });
}

}  // namespace skelda
