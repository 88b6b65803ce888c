// promo: the news window, shown once per run at the first poll with the news server's page as
// it comes.
#pragma once

#include "Controls.h"

#include <QGroupBox>
#include <QPushButton>
#include <QWidget>
#include <string_view>

namespace skelda {

class Forms;

class Promo : public QWidget {
    Q_OBJECT
public:
    // The library the form belongs to: the others reach it through its interfaces only.
    static constexpr std::string_view Library = "forecast";

    // Builds the form, centred on the screen, and runs its Form_Load.
    explicit Promo(Forms& forms, QWidget* parent = nullptr);

    // Shows the news page in Label1, markup and all.
    void AfficherPage(const QString& page);
    // Label2 shows the present date and time, in the general format (02/11/2004 10:05:00).
    void Form_Load();
    // Unloads the form. The news don't come back in this run: the flag stays set.
    void Command1_Click();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    // ---- Controls, under their design names.
    QGroupBox* Frame1 = nullptr;      // "News......"
    Label* Label1 = nullptr;          // inside Frame1: the page, markup and all, never rendered
    QPushButton* Command1 = nullptr;  // "Close"
    Label* Label2 = nullptr;          // the date and time of loading

    Forms& forms_;
};

}  // namespace skelda
