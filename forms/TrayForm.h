// What the other forms ask of the tray's form. The ingestion leaves the tray tip's text in the
// tray form's caption, which the tray's timer passes on, and the main window pops up the tray's
// menu on a right click of its background.
#pragma once

#include <QString>

namespace skelda {

class TrayForm {
public:
    virtual ~TrayForm() = default;
    // The caption of the tray's (hidden) form: the mailbox of the tray tip.
    virtual QString Caption() const = 0;
    virtual void SetCaption(const QString& text) = 0;
    // Pops up the tray's menu at the pointer; returns when the menu closes.
    virtual void PopupMenu() = 0;
};

}  // namespace skelda
