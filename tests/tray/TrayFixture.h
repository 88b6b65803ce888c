// What the tray's tests share: the poll cycle's fixture with the program's forms, made as the
// program makes them, and the real start form, whose end of the process is caught instead of
// ending the test program.
#pragma once

#include <QAction>
#include <QMenu>
#include <functional>
#include <vector>

#include "AeroportsConfig.h"
#include "FormMetaf.h"
#include "FrmIcone.h"
#include "NotifyIcon.h"
#include "ProvideForms.h"
#include "StatistiqueMensuelle.h"
#include "acquisition/PollFixture.h"
#include "ajoutareoports.h"

namespace skelda::test {

class TrayFixture : public PollFixture {
protected:
    void ProvideTray() override { ProvideForms(forms); }

    // The start form, loaded now if it isn't. Its timer is stopped at once, so that only the
    // test's Fire() ticks it; the state it had at load is kept in timer1AtLoad.
    FrmIcone& StartForm() {
        const bool first = !forms.Loaded<FrmIcone>();
        FrmIcone& tray = forms.Get<FrmIcone>();
        if (first) {
            timer1AtLoad = {Named<Timer>(tray, QStringLiteral("Timer1"))->Enabled(),
                            Named<Timer>(tray, QStringLiteral("Timer1"))->Interval()};
            Named<Timer>(tray, QStringLiteral("Timer1"))->SetEnabled(false);
            // Each later call to the notification area is noted with the record as it stood,
            // then made.
            notificationArea.watch = [this](int dwMessage, const NotifyIconData& record) {
                notifications.push_back({dwMessage, record, LogCount(QStringLiteral("Skelda Terminated"))});
                if (failingNotification == dwMessage) throw RuntimeError(failingNotificationError);
            };
        }
        return tray;
    }

    // The desktop's notification icon of the start form, or none.
    static NotifyIcon* Icone(FrmIcone& tray) {
        return tray.findChild<NotifyIcon*>(QStringLiteral("IconeNotif"), Qt::FindDirectChildrenOnly);
    }

    // A message of the notification icon, as the platform delivers it: in X, in twips.
    static void Message(FrmIcone& tray, int message) { tray.Form_MouseMove(0, 0, double(message) * TwipsPerPixel, 0); }

    struct TimerState {
        bool enabled = false;
        int interval = 0;
    };
    TimerState timer1AtLoad;
    // The ends of the process, which the tests' end only counts.
    int& ended = processEnd.ends;

    // A call to the notification area: the message (0 add, 1 modify, 2 delete), the record, and
    // how many "Skelda Terminated" lines the log held then.
    struct Notification {
        int dwMessage;
        NotifyIconData record;
        int terminatedLines;
    };
    std::vector<Notification> notifications;
    // A message whose call fails, with that error, as a test asks; -1 for none.
    int failingNotification = -1;
    int failingNotificationError = 0;
};

}  // namespace skelda::test
