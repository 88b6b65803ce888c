// What the monthly window's tests share: the form loaded over a real database in a temporary
// folder, with a clock in March 2004, recorded message boxes, and the run-time error box caught.
#pragma once

#include "Forms.h"
#include "GuiApplication.h"
#include "Named.h"
#include "Printing.h"
#include "RecordingSurface.h"
#include "StatistiqueMensuelle.h"
#include "TestServices.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <memory>

namespace skelda::test {

// The idx of two of the three airports of Aeroports(), and their lines in the list Aeroports.
inline constexpr int LeBourget = 1;
inline constexpr int Heathrow = 2;
inline constexpr int LineLeBourget = 1;  // its line in Aeroports
inline constexpr int LineHeathrow = 0;

// A day of March 2004, the month the tests show.
inline QDate MarchDay(int day) { return QDate(2004, 3, day); }

// Thrown by a loop observer to leave a loop that never ends by itself.
struct LoopWatched {};

class Statistics : public ::testing::Test, protected TestStation {
protected:
    Statistics() : TestStation(Aeroports(), QDateTime(QDate(2004, 3, 20), QTime(15, 7, 9))) {}

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

    // Adds a variable wind of 20 knots, stored as the decoder stores it: a negated speed and no
    // direction.
    void ObserveVariable20Knots(int airport, QDate day, QTime time) {
        TestObservation variable;
        variable.numAeroport = airport;
        variable.day = day;
        variable.time = time;
        variable.forcenoeuds = -20;
        variable.variable = true;
        variable.orientation = QString();
        variable.temperature = 12;
        variable.pression = 1015;
        variable.metaf = QStringLiteral("LFPB %1Z VRB20KT CAVOK 12/08 Q1015")
                             .arg(day.toString(QStringLiteral("dd")) + time.toString(QStringLiteral("HHmm")));
        db.AddObservation(variable);
    }

    // Lets a closed window go, as the event loop would.
    static void DeleteClosed() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    Forms forms{services};
    RecordingSurface recording;
};

}  // namespace skelda::test
