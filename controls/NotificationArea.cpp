#include "NotificationArea.h"

#include "NotifyIcon.h"

#include <QCoreApplication>
#include <QWidget>

namespace skelda {

namespace {
const QString NomIcone = QStringLiteral("IconeNotif");
}  // namespace

QString TipText(const NotifyIconData& Data) {
    QString tip = Data.szTip;
    const qsizetype nul = tip.indexOf(QChar(u'\0'));
    if (nul >= 0) tip.truncate(nul);
    while (!tip.isEmpty() && (tip.back() == u' ' || tip.back() == u'\r' || tip.back() == u'\n')) tip.chop(1);
    return tip;
}

QEvent::Type IconMessageEvent::EventType() {
    static const auto type = QEvent::Type(QEvent::registerEventType());
    return type;
}

void DesktopNotificationArea::Shell_NotifyIconA(int dwMessage, const NotifyIconData& Data) {
    QWidget* fenetre = QWidget::find(WId(Data.hWnd));
    if (fenetre == nullptr) return;
    auto* icone = fenetre->findChild<NotifyIcon*>(NomIcone, Qt::FindDirectChildrenOnly);
    switch (dwMessage) {
        case NIM_ADD:
            if (!QSystemTrayIcon::isSystemTrayAvailable()) return;
            if (icone == nullptr) {
                icone = new NotifyIcon(fenetre);
                icone->setObjectName(NomIcone);
                QObject::connect(icone, &NotifyIcon::Message, fenetre, [fenetre](int32_t message) {
                    IconMessageEvent event(message);
                    QCoreApplication::sendEvent(fenetre, &event);
                });
            }
            icone->setIcon(Data.hIcon);
            icone->setToolTip(TipText(Data));
            icone->Show();
            break;
        case NIM_MODIFY:
            if (icone != nullptr) icone->setToolTip(TipText(Data));
            break;
        case NIM_DELETE:
            if (icone != nullptr) icone->hide();
            break;
        default:
            break;
    }
}

}  // namespace skelda
