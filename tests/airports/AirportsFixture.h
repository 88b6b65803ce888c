// What the tests of the airport forms share: the program's forms over a real database (London -
// Heathrow, Paris - Le Bourget preferred, Roissy - Charles de Gaulle, all active), the selection
// form opened from the tray's menu as the user opens it, and the user's clicks on its list.
#pragma once

#include <QCheckBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <algorithm>

#include <sqlite3.h>

#include "AeroportsConfig.h"
#include "ajoutareoports.h"
#include "tray/TrayFixture.h"

namespace skelda::test {

inline const QString PreferredMessage = QStringLiteral("You must have a prefered airpor selected.");
inline const QString NoneMessage = QStringLiteral("You must select at least one airport....");

// The idx of the three airports, and their lines in the selection form's list (by city).
inline constexpr int IdxBourget = 1;
inline constexpr int IdxHeathrow = 2;
inline constexpr int IdxRoissy = 3;

// Another program writing to the database: it holds the file's write lock until it goes, so that
// a write of the program waits for it, then fails.
class WriteLock {
public:
    explicit WriteLock(const QString& path) {
        if (sqlite3_open_v2(path.toUtf8().constData(), &db_, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK)
            held_ = sqlite3_exec(db_, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) == SQLITE_OK;
    }
    ~WriteLock() {
        if (held_) sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
        sqlite3_close_v2(db_);
    }
    WriteLock(const WriteLock&) = delete;
    WriteLock& operator=(const WriteLock&) = delete;
    bool Held() const { return held_; }

private:
    sqlite3* db_ = nullptr;
    bool held_ = false;
};

class AirportsFixture : public TrayFixture {
protected:
    // The selection form, opened from the tray's menu with the poll timer running.
    AeroportsConfig& OpenSelection() {
        FrmIcone& tray = StartForm();
        T(Form()).SetEnabled(true);
        Named<QAction>(tray, QStringLiteral("MenuAeroport"))->trigger();
        EXPECT_TRUE(forms.Loaded<AeroportsConfig>());
        return forms.Get<AeroportsConfig>();
    }

    // The add form, reached through the selection form's Edit button.
    ajoutareoports& OpenAddForm() {
        AeroportsConfig& selection = OpenSelection();
        QTest::mouseClick(Named<QPushButton>(selection, QStringLiteral("ajouterbtn")), Qt::LeftButton);
        EXPECT_TRUE(forms.Loaded<ajoutareoports>());
        return forms.Get<ajoutareoports>();
    }

    static QPoint LinePoint(ListBox* list, int line) {
        list->scrollToItem(list->item(line));
        return list->visualItemRect(list->item(line)).center();
    }
    // A click of the mouse on a line of the list.
    static void ClickLine(ListBox* list, int line) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, LinePoint(list, line));
    }
    // A double click: the press and release that come first, then the double click itself.
    static void DoubleClickLine(ListBox* list, int line) {
        const QPoint at = LinePoint(list, line);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, at);
    }

    // Types a text into a box, key by key, as the user does.
    static void Type(QLineEdit* box, const QString& text) {
        box->clear();
        QTest::keyClicks(box, text);
    }

    // How many times a box said this text.
    int Shown(const QString& prompt) const { return int(std::count(boxes.shown.begin(), boxes.shown.end(), prompt)); }

    // Waits until a form that unloaded itself is deleted.
    static bool Deleted(const QPointer<QWidget>& form) {
        return QTest::qWaitFor([&] { return form.isNull(); }, 2000);
    }

    // The main window polls Le Bourget and Roissy, in this order: its list and the codes it asks.
    void ExpectBourgetAndRoissyPolled() {
        ListBox* list = Named<ListBox>(Form(), QStringLiteral("List1"));
        ASSERT_EQ(list->ListCount(), 2);
        EXPECT_EQ(list->List(0), QStringLiteral("   Paris - Le Bourget"));
        EXPECT_EQ(list->List(1), QStringLiteral("   Roissy - Charles de Gaulle"));
        EXPECT_EQ(forms.module1().TableIDA[0].ToText(), QStringLiteral("LFPB"));
        EXPECT_EQ(forms.module1().TableIDA[1].ToText(), QStringLiteral("LFPG"));
    }

    // A column of an airport, straight from the file.
    QVariant Column(int idx, const QString& column) const {
        return db.Value(QStringLiteral("SELECT \"%1\" FROM \"Aéroports\" WHERE idx = %2").arg(column).arg(idx));
    }

    // Adds airports named "City nnn" with codes Annn, active unless told otherwise.
    void AddAirports(int count, bool active = true) const {
        db.Exec(
            QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
                           "INSERT INTO \"Aéroports\" (IDA, \"aéroport\", ville, timezone, \"activé\", \"préféré\") "
                           "SELECT printf('A%03d', i), 'Airport', printf('City %03d', i), '0', %2, 0 FROM n")
                .arg(count)
                .arg(active ? 1 : 0));
    }
};

}  // namespace skelda::test
