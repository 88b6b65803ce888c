#include "SessionEnd.h"

#include <QGuiApplication>
#include <QSessionManager>

namespace skelda {

namespace {

class QtSessionEnd : public SessionEnd {
public:
    explicit QtSessionEnd(QSessionManager& manager) : manager_(manager) {}
    bool AllowsInteraction() override { return manager_.allowsInteraction(); }
    void Cancel() override { manager_.cancel(); }

private:
    QSessionManager& manager_;
};

}  // namespace

QMetaObject::Connection OnSessionEnd(const QObject* context, std::function<void(SessionEnd&)> handler) {
    auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    if (application == nullptr) return {};
    return QObject::connect(application, &QGuiApplication::commitDataRequest, context,
                            [handler = std::move(handler)](QSessionManager& manager) {
                                QtSessionEnd end(manager);
                                handler(end);
                            });
}

}  // namespace skelda
