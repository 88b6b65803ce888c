// What the monthly window's tests share: the form loaded over a real database in a temporary
// folder, with a clock in March 2004, recorded message boxes, and the run-time error box caught.
#pragma once

#include "Forms.h"
#include "GuiApplication.h"
#include "Named.h"
#include "NotificationArea.h"
#include "RecordingSurface.h"
#include "RunTime.h"
#include "Seams.h"
#include "StatistiqueMensuelle.h"
#include "TestDatabase.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* os) { *os << '"' << text.toStdString() << '"'; }

namespace skelda::test {

// Boxes that give the answers they were told (then Yes), and remember prompt, style and title.
class AnsweringBoxes : public MessageBoxes {
public:
    struct Shown {
        QString prompt;
        int style;
        QString title;
    };
    int MsgBox(const QString& prompt, int style, const QString& title) override {
        shown.push_back({prompt, style, title});
        if (answers.empty()) return vbYes;
        const int answer = answers.front();
        answers.pop_front();
        return answer;
    }
    void RuntimeErrorBox(int number, const QString& description) override {
        shown.push_back({QStringLiteral("Run-time error '%1': %2").arg(number).arg(description), 0, {}});
    }
    std::deque<int> answers;
    std::vector<Shown> shown;
};

// The three airports, listed by city: London - Heathrow (idx 2), Paris - Le Bourget (idx 1, the
// preferred one), Roissy - Charles de Gaulle (idx 3).
inline QList<SeedAirport> StatAirports() {
    return {Airport(QStringLiteral("LFPB"), QStringLiteral("Paris"), QStringLiteral("Le Bourget"), true, true),
            Airport(QStringLiteral("EGLL"), QStringLiteral("London"), QStringLiteral("Heathrow")),
            Airport(QStringLiteral("LFPG"), QStringLiteral("Roissy"), QStringLiteral("Charles de Gaulle"))};
}
inline constexpr int LeBourget = 1;
inline constexpr int Heathrow = 2;
inline constexpr int LineLeBourget = 1;  // its line in Aeroports
inline constexpr int LineHeathrow = 0;

// Thrown by a loop observer to leave a loop that never ends by itself.
struct LoopWatched {};

class Statistics : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureGuiApplication();
        ASSERT_TRUE(db.IsValid());
        forms.Provide<StatistiqueMensuelle>(&StatistiqueMensuelle::Load);
    }
    void TearDown() override { forms.Unload<StatistiqueMensuelle>(); }

    // The shared form, loaded now if it isn't.
    StatistiqueMensuelle& Form() { return forms.Get<StatistiqueMensuelle>(); }

    // The form loaded, drawing from now on on the recording.
    StatistiqueMensuelle& FormOnRecording() {
        StatistiqueMensuelle& form = Form();
        form.DrawOn(recording);
        return form;
    }

    // Selects the airport line and the month (1 to 12) as the user does, which draws the month.
    void Show(StatistiqueMensuelle& form, int airportLine, int month) {
        Named<ListBox>(form, QStringLiteral("Aeroports"))->SetListIndex(airportLine);
        recording.Clear();
        Named<ListBox>(form, QStringLiteral("Mois"))->SetListIndex(month - 1);
    }

    // Adds the observation of one day: wind, direction, temperature and pressure, at a time.
    void Observe(int airport, QDate day, QTime time, int knots, const QString& direction = QStringLiteral("240"),
                 std::optional<int> temperature = 12, std::optional<int> pressure = 1015) {
        TestObservation row;
        row.numAeroport = airport;
        row.day = day;
        row.time = time;
        row.forcenoeuds = knots;
        row.orientation = direction;
        row.temperature = temperature;
        row.pression = pressure;
        row.metaf = QStringLiteral("METAF %1 %2").arg(day.toString(Qt::ISODate), time.toString());
        db.AddObservation(row);
    }

    // Lets a closed window go, as the event loop would.
    static void DeleteClosed() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    TestDatabase db{StatAirports()};
    FixedClock clock{QDateTime(QDate(2004, 3, 20), QTime(15, 7, 9))};
    ScriptedRandom random;
    AnsweringBoxes boxes;
    std::vector<int> runTimeEnds;
    RunTimeGuard guard{boxes, [this](int number) { runTimeEnds.push_back(number); }};
    TestPrinter printer;
    CountingProcessEnd processEnd;
    DesktopNotificationArea notificationArea;
    Services services{clock, random, boxes, guard, {}, {}, {}, db.Folder(), printer, processEnd, notificationArea};
    Forms forms{services};
    RecordingSurface recording;
};

}  // namespace skelda::test
