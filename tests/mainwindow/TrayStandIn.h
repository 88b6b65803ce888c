// A stand-in for the tray's form, for the tests of the forms that ask it for its services (its
// caption, the mailbox of the tray tip, and its menu), without the tray's library.
#pragma once

#include <QAction>
#include <QCursor>
#include <QMenu>
#include <QWidget>

#include "Forms.h"
#include "TrayForm.h"

namespace skelda::test {

class TrayStandIn : public QWidget, public TrayForm {
public:
    TrayStandIn() {
        menu = new QMenu(this);
        menu->setObjectName(QStringLiteral("Menu"));
        courbe = menu->addAction(QStringLiteral("Daily Cruve"));
        QObject::connect(courbe, &QAction::triggered, [this] { ++courbeClicks; });
    }
    QString Caption() const override { return windowTitle(); }
    void SetCaption(const QString& text) override { setWindowTitle(text); }
    void PopupMenu() override { menu->exec(QCursor::pos()); }

    // Makes this stand-in the tray's form of Forms.
    static void ProvideTo(Forms& forms) {
        forms.Provide<TrayStandIn>([](Forms&) { return new TrayStandIn; });
        forms.ProvideAs<TrayForm, TrayStandIn>();
    }

    QMenu* menu;
    QAction* courbe;
    int courbeClicks = 0;
};

}  // namespace skelda::test
