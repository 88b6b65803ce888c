// What the main window's tests share: a loaded Form1 with its poll cycle, over a real database
// in a temporary folder, run from another temporary folder that holds log/ and Images/, as the
// program finds them.
#pragma once

#include "Form1.h"
#include "Forms.h"
#include "GuiApplication.h"
#include "Loopback.h"
#include "Named.h"
#include "PollCycle.h"
#include "Printing.h"
#include "RecordingSurface.h"
#include "RunFolder.h"
#include "TestServices.h"
#include "acquisition/PollParts.h"

#include <QColor>

#include <gtest/gtest.h>

namespace skelda::test {

// The day that the tests' observations fall on: 2 November 2004, a day whose number is also a
// month, so that a day-first date would find another day.
inline const QDate Jour(2004, 11, 2);

// An observation of airport Numero at Heure:Minute of the test day, with plain values that each
// test changes as it needs.
inline TestObservation Releve(int numero, int heure, int minute, int noeuds = 10) {
    TestObservation row;
    row.numAeroport = numero;
    row.day = Jour;
    row.time = QTime(heure, minute);
    row.forcenoeuds = noeuds;
    row.orientation = QStringLiteral("240");
    row.visibilite = QStringLiteral("Visibility greater then 10 Km");
    row.temperature = 12;
    row.pression = 1015;
    row.metaf = QStringLiteral("LFPB 02%1%2Z 240%3KT CAVOK 12/08 Q1015")
                    .arg(heure, 2, 10, QLatin1Char('0'))
                    .arg(minute, 2, 10, QLatin1Char('0'))
                    .arg(noeuds, 2, 10, QLatin1Char('0'));
    return row;
}

// The idx of two of the three airports of Aeroports(), and their lines in List1.
inline constexpr int LeBourget = 1;
inline constexpr int Heathrow = 2;
inline constexpr int LigneLeBourget = 1;  // its line in List1
inline constexpr int LigneHeathrow = 0;

inline void SaveBitmap(const QString& path, QColor colour, QSize size = QSize(150, 100)) {
    ASSERT_TRUE(SavePicture(path, colour, size)) << path.toStdString();
}

class MainWindow : public ::testing::Test, protected TestStation {
protected:
    MainWindow() : TestStation(Aeroports(), QDateTime(QDate(2004, 11, 20), QTime(15, 7, 9))) {}

    void SetUp() override {
        EnsureGuiApplication();
        ASSERT_TRUE(db.IsValid());
        ASSERT_TRUE(work.IsValid());
        // Form1 as the program loads it, with its poll cycle wired. Nobody serves here: a poll's
        // connection and the first poll's news fetch are refused at once, silently.
        services.observationServer = {QStringLiteral("127.0.0.1"), ClosedPort()};
        services.newsServer = {QStringLiteral("127.0.0.1"), ClosedPort()};
        ProvideMainWindow(forms);
    }
    void TearDown() override { forms.Unload<Form1>(); }

    // The shared Form1, loaded now if it isn't: its Form_Load runs on the database as it stands.
    Form1& Form() { return forms.Get<Form1>(); }

    // The form after loading, drawing from now on on the recording.
    Form1& FormOnRecording() {
        Form1& form = Form();
        form.DrawOn(recording);
        return form;
    }

    // Redraws the chart on a fresh recording.
    void Redraw(Form1& form) {
        recording.Clear();
        form.TracerCourbe();
    }

    // The folder the program runs in, with log/ and Images/.
    RunFolder work{RunFolder::LogAndImages};
    Forms forms{services};
    RecordingSurface recording;
};

}  // namespace skelda::test
