// The application object of Skelda. Every event passes its notify, which runs it inside the
// program's run-time guard: the last net under a failure that no handler caught.
#pragma once

#include <QApplication>

#include "RunTime.h"

namespace skelda {

class Application : public QApplication {
    Q_OBJECT
public:
    // Guard shows the run-time error box and ends the program; it must outlive the application.
    Application(int& argc, char** argv, RunTimeGuard& guard);

    bool notify(QObject* receiver, QEvent* event) override;

private:
    RunTimeGuard& guard_;
};

}  // namespace skelda
